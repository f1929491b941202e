#include "data/ResultDAO.h"
#include "data/RoundDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"
#include "support/HostileTexts.h"

#include <QTest>

using namespace Qt::StringLiterals;

class RecordsTest : public QObject {
    Q_OBJECT

private slots:
    void hostileNamesComeBack() {
        AppFolder folder;
        folder.Open();
        RunForeign(folder.DatabasePath(), {u"INSERT INTO Teams VALUES ('k','bystander')"_s});
        for (const HostileText& hostile : HostileTexts()) {
            Team team;
            Round round;
            for (const bool stored : {false, true}) {
                team.TeamName = round.RoundName = hostile.Text;
                team.IsStored = round.IsStored = stored;
                round.MaxScore = stored ? -10 : 10;
                QVERIFY2(TeamDAO().Save(team) != hostile.IsRefused, hostile.What);
                QVERIFY2(RoundDAO().Save(round) != hostile.IsRefused, hostile.What);
                QCOMPARE(folder.TakeReports().size(), hostile.IsRefused ? 2 : 0);
                if (hostile.IsRefused)
                    continue;
                QCOMPARE(TeamDAO().GetTeam(team.TeamID)->TeamName, hostile.Stored);
                const auto saved = RoundDAO().GetRound(round.RoundID);
                QCOMPARE(saved->RoundName, hostile.Stored);
                QCOMPARE(saved->MaxScore, round.MaxScore);
            }
            QCOMPARE(TeamDAO().Delete(team.TeamID), !hostile.IsRefused);
            QCOMPARE(RoundDAO().Delete(round.RoundID), !hostile.IsRefused);
            QVERIFY(TeamDAO().GetTeamList()->LastIndex() == 0 && RoundDAO().GetNextRound() == 1);
        }
    }

    void movesAndNumbersRounds() {
        const struct {
            const char* numbers; // of the rounds A, B, C
            const char* moved;
            qint32 direction;
            const char* list;
            qint32 next;
        } cases[] = {
            {"1 2 3", "C", RoundDAO::Up, "A1 C2 B3", 4},
            {"1 2 3", "A", RoundDAO::Up, "A0 B1 C2", 3},
            {"1 2 3", "C", RoundDAO::Down, "A1 B2 C4", 5},
            {"1 2 3", "A", RoundDAO::Down, "B1 A2 C3", 4},
            {"1 5 9", "B", RoundDAO::Down, "A1 C2 B6", 7},
            {"1 5 9", "B", 3, "A1 C2 B5", 6},
            {"4 4 4", "B", RoundDAO::Up, "A1 C2 B3", 4},
            {"2 5 9", "b", RoundDAO::Up, "A1 B2 C3", 4},
            {"1 2 2147483647", "C", 3, "A1 B2 C2147483647", 1}, // overflow
        };
        for (const auto& c : cases) {
            const AppFolder folder;
            const QStringList numbers = QString::fromLatin1(c.numbers).split(u' ');
            RunForeign(
                folder.DatabasePath(),
                {u"INSERT INTO Rounds VALUES ('A','A',%1,1),('B','B',%2,1),('C','C',%3,1)"_s.arg(
                    numbers[0], numbers[1], numbers[2])});
            folder.Open();
            QVERIFY(RoundDAO().Reorder(QString::fromLatin1(c.moved), c.direction));
            const auto list = RoundDAO().GetRoundList();
            QStringList rounds;
            for (qint32 i = 0; i <= list->LastIndex(); ++i)
                rounds += list->Item(i)->RoundName + QString::number(list->Item(i)->RoundNumber);
            QCOMPARE(rounds.join(u' '), QLatin1StringView(c.list));
            Round added;
            RoundDAO().Save(added);
            QCOMPARE(RoundDAO().GetRound(added.RoundID)->RoundNumber, c.next);
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
        QVERIFY2(!dao.Save(result), "the same new result was inserted twice");
        QCOMPARE(folder.TakeReports().size(), 1);
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
};

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
