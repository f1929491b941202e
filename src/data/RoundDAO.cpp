#include "data/RoundDAO.h"

#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/Table.h"

#include <algorithm>
#include <optional>

namespace {

constexpr const char* Component = "RoundDAO";

Round roundFrom(const RecordSet& row) {
    return {FieldText(row, "RoundID"), FieldText(row, "RoundName"),
            ToInt32(row.Field("RoundNumber")), ToInt32(row.Field("MaxScore"))};
}

constexpr Table<Round> Rounds{Component, "GetRoundList", "GetRound",
                              "Rounds",  "RoundID",      roundFrom};

// One more than the highest number; 1 without rounds, or when there is no higher number. Nothing
// when the file cannot be read.
std::optional<qint32> nextRound() {
    std::optional<qint32> next;
    Guarded("GetNextRound", Component, [&] {
        const auto rows =
            AppDatabase().GetRecordSet(QStringLiteral("SELECT MAX(RoundNumber) FROM Rounds"));
        const RecordSet& row = Require(rows);
        next = 1;
        // Without rounds the highest number is Null.
        const auto highest = ParseNumber(AppDatabase().SetField(row.Field(0)));
        if (highest)
            next = ToInt32(*highest + 1);
    });
    return next;
}

// Gives the other rounds the numbers from 1 on, in their order, and leaves one number out.
bool numberOthers(RoundDAO& dao, const ObjectList<Round>& list, const QString& key,
                  qint32 leftOut) {
    qint32 number = 1;
    for (const auto& round : list) {
        if (round->RoundID == key)
            continue;
        if (number == leftOut)
            ++number;
        round->RoundNumber = number++;
        if (!dao.Save(*round))
            return false;
    }
    return true;
}

} // namespace

std::unique_ptr<ObjectList<Round>> RoundDAO::GetRoundList() {
    return Rounds.List(QStringLiteral(" ORDER BY RoundNumber, RoundName "));
}

std::unique_ptr<Round> RoundDAO::GetRound(const QString& key) {
    return Rounds.One(key);
}

bool RoundDAO::Delete(const QString& key) {
    return Rounds.Delete(key);
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
        const std::optional<qint32> next = nextRound();
        if (!next)
            return false;
        round.RoundNumber = *next;
        return AppDatabase().ExecuteSQL(
            QStringLiteral(
                "INSERT INTO Rounds (RoundID,RoundName,RoundNumber,MaxScore) VALUES ('") +
            round.RoundID + QStringLiteral("','") + name + QStringLiteral("',") +
            QString::number(round.RoundNumber) + u',' + maxScore + u')');
    });
}

qint32 RoundDAO::GetNextRound() {
    return nextRound().value_or(1);
}

bool RoundDAO::Reorder(const QString& key, qint32 direction) {
    return Guarded("Reorder", Component, false, [&] {
        const auto list = GetRoundList();
        if (!list)
            return true;
        qint32 target = -1;
        const auto moved = std::find_if(list->begin(), list->end(),
                                        [&](const auto& round) { return round->RoundID == key; });
        if (moved != list->end()) {
            const qint32 step = direction == Down ? 1 : direction == Up ? -1 : 0;
            target = CheckedAdd((*moved)->RoundNumber, step);
            (*moved)->RoundNumber = target;
            if (!Save(**moved))
                return false;
        }
        return numberOthers(*this, *list, key, target);
    });
}
