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

// The points of one team in all its rounds. A team whose results cannot be had counts nothing.
Summary sumOf(const Team& team, const ObjectList<Result>* results) {
    Summary sum;
    sum.TeamName = team.TeamName;
    if (!results)
        return sum;
    for (const auto& result : *results) {
        const bool joker = result->Joker == JokerPlayed;
        sum.Score = CheckedAdd(sum.Score, points(result->Score, joker));
        sum.Joker = sum.Joker || joker;
    }
    return sum;
}

void setPositions(const SummaryList& list) {
    constexpr qint32 noPrevious = -1;
    qint32 position = 0;
    qint32 previous = noPrevious;
    for (const auto& row : list) {
        // A row behind a score of -1 therefore starts a new place.
        if (row->Score < previous || previous == noPrevious)
            ++position;
        row->Position = position;
        previous = row->Score;
    }
}

std::unique_ptr<SummaryList> roundStandings(const QString& roundKey, qint32 mode) {
    DBObject& database = AppDatabase();
    const auto rows = database.GetRecordSet(roundQuery(roundKey, mode));
    auto list = std::make_unique<SummaryList>();
    for (RecordSet& row = Require(rows); !row.EndOfFile(); row.MoveNext()) {
        auto summary = std::make_shared<Summary>();
        summary->TeamName = database.SetField(row.Field(0));
        summary->Joker = row.Field(2).toDouble() == JokerPlayed;
        summary->Score =
            points(ToInt32(QStringView(database.SetField(row.Field(1)))), summary->Joker);
        list->Add(std::move(summary));
    }
    Require(SummaryDAO().SortSummaryList(list.get()));
    return list;
}

std::unique_ptr<SummaryList> overallStandings() {
    const DBObject::Snapshot snapshot(AppDatabase());
    const auto teams = TeamDAO().GetTeamList();
    if (!teams) {
        SummaryDAO().SortSummaryList(nullptr);
        return nullptr;
    }
    auto list = std::make_unique<SummaryList>();
    for (const auto& team : *teams) {
        const auto results = ResultDAO().GetResultList(QString(), team->TeamID);
        // A row without a score costs its team the points; a file that cannot be read, everything.
        if (!snapshot.IsWhole())
            Require(results);
        list->Add(std::make_shared<Summary>(sumOf(*team, results.get())));
    }
    Require(SummaryDAO().SortSummaryList(list.get()));
    return list;
}

} // namespace

std::unique_ptr<SummaryList> SummaryDAO::GetSummaryForRound(const QString& roundKey, qint32 mode) {
    return Guarded("GetSummaryForRound", Component, std::unique_ptr<SummaryList>(),
                   [&] { return roundStandings(roundKey, mode); });
}

std::unique_ptr<SummaryList> SummaryDAO::GetOverallSummary(qint32) {
    return Guarded("GetOverallSummary", Component, std::unique_ptr<SummaryList>(),
                   overallStandings);
}

SummaryList* SummaryDAO::SortSummaryList(SummaryList* list) {
    return Guarded("SortSummaryList", Component, static_cast<SummaryList*>(nullptr), [&] {
        SummaryList& rows = Require(list);
        std::vector<Summary> sorted;
        for (const auto& row : rows)
            sorted.push_back(*row);
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const Summary& a, const Summary& b) { return a.Score > b.Score; });
        auto next = sorted.begin();
        for (const auto& row : rows)
            *row = std::move(*next++);
        setPositions(rows);
        return list;
    });
}
