#include "app/Desktop.h"

#include "app/Messages.h"
#include "app/modCommon.h"
#include "core/Logging.h"
#include "core/Utilities.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

void ShowErrorBox(const QString& text) {
    Messages::Inform(QApplication::activeWindow(), text, QStringLiteral("Application Error"));
}

void ConnectDesktop() {
    AppLog().ShowError = [](const QString& text) {
        if (modCommon::AppSettings().DebugMode == u"1")
            ShowErrorBox(text);
    };
    AppUtilities().OpenDocument = [](const QString& path) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    };
}
