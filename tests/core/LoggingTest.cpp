#include "core/Logging.h"
#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/RuntimeError.h"
#include "core/Session.h"
#include "support/AppFolder.h"

#include <QLoggingCategory>
#include <QRegularExpression>
#include <QTest>

class LoggingTest : public QObject {
    Q_OBJECT

private slots:
    void writesOneHeaderInEachLayout() {
        // Each layout's header, and the pattern of a record. A field that is too long is cut, and
        // shifts the rest of its line by a blank.
        const std::pair<QString, QString> layouts[] = {
            {"Type Data/Time             Component      Version Msg Number     Function            "
             "Object              Session                       Username       Machine Name   "
             "Description\r\n" +
                 QString(100, '-') + "\r\n",
             "4    %1 +1\\.0\\.0   9700           SaveTheTeamOfTheTabl TeamDAO             "
             "%2 {19}%3 +\\[53\\] \"x\", no\r\n"},
            {"Type,Data/Time,Component,Version,Message Number,Function,Object,Session,Username,"
             "MachineName,Description\r\n",
             "4,%1,v1\\.0\\.LoggingTest,1\\.0\\.0,9700,SaveTheTeamOfTheTable,TeamDAO,%2,,%3,"
             "\"\\[53\\] \"x\", no\"\r\n"},
        };
        for (qint32 destination = 1; const auto& [header, record] : layouts) {
            const AppFolder folder;
            Logging log;
            log.SetLogPath(' ' + Paths().TempPath.chopped(destination % 2) + ' ');
            QCOMPARE(log.LogPath(), Paths().TempPath);
            log.LogDestination = destination++;
            QStringList shown; // whether it is written or not
            log.ShowError = [&](const QString& text) { shown.append(text); };
            for (log.DebugLevel = 3; log.DebugLevel <= 5; ++log.DebugLevel)
                QCOMPARE(log.ProgramError(53, "\"x\", no", "SaveTheTeamOfTheTable", "TeamDAO"),
                         log.DebugLevel >= 4);
            QCOMPARE(shown,
                     QStringList(3, "9700 : [53] \"x\", no [SaveTheTeamOfTheTable/TeamDAO]"));
            for (const qint32 quietType : {8, 16, 32}) // the last error stays the last message
                QVERIFY(!log.Record(quietType, 1099, {}, {}, {}) && log.MessageNumber() == 9700);
            const QString text = ReadFile(folder.Path("ISApplication.Log"));
            const QString pattern =
                record.arg("\\d\\d/.+/\\d{4} \\d\\d:\\d\\d:\\d\\d", AppSession().SessionID,
                           QRegularExpression::escape(AppSession().MachineName));
            const QRegularExpression records("\\A(" + pattern + "){2}\\z");
            QVERIFY2(text.startsWith(header) && records.match(text.mid(header.size())).hasMatch(),
                     qPrintable(text));
        }
    }

    void aSessionEndsWithANotice() {
        const AppFolder folder;
        AppLog().DebugLevel = 32;
        qputenv("USERNAME", "Ann");
        QVERIFY(Session().PCUsername == "Ann" && Session().CreatedDate.contains(':'));
        QVERIFY(ReadFile(folder.Path("ISApplication.Log")).endsWith("Class Terminate\r\n"));
    }

    void developersSeeWhatIsSwallowed() {
        AppFolder folder;
        AppLog().SetLogPath(folder.Path("missing"));
        AppLog().DebugLevel = 4;
        AppLog().ShowError = [](const QString&) { throw 1; };
        const QString lost = "lost a record for " + AppLog().LogPath();
        const std::pair<int (*)(), const char*> failures[] = {
            {[]() -> int { throw RuntimeError(53, "no file"); }, "[53] no file [P/C]"},
            {[]() -> int { throw std::bad_alloc(); }, "[7] Out of memory [P/C]"},
            {[]() -> int { throw std::runtime_error("why"); }, "[5] why [P/C]"},
            {[]() -> int { throw 1; }, "[5] Unknown error [P/C]"},
        };
        QTest::failOnWarning(QRegularExpression("."));
        for (const auto& [body, message] : failures) {
            QCOMPARE(Guarded("P", "C", 7, body), 7); // in silence, although the box fails as well
            QLoggingCategory::setFilterRules("rankelo.errors=true");
            for (const QString& text : {QString(message), lost})
                QTest::ignoreMessage(QtWarningMsg, qPrintable(text));
            QCOMPARE(Guarded("P", "C", 7, body), 7);
            QLoggingCategory::setFilterRules({});
        }
    }
};

QTEST_GUILESS_MAIN(LoggingTest)
#include "LoggingTest.moc"
