#include "data/DBObject.h"
#include "data/RoundDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"
#include "support/HostileTexts.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <functional>

namespace {

const QString Insert = QStringLiteral("INSERT INTO Teams VALUES ('k','n')");

QString textOfHex(const QString& text) {
    return QStringLiteral("CAST(X'%1' AS TEXT)").arg(QLatin1StringView(text.toUtf8().toHex()));
}

void fillWithTeams(const QString& path) {
    RunForeign(path, {QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n "
                                     "WHERE i<3000) INSERT INTO Teams SELECT 'key '||i, "
                                     "'a team with quite a long name '||i FROM n")});
}

// Overwrites a part of a file with noise.
void damage(const QString& path, qint64 from, int length) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(from));
    QCOMPARE(file.write(QByteArray(length, '\xA5')), length);
}

} // namespace

class DBObjectTest : public QObject {
    Q_OBJECT

private slots:
    void refusesWhatIsNoQuiz();
    void opensEverySoundFile();
    void escapesText();
    void hostileTextsComeBack();
    void hostileTextsOfForeignRows();
    void resetsAndCloses();
    void aLockedFileIsWaitedForOnce();
    void readsAListWholeOrNotAtAll();
    void failuresAreReportedUnderTheirNames();
};

void DBObjectTest::refusesWhatIsNoQuiz() {
    const auto sql = [](const char* statement) {
        return [=](const QString& path) { RunForeign(path, {QString::fromLatin1(statement)}); };
    };
    const struct {
        const char* what;
        std::function<void(const QString&)> spoil;
        int number;
        const char* reason;
    } cases[] = {
        {"missing", [](const QString& path) { QFile::remove(path); }, 53, "file not found"},
        {"a folder",
         [](const QString& path) {
             QFile::remove(path);
             QDir().mkdir(path);
         },
         53, "file not found"},
        {"empty", [](const QString& path) { WriteFile(path, {}); }, 1, "the file is empty. Put"},
        {"a text", [](const QString& path) { WriteFile(path, QByteArray(5000, 'x')); }, 26,
         "this is not a quiz database. Put back"},
        {"a file of Microsoft Access",
         [](const QString& path) {
             WriteFile(path, QByteArray("\0\1\0\0Standard Jet DB", 19).leftJustified(4096, '\0'));
         },
         26, "this is a file of Microsoft Access, which opens only on Windows"},
        {"a missing table", sql("DROP TABLE Rounds"), 1, "(no such table: Rounds)"},
        {"a missing column", sql("ALTER TABLE Results DROP COLUMN Joker"), 1,
         "(no such column: Joker)"},
        {"a foreign database in another mode",
         [](const QString& path) {
             RunForeign(path, {QStringLiteral("DROP TABLE Teams"),
                               QStringLiteral("PRAGMA journal_mode=WAL")});
         },
         1, "(no such table: Teams)"},
        {"cut off",
         [](const QString& path) {
             fillWithTeams(path);
             QVERIFY(QFile::resize(path, QFileInfo(path).size() / 2));
         },
         11, "the file is damaged ("},
        {"damaged",
         [](const QString& path) {
             fillWithTeams(path);
             damage(path, 40960, 8192);
         },
         11, "the file is damaged ("},
    };
    for (const auto& c : cases) {
        AppFolder folder;
        c.spoil(folder.DatabasePath());
        const QStringList files = folder.Files();
        const bool isFile = QFileInfo(folder.DatabasePath()).isFile();
        const QByteArray bytes = isFile ? ReadFile(folder.DatabasePath()) : QByteArray();

        QVERIFY2(!AppDatabase().OpenDatabase(), c.what);
        const QStringList reports = folder.TakeReports();
        const QString start = QStringLiteral("9700 : [%1] %2: ")
                                  .arg(c.number)
                                  .arg(QDir::toNativeSeparators(folder.DatabasePath()));
        QVERIFY2(reports.size() == 1 && reports[0].startsWith(start) &&
                     reports[0].contains(QLatin1StringView(c.reason)) &&
                     reports[0].endsWith(u" [OpenDatabase/DBObject]"),
                 qPrintable(QLatin1StringView(c.what) + u'\n' + reports.join(u'\n')));
        QCOMPARE(folder.Files(), files);
        if (isFile)
            QCOMPARE(ReadFile(folder.DatabasePath()), bytes);
        QVERIFY(!AppDatabase().ExecuteSQL(Insert));
    }
}

void DBObjectTest::opensEverySoundFile() {
    const auto nothing = [](const QString&) {};
    const struct {
        const char* folder;
        std::function<void(const QString&)> prepare;
    } cases[] = {
        {"Rankelo", nothing},
        {"Quiz #7 100%", nothing},
#ifdef Q_OS_WIN // which allows fewer characters in a name
        {"a&mode=ro;b %41 ü 'x", nothing},
#else
        {"a?mode=ro&b %41 ü 'x\"", nothing},
#endif
        {"wal",
         [](const QString& path) {
             RunForeign(path, {QStringLiteral("PRAGMA journal_mode=WAL")});
         }},
        {"more",
         [](const QString& path) {
             RunForeign(path, {QStringLiteral("CREATE TABLE Extra (a)"),
                               QStringLiteral("ALTER TABLE Teams ADD COLUMN Captain")});
         }},
    };
    for (const auto& c : cases) {
        AppFolder folder(QString::fromUtf8(c.folder));
        c.prepare(folder.DatabasePath());
        const QStringList files = folder.Files();
        QVERIFY2(AppDatabase().OpenDatabase(), c.folder);
        QVERIFY(AppDatabase().ExecuteSQL(
            QStringLiteral("INSERT INTO Teams (TeamID,TeamName) VALUES ('k','n')")));
        // What was saved is in the one file at once.
        QCOMPARE(folder.Files(), files);
        QCOMPARE(RunForeign(folder.DatabasePath(), {QStringLiteral("SELECT TeamName FROM Teams")}),
                 QStringList{QStringLiteral("n")});
        QVERIFY(AppDatabase().CloseDatabase());
        QCOMPARE(folder.Files(), files);
        QCOMPARE(folder.TakeReports(), QStringList());
    }
}

void DBObjectTest::escapesText() {
    DBObject& database = AppDatabase();
    QCOMPARE(database.SQLTextField(QStringLiteral("O'Brien's")), QStringLiteral("O''Brien''s"));
    QCOMPARE(database.SQLTextField(QStringLiteral("plain")), QStringLiteral("plain"));
    QCOMPARE(database.SQLTextField(12), QStringLiteral("12"));
    QCOMPARE(database.SQLTextField(QVariant()), QString());
    QCOMPARE(database.SetField(QVariant()), QString());
    QCOMPARE(database.SetField(QVariant(QMetaType(QMetaType::QString))), QString());
    QCOMPARE(database.SetField(-7), QStringLiteral("-7"));
}

void DBObjectTest::hostileTextsComeBack() {
    AppFolder folder;
    folder.Open();
    Team bystander;
    bystander.TeamName = QStringLiteral("bystander");
    QVERIFY(TeamDAO().Save(bystander));
    for (const HostileText& hostile : HostileTexts()) {
        Team team;
        Round round;
        for (bool stored : {false, true}) {
            team.TeamName = round.RoundName = hostile.Text;
            team.IsStored = round.IsStored = stored;
            QVERIFY2(TeamDAO().Save(team) != hostile.IsRefused, hostile.What);
            QVERIFY2(RoundDAO().Save(round) != hostile.IsRefused, hostile.What);
            const QStringList reports = folder.TakeReports();
            QVERIFY2(reports.size() == (hostile.IsRefused ? 2 : 0), hostile.What);
            for (const QString& report : reports)
                QVERIFY2(report.startsWith(u"9700 : [5] A text with a zero character"),
                         qPrintable(report));
            const auto savedTeam = TeamDAO().GetTeam(team.TeamID);
            const auto savedRound = RoundDAO().GetRound(round.RoundID);
            QCOMPARE(!savedTeam, hostile.IsRefused);
            QCOMPARE(!savedRound, hostile.IsRefused);
            if (hostile.IsRefused)
                continue;
            QVERIFY2(savedTeam->TeamName == hostile.Stored, hostile.What);
            QVERIFY2(savedRound->RoundName == hostile.Stored, hostile.What);
        }
        if (!hostile.IsRefused)
            QVERIFY2(TeamDAO().Delete(team.TeamID) && RoundDAO().Delete(round.RoundID),
                     hostile.What);
    }
    const auto teams = TeamDAO().GetTeamList();
    QVERIFY(teams && teams->LastIndex() == 0);
    QCOMPARE(teams->Item(0)->TeamName, QStringLiteral("bystander"));
}

void DBObjectTest::hostileTextsOfForeignRows() {
    AppFolder folder;
    QStringList names;
    for (const HostileText& hostile : HostileTexts()) {
        RunForeign(folder.DatabasePath(), {QStringLiteral("INSERT INTO Teams VALUES ('k%1',%2)")
                                               .arg(names.size())
                                               .arg(textOfHex(hostile.Text))});
        names.append(hostile.IsRefused ? hostile.Text : hostile.Stored);
    }
    RunForeign(folder.DatabasePath(),
               {QStringLiteral("INSERT INTO Teams VALUES ('bytes',X'FF00FE41'),('null',NULL),"
                               "('number',1.5),('cut',CAST(X'C3' AS TEXT))")});
    folder.Open();
    for (qsizetype i = 0; i < names.size(); ++i) {
        const auto team = TeamDAO().GetTeam(QStringLiteral("k%1").arg(i));
        QVERIFY(team);
        QCOMPARE(team->TeamName, names[i]);
    }
    const auto all = TeamDAO().GetTeamList();
    QVERIFY(all);
    QCOMPARE(all->LastIndex(), static_cast<qint32>(names.size()) + 3);
    QCOMPARE(TeamDAO().GetTeam(QStringLiteral("null"))->TeamName, QString());
    QCOMPARE(TeamDAO().GetTeam(QStringLiteral("number"))->TeamName, QStringLiteral("1.5"));
    QCOMPARE(folder.TakeReports(), QStringList());
}

void DBObjectTest::resetsAndCloses() {
    AppFolder folder;
    QVERIFY(AppDatabase().CloseDatabase());
    folder.Open();
    QVERIFY(AppDatabase().ResetDatabase());
    RunForeign(folder.DatabasePath(),
               {Insert, QStringLiteral("INSERT INTO Rounds VALUES ('r','n',1,10)"),
                QStringLiteral("INSERT INTO Results VALUES ('s','r','k',1,0)")});
    QVERIFY(AppDatabase().ResetDatabase());
    const QString count =
        QStringLiteral("SELECT (SELECT count(*) FROM Teams)+(SELECT count(*) FROM "
                       "Rounds)+(SELECT count(*) FROM Results)");
    QCOMPARE(RunForeign(folder.DatabasePath(), {count}), QStringList{QStringLiteral("0")});
    // Results go first, and a failure stops the rest.
    RunForeign(folder.DatabasePath(),
               {Insert, QStringLiteral("INSERT INTO Results VALUES ('s','r','k',1,0)"),
                QStringLiteral("DROP TABLE Rounds")});
    QVERIFY(!AppDatabase().ResetDatabase());
    QCOMPARE(RunForeign(folder.DatabasePath(),
                        {QStringLiteral("SELECT count(*) FROM Results UNION ALL SELECT count(*) "
                                        "FROM Teams")}),
             (QStringList{QStringLiteral("0"), QStringLiteral("1")}));
    QVERIFY(AppDatabase().CloseDatabase());
    QVERIFY(AppDatabase().CloseDatabase());
    QVERIFY(!AppDatabase().ExecuteSQL(Insert));
}

void DBObjectTest::aLockedFileIsWaitedForOnce() {
    AppFolder folder;
    const QByteArray before = ReadFile(folder.DatabasePath());
    {
        const ForeignLock lock(folder.DatabasePath());
        QVERIFY(!AppDatabase().OpenDatabase());
        QVERIFY(folder.TakeReports().join(u'\n').contains(u"another program holds the file"));
    }
    QCOMPARE(ReadFile(folder.DatabasePath()), before);
    folder.Open();
    QTest::qWait(1100); // the next wait is a full one again
    {
        const ForeignLock lock(folder.DatabasePath());
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!AppDatabase().ExecuteSQL(Insert));
        const qint64 first = timer.restart();
        for (int i = 0; i < 50; ++i) {
            QVERIFY(!AppDatabase().ExecuteSQL(Insert));
            QVERIFY(!TeamDAO().GetTeamList());
        }
        QVERIFY2(timer.elapsed() < first, "a screen with many statements would freeze");
        QVERIFY(folder.TakeReports().first().startsWith(u"9700 : [5] "));
    }
    QVERIFY(AppDatabase().ExecuteSQL(Insert));
    QCOMPARE(TeamDAO().GetTeamList()->LastIndex(), 0);
}

void DBObjectTest::readsAListWholeOrNotAtAll() {
    AppFolder folder;
    fillWithTeams(folder.DatabasePath());
    folder.Open();
    QCOMPARE(TeamDAO().GetTeamList()->LastIndex(), 2999);
    // The file changes under the open connection, as when somebody copies another one over it.
    damage(folder.DatabasePath(), 40960, 8192);
    damage(folder.DatabasePath(), 24, 4); // the counter by which the engine sees the change
    QVERIFY(!TeamDAO().GetTeamList());
    const QStringList reports = folder.TakeReports();
    QVERIFY2(reports.size() <= 2 && reports.first().startsWith(u"9700 : [11] "),
             qPrintable(reports.join(u'\n')));
}

void DBObjectTest::failuresAreReportedUnderTheirNames() {
    AppFolder folder;
    DBObject& database = AppDatabase();
    QVERIFY(!database.ExecuteSQL(Insert));
    QVERIFY(!database.GetRecordSet(Insert));
    QVERIFY(!database.ResetDatabase());
    folder.Open();
    QVERIFY(!database.ExecuteSQL(QStringLiteral("INSERT INTO Nowhere VALUES (1)")));
    QVERIFY(!database.ExecuteSQL(Insert + u';' + Insert));
    QVERIFY(database.ExecuteSQL(Insert));
    QVERIFY(!database.ExecuteSQL(Insert));
    const QStringList reports = folder.TakeReports();
    const char* const expected[] = {
        "[91] The database is not open [ExecuteSQL/DBObject]",
        "[91] The database is not open [GetRecordSet/DBObject]",
        "[91] The database is not open [ExecuteSQL/DBObject]",
        "[1] no such table: Nowhere [ExecuteSQL/DBObject]",
        "[ExecuteSQL/DBObject]",
        "UNIQUE constraint failed: Teams.TeamID [ExecuteSQL/DBObject]",
    };
    QCOMPARE(static_cast<std::size_t>(reports.size()), std::size(expected));
    for (qsizetype i = 0; i < reports.size(); ++i)
        QVERIFY2(reports[i].endsWith(QLatin1StringView(expected[i])), qPrintable(reports[i]));
}

QTEST_GUILESS_MAIN(DBObjectTest)
#include "DBObjectTest.moc"
