#include "app/LookStyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace {

constexpr int CheckBoxSide = 20;
constexpr double CheckBoxRadius = 4;

void drawCheckBox(const QStyleOption& option, QPainter& painter, const QColor& accent) {
    const bool checked = option.state.testFlag(QStyle::State_On);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    const QPalette& palette = option.palette;
    const QRectF box = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor border = focused ? accent : palette.color(QPalette::PlaceholderText);
    painter.setPen(QPen(border, focused ? 2 : 1));
    painter.setBrush(palette.color(checked ? QPalette::Highlight : QPalette::Base));
    painter.drawRoundedRect(box, CheckBoxRadius, CheckBoxRadius);
    if (checked) {
        const auto at = [&](double x, double y) {
            return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
        };
        QPainterPath tick(at(0.22, 0.52));
        tick.lineTo(at(0.42, 0.72));
        tick.lineTo(at(0.78, 0.30));
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette.color(QPalette::HighlightedText), 2, Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(tick);
    }
    painter.restore();
}

} // namespace

LookStyle::LookStyle(const QColor& accent)
    : QProxyStyle(QStringLiteral("Fusion"))
    , m_accent(accent) {}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    if (metric == PM_IndicatorWidth || metric == PM_IndicatorHeight)
        return CheckBoxSide;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    if (element == PE_IndicatorCheckBox)
        drawCheckBox(*option, *painter, m_accent);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}
