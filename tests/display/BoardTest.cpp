#include "TestBoard.h"
#include "display/BoardLabel.h"
#include "support/Operator.h"

#include <QTest>

namespace {

// Text, colours, and whether it shows.
QString lookOf(const QLabel& element) {
    return element.text() + u' ' + element.palette().color(QPalette::Window).name() + u' ' +
           element.palette().color(QPalette::WindowText).name() +
           (element.isVisible() ? "" : " hidden");
}

QString placesOf(QSize size, const QList<int>& positions, const char* settings) {
    const TestBoard board(size, settings);
    return board.Render(RowsAt(positions)) ? board.Places() : "failed";
}

} // namespace

class BoardTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // In pixels, 15 twips each.
    void placesElements() {
        QCOMPARE(placesOf({1200, 700}, {1}, ""),
                 "13 94 72 47|88 94 1029 47|1070 94 47 47|1120 94 72 47");
        // A line is 412.5 twips high, a position box 7312.5 wide: both go to the even number.
        QCOMPARE(placesOf({1003, 300}, {1},
                          "FontSize=18.75 LeftMargin=0 RightMargin=210 CellPadX=0 LabelWidth=1"),
                 "0 55 487 27|487 55 14 27|474 55 27 27|502 55 487 27");
        // A column is 7522.5 twips wide; the second line does not fit any more.
        QCOMPARE(placesOf({1003, 50}, {1, 2}, "FontSize=18.75 LeftMargin=0 RightMargin=0"),
                 "0 55 72 27|74 55 358 27|405 55 27 27|435 55 72 27"
                 "|501 55 72 27|576 55 358 27|906 55 27 27|937 55 72 27");
    }

    // How many lines stand in each column. Line heights: 286 twips at 13 points, 330 at 15.
    void fillsColumns() {
        const struct {
            int height;
            const char* settings;
            QList<int> lines;
            bool areNarrow = true;
        } cases[] = {
            // 30 x 330 twips = 660 pixels; the lines below the footer stay in the one column.
            {660, "FontSize=15 Footer=-9000", {30}, false},
            {660, "FontSize=15 Footer=-9000", {31}},
            // The last line's top may be just where the footer begins: 572 + 10 x 366 = 4232.
            {309, "FontSize=13 Footer=403", {11, 6}},
            {309, "FontSize=13 Footer=404", {10, 7}},
            {100, "FontSize=13 Footer=0", {3, 3, 1}},
        };
        for (const auto& [height, settings, lines, areNarrow] : cases) {
            const TestBoard board({1000, height}, settings);
            const int count = std::accumulate(lines.begin(), lines.end(), 0);
            QVERIFY(board.Render(RowsAt(QList<int>(count, 9))));
            QMap<int, int> found;
            for (int i = 0; i < count; ++i)
                ++found[board.Element(4 * i + 1).x()];
            QCOMPARE(found.values(), lines);
            QCOMPARE(board.Element(4).geometry().right() < 500, areNarrow);
        }
    }

    void describesElements() {
        const TestBoard board(
            {1000, 600}, "FontSize=9 FontName=Courier BackGround=3 BColorA=1 FColorA=256 BColorB=2 "
                         "FColorB=65536");
        QVERIFY(board.Render(RowsAt({-1, 2, 3, 4, -5}), 4));
        const auto& heading = Control<QLabel>(*board.Screen, "lblHeading");
        QCOMPARE(lookOf(heading), "Music Results #030000 #000100");
        QCOMPARE(heading.font(), QFont("Courier", 14, QFont::Bold));
        QCOMPARE(heading.geometry(), QRect(0, 0, board.Screen->screen()->size().width(), 20));
        QCOMPARE(board.Screen->palette().color(QPalette::Window), QColor(3, 0, 0));
        const char* looks[] = {" #00ff00 #000100 hidden", " #008000 #000100 hidden",
                               " #004000 #000100 hidden", " #020000 #000001", " #010000 #000100"};
        for (int i = 0; i < 5; ++i) {
            const QString texts[] = {QString::number(i + 1), "Team", "", QString::number(99 - i)};
            for (const int part : {0, 1, 3}) {
                QCOMPARE(lookOf(board.Element(4 * i + part + 1)), texts[part] + looks[i]);
                QCOMPARE(board.Element(4 * i + part + 1).font(), QFont("Courier", 9));
            }
            const QLabel& joker = board.Element(4 * i + 3);
            QVERIFY2(!joker.isVisible(), "a joker waits until its line is revealed");
            QCOMPARE(joker.pixmap().isNull(), i != 0 && i != 4);
        }
    }

    // What was drawn before the failure stays.
    void stopsAtAFailure() {
        const struct {
            const char* settings;
            int controls;
            const char *number, *place;
        } cases[] = {{"FontSize=big", 0, "[13]", "RenderResults"},
                     {"FontSize=0", 1, "[5]", "RenderLabel"},
                     {"LabelWidth=0", 1, "[11]", "RenderLine"},
                     {"CellPadY=2147483647", 5, "[6]", "RenderLine"},
                     {"", 8, "[53]", "RenderImage"}}; // The picture is gone.
        for (const auto& [settings, controls, number, place] : cases) {
            TestBoard board({1000, 600}, settings);
            QVERIFY(*settings || QFile::remove(board.Path("JOKER.BMP")));
            QVERIFY(!board.Render(RowsAt({1, -2, 3})));
            QCOMPARE(board.Screen->findChildren<QLabel*>().size(), controls);
            const QString report = board.TakeReports().join(u'|');
            QVERIFY2(report.contains(number) && report.contains(place), qPrintable(report));
        }
    }

    // Each line is hidden, visible, or shows its joker, too.
    void reveals() {
        const struct {
            int revealFrom;
            const char *keys, *expected;
        } cases[] = {{4, "3", "---vvvvv"},  // one by one
                     {4, "32", "--Jvvvvv"}, // tied teams together
                     {4, "123", "JvJvvvvv"}, {4, "456789 0axXF\t", "-----vvv"}, // other keys
                     {0, "1", "Jvvvvvvv"},     // only the joker is new
                     {9, "1234", "JvJvv---"}}; // hidden for good
        for (const auto& [revealFrom, keys, expected] : cases) {
            const TestBoard board;
            QVERIFY(board.Render(RowsAt({-1, 1, -2, 3, 3, -4, 5, 6}), revealFrom));
            QCOMPARE(board.Screen->geometry(), board.Screen->screen()->geometry());
            QVERIFY(QTest::qWaitForWindowActive(board.Screen));
            Type(keys);
            QString shown;
            for (int i = 0; i < 32; i += 4) {
                const QLabel& joker = board.Element(i + 3);
                const bool hasJoker = joker.isVisible() && !joker.pixmap().isNull();
                shown += !board.Element(i + 4).isVisible() ? u'-' : hasJoker ? u'J' : u'v';
            }
            QCOMPARE(shown, expected);
            Press(Qt::Key_Escape);
            QTRY_VERIFY(!board.Screen);
        }
    }

    // Every pair of colours that the board can have is readable, by itself or by its outline, and
    // no letter reaches the edges of its box or the place that a picture takes.
    void drawsReadably() {
        // The lightest grey that is readable on white.
        QCOMPARE(qRound(ContrastRatio(QColor(0x767676), Qt::white) * 100), 454);
        const std::pair<QString, Qt::AlignmentFlag> texts[] = {
            {QString(300, u'W'), Qt::AlignLeft},
            {QString(300, u'W'), Qt::AlignHCenter},
            {"-2147483648", Qt::AlignRight},
            {"-2147483641", Qt::AlignRight}};
        BoardLabel label(nullptr);
        label.setFont(QFont("Arial", 32));
        label.SetReserve(60);
        label.resize(138, 47);
        for (const QColor fore : {0x000000, 0x808080, 0xFFFFFF, 0xFF0000, 0x0000FF, 0xFFFF80})
            for (const QColor back : {0x000001, 0x808081, 0xFFFFFE, 0x00FF00, 0x004000}) {
                label.SetColors(back, fore);
                const QColor outline = label.OutlineColor();
                QVERIFY(ContrastRatio(fore, outline.isValid() ? outline : back) >= 4.5);
                QImage last;
                for (const auto& [text, align] : texts) {
                    label.setText(text);
                    label.setAlignment(align | Qt::AlignVCenter);
                    const QImage picture = label.grab().toImage();
                    for (int y = 0; y < picture.height(); ++y)
                        for (const int x : {0, 77})
                            QCOMPARE(picture.pixelColor(x, y), back);
                    QVERIFY2(picture != std::exchange(last, picture), "a digit of a score is cut");
                }
            }
    }
};

QTEST_MAIN(BoardTest)
#include "BoardTest.moc"
