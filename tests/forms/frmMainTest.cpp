#include "forms/frmMain.h"
#include "Evening.h"
#include "core/AppValues.h"
#include "display/frmSummary.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QTest>

#include <limits>

namespace {

const QString Rounds = QStringLiteral("cboRounds");

frmSummary* openBoard() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* board = qobject_cast<frmSummary*>(window))
            return board;
    return nullptr;
}

// What a step brings about: a dialog, a board, an opened document or another selected round.
// Everything that opened is closed again.
QString effectOf(frmMain& console, bool opensDialog, const std::function<void()>& step) {
    auto& rounds = Control<QComboBox>(console, Rounds);
    rounds.setCurrentIndex(1);
    QStringList effects;
    App().OpenDocument = [&](const QString& path) {
        effects.append(QStringLiteral("document ") + path.mid(App().AppPath.size()));
        return true;
    };
    std::list<ModalAnswers::Answer> expected;
    if (opensDialog)
        expected.emplace_back([&](QDialog& dialog) {
            effects.append(QStringLiteral("dialog ") + dialog.windowTitle());
            Press(Qt::Key_Escape);
        });
    const ModalAnswers answers(expected);
    step();
    // Time for a dialog or a second effect that nobody asked for.
    QTest::qWait(20);
    if (!answers.AllGiven())
        effects.append(QStringLiteral("not the dialogs expected"));
    if (frmSummary* board = openBoard()) {
        effects.append(QStringLiteral("board ") + board->windowTitle());
        delete board;
        ShowScreen(console);
    }
    // Opening Rounds Setup refills the chooser.
    if (rounds.currentIndex() != 1 && effects.isEmpty())
        effects.append(QStringLiteral("round %1").arg(rounds.currentIndex()));
    App().OpenDocument = nullptr;
    return effects.join(u' ');
}

} // namespace

class frmMainTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void runsCommands_data() {
        QTest::addColumn<qint32>("command");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("effect");
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
            {9, Qt::Key_F1, "", "document Rankelo.PDF"},
            {10, 0, "", ""},
            {11, Qt::Key_F9, "", ""},
            {12, Qt::Key_F4, "", "round 0"},
            {13, Qt::Key_F5, "", "round 2"},
            {14, Qt::Key_Escape, "cmdExit", "dialog Exit Application"},
            {0, Qt::Key_F10, "", ""},
            {15, Qt::Key_F12, "", ""},
            {-1, Qt::Key_Pause, "", ""},
            {std::numeric_limits<qint32>::max(), Qt::Key_X, "", ""},
        };
        for (const auto& [command, key, button, effect] : commands)
            QTest::addRow("command %d", command)
                << command << key << QString(button) << QString(effect);
    }

    // By number, by key and by button: always the same.
    void runsCommands() {
        QFETCH(qint32, command);
        QFETCH(int, key);
        QFETCH(QString, button);
        QFETCH(QString, effect);
        Evening evening;
        WriteFile(evening.Path(QStringLiteral("Rankelo.PDF")), "a guide");
        frmMain console;
        ShowScreen(console);
        const bool isDialog = effect.startsWith(QStringLiteral("dialog"));
        QCOMPARE(effectOf(console, isDialog, [&] { console.RunCommand(command); }), effect);
        if (key != 0) {
            auto& tile = Control<QWidget>(console, QStringLiteral("cmdExit"));
            auto& rounds = Control<QComboBox>(console, Rounds);
            for (QWidget* focused : {static_cast<QWidget*>(&tile), static_cast<QWidget*>(&rounds)})
                for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
                    focused->setFocus();
                    QCOMPARE(effectOf(console, isDialog, [&] { Press(key, modifier); }), effect);
                }
        }
        if (!button.isEmpty()) {
            auto& tile = Control<QAbstractButton>(console, button);
            QCOMPARE(effectOf(console, isDialog, [&] { Click(tile); }), effect);
            for (const int press : {Qt::Key_Space, Qt::Key_Return}) {
                tile.setFocus();
                QCOMPARE(effectOf(console, isDialog, [&] { Press(press); }), effect);
                QVERIFY2(!tile.isDown(), "the button waits for a release that never comes");
            }
        }
    }

    void stepsWithoutWrapping() {
        const Evening evening;
        frmMain console;
        ShowScreen(console);
        auto& rounds = Control<QComboBox>(console, Rounds);
        const struct {
            int key, index;
        } steps[] = {{Qt::Key_F4, 0}, {Qt::Key_F5, 1}, {Qt::Key_F5, 2},
                     {Qt::Key_F5, 2}, {Qt::Key_F4, 1}, {Qt::Key_F4, 0}};
        for (const auto& [key, index] : steps) {
            Press(key);
            QCOMPARE(rounds.currentIndex(), index);
            QVERIFY2(!rounds.view()->isVisible(), "the list stays closed");
        }
        // With the list dropped down, Enter and Esc belong to it; a function key closes it.
        const struct {
            int keys[2], index;
        } dropped[] = {{{Qt::Key_Down, Qt::Key_Return}, 1},
                       {{Qt::Key_Down, Qt::Key_Escape}, 1},
                       {{Qt::Key_Down, Qt::Key_F5}, 2}};
        const ModalAnswers none({});
        for (const auto& [keys, index] : dropped) {
            rounds.setFocus();
            rounds.showPopup();
            QTRY_VERIFY(rounds.view()->isVisible());
            for (const int key : keys)
                Press(key);
            QTRY_VERIFY(!rounds.view()->isVisible());
            QCOMPARE(rounds.currentIndex(), index);
        }
        QVERIFY(none.AllGiven());
    }

    // No release reaches a control, and yet none waits for one.
    void swallowsReleases() {
        const Evening evening;
        frmMain console;
        ShowScreen(console);
        auto& box = Control<QCheckBox>(console, QStringLiteral("chkShowAllRound"));
        class : public QObject {
        public:
            bool eventFilter(QObject*, QEvent* event) override {
                presses += event->type() == QEvent::KeyPress;
                releases += event->type() == QEvent::KeyRelease;
                return false;
            }
            int presses = 0, releases = 0;
        } counter;
        box.installEventFilter(&counter);
        box.setFocus();
        const struct {
            int key;
            bool isChecked;
        } cases[] = {{Qt::Key_Space, true},
                     {Qt::Key_Space, false},
                     {Qt::Key_X, false},
                     {Qt::Key_F9, false},
                     {Qt::Key_F12, false}};
        for (const auto& [key, isChecked] : cases) {
            Press(key);
            QCOMPARE(box.isChecked(), isChecked);
            QVERIFY(!box.isDown());
        }
        Press(Qt::Key_Space);
        Hold(Qt::Key_Space);
        Hold(Qt::Key_Space);
        QVERIFY2(box.isChecked(), "a held key is one press");
        QCOMPARE(counter.releases, 0);
        QVERIFY2(counter.presses >= 3, "other keys reach the control");
    }

    void needsARound() {
        AppFolder empty;
        empty.Open();
        frmMain console;
        ShowScreen(console);
        QCOMPARE(Control<QComboBox>(console, Rounds).count(), 0);
        for (const qint32 command : {4, 5, 7}) {
            const ModalAnswers answers(
                {MessageBox(QStringLiteral("Rankelo Invalid Entry"),
                            QStringLiteral("You need to select a round"), Qt::Key_Return)});
            console.RunCommand(command);
            QVERIFY(answers.AllGiven());
            QVERIFY(!openBoard());
        }
        Press(Qt::Key_F4);
        Press(Qt::Key_F5);
        QCOMPARE(Control<QComboBox>(console, Rounds).currentIndex(), -1);
    }

    void listsRounds() {
        Evening evening;
        frmMain console;
        auto& rounds = Control<QComboBox>(console, Rounds);
        const struct {
            qint32 position;
            int index;
        } cases[] = {{-1, 0},
                     {1, 0},
                     {3, 2},
                     {4, -1},
                     {0, -1},
                     {std::numeric_limits<qint32>::min(), -1},
                     {std::numeric_limits<qint32>::max(), -1}};
        for (const auto& [position, index] : cases) {
            console.ListRounds(position);
            QCOMPARE(rounds.count(), 3);
            QCOMPARE(rounds.currentIndex(), index);
        }
        QCOMPARE(rounds.itemText(2), QStringLiteral("[3] Sport"));
        QCOMPARE(rounds.itemData(2).toString(), QStringLiteral("R3"));

        evening.Hide("Rounds");
        console.ListRounds(-1);
        QCOMPARE(rounds.count(), 0);
        QVERIFY(evening.TakeReports().last().contains(QStringLiteral("[ListRounds/frmMain]")));
        evening.Unhide("Rounds");
        console.ListRounds(-1);
        QCOMPARE(rounds.count(), 3);
    }

    void selectsTheFirstRoundAfterRoundsSetup() {
        const Evening evening;
        frmMain console;
        ShowScreen(console);
        auto& rounds = Control<QComboBox>(console, Rounds);
        rounds.setCurrentIndex(2);
        const ModalAnswers answers({[](QDialog& dialog) {
            Type(QStringLiteral("Final"));
            Click(Control<QWidget>(dialog, QStringLiteral("cmdAdd")));
            Press(Qt::Key_Escape);
        }});
        Press(Qt::Key_F2);
        QVERIFY(answers.AllGiven());
        QCOMPARE(rounds.count(), 4);
        QCOMPARE(rounds.itemText(3), QStringLiteral("[4] Final"));
        QCOMPARE(rounds.currentIndex(), 0);
    }

    void revealsByTheCheckBox() {
        const Evening evening;
        frmMain console;
        ShowScreen(console);
        for (const bool showAll : {false, true}) {
            Control<QCheckBox>(console, QStringLiteral("chkShowAllRound")).setChecked(showAll);
            for (const qint32 command : {5, 6}) {
                console.RunCommand(command);
                QVERIFY(openBoard());
                QCOMPARE(Control<QWidget>(*openBoard(), QStringLiteral("lblLabel1")).isVisible(),
                         showAll);
                delete openBoard();
            }
        }
    }

    void cannotBeClosed() {
        const Evening evening;
        frmMain console;
        QCOMPARE(console.windowTitle(), QStringLiteral("Rankelo - [1.0.0]"));
        ShowScreen(console);
        QVERIFY(!console.close());
        QVERIFY(console.isVisible());
        const ModalAnswers answers(
            {MessageBox(QStringLiteral("Exit Application"),
                        QStringLiteral("Are you sure you wish to exit?"), Qt::Key_Escape)});
        Press(Qt::Key_Escape);
        QVERIFY(answers.AllGiven());
        QVERIFY(console.isVisible());
    }
};

QTEST_MAIN(frmMainTest)
#include "frmMainTest.moc"
