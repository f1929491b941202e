#include "TestBoard.h"
#include "support/Operator.h"

#include <QJsonArray>
#include <QJsonObject>
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

QJsonObject screens() {
    return screenFunction<QJsonObject (*)(QPlatformNativeInterface*)>("configuration")(
        QGuiApplication::platformNativeInterface());
}

void setScreens(const QJsonObject& setup) {
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
    }

    void opensBesideTheConsole() {
        const AppFolder folder;
        const QList<QScreen*> screens = QGuiApplication::screens();
        for (const int operators : {0, 1}) {
            QWidget console;
            console.setGeometry(screens[operators]->geometry().adjusted(50, 50, -50, -50));
            ShowScreen(console);
            frmSummary board(&console);
            QVERIFY(Render({}).RenderResults(board, RowsAt({1, 2}), "Results", 4));
            QCOMPARE(board.screen(), screens[1 - operators]);
            QCOMPARE(board.geometry(), screens[1 - operators]->geometry());
            // The operator goes on working beside it.
            ShowScreen(console);
            QVERIFY(board.isVisible());
        }
    }

    // 12 twips to a pixel, so that a half can arise: 18 twips are 1.5 pixels.
    void measuresInTheProjectorsPixels() {
        const TestBoard board({}, "FontSize=20.5");
        QVERIFY(board.Render(RowsAt({1})));
        QCOMPARE(board.Places(), "17 75 55 38|75 75 857 38|894 75 38 38|935 75 55 38");
    }

    // A projector that changes its resolution while the board is open.
    void followsTheResolution() {
        const QJsonObject before = screens();
        QJsonObject after = before;
        QJsonArray list = before["screens"].toArray();
        QJsonObject projector = list[1].toObject();
        projector["width"] = 800;
        list[1] = projector;
        after["screens"] = list;
        const TestBoard board;
        board.Screen->Build([&] { QVERIFY(board.Render(RowsAt({1}))); });
        const QRect name = board.Element(2).geometry();
        setScreens(after);
        QTRY_COMPARE(board.Screen->width(), 800);
        QTRY_VERIFY(board.Element(2).geometry().right() < name.right() - 150);
        setScreens(before);
    }

    void goesWithItsScreen() {
        const QJsonObject both = screens();
        QJsonObject alone = both;
        alone["screens"] = QJsonArray{both["screens"].toArray()[0]};
        QWidget console;
        ShowScreen(console);
        // Plugged in again, the projector has the board again.
        for (int time = 0; time < 2; ++time) {
            const TestBoard board;
            QVERIFY(board.Render(RowsAt({1, 2, 3}), 4));
            QCOMPARE(board.Screen->screen()->name(), "projector");
            setScreens(alone);
            QTRY_VERIFY(!board.Screen);
            QVERIFY(console.isVisible());
            // Asked for without a projector, it covers the only screen there is.
            const TestBoard other;
            QVERIFY(other.Render(RowsAt({1, 2, 3}), 4));
            QCOMPARE(other.Screen->screen(), console.screen());
            setScreens(both);
            QVERIFY2(other.Screen->isVisible(), "a cable plugged in closes nothing");
        }
    }
};

QTEST_MAIN(TwoScreensTest)
#include "TwoScreensTest.moc"
