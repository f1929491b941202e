#pragma once

#include <QColor>
#include <QProxyStyle>

/// The base style with what it lacks: check boxes that can be seen and hit on a dark screen as
/// well, and message boxes whose buttons carry words only.
class LookStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// `accent` frames the control that has the focus.
    explicit LookStyle(const QColor& accent);

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;

private:
    QColor m_accent;
};
