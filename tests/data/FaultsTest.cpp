#include "FaultyDisk.h"
#include "core/AppPaths.h"
#include "data/DBObject.h"
#include "data/ResultDAO.h"
#include "data/SummaryDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"
#include "support/Soak.h"

#include <QCoreApplication>
#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 Seed = 20260117;
const QString LongName(10000, u'n'); // so long that saving it writes several pages

bool saveTeam(const QString& name) {
    Team team;
    team.TeamName = name;
    return TeamDAO().Save(team);
}

// What another program finds in a file: the first letters of the teams, behind "ok" for a sound
// file.
QString foreignTeams(const QString& path) {
    return RunForeign(path, {u"SELECT * FROM pragma_integrity_check UNION ALL SELECT * FROM "
                             "(SELECT substr(TeamName,1,1) FROM Teams ORDER BY 1)"_s})
        .join(u' ');
}

// The child of the kill test. Every line that it prints was saved before: a key and its score.
int saveUntilKilled(const QString& folder) {
    Paths().AppPath = folder;
    AppDatabase().OpenDatabase();
    for (;;) {
        Result result;
        for (result.Score = 1; result.Score <= 2; ++result.Score) {
            if (!ResultDAO().Save(result))
                return 1;
            std::printf("%s %d\n", qPrintable(result.ResultID), result.Score);
            std::fflush(stdout);
            result.IsStored = true;
        }
    }
}

} // namespace

class FaultsTest : public QObject {
    Q_OBJECT

private slots:
    void killedProgramsLoseNothing() {
        QRandomGenerator random(Seed);
        AppFolder folder;
        QHash<QString, int> confirmed;
        const int kills = SoakCount(20, 300);
        for (int kill = 0; kill < kills; ++kill) {
            QProcess child;
            child.start(QCoreApplication::applicationFilePath(), {u"child"_s, Paths().AppPath});
            QVERIFY(child.waitForReadyRead());
            QTest::qSleep(static_cast<int>(random.bounded(100)));
            child.kill();
            QVERIFY(child.waitForFinished() && child.exitStatus() == QProcess::CrashExit);
            while (child.canReadLine()) {
                const QString line = QString::fromLatin1(child.readLine());
                confirmed[line.section(u' ', 0, 0)] = line.section(u' ', 1).toInt();
            }
            folder.Open(); // without help
            const auto results = ResultDAO().GetResultList({}, {});
            QHash<QString, int> stored;
            for (qint32 i = 0; i <= results->LastIndex(); ++i)
                stored[results->Item(i)->ResultID] = results->Item(i)->Score;
            for (auto result = confirmed.cbegin(); result != confirmed.cend(); ++result)
                QVERIFY2(stored.value(result.key()) >= result.value(), qPrintable(result.key()));
            // The last save before each kill may be in the file without having been confirmed.
            QVERIFY(stored.size() <= confirmed.size() + kill + 1);
            QVERIFY(saveTeam(u"next"_s));
            AppDatabase().CloseDatabase();
            QVERIFY(foreignTeams(folder.DatabasePath()).startsWith(u"ok n"));
            QCOMPARE(folder.Files().size(), 1);
        }
        QVERIFY(confirmed.size() > kills);
        qInfo("%d kills, %d confirmed results, all there", kills, int(confirmed.size()));
    }

    // The plug is pulled before each call of a save; then each call of it fails.
    void everyCallMayFailOrBeTheLast() {
        QList<FaultyDisk::Image> pulled;
        {
            AppFolder folder;
            folder.Open();
            FaultyDisk disk(folder.Path({}));
            QVERIFY(saveTeam(u"a"_s));
            disk.Pulled.clear();
            QVERIFY(saveTeam(LongName));
            pulled = disk.Pulled << disk.OnDisk();
        }
        const auto calls = static_cast<int>(pulled.size() - 1);
        QVERIFY2(calls > 5, "the disk saw no calls");
        for (int call = 0; call <= calls; ++call) {
            const AppFolder folder;
            for (auto file = pulled[call].cbegin(); file != pulled[call].cend(); ++file)
                WriteFile(folder.Path(file.key()), file.value());
            const QString left = foreignTeams(folder.DatabasePath());
            QVERIFY2(left == u"ok a n" || (left == u"ok a" && call < calls), qPrintable(left));
        }
        const std::pair<int, int> faults[] = {{EIO, 1}, {EIO, 99}, {ENOSPC, 99}, {EROFS, 99}};
        for (const auto& [error, times] : faults)
            for (int call = 1; call <= calls; ++call) {
                AppFolder folder;
                folder.Open();
                QVERIFY(saveTeam(u"a"_s));
                bool saved = false;
                {
                    FaultyDisk disk(folder.Path({}));
                    disk.FailAt = call;
                    disk.Times = times;
                    disk.Error = error;
                    saved = saveTeam(LongName);
                }
                const bool isReported = !folder.TakeReports().isEmpty();
                const bool isMended = saveTeam(u"z"_s);
                AppDatabase().CloseDatabase();
                const QString left = foreignTeams(folder.DatabasePath());
                const QString what = u"error %1 from call %2: %3"_s.arg(error).arg(call).arg(left);
                QVERIFY2(saved != isReported && isMended && (call > 1 || !saved), qPrintable(what));
                // A save that failed at its very end may be in the file.
                QVERIFY2(left == u"ok a n z" || (!saved && left == u"ok a z"), qPrintable(what));
                QCOMPARE(folder.Files(), QStringList{u"Rankelo.MDB"_s});
            }
    }

    void aFullDiskIsReportedAndSurvived() {
        AppFolder folder;
        folder.Open();
        rlimit old{};
        getrlimit(RLIMIT_FSIZE, &old);
        std::signal(SIGXFSZ, SIG_IGN);
        QString stored = u"ok"_s;
        for (const rlim_t room : {0, 1000, 20000, 40000, 100000}) {
            const rlimit full{room, old.rlim_max};
            setrlimit(RLIMIT_FSIZE, &full);
            for (int i = 0; i < 20 && saveTeam(LongName); ++i)
                stored += u" n"_s;
            setrlimit(RLIMIT_FSIZE, &old);
            QCOMPARE(folder.TakeReports().size(), 1);
            QVERIFY(saveTeam(LongName));
            stored += u" n"_s;
            QCOMPARE(foreignTeams(folder.DatabasePath()), stored);
        }
    }

    void savesAgainWhenTheFileIsBack() {
        const struct {
            QString breakIt;
            const char* outcomes; // of two saves of "b" then
            QString mendIt;
            const char* stored; // after a save of "c"
        } cases[] = {
            {u"mv Rankelo/Rankelo.MDB ."_s, "1032 53 ", u"mv Rankelo.MDB Rankelo"_s, "ok a c"},
            {u"mv Rankelo stick"_s, "1032 53 ", u"mv stick Rankelo"_s, "ok a c"},
            // A save must not pretend, and none may go to the old file.
            {u"rm Rankelo/*; cp empty Rankelo/Rankelo.MDB"_s, "1032 ok ", u"true"_s, "ok b c"},
            {u"cp empty Rankelo/Rankelo.MDB"_s, "ok ok ", u"true"_s, "ok b b c"},
            {u"rm Rankelo/*; echo no database >Rankelo/Rankelo.MDB"_s, "1032 26 ",
             u"cp empty Rankelo/Rankelo.MDB"_s, "ok c"},
        };
        for (const auto& c : cases) {
            AppFolder folder;
            const QString parent = QDir::cleanPath(folder.Path(u".."_s));
            const auto run = [&](const QString& command) {
                QProcess shell;
                shell.setWorkingDirectory(parent);
                shell.start(u"sh"_s, {u"-ec"_s, command});
                return shell.waitForFinished() && shell.exitCode() == 0;
            };
            WriteFile(parent + u"/empty"_s, EmptyDatabase());
            folder.Open();
            QVERIFY(saveTeam(u"a"_s) && run(c.breakIt));
            QString outcomes;
            for (int i = 0; i < 2; ++i) {
                const bool saved = saveTeam(u"b"_s);
                const QString report = folder.TakeReports().value(0);
                outcomes += saved ? u"ok "_s : report.section(u'[', 1).section(u']', 0, 0) + u' ';
            }
            QCOMPARE(outcomes, QLatin1StringView(c.outcomes));
            QCOMPARE(SummaryDAO().GetOverallSummary(2) != nullptr, outcomes.endsWith(u"ok "));
            QVERIFY(run(c.mendIt) && saveTeam(u"c"_s));
            QCOMPARE(foreignTeams(folder.DatabasePath()), QLatin1StringView(c.stored));
        }
    }

    // A stick that was pulled and put back: the file is whole, what the program held of it is dead.
    void aDeadHandleIsReplaced() {
        AppFolder folder;
        folder.Open();
        QVERIFY(saveTeam(u"a"_s));
        const int dead = open("/", O_RDONLY);
        for (const QString& handle : QDir(u"/proc/self/fd"_s).entryList(QDir::Files))
            if (QFile::symLinkTarget(u"/proc/self/fd/"_s + handle) == folder.DatabasePath())
                dup2(dead, handle.toInt());
        close(dead);
        QVERIFY(!saveTeam(u"b"_s) && saveTeam(u"c"_s));
        QCOMPARE(foreignTeams(folder.DatabasePath()), u"ok a c"_s);
    }

    void noiseInTheFileIsSurvived() {
        QRandomGenerator random(Seed);
        const AppFolder folder;
        const QString path = folder.DatabasePath();
        RunForeign(path,
                   {u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<400) "
                    "INSERT INTO Results SELECT 's'||i,'r'||(i%4),'t'||(i%40),i,i%2 FROM n"_s,
                    u"INSERT INTO Teams SELECT DISTINCT TeamID,TeamID FROM Results"_s});
        const QByteArray sound = ReadFile(path);
        int refused = 0;
        const int cases = SoakCount(300, 10000);
        for (int i = 0; i < cases; ++i) {
            QByteArray noisy = sound;
            for (int place = random.bounded(4); place < 4; ++place) {
                const auto from = random.bounded(sound.size());
                const auto to = i % 3 == 0 ? from + 1 : from + random.bounded(5000);
                for (auto at = from; at < std::min(to, sound.size()); ++at)
                    noisy[at] = static_cast<char>(random.generate());
            }
            // As the program finds it, and under the open connection.
            const bool isFound = i % 2 == 0;
            WriteFile(path, isFound ? noisy : sound);
            const bool opened = AppDatabase().OpenDatabase();
            QVERIFY(opened || isFound);
            refused += opened ? 0 : 1;
            if (!isFound)
                WriteFile(path, noisy);
            for (int again = 0; opened && again < 2; ++again) {
                SummaryDAO().GetOverallSummary(2);
                SummaryDAO().GetSummaryForRound(u"r1"_s, 2);
                ResultDAO().GetResultList({}, u"t1"_s);
                saveTeam(u"noise"_s);
            }
            AppDatabase().ResetDatabase();
            AppDatabase().CloseDatabase();
            QFile::remove(path + u"-journal"_s);
        }
        QVERIFY(refused > cases / 20);
        qInfo("%d noisy files, %d of them refused at once", cases, refused);
    }
};

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == u"child")
        return saveUntilKilled(application.arguments().value(2));
    FaultsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "FaultsTest.moc"
