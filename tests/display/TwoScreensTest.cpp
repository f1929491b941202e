#include "TestBoard.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTest>

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

    // What the platform tells when a cable is pulled. It cannot take a screen away from a program
    // on its own here, so the message comes from us.
    void goesWithItsScreen() {
        AppFolder folder;
        const QList<QScreen*> screens = QGuiApplication::screens();
        for (const bool isOwn : {false, true}) {
            TestBoard board;
            QVERIFY(board.Render(Rows(3)));
            emit qGuiApp->screenRemoved(screens.at(isOwn ? 1 : 0));
            QCOMPARE(board.Screen().isVisible(), !isOwn);
            if (isOwn)
                QTRY_VERIFY(board.IsGone());
        }
    }
};

QTEST_MAIN(TwoScreensTest)
#include "TwoScreensTest.moc"
