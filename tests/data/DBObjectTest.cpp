#include "data/DBObject.h"
#include "data/RoundDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"
#include "support/HostileTexts.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString Insert = u"INSERT INTO Teams (TeamID,TeamName) VALUES ('k','n')"_s;

void fillWithTeams(const QString& path) {
    RunForeign(path,
               {u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) "
                "INSERT INTO Teams SELECT 'key '||i, 'a team with a long name '||i FROM n"_s});
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
    void hostileTextsComeBack();
    void resetsResultsFirst();
    void aLockedFileIsWaitedForOnce();
    void readsAListWholeOrNotAtAll();
};

void DBObjectTest::refusesWhatIsNoQuiz() {
    const QByteArray access = "\0\1\0\0Standard Jet DB"_ba.leftJustified(4096, '\0');
    const auto sql = [](const QStringList& statements) {
        return [=](const QString& path) { RunForeign(path, statements); };
    };
    const struct {
        std::function<void(const QString&)> spoil;
        int number;
        const char* reason;
    } cases[] = {
        {[](const QString& path) { QFile::remove(path); }, 53, "file not found"},
        {[](const QString& path) { WriteFile(path, {}); }, 1, "the file is empty. Put"},
        {[](const QString& path) { WriteFile(path, QByteArray(5000, 'x')); }, 26,
         "this is not a quiz database. Put back"},
        {[&](const QString& path) { WriteFile(path, access); }, 26,
         "this is a file of Microsoft Access, which opens only on Windows"},
        {sql({u"ALTER TABLE Rounds DROP COLUMN MaxScore"_s}), 1, "(no such column: MaxScore)"},
        {sql({u"DROP TABLE Teams"_s, u"PRAGMA journal_mode=WAL"_s}), 1, "(no such table: Teams)"},
        {[](const QString& path) {
             fillWithTeams(path);
             damage(path, 40960, 8192);
         },
         11, "the file is damaged ("},
    };
    for (const auto& c : cases) {
        AppFolder folder;
        const QString path = folder.DatabasePath();
        c.spoil(path);
        const QStringList files = folder.Files();
        const QByteArray bytes = files.isEmpty() ? QByteArray() : ReadFile(path);
        QVERIFY2(!AppDatabase().OpenDatabase(), c.reason);
        const QString report = folder.TakeReports().join(u'\n');
        QVERIFY2(report.startsWith(u"9700 : [%1] "_s.arg(c.number)) &&
                     report.contains(QLatin1StringView(c.reason)),
                 qPrintable(report));
        QCOMPARE(folder.Files(), files);
        QVERIFY(files.isEmpty() || ReadFile(path) == bytes);
        QVERIFY(!AppDatabase().ExecuteSQL(Insert));
    }
}

void DBObjectTest::opensEverySoundFile() {
    const std::pair<QString, QStringList> cases[] = {
        {u"Quiz #7 100%, a&mode=ro;b %41 ü 'x"_s, {u"SELECT 1"_s}},
        {u"wal"_s, {u"PRAGMA journal_mode=WAL"_s}},
        {u"more"_s, {u"CREATE TABLE Extra (a)"_s, u"ALTER TABLE Teams ADD COLUMN Captain"_s}},
    };
    for (const auto& [name, statements] : cases) {
        AppFolder folder(name);
        RunForeign(folder.DatabasePath(), statements);
        folder.Open();
        QVERIFY(AppDatabase().ExecuteSQL(Insert));
        QVERIFY2(!AppDatabase().ExecuteSQL(Insert), "the same key twice");
        // What was saved is in the one file at once.
        QCOMPARE(folder.Files(), QStringList{u"Rankelo.MDB"_s});
        QCOMPARE(RunForeign(folder.DatabasePath(), {u"SELECT TeamName FROM Teams"_s}),
                 QStringList{u"n"_s});
    }
}

void DBObjectTest::hostileTextsComeBack() {
    AppFolder folder;
    folder.Open();
    QVERIFY(AppDatabase().ExecuteSQL(Insert));
    for (const HostileText& hostile : HostileTexts()) {
        Team team;
        Round round;
        for (const bool stored : {false, true}) {
            team.TeamName = round.RoundName = hostile.Text;
            team.IsStored = round.IsStored = stored;
            QVERIFY2(TeamDAO().Save(team) != hostile.IsRefused, hostile.What);
            QVERIFY2(RoundDAO().Save(round) != hostile.IsRefused, hostile.What);
            QCOMPARE(folder.TakeReports().size(), hostile.IsRefused ? 2 : 0);
            const auto savedTeam = TeamDAO().GetTeam(team.TeamID);
            const auto savedRound = RoundDAO().GetRound(round.RoundID);
            QCOMPARE(!savedTeam && !savedRound, hostile.IsRefused);
            QVERIFY2(hostile.IsRefused || (savedTeam->TeamName == hostile.Stored &&
                                           savedRound->RoundName == hostile.Stored),
                     hostile.What);
        }
        TeamDAO().Delete(team.TeamID);
        QCOMPARE(TeamDAO().GetTeamList()->LastIndex(), 0); // the bystander

        // The same as another program stores it.
        const QString hex = QString::fromLatin1(hostile.Text.toUtf8().toHex());
        RunForeign(folder.DatabasePath(),
                   {u"UPDATE Teams SET TeamName=CAST(X'%1' AS TEXT)"_s.arg(hex)});
        QCOMPARE(TeamDAO().GetTeam(u"k"_s)->TeamName,
                 hostile.IsRefused ? hostile.Text : hostile.Stored);
    }
}

void DBObjectTest::resetsResultsFirst() {
    AppFolder folder;
    folder.Open();
    // Without the table of the rounds the reset stops after the results.
    for (const QString& last : {u"SELECT 1"_s, u"DROP TABLE Rounds"_s}) {
        const bool isWhole = last == u"SELECT 1";
        RunForeign(folder.DatabasePath(),
                   {Insert, u"INSERT INTO Rounds VALUES ('r','n',1,10)"_s,
                    u"INSERT INTO Results VALUES ('s','r','k',1,0)"_s, last});
        QCOMPARE(AppDatabase().ResetDatabase(), isWhole);
        const QString left = u"SELECT TeamID FROM Teams UNION ALL SELECT ResultID FROM Results"_s;
        QCOMPARE(RunForeign(folder.DatabasePath(), {left}),
                 isWhole ? QStringList() : QStringList{u"k"_s});
        QVERIFY(!isWhole || RoundDAO().GetNextRound() == 1);
    }
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
        for (int i = 0; i < 50; ++i)
            QVERIFY(!AppDatabase().ExecuteSQL(Insert) && !TeamDAO().GetTeamList());
        QVERIFY2(timer.elapsed() < first, "a screen with many statements would freeze");
        QVERIFY(folder.TakeReports().first().startsWith(u"9700 : [5] "));
    }
    QVERIFY(AppDatabase().ExecuteSQL(Insert));
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
    QVERIFY(folder.TakeReports().first().startsWith(u"9700 : [11] "));
}

QTEST_GUILESS_MAIN(DBObjectTest)
#include "DBObjectTest.moc"
