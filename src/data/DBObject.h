#pragma once

#include "data/RecordSet.h"

#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>

#include <memory>

/// The single gateway to the competition database, the file "Rankelo.MDB" in the application
/// folder. A statement that it reported as done is on the disk. Every operation reports its own
/// errors and answers with false or nothing. A file that another program holds is waited for, but
/// never for more than two seconds in a row; a file that was moved away or whose disk failed is
/// opened anew by the next statement, so that saving works again as soon as a good one is there.
class DBObject {
public:
    /// Opens the file read-write; it must exist, be whole and hold the three tables. Nothing is
    /// ever created, and a file that is refused is left as it was. A file of Microsoft Access opens
    /// through that program's driver where there is one; that road is untested.
    bool OpenDatabase();
    /// Always true.
    bool CloseDatabase();

    bool ExecuteSQL(const QString& statement);
    /// The rows of a query, or nothing.
    std::unique_ptr<RecordSet> GetRecordSet(const QString& query);
    /// Empties results, rounds and teams, in that order; stops at the first failure.
    bool ResetDatabase();

    /// The field's value as text; Null gives empty text.
    QString SetField(const QVariant& field);
    /// The value as text with every single quote doubled, to be put between single quotes. What is
    /// no Unicode text is replaced, for half a character could swallow the closing quote.
    QString SQLTextField(const QVariant& value);

    /// While one lives, all queries see the file as it was at the first of them, and no other
    /// program can change it in between.
    class Snapshot {
    public:
        explicit Snapshot(DBObject& database);
        ~Snapshot();
        Snapshot(const Snapshot&) = delete;
        Snapshot& operator=(const Snapshot&) = delete;

    private:
        DBObject& m_owner;
        bool m_begun;
    };

private:
    void open();
    void openAccessFile(const QString& path);
    void reopen();
    QSqlQuery run(const QString& statement);
    void useWait(int milliseconds);
    int rightWait() const;
    void noteFailure(qint32 code);

    QSqlDatabase m_database;
    int m_wait = 0;           ///< how long a statement waits for a lock, in milliseconds
    QElapsedTimer m_lastLock; ///< since a statement last waited in vain
    bool m_fileIsLost = false;
};

/// The one instance, made on first use and alive until the process ends.
DBObject& AppDatabase();
