#include "data/DBObject.h"
#include "data/ResultDAO.h"
#include "data/RoundDAO.h"
#include "data/SummaryDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"

#include <QTest>

#include <functional>
#include <limits>

namespace {

QString rowsOf(const AppFolder& folder, const char* columns, const char* table) {
    return RunForeign(folder.DatabasePath(),
                      {QStringLiteral("SELECT %1 FROM %2 ORDER BY 1")
                           .arg(QLatin1StringView(columns), QLatin1StringView(table))})
        .join(u';');
}

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
    void failuresAreReportedByEveryCaller();
};

void RecordsTest::savesAndFindsTeams() {
    AppFolder folder;
    folder.Open();
    TeamDAO dao;
    QCOMPARE(dao.GetTeamList()->LastIndex(), -1);
    QStringList keys;
    for (const char* name : {"beta", "Alpha", "O'Neil", "alpha 2", ""}) {
        Team team;
        QCOMPARE(team.TeamID.size(), 26);
        QVERIFY(!team.IsStored);
        team.TeamName = QString::fromLatin1(name);
        keys.append(team.TeamID);
        QVERIFY(dao.Save(team));
        QVERIFY(!team.IsStored);
        QVERIFY2(!dao.Save(team), "the same new team was inserted twice");
    }
    QCOMPARE(folder.TakeReports().size(), 5);
    const auto list = dao.GetTeamList();
    QStringList names;
    for (qint32 i = 0; i <= list->LastIndex(); ++i) {
        QVERIFY(list->Item(i)->IsStored);
        names.append(list->Item(i)->TeamName);
    }
    QCOMPARE(names.join(u'|'), QStringLiteral("|Alpha|alpha 2|beta|O'Neil"));

    const auto team = dao.GetTeam(keys[2]);
    QVERIFY(team && team->IsStored);
    QCOMPARE(team->TeamID, keys[2]);
    team->TeamName = QStringLiteral("'");
    QVERIFY(dao.Save(*team));
    QCOMPARE(dao.GetTeam(keys[2])->TeamName, QStringLiteral("'"));

    RunForeign(folder.DatabasePath(),
               {QStringLiteral("INSERT INTO Results VALUES ('s','r','%1',1,0)").arg(keys[2])});
    QVERIFY(dao.Delete(keys[2]));
    QVERIFY(!dao.GetTeam(keys[2]));
    QVERIFY(!dao.Delete(keys[2]));
    QVERIFY(!dao.Delete(QString()));
    QCOMPARE(rowsOf(folder, "ResultID", "Results"), QStringLiteral("s"));
    QCOMPARE(folder.TakeReports(), QStringList());
}

void RecordsTest::savesAndNumbersRounds() {
    AppFolder folder;
    folder.Open();
    RoundDAO dao;
    QCOMPARE(dao.GetRoundList()->LastIndex(), -1);
    QCOMPARE(dao.GetNextRound(), 1);
    Round first;
    QCOMPARE(first.RoundNumber, 1);
    first.RoundNumber = 7;
    first.RoundName = QStringLiteral("it's");
    first.MaxScore = -10;
    QVERIFY(dao.Save(first));
    QCOMPARE(first.RoundNumber, 1);
    QCOMPARE(dao.GetNextRound(), 2);

    const auto stored = dao.GetRound(first.RoundID);
    QVERIFY(stored && stored->IsStored);
    QCOMPARE(stored->MaxScore, -10);
    stored->RoundNumber = 9;
    stored->RoundName = QStringLiteral("b");
    QVERIFY(dao.Save(*stored));
    Round second;
    second.RoundName = QStringLiteral("a");
    QVERIFY(dao.Save(second));
    QCOMPARE(roundList(), QStringLiteral("b9 a10"));
    // The same number: by name. Deleting leaves the other numbers and the results as they are.
    RunForeign(
        folder.DatabasePath(),
        {QStringLiteral("UPDATE Rounds SET RoundNumber=9"),
         QStringLiteral("INSERT INTO Results VALUES ('s','%1','t',1,0)").arg(first.RoundID)});
    QCOMPARE(roundList(), QStringLiteral("a9 b9"));
    QVERIFY(dao.Delete(first.RoundID));
    QVERIFY(!dao.Delete(first.RoundID));
    QCOMPARE(roundList(), QStringLiteral("a9"));
    QCOMPARE(rowsOf(folder, "ResultID", "Results"), QStringLiteral("s"));
    QCOMPARE(folder.TakeReports(), QStringList());

    RunForeign(folder.DatabasePath(), {QStringLiteral("UPDATE Rounds SET RoundNumber=2147483647")});
    QCOMPARE(dao.GetNextRound(), 1);
    QVERIFY(folder.TakeReports().join(u'\n').endsWith(u"[6] Overflow [GetNextRound/RoundDAO]"));
}

void RecordsTest::movesRounds() {
    const struct {
        QList<int> numbers; // of the rounds A, B, C ...
        const char* moved;
        qint32 direction;
        const char* list;
    } cases[] = {
        {{1, 2, 3}, "C", RoundDAO::Up, "A1 C2 B3"},
        {{1, 2, 3}, "A", RoundDAO::Up, "A0 B1 C2"},
        {{1, 2, 3}, "C", RoundDAO::Down, "A1 B2 C4"},
        {{1, 2, 3}, "A", RoundDAO::Down, "B1 A2 C3"},
        {{1, 5, 9}, "B", RoundDAO::Down, "A1 C2 B6"},
        {{1, 5, 9}, "B", 3, "A1 C2 B5"},
        {{4, 4, 4}, "B", RoundDAO::Up, "A1 C2 B3"},
        {{3, 5, 9}, "unknown", RoundDAO::Up, "A1 B2 C3"},
        {{2, 5, 9}, "b", RoundDAO::Up, "A1 B2 C3"},
        {{}, "A", RoundDAO::Up, ""},
    };
    for (const auto& c : cases) {
        AppFolder folder;
        folder.Open();
        for (qsizetype i = 0; i < c.numbers.size(); ++i)
            RunForeign(folder.DatabasePath(),
                       {QStringLiteral("INSERT INTO Rounds VALUES ('%1','%1',%2,10)")
                            .arg(QChar(u'A' + static_cast<char16_t>(i)))
                            .arg(c.numbers[i])});
        QVERIFY(RoundDAO().Reorder(QString::fromLatin1(c.moved), c.direction));
        QCOMPARE(roundList(), QString::fromLatin1(c.list));
    }
    const AppFolder folder; // not opened: there is no list to move anything in
    QVERIFY(RoundDAO().Reorder(QStringLiteral("A"), RoundDAO::Up));
}

void RecordsTest::savesAndFiltersResults() {
    AppFolder folder;
    folder.Open();
    ResultDAO dao;
    const auto count = [&](const char* round, const char* team) {
        return dao.GetResultList(QString::fromLatin1(round), QString::fromLatin1(team))
                   ->LastIndex() +
               1;
    };
    QCOMPARE(count("", ""), 0);
    Result last;
    for (const char* round : {"r1", "r2"})
        for (const char* team : {"t1", "t2", "t3"}) {
            Result result;
            result.RoundID = QString::fromLatin1(round);
            result.TeamID = QString::fromLatin1(team);
            result.Score = std::numeric_limits<qint32>::min();
            result.Joker = 1;
            QVERIFY(dao.Save(result));
            last = result;
        }
    QCOMPARE(count("", ""), 6);
    QCOMPARE(count("r1", ""), 3);
    QCOMPARE(count("", "t1"), 2);
    QCOMPARE(count("r1", "t1"), 1);
    QCOMPARE(count("r1", "t4"), 0);

    auto result = dao.GetResult(last.ResultID);
    QVERIFY(result && result->IsStored);
    QCOMPARE(result->Score, last.Score);
    QCOMPARE(result->Joker, 1);
    result->RoundID = QStringLiteral("O'r");
    result->TeamID = QStringLiteral("O't");
    result->Score = 12;
    result->Joker = 2;
    QVERIFY(dao.Save(*result));
    const auto same = dao.GetResult(last.ResultID);
    QCOMPARE(same->RoundID + same->TeamID, QStringLiteral("O'rO't"));
    QCOMPARE(same->Score, 12);
    QCOMPARE(same->Joker, 2);
    QVERIFY(dao.Delete(last.ResultID));
    QVERIFY(!dao.Delete(last.ResultID));
    QVERIFY(!dao.GetResult(last.ResultID));
    QCOMPARE(count("", ""), 5);
    QCOMPARE(folder.TakeReports(), QStringList());
}

void RecordsTest::foreignFieldsAreReadOrRefused() {
    const struct {
        const char* field; // as the file holds it
        bool isRead;
        qint32 value;
    } cases[] = {
        {"12", true, 12},         {"-3", true, -3},    {"2.5", true, 2},    {"' 7 '", true, 7},
        {"X'3137'", true, 17},    {"NULL", false, 0},  {"'12a'", false, 0}, {"''", false, 0},
        {"2147483648", false, 0}, {"9e999", false, 0}, {"X'FF'", false, 0},
    };
    for (const auto& c : cases) {
        AppFolder folder;
        const QString field = QString::fromLatin1(c.field);
        RunForeign(folder.DatabasePath(),
                   {QStringLiteral("INSERT INTO Rounds VALUES ('r','n',%1,1)").arg(field),
                    QStringLiteral("INSERT INTO Results VALUES ('s','r','t',%1,0)").arg(field),
                    QStringLiteral("INSERT INTO Results VALUES ('j','x','t',0,%1)").arg(field)});
        folder.Open();
        const auto rounds = RoundDAO().GetRoundList();
        const auto round = RoundDAO().GetRound(QStringLiteral("r"));
        const auto results = ResultDAO().GetResultList(QStringLiteral("r"), {});
        const auto score = ResultDAO().GetResult(QStringLiteral("s"));
        const auto joker = ResultDAO().GetResult(QStringLiteral("j"));
        QVERIFY2(!!rounds == c.isRead && !!round == c.isRead && !!results == c.isRead &&
                     !!score == c.isRead && !!joker == c.isRead,
                 c.field);
        QCOMPARE(folder.TakeReports().size(), c.isRead ? 0 : 5);
        if (!c.isRead)
            continue;
        QCOMPARE(rounds->Item(0)->RoundNumber, c.value);
        QCOMPARE(round->RoundNumber, c.value);
        QCOMPARE(results->Item(0)->Score, c.value);
        QCOMPARE(score->Score, c.value);
        QCOMPARE(joker->Joker, c.value);
    }
}

void RecordsTest::failuresAreReportedByEveryCaller() {
    AppFolder folder; // the database is not open
    Team team;
    Team storedTeam(QStringLiteral("t"), {});
    Round round;
    Result result;
    const struct {
        std::function<bool()> action;
        const char* reports;
    } cases[] = {
        {[&] { return !!TeamDAO().GetTeamList(); }, "GetRecordSet/DBObject GetTeamList/TeamDAO"},
        {[&] { return !!TeamDAO().GetTeam({}); }, "GetRecordSet/DBObject GetTeam/TeamDAO"},
        {[&] { return TeamDAO().Delete({}); }, "GetRecordSet/DBObject GetTeam/TeamDAO"},
        {[&] { return TeamDAO().Save(team); }, "ExecuteSQL/DBObject"},
        {[&] { return TeamDAO().Save(storedTeam); }, "ExecuteSQL/DBObject"},
        {[&] { return !!RoundDAO().GetRoundList(); },
         "GetRecordSet/DBObject GetRoundList/RoundDAO"},
        {[&] { return !!RoundDAO().GetRound({}); }, "GetRecordSet/DBObject GetRound/RoundDAO"},
        {[&] { return RoundDAO().Delete({}); }, "GetRecordSet/DBObject GetRound/RoundDAO"},
        {[&] { return RoundDAO().Save(round); },
         "GetRecordSet/DBObject GetNextRound/RoundDAO ExecuteSQL/DBObject"},
        {[&] { return RoundDAO().GetNextRound() != 1; },
         "GetRecordSet/DBObject GetNextRound/RoundDAO"},
        {[&] { return !!ResultDAO().GetResultList({}, {}); },
         "GetRecordSet/DBObject GetResultList/ResultDAO"},
        {[&] { return !!ResultDAO().GetResult({}); }, "GetRecordSet/DBObject GetResult/ResultDAO"},
        {[&] { return ResultDAO().Delete({}); }, "GetRecordSet/DBObject GetResult/ResultDAO"},
        {[&] { return ResultDAO().Save(result); }, "ExecuteSQL/DBObject"},
        {[&] { return !!SummaryDAO().GetSummaryForRound({}, 2); },
         "GetRecordSet/DBObject GetSummaryForRound/SummaryDAO"},
        {[&] { return !!SummaryDAO().GetOverallSummary(2); },
         "GetRecordSet/DBObject GetTeamList/TeamDAO SortSummaryList/SummaryDAO"},
    };
    for (const auto& c : cases) {
        QVERIFY2(!c.action(), c.reports);
        QStringList names;
        for (const QString& report : folder.TakeReports()) {
            const qsizetype bracket = report.lastIndexOf(u'[') + 1;
            names.append(report.mid(bracket, report.size() - bracket - 1));
        }
        QCOMPARE(names.join(u' '), QString::fromLatin1(c.reports));
    }
}

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
