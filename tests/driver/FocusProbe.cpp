#include <QFile>
#include <QGenericPlugin>
#include <QGuiApplication>
#include <QKeyEvent>

/// A plugin that the driver has the program load. The key Pause, which means nothing to the
/// program, asks it for the name of the control that has the focus; the answer is a line in the
/// file that FOCUS_ANSWERS names. Keys arrive in order, so whatever those before it did is done.
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
        QFile answers(qEnvironmentVariable("FOCUS_ANSWERS"));
        if (answers.open(QIODevice::Append))
            answers.write((control ? control->objectName() : QString()).toUtf8() + '\n');
        return true;
    }
};

#include "FocusProbe.moc"
