#include "data/DBObject.h"
#include "data/RoundDAO.h"
#include "data/SummaryDAO.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"

#include <QDebug>
#include <QRegularExpression>
#include <QTest>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace {

/// A disk that fails on demand. It stands between the database engine and the system and counts
/// the engine's calls of one kind: those that read, or those that open a file for writing, write,
/// sync and delete. `Times` calls from call `From` on, the first of which is 1, fail with `Error`.
struct FaultyDisk {
    enum Kind { None, Reads, Writes, Others };
    static constexpr int Always = 999;
    static constexpr int UntilReopened = 1000; ///< as long as the handle of the database is old

    Kind Counted = None;
    int From = 1;
    int Times = 0;
    int Error = 0;
    int Calls = 0;
} Disk;

// Makes a call unless the disk fails it.
template <typename Function, typename... Arguments>
auto Call(const char* name, FaultyDisk::Kind kind, Arguments... arguments) {
    auto* const system = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
    if (kind != Disk.Counted || ++Disk.Calls < Disk.From || Disk.Calls >= Disk.From + Disk.Times)
        return system(arguments...);
    errno = Disk.Error;
    return decltype(system(arguments...))(-1);
}

} // namespace

// The engine's calls find these before the system's own.
extern "C" {

int open64(const char* path, int flags, ...) {
    const auto kind = (flags & O_ACCMODE) == O_RDWR ? FaultyDisk::Writes : FaultyDisk::Others;
    if (Disk.Times == FaultyDisk::UntilReopened && QLatin1StringView(path).endsWith(u".MDB"))
        Disk.Times = 0;
    return Call<int(const char*, int, ...)>("open64", kind, path, flags, mode_t{0600});
}

ssize_t pread64(int file, void* bytes, size_t size, off64_t offset) {
    return Call<decltype(pread64)>("pread64", FaultyDisk::Reads, file, bytes, size, offset);
}

ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
    return Call<decltype(pwrite64)>("pwrite64", FaultyDisk::Writes, file, bytes, size, offset);
}

int fdatasync(int file) {
    return Call<decltype(fdatasync)>("fdatasync", FaultyDisk::Writes, file);
}

int unlink(const char* path) noexcept {
    // A full disk has room for no more, but loses what is on it.
    const auto kind = Disk.Error == ENOSPC ? FaultyDisk::Others : FaultyDisk::Writes;
    return Call<decltype(unlink)>("unlink", kind, path);
}

} // extern "C"

namespace {

const QString LongName(9000, u'n'); // so long that saving it writes several pages

// Three teams with so many results that reading them takes several pages.
const QStringList Quiz{"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<300) "
                       "INSERT INTO Results SELECT 's'||i,'r'||(i%4),'t'||(i%3),1,0 FROM n",
                       "INSERT INTO Teams SELECT DISTINCT TeamID,TeamID FROM Results",
                       "INSERT INTO Rounds VALUES ('r','r',1,1),('q','q',2,1)"};
const QString Right = "shown 100 100 100";

bool saveTeam(const QString& name) {
    Team team;
    team.TeamName = name;
    return TeamDAO().Save(team);
}

// The number of a new round "m"; 0 when it was not saved.
qint32 saveRound() {
    Round round;
    round.RoundName = "m";
    return RoundDAO().Save(round) ? round.RoundNumber : 0;
}

// The scores of the overall standings.
QString standings() {
    const auto list = SummaryDAO().GetOverallSummary(2);
    QString scores = list ? "shown" : "nothing";
    if (list)
        for (const auto& row : *list)
            scores += QString(" %1").arg(row->Score);
    return scores;
}

// What another program finds: the first letters of teams and rounds, behind "ok" for a sound file.
QString foundIn(const QString& file) {
    return RunForeign(file,
                      {"SELECT * FROM pragma_integrity_check UNION ALL SELECT * FROM (SELECT "
                       "substr(TeamName,1,1) FROM Teams UNION ALL SELECT substr(RoundName,1,1) "
                       "FROM Rounds ORDER BY 1)"})
        .join(u' ');
}

} // namespace

class FaultsTest : public QObject {
    Q_OBJECT

private slots:
    // Each call of the standings, of a new round and of a new team fails, once or until the disk
    // is back. What was confirmed is there then, and the standings lock the file only once: the
    // engine looks for changes by others whenever it locks it anew.
    void everyCallMayFail() {
        constexpr int always = FaultyDisk::Always;
        QList<FaultyDisk> faults;
        for (const int times : {1, int{FaultyDisk::UntilReopened}, always}) {
            for (const int error : {EIO, ENXIO, ENODEV})
                faults.append({FaultyDisk::Reads, 1, times, error});
            for (const int error : {EIO, ENOSPC, EROFS})
                faults.append({FaultyDisk::Writes, 1, times, error});
        }
        for (const auto& [kind, first, times, error, none] : faults)
            for (int call = first, isReached = 1; isReached; ++call) {
                AppFolder folder;
                folder.Open();
                // From now on nothing that the engine has read before is of use.
                RunForeign(folder.DatabasePath(), Quiz);
                Disk = {kind, call, times, error};
                const QString shown = standings();
                const qint32 round = saveRound();
                const bool saved = saveTeam(LongName);
                isReached = Disk.Calls >= call;
                Disk = {FaultyDisk::Reads};
                QVERIFY(isReached || (standings().startsWith(Right) && Disk.Calls == 1));
                Disk = {};
                const int failures = (shown != Right) + (round == 0) + !saved;
                const bool isSilent = folder.TakeReports().isEmpty();
                const qint32 next = saveRound();
                const bool isMended = saveTeam("z") && standings().startsWith(Right);
                const QString left = foundIn(folder.DatabasePath());
                const int most = !isReached ? 0 : times == always || error == ENOSPC ? 3 : 1;
                QString what;
                QDebug(&what) << kind << error << times << call << shown << round << next << left;
                QVERIFY2(isMended && (failures == 0) == isSilent && failures <= most &&
                             (shown == Right || shown == u"nothing") &&
                             (round == 3 || round == 0) && (next == 4 || next == round + 3) &&
                             left.startsWith(u"ok ") && (!round || left.contains(u'm')) &&
                             (!saved || left.contains(u'n')),
                         qPrintable(what));
                QCOMPARE(folder.Files(), QStringList{"Rankelo.MDB"});
            }
    }

    // While the disk has no room for a copy of the quiz, there is none, and the quiz is as it was.
    // None is made of an empty quiz, and those of one minute have names of their own.
    void keepsWholeCopies() {
        const QRegularExpression name(R"(^(\d{4}-\d\d-\d\d \d\d\.\d\d( \([23]\))?\.MDB)+$)");
        for (int call = 1, isReached = 1; isReached; ++call) {
            AppFolder folder;
            folder.Open();
            QVERIFY(AppDatabase().KeepCopy() && folder.Files().size() == 1);
            RunForeign(folder.DatabasePath(), Quiz);
            const QByteArray quiz = ReadFile(folder.DatabasePath());
            Disk = {FaultyDisk::Writes, call, FaultyDisk::Always, ENOSPC};
            const bool isKept = AppDatabase().KeepCopy();
            isReached = Disk.Calls >= call;
            Disk = {};
            QVERIFY(isKept != isReached && folder.TakeReports().size() == !isKept);
            QVERIFY(ReadFile(folder.DatabasePath()) == quiz && AppDatabase().KeepCopy() &&
                    AppDatabase().KeepCopy());
            const QStringList copies = folder.Files("Earlier quizzes");
            QCOMPARE(copies.size(), isKept ? 3 : 2);
            QVERIFY2(name.match(copies.join("")).hasMatch(), qPrintable(copies.join("")));
            for (const QString& copy : copies)
                QCOMPARE(foundIn(folder.Path("Earlier quizzes/" + copy)),
                         foundIn(folder.DatabasePath()));
        }
    }

    void worksAgainWhenTheFileIsBack() {
        // What is found in its place, or nothing at all; how three saves of "b" end then; and what
        // is stored when an empty quiz is there again, after a save of "c".
        const std::tuple<QByteArray, const char*, const char*> cases[] = {
            {{}, "1032 53 53 ", "ok c"},
            {QByteArray(9000, 'x'), "1032 26 26 ", "ok c"},
            {EmptyDatabase().first(4096), "1032 11 11 ", "ok c"},
            // A save must not pretend, and none may go to the old file.
            {EmptyDatabase(), "1032 ok ok ", "ok b b c"},
        };
        for (const auto& [found, expected, stored] : cases) {
            AppFolder folder;
            folder.Open();
            QVERIFY(saveTeam("a") && QFile::remove(folder.DatabasePath()));
            if (!found.isEmpty())
                WriteFile(folder.DatabasePath(), found);
            QString outcomes;
            for (int i = 0; i < 3; ++i) {
                const bool saved = saveTeam("b");
                const QString report = folder.TakeReports().value(0);
                outcomes += saved ? "ok " : report.section(u'[', 1).section(u']', 0, 0) + u' ';
                QVERIFY2(report.count(folder.DatabasePath()) <= 1, qPrintable(report));
            }
            QCOMPARE(outcomes, QLatin1StringView(expected));
            if (!outcomes.endsWith(u"ok "))
                WriteFile(folder.DatabasePath(), EmptyDatabase());
            QVERIFY(saveTeam("c"));
            QCOMPARE(foundIn(folder.DatabasePath()), QLatin1StringView(stored));
        }
    }
};

QTEST_GUILESS_MAIN(FaultsTest)
#include "FaultsTest.moc"
