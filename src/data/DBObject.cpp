#include "data/DBObject.h"

#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/RuntimeError.h"
#include "data/DatabaseFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr const char* Component = "DBObject";

std::unique_ptr<DatabaseFile> openFile() {
    return std::make_unique<DatabaseFile>(Paths().AppPath + QStringLiteral("Rankelo.MDB"));
}

} // namespace

DBObject::DBObject() = default;

DBObject::~DBObject() = default;

bool DBObject::OpenDatabase() {
    return Guarded("OpenDatabase", Component, false, [&] {
        CloseDatabase();
        m_file = openFile();
        m_isOpen = true;
        return true;
    });
}

bool DBObject::CloseDatabase() {
    Guarded("CloseDatabase", Component, [&] {
        m_isOpen = false;
        m_file.reset();
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

bool DBObject::KeepCopy() {
    return Guarded("KeepCopy", Component, false, [&] {
        keepCopy();
        return true;
    });
}

void DBObject::keepCopy() {
    const RecordSet counts =
        run(QStringLiteral("SELECT (SELECT COUNT(*) FROM Teams)+(SELECT COUNT(*) "
                           "FROM Rounds)+(SELECT COUNT(*) FROM Results)"));
    if (counts.Field(0).toInt() == 0)
        return;
    const QString folder = Paths().AppPath + QStringLiteral("Earlier quizzes");
    if (!QDir().mkpath(folder))
        throw RuntimeError(ErrorNumber::PathNotFound, folder + QStringLiteral(": no such folder"));
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH.mm"));
    QString path = QStringLiteral("%1/%2.MDB").arg(folder, now);
    for (int copy = 2; QFileInfo::exists(path); ++copy)
        path = QStringLiteral("%1/%2 (%3).MDB").arg(folder, now).arg(copy);
    try {
        run(QStringLiteral("VACUUM INTO '") + SQLTextField(path) + u'\'');
    } catch (const RuntimeError&) {
        // Half a copy is none; a full disk keeps the engine's own file beside it, too.
        QFile::remove(path);
        QFile::remove(path + QStringLiteral("-journal"));
        throw;
    }
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
    , m_failuresBefore(database.m_failures) {
    try {
        m_owner.file().BeginReading();
    } catch (const RuntimeError&) {
        // The first query runs into the same and reports it.
    }
}

DBObject::Snapshot::~Snapshot() {
    if (m_owner.m_file)
        m_owner.m_file->EndReading();
}

DatabaseFile& DBObject::file() {
    if (!m_isOpen)
        throw RuntimeError(ErrorNumber::NoObject, QStringLiteral("The database is not open"));
    if (!m_file)
        m_file = openFile();
    return *m_file;
}

RecordSet DBObject::run(const QString& statement) {
    try {
        return file().Run(statement);
    } catch (const RuntimeError&) {
        ++m_failures;
        // Gone at once, so that it locks nothing and keeps no disk busy.
        if (m_file && !m_file->IsUsable())
            m_file.reset();
        throw;
    }
}

DBObject& AppDatabase() {
    // Never destroyed: the connection is closed by ExitApp, not by the order of static objects.
    static DBObject& database = *new DBObject;
    return database;
}
