#include "data/ResultDAO.h"
#include "data/RoundDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Every round as "name number", in the order of the list.
QString roundList() {
    const auto list = RoundDAO().GetRoundList();
    QStringList texts;
    for (qint32 i = 0; list && i <= list->LastIndex(); ++i)
        texts.append(list->Item(i)->RoundName + QString::number(list->Item(i)->RoundNumber));
    return texts.join(u' ');
}

} // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private slots:
    void savesAndFindsTeams();
    void savesAndNumbersRounds();
    void movesRounds();
    void savesAndFiltersResults();
    void foreignFieldsAreReadOrRefused();
};

void RecordsTest::savesAndFindsTeams() {
    AppFolder folder;
    folder.Open();
    TeamDAO dao;
    QStringList keys;
    for (const QString& name : {u"beta"_s, u"Alpha"_s, u"O'Neil"_s, u"alpha 2"_s}) {
        Team team;
        team.TeamName = name;
        keys.append(team.TeamID);
        QVERIFY(dao.Save(team));
        QVERIFY2(!dao.Save(team), "the same new team was inserted twice");
    }
    QCOMPARE(folder.TakeReports().size(), 4);
    const auto team = dao.GetTeam(keys[2]);
    team->TeamName = u"'"_s;
    QVERIFY(team->IsStored && dao.Save(*team));
    QStringList names;
    const auto list = dao.GetTeamList();
    for (qint32 i = 0; i <= list->LastIndex(); ++i)
        names.append(list->Item(i)->TeamName);
    QCOMPARE(names.join(u'|'), u"'|Alpha|alpha 2|beta"_s);

    RunForeign(folder.DatabasePath(),
               {u"INSERT INTO Results VALUES ('s','r','%1',1,0)"_s.arg(keys[2])});
    QVERIFY(dao.Delete(keys[2]) && !dao.GetTeam(keys[2]) && !dao.Delete(keys[2]));
    QVERIFY2(ResultDAO().GetResult(u"s"_s), "the results of a deleted team stay");
    QCOMPARE(dao.GetTeamList()->LastIndex(), 2);
    QCOMPARE(folder.TakeReports(), QStringList());
}

void RecordsTest::savesAndNumbersRounds() {
    AppFolder folder;
    folder.Open();
    RoundDAO dao;
    Round first;
    first.RoundNumber = 7;
    first.MaxScore = -10;
    QVERIFY(dao.Save(first));
    const auto stored = dao.GetRound(first.RoundID);
    QVERIFY(stored->RoundNumber == 1 && stored->MaxScore == -10);
    stored->RoundNumber = 9;
    stored->RoundName = u"b"_s;
    QVERIFY(stored->IsStored && dao.Save(*stored));
    Round second;
    second.RoundName = u"a"_s;
    QVERIFY(dao.Save(second));
    QCOMPARE(roundList(), u"b9 a10"_s);
    // The same number: by name. Deleting leaves the other numbers as they are.
    RunForeign(folder.DatabasePath(), {u"UPDATE Rounds SET RoundNumber=2147483647"_s});
    QCOMPARE(roundList(), u"a2147483647 b2147483647"_s);
    QVERIFY(dao.Delete(first.RoundID) && !dao.Delete(first.RoundID));
    QCOMPARE(roundList(), u"a2147483647"_s);
    QCOMPARE(folder.TakeReports(), QStringList());
    QCOMPARE(dao.GetNextRound(), 1);
    QVERIFY(folder.TakeReports().join(u'\n').endsWith(u"[6] Overflow [GetNextRound/RoundDAO]"));
}

void RecordsTest::movesRounds() {
    const struct {
        QList<int> numbers; // of the rounds A, B, C
        const char* moved;
        qint32 direction;
        const char* list;
    } cases[] = {
        {{1, 2, 3}, "C", RoundDAO::Up, "A1 C2 B3"},   {{1, 2, 3}, "A", RoundDAO::Up, "A0 B1 C2"},
        {{1, 2, 3}, "C", RoundDAO::Down, "A1 B2 C4"}, {{1, 2, 3}, "A", RoundDAO::Down, "B1 A2 C3"},
        {{1, 5, 9}, "B", RoundDAO::Down, "A1 C2 B6"}, {{1, 5, 9}, "B", 3, "A1 C2 B5"},
        {{4, 4, 4}, "B", RoundDAO::Up, "A1 C2 B3"},   {{2, 5, 9}, "b", RoundDAO::Up, "A1 B2 C3"},
    };
    for (const auto& c : cases) {
        AppFolder folder;
        RunForeign(folder.DatabasePath(),
                   {u"INSERT INTO Rounds VALUES ('A','A',%1,1),('B','B',%2,1),('C','C',%3,1)"_s
                        .arg(c.numbers[0])
                        .arg(c.numbers[1])
                        .arg(c.numbers[2])});
        folder.Open();
        QVERIFY(RoundDAO().Reorder(QString::fromLatin1(c.moved), c.direction));
        QCOMPARE(roundList(), QLatin1StringView(c.list));
    }
}

void RecordsTest::savesAndFiltersResults() {
    AppFolder folder;
    folder.Open();
    ResultDAO dao;
    QString key;
    for (const QString& place : {u"r1t1"_s, u"r1t2"_s, u"r2t1"_s, u"r2t3"_s}) {
        Result result;
        result.RoundID = place.left(2);
        result.TeamID = place.mid(2);
        result.Score = std::numeric_limits<qint32>::min();
        result.Joker = 1;
        QVERIFY(dao.Save(result));
        key = result.ResultID;
    }
    const auto result = dao.GetResult(key);
    QVERIFY(result->Score == std::numeric_limits<qint32>::min() && result->Joker == 1);
    result->TeamID = u"O't"_s;
    result->Score = 12;
    result->Joker = 2;
    QVERIFY(result->IsStored && dao.Save(*result));
    const auto same = dao.GetResult(key);
    QCOMPARE(same->RoundID + same->TeamID, u"r2O't"_s);
    QVERIFY(same->Score == 12 && same->Joker == 2);
    const auto count = [&](const QString& round, const QString& team) {
        return dao.GetResultList(round, team)->LastIndex() + 1;
    };
    QVERIFY(count({}, {}) == 4 && count(u"r1"_s, {}) == 2 && count({}, u"t1"_s) == 2);
    QVERIFY(count(u"r2"_s, u"t1"_s) == 1 && count(u"r2"_s, u"t3"_s) == 0);
    QVERIFY(dao.Delete(key) && !dao.Delete(key) && !dao.GetResult(key));
    QCOMPARE(count({}, {}), 3);
    QCOMPARE(folder.TakeReports(), QStringList());
}

void RecordsTest::foreignFieldsAreReadOrRefused() {
    const struct {
        const char* field; // as the file holds it
        bool isRead;
        qint32 value;
    } cases[] = {
        {"-3", true, -3},      {"2.5", true, 2},         {"' 7 '", true, 7},
        {"X'3137'", true, 17}, {"NULL", false, 0},       {"'12a'", false, 0},
        {"''", false, 0},      {"2147483648", false, 0}, {"9e999", false, 0},
    };
    AppFolder folder;
    folder.Open();
    RunForeign(folder.DatabasePath(), {u"INSERT INTO Rounds VALUES ('r','n',1,1)"_s,
                                       u"INSERT INTO Results VALUES ('s','r','t',1,1)"_s});
    for (const auto& c : cases) {
        const QString field = QString::fromLatin1(c.field);
        RunForeign(folder.DatabasePath(), {u"UPDATE Rounds SET RoundNumber="_s + field,
                                           u"UPDATE Results SET Score=%1,Joker=%1"_s.arg(field)});
        const auto rounds = RoundDAO().GetRoundList();
        const auto result = ResultDAO().GetResult(u"s"_s);
        QVERIFY2(!!rounds == c.isRead && !!result == c.isRead, c.field);
        QCOMPARE(folder.TakeReports().size(), c.isRead ? 0 : 2);
        if (!c.isRead)
            continue;
        QCOMPARE(rounds->Item(0)->RoundNumber, c.value);
        QVERIFY2(result->Score == c.value && result->Joker == c.value, c.field);
    }
}

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
