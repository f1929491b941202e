#include "data/DBObject.h"

#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/RuntimeError.h"
#include "data/DatabaseError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>
#include <QUrl>

namespace {

constexpr const char* Component = "DBObject";
constexpr const char* FileName = "Rankelo.MDB";
constexpr const char* Connection = "Rankelo";

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
    IoError = 10,
    Corrupt = 11,
    NotADatabase = 26,
    FileWasMoved = 1032,
};
constexpr qint32 PrimaryCode = 0xff;

// How a file of Microsoft Access begins.
constexpr QByteArrayView AccessSignature("\0\1\0\0Standard Jet DB", 19);

// Every table that the program reads, by a query that names each of its columns.
constexpr const char* TableProbes[] = {
    "SELECT TeamID,TeamName FROM Teams LIMIT 1",
    "SELECT RoundID,RoundName,RoundNumber,MaxScore FROM Rounds LIMIT 1",
    "SELECT ResultID,RoundID,TeamID,Score,Joker FROM Results LIMIT 1",
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
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(AccessSignature.size()) == AccessSignature;
}

void checkWhole(const QSqlDatabase& database) {
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("PRAGMA quick_check(1)")) || !query.next())
        throw DatabaseError(query.lastError());
    const QString verdict = query.value(0).toString();
    if (verdict != u"ok")
        throw RuntimeError(Corrupt, verdict);
}

// Why a file cannot be opened and what to do about it.
QString refusal(const QString& path, const RuntimeError& error) {
    const QString restore =
        QStringLiteral(". Put back your copy of the file, or the empty one that "
                       "comes with the program");
    QString reason;
    switch (error.Number() & PrimaryCode) {
    case General:
        reason = QFileInfo(path).size() == 0
                     ? QStringLiteral("the file is empty") + restore
                     : QStringLiteral("this is not a quiz database (%1)") + restore;
        break;
    case Busy:
        reason = QStringLiteral("another program holds the file. Close that program and try again");
        break;
    case Corrupt:
        reason = QStringLiteral("the file is damaged (%1)") + restore;
        break;
    case NotADatabase:
        reason = QStringLiteral("this is not a quiz database") + restore;
        break;
    default:
        reason = QStringLiteral("the file cannot be opened (%1). Check that you may read and write "
                                "it and its folder");
    }
    if (reason.contains(u"%1"))
        reason = reason.arg(error.Description());
    return QDir::toNativeSeparators(path) + QStringLiteral(": ") + reason;
}

} // namespace

bool DBObject::OpenDatabase() {
    return Guarded("OpenDatabase", Component, false, [&] {
        open();
        return true;
    });
}

void DBObject::open() {
    const QString path = Paths().AppPath + QLatin1StringView(FileName);
    if (!QFileInfo(path).isFile())
        throw RuntimeError(ErrorNumber::FileNotFound,
                           QDir::toNativeSeparators(path) + QStringLiteral(": file not found"));
    CloseDatabase();
    if (isAccessFile(path)) {
        openAccessFile(path);
        return;
    }
    m_database =
        QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QString::fromLatin1(Connection));
    m_database.setDatabaseName(readWriteUri(path));
    m_wait = rightWait();
    m_database.setConnectOptions(
        QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(m_wait));
    try {
        if (!m_database.open())
            throw DatabaseError(m_database.lastError());
        for (const char* probe : TableProbes)
            run(QLatin1StringView(probe));
        checkWhole(m_database);
        // One file, no side files, and on the disk before a score counts as saved.
        run(QStringLiteral("PRAGMA journal_mode=DELETE"));
        run(QStringLiteral("PRAGMA synchronous=EXTRA"));
        // Room for thousands of teams, taken only when they are there.
        run(QStringLiteral("PRAGMA cache_size=-65536"));
    } catch (const RuntimeError& error) {
        CloseDatabase();
        throw RuntimeError(error.Number(), refusal(path, error));
    }
}

void DBObject::openAccessFile(const QString& path) {
    const QString driver = QStringLiteral("QODBC");
    if (QSqlDatabase::isDriverAvailable(driver)) {
        m_database = QSqlDatabase::addDatabase(driver, QString::fromLatin1(Connection));
        m_database.setDatabaseName(
            QStringLiteral("Driver={Microsoft Access Driver (*.mdb, *.accdb)};DBQ=") +
            QDir::toNativeSeparators(path));
        m_wait = rightWait();
        if (m_database.open())
            return;
        CloseDatabase();
    }
    throw RuntimeError(
        NotADatabase,
        QDir::toNativeSeparators(path) +
            QStringLiteral(": this is a file of Microsoft Access, which opens only on Windows "
                           "with the Access database engine. Install that, or put the empty "
                           "file that comes with the program in its place"));
}

bool DBObject::CloseDatabase() {
    Guarded("CloseDatabase", Component, [&] {
        if (!m_database.isValid())
            return;
        m_database.close();
        m_database = QSqlDatabase();
        m_fileIsLost = false;
        QSqlDatabase::removeDatabase(QString::fromLatin1(Connection));
    });
    return true;
}

bool DBObject::ExecuteSQL(const QString& statement) {
    return Guarded("ExecuteSQL", Component, false, [&] {
        run(statement);
        return true;
    });
}

std::unique_ptr<RecordSet> DBObject::GetRecordSet(const QString& query) {
    return Guarded("GetRecordSet", Component, std::unique_ptr<RecordSet>(),
                   [&] { return std::make_unique<RecordSet>(run(query)); });
}

bool DBObject::ResetDatabase() {
    return Guarded("ResetDatabase", Component, false, [&] {
        return ExecuteSQL(QStringLiteral("DELETE FROM Results WHERE 1=1")) &&
               ExecuteSQL(QStringLiteral("DELETE FROM Rounds WHERE 1=1")) &&
               ExecuteSQL(QStringLiteral("DELETE FROM Teams WHERE 1=1"));
    });
}

QString DBObject::SetField(const QVariant& field) {
    return Guarded("SetField", Component, QString(), [&] { return field.toString(); });
}

QString DBObject::SQLTextField(const QVariant& value) {
    return Guarded("SQLTextField", Component, QString(), [&] {
        QString text = value.toString();
        if (!text.isValidUtf16())
            text = QString::fromUtf8(text.toUtf8());
        return text.replace(u'\'', QStringLiteral("''"));
    });
}

DBObject::Snapshot::Snapshot(DBObject& database)
    : m_owner(database)
    , m_begun(!database.m_fileIsLost && database.m_database.transaction()) {}

DBObject::Snapshot::~Snapshot() {
    if (m_begun)
        m_owner.m_database.commit();
}

QSqlQuery DBObject::run(const QString& statement) {
    // The engine would read no further than that, and store half a name.
    if (statement.contains(QChar::Null))
        throw RuntimeError(ErrorNumber::InvalidCall,
                           QStringLiteral("A text with a zero character cannot be stored"));
    if (m_fileIsLost)
        reopen();
    if (!m_database.isOpen())
        throw RuntimeError(ErrorNumber::NoObject, QStringLiteral("The database is not open"));
    useWait(rightWait());
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.exec(statement)) {
        const RuntimeError error = DatabaseError(query.lastError());
        noteFailure(error.Number());
        throw error;
    }
    return query;
}

void DBObject::reopen() {
    try {
        open();
    } catch (const RuntimeError&) {
        m_fileIsLost = true;
        throw;
    }
}

int DBObject::rightWait() const {
    return m_lastLock.isValid() && !m_lastLock.hasExpired(CloseBehind) ? NoWait : LongWait;
}

void DBObject::useWait(int milliseconds) {
    if (m_wait == milliseconds)
        return;
    m_wait = milliseconds;
    QSqlQuery(m_database).exec(QStringLiteral("PRAGMA busy_timeout=%1").arg(milliseconds));
}

void DBObject::noteFailure(qint32 code) {
    if ((code & PrimaryCode) == Busy)
        m_lastLock.start();
    m_fileIsLost = code == FileWasMoved || (code & PrimaryCode) == IoError;
}

DBObject& AppDatabase() {
    // Never destroyed: the connection is closed by ExitApp, not by the order of static objects.
    static DBObject& database = *new DBObject;
    return database;
}
