#include "TestBoard.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <qpa/qplatformnativeinterface.h>

namespace {

// The platform that needs no display offers these two to change its screens while a program runs.
template <typename Function>
Function screenFunction(const char* name) {
    return reinterpret_cast<Function>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration(name));
}

QJsonObject screenSetup() {
    return screenFunction<QJsonObject (*)(QPlatformNativeInterface*)>("configuration")(
        QGuiApplication::platformNativeInterface());
}

void setScreenSetup(const QJsonObject& setup) {
    screenFunction<void (*)(const QJsonObject&, QPlatformNativeInterface*)>("setConfiguration")(
        setup, QGuiApplication::platformNativeInterface());
}

} // namespace

// The operator's screen has 96 dots to the inch, the projector beside it 120.
class TwoScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        PrepareApplication();
        QCOMPARE(QGuiApplication::screens().size(), 2);
        QCOMPARE(QGuiApplication::screens().at(1)->logicalDotsPerInch(), 120.0);
    }

    void opensBesideTheConsole_data() {
        QTest::addColumn<int>("console");
        QTest::addColumn<int>("board");
        QTest::newRow("console on the first") << 0 << 1;
        QTest::newRow("console on the second") << 1 << 0;
    }

    void opensBesideTheConsole() {
        QFETCH(int, console);
        QFETCH(int, board);
        AppFolder folder;
        const QList<QScreen*> screens = QGuiApplication::screens();
        QWidget operators;
        operators.setGeometry(screens.at(console)->geometry().adjusted(50, 50, -50, -50));
        ShowScreen(operators);
        QCOMPARE(operators.screen(), screens.at(console));

        frmSummary screen(&operators);
        QVERIFY(Render().RenderResults(screen, Rows(2), QStringLiteral("Results"), 4));
        QCOMPARE(screen.screen(), screens.at(board));
        QCOMPARE(screen.geometry(), screens.at(board)->geometry());
        // The operator goes on working beside it.
        operators.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&operators));
        QVERIFY(screen.isVisible());
    }

    // 12 twips to a pixel, so that a half can arise: 18 twips are 1.5 pixels.
    void measuresInTheProjectorsPixels() {
        AppFolder folder;
        App().FontSize = QStringLiteral("20.5");
        const QWidget console;
        TestBoard board;
        frmSummary& screen = board.Screen();
        QVERIFY(board.Render(Rows(2)));
        QCOMPARE(screen.BoardWidth(), 12000);
        QCOMPARE(screen.BoardHeight(), 7200);
        QCOMPARE(screen.DisplayWidth(), 12000);
        QStringList found;
        for (int i = 1; i <= 8; ++i) {
            const QRect box = board.Element(i).geometry();
            found.append(QStringLiteral("%1 %2 %3 %4")
                             .arg(box.x())
                             .arg(box.y())
                             .arg(box.width())
                             .arg(box.height()));
        }
        QCOMPARE(found.join(u'|'),
                 QStringLiteral("17 75 55 38|75 75 857 38|894 75 38 38|935 75 55 38"
                                "|17 119 55 38|75 119 857 38|894 119 38 38"
                                "|935 119 55 38"));
    }

    void goesWithItsScreen() {
        AppFolder folder;
        const QJsonObject both = screenSetup();
        QJsonObject alone = both;
        alone[QStringLiteral("screens")] = QJsonArray{both[QStringLiteral("screens")].toArray()[0]};
        QWidget console;
        ShowScreen(console);
        // Plugged in again, the projector has the board again.
        for (int evening = 0; evening < 2; ++evening) {
            QPointer<frmSummary> board = new frmSummary(&console);
            QVERIFY(Render().RenderResults(*board, Rows(3), QStringLiteral("Results"), 4));
            QCOMPARE(board->screen()->name(), QStringLiteral("projector"));
            setScreenSetup(alone);
            QCOMPARE(QGuiApplication::screens().size(), 1);
            QVERIFY(!board || !board->isVisible());
            QTRY_VERIFY(!board);
            QVERIFY(console.isVisible());

            // Asked for without a projector, it covers the only screen there is.
            board = new frmSummary(&console);
            QVERIFY(Render().RenderResults(*board, Rows(3), QStringLiteral("Results"), 4));
            QCOMPARE(board->screen(), console.screen());
            setScreenSetup(both);
            QVERIFY2(board->isVisible(), "a cable plugged in closes nothing");
            delete board;
        }
    }
};

QTEST_MAIN(TwoScreensTest)
#include "TwoScreensTest.moc"
