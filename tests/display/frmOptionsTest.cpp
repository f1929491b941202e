#include "display/frmOptions.h"

#include "app/modCommon.h"
#include "core/AppValues.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTest>

namespace {

void press(const QWidget& screen, const char* name) {
    Click(Control<QAbstractButton>(screen, name));
}

void enter(const QWidget& screen, const char* name, const char* text) {
    Control<QLineEdit>(screen, name).setText(text);
}

} // namespace

class frmOptionsTest : public QObject {
    Q_OBJECT

private slots:
    void savesThirteenSettingsAndNoFooter();
    void keepsWhatItCannotShowOrRead();
    void savesNothingWhenANumberIsTooLarge();
    void choosesColours();
    void resetsOnlyWhenAskedTo();
};

void frmOptionsTest::savesThirteenSettingsAndNoFooter() {
    AppFolder folder;
    frmOptions screen;
    Control<QComboBox>(screen, "cboDisplayFont").setEditText("Party");
    Control<QComboBox>(screen, "cboDisplaySize").setCurrentText("70");
    Control<QCheckBox>(screen, "chkDebugMode").setChecked(true);
    const char* numbers[][2] = {{"txtCellPadX", "1"},  {"txtCellPadY", " 2.5 "},
                                {"txtLMargin", "-3"},  {"txtRMargin", "4e0"},
                                {"txtCellWidth", "0"}, {"txtFooter", "600"}};
    for (const auto& [box, text] : numbers)
        enter(screen, box, text);
    press(screen, "cmdSave");
    QCOMPARE(screen.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(folder.TakeReports(), QStringList());
    QCOMPARE(QString(ReadFile(folder.IniPath()))
                 .split(QRegularExpression("[\r\n]+"), Qt::SkipEmptyParts)
                 .join(u' '),
             QStringLiteral("[Application] FontName=Party FontSize=70 DebugMode=1 BackGround=0 "
                            "FColorA=8454143 BColorA=16576 FColorB=8454143 BColorB=16512 "
                            "CellPadX=1 CellPadY=2 LeftMargin=-3 RightMargin=4 LabelWidth=0"));
    // Read back at once, without the footer.
    QCOMPARE(App().LabelWidth, 0);
    QCOMPARE(App().Footer, 500);
}

// The INI file may come from a computer with other fonts, and from a person who wrote notes in it.
void frmOptionsTest::keepsWhatItCannotShowOrRead() {
    const AppFolder folder;
    WriteFile(folder.IniPath(), "; our hall\n[Application]\nFooter=720\nFontName=No Such Font\n"
                                "FontSize=33.5\nOurs=1\n[Other]\na=b\n");
    QVERIFY(modCommon::Settings(modCommon::LoadSettings));
    const frmOptions screen;
    enter(screen, "txtLMargin", "250");
    enter(screen, "txtRMargin", "abc");
    enter(screen, "txtFooter", "abc");
    press(screen, "cmdSave");
    const QByteArray saved = ReadFile(folder.IniPath());
    for (const char* line : {"; our hall", "Footer=720", "FontName=No Such Font", "FontSize=33.5",
                             "Ours=1", "[Other]", "a=b", "LeftMargin=250", "RightMargin=200"})
        QVERIFY2(saved.contains(line), line);
    QCOMPARE(App().Footer, 720);
}

void frmOptionsTest::savesNothingWhenANumberIsTooLarge() {
    AppFolder folder;
    frmOptions screen;
    ShowScreen(screen);
    enter(screen, "txtLMargin", "1");
    enter(screen, "txtCellWidth", "99999999999");
    press(screen, "cmdSave");
    QVERIFY(screen.isVisible());
    QCOMPARE(folder.TakeReports(), QStringList("9700 : [6] Overflow [cmdSave_Click/frmOptions]"));

    Press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
    QCOMPARE(App().LeftMargin, 200);
    QVERIFY(!QFile::exists(folder.IniPath()));
}

void frmOptionsTest::choosesColours() {
    const AppFolder folder;
    const frmOptions screen;
    const struct {
        const char *button, *swatch;
        QColor before, chosen;
    } colours[] = {{"cmdBackColourA", "lblBackColorA", {192, 64, 0}, {1, 0, 0}},
                   {"cmdForeColourA", "lblForeColorA", {255, 255, 128}, {0, 1, 0}},
                   {"cmdBackColourB", "lblBackColorB", {128, 64, 0}, {0, 0, 1}},
                   {"cmdForeColourB", "lblForeColorB", {255, 255, 128}, {2, 0, 0}},
                   {"cmdBackground", "lblBackground", Qt::black, {3, 0, 0}}};
    for (const auto& [button, swatch, before, chosen] : colours) {
        for (const bool isCancelled : {true, false}) {
            ModalAnswers answers({[&](QDialog& dialog) {
                auto& colourDialog = dynamic_cast<QColorDialog&>(dialog);
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Colour Properties"));
                QCOMPARE(colourDialog.currentColor(), before);
                colourDialog.setCurrentColor(chosen);
                dialog.done(isCancelled ? QDialog::Rejected : QDialog::Accepted);
            }});
            press(screen, button);
            QVERIFY(answers.AllGiven());
            QCOMPARE(Control<QLabel>(screen, swatch).palette().color(QPalette::Window),
                     isCancelled ? before : chosen);
        }
    }
    press(screen, "cmdSave");
    QCOMPARE((QList{App().BColorA, App().FColorA, App().BColorB, App().FColorB, App().BackGround}),
             (QList{1, 256, 65536, 2, 3}));
}

// That a reset empties the quiz and ends the program is seen on the real program. Here a table is
// missing, so that even a reset that nobody asked for is reported, and the test goes on.
void frmOptionsTest::resetsOnlyWhenAskedTo() {
    AppFolder folder;
    folder.Open();
    RunForeign(folder.DatabasePath(), {"INSERT INTO Teams VALUES ('t', 'The Crisps')",
                                       "ALTER TABLE Results RENAME TO Elsewhere"});
    frmOptions screen;
    ShowScreen(screen);
    for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Y}) {
        ModalAnswers answers({[key](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), "Reset Database");
            QCOMPARE(dynamic_cast<QMessageBox&>(dialog).text(),
                     "Are you sure you wish to delete all data?");
            Press(key, key == Qt::Key_Y ? Qt::AltModifier : Qt::NoModifier);
        }});
        press(screen, "cmdReset");
        QVERIFY(answers.AllGiven());
        QCOMPARE(folder.TakeReports().size(), key == Qt::Key_Y ? 1 : 0);
    }
    QCOMPARE(RunForeign(folder.DatabasePath(), {"SELECT TeamName FROM Teams"}),
             QStringList("The Crisps"));
}

QTEST_MAIN(frmOptionsTest)
#include "frmOptionsTest.moc"
