#include "core/Logging.h"
#include "data/DBObject.h"
#include "data/ResultDAO.h"
#include "data/RoundDAO.h"
#include "data/SummaryDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Insert = "INSERT INTO Teams (TeamID,TeamName) VALUES ('k','n')";

// The empty quiz after a change to its tables.
QByteArray fileAfter(const QString& statement) {
    const AppFolder folder;
    RunForeign(folder.DatabasePath(), {statement});
    return ReadFile(folder.DatabasePath());
}

QString answer(const QString& query) {
    return AppDatabase().GetRecordSet(query)->Field(0).toString();
}

// Standings as "1 name score", a joker marked by "*".
QString textOf(const std::unique_ptr<SummaryList>& list) {
    QStringList rows;
    if (list)
        for (const auto& row : *list)
            rows += QString::number(row->Position) + u' ' + row->TeamName + u' ' +
                    QString::number(row->Score) + (row->Joker ? "*" : QString());
    return list ? rows.join(", ") : "nothing";
}

} // namespace

class DataTest : public QObject {
    Q_OBJECT

private slots:
    void opensAQuizAndRefusesAnythingElse() {
        // The folder, the file, and for a file that is not sound the error and its reason.
        const std::tuple<QString, QByteArray, int, QString> cases[] = {
            {"Quiz #7 100%, a&mode=ro;b %41 ü 'x", EmptyDatabase(), 0, {}},
            {"side files", fileAfter("PRAGMA journal_mode=WAL"), 0, {}},
            {"more", fileAfter("ALTER TABLE Teams ADD COLUMN Captain"), 0, {}},
            {"empty", {}, 1, "the file is empty. Put back"},
            {"Access", "\0\1\0\0Standard Jet DB\0"_ba + QByteArray(5000, '\0'), 26,
             "this is a file of Microsoft Access, which Rankelo cannot read. Put"},
            {"less", fileAfter("ALTER TABLE Rounds DROP COLUMN MaxScore"), 1,
             "(no such column: MaxScore)"},
            // In an index, which only the check of the whole file sees.
            {"damaged", QByteArray(EmptyDatabase()).replace(8192, 4096, QByteArray(4096, '\xA5')),
             11, "the file is damaged ("},
            {"few", fileAfter("DROP TABLE Teams"), 1, "(no such table: Teams)"},
            {"fewer", fileAfter("DROP TABLE Results"), 1, "(no such table: Results)"},
        };
        for (const auto& [name, file, error, reason] : cases) {
            AppFolder folder(name);
            folder.Open();
            WriteFile(folder.DatabasePath(), file);
            const bool isSound = error == 0;
            QCOMPARE(AppDatabase().OpenDatabase(), isSound);
            const QString report = folder.TakeReports().join(u'\n');
            const QString number = QString("9700 : [%1] ").arg(error);
            QVERIFY2(isSound || (report.startsWith(number) && report.contains(reason)),
                     qPrintable(report));
            QCOMPARE(AppDatabase().ExecuteSQL(Insert), isSound);
            // What was saved is in the one file at once, and on the disk.
            QCOMPARE(folder.Files(), QStringList{"Rankelo.MDB"});
            if (isSound) {
                QVERIFY(RunForeign(folder.DatabasePath(), {"SELECT * FROM Teams"}) ==
                        QStringList{"k"});
                QVERIFY(answer("PRAGMA journal_mode") == u"delete" &&
                        answer("PRAGMA synchronous") == u"3");
            }
            // What is closed stays closed, and a refused file as it was.
            QVERIFY(AppDatabase().CloseDatabase() && !AppDatabase().ExecuteSQL(Insert));
            QVERIFY(folder.TakeReports().last().contains(" : [91] The database is not open ["));
            QVERIFY(isSound || ReadFile(folder.DatabasePath()) == file);
        }
    }

    void aLockedFileIsWaitedForOnce() {
        AppFolder folder;
        folder.Open();
        const QString wait = "PRAGMA busy_timeout";
        QCOMPARE(answer(wait), "1500");
        auto lock = std::make_unique<ForeignLock>(folder.DatabasePath());
        QVERIFY(!AppDatabase().ExecuteSQL(Insert));
        QVERIFY(folder.TakeReports().first().startsWith(u"9700 : [5] "));
        QCOMPARE(answer(wait), "0"); // a screen with many statements would freeze
        QVERIFY(!AppDatabase().OpenDatabase());
        QVERIFY(folder.TakeReports().first().contains(u"another program holds the file"));
        lock.reset();
        folder.Open();
        QTRY_COMPARE(answer(wait), "1500");
        QVERIFY(AppDatabase().ExecuteSQL(Insert));
    }

    void savesResultsAndFindsThem() {
        AppFolder folder;
        folder.Open();
        ResultDAO dao;
        Result result;
        QVERIFY(dao.Save(result) && dao.GetResult(result.ResultID)->Score == 0);
        result = Result(result.ResultID, "r", "O't", -2147483647 - 1, 1);
        QVERIFY(dao.Save(result));
        const auto same = dao.GetResult(result.ResultID);
        QCOMPARE(same->RoundID + same->TeamID, "rO't");
        QVERIFY(same->IsStored && same->Score == result.Score && same->Joker == 1);
        for (const auto& [round, team] : {std::pair("r", "O''t"), {"q", "O''t"}, {"r", "t"}})
            QCOMPARE(dao.GetResultList(round, team)->LastIndex(),
                     *round == 'r' && *team == 'O' ? 0 : -1);
        // Half a character would swallow the closing quote.
        QCOMPARE(AppDatabase().SQLTextField(QString(QChar(0xD83D)) + u'\''), "?''");
        QVERIFY(dao.Delete(result.ResultID) && !dao.Delete(result.ResultID));
        QCOMPARE(folder.TakeReports(), QStringList());
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
                quiz += QString("INSERT INTO Teams VALUES ('%1','%1')").arg(team);
            for (const QString& score : scores.split(u','))
                quiz += QString("INSERT INTO Results VALUES ('%1%2','%2','%1',%3,%4)")
                            .arg(score.section(u' ', 0, 0), score.section(u' ', 1, 1),
                                 score.section(u' ', 2, 2), score.section(u' ', 3));
            RunForeign(folder.DatabasePath(), quiz);
            // While a report is on the screen, another program may write.
            AppLog().ShowError = [&folder, remember = AppLog().ShowError](const QString& text) {
                RunForeign(folder.DatabasePath(), {"DELETE FROM Rounds"});
                remember(text);
            };
            const bool isReported = overall == "nothing"_L1 || scores.contains(u"NULL");
            QCOMPARE(textOf(dao.GetOverallSummary(2)), QLatin1StringView(overall));
            QCOMPARE(folder.TakeReports().isEmpty(), !isReported);
            QCOMPARE(textOf(dao.GetSummaryForRound("r", 2)), round.section(u'/', 0, 0));
            QCOMPARE(folder.TakeReports().isEmpty(), round != u"nothing");
            QCOMPARE(textOf(dao.GetSummaryForRound("r", 1)), round.section(u'/', -1));
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
            reports += report.section(u'[', -1).remove("DAO]") + u' ';
        QCOMPARE(reports.remove("GetRecordSet/DBObject] "),
                 "GetTeamList/Team GetTeam/Team ExecuteSQL/DBObject] GetRound/Round "
                 "GetNextRound/Round GetNextRound/Round GetRoundList/Round GetResultList/Result "
                 "GetResult/Result GetSummaryForRound/Summary GetTeamList/Team "
                 "SortSummaryList/Summary ");
    }
};

QTEST_GUILESS_MAIN(DataTest)
#include "DataTest.moc"
