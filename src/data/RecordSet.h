#pragma once

#include <QStringList>
#include <QVariant>

#include <vector>

/// The rows of one query, all in memory, read forwards only. It stands on the first row when it is
/// made.
class RecordSet {
public:
    /// The names of the fields, and the values of all rows one after the other.
    RecordSet(QStringList names, std::vector<QVariant> values);

    bool EndOfFile() const { return m_row >= m_values.size(); }
    void MoveNext() { m_row += static_cast<std::size_t>(m_names.size()); }

    /// A field of the current row. Throws error 3265 for a name that the query does not give.
    const QVariant& Field(const char* name) const;
    const QVariant& Field(int position) const {
        return m_values.at(m_row + static_cast<std::size_t>(position));
    }

private:
    QStringList m_names;
    std::vector<QVariant> m_values;
    std::size_t m_row = 0; ///< where the current row begins
    /// Where a name is looked for first: behind the field asked for last, since every row is asked
    /// for the same fields in the order in which they stand.
    mutable int m_expected = 0;
};
