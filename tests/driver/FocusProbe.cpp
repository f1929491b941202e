#include <QGenericPlugin>
#include <QGuiApplication>
#include <QKeyEvent>

#include <cstdio>

/// A plugin that the driver has the program load. The key Pause, which means nothing to the
/// program, asks it for the name of the control that has the focus; the answer is a line on
/// standard output. Keys arrive in order, so whatever those before it did is done.
class FocusProbe : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FocusProbe.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*arguments*/) override {
        qGuiApp->installEventFilter(this);
        return new QObject;
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !object->isWindowType() ||
            static_cast<QKeyEvent*>(event)->key() != Qt::Key_Pause)
            return false;
        const QObject* control = QGuiApplication::focusObject();
        std::puts(control == nullptr ? "" : qUtf8Printable(control->objectName()));
        std::fflush(stdout);
        return true;
    }
};

#include "FocusProbe.moc"
