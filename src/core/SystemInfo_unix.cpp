#include "core/SystemInfo.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

QString FileVersionOf(const QString&) {
    return {};
}

QString SystemFolder() {
    return QStringLiteral("/usr/lib");
}

bool IsStandardErrorRead() {
    struct stat target {};
    if (fstat(STDERR_FILENO, &target) != 0)
        return false;
    // A desktop's session keeps what its programs say in a file of its own.
    for (const char* log :
         {".xsession-errors", ".cache/gdm/session.log", ".local/share/sddm/xorg-session.log",
          ".local/share/sddm/wayland-session.log"}) {
        struct stat session {};
        const QByteArray path = QFile::encodeName(QDir::home().filePath(QLatin1StringView(log)));
        if (stat(path.constData(), &session) == 0 && session.st_dev == target.st_dev &&
            session.st_ino == target.st_ino)
            return false;
    }
    return S_ISREG(target.st_mode) || S_ISFIFO(target.st_mode) || isatty(STDERR_FILENO) != 0;
}
