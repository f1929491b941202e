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
        // The numbers of the rounds A, B and C; the move; the list then, with one more round; and
        // the round that cannot be written, where the move stops.
        const std::tuple<std::array<int, 3>, QString, qint32, const char*, QString> cases[] = {
            {{1, 5, 9}, u"B"_s, RoundDAO::Down, "A1 C2 B6 new7", {}},
            {{1, 5, 9}, u"B"_s, 3, "A1 C2 B5 new6", {}},
            {{4, 4, 4}, u"B"_s, RoundDAO::Up, "A1 C2 B3 new4", {}},
            {{2, 5, 9}, u"b"_s, RoundDAO::Up, "A1 B2 C3 new4", {}},
            {{1, 2, 2147483647}, u"C"_s, 3, "A1 new1 B2 C2147483647", {}}, // overflow
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
        // The teams; their scores as team, round, score and joker; the standings of the round r,
        // behind a "/" those in the order 1 when they differ; and those of all rounds.
        const std::tuple<QString, QString, QString, const char*> cases[] = {
            {"a b none", "a r 10 1,b r 15 0,a x 4 0", "1 a 20*, 2 b 15",
             "1 a 24*, 2 b 15, 3 none 0"},
            // A tie after doubling: the one order looks at the bare scores.
            {"c B a", "c r 10 1,a r 20 0,B r 20 0,B x 0 0",
             "1 c 20*, 1 a 20, 1 B 20/1 a 20, 1 B 20, 1 c 20*", "1 a 20, 1 B 20, 1 c 20*"},
            // A place after a tie follows at once; one behind a score of -1 is always a new one.
            {"a b c d e", "a r -2 0,b r -1 0,c r -1 0,d r 9 0,e r 9 0",
             "1 d 9, 1 e 9, 2 b -1, 3 c -1, 4 a -2", "1 d 9, 1 e 9, 2 b -1, 3 c -1, 4 a -2"},
            // Only the value 1 is a joker; a deleted team is left out. A row that cannot be read
            // leaves its team without points overall, and the round without standings.
            {"a b c", "a r 5 2,b r 5 -1,c r 4 NULL,gone r 9 0", "1 a 5, 1 b 5, 2 c 4",
             "1 a 5, 1 b 5, 2 c 0"},
            {"a b", "a r NULL 0,a q 3 0,b r 1 0", "nothing", "1 b 1, 2 a 0"},
            {"a", "a r -1073741824 1", "1 a -2147483648*", "1 a -2147483648*"},
            {"a", "a r 1073741824 1", "nothing", "nothing"},
            {"a", "a r 2147483647 0,a q 1 0", "1 a 2147483647", "nothing"},
        };
        for (const auto& [teams, scores, round, overall] : cases) {
            AppFolder folder;
            folder.Open();
            SummaryDAO dao;
            QCOMPARE(textOf(dao.GetOverallSummary(2)), QString());
            QStringList quiz;
            for (const QString& team : teams.split(u' '))
                quiz += u"INSERT INTO Teams VALUES ('%1','%1')"_s.arg(team);
            for (const QString& score : scores.split(u','))
                quiz += u"INSERT INTO Results VALUES ('%1%2','%2','%1',%3,%4)"_s.arg(
                    score.section(u' ', 0, 0), score.section(u' ', 1, 1), score.section(u' ', 2, 2),
                    score.section(u' ', 3));
            RunForeign(folder.DatabasePath(), quiz);
            // While a report is on the screen, another program may write.
            AppLog().ShowError = [&folder, remember = AppLog().ShowError](const QString& text) {
                RunForeign(folder.DatabasePath(), {u"DELETE FROM Rounds"_s});
                remember(text);
            };
            const bool isReported = overall == "nothing"_L1 || scores.contains(u"NULL");
            QCOMPARE(textOf(dao.GetOverallSummary(2)), QLatin1StringView(overall));
            QCOMPARE(folder.TakeReports().isEmpty(), !isReported);
            QCOMPARE(textOf(dao.GetSummaryForRound(u"r"_s, 2)), round.section(u'/', 0, 0));
            QCOMPARE(folder.TakeReports().isEmpty(), round != u"nothing");
            QCOMPARE(textOf(dao.GetSummaryForRound(u"r"_s, 1)), round.section(u'/', -1));
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
