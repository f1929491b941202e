#include "app/Desktop.h"
#include "app/InputGuard.h"
#include "app/Theme.h"
#include "app/modCommon.h"
#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/Logging.h"
#include "core/ProductInfo.h"
#include "core/SystemInfo.h"
#include "core/Utilities.h"
#include "data/DBObject.h"
#include "forms/frmMain.h"
#include "forms/modForms.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

/// The start-up order. Gives the console, or nothing when the settings or the database cannot be
/// had; the reason is then the log's last message.
std::unique_ptr<frmMain> Main() {
    return Guarded("Main", "modMain", std::unique_ptr<frmMain>(), []() -> std::unique_ptr<frmMain> {
        Paths().TempPath = AppUtilities().ReturnTempPath();
        Paths().AppPath = ApplicationFolder();
        if (!modCommon::Settings(modCommon::LoadSettings) || !AppDatabase().OpenDatabase())
            return nullptr;
        modForms::ShowSplash();
        auto console = std::make_unique<frmMain>();
        console->show();
        return console;
    });
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    // Also when the executable has another name.
    QApplication::setApplicationName(QString::fromLatin1(ProductInfo::Name));
    QGuiApplication::setDesktopFileName(QStringLiteral("io.github.rankelo.Rankelo"));
    // Only the exit command ends the program, not the last window that closes.
    QApplication::setQuitOnLastWindowClosed(false);
    Theme::Apply(application);
    ConnectDesktop();
    InstallInputGuard(application);

    const std::unique_ptr<frmMain> console = Main();
    if (!console) {
        // One line; a path in it may hold several blanks in a row.
        const QString reason = AppLog().Description().trimmed().replace(u'\n', u' ');
        std::fprintf(stderr, "%s: %s\n", ProductInfo::Name, qUtf8Printable(reason));
        // With debug messages on, the log has shown it already.
        if (!IsStandardErrorRead() && modCommon::AppSettings().DebugMode != u"1")
            ShowErrorBox(reason);
        return EXIT_FAILURE;
    }
    return QApplication::exec();
}
