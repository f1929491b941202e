#include "app/PictureButton.h"

#include "app/Theme.h"

#include <QKeyEvent>

PictureButton::PictureButton(const QString& name, const QString& icon, const QString& toolTip,
                             QWidget* parent)
    : QToolButton(parent) {
    setObjectName(name);
    setIcon(Theme::Icon(icon));
    setIconSize(QSize(Theme::ButtonIcon, Theme::ButtonIcon));
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setFocusPolicy(Qt::StrongFocus);
    constexpr int side = 5 * Theme::Unit;
    setFixedSize(side, side);
}

void PictureButton::ShowText(const QString& text) {
    setText(text);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setMaximumWidth(QWIDGETSIZE_MAX);
    setMinimumWidth(sizeHint().width());
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QToolButton::keyPressEvent(event);
}
