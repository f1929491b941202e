#include "core/Logging.h"
#include "core/AppValues.h"
#include "core/Session.h"
#include "support/AppFolder.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

class LoggingTest : public QObject {
    Q_OBJECT

private slots:
    void theLevelDecidesWhatIsWritten();
    void writesOneHeaderInEachLayout();
    void showsAnErrorOnlyInDebugMode();

private:
    static void report(Logging& log) {
        log.ProgramError(53, u"File \"x\", not found"_s, u"SaveTheTeamOfTheBestTable"_s,
                         u"TeamDAO"_s);
    }
    static QString contents(const AppFolder& folder) {
        return QString::fromUtf8(ReadFile(folder.Path(u"ISApplication.Log"_s)));
    }
};

void LoggingTest::theLevelDecidesWhatIsWritten() {
    const AppFolder folder;
    Logging log;
    log.SetLogPath(u' ' + App().TempPath.chopped(1));
    report(log);
    log.DebugLevel = 31;
    QVERIFY(!log.Record(32, 1099, u"bye"_s, {}, {}));
    QCOMPARE(folder.Files(), QStringList{u"Rankelo.MDB"_s});
    log.DebugLevel = 32;
    QVERIFY(log.Record(32, 1099, u"bye"_s, {}, {}));
    QVERIFY(contents(folder).endsWith(u"bye\r\n"));
    QCOMPARE(log.MessageNumber(), 9700); // a quiet message does not hide the last error
    QCOMPARE(log.Description(), u"[53] File \"x\", not found"_s);
    log.SetLogPath(folder.Path(u"missing"_s));
    QVERIFY(!log.Record(1, 1, {}, {}, {})); // and a lost one makes no new error
}

void LoggingTest::writesOneHeaderInEachLayout() {
    const QString date = u"\\d\\d/.+/\\d{4} \\d\\d:\\d\\d:\\d\\d"_s;
    const QString machine = QRegularExpression::escape(AppSession().MachineName);
    const QString session = AppSession().SessionID;
    const struct {
        qint32 destination;
        QString header, record;
    } cases[] = {
        // A field that is too long is cut, and shifts the rest of its line by a blank.
        {1,
         u"Type Data/Time             Component      Version Msg Number     Function            "
         "Object              Session                       Username       Machine Name   "
         "Description\r\n"_s +
             QString(100, u'-') + u"\r\n"_s,
         u"4    %1 +1\\.0\\.0   9700           SaveTheTeamOfTheBest TeamDAO             "
         "%2 {19}%3 +\\[53\\] File \"x\", not found\r\n"_s},
        {2,
         u"Type,Data/Time,Component,Version,Message Number,Function,Object,Session,Username,"
         "MachineName,Description\r\n"_s,
         u"4,%1,LoggingTest,1\\.0\\.0,9700,SaveTheTeamOfTheBestTable,TeamDAO,%2,,%3,"
         "\"\\[53\\] File \"x\", not found\"\r\n"_s},
    };
    for (const auto& c : cases) {
        const AppFolder folder;
        Logging log;
        log.SetLogPath(App().TempPath);
        log.DebugLevel = 4;
        log.LogDestination = c.destination;
        report(log);
        report(log);
        const QString text = contents(folder);
        QVERIFY2(text.startsWith(c.header), qPrintable(text));
        const QRegularExpression records(
            u"\\A(%1){2}\\z"_s.arg(c.record.arg(date, session, machine)));
        QVERIFY2(records.match(text.mid(c.header.size())).hasMatch(), qPrintable(text));
    }
}

void LoggingTest::showsAnErrorOnlyInDebugMode() {
    AppFolder folder;
    Logging log;
    for (const QString& mode : {u"1"_s, u"01"_s, u"true"_s, u""_s, u"0"_s}) {
        App().DebugMode = mode;
        report(log);
        const QString shown = folder.TakeReports().join(u'\n');
        QVERIFY(mode == u"1" ? shown.startsWith(u"9700 : [53] File \"x\", not found [SaveThe")
                             : shown.isEmpty());
    }
}

QTEST_GUILESS_MAIN(LoggingTest)
#include "LoggingTest.moc"
