#include "core/Session.h"

#include "core/Guard.h"
#include "core/ProductInfo.h"
#include "core/Reporting.h"
#include "core/Utilities.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

namespace {

constexpr qsizetype LongestName = 255;

// The dots of a name like Rankelo-1.0.0 belong to it.
QString executableName() {
    QString name = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
#ifdef Q_OS_WIN
    if (name.endsWith(QStringLiteral(".exe"), Qt::CaseInsensitive))
        name.chop(4);
#endif
    return name;
}

QString getComputerID() {
    return Guarded("GetComputerID", "Session", QString(),
                   [] { return QSysInfo::machineHostName().left(LongestName); });
}

QString getUserID() {
    return Guarded("GetUserID", "Session", QString(), [] {
        for (const char* variable : {"USERNAME", "USER", "LOGNAME"})
            if (const QString name = qEnvironmentVariable(variable); !name.isEmpty())
                return name.left(LongestName);
        return QFileInfo(QDir::homePath()).owner().left(LongestName);
    });
}

} // namespace

Session::Session()
    : Version(QString::fromLatin1(ProductInfo::Version))
    , Executable(executableName())
    , ProductName(QString::fromLatin1(ProductInfo::Name))
    , PCUsername(getUserID())
    , SessionID(AppUtilities().GenerateUnique())
    , MachineName(getComputerID())
    , CreatedDate(AppUtilities().GetDateTime(2)) {}

Session::~Session() {
    constexpr qint32 lifecycleNotice = 32;
    constexpr qint32 endOfSession = 1099;
    ReportRecord(lifecycleNotice, endOfSession, QStringLiteral("Class Terminate"),
                 QStringLiteral("Class_Terminate"), QStringLiteral("Session"));
}

Session& AppSession() {
    static Session session;
    return session;
}
