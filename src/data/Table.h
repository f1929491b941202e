#pragma once

#include "core/Guard.h"
#include "core/ObjectList.h"
#include "data/DBObject.h"
#include "data/Require.h"

#include <QString>

#include <memory>

/// A field of a row as text; Null gives empty text.
inline QString FieldText(const RecordSet& row, const char* name) {
    return AppDatabase().SetField(row.Field(name));
}

/// What the data-access classes do alike: read the rows of a table as records, and delete a row by
/// its key. Failures are reported under the names of the class and of its procedures.
template <typename Record>
struct Table {
    const char* Component; ///< the data-access class
    const char* GetList;   ///< its procedures
    const char* GetOne;
    const char* Name;
    const char* Key; ///< the column of the key
    Record (*FromRow)(const RecordSet& row);

    /// The rows that `clauses` chooses and sorts; it stands behind the table's name.
    std::unique_ptr<ObjectList<Record>> List(const QString& clauses) const {
        return Guarded(GetList, Component, std::unique_ptr<ObjectList<Record>>(), [&] {
            const auto rows = AppDatabase().GetRecordSet(select() + clauses);
            auto list = std::make_unique<ObjectList<Record>>();
            for (RecordSet& row = Require(rows); !row.EndOfFile(); row.MoveNext())
                list->Add(std::make_shared<Record>(FromRow(row)));
            return list;
        });
    }

    /// Nothing when no row has the key.
    std::unique_ptr<Record> One(const QString& key) const {
        return Guarded(GetOne, Component, std::unique_ptr<Record>(), [&] {
            const auto rows = AppDatabase().GetRecordSet(select() + where(key));
            const RecordSet& row = Require(rows);
            return row.EndOfFile() ? nullptr : std::make_unique<Record>(FromRow(row));
        });
    }

    /// False for an unknown key.
    bool Delete(const QString& key) const {
        return Guarded("Delete", Component, false, [&] {
            return One(key) && AppDatabase().ExecuteSQL(QStringLiteral("DELETE FROM ") +
                                                        QLatin1StringView(Name) + where(key));
        });
    }

private:
    QString select() const { return QStringLiteral("SELECT * FROM ") + QLatin1StringView(Name); }
    QString where(const QString& key) const {
        return QStringLiteral(" WHERE ") + QLatin1StringView(Key) + QStringLiteral("='") + key +
               u'\'';
    }
};
