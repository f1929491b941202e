#include "data/ResultDAO.h"

#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/Table.h"

namespace {

constexpr const char* Component = "ResultDAO";

Result resultFrom(const RecordSet& row) {
    return {FieldText(row, "ResultID"), FieldText(row, "RoundID"), FieldText(row, "TeamID"),
            ToInt32(row.Field("Score")), ToInt32(row.Field("Joker"))};
}

constexpr Table<Result> Results{Component, "GetResultList", "GetResult",
                                "Results", "ResultID",      resultFrom};

QString filterFor(const QString& roundKey, const QString& teamKey) {
    QString filter;
    if (!roundKey.isEmpty())
        filter = QStringLiteral(" WHERE RoundID='") + roundKey + QStringLiteral("' ");
    if (!teamKey.isEmpty()) {
        filter += filter.isEmpty() ? QStringLiteral(" WHERE ") : QStringLiteral(" AND ");
        filter += QStringLiteral(" TeamID='") + teamKey + u'\'';
    }
    return filter;
}

} // namespace

std::unique_ptr<ObjectList<Result>> ResultDAO::GetResultList(const QString& roundKey,
                                                             const QString& teamKey) {
    return Results.List(filterFor(roundKey, teamKey));
}

std::unique_ptr<Result> ResultDAO::GetResult(const QString& key) {
    return Results.One(key);
}

bool ResultDAO::Delete(const QString& key) {
    return Results.Delete(key);
}

bool ResultDAO::Save(const Result& result) {
    return Guarded("Save", Component, false, [&] {
        DBObject& database = AppDatabase();
        const QString score = QString::number(result.Score);
        const QString joker = QString::number(result.Joker);
        if (result.IsStored)
            return database.ExecuteSQL(
                QStringLiteral("UPDATE Results SET RoundID='") +
                database.SQLTextField(result.RoundID) + QStringLiteral("',TeamID='") +
                database.SQLTextField(result.TeamID) + QStringLiteral("',Score=") + score +
                QStringLiteral(",Joker=") + joker + QStringLiteral(" WHERE ResultID='") +
                result.ResultID + u'\'');
        return database.ExecuteSQL(
            QStringLiteral("INSERT INTO Results (ResultID,RoundID,TeamID,Score,Joker) VALUES ('") +
            result.ResultID + QStringLiteral("','") + result.RoundID + QStringLiteral("','") +
            result.TeamID + QStringLiteral("',") + score + u',' + joker + u')');
    });
}
