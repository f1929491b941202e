#include "app/Desktop.h"

#include "app/Messages.h"
#include "core/AppValues.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

void ConnectDesktop() {
    App().ShowErrorBox = [](const QString& text) {
        Messages::Inform(QApplication::activeWindow(), text, QStringLiteral("Application Error"));
    };
    App().OpenDocument = [](const QString& path) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    };
}
