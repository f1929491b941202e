#include <QGenericPlugin>
#include <QGuiApplication>
#include <QWindow>

#include <cstdio>

/// A plugin that the driver has the program load: says on standard output where the keyboard's
/// focus is whenever it has moved, as "title of the window|name of the control". It only watches.
class FocusProbe : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FocusProbe.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*arguments*/) override {
        const auto tell = [last = QString()](const QObject* control) mutable {
            const QWindow* window = QGuiApplication::focusWindow();
            if (control == nullptr || window == nullptr)
                return;
            const QString place = window->title() + u'|' + control->objectName();
            if (place != last)
                std::puts(qUtf8Printable(place));
            std::fflush(stdout);
            last = place;
        };
        connect(qGuiApp, &QGuiApplication::focusObjectChanged, this, tell);
        return new QObject;
    }
};

#include "FocusProbe.moc"
