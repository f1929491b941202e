#include "FaultyDisk.h"
#include "data/RoundDAO.h"
#include "data/SummaryDAO.h"
#include "data/TeamDAO.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString LongName(9000, u'n'); // so long that saving it writes several pages

// Three teams with so many results that reading them takes several pages.
const QStringList Quiz{u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<300) "
                       "INSERT INTO Results SELECT 's'||i,'r'||(i%4),'t'||(i%3),1,0 FROM n"_s,
                       u"INSERT INTO Teams SELECT DISTINCT TeamID,TeamID FROM Results"_s,
                       u"INSERT INTO Rounds VALUES ('r','r',1,1),('q','q',2,1)"_s};
const QString Right = u"shown 100 100 100"_s;

bool saveTeam(const QString& name) {
    Team team;
    team.TeamName = name;
    return TeamDAO().Save(team);
}

// The number of a new round "m"; 0 when it was not saved.
qint32 saveRound() {
    Round round;
    round.RoundName = u"m"_s;
    return RoundDAO().Save(round) ? round.RoundNumber : 0;
}

// The scores of the overall standings.
QString standings() {
    const auto list = SummaryDAO().GetOverallSummary(2);
    QString scores = list ? u"shown"_s : u"nothing"_s;
    if (list)
        for (const auto& row : *list)
            scores += u" %1"_s.arg(row->Score);
    return scores;
}

// What another program finds: the first letters of teams and rounds, behind "ok" for a sound file.
QString foundIn(const QString& file) {
    return RunForeign(file,
                      {u"SELECT * FROM pragma_integrity_check UNION ALL SELECT * FROM (SELECT "
                       "substr(TeamName,1,1) FROM Teams UNION ALL SELECT substr(RoundName,1,1) "
                       "FROM Rounds ORDER BY 1)"_s})
        .join(u' ');
}

// The same after the plug was pulled.
QString foundIn(const FaultyDisk::Image& image) {
    const QTemporaryDir folder;
    for (auto file = image.cbegin(); file != image.cend(); ++file)
        WriteFile(folder.filePath(file.key()), file.value());
    return foundIn(folder.filePath(u"Rankelo.MDB"_s));
}

} // namespace

class FaultsTest : public QObject {
    Q_OBJECT

private slots:
    // Each call of the standings, of a new round and of a new team fails, once or until the disk
    // is back. What was confirmed is there then, and also when the plug is pulled instead.
    void everyCallMayFail() {
        using enum FaultyDisk::Kind;
        constexpr int untilReopened = FaultyDisk::UntilReopened;
        constexpr int always = FaultyDisk::Always;
        const std::tuple<FaultyDisk::Kind, int, int> faults[] = {
            {Reads, EIO, 1},
            {Reads, EIO, untilReopened},
            {Reads, EIO, always},
            {Reads, ENXIO, untilReopened},
            {Reads, ENODEV, always},
            {Writes, EIO, 1},
            {Writes, EIO, untilReopened},
            {Writes, EIO, always},
            {Writes, ENOSPC, always},
            {Writes, EROFS, always},
        };
        for (const auto& [kind, error, times] : faults)
            for (int call = 1, isReached = 1; isReached; ++call) {
                AppFolder folder;
                folder.Open();
                // From now on nothing that the engine has read before is of use.
                RunForeign(folder.DatabasePath(), Quiz);
                auto disk = std::make_unique<FaultyDisk>(folder.Path({}), kind, call, times, error);
                const QString shown = standings();
                const qint32 round = saveRound();
                const bool saved = saveTeam(LongName);
                isReached = disk->Calls >= call;
                const FaultyDisk::Image image = disk->OnDisk();
                disk.reset();
                const QString pulled = foundIn(image);
                const int failures = (shown != Right) + (round == 0) + !saved;
                const bool isSilent = folder.TakeReports().isEmpty();
                const qint32 next = saveRound();
                const bool isMended = saveTeam(u"z"_s) && standings().startsWith(Right);
                const QString left = foundIn(folder.DatabasePath());
                QStringList what{shown, pulled, left};
                for (const int number : {int(kind), error, times, call, round, next})
                    what += QString::number(number);
                const int most = !isReached ? 0 : times == always ? 3 : 1;
                QVERIFY2(isMended && (failures == 0) == isSilent && failures <= most &&
                             (shown == Right || shown == u"nothing") &&
                             (round == 3 || round == 0) && (next == 4 || next == round + 3),
                         qPrintable(what.join(u' ')));
                for (const QString& found : {pulled, left})
                    QVERIFY2(found.startsWith(u"ok ") && (!round || found.contains(u'm')) &&
                                 (!saved || found.contains(u'n')),
                             qPrintable(what.join(u' ')));
                QCOMPARE(folder.Files(), QStringList{u"Rankelo.MDB"_s});
            }
    }

    // The engine looks for changes by others whenever it locks the file anew.
    void theStandingsLockTheFileOnce() {
        AppFolder folder;
        RunForeign(folder.DatabasePath(), Quiz);
        folder.Open();
        const FaultyDisk disk(folder.Path({}), FaultyDisk::Reads);
        QCOMPARE(standings(), Right);
        QCOMPARE(disk.Calls, 1);
    }

    void worksAgainWhenTheFileIsBack() {
        const struct {
            QByteArray found;     // in its place, or nothing at all
            const char* outcomes; // of three saves of "b" then
            const char* stored;   // when an empty quiz is there again, after a save of "c"
        } cases[] = {
            {{}, "1032 53 53 ", "ok c"},
            {QByteArray(9000, 'x'), "1032 26 26 ", "ok c"},
            {EmptyDatabase().first(4096), "1032 11 11 ", "ok c"},
            // A save must not pretend, and none may go to the old file.
            {EmptyDatabase(), "1032 ok ok ", "ok b b c"},
        };
        for (const auto& c : cases) {
            AppFolder folder;
            folder.Open();
            QVERIFY(saveTeam(u"a"_s) && QFile::remove(folder.DatabasePath()));
            if (!c.found.isEmpty())
                WriteFile(folder.DatabasePath(), c.found);
            QString outcomes;
            for (int i = 0; i < 3; ++i) {
                const bool saved = saveTeam(u"b"_s);
                const QString report = folder.TakeReports().value(0);
                outcomes += saved ? u"ok "_s : report.section(u'[', 1).section(u']', 0, 0) + u' ';
                QVERIFY2(report.count(folder.DatabasePath()) <= 1, qPrintable(report));
            }
            QCOMPARE(outcomes, QLatin1StringView(c.outcomes));
            if (!outcomes.endsWith(u"ok "))
                WriteFile(folder.DatabasePath(), EmptyDatabase());
            QVERIFY(saveTeam(u"c"_s));
            QCOMPARE(foundIn(folder.DatabasePath()), QLatin1StringView(c.stored));
        }
    }

    void aFileThatMayBeWrittenAgainIs() {
        AppFolder folder;
        {
            const FaultyDisk disk(folder.Path({}), FaultyDisk::Writes, 1, FaultyDisk::Always,
                                  EACCES);
            folder.Open();
        }
        QVERIFY(!saveTeam(u"a"_s) && folder.TakeReports()[0].startsWith(u"9700 : [8] "));
        QVERIFY(saveTeam(u"b"_s));
    }
};

QTEST_GUILESS_MAIN(FaultsTest)
#include "FaultsTest.moc"
