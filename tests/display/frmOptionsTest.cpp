#include "display/frmOptions.h"
#include "app/modCommon.h"
#include "display/BoardPreview.h"
#include "display/Render.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

namespace {

// Fills boxes, given as "name=text", and saves.
void save(const QWidget& screen, const QString& boxes) {
    for (const QString& box : boxes.split(u' '))
        Control<QLineEdit>(screen, box.section(u'=', 0, 0)).setText(box.section(u'=', 1));
    Click(Control<QAbstractButton>(screen, "cmdSave"));
}

} // namespace

class frmOptionsTest : public QObject {
    Q_OBJECT

private slots:
    // Thirteen of them; the footer is not written.
    void savesWhatIsChosen() {
        AppFolder folder;
        folder.Open();
        modCommon::AppSettings() = {};
        frmOptions screen(nullptr, nullptr);
        ShowScreen(screen);
        const struct {
            const char *button, *swatch;
            QColor before, chosen;
        } colours[] = {{"cmdBackColourA", "lblBackColorA", {192, 64, 0}, {1, 0, 0}},
                       {"cmdForeColourA", "lblForeColorA", {255, 255, 128}, {0, 1, 0}},
                       {"cmdBackColourB", "lblBackColorB", {128, 64, 0}, {0, 0, 1}},
                       {"cmdForeColourB", "lblForeColorB", {255, 255, 128}, {2, 0, 0}},
                       {"cmdBackground", "lblBackground", Qt::black, {3, 0, 0}}};
        for (const auto& [button, swatch, before, chosen] : colours)
            for (const bool isCancelled : {true, false}) {
                const ModalAnswers answers({[&](QDialog& dialog) {
                    QCOMPARE(dialog.windowTitle(), "Colour Properties");
                    auto& colourDialog = dynamic_cast<QColorDialog&>(dialog);
                    QCOMPARE(colourDialog.currentColor(), before);
                    colourDialog.setCurrentColor(chosen);
                    dialog.done(isCancelled ? QDialog::Rejected : QDialog::Accepted);
                }});
                // The button chooses, and so does a click on the colour itself.
                Click(Control<QWidget>(screen, isCancelled ? swatch : button));
                QVERIFY(answers.AllGiven());
                QCOMPARE(Control<QLabel>(screen, swatch).palette().color(QPalette::Window),
                         isCancelled ? before : chosen);
            }
        Control<QComboBox>(screen, "cboDisplayFont").setEditText("Party");
        Control<QComboBox>(screen, "cboDisplaySize").setCurrentText("70");
        save(screen, "txtCellPadX=1 txtCellPadY=2.5 txtLMargin=-3 txtRMargin=4e0 txtCellWidth=0 "
                     "txtFooter=600");
        QCOMPARE(folder.TakeReports(), QStringList());
        QCOMPARE(QString(ReadFile(folder.IniPath())).simplified(),
                 "[Application] FontName=Party FontSize=70 DebugMode=0 BackGround=3 FColorA=256 "
                 "BColorA=1 FColorB=2 BColorB=65536 CellPadX=1 CellPadY=2 LeftMargin=-3 "
                 "RightMargin=4 LabelWidth=0");
        // Read back at once.
        QCOMPARE(modCommon::AppSettings().LabelWidth, 0);
        QCOMPARE(modCommon::AppSettings().Footer, 500);
    }

    // The picture is the board as it would open, in settings that nobody has saved; the line below
    // it says how many teams fit. The hand that turns the wheel changes nothing.
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
        QWheelEvent wheel({}, {}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&size, &wheel);
        QCOMPARE(size.currentText(), "32");
        size.lineEdit()->selectAll();
        size.setFocus();
        auto& preview = *screen.findChild<BoardPreview*>();
        const struct {
            const char *points, *margin, *told;
        } cases[] = {{"7", "900", "9 of 9 teams fit; all fit with up to 40 points"},
                     {"70", "0", "8 of 9 teams fit; all fit with up to 40 points"},
                     {"big", "0", "The board cannot be drawn so"}};
        for (const auto& [points, margin, told] : cases) {
            size.lineEdit()->selectAll();
            Type(points);
            QCOMPARE(size.currentText(), points);
            Control<QLineEdit>(screen, "txtLMargin").setText(margin);
            QCoreApplication::processEvents();
            QCOMPARE(Control<QLabel>(screen, "lblFit").text(), told);
            frmSummary board(nullptr);
            DisplaySettings settings;
            settings.FontSize = points;
            settings.LeftMargin = QString(margin).toInt();
            const auto standings = SummaryDAO().GetOverallSummary(2);
            Render(settings).RenderResults(board, *standings, "Rankelo Results", 0);
            preview.setMinimumSize(board.size());
            preview.resize(board.size());
            QCOMPARE(preview.grab().toImage().convertToFormat(QImage::Format_RGB32),
                     board.grab().toImage().convertToFormat(QImage::Format_RGB32));
        }
        QVERIFY(modCommon::AppSettings() == DisplaySettings() && folder.Files().size() == 2);
    }

    // The INI file may come from a computer with other fonts, and from a person who wrote notes in
    // it. A number too large leaves it and every setting as they were.
    void keepsWhatItCannotShowOrRead() {
        AppFolder folder;
        folder.Open();
        const QByteArray before = "; our hall\n[Application]\nFooter=720\nFontName=No Such Font\n"
                                  "FontSize=33.5\nOurs=1\n[Other]\na=b\n";
        WriteFile(folder.IniPath(), before);
        QVERIFY(modCommon::Settings(modCommon::LoadSettings));
        frmOptions screen(nullptr, nullptr);
        ShowScreen(screen);
        save(screen, "txtLMargin=1 txtCellWidth=99999999999");
        QCOMPARE(folder.TakeReports(),
                 QStringList("9700 : [6] Overflow [cmdSave_Click/frmOptions]"));
        QVERIFY(screen.isVisible());
        QCOMPARE(modCommon::AppSettings().LeftMargin, 200);
        QCOMPARE(ReadFile(folder.IniPath()), before);

        save(screen, "txtLMargin=250 txtCellWidth=abc txtFooter=abc");
        QVERIFY(!screen.isVisible());
        const QByteArray saved = ReadFile(folder.IniPath());
        for (const char* line : {"; our hall", "Footer=720", "FontName=No Such Font",
                                 "FontSize=33.5", "Ours=1", "[Other]", "a=b", "LeftMargin=250"})
            QVERIFY2(saved.contains(line), line);
        QCOMPARE(modCommon::AppSettings().Footer, 720);
    }
};

QTEST_MAIN(frmOptionsTest)
#include "frmOptionsTest.moc"
