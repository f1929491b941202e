#include "display/frmOptions.h"

#include "app/modCommon.h"
#include "core/AppValues.h"
#include "support/AppFolder.h"
#include "support/ModalAnswers.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

namespace {

template <typename Control>
Control* find(const QWidget& screen, const char* name) {
    auto* control = screen.findChild<Control*>(QLatin1StringView(name));
    if (!control)
        qFatal("no %s", name);
    return control;
}

template <typename Dialog>
Dialog& as(QDialog& dialog) {
    auto* cast = qobject_cast<Dialog*>(&dialog);
    if (!cast)
        qFatal("the dialog \"%s\" came instead", qPrintable(dialog.windowTitle()));
    return *cast;
}

void press(const QWidget& screen, const char* name) {
    QTest::mouseClick(find<QAbstractButton>(screen, name), Qt::LeftButton);
}

void enter(const QWidget& screen, const char* name, const char* text) {
    find<QLineEdit>(screen, name)->setText(QString::fromUtf8(text));
}

QColor colourOf(const QWidget& screen, const char* swatch) {
    return find<QLabel>(screen, swatch)->palette().color(QPalette::Window);
}

struct ColourControls {
    const char *label, *caption, *swatch, *button;
    QColor colour;
};
/// Three default colours of the board, and where each is shown.
const QColor Rust{192, 64, 0};
const QColor Brown{128, 64, 0};
const QColor Cream{255, 255, 128};
const ColourControls Colours[] = {
    {"lblBackColor_A", "Background Colour:", "lblBackColorA", "cmdBackColourA", Rust},
    {"lblForeColour_A", "Fore Colour:", "lblForeColorA", "cmdForeColourA", Cream},
    {"lblBackColor_B", "Background Colour:", "lblBackColorB", "cmdBackColourB", Brown},
    {"lblForeColour_B", "Fore Colour:", "lblForeColorB", "cmdForeColourB", Cream},
    {"lblBackgroundC", "Colour:", "lblBackground", "cmdBackground", Qt::black},
};

void countRows(const AppFolder& folder, const char* expected) {
    const QString all = QStringLiteral("SELECT (SELECT COUNT(*) FROM Teams) || "
                                       "(SELECT COUNT(*) FROM Rounds) || "
                                       "(SELECT COUNT(*) FROM Results)");
    QCOMPARE(RunForeign(folder.DatabasePath(), {all}), QStringList(QLatin1StringView(expected)));
}

const QStringList Quiz = {
    QStringLiteral("INSERT INTO Teams (TeamID, TeamName) VALUES ('t', 'The Crisps')"),
    QStringLiteral("INSERT INTO Rounds (RoundID, RoundName, RoundNumber) VALUES ('r', 'Music', 1)"),
    QStringLiteral("INSERT INTO Results (ResultID, RoundID, TeamID, Score, Joker) "
                   "VALUES ('x', 'r', 't', 7, 0)"),
};

} // namespace

class frmOptionsTest : public QObject {
    Q_OBJECT

private slots:
    void showsEverySetting();
    void savesWhatTheOperatorChanged();
    void keepsWhatItCannotShow();
    void keepsTheOldNumberForAWord();
    void staysOpenWhenNothingCanBeSaved();
    void changesNothingUnlessSaved();
    void choosesColours();
    void opensTheAboutBox();
    void resetsOnlyWhenAskedTo();
};

void frmOptionsTest::showsEverySetting() {
    const AppFolder folder;
    App().FontName = QFontDatabase::families().constLast().toUpper();
    App().DebugMode = QStringLiteral("1");
    const frmOptions screen;
    QCOMPARE(screen.windowTitle(), QStringLiteral("Settings"));
    const struct {
        const char *name, *caption;
    } groups[] = {
        {"fraFonts", "Display Font"},
        {"fraPrimaryColours", "Primary Display Colour"},
        {"fraSecondaryColours", "Secondary Display Colour"},
        {"fraBackGround", "Screen Settings"},
        {"fraPadding", "Cell Padding"},
    };
    for (const auto& [name, caption] : groups)
        QCOMPARE(find<QGroupBox>(screen, name)->title(), QLatin1StringView(caption));
    const struct {
        const char *name, *toolTip;
    } buttons[] = {
        {"cmdSave", "Save Settings"},
        {"cmdClose", "Close Window"},
        {"cmdAbout", "Display Application Information"},
        {"cmdReset", "Reset database and remove all data"},
    };
    for (const auto& [name, toolTip] : buttons)
        QCOMPARE(find<QAbstractButton>(screen, name)->toolTip(), QLatin1StringView(toolTip));
    const struct {
        const char *label, *caption, *box, *text;
    } numbers[] = {
        {"lblLMargin", "Left Margin:", "txtLMargin", "200"},
        {"lblRMargin", "Right:", "txtRMargin", "200"},
        {"lblFooter", "Footer:", "txtFooter", "500"},
        {"lblCellPadX", "Horizontal:", "txtCellPadX", "40"},
        {"lblCellPadY", "Vertical:", "txtCellPadY", "80"},
        {"lblCellWidth", "Width:", "txtCellWidth", "7"},
    };
    for (const auto& [label, caption, box, text] : numbers) {
        QCOMPARE(find<QLabel>(screen, label)->text(), QLatin1StringView(caption));
        QCOMPARE(find<QLineEdit>(screen, box)->text(), QLatin1StringView(text));
    }
    for (const ColourControls& colour : Colours) {
        QCOMPARE(find<QLabel>(screen, colour.label)->text(), QLatin1StringView(colour.caption));
        QCOMPARE(colourOf(screen, colour.swatch), colour.colour);
    }
    const auto* debug = find<QCheckBox>(screen, "chkDebugMode");
    QCOMPARE(debug->text(), QStringLiteral("Debug Messages"));
    QVERIFY(debug->isChecked());

    const auto* fonts = find<QComboBox>(screen, "cboDisplayFont");
    QCOMPARE(fonts->count(), QFontDatabase::families().size());
    QCOMPARE(fonts->currentText(), QFontDatabase::families().constLast());
    const auto* sizes = find<QComboBox>(screen, "cboDisplaySize");
    QStringList offered;
    for (int i = 0; i < sizes->count(); ++i)
        offered.append(sizes->itemText(i));
    QCOMPARE(offered.join(u' '),
             QStringLiteral("8 9 10 11 12 14 16 18 20 22 24 26 28 30 32 34 40 52 70"));
    QCOMPARE(sizes->currentText(), QStringLiteral("32"));
}

void frmOptionsTest::savesWhatTheOperatorChanged() {
    AppFolder folder;
    frmOptions screen;
    find<QComboBox>(screen, "cboDisplayFont")->setEditText(QStringLiteral("Party"));
    find<QComboBox>(screen, "cboDisplaySize")->setCurrentText(QStringLiteral("70"));
    find<QCheckBox>(screen, "chkDebugMode")->setChecked(false);
    enter(screen, "txtCellPadX", "1");
    enter(screen, "txtCellPadY", " 2.5 ");
    enter(screen, "txtLMargin", "-3");
    enter(screen, "txtRMargin", "4e0");
    enter(screen, "txtCellWidth", "0");
    enter(screen, "txtFooter", "600");
    press(screen, "cmdSave");
    QCOMPARE(screen.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(folder.TakeReports(), QStringList());
    const QString saved = QString::fromUtf8(ReadFile(folder.IniPath()));
    QCOMPARE(saved.split(QRegularExpression(QStringLiteral("[\r\n]+")), Qt::SkipEmptyParts),
             QStringList({"[Application]", "FontName=Party", "FontSize=70", "DebugMode=0",
                          "BackGround=0", "FColorA=8454143", "BColorA=16576", "FColorB=8454143",
                          "BColorB=16512", "CellPadX=1", "CellPadY=2", "LeftMargin=-3",
                          "RightMargin=4", "LabelWidth=0"}));
    QCOMPARE(App().LabelWidth, 0);
    // Never saved, and read back at once.
    QCOMPARE(App().Footer, 500);
}

// The INI file may come from a computer with other fonts, and from a person who wrote notes in it.
void frmOptionsTest::keepsWhatItCannotShow() {
    const AppFolder folder;
    WriteFile(folder.IniPath(), "; our hall\n[Application]\nFooter=720\nFontName=No Such Font\n"
                                "FontSize=33.5\nOurs=1\n[Other]\na=b\n");
    QVERIFY(modCommon::Settings(modCommon::LoadSettings));
    frmOptions screen;
    enter(screen, "txtLMargin", "250");
    press(screen, "cmdSave");
    const QByteArray saved = ReadFile(folder.IniPath());
    for (const char* line : {"; our hall", "Footer=720", "FontName=No Such Font", "FontSize=33.5",
                             "Ours=1", "[Other]", "a=b", "LeftMargin=250"})
        QVERIFY2(saved.contains(line), line);
    QCOMPARE(App().Footer, 720);
}

void frmOptionsTest::keepsTheOldNumberForAWord() {
    for (const char* word : {"abc", "", "12a", "1 2"}) {
        AppFolder folder;
        App().RightMargin = 300;
        frmOptions screen;
        enter(screen, "txtRMargin", word);
        enter(screen, "txtFooter", word);
        enter(screen, "txtLMargin", "250");
        press(screen, "cmdSave");
        QCOMPARE(App().RightMargin, 300);
        QCOMPARE(App().Footer, 500);
        QCOMPARE(App().LeftMargin, 250);
        QCOMPARE(screen.result(), static_cast<int>(QDialog::Accepted));
        QCOMPARE(folder.TakeReports(), QStringList());
    }
}

void frmOptionsTest::staysOpenWhenNothingCanBeSaved() {
    AppFolder folder;
    frmOptions screen;
    screen.show();
    enter(screen, "txtLMargin", "1");
    enter(screen, "txtCellWidth", "99999999999");
    press(screen, "cmdSave");
    QVERIFY(screen.isVisible());
    QCOMPARE(folder.TakeReports().join(u'|'),
             QStringLiteral("9700 : [6] Overflow [cmdSave_Click/frmOptions]"));
    QCOMPARE(App().LeftMargin, 200);
    QVERIFY(!QFile::exists(folder.IniPath()));

    enter(screen, "txtCellWidth", "7");
    QVERIFY(QDir().mkdir(folder.IniPath()));
    press(screen, "cmdSave");
    QVERIFY(screen.isVisible());
    QVERIFY(folder.TakeReports().join(u'|').contains(QStringLiteral("[Settings/modMain]")));
}

void frmOptionsTest::changesNothingUnlessSaved() {
    const AppFolder folder;
    for (const bool byKey : {true, false}) {
        frmOptions screen;
        screen.show();
        enter(screen, "txtLMargin", "1");
        find<QComboBox>(screen, "cboDisplaySize")->setCurrentText(QStringLiteral("70"));
        if (byKey)
            QTest::keyClick(&screen, Qt::Key_Escape);
        else
            press(screen, "cmdClose");
        QVERIFY(!screen.isVisible());
        QCOMPARE(App().LeftMargin, 200);
        QCOMPARE(App().FontSize, QStringLiteral("32"));
        QVERIFY(!QFile::exists(folder.IniPath()));
    }
}

void frmOptionsTest::choosesColours() {
    AppFolder folder;
    frmOptions screen;
    QColor chosen(1, 2, 3);
    for (const ColourControls& colour : Colours) {
        ModalAnswers answers({
            [&](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Colour Properties"));
                QCOMPARE(as<QColorDialog>(dialog).currentColor(), colour.colour);
                as<QColorDialog>(dialog).setCurrentColor(chosen);
                dialog.reject();
            },
            [&](QDialog& dialog) {
                as<QColorDialog>(dialog).setCurrentColor(chosen);
                dialog.accept();
            },
        });
        press(screen, colour.button);
        QCOMPARE(colourOf(screen, colour.swatch), colour.colour);
        press(screen, colour.button);
        QCOMPARE(colourOf(screen, colour.swatch), chosen);
        QVERIFY(answers.AllGiven());
        chosen.setRed(chosen.red() + 10);
    }
    press(screen, "cmdSave");
    constexpr qint32 withRedOne = 1 + 256 * 2 + 65536 * 3;
    QCOMPARE(App().BColorA, withRedOne);
    QCOMPARE(App().FColorA, withRedOne + 10);
    QCOMPARE(App().BColorB, withRedOne + 20);
    QCOMPARE(App().FColorB, withRedOne + 30);
    QCOMPARE(App().BackGround, withRedOne + 40);
    QCOMPARE(folder.TakeReports(), QStringList());
}

void frmOptionsTest::opensTheAboutBox() {
    const AppFolder folder;
    frmOptions screen;
    ModalAnswers answers({[&](QDialog& about) {
        QCOMPARE(about.objectName(), QStringLiteral("frmAbout"));
        QCOMPARE(about.parentWidget(), &screen);
        about.reject();
    }});
    press(screen, "cmdAbout");
    QVERIFY(answers.AllGiven());
}

// That a reset ends the program is seen on the real program.
void frmOptionsTest::resetsOnlyWhenAskedTo() {
    AppFolder folder;
    folder.Open();
    RunForeign(folder.DatabasePath(), Quiz);
    frmOptions screen;
    const QMessageBox::StandardButton pressed[] = {QMessageBox::No, QMessageBox::NoButton,
                                                   QMessageBox::Yes};
    std::list<ModalAnswers::Answer> answersInTurn;
    for (const auto button : pressed) {
        answersInTurn.push_back([button](QDialog& dialog) {
            auto& box = as<QMessageBox>(dialog);
            // After a reset that nobody asked for the process would end without a failure.
            if (box.text() != QStringLiteral("Are you sure you wish to delete all data?"))
                qFatal("%s", qPrintable(box.text()));
            QCOMPARE(box.windowTitle(), QStringLiteral("Reset Database"));
            QCOMPARE(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
            QCOMPARE(box.standardButton(box.defaultButton()), QMessageBox::No);
            if (button == QMessageBox::NoButton)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                box.button(button)->click();
        });
    }
    ModalAnswers answers(answersInTurn);
    press(screen, "cmdReset");
    press(screen, "cmdReset");
    countRows(folder, "111");
    // A reset that fails is reported, and the program goes on.
    RunForeign(folder.DatabasePath(), {QStringLiteral("ALTER TABLE Results RENAME TO Elsewhere")});
    press(screen, "cmdReset");
    QCOMPARE(folder.TakeReports().size(), 1);
    QVERIFY(answers.AllGiven());
    RunForeign(folder.DatabasePath(), {QStringLiteral("ALTER TABLE Elsewhere RENAME TO Results")});
    countRows(folder, "111");
}

QTEST_MAIN(frmOptionsTest)
#include "frmOptionsTest.moc"
