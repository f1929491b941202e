#include "core/SystemInfo.h"

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
    return S_ISREG(target.st_mode) || S_ISFIFO(target.st_mode) || isatty(STDERR_FILENO) != 0;
}
