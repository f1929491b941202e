#include "FaultyDisk.h"
#include "core/AppValues.h"
#include "data/DBObject.h"
#include "data/ResultDAO.h"
#include "data/SummaryDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"
#include "support/Soak.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

namespace {

constexpr quint32 Seed = 20260117;
const QString LongName(10000, u'n'); // so long that saving it writes several pages
const QString SaveUntilKilled = QStringLiteral("--save-until-killed");

bool saveTeam(const QString& name) {
    Team team;
    team.TeamName = name;
    return TeamDAO().Save(team);
}

// The names of the teams, or "nothing".
QString teams() {
    const auto list = TeamDAO().GetTeamList();
    QStringList names;
    for (qint32 i = 0; list && i <= list->LastIndex(); ++i)
        names.append(list->Item(i)->TeamName.left(10));
    return list ? names.join(u' ') : QStringLiteral("nothing");
}

// What another program finds in a file: the names, behind "ok" for a sound file.
QString foreignTeams(const QString& path) {
    return (RunForeign(path, {QStringLiteral("PRAGMA integrity_check")}) +
            RunForeign(path,
                       {QStringLiteral("SELECT substr(TeamName,1,10) FROM Teams ORDER BY 1")}))
        .join(u' ');
}

QString foreignTeams(const FaultyDisk::Image& image) {
    QTemporaryDir folder;
    for (auto file = image.cbegin(); file != image.cend(); ++file)
        WriteFile(folder.filePath(file.key()), file.value());
    return foreignTeams(folder.filePath(QStringLiteral("Rankelo.MDB")));
}

// The child of the kill test. Every line that it prints was saved before: a key and its score.
int saveUntilKilled(const QString& folder) {
    App().AppPath = folder;
    if (!AppDatabase().OpenDatabase())
        return 1;
    ResultDAO dao;
    for (int i = 1;; ++i) {
        Result result;
        result.TeamID = QStringLiteral("t");
        for (const bool stored : {false, true}) {
            result.IsStored = stored;
            result.Score = stored ? 2 * i : i;
            if (!dao.Save(result))
                return 1;
            std::printf("%s %d\n", qPrintable(result.ResultID), result.Score);
            std::fflush(stdout);
        }
    }
}

} // namespace

class FaultsTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { FaultyDisk::Unwatch(); }

    void killedProgramsLoseNothing();
    void aPulledPlugLosesNothing();
    void everyFailingCallIsReportedAndSurvived();
    void aFullDiskIsReportedAndSurvived();
    void savesAgainWhenTheFileIsBack();
    void noiseInTheFileIsSurvived();
};

void FaultsTest::killedProgramsLoseNothing() {
    QRandomGenerator random(Seed);
    AppFolder folder;
    QHash<QString, int> confirmed;
    const int kills = SoakCount(20, 300);
    for (int kill = 0; kill < kills; ++kill) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {SaveUntilKilled, App().AppPath});
        QVERIFY(child.waitForReadyRead());
        QTest::qSleep(static_cast<int>(random.bounded(100)));
        child.kill();
        child.waitForFinished();
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        QByteArrayList lines = child.readAllStandardOutput().split('\n');
        lines.removeLast(); // half a line, or nothing
        for (const QByteArray& line : std::as_const(lines)) {
            const QByteArrayList words = line.split(' ');
            confirmed[QString::fromLatin1(words[0])] = words[1].toInt();
        }
        // The next start needs no help.
        folder.Open();
        const auto results = ResultDAO().GetResultList({}, {});
        QVERIFY(results);
        QHash<QString, int> stored;
        for (qint32 i = 0; i <= results->LastIndex(); ++i)
            stored[results->Item(i)->ResultID] = results->Item(i)->Score;
        // The last save may be in the file without having been confirmed.
        QVERIFY(stored.size() - confirmed.size() <= kill + 1);
        for (auto result = confirmed.cbegin(); result != confirmed.cend(); ++result)
            QVERIFY2(stored.value(result.key()) >= result.value(), qPrintable(result.key()));
        QVERIFY(saveTeam(QStringLiteral("next")));
        AppDatabase().CloseDatabase();
        QVERIFY(foreignTeams(folder.DatabasePath()).startsWith(u"ok"));
        QCOMPARE(folder.Files(), QStringList{QStringLiteral("Rankelo.MDB")});
    }
    QVERIFY(confirmed.size() > kills);
    qInfo("%d kills, %lld confirmed results, all there", kills,
          static_cast<long long>(confirmed.size()));
}

void FaultsTest::aPulledPlugLosesNothing() {
    AppFolder folder;
    FaultyDisk::Watch(folder.Path({}).chopped(1));
    folder.Open();
    QString confirmed = QStringLiteral("ok");
    int call = 1;
    for (;; ++call) {
        FaultyDisk::CutAt(call);
        const QString name = u't' + QString::number(100 + call);
        QVERIFY(saveTeam(name + LongName));
        const QString before = confirmed;
        confirmed += u' ' + (name + LongName).left(10);
        const auto cut = FaultyDisk::Cut();
        QCOMPARE(foreignTeams(FaultyDisk::OnDisk()), confirmed);
        if (!cut)
            break;
        const QString left = foreignTeams(*cut);
        QVERIFY2(left == before || left == confirmed, qPrintable(left));
    }
    QVERIFY2(call > 5, "the disk saw no calls");
}

void FaultsTest::everyFailingCallIsReportedAndSurvived() {
    for (const int error : {EIO, ENOSPC, EROFS})
        for (const int times : {1, 1000}) {
            int call = 1;
            for (bool hasFailed = true; hasFailed; ++call) {
                AppFolder folder;
                FaultyDisk::Watch(folder.Path({}).chopped(1));
                folder.Open();
                QVERIFY(saveTeam(QStringLiteral("a")));
                FaultyDisk::FailAt(call, error, times);
                const bool saved = saveTeam(LongName);
                const bool reported = !folder.TakeReports().isEmpty();
                hasFailed = FaultyDisk::Repair();
                const QString what =
                    QStringLiteral("call %1, error %2, %3 times").arg(call).arg(error).arg(times);
                QVERIFY2(reported != saved && (saved || hasFailed), qPrintable(what));

                const QString left = teams();
                const QString stored = QStringLiteral("a ") + LongName.left(10);
                QVERIFY2(left == stored || (!saved && left == u"a"), qPrintable(what + left));
                QVERIFY2(saveTeam(QStringLiteral("z")), qPrintable(what));
                AppDatabase().CloseDatabase();
                QCOMPARE(foreignTeams(folder.DatabasePath()),
                         QStringLiteral("ok ") + left + QStringLiteral(" z"));
                QCOMPARE(folder.Files(), QStringList{QStringLiteral("Rankelo.MDB")});
            }
            QVERIFY2(call > 5, "the disk saw no calls");
        }
}

void FaultsTest::aFullDiskIsReportedAndSurvived() {
    AppFolder folder;
    folder.Open();
    QVERIFY(saveTeam(QStringLiteral("a")));
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const rlim_t room : {0, 100, 1000, 20000, 40000, 45000}) {
        const rlimit full{room, old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
        int saved = 0;
        while (saved < 20 && saveTeam(QStringLiteral("b") + LongName))
            ++saved;
        setrlimit(RLIMIT_FSIZE, &old);
        QVERIFY(saved < 20);
        QVERIFY(!folder.TakeReports().isEmpty());
        QCOMPARE(teams().count(u'b'), saved);
        QVERIFY(
            AppDatabase().ExecuteSQL(QStringLiteral("DELETE FROM Teams WHERE TeamName LIKE 'b%'")));
        QCOMPARE(foreignTeams(folder.DatabasePath()), QStringLiteral("ok a"));
    }
}

void FaultsTest::savesAgainWhenTheFileIsBack() {
    AppFolder folder;
    const QString path = folder.DatabasePath();
    const QString aside = folder.Path(QStringLiteral("aside"));
    const auto putNewFile = [&](const QString& name) { WriteFile(name, EmptyDatabase()); };
    folder.Open();
    QVERIFY(saveTeam(QStringLiteral("a")));

    // Moved away, and later back.
    QVERIFY(QFile::rename(path, aside));
    QVERIFY(!saveTeam(QStringLiteral("b")));
    QVERIFY(folder.TakeReports().first().startsWith(u"9700 : [1032] "));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(!saveTeam(QStringLiteral("b")));
        QCOMPARE(teams(), QStringLiteral("nothing"));
        QVERIFY(!SummaryDAO().GetOverallSummary(2));
        QVERIFY(folder.TakeReports().first().startsWith(u"9700 : [53] "));
    }
    QVERIFY(QFile::rename(aside, path));
    QVERIFY(saveTeam(QStringLiteral("c")));
    QCOMPARE(teams(), QStringLiteral("a c"));

    // Replaced while running: the first save must not pretend, and none may go to the old file.
    putNewFile(aside);
    QVERIFY(QFile::remove(path) && QFile::rename(aside, path));
    QVERIFY(!saveTeam(QStringLiteral("d")));
    QVERIFY(saveTeam(QStringLiteral("e")));
    QCOMPARE(teams(), QStringLiteral("e"));
    QCOMPARE(foreignTeams(path), QStringLiteral("ok e"));

    // Removed with its folder, as when a stick is pulled out.
    QVERIFY(QDir(folder.Path({})).removeRecursively());
    QVERIFY(!saveTeam(QStringLiteral("f")));
    QVERIFY(!saveTeam(QStringLiteral("f")));
    QVERIFY(QDir().mkdir(folder.Path({})));
    putNewFile(path);
    QVERIFY(saveTeam(QStringLiteral("g")));
    QCOMPARE(foreignTeams(path), QStringLiteral("ok g"));

    // A bad file is refused until a good one is there.
    QVERIFY(QFile::remove(path));
    WriteFile(path, "no database");
    QVERIFY(!saveTeam(QStringLiteral("h")));
    QVERIFY(!saveTeam(QStringLiteral("h")));
    QVERIFY(folder.TakeReports().last().startsWith(u"9700 : [26] "));
    QCOMPARE(ReadFile(path), QByteArray("no database"));
    putNewFile(path);
    QVERIFY(saveTeam(QStringLiteral("i")));

    // Overwritten in place.
    WriteFile(path, EmptyDatabase());
    QCOMPARE(teams(), QString());
    QVERIFY(saveTeam(QStringLiteral("j")));
    QCOMPARE(foreignTeams(path), QStringLiteral("ok j"));
}

void FaultsTest::noiseInTheFileIsSurvived() {
    QRandomGenerator random(Seed);
    AppFolder folder;
    RunForeign(folder.DatabasePath(),
               {QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE "
                               "i<400) INSERT INTO Results SELECT 's'||i,'r'||(i%4),'t'||(i%40),"
                               "i,i%2 FROM n"),
                QStringLiteral("INSERT INTO Teams SELECT DISTINCT TeamID,TeamID FROM Results"),
                QStringLiteral("INSERT INTO Rounds SELECT DISTINCT RoundID,RoundID,1,9 FROM "
                               "Results")});
    const QByteArray sound = ReadFile(folder.DatabasePath());
    const auto useEverything = [] {
        for (const char* key : {"t1", "r1"}) {
            SummaryDAO().GetOverallSummary(2);
            SummaryDAO().GetSummaryForRound(QString::fromLatin1(key), 2);
            ResultDAO().GetResultList({}, QString::fromLatin1(key));
            saveTeam(QStringLiteral("noise"));
        }
        AppDatabase().ResetDatabase();
    };
    int refused = 0;
    const int cases = SoakCount(300, 10000);
    for (int i = 0; i < cases; ++i) {
        QByteArray noisy = sound;
        // From a single byte to whole pages.
        const int places = 1 + static_cast<int>(random.bounded(4));
        for (int place = 0; place < places; ++place) {
            const auto from = static_cast<qsizetype>(random.bounded(sound.size()));
            const qsizetype length = i % 3 == 0 ? 1 : static_cast<qsizetype>(random.bounded(5000));
            for (qsizetype at = from; at < std::min(from + length, sound.size()); ++at)
                noisy[at] = static_cast<char>(random.generate());
        }
        WriteFile(folder.DatabasePath(), i % 2 == 0 ? noisy : sound);
        const bool opened = AppDatabase().OpenDatabase();
        QVERIFY(opened || i % 2 == 0);
        if (i % 2 != 0)
            WriteFile(folder.DatabasePath(), noisy); // under the open connection
        if (opened)
            useEverything();
        else
            ++refused;
        AppDatabase().CloseDatabase();
        QFile::remove(folder.DatabasePath() + QStringLiteral("-journal"));
        folder.TakeReports();
    }
    QVERIFY(refused > cases / 20);
    qInfo("%d noisy files, %d of them refused at once", cases, refused);
}

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (const QStringList words = application.arguments(); words.value(1) == SaveUntilKilled)
        return saveUntilKilled(words.value(2));
    FaultsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "FaultsTest.moc"
