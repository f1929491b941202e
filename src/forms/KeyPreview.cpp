#include "forms/KeyPreview.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

#include <utility>

KeyPreview::KeyPreview(QWidget* screen, Releases releases, OnKey onKey)
    : QObject(screen)
    , m_screen(screen)
    , m_releases(releases)
    , m_onKey(std::move(onKey)) {
    qApp->installEventFilter(this);
}

// The list that drops down from a chooser is a window of its own, but belongs to the screen; a
// message box over the screen does not.
bool KeyPreview::ownsFocus(const QWidget* widget) const {
    const QWidget* window = widget->window();
    while (window->windowType() == Qt::Popup && window->parentWidget())
        window = window->parentWidget()->window();
    return window == m_screen;
}

bool KeyPreview::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                       event->type() == QEvent::ShortcutOverride;
    if (!isKey || !watched->isWidgetType())
        return false;
    auto* focused = static_cast<QWidget*>(watched);
    if (!ownsFocus(focused))
        return false;
    if (event->type() == QEvent::KeyRelease)
        return m_releases == Releases::Swallow;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (event->type() == QEvent::KeyPress)
        return onPress(focused, key);
    // Announced before it is pressed: a list that has dropped down closes itself already now.
    if (QApplication::activePopupWidget())
        m_popupKey = key.key();
    return false;
}

bool KeyPreview::onPress(QWidget* focused, const QKeyEvent& event) {
    QWidget* popup = QApplication::activePopupWidget();
    const bool closedPopup = std::exchange(m_popupKey, std::nullopt) == event.key() && !popup;
    // All other keys belong to a list that has dropped down.
    const bool isCommand = event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F8;
    if (popup && !isCommand)
        return false;
    if (popup)
        popup->close();
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (closedPopup || m_onKey(isEnter ? Qt::Key_Return : event.key(), event))
        return true;
    auto* button = qobject_cast<QAbstractButton*>(focused);
    if (m_releases == Releases::Swallow && button && event.key() == Qt::Key_Space) {
        button->click();
        return true;
    }
    return false;
}
