#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <QVariant>

/// A fresh application folder for one test: an empty Rankelo.MDB, and every report to the
/// log kept instead of shown. The process-wide values point into it while it lives;
/// it closes the database at its end.
class AppFolder {
public:
    /// `name` is the folder's own name, to try awkward ones; or the path of one that stays, with
    /// the database that is there.
    explicit AppFolder(const QString& name = "Rankelo");
    ~AppFolder();
    Q_DISABLE_COPY(AppFolder)

    QString Path(const QString& file) const { return m_folder + u'/' + file; }
    QString DatabasePath() const { return Path("Rankelo.MDB"); }
    QString IniPath() const { return Path("Rankelo.INI"); }
    /// The names of everything in the folder or in one below it, sorted.
    QStringList Files(const QString& below = {}) const {
        return QDir(Path(below)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    /// Opens the database; the test ends at once when that fails.
    void Open() const;

    /// What was reported since the last call, oldest first, as the operator would see it:
    /// "9700 : [number] description [procedure/component]".
    QStringList TakeReports() { return std::exchange(m_reports, {}); }

private:
    QTemporaryDir m_parent;
    QString m_folder;
    QStringList m_reports;
};

const QByteArray& EmptyDatabase();

/// Small file helpers that end the test when they fail.
QByteArray ReadFile(const QString& path);
void WriteFile(const QString& path, const QByteArray& bytes);

/// Runs statements on a database file through a connection of its own, as another program would.
/// A value goes into the one place that each statement leaves open with "?". Returns the first
/// column of the last statement's rows.
QStringList RunForeign(const QString& path, const QStringList& statements,
                       const QVariant& value = {});

/// Holds the database file as another program would: nobody else can read or write it.
struct ForeignLock {
    explicit ForeignLock(const QString& path);
    ~ForeignLock();
    Q_DISABLE_COPY(ForeignLock)
};
