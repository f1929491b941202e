#include "app/HeldKeys.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

class HeldKeys : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto* press = static_cast<QKeyEvent*>(event);
        const int key = press->key();
        return press->isAutoRepeat() &&
               (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape);
    }
};

} // namespace

void IgnoreHeldKeys(QApplication& application) {
    application.installEventFilter(new HeldKeys(&application));
}
