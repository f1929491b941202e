#include "app/InputGuard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <memory>

namespace {

// An X server tells of a repeated press as a release and a press of the same moment, and the
// toolkit often sees the release before the press has arrived. So each release waits for that long.
constexpr int ReleaseMilliseconds = 5;

bool isGuarded(const QKeyEvent& event, const QWindow& receiver) {
    const int key = event.key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
        // Not the active one: a window that has just opened may get the key before it is that.
        const QWidget* window = QWidget::find(receiver.winId());
        return window && window->property(HeldArrowsCountOnce).toBool();
    }
    const bool isText = qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape ||
           (key == Qt::Key_Space && !isText) || event.modifiers() == Qt::AltModifier;
}

class InputGuard : public QObject {
public:
    explicit InputGuard(QApplication& application)
        : QObject(&application)
        , m_pairsRepeats(QGuiApplication::platformName() == u"xcb") {
        m_release.timer.setSingleShot(true);
        connect(&m_release.timer, &QTimer::timeout, this, [this] { letReleaseGo(); });
        application.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return watched->isWindowType() &&
                   filterKey(*static_cast<QWindow*>(watched), *static_cast<QKeyEvent*>(event));
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return watched->isWindowType() &&
                   filterClick(*static_cast<QWindow*>(watched), *static_cast<QMouseEvent*>(event));
        default:
            return false;
        }
    }

private:
    bool filterKey(QWindow& window, const QKeyEvent& event) {
        if (m_release.isOnItsWay || !isGuarded(event, window))
            return false;
        if (event.isAutoRepeat())
            return true;
        if (!m_pairsRepeats)
            return false;
        // Also when the press was so late that the release has been let go.
        const bool isRepeat = m_release.key == event.key() && m_release.time == event.timestamp();
        if (event.type() == QEvent::KeyPress && isRepeat) {
            m_release.event.reset();
            return true;
        }
        letReleaseGo();
        if (event.type() == QEvent::KeyPress)
            return false;
        m_release.event.reset(event.clone());
        m_release.key = event.key();
        m_release.time = event.timestamp();
        m_release.window = &window;
        m_release.timer.start(ReleaseMilliseconds);
        return true;
    }

    void letReleaseGo() {
        m_release.timer.stop();
        const std::unique_ptr<QKeyEvent> event = std::move(m_release.event);
        if (!event || !m_release.window)
            return;
        m_release.isOnItsWay = true;
        QCoreApplication::sendEvent(m_release.window, event.get());
        m_release.isOnItsWay = false;
    }

    // Before the window passes it on, which would also move the keyboard.
    bool filterClick(const QWindow& pressed, const QMouseEvent& event) {
        const QWidget* window = QWidget::find(pressed.winId());
        if (!window || QApplication::activePopupWidget())
            return false;
        const auto interval = static_cast<quint64>(QApplication::doubleClickInterval());
        const bool isSoon = m_click.window && event.timestamp() - m_click.time < interval;
        if (isSoon && m_click.window != window)
            return true;
        m_click = {window, event.timestamp()};
        const auto* button =
            qobject_cast<QAbstractButton*>(window->childAt(event.position().toPoint()));
        return event.type() == QEvent::MouseButtonDblClick && button &&
               !button->property(EveryClickCounts).toBool();
    }

    const bool m_pairsRepeats;
    struct {
        std::unique_ptr<QKeyEvent> event; ///< until it is known to be one
        int key = 0;
        quint64 time = 0; ///< by the X server
        QPointer<QWindow> window;
        QTimer timer;
        bool isOnItsWay = false;
    } m_release; ///< the last one
    struct {
        const void* window = nullptr; ///< may be gone, and is only compared
        quint64 time = 0;
    } m_click; ///< the last press of the mouse
};

} // namespace

void InstallInputGuard(QApplication& application) {
    new InputGuard(application);
}
