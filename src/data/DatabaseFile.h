#pragma once

#include "data/RecordSet.h"

#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QString>

class QSqlError;

/// One open database file, from its construction to its destruction; there is one at a time. All
/// that is the engine's own lies here: how a file is opened and checked, the result codes, the
/// waits for another program. Errors are RuntimeErrors with the engine's code. It does not mend
/// itself: when the handle or the disk has gone bad, a new one must be made.
class DatabaseFile {
public:
    /// Opens a file read-write; it must exist, be whole and hold the three tables. Nothing is ever
    /// created, and a file that is refused is left as it was. The error names the file, the reason
    /// and what a person can do about it.
    explicit DatabaseFile(const QString& path);

    /// Runs one statement and reads all its rows. What it changed is on the disk when it returns.
    /// A file that another program holds is waited for, but never for more than two seconds in a
    /// row.
    RecordSet Run(const QString& statement);

    /// False after an error that means that the handle or the disk behind it is bad.
    bool IsUsable() const { return m_isUsable; }

    /// Between the two, all queries see the file as it was at the first of them, and no other
    /// program can change it.
    void BeginReading();
    void EndReading();

private:
    // Known to Qt by its name until it is taken off its list.
    struct Connection {
        Connection();
        ~Connection();
        Q_DISABLE_COPY(Connection)

        QSqlDatabase Database;
    };

    void open(const QString& path);
    static int rightWait();
    [[noreturn]] void fail(const QSqlError& error);

    // Since a statement last waited in vain; a file that is opened anew is still held.
    inline static QElapsedTimer s_lastLock;

    Connection m_connection;
    int m_wait = 0; ///< how long a statement waits for a lock, in milliseconds
    bool m_isUsable = true;
};
