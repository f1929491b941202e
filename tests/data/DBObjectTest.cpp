#include "data/DBObject.h"
#include "support/AppFolder.h"

#include <QRegularExpression>
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

QString answer(const QString& query) {
    return AppDatabase().GetRecordSet(query)->Field(0).toString();
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
            {u"Access"_s, "\0\1\0\0Standard Jet DB\0"_ba + QByteArray(5000, '\0'), 26,
             u"this is a file of Microsoft Access, which Rankelo cannot read. Put"_s},
            {u"less"_s, fileAfter(u"ALTER TABLE Rounds DROP COLUMN MaxScore"_s), 1,
             u"(no such column: MaxScore)"_s},
            // In an index, which only the check of the whole file sees.
            {u"damaged"_s,
             QByteArray(EmptyDatabase()).replace(8192, 4096, QByteArray(4096, '\xA5')), 11,
             u"the file is damaged ("_s},
            {u"few"_s, fileAfter(u"DROP TABLE Teams"_s), 1, u"(no such table: Teams)"_s},
            {u"fewer"_s, fileAfter(u"DROP TABLE Results"_s), 1, u"(no such table: Results)"_s},
        };
        for (const auto& c : cases) {
            AppFolder folder(c.folder);
            folder.Open();
            WriteFile(folder.DatabasePath(), c.file);
            const bool isSound = c.error == 0;
            QCOMPARE(AppDatabase().OpenDatabase(), isSound);
            const QString report = folder.TakeReports().join(u'\n');
            QVERIFY2(isSound || (report.startsWith(u"9700 : [%1] "_s.arg(c.error)) &&
                                 report.contains(c.reason)),
                     qPrintable(report));
            QCOMPARE(AppDatabase().ExecuteSQL(Insert), isSound);
            // What was saved is in the one file at once, and on the disk.
            QCOMPARE(folder.Files(), QStringList{u"Rankelo.MDB"_s});
            if (isSound) {
                QVERIFY(RunForeign(folder.DatabasePath(), {u"SELECT * FROM Teams"_s}) ==
                        QStringList{u"k"_s});
                QVERIFY(answer(u"PRAGMA journal_mode"_s) == u"delete" &&
                        answer(u"PRAGMA synchronous"_s) == u"3");
            }
            // What is closed stays closed, and a refused file as it was.
            QVERIFY(AppDatabase().CloseDatabase() && !AppDatabase().ExecuteSQL(Insert));
            QVERIFY(folder.TakeReports().last().contains(u" : [91] The database is not open ["_s));
            QVERIFY(isSound || ReadFile(folder.DatabasePath()) == c.file);
        }
    }

    void aLockedFileIsWaitedForOnce() {
        AppFolder folder;
        folder.Open();
        const QString wait = u"PRAGMA busy_timeout"_s;
        QCOMPARE(answer(wait), u"1500"_s);
        auto lock = std::make_unique<ForeignLock>(folder.DatabasePath());
        QVERIFY(!AppDatabase().ExecuteSQL(Insert));
        QVERIFY(folder.TakeReports().first().startsWith(u"9700 : [5] "));
        QCOMPARE(answer(wait), u"0"_s); // a screen with many statements would freeze
        QVERIFY(!AppDatabase().OpenDatabase());
        QVERIFY(folder.TakeReports().first().contains(u"another program holds the file"));
        lock.reset();
        folder.Open();
        QTRY_COMPARE(answer(wait), u"1500"_s);
        QVERIFY(AppDatabase().ExecuteSQL(Insert));
    }

    // Each reset leaves a whole copy of the quiz, also two in one minute; none is made of an empty
    // quiz.
    void keepsACopyOfTheQuiz() {
        const AppFolder folder;
        folder.Open();
        QVERIFY(AppDatabase().KeepCopy());
        QCOMPARE(folder.Files(), QStringList(u"Rankelo.MDB"_s));
        RunForeign(folder.DatabasePath(), {u"INSERT INTO Teams VALUES ('k','O''Brien')"_s});
        QVERIFY(AppDatabase().KeepCopy() && AppDatabase().KeepCopy());
        const QStringList copies = folder.Files(u"Earlier quizzes"_s);
        QCOMPARE(copies.size(), 2);
        for (const QString& copy : copies) {
            const QRegularExpression name(uR"(^\d{4}-\d\d-\d\d \d\d\.\d\d( \(2\))?\.MDB$)"_s);
            QVERIFY2(name.match(copy).hasMatch(), qPrintable(copy));
            QCOMPARE(
                RunForeign(
                    folder.Path(u"Earlier quizzes/"_s + copy),
                    {u"SELECT integrity_check || ' ' || TeamName FROM pragma_integrity_check, Teams"_s}),
                QStringList(u"ok O'Brien"_s));
        }
    }
};

QTEST_GUILESS_MAIN(DBObjectTest)
#include "DBObjectTest.moc"
