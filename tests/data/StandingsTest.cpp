#include "data/DBObject.h"
#include "data/SummaryDAO.h"
#include "support/AppFolder.h"

#include <QTest>

namespace {

// A list as "1 name score", a joker marked by "*".
QString textOf(const SummaryList* list) {
    if (!list)
        return QStringLiteral("nothing");
    QStringList rows;
    for (qint32 i = 0; i <= list->LastIndex(); ++i) {
        const Summary& row = *list->Item(i);
        rows.append(QStringLiteral("%1 %2 %3%4")
                        .arg(row.Position)
                        .arg(row.TeamName)
                        .arg(row.Score)
                        .arg(row.Joker ? QStringLiteral("*") : QString()));
    }
    return rows.join(QStringLiteral(", "));
}

struct Score {
    const char* team;
    const char* round;
    const char* score;
    const char* joker;
};

// Teams under their names, and the scores; a team without a score is one named by itself.
void fill(const AppFolder& folder, const QList<const char*>& teams, const QList<Score>& scores) {
    QStringList statements;
    for (const char* team : teams)
        statements.append(
            QStringLiteral("INSERT INTO Teams VALUES ('%1','%1')").arg(QLatin1StringView(team)));
    for (const Score& score : scores)
        statements.append(QStringLiteral("INSERT INTO Results VALUES ('k%1','%2','%3',%4,%5)")
                              .arg(statements.size())
                              .arg(QLatin1StringView(score.round), QLatin1StringView(score.team),
                                   QLatin1StringView(score.score), QLatin1StringView(score.joker)));
    if (!statements.isEmpty())
        RunForeign(folder.DatabasePath(), statements);
}

} // namespace

class StandingsTest : public QObject {
    Q_OBJECT

private slots:
    void ofOneRound();
    void ofTheWholeEvening();
    void sortsAndPlaces();
};

void StandingsTest::ofOneRound() {
    const struct {
        QList<const char*> teams;
        QList<Score> scores;
        const char* byName;  // mode 1
        const char* byScore; // mode 2
    } cases[] = {
        {{"a"}, {}, "", ""},
        {{"a", "b"},
         {{"a", "r", "10", "1"}, {"b", "r", "15", "0"}, {"a", "x", "99", "0"}},
         "1 a 20*, 2 b 15",
         "1 a 20*, 2 b 15"},
        // A tie after doubling: the modes order it differently.
        {{"a", "b", "c"},
         {{"c", "r", "10", "1"}, {"a", "r", "20", "0"}, {"b", "r", "20", "0"}},
         "1 a 20, 1 b 20, 1 c 20*",
         "1 c 20*, 1 a 20, 1 b 20"},
        // Only the value 1 is a joker; a deleted team is left out.
        {{"a", "b", "c"},
         {{"a", "r", "5", "2"},
          {"b", "r", "5", "-1"},
          {"c", "r", "4", "NULL"},
          {"gone", "r", "9", "0"}},
         "1 a 5, 1 b 5, 2 c 4",
         "1 a 5, 1 b 5, 2 c 4"},
        {{"a"}, {{"a", "r", "NULL", "0"}}, "nothing", "nothing"},
        {{"a"}, {{"a", "r", "1073741824", "1"}}, "nothing", "nothing"},
        {{"a"}, {{"a", "r", "-1073741824", "1"}}, "1 a -2147483648*", "1 a -2147483648*"},
    };
    for (const auto& c : cases) {
        AppFolder folder;
        fill(folder, c.teams, c.scores);
        folder.Open();
        const QString round = QStringLiteral("r");
        QCOMPARE(textOf(SummaryDAO().GetSummaryForRound(round, 1).get()),
                 QString::fromLatin1(c.byName));
        QCOMPARE(textOf(SummaryDAO().GetSummaryForRound(round, 2).get()),
                 QString::fromLatin1(c.byScore));
        const bool fails = c.byName == QByteArray("nothing");
        QCOMPARE(folder.TakeReports().size(), fails ? 2 : 0);
    }
}

void StandingsTest::ofTheWholeEvening() {
    const struct {
        QList<const char*> teams;
        QList<Score> scores;
        const char* standings;
        int reports;
    } cases[] = {
        {{}, {}, "", 0},
        {{"a"}, {{"a", "r1", "10", "1"}, {"a", "r2", "5", "0"}}, "1 a 25*", 0},
        {{"C", "b", "A"},
         {{"C", "r1", "5", "0"},
          {"b", "r1", "5", "0"},
          {"A", "r1", "2", "0"},
          {"A", "gone", "3", "0"}},
         "1 A 5, 1 b 5, 1 C 5",
         0},
        {{"none", "one"},
         {{"one", "r", "3", "1"}, {"one", "q", "4", "1"}},
         "1 one 14*, 2 none 0",
         0},
        {{"a", "b"}, {{"a", "r", "-4", "0"}}, "1 b 0, 2 a -4", 0},
        // A row that cannot be read leaves its team without points, and is reported.
        {{"a", "b"},
         {{"a", "r", "NULL", "0"}, {"a", "q", "3", "0"}, {"b", "r", "1", "0"}},
         "1 b 1, 2 a 0",
         1},
        {{"a"}, {{"a", "r", "2147483647", "0"}, {"a", "q", "1", "0"}}, "nothing", 1},
        {{"a"}, {{"a", "r", "1073741824", "1"}}, "nothing", 1},
    };
    for (const auto& c : cases) {
        AppFolder folder;
        fill(folder, c.teams, c.scores);
        folder.Open();
        for (const qint32 mode : {1, 2, 9}) {
            QCOMPARE(textOf(SummaryDAO().GetOverallSummary(mode).get()),
                     QString::fromLatin1(c.standings));
            QCOMPARE(folder.TakeReports().size(), c.reports);
        }
        // Nothing is left locked.
        RunForeign(folder.DatabasePath(), {QStringLiteral("DELETE FROM Results")});
    }
}

void StandingsTest::sortsAndPlaces() {
    const struct {
        QList<int> scores; // of the teams a, b, c ...
        const char* sorted;
    } cases[] = {
        {{}, ""},
        {{7}, "1 a 7"},
        {{20, 30, 25, 30, 20}, "1 b 30, 1 d 30, 2 c 25, 3 a 20, 3 e 20"},
        {{-2, -1, -1, 0}, "1 d 0, 2 b -1, 3 c -1, 4 a -2"},
        {{-1}, "1 a -1"},
        {{-5, -5}, "1 a -5, 1 b -5"},
    };
    for (const auto& c : cases) {
        SummaryList list;
        for (qsizetype i = 0; i < c.scores.size(); ++i)
            list.Add(std::make_shared<Summary>(
                Summary{QChar(u'a' + static_cast<char16_t>(i)), c.scores[i], false, 99}));
        const auto first = list.Item(0);
        QCOMPARE(SummaryDAO().SortSummaryList(&list), &list);
        QCOMPARE(textOf(&list), QString::fromLatin1(c.sorted));
        QCOMPARE(list.Item(0), first); // the objects keep their places
    }
    QVERIFY(!SummaryDAO().SortSummaryList(nullptr));
}

QTEST_GUILESS_MAIN(StandingsTest)
#include "StandingsTest.moc"
