#include "data/RoundDAO.h"

#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/DBObject.h"
#include "data/Require.h"

namespace {

constexpr const char* Component = "RoundDAO";

Round roundFrom(const RecordSet& row) {
    return {AppDatabase().SetField(row.Field("RoundID")),
            AppDatabase().SetField(row.Field("RoundName")), ToInt32(row.Field("RoundNumber")),
            ToInt32(row.Field("MaxScore"))};
}

} // namespace

std::unique_ptr<ObjectList<Round>> RoundDAO::GetRoundList() {
    return Guarded("GetRoundList", Component, std::unique_ptr<ObjectList<Round>>(), [] {
        const auto rows = AppDatabase().GetRecordSet(
            QStringLiteral("SELECT * FROM Rounds ORDER BY RoundNumber, RoundName "));
        auto list = std::make_unique<ObjectList<Round>>();
        for (RecordSet& row = Require(rows); !row.EndOfFile(); row.MoveNext())
            list->Add(std::make_shared<Round>(roundFrom(row)));
        return list;
    });
}

std::unique_ptr<Round> RoundDAO::GetRound(const QString& key) {
    return Guarded("GetRound", Component, std::unique_ptr<Round>(),
                   [&]() -> std::unique_ptr<Round> {
                       const auto rows = AppDatabase().GetRecordSet(
                           QStringLiteral("SELECT * FROM Rounds WHERE RoundID='") + key + u'\'');
                       if (Require(rows).EndOfFile())
                           return nullptr;
                       return std::make_unique<Round>(roundFrom(*rows));
                   });
}

bool RoundDAO::Delete(const QString& key) {
    return Guarded("Delete", Component, false, [&] {
        if (!GetRound(key))
            return false;
        return AppDatabase().ExecuteSQL(QStringLiteral("DELETE FROM Rounds WHERE RoundID='") + key +
                                        u'\'');
    });
}

bool RoundDAO::Save(Round& round) {
    return Guarded("Save", Component, false, [&] {
        const QString name = AppDatabase().SQLTextField(round.RoundName);
        const QString maxScore = QString::number(round.MaxScore);
        if (round.IsStored)
            return AppDatabase().ExecuteSQL(
                QStringLiteral("UPDATE Rounds SET RoundName='") + name +
                QStringLiteral("',RoundNumber=") + QString::number(round.RoundNumber) +
                QStringLiteral(",MaxScore=") + maxScore + QStringLiteral(" WHERE RoundID='") +
                round.RoundID + u'\'');
        round.RoundNumber = GetNextRound();
        return AppDatabase().ExecuteSQL(
            QStringLiteral(
                "INSERT INTO Rounds (RoundID,RoundName,RoundNumber,MaxScore) VALUES ('") +
            round.RoundID + QStringLiteral("','") + name + QStringLiteral("',") +
            QString::number(round.RoundNumber) + u',' + maxScore + u')');
    });
}

qint32 RoundDAO::GetNextRound() {
    return Guarded("GetNextRound", Component, qint32(1), []() -> qint32 {
        const auto rows =
            AppDatabase().GetRecordSet(QStringLiteral("SELECT MAX(RoundNumber) FROM Rounds"));
        if (Require(rows).EndOfFile())
            return 1;
        // Without rounds the highest number is Null.
        const auto highest = ParseNumber(AppDatabase().SetField(rows->Field(0)));
        return highest ? ToInt32(*highest + 1) : 1;
    });
}

bool RoundDAO::Reorder(const QString& key, qint32 direction) {
    return Guarded("Reorder", Component, false, [&] {
        const auto list = GetRoundList();
        if (!list)
            return true;
        qint32 target = -1;
        for (qint32 i = 0; i <= list->LastIndex(); ++i) {
            Round& round = *list->Item(i);
            if (round.RoundID != key)
                continue;
            const qint32 step = direction == Down ? 1 : direction == Up ? -1 : 0;
            target = CheckedAdd(round.RoundNumber, step);
            round.RoundNumber = target;
            if (!Save(round))
                return false;
            break;
        }
        qint32 number = 1;
        for (qint32 i = 0; i <= list->LastIndex(); ++i) {
            Round& round = *list->Item(i);
            if (round.RoundID == key)
                continue;
            if (number == target)
                ++number;
            round.RoundNumber = number;
            if (!Save(round))
                return false;
            ++number;
        }
        return true;
    });
}
