#include "TestBoard.h"
#include "display/BoardLabel.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QImage>
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

    void reveals_data() {
        QTest::addColumn<int>("revealFrom");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("expected");
        QTest::newRow("nothing yet") << 4 << ""
                                     << "-----vvv";
        QTest::newRow("one by one") << 4 << "3"
                                    << "---vvvvv";
        QTest::newRow("tied teams together") << 4 << "32"
                                             << "--Jvvvvv";
        QTest::newRow("all, in any order") << 4 << "123"
                                           << "JvJvvvvv";
        QTest::newRow("twice is once") << 4 << "2233"
                                       << "--Jvvvvv";
        QTest::newRow("other keys") << 4 << "456789 0axXF\t"
                                    << "-----vvv";
        QTest::newRow("all from the start") << 0 << ""
                                            << "vvvvvvvv";
        QTest::newRow("only the joker is new") << 0 << "1"
                                               << "Jvvvvvvv";
        QTest::newRow("hidden for good") << 9 << "1234"
                                         << "JvJvv---";
    }

    void reveals() {
        QFETCH(int, revealFrom);
        QFETCH(QString, keys);
        QFETCH(QString, expected);
        AppFolder folder;
        QImage joker(4, 4, QImage::Format_RGB32);
        joker.fill(Qt::red);
        QVERIFY(joker.save(folder.Path(QStringLiteral("JOKER.BMP")), "BMP"));
        TestBoard board;
        QVERIFY(board.Render(RowsAt({-1, 1, -2, 3, 3, -4, 5, 6}), revealFrom));
        QVERIFY(QTest::qWaitForWindowActive(&board.Screen()));
        Type(keys);
        for (const int key : {Qt::Key_Return, Qt::Key_F5, Qt::Key_Space, Qt::Key_Down})
            Press(key);
        QCOMPARE(stateOf(board, 8), expected);
    }

    void matchesNamesAndTagsExactly() {
        AppFolder folder;
        TestBoard board;
        QVERIFY(board.Render(SummaryList()));
        const struct {
            const char* name;
            const char* tag;
            bool isRevealed;
        } cases[] = {
            {"lblLabel1", "3", true},   {"lblLabel2", " 3.0 ", true}, {"lblLabelx", "3e0", true},
            {"lblLabel3", "31", false}, {"lblLabel4", "", false},     {"lblLabel5", "three", false},
            {"lbllabel6", "3", false},  {"xlblLabel7", "3", false},   {"lblPicture", "3", false}};
        for (const auto& [name, tag, isRevealed] : cases)
            board.Screen().AddLabel(QString(name)).setProperty(TagProperty, QString(tag));
        QVERIFY(board.Screen().SetLineVisible(3));
        for (const auto& [name, tag, isRevealed] : cases)
            QCOMPARE(Control<QLabel>(board.Screen(), QString(name)).isVisible(), isRevealed);
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
