#pragma once

#include <QSqlQuery>
#include <QSqlRecord>
#include <QString>
#include <QVariant>

/// The rows of one query, read forwards only. It stands on the first row when it is opened. An
/// error of the engine while moving on is thrown: a list is read whole or not at all.
class RecordSet {
public:
    /// Takes a query that has been executed, before its first row.
    explicit RecordSet(QSqlQuery query);

    bool EndOfFile() const { return m_endOfFile; }
    void MoveNext();

    /// Where a field stands in every row. Throws error 3265 for a name that the query does not
    /// give.
    int Position(const char* name) const;

    /// A field of the current row. A list of many rows asks for the positions once.
    QVariant Field(const char* name) const { return Field(Position(name)); }
    QVariant Field(int position) const { return m_query.value(position); }

private:
    QSqlQuery m_query;
    mutable QSqlRecord m_fields; ///< filled when one is first asked for by name
    bool m_endOfFile = false;
};
