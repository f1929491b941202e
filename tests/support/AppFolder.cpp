#include "support/AppFolder.h"

#include "core/AppValues.h"
#include "core/Logging.h"
#include "data/DBObject.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace {

const QString LockConnection = QStringLiteral("lock");

void require(bool condition, const QString& what) {
    if (!condition)
        qFatal("%s", qPrintable(what));
}

} // namespace

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), path + QStringLiteral(": ") + file.errorString());
    return file.readAll();
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush(),
            path + QStringLiteral(": ") + file.errorString());
}

QStringList RunForeign(const QString& path, const QStringList& statements) {
    const QString connection = QStringLiteral("foreign");
    QStringList column;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(path);
        require(database.open(), database.lastError().text());
        QSqlQuery query(database);
        for (const QString& statement : statements) {
            require(query.exec(statement), statement + u'\n' + query.lastError().text());
            column.clear();
            while (query.next())
                column.append(query.value(0).toString());
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return column;
}

ForeignLock::ForeignLock(const QString& path) {
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), LockConnection);
    database.setDatabaseName(path);
    require(database.open(), database.lastError().text());
    QSqlQuery query(database);
    require(query.exec(QStringLiteral("BEGIN EXCLUSIVE")), query.lastError().text());
}

ForeignLock::~ForeignLock() {
    QSqlDatabase::database(LockConnection, false).close();
    QSqlDatabase::removeDatabase(LockConnection);
}

const QByteArray& EmptyDatabase() {
    static const QByteArray bytes = [] {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("empty"));
        QString schema = QString::fromUtf8(ReadFile(QStringLiteral(":/schema.sql")));
        schema.remove(QRegularExpression(QStringLiteral("--[^\n]*")));
        RunForeign(path, schema.trimmed().split(u';', Qt::SkipEmptyParts));
        return ReadFile(path);
    }();
    return bytes;
}

void SetDefaultSettings() {
    AppValues& values = App();
    values.FontName = QStringLiteral("Arial");
    values.FontSize = QStringLiteral("32");
    values.DebugMode = QStringLiteral("0");
    values.BackGround = 0;
    values.BColorA = 16576;
    values.BColorB = 16512;
    values.FColorA = values.FColorB = 8454143;
    values.CellPadX = 40;
    values.CellPadY = 80;
    values.LeftMargin = values.RightMargin = 200;
    values.LabelWidth = 7;
    values.Footer = 500;
}

AppFolder::AppFolder(const QString& name)
    : m_folder(m_parent.filePath(name)) {
    require(m_parent.isValid() && QDir().mkpath(m_folder), m_parent.errorString());
    WriteFile(DatabasePath(), EmptyDatabase());
    SetDefaultSettings();
    App().AppPath = App().TempPath = QDir::toNativeSeparators(m_folder + u'/');
    AppLog().SetLogPath(App().TempPath);
    App().DebugMode = QStringLiteral("1");
    App().ShowErrorBox = [this](const QString& text) { m_reports.append(text); };
}

AppFolder::~AppFolder() {
    AppDatabase().CloseDatabase();
    App().ShowErrorBox = nullptr;
}

QString AppFolder::Path(const QString& file) const {
    return m_folder + u'/' + file;
}

QStringList AppFolder::Files() const {
    return QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                    QDir::Name);
}

void AppFolder::Open() const {
    require(AppDatabase().OpenDatabase(), AppLog().Description());
}

QStringList AppFolder::TakeReports() {
    return std::exchange(m_reports, {});
}
