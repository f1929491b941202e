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

class AppTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void loads() {
        const char* defaults = "Arial 32 0 0 16576 16512 8454143 8454143 40 80 200 200 7 500";
        // The lines below [Application], or no file; the settings then; the reason of a failure.
        const std::tuple<const char*, const char*, const char*> cases[] = {
            {nullptr, defaults, ""},
            {"FontName=\nFontSize=\nFooter=\nBColorA=   \n", defaults, ""},
            {"FOOTER = 2.5\nCellPadX=1e2\nLabelWidth=-7\nFontSize=huge\nDebugMode=01\n"
             "FontName=a b\nFColorA=3\nBColorA=4\nFColorB=5\nBColorB=6\nBackGround=7\n"
             "CellPadY=8\nLeftMargin=9\nRightMargin=10\n",
             "a b huge 01 7 4 6 3 5 100 8 9 10 -7 2", ""},
            // The values up to the wrong one are taken, the others stay.
            {"BColorA=9\nBColorB=brown\nFooter=9\n", "Arial 32 0 0 9 3 4 5 6 7 8 9 10 11",
             "Rankelo.INI: BColorB=brown: Type mismatch"},
            {"BackGround=2147483648\n", "Arial 32 0 1 2 3 4 5 6 7 8 9 10 11",
             "Rankelo.INI: BackGround=2147483648: Overflow"},
        };
        for (const auto& [file, settings, reason] : cases) {
            AppFolder folder;
            if (file)
                WriteFile(folder.IniPath(), QByteArray("[application]\n") + file);
            modCommon::AppSettings() = {};
            for (qint32 number = 1; const Setting& setting : std::span(SettingsTable).subspan(3))
                setting.Assign(modCommon::AppSettings(), QString::number(number++));
            QCOMPARE(modCommon::Settings(modCommon::LoadSettings), !*reason);
            QStringList values;
            for (const Setting& setting : SettingsTable)
                values.append(setting.TextIn(modCommon::AppSettings()));
            QCOMPARE(values.join(u' '), settings);
            QVERIFY(AppLog().Description().contains(reason));
            QCOMPARE(QFile::exists(folder.IniPath()), file != nullptr);
        }
    }

    // All before a value that cannot be a line. A folder in the place of the file is told.
    void savesWhatItCan() {
        const AppFolder folder;
        modCommon::AppSettings() = {};
        modCommon::AppSettings().FontSize = "3\n2";
        QVERIFY(!modCommon::Settings(modCommon::SaveSettings));
        QCOMPARE(ReadFile(folder.IniPath()).simplified(), "[Application] FontName=Arial");
        QFile::remove(folder.IniPath());
        QVERIFY(QDir().mkdir(folder.IniPath()));
        for (const auto mode : {modCommon::LoadSettings, modCommon::SaveSettings}) {
            QVERIFY(!modCommon::Settings(mode));
            QVERIFY(AppLog().Description().contains(u"Rankelo.INI: the file cannot be"));
        }
    }

    void selectsAListItem() {
        QComboBox list;
        list.addItems({"Arial", "ärger", "ARIAL"});
        for (const auto& [text, index] :
             {std::pair("aRiAl", 0), std::pair("ÄRGER", 1), std::pair("Aria", -1)}) {
            list.setCurrentIndex(2);
            QCOMPARE(modCommon::SelectListItem(list, text), index >= 0);
            QCOMPARE(list.currentIndex(), index >= 0 ? index : 2);
        }
    }

    void entersAndLeaves() {
        using enum TextBoxFocus::Colors;
        for (const bool isPlain : {false, true}) {
            QWidget screen;
            screen.setPalette(QPalette(Qt::black));
            const QCheckBox other(&screen);
            auto* box = new QLineEdit("O'Brien's", &screen);
            box->move(0, 50);
            TextBoxFocus::Attach(box, isPlain ? Palette : BlueAndWhite);
            const QColor white = isPlain ? Qt::black : Qt::white;
            const auto background = [&] {
                return box->grab().toImage().pixelColor(box->width() - 9, box->height() / 2);
            };
            ShowScreen(screen);
            QCOMPARE(background(), white);

            Press(Qt::Key_Tab);
            QCOMPARE(box->selectedText(), "O'Brien's");
            QCOMPARE(box->cursorPosition(), 0);
            QCOMPARE(background(), isPlain ? Qt::black : QColor(0, 153, 204));
            QWidget window;
            box->deselect(); // A desktop that moves the keyboard to and fro may do that.
            for (QWidget* active : {&window, &screen})
                ShowScreen(*active);
            Type("8'");
            Click(*box);
            QVERIFY2(!box->hasSelectedText(), "a click inside selects nothing");

            // Another program, a menu or a message in front is not the end of the entry.
            QMenu menu(&screen);
            menu.addAction("Paste");
            menu.popup(QPoint());
            Press(Qt::Key_Escape);
            ShowScreen(window);
            QVERIFY(!box->hasFocus());
            ShowScreen(screen);
            Type("9'");
            QCOMPARE(box->text(), "8'9'");

            Press(Qt::Key_Tab);
            QCOMPARE(box->text(), "89");
            QCOMPARE(background(), white);
        }
    }

    void splashStaysTwoSecondsWhateverThePersonDoes() {
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
            QVERIFY(!Control<QPushButton>(splash, "cmdClose").isVisible());
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
        QVERIFY(time.elapsed() >= 2000 && time.elapsed() < 4000 && seen == 2 && pressed.isEmpty());
    }
};

QTEST_MAIN(AppTest)
#include "AppTest.moc"
