#include "forms/frmMain.h"
#include "Evening.h"
#include "core/AppPaths.h"
#include "core/Utilities.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QTest>

namespace {

struct Console : Evening {
    Console() {
        WriteFile(Path("Rankelo.PDF"), "a guide");
        AppUtilities().OpenDocument = [this](const QString& path) {
            effects.append("document " + path.mid(Paths().AppPath.size()));
        };
        ShowScreen(screen);
    }

    // With the second round selected, what a step brings about: a dialog, a board, an opened
    // document or another selected round.
    void Expect(const QString& effect, const std::function<void()>& step) {
        effects.clear();
        rounds.setCurrentIndex(1);
        std::list<ModalAnswers::Answer> expected;
        if (effect.startsWith("dialog"))
            expected.emplace_back([this](QDialog& dialog) {
                effects.append("dialog " + dialog.windowTitle());
                Press(Qt::Key_Escape);
            });
        const ModalAnswers answers(expected);
        step();
        QVERIFY2(answers.AllGiven(), qPrintable(effect));
        for (frmSummary* board : Boards()) {
            effects.append("board " + board->windowTitle());
            board->hide(); // Still there when the next one is asked for.
        }
        // Opening Rounds Setup refills the chooser.
        if (rounds.currentIndex() != 1 && effects.isEmpty())
            effects.append("round " + rounds.currentText());
        QCOMPARE(effects.join(u' '), effect);
        ShowScreen(screen);
    }

    QStringList effects;
    frmMain screen;
    QComboBox& rounds = Control<QComboBox>(screen, "cboRounds");
};

} // namespace

class frmMainTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // By number, by key and by button: always the same.
    void runsCommands() {
        const struct {
            qint32 command;
            int key;
            const char *button, *effect;
        } commands[] = {
            {1, Qt::Key_F2, "cmdRoundSetup", "dialog Round Entry"},
            {2, Qt::Key_F3, "cmdTeamSetup", "dialog Team Entry"},
            {3, 0, "cmdConfiguration", "dialog Settings"},
            {4, Qt::Key_F6, "cmdResultsEntry", "dialog Result Entry"},
            {5, Qt::Key_F7, "cmdDisplayRound", "board Films Results"},
            {6, Qt::Key_F8, "cmdDisplayLeader", "board Rankelo Results"},
            {7, 0, "cmdViewResults", "dialog Films Results"},
            {8, 0, "cmdViewLeader", "dialog Rankelo Results"},
            {9, Qt::Key_F1, nullptr, "document Rankelo.PDF"},
            {10, Qt::Key_F9, nullptr, ""},
            {12, Qt::Key_F4, nullptr, "round [1] Music"},
            {13, Qt::Key_F5, nullptr, "round [3] Sport"},
            {14, Qt::Key_Escape, "cmdExit", "dialog Exit Application"},
        };
        for (const auto& [command, key, button, effect] : commands) {
            Console console;
            console.Expect(effect, [&] { console.screen.RunCommand(command); });
            if (key != 0)
                console.Expect(effect, [&] { Press(key); });
            if (!button)
                continue;
            auto& tile = Control<QAbstractButton>(console.screen, button);
            console.Expect(effect, [&] { Click(tile); });
            tile.setFocus();
            console.Expect(effect, [&] { Press(Qt::Key_Space); });
            QVERIFY2(!tile.isDown(), "the button waits for a release that never comes");
        }
    }

    // With the list dropped down, Enter and Esc belong to it; a function key closes it and does
    // its work.
    void letsTheListKeepItsKeys() {
        Console console;
        for (const int key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_F5})
            console.Expect(key == Qt::Key_Escape ? "" : "round [3] Sport", [&] {
                console.rounds.showPopup();
                QTRY_VERIFY(console.rounds.view()->isVisible());
                Press(Qt::Key_Down);
                Press(key);
                QTRY_VERIFY(!console.rounds.view()->isVisible());
            });
    }

    // Hidden places are seen in a whole evening.
    void showsAllWhenTheBoxSaysSo() {
        Console console;
        Control<QCheckBox>(console.screen, "chkShowAllRound").setFocus();
        Press(Qt::Key_Space);
        for (const int key : {Qt::Key_F7, Qt::Key_F8}) {
            Press(key);
            QVERIFY(Control<QWidget>(*Evening::Boards().value(0), "lblLabel1").isVisible());
            ShowScreen(console.screen);
        }
    }

    // Neither an empty screen nor an empty board: without a table the report alone says what is
    // wrong, without a round a message. The close box does nothing.
    void opensNothingThatCannotBeFilled() {
        Console console;
        QVERIFY(!console.screen.close());
        RunForeign(console.DatabasePath(), {"DROP TABLE Rounds", "DROP TABLE Teams"});
        for (const qint32 command : {1, 2, 4, 5, 6, 7, 8}) {
            console.Expect("", [&] { console.screen.RunCommand(command); });
            QVERIFY(!console.TakeReports().isEmpty());
        }
        console.rounds.clear();
        for (const qint32 command : {4, 5, 7}) {
            const ModalAnswers answers({MessageBox("Rankelo Invalid Entry",
                                                   "You need to select a round", Qt::Key_Return)});
            console.screen.RunCommand(command);
            QVERIFY(answers.AllGiven());
        }
    }
};

QTEST_MAIN(frmMainTest)
#include "frmMainTest.moc"
