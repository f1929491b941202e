#include "TestBoard.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QTest>

namespace {

// One letter for each line: hidden, visible, joker shown too, or partly visible.
QString stateOf(TestBoard& board, int lines) {
    QString state;
    for (int line = 0; line < lines; ++line) {
        const auto isVisible = [&](int element) {
            return board.Element(4 * line + element).isVisible();
        };
        const int labels = isVisible(1) + isVisible(2) + isVisible(4);
        const bool joker = isVisible(3) && !board.Element(4 * line + 3).pixmap().isNull();
        state += labels == 0 ? u'-' : labels < 3 ? u'?' : joker ? u'J' : u'v';
    }
    return state;
}

} // namespace

class SummaryScreenTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void reveals() {
        const struct {
            int revealFrom;
            const char *keys, *expected;
        } cases[] = {{4, "3", "---vvvvv"},  // one by one
                     {4, "32", "--Jvvvvv"}, // tied teams together
                     {4, "123", "JvJvvvvv"},
                     {4, "2233", "--Jvvvvv"},           // twice is once
                     {4, "456789 0axXF\t", "-----vvv"}, // other keys
                     {0, "1", "Jvvvvvvv"},              // only the joker is new
                     {9, "1234", "JvJvv---"}};          // hidden for good
        AppFolder folder;
        QImage joker(4, 4, QImage::Format_RGB32);
        joker.fill(Qt::red);
        QVERIFY(joker.save(folder.Path(QStringLiteral("JOKER.BMP")), "BMP"));
        for (const auto& [revealFrom, keys, expected] : cases) {
            TestBoard board;
            QVERIFY(board.Render(RowsAt({-1, 1, -2, 3, 3, -4, 5, 6}), revealFrom));
            QVERIFY(QTest::qWaitForWindowActive(&board.Screen()));
            Type(QString(keys));
            Press(Qt::Key_Return);
            QCOMPARE(stateOf(board, 8), QString(expected));
        }
    }

    void fillsTheScreenUntilEsc() {
        AppFolder folder;
        TestBoard board;
        QVERIFY(board.Render(RowsAt({1, 2, 3}), 4));
        QVERIFY(board.Screen().isFullScreen());
        QCOMPARE(board.Screen().geometry(), board.Screen().screen()->geometry());
        QVERIFY(QTest::qWaitForWindowActive(&board.Screen()));
        Press(Qt::Key_Escape);
        QTRY_VERIFY(board.IsGone());
    }
};

QTEST_MAIN(SummaryScreenTest)
#include "SummaryScreenTest.moc"
