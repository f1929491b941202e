#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QWidget>

/// Remembers every text that is drawn instead of painting it.
struct PaintRecorder : QPaintEngine {
    struct Text {
        QPointF Place;
        QString Content;
        double Width;
        QFont Font;
    };

    PaintRecorder()
        : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawRects(const QRectF*, int) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    Type type() const override { return QPaintEngine::User; }
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        Texts.append({place, item.text(), item.width(), item.font()});
    }

    QList<Text> Texts;
};

/// A surface as large as a control, with the resolution of the control's screen.
struct RecordedWidget : QPaintDevice {
    explicit RecordedWidget(QWidget& widget)
        : m_widget(widget) {
        widget.render(this, {}, {}, {});
    }
    QPaintEngine* paintEngine() const override { return &Recorder; }

    mutable PaintRecorder Recorder;

protected:
    int metric(PaintDeviceMetric what) const override {
        switch (what) {
        case PdmWidth:
            return m_widget.width();
        case PdmHeight:
            return m_widget.height();
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return m_widget.logicalDpiX();
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 1;
        }
    }

private:
    QWidget& m_widget;
};
