#include "forms/frmMain.h"
#include "Quiz.h"
#include "core/AppPaths.h"
#include "core/Utilities.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QTest>

namespace {

struct Console : Opened {
    Console()
        : Opened([]() -> Screen { return std::make_unique<frmMain>(); }) {
        AppUtilities().OpenDocument = [this](const QString& path) {
            effects.append("document " + path.mid(Paths().AppPath.size()));
        };
        WriteFile(Path("Rankelo.PDF"), "a guide");
    }

    void Run(qint32 command) { static_cast<frmMain&>(*screen).RunCommand(command); }

    // With the second round selected, what a step brings about: a dialog and the round in it, a
    // board, an opened document, another selected round.
    void Expect(const QString& effect, const std::function<void()>& step) {
        effects.clear();
        rounds.setCurrentIndex(1);
        const auto answer = [this](QDialog& dialog) {
            effects.append("dialog " + dialog.windowTitle());
            if (const auto* chooser = dialog.findChild<QComboBox*>("cboRounds"))
                effects.append(chooser->currentText());
            if (auto* about = dialog.findChild<QWidget*>("cmdAbout"))
                Click(*about);
            Press(Qt::Key_Escape);
        };
        const ModalAnswers answers({static_cast<size_t>(effect.count("dialog")), answer});
        step();
        QVERIFY2(answers.AllGiven(), qPrintable(effect));
        for (frmSummary* board : Boards()) {
            effects.append("board " + board->windowTitle());
            board->hide(); // Still there when the next one is asked for.
        }
        if (rounds.currentIndex() != 1)
            effects.append("round " + rounds.currentText());
        QCOMPARE(effects.join(u' '), effect);
        ShowScreen(*screen);
    }

    QStringList effects;
    QComboBox& rounds = Get<QComboBox>("cboRounds");
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
            {1, Qt::Key_F2, "cmdRoundSetup", "dialog Round Entry round [1] Music"},
            {2, Qt::Key_F3, "cmdTeamSetup", "dialog Team Entry"},
            {3, 0, "cmdConfiguration", "dialog Settings dialog Rankelo"},
            {4, Qt::Key_F6, "cmdResultsEntry", "dialog Result Entry Films"},
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
            console.Expect(effect, [&] { console.Run(command); });
            if (key != 0)
                console.Expect(effect, [&] { Press(key); });
            if (!button)
                continue;
            auto& tile = console.Get<QAbstractButton>(button);
            console.Expect(effect, [&] { Click(tile); });
            tile.setFocus();
            console.Expect(effect, [&] { Press(Qt::Key_Space); });
            QVERIFY2(!tile.isDown(), "the button waits for a release that never comes");
        }
    }

    // Letters reach the chooser, releases nobody; at its ends it stays. With its list dropped
    // down, Enter and Esc belong to the list; a function key closes it and does its work.
    void leavesKeysToTheChooser() {
        Console console;
        QVERIFY(!ReleaseArrives());
        console.Expect("round [3] Sport", [] { Type("[3"); });
        const struct {
            bool isDroppedDown;
            QList<int> keys;
            const char* effect;
        } cases[] = {{false, {Qt::Key_F4, Qt::Key_F4}, "round [1] Music"},
                     {false, {Qt::Key_F5, Qt::Key_F5}, "round [3] Sport"},
                     {true, {Qt::Key_Down, Qt::Key_Return}, "round [3] Sport"},
                     {true, {Qt::Key_Down, Qt::Key_Escape}, ""},
                     {true, {Qt::Key_Down, Qt::Key_F5}, "round [3] Sport"}};
        for (const auto& [isDroppedDown, keys, effect] : cases)
            console.Expect(effect, [&] {
                if (isDroppedDown)
                    console.rounds.showPopup();
                QTRY_COMPARE(console.rounds.view()->isVisible(), isDroppedDown);
                for (const int key : keys)
                    Press(key);
                QTRY_VERIFY(!console.rounds.view()->isVisible());
            });
    }

    void hidesThePodiumUnlessTheBoxSaysSo() {
        Console console;
        console.Get("chkShowAllRound").setFocus();
        for (const bool isAll : {false, true}) {
            for (const int key : {Qt::Key_F7, Qt::Key_F8}) {
                Press(key);
                QCOMPARE(Control<QWidget>(*Quiz::Boards().value(0), "lblLabel1").isVisible(),
                         isAll);
                ShowScreen(*console.screen);
            }
            Press(Qt::Key_Space);
        }
    }

    // Neither an empty screen nor an empty board: without a table the report alone says what is
    // wrong, without a round a message. The close box does nothing.
    void opensNothingThatCannotBeFilled() {
        Console console;
        QVERIFY(!console.screen->close());
        RunForeign(console.DatabasePath(), {"DROP TABLE Rounds", "DROP TABLE Teams"});
        for (const qint32 command : {1, 2, 4, 5, 6, 7, 8}) {
            console.Expect("", [&] { console.Run(command); });
            QVERIFY(!console.TakeReports().isEmpty());
        }
        static_cast<frmMain&>(*console.screen).ListRounds(-1);
        for (const qint32 command : {4, 5, 7, 12, 13})
            console.Expect(command < 12 ? "dialog Rankelo Invalid Entry round " : "round ",
                           [&] { console.Run(command); });
    }
};

QTEST_MAIN(frmMainTest)
#include "frmMainTest.moc"
