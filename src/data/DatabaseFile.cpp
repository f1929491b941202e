#include "data/DatabaseFile.h"

#include "core/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUrl>

namespace {

const QString ConnectionName = QStringLiteral("Rankelo");

// How long a statement waits for another program that holds the file. Once that was not enough,
// the statements close behind it do not wait at all, so that a screen which needs many of them
// does not freeze.
constexpr int LongWait = 1500;
constexpr int NoWait = 0;
constexpr int CloseBehind = 1000;

// Result codes of the engine; a code with more detail carries one of these in its low byte.
enum Code : qint32 {
    General = 1,
    Busy = 5,
    ReadOnly = 8,
    IoError = 10,
    Corrupt = 11,
    CannotOpen = 14,
    NotADatabase = 26,
};

Code primary(qint32 code) {
    return static_cast<Code>(code & 0xff);
}

// Every table that the program reads, by a query that names each of its columns.
constexpr const char* TableProbes[] = {
    "SELECT TeamID,TeamName FROM Teams LIMIT 1",
    "SELECT RoundID,RoundName,RoundNumber,MaxScore FROM Rounds LIMIT 1",
    "SELECT ResultID,RoundID,TeamID,Score,Joker FROM Results LIMIT 1",
};

constexpr const char* Pragmas[] = {
    // One file, no side files, and on the disk before a score counts as saved.
    "PRAGMA journal_mode=DELETE",
    "PRAGMA synchronous=EXTRA",
    // Room for thousands of teams, taken only when they are there.
    "PRAGMA cache_size=-65536",
};

// Without this the engine would create a missing file. The path travels percent-encoded, for a
// folder may be called "Quiz #7 100%".
QString readWriteUri(const QString& path) {
    const QString slashes = QDir::fromNativeSeparators(path);
    const QString root = slashes.startsWith(u'/') ? QString() : QStringLiteral("/");
    return QStringLiteral("file://") + root +
           QString::fromLatin1(QUrl::toPercentEncoding(slashes, "/:")) + QStringLiteral("?mode=rw");
}

bool isAccessFile(const QString& path) {
    constexpr QByteArrayView beginning("\0\1\0\0Standard ", 13); // "Jet DB" or "ACE DB" follows
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(beginning.size()) == beginning;
}

// Why a file cannot be opened and what to do about it.
QString refusal(const QString& path, const RuntimeError& error) {
    const QString restore =
        QStringLiteral(". Put back your copy of the file, or the empty one that "
                       "comes with the program");
    const QString detail = QStringLiteral(" (") + error.Description() + u')';
    switch (primary(error.Number())) {
    case General:
        return QFileInfo(path).size() == 0
                   ? QStringLiteral("the file is empty") + restore
                   : QStringLiteral("this is not a quiz database") + detail + restore;
    case Busy:
        return QStringLiteral("another program holds the file. Close that program and try again");
    case Corrupt:
        return QStringLiteral("the file is damaged") + detail + restore;
    case NotADatabase:
        return (isAccessFile(path)
                    ? QStringLiteral(
                          "this is a file of Microsoft Access, which Rankelo cannot read")
                    : QStringLiteral("this is not a quiz database")) +
               restore;
    default:
        return QStringLiteral("the file cannot be opened") + detail +
               QStringLiteral(". Check that you may read and write it and its folder");
    }
}

} // namespace

DatabaseFile::Connection::Connection()
    : Database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), ConnectionName)) {}

DatabaseFile::Connection::~Connection() {
    Database.close();
    Database = QSqlDatabase();
    QSqlDatabase::removeDatabase(ConnectionName);
}

DatabaseFile::DatabaseFile(const QString& path) {
    const QString name = QDir::toNativeSeparators(path) + QStringLiteral(": ");
    if (!QFileInfo(path).isFile())
        throw RuntimeError(ErrorNumber::FileNotFound, name + QStringLiteral("file not found"));
    try {
        open(path);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number(), name + refusal(path, error));
    }
}

void DatabaseFile::open(const QString& path) {
    QSqlDatabase& database = m_connection.Database;
    database.setDatabaseName(readWriteUri(path));
    m_wait = rightWait();
    database.setConnectOptions(
        QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(m_wait));
    if (!database.open())
        fail(database.lastError());
    for (const char* probe : TableProbes)
        Run(QLatin1StringView(probe));
    const QString verdict = Run(QStringLiteral("PRAGMA quick_check(1)")).Field(0).toString();
    if (verdict != u"ok")
        throw RuntimeError(Corrupt, verdict);
    for (const char* pragma : Pragmas)
        Run(QLatin1StringView(pragma));
}

RecordSet DatabaseFile::Run(const QString& statement) {
    QSqlQuery query(m_connection.Database);
    query.setForwardOnly(true);
    if (m_wait != rightWait()) {
        m_wait = rightWait();
        query.exec(QStringLiteral("PRAGMA busy_timeout=%1").arg(m_wait));
    }
    if (!query.exec(statement))
        fail(query.lastError());
    const QSqlRecord fields = query.record();
    QStringList names;
    for (int i = 0; i < fields.count(); ++i)
        names.append(fields.fieldName(i));
    std::vector<QVariant> values;
    while (query.next())
        for (int i = 0; i < fields.count(); ++i)
            values.push_back(query.value(i));
    // A list ends in the same way when a row of it cannot be read.
    if (query.lastError().isValid())
        fail(query.lastError());
    return {std::move(names), std::move(values)};
}

void DatabaseFile::BeginReading() {
    m_connection.Database.transaction();
}

void DatabaseFile::EndReading() {
    m_connection.Database.commit();
}

int DatabaseFile::rightWait() {
    return s_lastLock.isValid() && !s_lastLock.hasExpired(CloseBehind) ? NoWait : LongWait;
}

void DatabaseFile::fail(const QSqlError& error) {
    bool isNumber = false;
    const qint32 number = error.nativeErrorCode().toInt(&isNumber);
    const qint32 code = isNumber ? number : General;
    switch (primary(code)) {
    case Busy:
        s_lastLock.start();
        break;
    case ReadOnly: // also when the file was moved away
    case IoError:
    case Corrupt:
    case CannotOpen:
    case NotADatabase:
        m_isUsable = false;
        break;
    default:
        break;
    }
    throw RuntimeError(code, error.databaseText().isEmpty() ? error.text() : error.databaseText());
}
