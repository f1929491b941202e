#include "data/SummaryDAO.h"

#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/DBObject.h"
#include "data/Require.h"
#include "data/ResultDAO.h"
#include "data/TeamDAO.h"

#include <algorithm>
#include <vector>

namespace {

constexpr const char* Component = "SummaryDAO";
constexpr qint32 JokerPlayed = 1;

// A joker round counts double.
qint32 points(qint32 score, bool joker) {
    return joker ? CheckedMultiply(score, 2) : score;
}

QString roundQuery(const QString& roundKey, qint32 mode) {
    QString query = QStringLiteral("SELECT A.TeamName,B.Score,B.Joker FROM Teams A  INNER JOIN "
                                   "Results B ON A.TeamID=B.TeamID  WHERE B.RoundID='") +
                    roundKey + QStringLiteral("' ");
    if (mode == 1)
        query += QStringLiteral(" ORDER BY A.TeamName,B.Score ");
    else if (mode == 2)
        query += QStringLiteral(" ORDER BY B.Score, A.TeamName ");
    return query;
}

void setPositions(SummaryList& list) {
    constexpr qint32 noPrevious = -1;
    qint32 position = 0;
    qint32 previous = noPrevious;
    for (qint32 i = 0; i <= list.LastIndex(); ++i) {
        Summary& row = *list.Item(i);
        // A row behind a score of -1 therefore starts a new place.
        if (row.Score < previous || previous == noPrevious)
            ++position;
        row.Position = position;
        previous = row.Score;
    }
}

} // namespace

std::unique_ptr<SummaryList> SummaryDAO::GetSummaryForRound(const QString& roundKey, qint32 mode) {
    return Guarded("GetSummaryForRound", Component, std::unique_ptr<SummaryList>(), [&] {
        DBObject& database = AppDatabase();
        const auto rows = database.GetRecordSet(roundQuery(roundKey, mode));
        auto list = std::make_unique<SummaryList>();
        for (RecordSet& row = Require(rows); !row.EndOfFile(); row.MoveNext()) {
            auto summary = std::make_shared<Summary>();
            summary->TeamName = database.SetField(row.Field(0));
            summary->Score = ToInt32(QStringView(database.SetField(row.Field(1))));
            summary->Joker = row.Field(2).toDouble() == JokerPlayed;
            summary->Score = points(summary->Score, summary->Joker);
            list->Add(std::move(summary));
        }
        Require(SortSummaryList(list.get()));
        return list;
    });
}

std::unique_ptr<SummaryList> SummaryDAO::GetOverallSummary(qint32) {
    return Guarded("GetOverallSummary", Component, std::unique_ptr<SummaryList>(),
                   []() -> std::unique_ptr<SummaryList> {
                       const DBObject::Snapshot snapshot(AppDatabase());
                       SummaryDAO standings;
                       const auto teams = TeamDAO().GetTeamList();
                       if (!teams) {
                           standings.SortSummaryList(nullptr);
                           return nullptr;
                       }
                       auto list = std::make_unique<SummaryList>();
                       for (qint32 i = 0; i <= teams->LastIndex(); ++i) {
                           const Team& team = *teams->Item(i);
                           auto summary = std::make_shared<Summary>();
                           summary->TeamName = team.TeamName;
                           const auto results = ResultDAO().GetResultList(QString(), team.TeamID);
                           for (qint32 r = 0; results && r <= results->LastIndex(); ++r) {
                               const Result& result = *results->Item(r);
                               const bool joker = result.Joker == JokerPlayed;
                               summary->Score =
                                   CheckedAdd(summary->Score, points(result.Score, joker));
                               summary->Joker = summary->Joker || joker;
                           }
                           list->Add(std::move(summary));
                       }
                       Require(standings.SortSummaryList(list.get()));
                       return list;
                   });
}

SummaryList* SummaryDAO::SortSummaryList(SummaryList* list) {
    return Guarded("SortSummaryList", Component, static_cast<SummaryList*>(nullptr), [&] {
        SummaryList& rows = Require(list);
        std::vector<Summary> sorted;
        for (qint32 i = 0; i <= rows.LastIndex(); ++i)
            sorted.push_back(*rows.Item(i));
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const Summary& a, const Summary& b) { return a.Score > b.Score; });
        for (qint32 i = 0; i <= rows.LastIndex(); ++i)
            *rows.Item(i) = std::move(sorted[static_cast<std::size_t>(i)]);
        setPositions(rows);
        return list;
    });
}
