#include "app/Desktop.h"
#include "app/TextBoxFocus.h"
#include "app/frmAbout.h"
#include "app/modCommon.h"
#include "core/Logging.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <span>

using namespace Qt::StringLiterals;

class AppTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void loads() {
        const char* defaults = "Arial 32 0 0 16576 16512 8454143 8454143 40 80 200 200 7 500";
        const struct {
            const char* file; ///< the lines below [Application]; nullptr for no file
            const char* settings;
            const char* reason = ""; ///< of the failure
        } cases[] = {
            {nullptr, defaults},
            {"FontName=\nFontSize=\nFooter=\nBColorA=   \n", defaults},
            {"FOOTER = 2.5\nCellPadX=1e2\nLabelWidth=-7\nFontSize=huge\nDebugMode=01\n"
             "FontName=a b\nFColorA=3\nBColorA=4\nFColorB=5\nBColorB=6\nBackGround=7\n"
             "CellPadY=8\nLeftMargin=9\nRightMargin=10\n",
             "a b huge 01 7 4 6 3 5 100 8 9 10 -7 2"},
            // The values up to the wrong one are taken, the others stay.
            {"BColorA=9\nBColorB=brown\nFooter=9\n", "Arial 32 0 0 9 3 4 5 6 7 8 9 10 11",
             "Rankelo.INI: BColorB=brown: Type mismatch"},
            {"BackGround=2147483648\n", "Arial 32 0 1 2 3 4 5 6 7 8 9 10 11",
             "Rankelo.INI: BackGround=2147483648: Overflow"},
        };
        for (const auto& c : cases) {
            AppFolder folder;
            if (c.file)
                WriteFile(folder.IniPath(), QByteArray("[application]\n") + c.file);
            modCommon::AppSettings() = {};
            for (qint32 number = 1; const Setting& setting : std::span(SettingsTable).subspan(3))
                setting.Assign(modCommon::AppSettings(), QString::number(number++));
            QCOMPARE(modCommon::Settings(modCommon::LoadSettings), !*c.reason);
            QStringList values;
            for (const Setting& setting : SettingsTable)
                values.append(setting.TextIn(modCommon::AppSettings()));
            QCOMPARE(values.join(u' '), QLatin1StringView(c.settings));
            QVERIFY(AppLog().Description().contains(QLatin1StringView(c.reason)));
            QCOMPARE(QFile::exists(folder.IniPath()), c.file != nullptr);
        }
    }

    void failsOnAFolderInThePlaceOfTheFile() {
        const AppFolder folder;
        QVERIFY(QDir().mkdir(folder.IniPath()));
        for (const auto mode : {modCommon::LoadSettings, modCommon::SaveSettings}) {
            QVERIFY(!modCommon::Settings(mode));
            QVERIFY(AppLog().Description().contains(u"Rankelo.INI: the file cannot be"));
        }
    }

    // One box an error in mode "1" alone.
    void showsErrorsInDebugModeOnly() {
        const AppFolder folder;
        ConnectDesktop();
        for (const QString& mode : {u"1"_s, u"01"_s, u""_s, u"0"_s}) {
            modCommon::AppSettings().DebugMode = mode;
            const auto box = MessageBox(u"Application Error"_s, u"9700 : [7] <b>why</b> [P/C]"_s,
                                        Qt::Key_Return);
            const ModalAnswers answers(std::list(mode == u"1"_s ? 1 : 0, box));
            AppLog().ProgramError(7, u"<b>why</b>"_s, u"P"_s, u"C"_s);
            QVERIFY2(answers.AllGiven(), qPrintable(mode));
        }
    }

    void selectsAListItem() {
        QComboBox list;
        list.addItems({u"Arial"_s, u"ärger"_s, u"ARIAL"_s});
        for (const auto& [text, index] :
             {std::pair(u"aRiAl"_s, 0), std::pair(u"ÄRGER"_s, 1), std::pair(u"Aria"_s, -1)}) {
            list.setCurrentIndex(2);
            QCOMPARE(modCommon::SelectListItem(list, text), index >= 0);
            QCOMPARE(list.currentIndex(), index >= 0 ? index : 2);
        }
    }

    void entersAndLeaves() {
        using enum TextBoxFocus::Colours;
        for (const bool isPlain : {false, true}) {
            QWidget screen;
            screen.setPalette(QPalette(Qt::black));
            const QCheckBox other(&screen);
            auto* box = new QLineEdit(u"O'Brien's"_s, &screen);
            box->move(0, 50);
            TextBoxFocus::Attach(box, isPlain ? Palette : BlueAndWhite);
            const QColor white = isPlain ? Qt::black : Qt::white;
            const auto background = [&] {
                return box->grab().toImage().pixelColor(box->width() - 9, box->height() / 2);
            };
            ShowScreen(screen);
            QCOMPARE(background(), white);

            Press(Qt::Key_Tab);
            QCOMPARE(box->selectedText(), u"O'Brien's"_s);
            QCOMPARE(box->cursorPosition(), 0);
            QCOMPARE(background(), isPlain ? Qt::black : QColor(0, 153, 204));
            Type(u"8'"_s);
            Click(*box);
            QVERIFY2(!box->hasSelectedText(), "a click inside selects nothing");

            // Another program, a menu or a message in front is not the end of the entry.
            QMenu menu(&screen);
            menu.addAction(u"Paste"_s);
            menu.popup(QPoint());
            Press(Qt::Key_Escape);
            QWidget window;
            ShowScreen(window);
            QVERIFY(!box->hasFocus());
            ShowScreen(screen);
            Type(u"9'"_s);
            QCOMPARE(box->text(), u"8'9'"_s);

            Press(Qt::Key_Tab);
            QCOMPARE(box->text(), u"89"_s);
            QCOMPARE(background(), white);
        }
    }

    void splashStaysTwoSecondsWhateverThePersonDoes() {
        AppFolder folder;
        // What a person types and clicks meanwhile must not reach this one either.
        QPushButton console;
        const QSignalSpy pressed(&console, &QPushButton::pressed);
        console.show();
        frmAbout splash;
        int seen = 0;
        const auto disturb = [&] {
            QVERIFY(splash.isVisible() && ++seen);
            // It is painted, not an empty frame.
            QCOMPARE(splash.screen()->grabWindow(splash.winId()).toImage(),
                     splash.grab().toImage());
            QVERIFY(!Control<QPushButton>(splash, u"cmdClose"_s).isVisible());
            QTest::keyClick(&splash, Qt::Key_Escape);
            QTest::keyClick(&console, Qt::Key_Space);
            QTest::mouseClick(&console, Qt::LeftButton);
            splash.close();
        };
        for (const int milliseconds : {300, 1800})
            QTimer::singleShot(milliseconds, this, disturb);
        QElapsedTimer time;
        time.start();
        splash.RunAsSplash();
        QVERIFY(time.elapsed() >= 2000 && seen == 2 && pressed.isEmpty());
        QCOMPARE(folder.TakeReports(), QStringList());
    }
};

QTEST_MAIN(AppTest)
#include "AppTest.moc"
