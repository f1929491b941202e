#include "app/Desktop.h"

#include "app/Messages.h"
#include "app/modCommon.h"
#include "core/Logging.h"
#include "core/Utilities.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

namespace {

QPointer<QWidget>& errorBoxOwner() {
    static QPointer<QWidget> owner;
    return owner;
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
    AppLog().ShowError = [](const QString& text) {
        if (modCommon::AppSettings().DebugMode == u"1")
            ShowErrorBox(text);
    };
    AppUtilities().OpenDocument = [](const QString& path) {
        return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    };
}
