#include "forms/frmMain.h"
#include "Evening.h"
#include "core/AppValues.h"
#include "display/frmSummary.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QTest>

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
            {9, Qt::Key_F1, "", "document Rankelo.PDF"},
            {10, Qt::Key_F9, "", ""},
            {12, Qt::Key_F4, "", "round 0"},
            {13, Qt::Key_F5, "", "round 2"},
            {14, Qt::Key_Escape, "cmdExit", "dialog Exit Application"},
            {-1, Qt::Key_X, "", ""},
        };
        Evening evening;
        WriteFile(evening.Path(QStringLiteral("Rankelo.PDF")), "a guide");
        frmMain console;
        ShowScreen(console);
        auto& rounds = Control<QComboBox>(console, Rounds);
        for (const auto& [command, key, button, text] : commands) {
            const QString effect(text);
            const bool isDialog = effect.startsWith(QStringLiteral("dialog"));
            QCOMPARE(effectOf(console, isDialog, [&] { console.RunCommand(command); }), effect);
            rounds.setFocus();
            if (key != 0)
                QCOMPARE(effectOf(console, isDialog, [&] { Press(key); }), effect);
            if (!*button)
                continue;
            auto& tile = Control<QAbstractButton>(console, QString(button));
            QCOMPARE(effectOf(console, isDialog, [&] { Click(tile); }), effect);
            tile.setFocus();
            QCOMPARE(effectOf(console, isDialog, [&] { Press(Qt::Key_Space); }), effect);
            QVERIFY2(!tile.isDown(), "the button waits for a release that never comes");
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
        const ModalAnswers none({});
        for (const int key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_F5}) {
            rounds.setFocus();
            rounds.showPopup();
            QTRY_VERIFY(rounds.view()->isVisible());
            Press(Qt::Key_Down);
            Press(key);
            QTRY_VERIFY(!rounds.view()->isVisible());
            QCOMPARE(rounds.currentIndex(), key == Qt::Key_F5 ? 2 : 1);
        }
        QVERIFY(none.AllGiven());
    }

    // The console swallows every release, and yet no control waits for one.
    void revealsByTheCheckBox() {
        const Evening evening;
        frmMain console;
        ShowScreen(console);
        auto& box = Control<QCheckBox>(console, QStringLiteral("chkShowAllRound"));
        box.setFocus();
        for (const bool isChecked : {true, false, true}) {
            Press(Qt::Key_Space);
            QCOMPARE(box.isChecked(), isChecked);
            QVERIFY(!box.isDown());
        }
        Hold(Qt::Key_Space);
        QVERIFY2(box.isChecked(), "a held key is one press");
        // What it says holds for both boards.
        for (const bool showAll : {true, false}) {
            box.setChecked(showAll);
            for (const qint32 command : {5, 6}) {
                console.RunCommand(command);
                QVERIFY(openBoard());
                QCOMPARE(Control<QWidget>(*openBoard(), QStringLiteral("lblLabel1")).isVisible(),
                         showAll);
                delete openBoard();
            }
        }
    }

    void needsARound() {
        AppFolder empty;
        empty.Open();
        frmMain console;
        ShowScreen(console);
        for (const qint32 command : {4, 5, 7}) {
            const ModalAnswers answers(
                {MessageBox(QStringLiteral("Rankelo Invalid Entry"),
                            QStringLiteral("You need to select a round"), Qt::Key_Return)});
            console.RunCommand(command);
            QVERIFY(answers.AllGiven());
            QVERIFY(!openBoard());
        }
    }

    void cannotBeClosed() {
        const Evening evening;
        frmMain console;
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
