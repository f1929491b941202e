#include "TestBoard.h"
#include "display/BoardLabel.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QImage>
#include <QTest>

namespace {

using Change = void (*)(AppValues& app);

void writeJoker(const AppFolder& folder) {
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(folder.Path(QStringLiteral("JOKER.BMP")), "BMP"));
}

QString colorsOf(const QLabel& label) {
    return label.palette().color(QPalette::Window).name() + u' ' +
           label.palette().color(QPalette::WindowText).name();
}

} // namespace

class RenderTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // In pixels, 15 twips each; the display is 800 pixels wide.
    void placesElements() {
        const struct {
            int width, height, rows;
            Change change;
            const char* expected;
        } cases[] = {
            {1920, 1080, 1, [](AppValues&) {},
             "0 0 800 70|13 94 124 47|140 94 1646 47|1739 94 47 47|1788 94 124 47"},
            // A line is 412.5 twips high, a position box 7312.5 wide: both go to the even number.
            {1003, 300, 1,
             [](AppValues& app) {
                 app.FontSize = "18.75";
                 app.LeftMargin = app.CellPadX = 0;
                 app.RightMargin = 210;
                 app.LabelWidth = 1;
             },
             "0 0 800 41|0 55 487 27|487 55 14 27|474 55 27 27|502 55 487 27"},
            // A column is 7522.5 twips wide; the fifth line does not fit any more.
            {1003, 150, 6,
             [](AppValues& app) {
                 app.FontSize = "18.75";
                 app.LeftMargin = app.RightMargin = app.CellPadY = app.Footer = 0;
             },
             "0 0 800 41|0 55 72 27|74 55 358 27|405 55 27 27|435 55 72 27"
             "|0 82 72 27|74 82 358 27|405 82 27 27|435 82 72 27"
             "|0 110 72 27|74 110 358 27|405 110 27 27|435 110 72 27"
             "|0 137 72 27|74 137 358 27|405 137 27 27|435 137 72 27"
             "|501 55 72 27|576 55 358 27|906 55 27 27|937 55 72 27"
             "|501 82 72 27|576 82 358 27|906 82 27 27|937 82 72 27"},
        };
        for (const auto& [width, height, rows, change, expected] : cases) {
            AppFolder folder;
            change(App());
            TestBoard board(width, height);
            QVERIFY(board.Render(Rows(rows)));
            QStringList found;
            for (const QLabel* label : board.Screen().findChildren<QLabel*>())
                found.append(QStringLiteral("%1 %2 %3 %4")
                                 .arg(label->x())
                                 .arg(label->y())
                                 .arg(label->width())
                                 .arg(label->height()));
            QCOMPARE(found.join(u'|'), QString(expected));
        }
    }

    // How many lines stand in each column. Line heights: 286 twips at 13 points, 330 at 15.
    void fillsColumns() {
        const struct {
            int height;
            const char* points;
            int rows, footer;
            const char* expected;
        } cases[] = {
            // 30 x 330 twips = 660 pixels; the lines below the footer stay in the one column.
            {660, "15", 30, -9000, "30"},
            {660, "15", 31, -9000, "31 0"},
            // 31 x 286 = 8866 twips against 8865.
            {591, "13", 31, 0, "23 8"},
            // The last line's top may be just where the footer begins: 572 + 10 x 366 = 4232.
            {309, "13", 17, 403, "11 6"},
            {309, "13", 17, 404, "10 7"},
            {100, "13", 7, 0, "3 3 1"},
        };
        for (const auto& [height, points, rows, footer, expected] : cases) {
            AppFolder folder;
            App().FontSize = QString(points);
            App().Footer = footer;
            TestBoard board(1000, height);
            QVERIFY(board.Render(Rows(rows)));
            QMap<int, int> lines;
            for (int i = 1; i <= 4 * rows; i += 4)
                ++lines[board.Element(i).x()];
            QStringList found;
            for (const int count : lines)
                found.append(QString::number(count));
            const bool isOneColumn = board.Element(4).geometry().right() > 500;
            if (lines.size() == 1 && !isOneColumn)
                found.append(QStringLiteral("0"));
            QCOMPARE(found.join(u' '), QString(expected));
        }
    }

    void describesElements() {
        AppFolder folder;
        writeJoker(folder);
        App().BColorA = 0x030201;
        App().FColorA = 0x060504;
        App().BColorB = 0x090807;
        App().FColorB = 0x0C0B0A;
        App().BackGround = 0x0F0E0D;
        App().FontName = QStringLiteral("DejaVu Sans");
        App().FontSize = QStringLiteral("9");
        TestBoard board(1000, 600);
        QVERIFY(board.Render(RowsAt({-1, 2, 2, 3, 4, -5}), 4));

        const auto& heading = Control<QLabel>(board.Screen(), QStringLiteral("lblHeading"));
        QCOMPARE(heading.text() + u' ' + colorsOf(heading),
                 QStringLiteral("Music Results #0d0e0f #040506"));
        QVERIFY(heading.font().bold());
        QCOMPARE(heading.font().pointSize(), 14);
        QCOMPARE(board.Screen().palette().color(QPalette::Window), QColor(13, 14, 15));

        const struct {
            const char *position, *colors;
            bool isVisible, hasJoker;
        } lines[] = {
            {"1", "#00ff00 #040506", false, true},  {"2", "#008000 #040506", false, false},
            {"2", "#008000 #040506", false, false}, {"3", "#004000 #040506", false, false},
            {"4", "#070809 #0a0b0c", true, false},  {"5", "#010203 #040506", true, true},
        };
        int number = 0;
        for (const auto& [position, colors, isVisible, hasJoker] : lines) {
            const QString team = QStringLiteral("Team %1").arg(number / 4);
            const QString score = QString::number(100 - QString(position).toInt());
            for (const QString& text : {QString(position), team, QString(), score}) {
                const QLabel& element = board.Element(++number);
                QCOMPARE(element.property(TagProperty).toString(), QString(position));
                if (text.isEmpty()) {
                    QVERIFY2(!element.isVisible(), "a joker waits until its line is revealed");
                    QCOMPARE(element.pixmap().isNull(), !hasJoker);
                    continue;
                }
                QCOMPARE(element.text() + u' ' + colorsOf(element), text + u' ' + colors);
                QCOMPARE(element.isVisible(), isVisible);
                QCOMPARE(element.font().family(), QStringLiteral("DejaVu Sans"));
                QCOMPARE(element.font().pointSize(), 9);
            }
        }
    }

    // What was drawn before the failure stays.
    void stopsAtAFailure() {
        const struct {
            Change change;
            const char* jokerFile;
            int controls;
            const char *number, *place;
        } cases[] = {
            {[](AppValues& app) { app.FontSize = "big"; }, "good", 0, "[13]", "RenderResults"},
            {[](AppValues& app) { app.FontSize = "0"; }, "good", 1, "[5]", "RenderLabel"},
            {[](AppValues& app) { app.LabelWidth = 0; }, "good", 1, "[11]", "RenderLine"},
            {[](AppValues& app) { app.CellPadY = 2147483647; }, "good", 5, "[6]", "RenderLine"},
            {[](AppValues&) {}, "", 8, "[53]", "RenderImage"},
            {[](AppValues&) {}, "no picture", 8, "[53]", "RenderImage"},
        };
        for (const auto& [change, jokerFile, controls, number, place] : cases) {
            AppFolder folder;
            if (jokerFile == QStringLiteral("good"))
                writeJoker(folder);
            else if (*jokerFile)
                WriteFile(folder.Path(QStringLiteral("JOKER.BMP")), jokerFile);
            change(App());
            TestBoard board(1000, 600);
            QVERIFY(!board.Render(RowsAt({1, -2, 3})));
            QCOMPARE(board.Screen().findChildren<QLabel*>().size(), controls);
            QVERIFY(board.Screen().isVisible());
            const QString report = folder.TakeReports().join(u'|');
            QVERIFY2(report.startsWith(QStringLiteral("9700 : ") + number), qPrintable(report));
            QVERIFY2(report.endsWith(QStringLiteral("[%1/Render]").arg(QString(place))),
                     qPrintable(report));
        }
    }
};

QTEST_MAIN(RenderTest)
#include "RenderTest.moc"
