#include "TestBoard.h"
#include "app/Desktop.h"
#include "core/RuntimeError.h"
#include "display/BoardLabel.h"
#include "support/PaintRecorder.h"

#include <QSignalSpy>
#include <QTest>

namespace {

// Text, colours, and whether it shows.
QString lookOf(const QLabel& element) {
    const auto& label = dynamic_cast<const BoardLabel&>(element);
    return label.text() + u' ' + label.BackColor().name() + u' ' + label.ForeColor().name() +
           (label.isVisible() ? "" : " hidden");
}

// The last text that an element draws.
PaintRecorder::Text drawnText(QWidget& element) {
    const RecordedWidget drawn(element);
    return drawn.Recorder.Texts.isEmpty() ? PaintRecorder::Text() : drawn.Recorder.Texts.last();
}

QString placesOf(QSize size, const QList<int>& positions, const char* settings = "") {
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
        QCOMPARE(placesOf({1200, 700}, {1}),
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
        const std::tuple<int, const char*, QList<int>, bool> cases[] = {
            // 30 x 330 twips = 660 pixels; the lines below the footer stay in the one column.
            {660, "FontSize=15 Footer=-9000", {30}, false},
            {660, "FontSize=15 Footer=-9000", {31}, true},
            // The last line's top may be just where the footer begins: 572 + 10 x 366 = 4232.
            {309, "FontSize=13 Footer=403", {11, 6}, true},
            {309, "FontSize=13 Footer=404", {10, 7}, true},
            {100, "FontSize=13 Footer=0", {3, 3, 1}, true},
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
        QCOMPARE(board.Screen->cursor().shape(), Qt::BlankCursor);
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
        const std::tuple<const char*, int, const char*, const char*> cases[] = {
            {"FontSize=big", 0, "[13]", "RenderResults"},
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
            QVERIFY2(report.count(u"9700") == 1 && report.contains(number) &&
                         report.contains(place),
                     qPrintable(report));
            if (controls > 0) // Each name is there once.
                QVERIFY_THROWS_EXCEPTION(RuntimeError, board.Screen->AddPicture("lblHeading"));
        }
    }

    // Each line is hidden, visible, or shows its joker, too.
    void reveals() {
        const std::tuple<int, const char*, const char*> cases[] = {
            {4, "3", "---vvvvv"},              // one by one
            {4, "32", "--Jvvvvv"},             // tied teams together
            {4, "123", "JvJvvvvv"},            //
            {4, "456789 0axXF\t", "-----vvv"}, // other keys
            {0, "1", "Jvvvvvvv"},              // only the joker is new
            {9, "1234", "JvJvv---"}};          // hidden for good
        for (const auto& [revealFrom, keys, expected] : cases) {
            const TestBoard board;
            QVERIFY(board.Render(RowsAt({-1, 1, -2, 3, 3, -4, 5, 6}), revealFrom));
            QCOMPARE(board.Screen->geometry(), board.Screen->screen()->geometry());
            QVERIFY(QTest::qWaitForWindowActive(board.Screen));
            Type(keys);
            for (const auto held : {Qt::AltModifier, Qt::MetaModifier})
                if (revealFrom == 4 && !QString(keys).contains("2"))
                    Press(Qt::Key_2, held); // a command of the desktop's
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

    // Every pair of colours that the board can have is readable, by itself or by an outline that
    // is really painted, and no letter reaches the edges of its box.
    void drawsReadably() {
        // The lightest grey that is readable on white.
        QCOMPARE(qRound(ContrastRatio(QColor(0x767676), Qt::white) * 100), 454);
        QWidget page;
        BoardLabel label(&page);
        label.setFont(QFont("Arial", 32));
        label.setText(QString(300, u'W'));
        label.setGeometry(0, 0, 138, 47);
        page.show();
        for (const QColor fore : {0x000000, 0x808080, 0xFFFFFF, 0xFF0000, 0x0000FF, 0xFFFF80})
            for (const QColor back : {0x000001, 0x808081, 0xFFFFFE, 0x00FF00, 0x004000}) {
                label.SetColors(back, fore);
                const QImage picture = label.grab().toImage();
                QSet<QRgb> colors;
                for (int i = 0; i < 138 * 47; ++i) {
                    const QRgb color = picture.pixel(i % 138, i / 138);
                    QVERIFY(color == back.rgb() || (i % 138 > 0 && i % 138 < 137));
                    colors.insert(color);
                }
                const QColor around = label.OutlineColor().isValid() ? label.OutlineColor() : back;
                QVERIFY(ContrastRatio(fore, around) >= 4.5);
                QVERIFY(colors.contains(fore.rgb()) && colors.contains(around.rgb()));
            }
    }

    // Places and usual scores are drawn whole, each kind in one size on one board, whatever the
    // screen, the size of the list, the typeface and the number of columns.
    void drawsEveryNumberWhole() {
        const int widths[] = {800,  1024, 1097, 1280, 1366, 1440, 1536,
                              1600, 1680, 1707, 1920, 2560, 3840};
        const qint32 scores[] = {-9999, 9, 99999, 100, 100000};
        SummaryList list;
        for (qint32 position = 9; const qint32 score : scores)
            list.Add(std::make_shared<Summary>(Summary{"Team", score, false, position += 37}));
        for (const char* typeface : {"Arial", "Courier New", "Times New Roman", "DejaVu Sans"})
            for (const int points : ListedSizes())
                for (const int width : widths)
                    for (const int height : {points * 9, 2160}) { // two columns and one
                        // So that they need no outline.
                        const TestBoard board({width, height}, "BColorA=0 BColorB=0 "
                                                               "FColorA=16777215 FColorB=16777215");
                        modCommon::AppSettings().FontName = typeface;
                        modCommon::AppSettings().FontSize = QString::number(points);
                        QVERIFY(board.Render(list));
                        QSet<double> sizes[2];
                        for (int i = 0; i < list.LastIndex(); ++i)
                            for (const int part : {1, 4}) {
                                QLabel& label = board.Element(4 * i + part);
                                const auto [place, text, advance, font, color] = drawnText(label);
                                QCOMPARE(text, label.text());
                                // A place in the middle, a score at the right.
                                const double right = label.width() - place.x() - advance;
                                QVERIFY2(place.x() >= 0 && right >= 0, qPrintable(text));
                                QVERIFY(part == 1 ? std::abs(place.x() - right) <= 2
                                                  : place.x() >= right - 1);
                                sizes[part / 4].insert(font.pointSizeF());
                            }
                        QVERIFY(sizes[0].size() == 1 && sizes[1].size() == 1);
                        const auto alone = drawnText(board.Element(4 * list.LastIndex() + 4));
                        QCOMPARE(alone.Content, "100000");
                        const double usual = *sizes[1].begin();
                        QVERIFY(usual == points || alone.Font.pointSizeF() < usual);
                    }
    }

    // The heading shrinks to half of its size, and only then ends in an ellipsis.
    void shrinksTheHeading() {
        const TestBoard board({800, 600});
        for (const auto& [length, isWhole] : {std::pair(15, true), {30, true}, {120, false}}) {
            const QString heading = QString(length, u'n');
            QVERIFY(Render({}).RenderResults(*board.Screen, RowsAt({}), heading, 0));
            const auto text = drawnText(Control<QLabel>(*board.Screen, "lblHeading"));
            QCOMPARE(text.Content == heading, isWhole);
            const double points = text.Font.pointSizeF();
            QVERIFY(points >= 24 && (length > 15 || points == 48));
        }
    }

    // A name takes the joker's place until the joker shows.
    void endsANameBeforeItsJoker() {
        const TestBoard board;
        SummaryList list;
        list.Add(std::make_shared<Summary>(Summary{QString(300, u'n'), 5, true, 1}));
        QVERIFY(board.Render(list));
        QLabel& name = board.Element(2);
        for (const bool isRevealed : {false, true}) {
            const auto text = drawnText(name);
            QCOMPARE(name.x() + text.Place.x() + text.Width <= board.Element(3).x(), isRevealed);
            board.Screen->SetLineVisible(1);
        }
    }

    // The operator who wants to see errors, and nobody else, sees them over the board, which then
    // has the keyboard.
    void tellsErrorsOverTheBoard() {
        QWidget console;
        for (const char* mode : {"1", "01", "", "0"}) {
            const TestBoard board({}, QByteArray("LabelWidth=0 DebugMode=") + mode);
            ShowScreen(console);
            ConnectDesktop();
            const auto told = [&](QDialog& box) {
                QCOMPARE(box.parentWidget(), board.Screen);
                MessageBox("Application Error", "9700 : [11] Division by zero [RenderLine/Render]",
                           Qt::Key_Return)(box);
            };
            const ModalAnswers answers(std::list<ModalAnswers::Answer>(*mode == '1', told));
            board.Screen->Build([&] { QVERIFY(!board.Render(RowsAt({1, 2}))); });
            QVERIFY(answers.AllGiven());
            QTRY_VERIFY(board.Screen->isActiveWindow());
        }
    }

    // The window gets another size while the board is open: it is laid out anew for it, with what
    // was revealed, and only that.
    void fitsTheSizeThatItGets() {
        const QList<int> rows{-1, 2, 3, 4};
        const QSize sizes[] = {{800, 600}, {1003, 100}};
        const QString expected[] = {placesOf(sizes[0], rows), placesOf(sizes[1], rows)};
        const TestBoard board({1200, 700});
        frmSummary& screen = *board.Screen;
        screen.Build([&] { Render({}).RenderResults(screen, RowsAt(rows), "x", 4); });
        const QSignalSpy built(&screen, &frmSummary::built);
        Type("1");
        for (int i = 0; i < 2; ++i) {
            screen.resize(sizes[i]);
            QTRY_COMPARE(built.size(), i + 1);
            QCOMPARE(board.Places(), expected[i]);
            QVERIFY(board.Element(1).isVisible() && board.Element(3).isVisible());
            QVERIFY(!board.Element(5).isVisible() && board.Element(13).isVisible());
        }
    }

    // What is said about lines outside is what is seen, and the size that is advised is the largest
    // that helps.
    void countsLinesOutside() {
        for (const QSize size : {QSize(800, 600), QSize(1280, 720), QSize(1366, 768)})
            for (const int teams : {1, 12, 13, 17, 24, 40}) {
                const TestBoard board(size);
                const auto outside = [&](int points) {
                    modCommon::AppSettings().FontSize = QString::number(points);
                    if (!board.Render(RowsAt(QList<int>(teams, 9))))
                        return -1;
                    int lines = 0;
                    for (int i = 0; i < teams; ++i)
                        lines +=
                            !board.Screen->rect().contains(board.Element(4 * i + 1).geometry() |
                                                           board.Element(4 * i + 4).geometry());
                    return lines;
                };
                const int lines = outside(32);
                const auto [told, advised] = board.Screen->LinesOutside();
                QVERIFY(told == lines && advised > 0);
                for (const int points : ListedSizes())
                    if (points >= advised)
                        QCOMPARE(outside(points) == 0, points == advised);
            }
    }
};

QTEST_MAIN(BoardTest)
#include "BoardTest.moc"
