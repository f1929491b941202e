#include "core/SystemInfo.h"

QString FileVersionOf(const QString&) {
    return {};
}

QString SystemFolder() {
    return QStringLiteral("/usr/lib");
}
