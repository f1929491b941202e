#include "data/SummaryDAO.h"
#include "support/AppFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A list as "1 name score", a joker marked by "*".
QString textOf(const std::unique_ptr<SummaryList>& list) {
    QStringList rows;
    for (qint32 i = 0; list && i <= list->LastIndex(); ++i) {
        const Summary& row = *list->Item(i);
        const QString joker = row.Joker ? u"*"_s : QString();
        rows.append(u"%1 %2 %3"_s.arg(row.Position).arg(row.TeamName).arg(row.Score) + joker);
    }
    return list ? rows.join(u", "_s) : u"nothing"_s;
}

} // namespace

class StandingsTest : public QObject {
    Q_OBJECT

private slots:
    void areRight() {
        const struct {
            QString teams;
            QString scores;      // "team round score joker, ..."
            const char* round;   // the standings of the round r
            const char* evening; // of all rounds
        } cases[] = {
            {{}, {}, "", ""},
            {u"a b none"_s, u"a r 10 1, b r 15 0, a x 4 1"_s, "1 a 20*, 2 b 15",
             "1 a 28*, 2 b 15, 3 none 0"},
            // A tie after doubling: a round keeps the order of the bare scores.
            {u"a B c"_s, u"c r 10 1, a r 20 0, B r 20 0, B gone 0 0"_s, "1 c 20*, 1 a 20, 1 B 20",
             "1 a 20, 1 B 20, 1 c 20*"},
            // A place after a tie follows at once; one behind a score of -1 is always a new one.
            {u"a b c d e f"_s, u"a r -2 0, b r -1 0, c r -1 0, d r 9 0, e r -2 0, f r 9 0"_s,
             "1 d 9, 1 f 9, 2 b -1, 3 c -1, 4 a -2, 4 e -2",
             "1 d 9, 1 f 9, 2 b -1, 3 c -1, 4 a -2, 4 e -2"},
            // Only the value 1 is a joker; a deleted team is left out. A row that cannot be read
            // leaves its team without points in the evening, and the round without standings.
            {u"a b c"_s, u"a r 5 2, b r 5 -1, c r 4 NULL, gone r 9 0"_s, "1 a 5, 1 b 5, 2 c 4",
             "1 a 5, 1 b 5, 2 c 0"},
            {u"a b"_s, u"a r NULL 0, a q 3 0, b r 1 0"_s, "nothing", "1 b 1, 2 a 0"},
            {u"a"_s, u"a r -1073741824 1"_s, "1 a -2147483648*", "1 a -2147483648*"},
            {u"a"_s, u"a r 1073741824 1"_s, "nothing", "nothing"},
            {u"a"_s, u"a r 2147483647 0, a q 1 0"_s, "1 a 2147483647", "nothing"},
        };
        for (const auto& c : cases) {
            AppFolder folder;
            QStringList rows{u"DELETE FROM Teams"_s};
            for (const QString& team : c.teams.split(u' ', Qt::SkipEmptyParts))
                rows.append(u"INSERT INTO Teams VALUES ('%1','%1')"_s.arg(team));
            for (const QString& score : c.scores.split(u", "_s, Qt::SkipEmptyParts))
                rows.append(u"INSERT INTO Results (ResultID,TeamID,RoundID,Score,Joker) VALUES "
                            "(%1,'%2')"_s.arg(rows.size())
                                .arg(QString(score).replace(u' ', u"','"_s))
                                .replace(u"'NULL'"_s, u"NULL"_s));
            RunForeign(folder.DatabasePath(), rows);
            folder.Open();
            QCOMPARE(textOf(SummaryDAO().GetSummaryForRound(u"r"_s, 2)),
                     QLatin1StringView(c.round));
            QCOMPARE(folder.TakeReports().isEmpty(), c.round != "nothing"_L1);
            QCOMPARE(textOf(SummaryDAO().GetOverallSummary(2)), QLatin1StringView(c.evening));
            QCOMPARE(folder.TakeReports().isEmpty(),
                     c.evening != "nothing"_L1 && !c.scores.contains(u"NULL"));
            RunForeign(folder.DatabasePath(), {u"DELETE FROM Results"_s}); // nothing is left locked
        }
    }
};

QTEST_GUILESS_MAIN(StandingsTest)
#include "StandingsTest.moc"
