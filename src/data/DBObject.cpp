#include "data/DBObject.h"

#include "core/AppValues.h"
#include "core/Guard.h"
#include "core/RuntimeError.h"
#include "data/DatabaseError.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QUrl>

namespace {

constexpr const char* Component = "DBObject";
constexpr const char* FileName = "Rankelo.MDB";
constexpr const char* Connection = "Rankelo";

// How long a statement waits for another program that holds the file. Once that was not enough,
// the statements behind it hardly wait, so that a screen which needs several does not freeze.
constexpr int LongWait = 1500;
constexpr int ShortWait = 50;

constexpr qint32 SqliteBusy = 5;
constexpr qint32 PrimaryCode = 0xff;

// Every table that the program reads, by a query that names each of its columns.
constexpr const char* TableProbes[] = {
    "SELECT TeamID,TeamName FROM Teams LIMIT 1",
    "SELECT RoundID,RoundName,RoundNumber,MaxScore FROM Rounds LIMIT 1",
    "SELECT ResultID,RoundID,TeamID,Score,Joker FROM Results LIMIT 1",
};

QString inFile(const QString& path, const QString& reason) {
    return QDir::toNativeSeparators(path) + QStringLiteral(": ") + reason;
}

// Without this the engine would create a missing file. The path travels percent-encoded, for a
// folder may be called "Quiz #7 100%".
QString readWriteUri(const QString& path) {
    return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) + QStringLiteral("?mode=rw");
}

void checkWhole(QSqlQuery& query) {
    if (!query.exec(QStringLiteral("PRAGMA quick_check(1)")) || !query.next())
        throw DatabaseError(query.lastError());
    const QString verdict = query.value(0).toString();
    if (verdict != u"ok") {
        constexpr qint32 corrupt = 11;
        throw RuntimeError(corrupt, QStringLiteral("the file is damaged (%1)").arg(verdict));
    }
}

} // namespace

bool DBObject::OpenDatabase() {
    return Guarded("OpenDatabase", Component, false, [&] {
        const QString path = App().AppPath + QLatin1StringView(FileName);
        if (!QFileInfo(path).isFile())
            throw RuntimeError(ErrorNumber::FileNotFound,
                               inFile(path, QStringLiteral("file not found")));
        CloseDatabase();
        m_database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QString::fromLatin1(Connection));
        m_database.setDatabaseName(readWriteUri(path));
        m_database.setConnectOptions(
            QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(LongWait));
        m_waitIsShort = false;
        try {
            if (!m_database.open())
                throw DatabaseError(m_database.lastError());
            for (const char* probe : TableProbes)
                run(QLatin1StringView(probe));
            QSqlQuery query(m_database);
            checkWhole(query);
            // One file, no side files, and on the disk before a score counts as saved.
            run(QStringLiteral("PRAGMA journal_mode=DELETE"));
            run(QStringLiteral("PRAGMA synchronous=EXTRA"));
        } catch (const RuntimeError& error) {
            CloseDatabase();
            throw RuntimeError(error.Number(), inFile(path, error.Description()));
        }
        return true;
    });
}

bool DBObject::CloseDatabase() {
    Guarded("CloseDatabase", Component, [&] {
        if (!m_database.isValid())
            return;
        m_database.close();
        m_database = QSqlDatabase();
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
    , m_begun(database.m_database.transaction()) {}

DBObject::Snapshot::~Snapshot() {
    if (m_begun)
        m_owner.m_database.commit();
}

QSqlQuery DBObject::run(const QString& statement) {
    if (!m_database.isOpen())
        throw RuntimeError(ErrorNumber::NoObject, QStringLiteral("The database is not open"));
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.exec(statement)) {
        const RuntimeError error = DatabaseError(query.lastError());
        if ((error.Number() & PrimaryCode) == SqliteBusy && !m_waitIsShort)
            waitForLock(ShortWait);
        throw error;
    }
    if (m_waitIsShort)
        waitForLock(LongWait);
    return query;
}

void DBObject::waitForLock(int milliseconds) {
    m_waitIsShort = milliseconds == ShortWait;
    QSqlQuery(m_database).exec(QStringLiteral("PRAGMA busy_timeout=%1").arg(milliseconds));
}

DBObject& AppDatabase() {
    // Never destroyed: the connection is closed by ExitApp, not by the order of static objects.
    static DBObject& database = *new DBObject;
    return database;
}
