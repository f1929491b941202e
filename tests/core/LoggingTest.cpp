#include "core/Logging.h"
#include "core/AppValues.h"
#include "core/Session.h"
#include "support/AppFolder.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>
#include <QTest>

class LoggingTest : public QObject {
    Q_OBJECT

private slots:
    void keepsTheLastMessageUnlessItIsQuiet();
    void theLevelDecidesWhatIsWritten();
    void writesOneHeaderInEachLayout();
    void longFieldsShiftTheLine();
    void losesAMessageInSilence();
    void showsAnErrorOnlyInDebugMode();
    void tidiesItsFolder();
    void describesTheSession();

private:
    static void report(Logging& log, const QString& function = QStringLiteral("Save")) {
        log.ProgramError(53, QStringLiteral("File \"x\", not found"), function,
                         QStringLiteral("TeamDAO"));
    }
    static QString contents(const AppFolder& folder) {
        return QString::fromUtf8(ReadFile(folder.Path(QStringLiteral("ISApplication.Log"))));
    }
};

void LoggingTest::keepsTheLastMessageUnlessItIsQuiet() {
    const AppFolder folder;
    Logging log;
    const auto last = [&] {
        return QStringLiteral("%1|%2|").arg(log.MessageType()).arg(log.MessageNumber()) +
               QStringList{log.Description(), log.FunctionName(), log.ObjectName()}.join(u'|');
    };
    QCOMPARE(last(), QStringLiteral("0|0|||"));
    report(log);
    const QString reported = QStringLiteral("4|9700|[53] File \"x\", not found|Save|TeamDAO");
    QCOMPARE(last(), reported);
    for (const qint32 quiet : {8, 16, 32})
        log.Record(quiet, 1, QStringLiteral("d"), QStringLiteral("f"), QStringLiteral("o"));
    QCOMPARE(last(), reported);
    log.Record(64, 1, QStringLiteral("d"), QStringLiteral("f"), QStringLiteral("o"));
    QCOMPARE(last(), QStringLiteral("64|1|d|f|o"));
}

void LoggingTest::theLevelDecidesWhatIsWritten() {
    const AppFolder folder;
    Logging log;
    log.SetLogPath(App().TempPath);
    report(log);
    QCOMPARE(folder.Files(), QStringList{QStringLiteral("Rankelo.MDB")});
    log.DebugLevel = 31;
    const auto notice = [&] { return log.Record(32, 1099, QStringLiteral("bye"), {}, {}); };
    QVERIFY(!notice());
    log.DebugLevel = 32;
    QVERIFY(notice());
    QVERIFY(contents(folder).endsWith(u"bye\r\n"));
}

void LoggingTest::writesOneHeaderInEachLayout() {
    const QString date = QStringLiteral("\\d\\d/.+/\\d{4} \\d\\d:\\d\\d:\\d\\d");
    const QString machine = QRegularExpression::escape(AppSession().MachineName);
    const QString session = AppSession().SessionID;
    const struct {
        qint32 destination;
        QString header;
        QString record;
    } cases[] = {
        {1,
         QStringLiteral("Type Data/Time             Component      Version Msg Number     "
                        "Function            Object              Session                       "
                        "Username       Machine Name   Description\r\n") +
             QString(100, u'-') + QStringLiteral("\r\n"),
         QStringLiteral("4    ") + date + QStringLiteral(" +1\\.0\\.0   9700           ") +
             QStringLiteral("Save                TeamDAO             ") + session +
             QStringLiteral(" {19}") + machine +
             QStringLiteral(" +\\[53\\] File \"x\", not found\r\n")},
        {2,
         QStringLiteral("Type,Data/Time,Component,Version,Message Number,Function,Object,"
                        "Session,Username,MachineName,Description\r\n"),
         QStringLiteral("4,") + date + QStringLiteral(",LoggingTest,1\\.0\\.0,9700,Save,TeamDAO,") +
             session + QStringLiteral(",,") + machine +
             QStringLiteral(",\"\\[53\\] File \"x\", not found\"\r\n")},
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
        const QRegularExpression records(QStringLiteral("\\A(%1){2}\\z").arg(c.record));
        QVERIFY2(records.match(text.mid(c.header.size())).hasMatch(), qPrintable(text));
    }
}

void LoggingTest::longFieldsShiftTheLine() {
    const AppFolder folder;
    Logging log;
    log.SetLogPath(App().TempPath);
    log.DebugLevel = 4;
    report(log, QStringLiteral("abcdefghijklmnopqrstuvwxyz"));
    QVERIFY(contents(folder).contains(u"9700           abcdefghijklmnopqrst TeamDAO   "));
}

void LoggingTest::losesAMessageInSilence() {
    AppFolder folder;
    Logging log;
    log.SetLogPath(folder.Path(QStringLiteral("missing")));
    log.DebugLevel = 4;
    report(log);
    QCOMPARE(log.MessageNumber(), 9700);
    QVERIFY(!log.Record(1, 1, {}, {}, {}));
    QCOMPARE(folder.TakeReports().size(), 1);
}

void LoggingTest::showsAnErrorOnlyInDebugMode() {
    AppFolder folder;
    Logging log;
    const QString shown = QStringLiteral("9700 : [53] File \"x\", not found [Save/TeamDAO]");
    for (const char* mode : {"1", "01", "true", " 1", "", "0"}) {
        App().DebugMode = QString::fromLatin1(mode);
        report(log);
        QCOMPARE(folder.TakeReports(),
                 mode == QByteArray("1") ? QStringList{shown} : QStringList());
    }
}

void LoggingTest::tidiesItsFolder() {
    const QChar separator = QDir::separator();
    Logging log;
    QVERIFY(log.LogPath().endsWith(separator));
    for (const QString& path : {QStringLiteral("  a b "), QStringLiteral("a b") + separator}) {
        log.SetLogPath(path);
        QCOMPARE(log.LogPath(), QStringLiteral("a b") + separator);
    }
}

void LoggingTest::describesTheSession() {
    const AppFolder folder;
    AppLog().DebugLevel = 32;
    {
        const Session session;
        QCOMPARE(session.Version, QStringLiteral("1.0.0"));
        QCOMPARE(session.Executable, QStringLiteral("LoggingTest"));
        QCOMPARE(session.ProductName, QStringLiteral("Rankelo"));
        QVERIFY(!session.MachineName.isEmpty());
        QVERIFY(!session.PCUsername.isEmpty());
        QVERIFY(session.Username.isEmpty());
        const QDateTime created =
            QDateTime::fromString(session.SessionID.left(14), u"yyyyMMddHHmmss");
        QVERIFY(qAbs(created.secsTo(QDateTime::currentDateTime())) < 60);
    }
    AppLog().DebugLevel = 0;
    QVERIFY(contents(folder).contains(u"1099           Class_Terminate     Session   "));
}

QTEST_GUILESS_MAIN(LoggingTest)
#include "LoggingTest.moc"
