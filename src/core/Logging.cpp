#include "core/Logging.h"

#include "core/PadRight.h"
#include "core/Reporting.h"
#include "core/Session.h"
#include "core/Utilities.h"

#include <QFile>
#include <QStringList>

#include <array>

struct Logging::Message {
    qint32 type;
    qint32 number;
    const QString& description;
    const QString& functionName;
    const QString& objectName;
};

namespace {

constexpr qint32 ProgramErrorType = 4;
constexpr qint32 ProgramErrorNumber = 9700;

// Captions of the fixed-width layout, spelled as readers of the file know them.
struct Column {
    const char* caption;
    int width;
};
constexpr std::array<Column, 10> Columns{{{"Type", 5},
                                          {"Data/Time", 22},
                                          {"Component", 15},
                                          {"Version", 8},
                                          {"Msg Number", 15},
                                          {"Function", 20},
                                          {"Object", 20},
                                          {"Session", 30},
                                          {"Username", 15},
                                          {"Machine Name", 15}}};
constexpr int RuleLength = 100;
constexpr const char* LineEnd = "\r\n";

bool isQuiet(qint32 type) {
    return type == 8 || type == 16 || type == 32;
}

QString header(qint32 destination) {
    if (destination == Logging::CommaSeparated)
        return QStringLiteral("Type,Data/Time,Component,Version,Message Number,Function,Object,"
                              "Session,Username,MachineName,Description");
    QString line;
    for (const Column& column : Columns)
        line += PadRight(QString::fromLatin1(column.caption), column.width);
    return line + QStringLiteral("Description") + QString::fromLatin1(LineEnd) +
           QString(RuleLength, u'-');
}

bool append(const QString& path, QIODevice::OpenMode mode, const QString& line) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | mode))
        return false;
    const QByteArray bytes = (line + QString::fromLatin1(LineEnd)).toUtf8();
    return file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

Q_LOGGING_CATEGORY(RankeloErrors, "rankelo.errors", QtFatalMsg)

Logging::Logging()
    : m_logPath(TemporaryFolder()) {}

void Logging::SetLogPath(const QString& path) {
    m_logPath = WithSeparator(path.trimmed());
}

bool Logging::ProgramError(qint32 number, const QString& description, const QString& functionName,
                           const QString& objectName) {
    const QString text = u'[' + QString::number(number) + QStringLiteral("] ") + description;
    const QString place = QStringLiteral(" [") + functionName + u'/' + objectName + u']';
    qCWarning(RankeloErrors).noquote() << text + place;
    const bool written =
        Record(ProgramErrorType, ProgramErrorNumber, text, functionName, objectName);
    if (ShowError)
        ShowError(QStringLiteral("%1 : ").arg(m_messageNumber) + text + place);
    return written;
}

bool Logging::Record(qint32 messageType, qint32 messageNumber, const QString& description,
                     const QString& functionName, const QString& objectName) {
    if (!isQuiet(messageType)) {
        m_messageType = messageType;
        m_messageNumber = messageNumber;
        m_description = description;
        m_functionName = functionName;
        m_objectName = objectName;
    }
    if (messageType > DebugLevel)
        return false;
    // A log that cannot be written loses the message, and only a developer is told: reporting that
    // would come back here.
    if (write({messageType, messageNumber, description, functionName, objectName}))
        return true;
    qCWarning(RankeloErrors).noquote() << "lost a record for" << m_logPath;
    return false;
}

bool Logging::write(const Message& message) noexcept try {
    const QString path = m_logPath + QStringLiteral("ISApplication.Log");
    if (!m_logFileExists)
        m_logFileExists = AppUtilities().FileExists(path);
    if (!m_logFileExists && !append(path, QIODevice::NewOnly, header(LogDestination)))
        return false;

    const Session& session = AppSession();
    const bool fixedWidth = LogDestination != CommaSeparated;
    // The fixed-width layout shows the user's name where the other shows the executable's.
    const std::array<QString, Columns.size()> values{QString::number(message.type),
                                                     AppUtilities().GetDateTime(2),
                                                     fixedWidth ? session.Username
                                                                : session.Executable,
                                                     session.Version,
                                                     QString::number(message.number),
                                                     message.functionName,
                                                     message.objectName,
                                                     session.SessionID,
                                                     session.Username,
                                                     session.MachineName};
    QString line;
    for (std::size_t i = 0; i < values.size(); ++i)
        line += fixedWidth ? PadRight(values[i], Columns[i].width) : values[i] + u',';
    line += fixedWidth ? message.description : u'"' + message.description + u'"';
    return append(path, QIODevice::Append, line);
} catch (...) {
    return false;
}

Logging& AppLog() {
    // Never destroyed: the session's end is recorded while other objects of the process go.
    static Logging& log = *new Logging;
    return log;
}

void ReportProgramError(qint32 number, const QString& description, const QString& functionName,
                        const QString& objectName) {
    AppLog().ProgramError(number, description, functionName, objectName);
}

void ReportRecord(qint32 messageType, qint32 messageNumber, const QString& description,
                  const QString& functionName, const QString& objectName) {
    AppLog().Record(messageType, messageNumber, description, functionName, objectName);
}
