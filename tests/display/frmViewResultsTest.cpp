#include "display/frmViewResults.h"
#include "core/RuntimeError.h"
#include "display/Render.h"
#include "display/ResultsPage.h"
#include "support/AppFolder.h"
#include "support/Operator.h"
#include "support/PaintRecorder.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QPainter>
#include <QPdfWriter>
#include <QTest>
#include <QTreeWidget>
#include <QWindow>

namespace {

/// As much paper as it says.
struct RecordingPaper : QPdfWriter {
    using QPdfWriter::QPdfWriter;
    bool newPage() override { return --PagesLeft > 0; }
    QPaintEngine* paintEngine() const override { return &Engine; }

    int PagesLeft = 3;
    mutable PaintRecorder Engine;
};

} // namespace

class frmViewResultsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void listsTheStandingsUntilEscape() {
        AppFolder folder;
        SummaryList standings;
        for (const Summary& row :
             {Summary{"The <b>Crisps</b>\tx", 56, true, 1}, Summary{"Last Orders", -3, false, 2}})
            standings.Add(std::make_shared<Summary>(row));
        frmViewResults screen;
        const ModalAnswers answers({[](QDialog& dialog) {
            QCOMPARE(dialog.windowHandle()->title(), "Music [*] & More Results");
            QCOMPARE(Rows(Control<QTreeWidget>(dialog, "lvResults")),
                     "1 The <b>Crisps</b>\tx 56 Played|2 Last Orders -3 ");
            auto& list = Control<QTreeWidget>(dialog, "lvResults");
            for (const char* copied : {"Position\tTeam Name\tScore\tJoker\n"
                                       "1\tThe <b>Crisps</b> x\t56\tPlayed\n"
                                       "2\tLast Orders\t-3\t\n",
                                       "2\tLast Orders\t-3\t\n"}) {
                Press(Qt::Key_C, Qt::ControlModifier);
                QCOMPARE(QGuiApplication::clipboard()->text(), copied);
                ClickRow(list, 1);
            }
            // Without a printer the button says why it cannot be pressed; with one it prints once
            // an opening, also when the printer does not take it.
            auto& printers = Control<QComboBox>(dialog, "cboPrinter");
            auto& print = Control<QAbstractButton>(dialog, "cmdPrint");
            const auto& told = Control<QLabel>(dialog, "lblPrinted");
            printers.clear();
            QVERIFY(!print.isEnabled() && print.toolTip() == "There is no printer");
            printers.addItem("No Such Printer");
            QVERIFY(print.isEnabled() && !told.isVisible());
            print.click();
            printers.setCurrentIndex(-1);
            printers.setCurrentIndex(0);
            QVERIFY(!print.isEnabled() && told.isVisible() && told.text() == "Not printed");
            Press(Qt::Key_Escape);
        }});
        QVERIFY(Render({}).ViewResults(screen, standings, "Music [*] & More Results"));
        QVERIFY(answers.AllGiven());
        QCOMPARE(folder.TakeReports().size(), 1);
    }

    // Three pages of teams, also with names that a fixed pitch font has no letters for, after the
    // widest line: a name too long before a score of eleven characters.
    void staysATableOnEveryPaper() {
        const QStringList names{"Plain", "\U0001F984 Unicorns", "\u05E9\u05DC", "e\u0301e\u0301"};
        QList<QStringList> rows{{"0", QString(61, u'W'), "-2147483648"}};
        for (int i = 1; i <= 120; ++i)
            rows.append({QString::number(i), names[i % names.size()], QString::number(-i)});
        for (const auto size : {QPageSize::A4, QPageSize::Letter}) {
            RecordingPaper paper((QString()));
            paper.setPageSize(QPageSize(size));
            const QFont own = QPainter(&paper).font();
            const double millimetre = paper.resolution() / 25.4;
            const QPageLayout layout = paper.pageLayout();
            const QRectF sheet = layout.fullRectPixels(paper.resolution());
            const QPoint origin = layout.paintRectPixels(paper.resolution()).topLeft();
            const QRectF printable = sheet.marginsRemoved(QMarginsF(8, 15, 8, 15) * millimetre);
            ResultsPage::Paint(paper, ResultsPage::Lines("Title", rows));
            QCOMPARE(paper.PagesLeft, 1);
            QSet<double> scores;
            for (const auto& [place, text, advance, font] : paper.Engine.Texts) {
                const bool isTitle = text.startsWith("Title");
                QCOMPARE(font.family(), isTitle ? own.family() : "Courier New");
                QCOMPARE(font.pointSize(), isTitle ? own.pointSize() : 11);
                QVERIFY(isTitle || QFontInfo(font).fixedPitch());
                const double width = QFontMetricsF(font, &paper).horizontalAdvance(text.trimmed());
                const QRectF box(place + origin, QSizeF(std::max(width, 1.0), 1));
                QVERIFY2(printable.contains(box), qPrintable(text));
                if (const int score = text.toInt(); score < 0 && score >= -120)
                    scores.insert(place.x());
            }
            QCOMPARE(scores.size(), 1);
            QVERIFY_THROWS_EXCEPTION(RuntimeError, ResultsPage::Paint(paper, {200, {"too much"}}));
        }
    }
};

QTEST_MAIN(frmViewResultsTest)
#include "frmViewResultsTest.moc"
