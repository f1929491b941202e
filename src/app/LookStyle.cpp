#include "app/LookStyle.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleOption>

namespace {

constexpr int FocusWidth = 2;

} // namespace

LookStyle::LookStyle(int unit)
    : QProxyStyle(QStringLiteral("Fusion"))
    , m_unit(unit) {}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return 20;
    case PM_DefaultFrameWidth: // The rows of a list leave room for the frame of the focus.
        return qobject_cast<const QAbstractItemView*>(widget) ? FocusWidth : 1;
    case PM_HeaderMargin:
        return m_unit;
    case PM_FocusFrameHMargin: // Lists put their texts one pixel further in.
        return m_unit - 1;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_FrameFocusRect:
        if (widget && !qobject_cast<const QAbstractItemView*>(widget))
            return; // The control has a frame already; the row of a list has none.
        break;
    case PE_Frame:
    case PE_FrameLineEdit:
    case PE_PanelButtonCommand:
    case PE_IndicatorCheckBox:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const bool focused = element == PE_FrameFocusRect || option->state.testFlag(State_HasFocus);
    const double width = focused ? FocusWidth : 1;
    const double inside = width / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(option->palette.color(focused ? QPalette::Link : QPalette::Mid), width));
    painter->setBrush(Qt::NoBrush);
    constexpr double radius = 2;
    painter->drawRoundedRect(QRectF(option->rect).adjusted(inside, inside, -inside, -inside),
                             radius, radius);
    painter->restore();
}
