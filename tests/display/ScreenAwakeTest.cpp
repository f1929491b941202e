#include "TestBoard.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QProcess>
#include <QTest>

/// The desktop's screen saver; it may be slow to answer.
class ScreenSaver : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    QStringList Heard;
    bool IsSlow = false;
    QDBusMessage Unanswered;

public slots:
    uint Inhibit(const QString& program, const QString& /*reason*/) {
        Heard.append("Inhibit " + program);
        setDelayedReply(IsSlow);
        Unanswered = message();
        return 7;
    }
    void UnInhibit(uint request) { Heard.append("UnInhibit " + QString::number(request)); }
};

class ScreenAwakeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_bus.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        QVERIFY(m_bus.waitForReadyRead());
        const QByteArray address = m_bus.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        auto desktop = QDBusConnection::connectToBus(QString::fromUtf8(address), "desktop");
        QVERIFY(desktop.registerObject("/org/freedesktop/ScreenSaver", &m_saver,
                                       QDBusConnection::ExportAllSlots));
        QVERIFY(desktop.registerService("org.freedesktop.ScreenSaver"));
    }
    void cleanupTestCase() {
        m_bus.kill();
        m_bus.waitForFinished();
    }

    void sleepsNotWhileABoardIsOpen() {
        for (const bool isSlow : {false, true}) {
            m_saver.Heard.clear();
            m_saver.IsSlow = isSlow;
            const TestBoard board;
            frmSummary picture(nullptr, frmSummary::Use::Picture);
            QVERIFY(Render({}).RenderResults(picture, {}, "", 0));
            QVERIFY(board.Render(RowsAt({1, 2})));
            QTRY_COMPARE(m_saver.Heard, QStringList{"Inhibit Rankelo"});
            QTest::keyClick(board.Screen, Qt::Key_Escape);
            if (isSlow) {
                QTRY_VERIFY(!board.Screen);
                QDBusConnection("desktop").send(m_saver.Unanswered.createReply(9U));
            }
            QTRY_COMPARE(m_saver.Heard.value(1), isSlow ? "UnInhibit 9" : "UnInhibit 7");
        }
    }

private:
    QProcess m_bus;
    ScreenSaver m_saver;
};

QTEST_MAIN(ScreenAwakeTest)
#include "ScreenAwakeTest.moc"
