#include "TestBoard.h"
#include "core/RuntimeError.h"
#include "display/BoardPreview.h"
#include "display/ResultsPage.h"
#include "display/frmOptions.h"
#include "display/frmViewResults.h"
#include "support/PaintRecorder.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QFontInfo>
#include <QLineEdit>
#include <QPdfWriter>
#include <QTest>
#include <QTreeWidget>
#include <QWindow>

namespace {

// Fills boxes, given as "name=text", and saves.
void save(const QWidget& screen, const QString& boxes) {
    for (const QString& box : boxes.split(u' '))
        Control<QLineEdit>(screen, box.section(u'=', 0, 0)).setText(box.section(u'=', 1));
    Click(Control<QAbstractButton>(screen, "cmdSave"));
}

/// As much paper as it says.
struct RecordingPaper : QPdfWriter {
    using QPdfWriter::QPdfWriter;
    bool newPage() override { return --PagesLeft > 0; }
    QPaintEngine* paintEngine() const override { return &Engine; }

    int PagesLeft = 3;
    mutable PaintRecorder Engine;
};

} // namespace

class DisplayTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // Thirteen settings; the footer is not written. The INI file may come from a computer with
    // other fonts, and from a person who wrote notes in it. A number too large leaves it and every
    // setting as they were.
    void savesWhatIsChosen() {
        AppFolder folder;
        const QByteArray before = "; our notes\n[Application]\nFooter=720\nFontName=No Such Font\n"
                                  "FontSize=33.5\nOurs=1\n[Other]\na=b\n";
        WriteFile(folder.IniPath(), before);
        QVERIFY(modCommon::Settings(modCommon::LoadSettings));
        frmOptions screen(nullptr, nullptr);
        ShowScreen(screen);
        QTRY_COMPARE(Control<QLabel>(screen, "lblFit").text(), "No teams yet: these are made up");
        folder.TakeReports(); // of the teams, which cannot be read
        auto& font = Control<QComboBox>(screen, "cboDisplayFont");
        QCOMPARE(font.currentText(), "No Such Font");
        font.setEditText("Party");
        const std::tuple<const char*, const char*, QColor, QColor> colors[] = {
            {"cmdBackColourA", "lblBackColorA", {192, 64, 0}, {1, 0, 0}},
            {"cmdForeColourA", "lblForeColorA", {255, 255, 128}, {0, 1, 0}},
            {"cmdBackColourB", "lblBackColorB", {128, 64, 0}, {0, 0, 1}},
            {"cmdForeColourB", "lblForeColorB", {255, 255, 128}, {2, 0, 0}},
            {"cmdBackground", "lblBackground", Qt::black, {3, 0, 0}}};
        for (const auto& [button, swatch, old, chosen] : colors)
            for (const bool isCancelled : {true, false}) {
                const ModalAnswers answers({[&](QDialog& dialog) {
                    QCOMPARE(dialog.windowTitle(), "Colour Properties");
                    auto& colorDialog = dynamic_cast<QColorDialog&>(dialog);
                    QCOMPARE(colorDialog.currentColor(), old);
                    colorDialog.setCurrentColor(chosen);
                    dialog.done(isCancelled ? QDialog::Rejected : QDialog::Accepted);
                }});
                // The button chooses, and so does a click on the colour itself.
                Click(Control<QWidget>(screen, isCancelled ? swatch : button));
                QVERIFY(answers.AllGiven());
                const QImage painted = Control<QLabel>(screen, swatch).grab().toImage();
                QCOMPARE(painted.pixelColor(painted.rect().center()), isCancelled ? old : chosen);
            }
        save(screen, "txtLMargin=1 txtCellWidth=99999999999");
        QCOMPARE(folder.TakeReports(),
                 QStringList("9700 : [6] Overflow [cmdSave_Click/frmOptions]"));
        QVERIFY(screen.isVisible());
        QCOMPARE(modCommon::AppSettings().LeftMargin, 200);
        QCOMPARE(ReadFile(folder.IniPath()), before);

        save(screen, "txtCellPadX=1 txtCellPadY=2.5 txtLMargin=-3 txtRMargin=4e0 txtCellWidth=0 "
                     "txtFooter=abc");
        QVERIFY(!screen.isVisible());
        QCOMPARE(QString(ReadFile(folder.IniPath())).simplified(),
                 "; our notes [Application] Footer=720 FontName=Party FontSize=33.5 Ours=1 "
                 "DebugMode=0 BackGround=3 FColorA=256 BColorA=1 FColorB=2 BColorB=65536 "
                 "CellPadX=1 CellPadY=2 LeftMargin=-3 RightMargin=4 LabelWidth=0 [Other] a=b");
        QVERIFY(modCommon::AppSettings().Footer == 720 && folder.TakeReports().isEmpty());
    }

    // The picture is the board as it would open, in settings that nobody has saved; the line below
    // it says how many teams fit.
    void picturesTheBoard() {
        const AppFolder folder;
        modCommon::AppSettings() = {};
        WriteFile(folder.Path("JOKER.BMP"), ReadFile(":/JOKER.BMP"));
        RunForeign(folder.DatabasePath(),
                   {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<9) "
                    "INSERT INTO Teams SELECT i, 'Team ' || i FROM n",
                    "INSERT INTO Results SELECT TeamID, 'r', TeamID, TeamID, 1 FROM Teams"});
        folder.Open();
        frmOptions screen(nullptr, nullptr);
        ShowScreen(screen);
        auto& size = Control<QComboBox>(screen, "cboDisplaySize");
        QCOMPARE(size.count(), ListedSizes().size());
        size.setFocus();
        auto& preview = *screen.findChild<BoardPreview*>();
        for (const auto& [points, margin] : {std::pair("7", 900), {"70", 0}, {"big", 0}}) {
            size.lineEdit()->selectAll();
            Type(points);
            QCOMPARE(size.currentText(), points);
            Control<QLineEdit>(screen, "txtLMargin").setText(QString::number(margin));
            QCoreApplication::processEvents();
            frmSummary board(nullptr);
            DisplaySettings settings;
            settings.FontSize = points;
            settings.LeftMargin = margin;
            Render(settings).RenderResults(board, *SummaryDAO().GetOverallSummary(2),
                                           "Rankelo Results", 0);
            const auto [outside, advised] = board.LinesOutside();
            const QString fit = "%1 of 9 teams fit; all fit with up to %2 points";
            QCOMPARE(Control<QLabel>(screen, "lblFit").text(),
                     advised ? fit.arg(9 - outside).arg(advised) : "The board cannot be drawn so");
            preview.setMinimumSize(board.size());
            preview.resize(board.size());
            QCOMPARE(preview.grab().toImage().convertToFormat(QImage::Format_RGB32),
                     board.grab().toImage().convertToFormat(QImage::Format_RGB32));
        }
        QVERIFY(modCommon::AppSettings() == DisplaySettings() && folder.Files().size() == 2);
    }

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
            QCOMPARE(print.toolTip(), "Not printed");
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
            const double millimetre = paper.resolution() / 25.4;
            const QPageLayout layout = paper.pageLayout();
            const QRectF sheet = layout.fullRectPixels(paper.resolution());
            const QPoint origin = layout.paintRectPixels(paper.resolution()).topLeft();
            const QRectF printable = sheet.marginsRemoved(QMarginsF(8, 15, 8, 15) * millimetre);
            ResultsPage::Paint(paper, ResultsPage::Lines("Title", rows));
            QCOMPARE(paper.PagesLeft, 1);
            QSet<double> scores;
            for (const auto& [place, text, advance, font, color] : paper.Engine.Texts) {
                QVERIFY(text.startsWith("Title") || QFontInfo(font).fixedPitch());
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

QTEST_MAIN(DisplayTest)
#include "DisplayTest.moc"
