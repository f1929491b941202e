#include "forms/frmMain.h"
#include "Quiz.h"
#include "app/Messages.h"
#include "core/AppPaths.h"
#include "core/Utilities.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QRegularExpression>

namespace {

/// The console, with the second round selected.
struct Console : Opened {
    Console()
        : Opened(Make<frmMain>) {
        WriteFile(Path("Rankelo.PDF"), "a guide");
        AppUtilities().OpenDocument = [](const QString& path) {
            Messages::Inform(nullptr, path.mid(Paths().AppPath.size()), "document");
            return true;
        };
        rounds.setCurrentIndex(1);
    }
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
            QString number, key, button, steps;
            const char* round = "[2] Films";
        } commands[] = {
            {"#1", "!F2", "cmdRoundSetup", "?Round_Entry !Escape", "[1] Music"},
            {"#2", "!F3", "cmdTeamSetup", "?Team_Entry !Escape"},
            {"#3", "", "cmdConfiguration", "?Settings cmdAbout ?Rankelo cmdClose cmdClose"},
            {"#4", "!F6", "cmdResultsEntry", "?Result_Entry @1 !Return ?Bees !Return !Escape"},
            {"#5", "!F7", "cmdDisplayRound", "?Films_Results"},
            {"#6", "!F8", "cmdDisplayLeader", "?Rankelo_Results"},
            {"#7", "", "cmdViewResults", "?Films_Results !Escape"},
            {"#8", "", "cmdViewLeader", "?Rankelo_Results !Escape"},
            {"#9", "!F1", "", "?Rankelo.PDF !Return"},
            {"#10", "!F9", "", ""},
            {"#12", "!F4", "", "", "[1] Music"},
            {"#13", "!F5", "", "", "[3] Sport"},
            {"#14", "!Escape", "cmdExit", "?Are_you_sure_you_wish_to_exit? !Escape"},
        };
        for (const auto& [number, key, button, steps, round] : commands)
            for (const QString& way : {number, key, button, QString("!Space")}) {
                if (way.isEmpty() || (button.isEmpty() && way == "!Space"))
                    continue;
                Console console;
                if (way == "!Space")
                    console.Get(button).setFocus();
                console.Play(way + u' ' + steps);
                QCOMPARE(console.rounds.currentText(), round);
                // The chosen round is opened, and not by way of another one.
                QCOMPARE(console.Stored("SELECT RoundID FROM Results WHERE TeamID='T2'"),
                         number == "#4" ? "R1|R2" : "R1");
            }
    }

    // Letters reach the chooser. With its list dropped down, Enter and Esc belong to the list; a
    // function key closes it and does its work. An open board hears its own keys there as well.
    void leavesKeysToTheChooser() {
        for (const auto& [steps, round] : {std::pair{"=[3", "[3] Sport"},
                                           {"!Alt+Down !Down !Return", "[3] Sport"},
                                           {"!Alt+Down !Down !Escape", "[2] Films"},
                                           {"!Alt+Down !Down !F5", "[3] Sport"},
                                           {"!Alt+Down !Down !F9 !Return", "[3] Sport"}}) {
            Console console;
            console.Play("#6");
            ShowScreen(*console.screen);
            console.rounds.setFocus();
            console.Play(steps);
            QTRY_VERIFY(!QApplication::activePopupWidget());
            QCOMPARE(console.rounds.currentText(), round);
            // The names on the third and on the second line.
            QCOMPARE(Control<QLabel>(*Quiz::Board(), "lblLabel10").isVisible(), steps[0] == '=');
            QVERIFY(!Control<QLabel>(*Quiz::Board(), "lblLabel6").isVisible());
        }
    }

    // A release would click the button that is down.
    void keepsReleasesFromItsControls() {
        const std::tuple<Screen (*)(), const char*, bool> buttons[] = {
            {Make<frmMain>, "chkShowAllRound", false}, {Make<frmTeamEntry>, "cmdAdd", true}};
        for (const auto& [make, name, arrives] : buttons) {
            const Opened screen(make);
            auto& button = screen.Get<QAbstractButton>(name);
            button.setDown(true);
            QTest::keyRelease(&button, Qt::Key_Space);
            QCOMPARE(button.isDown(), !arrives);
        }
    }

    // What the quiz waits for, and while a board is open what stands on the wall.
    void saysWhatComesNext() {
        const QString round = "Round 2 of 3: %1 of 3 results entered";
        const QString wall = "On the wall: %1 (3, 2, 1 reveal, Esc closes)";
        const QString manyTeams = "INSERT INTO Teams WITH RECURSIVE n(x) AS (VALUES (1) UNION "
                                  "SELECT x+1 FROM n WHERE x<197) SELECT 'M'||x, x FROM n";
        const QString cases[][3] = {
            {"", "", round.arg(0)},
            {"", "!F4", "Round 1 of 3: 2 of 3 results entered"},
            {"INSERT INTO Results VALUES ('X3','R2','T1',NULL,0),('X4','R2','T1',NULL,0)",
             "!F3 !Escape", round.arg(1)},
            {"", "!F6 !Return =7 !Return !Escape", round.arg(1)},
            {"DELETE FROM Teams", "!F3 !Escape", "No teams yet: press F3"},
            {"DELETE FROM Rounds", "!F2 !Escape", "No rounds yet: press F2"},
            {"", "!F7", wall.arg("Films Results")},
            {"", "#5 #6", wall.arg("Rankelo Results")},
            {"", "!F7 ?Films_Results !Escape", round.arg(0)},
            // How many is up to the screen.
            {manyTeams, "!F8",
             wall.arg("Rankelo Results") + "; 1?? teams do not fit, no size of the list would"},
        };
        for (const auto& [statement, steps, status] : cases) {
            Console console;
            if (!statement.isEmpty())
                RunForeign(console.DatabasePath(), {statement});
            console.Play(steps);
            const auto& said = console.Get<QLabel>("lblStatus");
            QTRY_VERIFY2(QRegularExpression::fromWildcard(status).match(said.text()).hasMatch(),
                         qPrintable(said.text()));
        }
        Console console;
        QVERIFY(console.Get<QLabel>("lblGuide").text().startsWith("F1"));
        AppUtilities().OpenDocument = [](const QString&) { return false; };
        console.Play("!F1");
        QCOMPARE(console.Get<QLabel>("lblStatus").text(),
                 "Nothing here opens the user guide. It belongs in " + Paths().AppPath +
                     "Rankelo.PDF");
    }

    // A new board takes the place of one that is still open. Of equal scores in a round, the one
    // with fewer points before doubling comes first.
    void hidesThePodiumUnlessTheBoxSaysSo() {
        for (const char* steps :
             {"!F4 #6 #5", "!F4 #5 #6", "chkShowAllRound !F4 #5", "chkShowAllRound !F4 #6"}) {
            Console console;
            RunForeign(console.DatabasePath(), {"UPDATE Results SET Score=14 WHERE TeamID='T1'"});
            console.Play(steps);
            const auto& team = Control<QLabel>(*Quiz::Board(), "lblLabel2");
            QCOMPARE(team.text(), QString(steps).endsWith("#5") ? "Bees" : "Ants");
            QCOMPARE(team.isVisible(), steps[0] == 'c');
        }
    }

    // Neither an empty screen nor an empty board: without a table the report alone says what is
    // wrong, without a round a message. The close box does nothing.
    void opensNothingThatCannotBeFilled() {
        Console console;
        auto& screen = static_cast<frmMain&>(*console.screen);
        QVERIFY(!screen.close());
        screen.ListRounds(3);
        QCOMPARE(console.rounds.currentText(), "[3] Sport");
        RunForeign(console.DatabasePath(), {"DROP TABLE Rounds", "DROP TABLE Teams"});
        for (const char* steps : {"#1", "#2", "#4", "#5", "#6", "#7", "#8"}) {
            console.Play(steps);
            QVERIFY2(!console.TakeReports().isEmpty() && !Quiz::Board(), steps);
        }
        screen.ListRounds(-1);
        for (const QString number : {"#4", "#5", "#7"})
            console.Play(number + " ?You_need_to_select_a_round !Return");
        console.Play("#12 #13");
        QCOMPARE(console.rounds.count(), 0);
    }
};

QTEST_MAIN(frmMainTest)
#include "frmMainTest.moc"
