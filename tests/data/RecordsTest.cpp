#include "core/Logging.h"
#include "data/ResultDAO.h"
#include "data/RoundDAO.h"
#include "data/SummaryDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"
#include "support/HostileTexts.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Standings as "1 name score", a joker marked by "*".
QString textOf(const std::unique_ptr<SummaryList>& list) {
    QStringList rows;
    if (list)
        for (const auto& row : *list)
            rows += QString::number(row->Position) + u' ' + row->TeamName + u' ' +
                    QString::number(row->Score) + (row->Joker ? u"*"_s : QString());
    return list ? rows.join(u", "_s) : u"nothing"_s;
}

} // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private slots:
    void hostileNamesComeBack() {
        AppFolder folder;
        folder.Open();
        for (const auto& [what, text, stored, isRefused, pasted] : HostileTexts()) {
            Team team;
            Round round;
            QVERIFY(TeamDAO().Save(team) && RoundDAO().Save(round));
            team = Team(team.TeamID, text);
            round = Round(round.RoundID, text, 1, -10);
            QVERIFY2(TeamDAO().Save(team) != isRefused && RoundDAO().Save(round) != isRefused,
                     what);
            QCOMPARE(folder.TakeReports().size(), isRefused ? 2 : 0);
            const auto saved = RoundDAO().GetRound(round.RoundID);
            for (const QString& name : {TeamDAO().GetTeam(team.TeamID)->TeamName, saved->RoundName})
                QCOMPARE(name, isRefused ? QString() : stored);
            QCOMPARE(saved->MaxScore, isRefused ? 0 : -10);
            QVERIFY(TeamDAO().Delete(team.TeamID) && RoundDAO().Delete(round.RoundID));
            QVERIFY(!TeamDAO().GetTeam(team.TeamID) && RoundDAO().GetNextRound() == 1);
        }
    }

    // As far as the screens do not show it: rounds that another program numbered, an unknown round,
    // a direction that is none, and a failure on the way.
    void movesAndNumbersRounds() {
        const struct {
            std::array<int, 3> numbers; // of the rounds A, B, C
            QString moved;
            qint32 direction;
            const char* list;     // with one more round
            QString refused = {}; // the round that cannot be written, where the move stops
        } cases[] = {
            {{1, 5, 9}, u"B"_s, RoundDAO::Down, "A1 C2 B6 new7"},
            {{1, 5, 9}, u"B"_s, 3, "A1 C2 B5 new6"},
            {{4, 4, 4}, u"B"_s, RoundDAO::Up, "A1 C2 B3 new4"},
            {{2, 5, 9}, u"b"_s, RoundDAO::Up, "A1 B2 C3 new4"},
            {{1, 2, 2147483647}, u"C"_s, 3, "A1 new1 B2 C2147483647"}, // overflow
            {{1, 2, 4}, u"B"_s, RoundDAO::Up, "A1 B2 C4 new5", u"B"_s},
            {{1, 2, 4}, u"A"_s, 3, "A1 B2 C4 new5", u"B"_s},
        };
        for (const auto& [numbers, moved, direction, expected, refused] : cases) {
            const AppFolder folder;
            RunForeign(folder.DatabasePath(),
                       {QString::asprintf("INSERT INTO Rounds VALUES ('C','C',%d,1),"
                                          "('B','B',%d,1),('A','A',%d,1)",
                                          numbers[2], numbers[1], numbers[0]),
                        u"CREATE TRIGGER T BEFORE UPDATE ON Rounds WHEN OLD.RoundID='%1' BEGIN "
                        "SELECT RAISE(ABORT,'no'); END"_s.arg(refused)});
            folder.Open();
            Round added;
            added.RoundName = u"new"_s;
            QVERIFY(RoundDAO().Reorder(moved, direction) == refused.isEmpty());
            QVERIFY(RoundDAO().Save(added));
            QStringList rounds;
            const auto list = RoundDAO().GetRoundList();
            for (const auto& round : *list)
                rounds += round->RoundName + QString::number(round->RoundNumber);
            QCOMPARE(rounds.join(u' '), QLatin1StringView(expected));
        }
    }

    void savesAndFiltersResults() {
        AppFolder folder;
        folder.Open();
        RunForeign(folder.DatabasePath(),
                   {u"INSERT INTO Results VALUES ('a','r1','t1',1,0),('b','r1','t2',1,0),"
                    "('c','r2','t1',1,0)"_s});
        ResultDAO dao;
        Result result;
        QVERIFY(dao.Save(result));
        result = Result(result.ResultID, u"r2"_s, u"O't"_s, -2147483647 - 1, 1);
        QVERIFY(dao.Save(result));
        const auto same = dao.GetResult(result.ResultID);
        QCOMPARE(same->RoundID + same->TeamID, u"r2O't"_s);
        QVERIFY(same->IsStored && same->Score == result.Score && same->Joker == 1);
        const auto count = [&](const QString& round, const QString& team) {
            return dao.GetResultList(round, team)->LastIndex() + 1;
        };
        QVERIFY(count({}, {}) == 4 && count(u"r1"_s, {}) == 2 && count({}, u"t1"_s) == 2);
        QVERIFY(count(u"r2"_s, u"t1"_s) == 1 && count(u"r2"_s, u"t2"_s) == 0);
        QVERIFY(dao.Delete(result.ResultID) && !dao.Delete(result.ResultID));
        QVERIFY(count({}, {}) == 3 && folder.TakeReports().isEmpty());
    }

    void standingsAreRight() {
        const struct {
            QString teams;
            QString scores;               // team, round, score, joker
            const char* round;            // the standings of the round r
            const char* overall;          // of all rounds
            const char* byName = nullptr; // of the round in the order 1, if that differs
        } cases[] = {
            {u"('a'),('b'),('none')"_s, u"('a','r',10,1),('b','r',15,0),('a','x',4,0)"_s,
             "1 a 20*, 2 b 15", "1 a 24*, 2 b 15, 3 none 0"},
            // A tie after doubling: the one order looks at the bare scores.
            {u"('c'),('B'),('a')"_s,
             u"('c','r',10,1),('a','r',20,0),('B','r',20,0),('B','x',0,0)"_s,
             "1 c 20*, 1 a 20, 1 B 20", "1 a 20, 1 B 20, 1 c 20*", "1 a 20, 1 B 20, 1 c 20*"},
            // A place after a tie follows at once; one behind a score of -1 is always a new one.
            {u"('a'),('b'),('c'),('d'),('e')"_s,
             u"('a','r',-2,0),('b','r',-1,0),('c','r',-1,0),('d','r',9,0),('e','r',9,0)"_s,
             "1 d 9, 1 e 9, 2 b -1, 3 c -1, 4 a -2", "1 d 9, 1 e 9, 2 b -1, 3 c -1, 4 a -2"},
            // Only the value 1 is a joker; a deleted team is left out. A row that cannot be read
            // leaves its team without points overall, and the round without standings.
            {u"('a'),('b'),('c')"_s,
             u"('a','r',5,2),('b','r',5,-1),('c','r',4,NULL),('gone','r',9,0)"_s,
             "1 a 5, 1 b 5, 2 c 4", "1 a 5, 1 b 5, 2 c 0"},
            {u"('a'),('b')"_s, u"('a','r',NULL,0),('a','q',3,0),('b','r',1,0)"_s, "nothing",
             "1 b 1, 2 a 0"},
            {u"('a')"_s, u"('a','r',-1073741824,1)"_s, "1 a -2147483648*", "1 a -2147483648*"},
            {u"('a')"_s, u"('a','r',1073741824,1)"_s, "nothing", "nothing"},
            {u"('a')"_s, u"('a','r',2147483647,0),('a','q',1,0)"_s, "1 a 2147483647", "nothing"},
        };
        for (const auto& c : cases) {
            AppFolder folder;
            folder.Open();
            SummaryDAO dao;
            QCOMPARE(textOf(dao.GetOverallSummary(2)), QString());
            RunForeign(
                folder.DatabasePath(),
                {u"INSERT INTO Teams SELECT column1,column1 FROM (VALUES %1)"_s.arg(c.teams),
                 u"WITH N(t,r,s,j) AS (VALUES %1) INSERT INTO Results SELECT t||r,r,t,s,j FROM N"_s
                     .arg(c.scores)});
            // While a report is on the screen, another program may write.
            AppLog().ShowError = [&folder, remember = AppLog().ShowError](const QString& text) {
                RunForeign(folder.DatabasePath(), {u"DELETE FROM Rounds"_s});
                remember(text);
            };
            QCOMPARE(textOf(dao.GetOverallSummary(2)), QLatin1StringView(c.overall));
            QCOMPARE(folder.TakeReports().isEmpty(),
                     c.overall != "nothing"_L1 && !c.scores.contains(u"NULL"));
            QCOMPARE(textOf(dao.GetSummaryForRound(u"r"_s, 2)), QLatin1StringView(c.round));
            QCOMPARE(folder.TakeReports().isEmpty(), c.round != "nothing"_L1);
            QCOMPARE(textOf(dao.GetSummaryForRound(u"r"_s, 1)),
                     QLatin1StringView(c.byName ? c.byName : c.round));
        }
    }

    // With the database closed the answers are the defaults, and each procedure is told.
    void saysWhatFailed() {
        AppFolder folder;
        Round round;
        QVERIFY(!TeamDAO().GetTeamList() && !TeamDAO().Delete({}) && !TeamDAO().Save(Team()) &&
                !RoundDAO().Delete({}) && !RoundDAO().Save(round) &&
                RoundDAO().GetNextRound() == 1 && RoundDAO().Reorder({}, 1) &&
                !ResultDAO().GetResultList({}, {}) && !ResultDAO().Delete({}) &&
                !SummaryDAO().GetSummaryForRound({}, 2) && !SummaryDAO().GetOverallSummary(2));
        QString reports;
        for (const QString& report : folder.TakeReports())
            reports += report.section(u'[', -1).remove(u"DAO]"_s) + u' ';
        QCOMPARE(reports.remove(u"GetRecordSet/DBObject] "_s),
                 u"GetTeamList/Team GetTeam/Team ExecuteSQL/DBObject] GetRound/Round "
                 "GetNextRound/Round GetNextRound/Round GetRoundList/Round GetResultList/Result "
                 "GetResult/Result GetSummaryForRound/Summary GetTeamList/Team "
                 "SortSummaryList/Summary "_s);
    }
};

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
