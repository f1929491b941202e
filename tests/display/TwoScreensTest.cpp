#include "TestBoard.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <qpa/qplatformnativeinterface.h>

namespace {

QJsonObject screen(const char* name, int x, int width, int height, int dpi) {
    return {{"name", name},     {"x", x},
            {"y", 0},           {"width", width},
            {"height", height}, {"logicalDpi", dpi},
            {"dpr", 1},         {"logicalBaseDpi", dpi}};
}

const QJsonObject Console = screen("console", 0, 1280, 800, 96);
const QJsonObject Projector = screen("projector", 1280, 1000, 600, 120);

// The platform that needs no display can change its screens while a program runs.
void setScreens(const QJsonArray& screens) {
    auto* platform = QGuiApplication::platformNativeInterface();
    using Function = void (*)(const QJsonObject&, QPlatformNativeInterface*);
    reinterpret_cast<Function>(platform->nativeResourceForIntegration("setConfiguration"))(
        {{"windowFrameMargins", false}, {"screens", screens}}, platform);
}

} // namespace

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

// The operator's screen has 96 dots to the inch, the projector beside it 120.
class TwoScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        PrepareApplication();
        setScreens({Console, Projector});
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

    // At first, before the other boards have been heard of.
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

    // 12 twips to a pixel, so that a half can arise: 18 twips are 1.5 pixels. The projector may
    // change its resolution while the board is open.
    void measuresInTheProjectorsPixels() {
        const TestBoard board({}, "FontSize=20.5");
        board.Screen->Build([&] { QVERIFY(board.Render(RowsAt({1}))); });
        QCOMPARE(board.Places(), "17 75 55 38|75 75 857 38|894 75 38 38|935 75 55 38");
        setScreens({Console, screen("projector", 1280, 800, 600, 120)});
        QTRY_COMPARE(board.Places(), "17 75 40 38|60 75 686 38|709 75 38 38|750 75 40 38");
        setScreens({Console, Projector});
    }

    // Whichever of the two screens the console is on, the board takes the other and goes with it.
    void opensBesideTheConsole() {
        for (const int operators : {0, 1}) {
            const QList<QScreen*> screens = QGuiApplication::screens();
            QWidget console;
            console.setGeometry(screens[operators]->geometry().adjusted(50, 50, -50, -50));
            ShowScreen(console);
            const QPointer<frmSummary> board = new frmSummary(&console);
            QVERIFY(Render({}).RenderResults(*board, RowsAt({1, 2, 3}), "Results", 4));
            QCOMPARE(board->screen(), screens[1 - operators]);
            QCOMPARE(board->geometry(), screens[1 - operators]->geometry());
            // The operator goes on working beside it.
            ShowScreen(console);
            QVERIFY(board->isVisible());
            setScreens({operators == 0 ? Console : Projector});
            QTRY_VERIFY(!board);
            QVERIFY(console.isVisible());
            // Asked for without a projector, it covers the only screen there is.
            const TestBoard other;
            QVERIFY(other.Render(RowsAt({1, 2, 3}), 4));
            QCOMPARE(other.Screen->screen(), console.screen());
            setScreens({Console, Projector});
            QVERIFY2(other.Screen->isVisible(), "a cable plugged in closes nothing");
        }
    }

private:
    QProcess m_bus;
    ScreenSaver m_saver;
};

QTEST_MAIN(TwoScreensTest)
#include "TwoScreensTest.moc"
