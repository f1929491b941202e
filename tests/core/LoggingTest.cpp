#include "core/Logging.h"
#include "core/AppPaths.h"
#include "core/Session.h"
#include "support/AppFolder.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

bool report(Logging& log) {
    return log.ProgramError(53, u"\"x\", not found"_s, u"SaveTheTeamOfTheBestTable"_s,
                            u"TeamDAO"_s);
}

} // namespace

class LoggingTest : public QObject {
    Q_OBJECT

private slots:
    void theLevelDecidesWhatIsWritten() {
        AppFolder folder;
        Logging log;
        log.SetLogPath(u' ' + Paths().TempPath.chopped(1));
        log.DebugLevel = 31;
        QVERIFY(!log.Record(32, 1099, u"bye"_s, {}, {}) && folder.Files().size() == 1);
        log.DebugLevel = 32;
        QString shown; // an error is offered to whoever shows it, written or not
        log.ShowError = [&](const QString& text) { shown = text; };
        QVERIFY(report(log));
        QCOMPARE(shown, u"9700 : [53] \"x\", not found [SaveTheTeamOfTheBestTable/TeamDAO]"_s);
        QVERIFY(log.Record(32, 1099, u"bye"_s, {}, {}));
        QVERIFY(ReadFile(folder.Path(u"ISApplication.Log"_s)).endsWith("bye\r\n"));
        QCOMPARE(log.MessageNumber(), 9700); // a quiet message does not hide the last error
        log.SetLogPath(folder.Path(u"missing"_s));
        QVERIFY(!log.Record(1, 1, {}, {}, {})); // and a lost one makes no new error
    }

    void writesOneHeaderInEachLayout() {
        // Each layout's header, and the pattern of a record. A field that is too long is cut, and
        // shifts the rest of its line by a blank.
        const std::pair<QString, QString> layouts[] = {
            {u"Type Data/Time             Component      Version Msg Number     Function           "
             u" "
             "Object              Session                       Username       Machine Name   "
             "Description\r\n"_s +
                 QString(100, u'-') + u"\r\n"_s,
             u"4    %1 +1\\.0\\.0   9700           SaveTheTeamOfTheBest TeamDAO             "
             "%2 {19}%3 +\\[53\\] \"x\", not found\r\n"_s},
            {u"Type,Data/Time,Component,Version,Message Number,Function,Object,Session,Username,"
             "MachineName,Description\r\n"_s,
             u"4,%1,LoggingTest,1\\.0\\.0,9700,SaveTheTeamOfTheBestTable,TeamDAO,%2,,%3,"
             "\"\\[53\\] \"x\", not found\"\r\n"_s},
        };
        for (qint32 destination = 1; const auto& [header, record] : layouts) {
            const AppFolder folder;
            Logging log;
            log.SetLogPath(Paths().TempPath);
            log.DebugLevel = 4;
            log.LogDestination = destination++;
            QVERIFY(report(log) && report(log));
            const auto text = QString::fromUtf8(ReadFile(folder.Path(u"ISApplication.Log"_s)));
            QVERIFY2(text.startsWith(header), qPrintable(text));
            const QString pattern =
                record.arg(u"\\d\\d/.+/\\d{4} \\d\\d:\\d\\d:\\d\\d"_s, AppSession().SessionID,
                           QRegularExpression::escape(AppSession().MachineName));
            const QRegularExpression records(u"\\A(%1){2}\\z"_s.arg(pattern));
            QVERIFY2(records.match(text.mid(header.size())).hasMatch(), qPrintable(text));
        }
    }
};

QTEST_GUILESS_MAIN(LoggingTest)
#include "LoggingTest.moc"
