#include "TestBoard.h"
#include "display/BoardLabel.h"
#include "support/AppFolder.h"
#include "support/HostileTexts.h"
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

QString geometryOf(const QWidget& control) {
    return QStringLiteral("%1 %2 %3 %4")
        .arg(control.x())
        .arg(control.y())
        .arg(control.width())
        .arg(control.height());
}

QString colorsOf(const QLabel& label) {
    return label.palette().color(QPalette::Window).name() + u' ' +
           label.palette().color(QPalette::WindowText).name();
}

} // namespace

Q_DECLARE_METATYPE(Change)

class RenderTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // In pixels, 15 twips each; the display is 800 pixels wide.
    void placesElements_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("rows");
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("expected");

        QTest::newRow("20 points")
            << QSize(1280, 720) << 1 << Change([](AppValues& app) { app.FontSize = "20"; })
            << "0 0 800 44|13 59 78 29|94 59 1097 29|1162 59 29 29|1194 59 78 29";
        QTest::newRow("the default settings")
            << QSize(1920, 1080) << 2 << Change([](AppValues&) {})
            << "0 0 800 70|13 94 124 47|140 94 1646 47|1739 94 47 47|1788 94 124 47"
               "|13 146 124 47|140 146 1646 47|1739 146 47 47|1788 146 124 47";
        // A line is 412.5 twips high, a position box 7312.5 wide: both are cut to the even number.
        QTest::newRow("halves go to the even number")
            << QSize(1003, 300) << 1 << Change([](AppValues& app) {
                   app.FontSize = "18.75";
                   app.LeftMargin = app.CellPadX = 0;
                   app.RightMargin = 210;
                   app.LabelWidth = 1;
               })
            << "0 0 800 41|0 55 487 27|487 55 14 27|474 55 27 27|502 55 487 27";
        // A column is 7522.5 twips wide; the fifth line does not fit any more.
        QTest::newRow("two columns")
            << QSize(1003, 150) << 6 << Change([](AppValues& app) {
                   app.FontSize = "18.75";
                   app.LeftMargin = app.RightMargin = app.CellPadY = app.Footer = 0;
               })
            << "0 0 800 41|0 55 72 27|74 55 358 27|405 55 27 27|435 55 72 27"
               "|0 82 72 27|74 82 358 27|405 82 27 27|435 82 72 27"
               "|0 110 72 27|74 110 358 27|405 110 27 27|435 110 72 27"
               "|0 137 72 27|74 137 358 27|405 137 27 27|435 137 72 27"
               "|501 55 72 27|576 55 358 27|906 55 27 27|937 55 72 27"
               "|501 82 72 27|576 82 358 27|906 82 27 27|937 82 72 27";
    }

    void placesElements() {
        QFETCH(QSize, size);
        QFETCH(int, rows);
        QFETCH(Change, change);
        QFETCH(QString, expected);
        AppFolder folder;
        change(App());
        TestBoard board(size.width(), size.height());
        QVERIFY(board.Render(Rows(rows)));

        QStringList found{
            geometryOf(Control<QLabel>(board.Screen(), QStringLiteral("lblHeading")))};
        for (int i = 1; i <= 4 * rows; ++i)
            found.append(geometryOf(board.Element(i)));
        QCOMPARE(found.join(u'|'), expected);
        QCOMPARE(board.Screen().findChildren<QLabel*>().size(), found.size());
    }

    // How many lines stand in each column. Line heights: 286 twips at 13 points, 330 at 15.
    void fillsColumns_data() {
        QTest::addColumn<int>("height");
        QTest::addColumn<QString>("points");
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("footer");
        QTest::addColumn<QString>("expected");
        // 30 x 330 twips = 660 pixels; the lines below the footer stay in the one column.
        QTest::newRow("exactly equal") << 660 << "15" << 30 << -9000 << "30";
        QTest::newRow("one line more") << 660 << "15" << 31 << -9000 << "31 0";
        // 31 x 286 = 8866 twips against 8865.
        QTest::newRow("one twip less") << 591 << "13" << 31 << 0 << "23 8";
        // The last line's top may be just where the footer begins: 572 + 10 x 366 = 4232.
        QTest::newRow("the last fitting line") << 309 << "13" << 17 << 403 << "11 6";
        QTest::newRow("a footer one twip higher") << 309 << "13" << 17 << 404 << "10 7";
        QTest::newRow("more columns than fit") << 100 << "13" << 7 << 0 << "3 3 1";
        QTest::newRow("a footer above everything") << 400 << "13" << 3 << 9000 << "1 1 1";
    }

    void fillsColumns() {
        QFETCH(int, height);
        QFETCH(QString, points);
        QFETCH(int, rows);
        QFETCH(int, footer);
        QFETCH(QString, expected);
        AppFolder folder;
        App().FontSize = points;
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
        QCOMPARE(found.join(u' '), expected);
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
        QCOMPARE(heading.text(), QStringLiteral("Music Results"));
        QCOMPARE(colorsOf(heading), QStringLiteral("#0d0e0f #040506"));
        QCOMPARE(heading.alignment(), Qt::AlignCenter);
        QVERIFY(heading.font().bold());
        QCOMPARE(heading.font().pointSize(), 14);
        QCOMPARE(board.Screen().palette().color(QPalette::Window), QColor(13, 14, 15));

        const struct {
            const char* position;
            const char* colors;
            bool isVisible, hasJoker;
        } lines[] = {
            {"1", "#00ff00 #040506", false, true},  {"2", "#008000 #040506", false, false},
            {"2", "#008000 #040506", false, false}, {"3", "#004000 #040506", false, false},
            {"4", "#070809 #0a0b0c", true, false},  {"5", "#010203 #040506", true, true},
        };
        int number = 0;
        for (const auto& line : lines) {
            const QString team = QStringLiteral("Team %1").arg(number / 4);
            const QString score = QString::number(100 - QString(line.position).toInt());
            const struct {
                QString text;
                Qt::Alignment align;
            } labels[] = {{line.position, Qt::AlignCenter},
                          {team, Qt::AlignLeft | Qt::AlignVCenter},
                          {QString(), {}},
                          {score, Qt::AlignRight | Qt::AlignVCenter}};
            for (const auto& [text, align] : labels) {
                const QLabel& element = board.Element(++number);
                QCOMPARE(element.property(TagProperty).toString(), QString(line.position));
                if (text.isEmpty()) {
                    QVERIFY2(!element.isVisible(), "a joker waits until its line is revealed");
                    QCOMPARE(element.pixmap().isNull(), !line.hasJoker);
                    continue;
                }
                QCOMPARE(element.text(), text);
                QCOMPARE(element.alignment(), align);
                QCOMPARE(colorsOf(element), QString(line.colors));
                QCOMPARE(element.isVisible(), line.isVisible);
                QCOMPARE(element.font().family(), QStringLiteral("DejaVu Sans"));
                QCOMPARE(element.font().pointSize(), 9);
                QVERIFY(!element.font().bold());
            }
        }
    }

    void drawsAnEmptyList() {
        AppFolder folder;
        TestBoard board(1000, 600);
        QVERIFY(board.Render(SummaryList()));
        QVERIFY(board.Screen().isVisible());
        QCOMPARE(board.Screen().findChildren<QLabel*>().size(), 1);
    }

    // What was drawn before the failure stays.
    void stopsAtAFailure_data() {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("jokerFile");
        QTest::addColumn<int>("controls");
        QTest::addColumn<QString>("report");
        const QString good = QStringLiteral("good");
        QTest::newRow("points in words") << Change([](AppValues& app) { app.FontSize = "big"; })
                                         << good << 0 << "[13]*[RenderResults/Render]";
        QTest::newRow("no points") << Change([](AppValues& app) { app.FontSize = "0"; }) << good
                                   << 1 << "[5]*[RenderLabel/Render]";
        QTest::newRow("too many points") << Change([](AppValues& app) { app.FontSize = "1e9"; })
                                         << good << 0 << "[6]*[RenderResults/Render]";
        QTest::newRow("label width 0") << Change([](AppValues& app) { app.LabelWidth = 0; }) << good
                                       << 1 << "[11]*[RenderLine/Render]";
        QTest::newRow("padding without end")
            << Change([](AppValues& app) { app.CellPadY = 2147483647; }) << good << 5
            << "[6]*[RenderLine/Render]";
        QTest::newRow("no joker picture")
            << Change([](AppValues&) {}) << QString() << 8 << "[53]*JOKER.BMP*[RenderImage/Render]";
        QTest::newRow("a joker that is no picture")
            << Change([](AppValues&) {}) << QStringLiteral("text") << 8
            << "[53]*JOKER.BMP*[RenderImage/Render]";
    }

    void stopsAtAFailure() {
        QFETCH(Change, change);
        QFETCH(QString, jokerFile);
        QFETCH(int, controls);
        QFETCH(QString, report);
        AppFolder folder;
        if (jokerFile == QStringLiteral("good"))
            writeJoker(folder);
        else if (!jokerFile.isEmpty())
            WriteFile(folder.Path(QStringLiteral("JOKER.BMP")), "no picture");
        change(App());
        TestBoard board(1000, 600);
        QVERIFY(!board.Render(RowsAt({1, -2, 3})));
        QCOMPARE(board.Screen().findChildren<QLabel*>().size(), controls);
        QVERIFY(board.Screen().isVisible());
        const QStringList reports = folder.TakeReports();
        QCOMPARE(reports.size(), 1);
        for (const QString& part : report.split(u'*'))
            QVERIFY2(reports.first().contains(part), qPrintable(reports.first()));
    }

    void refusesWithoutABoardOrUnderAUsedName() {
        AppFolder folder;
        const Summary row;
        QVERIFY(!Render().RenderLine(row, true));
        QVERIFY(!Render().RenderLabel({}));
        QVERIFY(!Render().RenderImage({}));
        for (const QString& report : folder.TakeReports())
            QVERIFY2(report.contains(QStringLiteral("[91]")), qPrintable(report));

        // A second build on the same screen: the heading is there already.
        TestBoard board(1000, 600);
        QVERIFY(board.Render(Rows(1)));
        QVERIFY(!board.Render(Rows(1)));
        QCOMPARE(board.Screen().findChildren<QLabel*>().size(), 5);
        QVERIFY(folder.TakeReports().value(0).contains(QStringLiteral("lblHeading")));
    }

    // The picture is read anew for each board, and once for a board.
    void readsTheJokerOfTheDay() {
        AppFolder folder;
        writeJoker(folder);
        TestBoard first(1000, 600);
        QVERIFY(first.Render(RowsAt({-1, -2})));
        QCOMPARE(first.Element(3).pixmap().cacheKey(), first.Element(7).pixmap().cacheKey());
        QVERIFY(QFile::remove(folder.Path(QStringLiteral("JOKER.BMP"))));
        TestBoard second(1000, 600);
        QVERIFY(!second.Render(RowsAt({-1, -2})));
    }

    void showsHostileNamesAsTheyStand() {
        AppFolder folder;
        TestBoard board(1000, 600);
        SummaryList list;
        for (const HostileText& hostile : HostileTexts()) {
            auto row = std::make_shared<Summary>();
            row->TeamName = hostile.Text;
            row->Position = 1;
            list.Add(row);
        }
        QVERIFY(board.Render(list));
        for (int i = 0; i <= list.LastIndex(); ++i) {
            const QLabel& name = board.Element(4 * i + 2);
            QCOMPARE(name.text(), list.Item(i)->TeamName);
            QCOMPARE(name.textFormat(), Qt::PlainText);
        }
        // Drawing them all must not end the evening.
        QVERIFY(!board.Screen().grab().isNull());
    }
};

QTEST_MAIN(RenderTest)
#include "RenderTest.moc"
