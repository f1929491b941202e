#pragma once

#include "core/HeldReports.h"
#include "data/RecordSet.h"

#include <QString>
#include <QVariant>

#include <memory>

class DatabaseFile;

/// The single gateway to the competition database, the file "Rankelo.MDB" in the application
/// folder. A statement that it reported as done is on the disk. Every operation reports its own
/// errors and answers with false or nothing. When the file was moved away or its disk failed, the
/// next statement opens it anew, so that everything works again as soon as a good one is there.
class DBObject {
public:
    DBObject();
    ~DBObject();
    Q_DISABLE_COPY(DBObject)

    /// Opens the file, which must exist and hold a quiz; nothing is ever created. A file that is
    /// refused leaves the database closed.
    bool OpenDatabase();
    /// Always true.
    bool CloseDatabase();

    bool ExecuteSQL(const QString& statement);
    /// The rows of a query, or nothing: a list is read whole or not at all.
    std::unique_ptr<RecordSet> GetRecordSet(const QString& query);
    /// Copies the quiz to a folder beside it, "Earlier quizzes", under the date and time of the
    /// moment; the copy is whole. A quiz without teams, rounds and results is not copied.
    bool KeepCopy();
    /// Empties results, rounds and teams, in that order; stops at the first failure.
    bool ResetDatabase();

    /// The field's value as text; Null gives empty text.
    QString SetField(const QVariant& field);
    /// The value as text with every single quote doubled, to be put between single quotes. What is
    /// no Unicode text is replaced, for half a character could swallow the closing quote.
    QString SQLTextField(const QVariant& value);

    /// While one lives, all queries see the file as it was at the first of them, and no other
    /// program can change it in between. Reports wait for its end: one that is shown in a box would
    /// keep the file locked until somebody closes the box.
    class Snapshot {
    public:
        explicit Snapshot(DBObject& database);
        ~Snapshot();
        Q_DISABLE_COPY(Snapshot)

        /// False once a statement has failed.
        bool IsWhole() const { return m_owner.m_failures == m_failuresBefore; }

    private:
        const HeldReports m_reports; // first: it goes last
        DBObject& m_owner;
        const int m_failuresBefore;
    };

private:
    DatabaseFile& file();
    RecordSet run(const QString& statement);
    void keepCopy();

    bool m_isOpen = false;                ///< from OpenDatabase to CloseDatabase
    std::unique_ptr<DatabaseFile> m_file; ///< none after one that failed, too
    int m_failures = 0;                   ///< statements that failed so far
};

/// The one instance, made on first use and alive until the process ends.
DBObject& AppDatabase();
