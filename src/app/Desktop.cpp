#include "app/Desktop.h"

#include "app/Messages.h"
#include "app/modCommon.h"
#include "core/Logging.h"
#include "core/Utilities.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

namespace {

QPointer<QWidget>& errorBoxOwner() {
    static QPointer<QWidget> owner;
    return owner;
}

// The toolkit tells a screen reader that a plain window is a filler.
QAccessibleInterface* windowRole(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isPlainWindow = widget && widget->windowType() == Qt::Window &&
                               widget->metaObject()->superClass() == &QWidget::staticMetaObject;
    return isPlainWindow ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

} // namespace

ErrorBoxesOver::ErrorBoxesOver(QWidget& window)
    : m_before(std::exchange(errorBoxOwner(), &window)) {}

ErrorBoxesOver::~ErrorBoxesOver() {
    errorBoxOwner() = m_before;
}

void ShowErrorBox(const QString& text) {
    QWidget* owner = errorBoxOwner() ? errorBoxOwner().data() : QApplication::activeWindow();
    Messages::Inform(owner, text, QStringLiteral("Application Error"));
}

void ConnectDesktop() {
    QAccessible::installFactory(windowRole);
    AppLog().ShowError = [](const QString& text) {
        if (modCommon::AppSettings().DebugMode == u"1")
            ShowErrorBox(text);
    };
    AppUtilities().OpenDocument = [](const QString& path) {
        return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    };
}
