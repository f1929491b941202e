#include "data/DBObject.h"
#include "data/TeamDAO.h"
#include "support/AppFolder.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Insert = u"INSERT INTO Teams (TeamID,TeamName) VALUES ('k','n')"_s;

// The empty quiz after a change to its tables.
QByteArray fileAfter(const QString& statement) {
    const AppFolder folder;
    RunForeign(folder.DatabasePath(), {statement});
    return ReadFile(folder.DatabasePath());
}

// A quiz of 3,000 teams with noise in the middle; by the counter in front the engine sees that the
// file has changed.
QByteArray damagedFile() {
    return fileAfter(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) "
                     "INSERT INTO Teams SELECT 'key '||i, 'a team with a long name '||i FROM n"_s)
        .replace(24, 4, "\1\1\1\1")
        .replace(40960, 8192, QByteArray(8192, '\xA5'));
}

} // namespace

class DBObjectTest : public QObject {
    Q_OBJECT

private slots:
    void opensAQuizAndRefusesAnythingElse() {
        const struct {
            QString folder;
            QByteArray file;
            int error = 0; // 0 for a sound file
            QString reason = {};
        } cases[] = {
            {u"Quiz #7 100%, a&mode=ro;b %41 ü 'x"_s, EmptyDatabase()},
            {u"side files"_s, fileAfter(u"PRAGMA journal_mode=WAL"_s)},
            {u"more"_s, fileAfter(u"ALTER TABLE Teams ADD COLUMN Captain"_s)},
            {u"empty"_s, {}, 1, u"the file is empty. Put back"_s},
            {u"text"_s, QByteArray(5000, 'x'), 26, u"this is not a quiz database. Put"_s},
            {u"Access"_s, "\0\1\0\0Standard Jet DB\0"_ba, 26, u"a file of Microsoft Access"_s},
            {u"less"_s, fileAfter(u"ALTER TABLE Rounds DROP COLUMN MaxScore"_s), 1,
             u"(no such column: MaxScore)"_s},
            {u"damaged"_s, damagedFile(), 11, u"the file is damaged ("_s},
            {u"few"_s, fileAfter(u"DROP TABLE Teams"_s), 1, u"(no such table: Teams)"_s},
        };
        for (const auto& c : cases) {
            AppFolder folder(c.folder);
            WriteFile(folder.DatabasePath(), c.file);
            const bool isSound = c.error == 0;
            QCOMPARE(AppDatabase().OpenDatabase(), isSound);
            const QString report = folder.TakeReports().join(u'\n');
            QVERIFY2(isSound || report.startsWith(u"9700 : [%1] "_s.arg(c.error)),
                     qPrintable(report));
            QVERIFY2(report.contains(c.reason), qPrintable(report));
            QCOMPARE(AppDatabase().ExecuteSQL(Insert), isSound);
            QVERIFY2(!AppDatabase().ExecuteSQL(Insert), "the same key twice");
            // What was saved is in the one file at once.
            QCOMPARE(folder.Files(), QStringList{u"Rankelo.MDB"_s});
            QVERIFY(isSound ? RunForeign(folder.DatabasePath(), {u"SELECT * FROM Teams"_s}) ==
                                  QStringList{u"k"_s}
                            : ReadFile(folder.DatabasePath()) == c.file);
        }
    }

    void aLockedFileIsWaitedForOnce() {
        AppFolder folder;
        folder.Open();
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
            QVERIFY(!AppDatabase().OpenDatabase());
            QVERIFY(folder.TakeReports().first().contains(u"another program holds the file"));
        }
        folder.Open();
        QVERIFY(AppDatabase().ExecuteSQL(Insert));
    }

    void readsAListWholeOrNotAtAll() {
        const QByteArray damaged = damagedFile();
        AppFolder folder;
        folder.Open();
        QVERIFY(TeamDAO().GetTeamList());
        // As when another file is copied over the open one.
        WriteFile(folder.DatabasePath(), damaged);
        QVERIFY(!TeamDAO().GetTeamList());
        QVERIFY(folder.TakeReports().first().startsWith(u"9700 : [11] "));
    }
};

QTEST_GUILESS_MAIN(DBObjectTest)
#include "DBObjectTest.moc"
