#include "forms/KeyPreview.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

KeyPreview::KeyPreview(QWidget* screen, Releases releases, std::function<bool(int key)> onKey)
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
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (!isKey || !watched->isWidgetType())
        return false;
    auto* focused = static_cast<QWidget*>(watched);
    if (!ownsFocus(focused))
        return false;
    if (event->type() == QEvent::KeyRelease)
        return m_releases == Releases::Swallow;
    return onPress(focused, *static_cast<QKeyEvent*>(event));
}

bool KeyPreview::onPress(QWidget* focused, const QKeyEvent& event) {
    QWidget* popup = QApplication::activePopupWidget();
    // Esc and Enter belong to a list that has dropped down.
    const bool isPlain = event.key() < Qt::Key_F1 || event.key() > Qt::Key_F35;
    if (popup && isPlain)
        return false;
    if (popup)
        popup->close();
    if (m_onKey(event.key()))
        return true;
    auto* button = qobject_cast<QAbstractButton*>(focused);
    if (m_releases == Releases::Swallow && button && event.key() == Qt::Key_Space) {
        if (!event.isAutoRepeat())
            button->click();
        return true;
    }
    return false;
}
