#include "app/TileButton.h"

#include "app/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int Margin = 2 * Theme::Unit;
constexpr int Radius = Theme::Unit;

QColor mixed(const QColor& a, const QColor& b, double share) {
    return QColor::fromRgbF(static_cast<float>(a.redF() * (1 - share) + b.redF() * share),
                            static_cast<float>(a.greenF() * (1 - share) + b.greenF() * share),
                            static_cast<float>(a.blueF() * (1 - share) + b.blueF() * share));
}

} // namespace

TileButton::TileButton(const QString& name, const QString& icon, const QString& caption,
                       const QString& toolTip, QString key, QWidget* parent)
    : QAbstractButton(parent)
    , m_key(std::move(key)) {
    setObjectName(name);
    setIcon(Theme::Icon(icon));
    setIconSize(QSize(Theme::TileIcon, Theme::TileIcon));
    setText(caption);
    setToolTip(toolTip);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QFont TileButton::keyFont() const {
    QFont small = font();
    small.setPointSizeF(font().pointSizeF() * 0.8);
    return small;
}

QSize TileButton::sizeHint() const {
    const QFontMetrics caption(font());
    const QFontMetrics key(keyFont());
    const int width = std::max(caption.horizontalAdvance(text()), Theme::TileIcon) + 2 * Margin;
    const int height = Theme::TileIcon + caption.height() + key.height() + Theme::Unit + 2 * Margin;
    return {width, height};
}

void TileButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor face = palette().color(QPalette::Button);
    const double tint = isDown() ? 0.30 : underMouse() ? 0.12 : 0.0;
    const double inset = hasFocus() ? 1.5 : 0.5; // half of the line's width
    const QRectF box = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    painter.setPen(
        QPen(palette().color(hasFocus() ? QPalette::Link : QPalette::Mid), hasFocus() ? 3 : 1));
    painter.setBrush(mixed(face, Theme::Accent, tint));
    painter.drawRoundedRect(box, Radius, Radius);

    // Icon, caption and key as one block in the middle, so that tiles of a row line up.
    const QFontMetrics caption(font());
    const QFontMetrics key(keyFont());
    const int block = Theme::TileIcon + Theme::Unit + caption.height() + key.height();
    int top = (height() - block) / 2;
    icon().paint(&painter,
                 QRect((width() - Theme::TileIcon) / 2, top, Theme::TileIcon, Theme::TileIcon),
                 Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    top += Theme::TileIcon + Theme::Unit;
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(QRect(0, top, width(), caption.height()), Qt::AlignCenter, text());
    top += caption.height();
    painter.setFont(keyFont());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(QRect(0, top, width(), key.height()), Qt::AlignCenter, m_key);
}

void TileButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
