#include "data/ResultDAO.h"

#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/DBObject.h"
#include "data/Require.h"

namespace {

constexpr const char* Component = "ResultDAO";

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
    return Guarded("GetResultList", Component, std::unique_ptr<ObjectList<Result>>(), [&] {
        DBObject& database = AppDatabase();
        const auto rows = database.GetRecordSet(QStringLiteral("SELECT * FROM Results") +
                                                filterFor(roundKey, teamKey));
        RecordSet& row = Require(rows);
        const int key = row.Position("ResultID");
        const int round = row.Position("RoundID");
        const int team = row.Position("TeamID");
        const int score = row.Position("Score");
        const int joker = row.Position("Joker");
        auto list = std::make_unique<ObjectList<Result>>();
        for (; !row.EndOfFile(); row.MoveNext())
            list->Add(std::make_shared<Result>(
                database.SetField(row.Field(key)), database.SetField(row.Field(round)),
                database.SetField(row.Field(team)), ToInt32(row.Field(score)),
                ToInt32(row.Field(joker))));
        return list;
    });
}

std::unique_ptr<Result> ResultDAO::GetResult(const QString& key) {
    return Guarded(
        "GetResult", Component, std::unique_ptr<Result>(), [&]() -> std::unique_ptr<Result> {
            DBObject& database = AppDatabase();
            const auto rows = database.GetRecordSet(
                QStringLiteral("SELECT * FROM Results WHERE ResultID='") + key + u'\'');
            const RecordSet& row = Require(rows);
            if (row.EndOfFile())
                return nullptr;
            return std::make_unique<Result>(
                database.SetField(row.Field("ResultID")), database.SetField(row.Field("RoundID")),
                database.SetField(row.Field("TeamID")),
                ToInt32(QStringView(database.SetField(row.Field("Score")))),
                ToInt32(QStringView(database.SetField(row.Field("Joker")))));
        });
}

bool ResultDAO::Delete(const QString& key) {
    return Guarded("Delete", Component, false, [&] {
        if (!GetResult(key))
            return false;
        return AppDatabase().ExecuteSQL(QStringLiteral("DELETE FROM Results WHERE ResultID='") +
                                        key + u'\'');
    });
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
