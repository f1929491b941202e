#include "Quiz.h"
#include "core/AppPaths.h"
#include "display/frmOptions.h"
#include "support/PaintRecorder.h"

#include <QComboBox>
#include <QLabel>
#include <QRegularExpression>

namespace {

// A text that somebody may type, paste or store as the name of a team or a round.
struct HostileText {
    const char* What;
    QString Text;
    QString Pasted = Text; ///< what the entry screens make of it, the records parted by "|"
    bool IsRefused = Text.contains(QChar(0));
};

const HostileText HostileTexts[] = {
    {"quotes of every kind", "O'Brien \"a\" `b` 'c' „d“ «e» ‘f’"},
    {"a statement", "'); DROP TABLE Teams;--/* c */ ? :name $1 %_[a-z]*"},
    {"markup and formats", "<b>x</b><img src=\"/etc/passwd\">&amp;<br> %1 %s %n %99 {0} \\"},
    {"a menu key", "Tom & Jerry && Co"},
    {"a column", "a\nb \r\n \r\n\tc\t\td\r", "a|b |c d"},
    {"a line end and a tab", "a\tb\r\n", "a b"},
    {"surrounding blanks", "  a  "},
    {"right to left, emoji", "\u202Eabc\u202C \u05D0\u0627 \U0001F9D1\u200D\U0001F680 e\u0301"},
    {"separators", "a\uFEFF\u2028\u2029\u200B", "a\uFEFF|\u200B"},
    {"10,000 characters", QString(10000, u'x')},
    {"a code that is no character", u'a' + QString(QChar(0xFFFE)), "a\uFFFD"},
    {"a zero character", QStringLiteral("a\0'; DELETE FROM Teams")}};

/// How a screen is made, and what of it is stored, as its list shows it.
struct Kind {
    Screen (*make)();
    QString stored;
};
const Kind Team{Make<frmTeamEntry>, "SELECT TeamName FROM Teams ORDER BY rowid"};
const Kind Round{Make<frmRoundEntry>,
                 "SELECT RoundNumber || ' ' || RoundName FROM Rounds "
                 "WHERE MaxScore = iif(RoundID LIKE 'R_', 10, 0) ORDER BY RoundNumber"};
const Kind Scores{ResultScreen, "SELECT TeamName || ' ' || ifnull(Score, 0) || "
                                "iif(Joker, ' Y ', ' N ') || ifnull(ResultID, '') "
                                "FROM Teams LEFT JOIN Results USING (TeamID) ORDER BY TeamName"};

QString withoutKeys(QString rows) {
    return rows.remove(QRegularExpression("\\d{26}"));
}

// Whether the first and the last team have the same mark, of those with and without a result.
bool areMarkedAlike(const Opened& screen) {
    const auto mark = [&](int row) {
        const auto& list = screen.Get<QTreeWidget>("lvTeams");
        return list.topLevelItem(row)->icon(0).pixmap(24).toImage();
    };
    return mark(0) == mark(2);
}

// Every text that a screen shows, drawn as well.
QString textsOf(QWidget& screen) {
    screen.grab();
    QStringList texts;
    for (const auto* list : screen.findChildren<QTreeWidget*>())
        texts += Rows(*list);
    for (const auto* chooser : screen.findChildren<QComboBox*>())
        texts += chooser->currentText();
    for (const auto* label : screen.findChildren<QLabel*>())
        texts += label->textFormat() == Qt::PlainText ? label->text() : QString();
    return texts.join(u'|');
}

} // namespace

class EntryScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void storesWhatItShows() {
        const QString teams = "Ants|Bees|Cats";
        const QString rounds = "1 Music|2 Films|3 Sport";
        const QString scores = "Ants 8 N X1|Bees 7 Y X2|Cats 0 N ";
        const QString failed = " ?Operation_failed_to_complete !Return ";
        const QString deletion = " cmdDelete ?Are_you_sure_you_wish_to_remove_this_round? ";
        const QString teamDeletion = QString(deletion).replace("round", "team") + "!Return ";
        const QString notNumeric = " ?Score_must_be_a_numeric_value !Return ";
        const QString same, none;
        const auto refuse = [](const char* statement) {
            return QString("CREATE TRIGGER t BEFORE %1 BEGIN SELECT raise(ABORT, 'no'); END")
                .arg(statement);
        };
        const struct {
            const Kind& kind;
            QString steps, stored;
            QString shown = {};   ///< when it is not what is stored
            QString foreign = {}; ///< what another program does first
            const char* report = "";
        } cases[] = {
            // Enter adds, but no blank, and so does the button; then the next one can be typed.
            {Team, "=Dogs !Return ~Return =Eels cmdAdd =_ !Return", "Ants|Bees|Cats|Dogs|Eels"},
            {Team, "cmdAdd", "Ants|Bees|Cats|"},
            {Round, "=O'x !Return cmdAdd =y cmdAdd", "1 Music|2 Films|3 Sport|4 Ox|5 y"},
            // A column that is pasted becomes a record a line, up to the first that fails.
            {Round, "=O +x//y/ =z cmdAdd", "1 Music|2 Films|3 Sport|4 Ox|5 y|6 z"},
            {Team, "+Dogs/ =y !Return", "Ants|Bees|Cats|Dogsy"},
            {Team, "+Dogs/x/Eels" + failed + "!Return" + failed, "Ants|Bees|Cats|Dogs", same,
             refuse("INSERT ON Teams WHEN NEW.TeamName = 'x'")},
            // A double click on the plus adds once, on an arrow it moves twice.
            {Team, "=Dogs &cmdAdd =Eels !Return", "Ants|Bees|Cats|Dogs|Eels"},
            {Round, "@0 &cmdMove_1", "1 Films|2 Sport|3 Music"},
            // A row that is selected, or clicked again, has its name in the box.
            {Round, "@0 !Down cmdAdd", "1 Music|2 Films|3 Sport|4 Films"},
            {Round, "@2 txtRoundName =x @2 cmdAdd", "1 Music|2 Films|3 Sport|4 Sport"},
            {Round, "@0 txtRoundName =Bon'us cmdEdit", "1 Bonus|2 Films|3 Sport"},
            // A click below the rows is none.
            {Team, "@1 txtTeamName =Bats @9 cmdEdit", "Ants|Bats|Cats"},
            // A deletion selects nothing, leaves nothing of the deleted in the box and what was
            // typed there, and gives it the keyboard.
            {Team, "@1" + teamDeletion + "!Return =Dogs !Return cmdDelete" + failed,
             "Ants|Cats|Dogs"},
            {Team, "@1 txtTeamName =Dogs" + teamDeletion + "!Return", "Ants|Cats|Dogs"},
            // A cancelled deletion takes the row away until the screen is opened again.
            {Round, "@1" + deletion + "!Escape @1" + deletion + "!Return", "1 Music|2 Films",
             "1 Music"},
            {Round, ("@0" + deletion + "!Escape ").repeated(3) + "cmdDelete", rounds, ""},
            {Team, "cmdEdit" + failed, teams},
            {Team, "@1 =x cmdEdit" + failed, teams, same, refuse("UPDATE ON Teams")},
            {Round, "@1" + deletion + "!Return" + failed, rounds, same, refuse("DELETE ON Rounds")},
            // The moved round stays selected, and nothing is said when it cannot move.
            {Round, "@0 txtRoundName =x cmdMove_1 cmdEdit", "1 Films|2 Music|3 Sport"},
            {Round, "@1 cmdMove_0 cmdMove_0 cmdMove_1" + deletion + "!Return", "2 Music|3 Sport"},
            {Round, "cmdMove_0", rounds},
            // Numbered by another program, the others are counted around the moved round.
            {Round, "@1 cmdMove_1 txtRoundName =x cmdAdd", "1 Music|2 Sport|6 Films|7 x", same,
             "UPDATE Rounds SET RoundNumber=4*RoundNumber-3"},
            {Round, "@1 cmdMove_0", "1 Music|2 Sport|3 Films", same,
             "UPDATE Rounds SET RoundNumber=4"},
            {Round, "@0 txtRoundName =x cmdMove_1 cmdAdd", rounds + "|4 x", same,
             refuse("UPDATE ON Rounds")},
            // A score is rounded, a new one makes a result, another one changes it. What is no
            // number is told, and the dialog stays. Every way out of it keeps its word.
            {Scores, "@2 !Return ~Return ?Cats =-5 !Return", "Ants 8 N X1|Bees 7 Y X2|Cats -5 N "},
            {Scores, "@2 !Return =7.5 !Enter @2 !Return =9 !Return",
             "Ants 8 N X1|Bees 7 Y X2|Cats 9 N "},
            {Scores, "@@1 ?Bees =9' !Tab !Space !Return", "Ants 8 N X1|Bees 9 N X2|Cats 0 N "},
            {Scores,
             "@@1 =9a !Return" + notNumeric + "=9a !Down" + notNumeric + "=9a cmdOK" + notNumeric +
                 "=0 cmdOK",
             "Ants 8 N X1|Bees 0 Y X2|Cats 0 N "},
            {Scores, "@@1 =9 chkJoker cmdCancel", scores},
            {Scores, "@>1", scores},
            // A held key goes one team on, and a failed save none.
            {Scores, "@0 !Return =1 !Down ~Down ~Down ?Bees !Escape !Return ?Bees =2 !Return",
             "Ants 1 N X1|Bees 2 Y X2|Cats 0 N "},
            {Scores, "@0 !Return =9 !Down", scores, same, refuse("UPDATE ON Results")},
            {Scores, "@@1 =99999999999 !Return", scores, same, none, "[GetEntry/modForms]"},
            // Without knowing what is stored, nothing is stored over the round shown before.
            {Scores, "( !Tab !Down" + failed + ") @1 !Return ?Bees =9 !Return",
             "Ants 8 N X1|Bees 9 Y X2|Cats 0 N ", same, none,
             "[GetResultsForRound/frmResultEntry]"},
            // The jokers of the other rounds, also beside a row without a score.
            {Scores, "@@1 ?Bees ?Music ?Joker_played_in:_Films,_Sport !Escape @@0 ? !Escape",
             "Ants 8 N X1|Ants 5 N X5|Bees 7 Y X2|Bees 0 Y X3|Bees 5 Y X4|Cats 0 N ", scores,
             "INSERT INTO Results VALUES "
             "('X3','R2','T2',NULL,1),('X4','R3','T2',5,1),('X5','R3','T1',5,0)"},
            // The wheel over the closed chooser is no choice, and keys leave the keyboard there.
            {Scores, "!Tab %cboRounds !Down !Up %cboRounds", scores},
            // After one in the open list the teams have it. Of several results of a team the first
            // counts; a team without one keeps the other round's, which a new score moves here.
            {Scores, "!Tab !Alt+Down !Down !Return !Down !Return ?Bees =6 !Return",
             "Ants 8 N X1|Ants 4 Y X3|Ants 5 N X4|Bees 6 N X2|Cats 0 N ",
             "Ants 4 Y X3|Bees 6 N X2|Cats 0 N ",
             "INSERT INTO Results VALUES ('X3','R2','T1',4,1),('X4','R2','T1',5,0)"},
        };
        for (const auto& [kind, steps, stored, shown, foreign, report] : cases) {
            Opened screen(kind.make);
            if (!foreign.isEmpty())
                screen.Stored(foreign);
            screen.Play(steps);
            QCOMPARE(withoutKeys(screen.Stored(kind.stored)), stored);
            const QString rows = Rows(*screen.screen->findChild<QTreeWidget*>());
            QCOMPARE(withoutKeys(rows), shown.isNull() ? stored : shown);
            QCOMPARE(rows == screen.Stored(kind.stored), shown.isNull());
            const QString reports = screen.TakeReports().join(u'|');
            QCOMPARE(reports.right(QString(report).size()), report);
            QCOMPARE(reports.isEmpty(), !foreign.endsWith("END") && !*report);
            if (&kind != &Scores)
                continue;
            const auto textIn = [&](const char* box) { return screen.Get<QLineEdit>(box).text(); };
            QCOMPARE(textIn("txtEntered") + textIn("txtOutOf"),
                     screen.Stored("SELECT count(DISTINCT TeamID) || 3 FROM Results"));
            // A line warns while the round is not the one that the screen was opened on.
            QCOMPARE(screen.Get("lblMoves").isVisible(),
                     screen.Get<QComboBox>("cboRounds").currentText() != "Music");
            // Ants have a result in every case, Cats in some.
            QCOMPARE(areMarkedAlike(screen), !rows.endsWith(u' '));
        }
    }

    // Nothing is stored beside a row that cannot be read.
    void asksForNoScoreWithoutTheResults() {
        Opened scores([] {
            RunForeign(Paths().AppPath + "Rankelo.MDB", {"UPDATE Results SET Score=NULL"});
            const ModalAnswers answers(
                {MessageBox("Rankelo Error", "Operation failed to complete", Qt::Key_Return)});
            return ResultScreen();
        });
        QCOMPARE(scores.Get<QLineEdit>("txtEntered").text(), "0");
        scores.Play("!Return ?Operation_failed_to_complete !Return");
        QCOMPARE(Rows(scores.Get<QTreeWidget>("lvTeams")), "Ants   |Bees   |Cats   ");
        RunForeign(scores.DatabasePath(), {"UPDATE Results SET Score=7"});
        scores.Play("!Return ?Ants =9 !Return");
        QCOMPARE(scores.Stored(Scores.stored), "Ants 9 N X1|Bees 7 Y X2|Cats 0 N ");
        // A result of another round is marked when that is chosen.
        RunForeign(scores.DatabasePath(), {"INSERT INTO Results VALUES ('X3','R2','T3',1,0)"});
        QVERIFY(!areMarkedAlike(scores));
        scores.Play("!Tab !Down");
        QVERIFY(areMarkedAlike(scores));
    }

    // Not by the first answer, and not when no copy of the quiz can be kept.
    void deletesNothingWithoutACopy() {
        Opened settings([] { return Screen(new frmOptions(nullptr, nullptr)); });
        WriteFile(settings.Path("Earlier quizzes"), "not a folder");
        const QString ask = "cmdReset ?Are_you_sure_you_wish_to_delete_all_data? ";
        settings.Play(ask + "!Return " + ask + "!Tab !Space ?Operation_failed_to_complete !Return");
        QCOMPARE(settings.TakeReports().size(), 1);
        QCOMPARE(settings.Stored(Team.stored), "Ants|Bees|Cats");
    }

    void emptyListsSayWhatToDo() {
        const Quiz quiz;
        for (const bool isEmpty : {false, true}) {
            if (isEmpty)
                RunForeign(quiz.DatabasePath(), {"DELETE FROM Teams", "DELETE FROM Rounds"});
            for (const auto& [make, said] :
                 {std::pair{Team.make, "Type a name and press Enter"},
                  {Round.make, "Type a name and press the plus"},
                  {Scores.make, "No teams yet: add them in Team Entry (F3)"}}) {
                const Screen screen = make();
                ShowScreen(*screen);
                QString painted;
                for (const auto& text :
                     RecordedWidget(*screen->findChild<QTreeWidget*>()->viewport()).Recorder.Texts)
                    painted += text.Content + u' ';
                QCOMPARE(painted.simplified().contains(said), isEmpty);
            }
        }
    }

    // What is pasted is stored as it is, a record a line.
    void addsWhatIsPasted() {
        for (const HostileText& name : HostileTexts)
            for (const auto& [make, query] :
                 {std::pair{Team.make, "SELECT TeamName FROM Teams ORDER BY rowid"},
                  {Round.make, "SELECT RoundName FROM Rounds ORDER BY RoundNumber"}}) {
                const Opened screen(make);
                const QString before = screen.Stored(query);
                const ModalAnswers answers(std::list(
                    name.IsRefused,
                    MessageBox("Rankelo Error", "Operation failed to complete", Qt::Key_Return)));
                Paste(name.Text + "\nx");
                QVERIFY2(answers.AllGiven(), name.What);
                QCOMPARE(screen.Stored(query),
                         before + (name.IsRefused ? QString() : u'|' + name.Pasted + "|x"));
            }
    }

    // Stored by another program, a name stands on every screen and on the board as it is.
    void showsForeignNames() {
        for (const HostileText& name : HostileTexts) {
            const Quiz quiz;
            RunForeign(quiz.DatabasePath(),
                       {"UPDATE Teams SET TeamName=?", "UPDATE Rounds SET RoundName=?"}, name.Text);
            const QString stored = quiz.Stored(Team.stored).section(u'|', 0, 0);
            modForms::ViewResults(nullptr, modForms::RoundOnBoard, 0, "R1");
            QString texts = textsOf(*Quiz::Board());
            for (const auto make : {Team.make, Round.make, Scores.make, Make<frmMain>}) {
                const Screen screen = make();
                QVERIFY2(screen->minimumSizeHint().width() < 1280, name.What);
                texts += textsOf(*screen);
            }
            const ModalAnswers answers({[&](QDialog& view) {
                texts += textsOf(view);
                view.reject();
            }});
            modForms::ViewResults(nullptr, modForms::OverallInWindow, 0, QString());
            // 2 teams and a heading, 3 teams, 3 rounds, 3 teams and a chooser, a chooser and the
            // status, 3 teams.
            QCOMPARE(texts.count(stored), 3 + 3 + 3 + 4 + 2 + 3);
        }
    }
};

QTEST_MAIN(EntryScreensTest)
#include "EntryScreensTest.moc"
