#include "support/AppFolder.h"

#include "core/AppPaths.h"
#include "core/Logging.h"
#include "data/DBObject.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace {

void require(bool condition, const QString& what) {
    if (!condition)
        qFatal("%s", qPrintable(what));
}

QStringList run(const QString& connection, const QString& path, const QStringList& statements,
                const QVariant& value = {}) {
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", connection);
    database.setDatabaseName(path);
    require(database.open(), database.lastError().text());
    QSqlQuery query(database);
    QStringList column;
    for (const QString& statement : statements) {
        query.prepare(statement);
        if (value.isValid())
            query.addBindValue(value);
        require(query.exec(), statement + u'\n' + query.lastError().text());
        column.clear();
        while (query.next())
            column.append(query.value(0).toString());
    }
    return column;
}

} // namespace

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), path + ": " + file.errorString());
    return file.readAll();
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush(),
            path + ": " + file.errorString());
}

QStringList RunForeign(const QString& path, const QStringList& statements, const QVariant& value) {
    const QStringList column = run("foreign", path, statements, value);
    QSqlDatabase::removeDatabase("foreign");
    return column;
}

ForeignLock::ForeignLock(const QString& path) {
    run("lock", path, {"BEGIN EXCLUSIVE"});
}

ForeignLock::~ForeignLock() {
    QSqlDatabase::removeDatabase("lock");
}

const QByteArray& EmptyDatabase() {
    static const QByteArray bytes = [] {
        const QTemporaryDir folder;
        const QString path = folder.filePath("empty");
        QString schema = QString::fromUtf8(ReadFile(":/schema.sql"));
        schema.remove(QRegularExpression("--[^\n]*"));
        RunForeign(path, schema.trimmed().split(u';', Qt::SkipEmptyParts));
        return ReadFile(path);
    }();
    return bytes;
}

AppFolder::AppFolder(const QString& name)
    : m_folder(QDir(m_parent.path()).absoluteFilePath(name)) {
    require(m_parent.isValid() && QDir().mkpath(m_folder), m_parent.errorString());
    if (!QFile::exists(DatabasePath()))
        WriteFile(DatabasePath(), EmptyDatabase());
    const QString path = QDir::toNativeSeparators(m_folder + u'/');
    AppLog().SetLogPath(path);
    AppLog().ShowError = [this](const QString& text) { m_reports.append(text); };
    Paths() = {path, path};
}

AppFolder::~AppFolder() {
    AppDatabase().CloseDatabase();
    AppLog().ShowError = nullptr;
}

void AppFolder::Open() const {
    require(AppDatabase().OpenDatabase(), AppLog().Description());
}
