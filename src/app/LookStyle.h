#pragma once

#include <QProxyStyle>

/// The base style with what it lacks: borders that can be seen, in the palette's colour Mid; the
/// control that has the focus framed in the colour Link, however the focus came to it; check boxes
/// that can be hit; texts a unit from the edge of their list; and message boxes whose buttons carry
/// words only.
class LookStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// `unit` is how far texts stay from the edge of their list, in device-independent pixels.
    explicit LookStyle(int unit);

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;

private:
    int m_unit;
};
