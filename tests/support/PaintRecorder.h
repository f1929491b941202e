#pragma once

#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

/// Remembers every text and picture that is drawn instead of painting it.
struct PaintRecorder : QPaintEngine {
    struct Text {
        QPointF Place;
        QString Content;
        double Width;
        QFont Font;
        QColor Color;
    };

    PaintRecorder()
        : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF& at, const QPixmap&, const QRectF&) override { Pictures += at; }
    void drawRects(const QRectF*, int) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPath(const QPainterPath&) override {}
    Type type() const override { return QPaintEngine::User; }
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        Texts.append({place, item.text(), item.width(), item.font(), painter()->pen().color()});
    }

    QList<Text> Texts;
    QList<QRectF> Pictures;
};

/// A picture as large as a control.
struct RecordedWidget : QPixmap {
    explicit RecordedWidget(QWidget& widget)
        : QPixmap(widget.size()) {
        widget.render(this, {}, {}, {});
    }
    QPaintEngine* paintEngine() const override { return &Recorder; }

    mutable PaintRecorder Recorder;
};
