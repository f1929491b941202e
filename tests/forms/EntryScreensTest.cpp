#include "Evening.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace {

using Answers = std::list<ModalAnswers::Answer>;

const QString Teams = "SELECT TeamName FROM Teams ORDER BY rowid";
const QString Rounds = "SELECT RoundNumber || ' ' || RoundName FROM Rounds ORDER BY RoundNumber";

ModalAnswers::Answer deletion(const QString& what, int key) {
    return MessageBox("Melodex Professional", "Are you sure you wish to remove this " + what + "?",
                      key);
}

// Opens the dialog of a team by Enter, types over the old score and presses more keys.
void enter(const Opened<frmResultEntry>& result, int row, const QString& score,
           const QList<int>& keys, Answers messages = {}) {
    ClickRow(result.list, row);
    messages.push_front([&](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), result.list.topLevelItem(row)->text(0));
        Hold(Qt::Key_Return);
        QVERIFY2(dialog.isVisible(), "the Enter that opened it does not confirm it");
        Press(Qt::Key_Delete);
        Type(score);
        for (const int key : keys)
            Press(key);
        QVERIFY2(!dialog.isVisible(), qPrintable(score));
    });
    const ModalAnswers answers(messages);
    Press(Qt::Key_Return);
    QVERIFY2(answers.AllGiven(), qPrintable(score));
}

} // namespace

class EntryScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // Enter keeps what is typed and adds no blank name; a click on the button leaves the box, which
    // takes the apostrophes away, and adds whatever is there.
    void addsTeams() {
        const struct {
            const char *typed, *byEnter, *byButton;
        } cases[] = {{"O'Brien", "|O'Brien", "|OBrien"}, {" ", "", "| "}};
        for (const auto& [typed, byEnter, byButton] : cases)
            for (const QString added : {byEnter, byButton}) {
                const Opened<frmTeamEntry> team;
                const auto& box = team.Get<QLineEdit>("txtTeamName");
                Type(typed);
                added == byEnter ? Press(Qt::Key_Return) : team.PressFor(-1, "cmdAdd");
                Hold(Qt::Key_Return); // A held key is one press.
                QCOMPARE(Rows(team.list), "Ants|Bees|Cats" + added);
                QCOMPARE(team.Stored(Teams), "Ants|Bees|Cats" + added);
                QCOMPARE(box.text(), added.isEmpty() ? typed : "");
                QVERIFY2(box.hasFocus(), "ready for the next team");
            }
    }

    // A cancelled deletion takes the row away too, until the screen is opened again.
    void renamesAndDeletesRounds() {
        const Opened<frmRoundEntry> round;
        auto& box = round.Get<QLineEdit>("txtRoundName");
        round.list.setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(box.text(), "Music");
        ClickRow(round.list, 1);
        Click(box);
        QTRY_COMPARE(box.selectedText(), "Films");
        Type("Bon'us");
        Press(Qt::Key_Return); // It has no meaning here.
        Click(round.Get("cmdEdit"));
        QCOMPARE(Rows(round.list), "1 Music|2 Bonus|3 Sport");
        const ModalAnswers answers(
            {deletion("round", Qt::Key_Escape), deletion("round", Qt::Key_Return)});
        for (const char* left : {"2 Bonus|3 Sport", "3 Sport"}) {
            round.PressFor(0, "cmdDelete");
            QCOMPARE(Rows(round.list), left);
        }
        QVERIFY(answers.AllGiven());
        QCOMPARE(round.Stored(Rounds), "1 Music|3 Sport");
    }

    // Every failure is told, and the list stays as it was.
    void tellsFailures() {
        const Opened<frmTeamEntry> team;
        RunForeign(team.DatabasePath(), {"DROP TABLE Teams"});
        for (const int row : {-1, 1})
            for (const QByteArray button : {"cmdAdd", "cmdEdit", "cmdDelete"}) {
                Answers expected{
                    MessageBox("Rankelo Error", "Operation failed to complete", Qt::Key_Return)};
                if (row >= 0 && button == "cmdDelete")
                    expected.push_front(deletion("team", Qt::Key_Return));
                const ModalAnswers answers(expected);
                team.PressFor(row, button);
                QVERIFY2(answers.AllGiven(), button);
                QCOMPARE(Rows(team.list), "Ants|Bees|Cats");
            }
    }

    // The moved round stays selected, what is typed about it stays too, and nothing is said when
    // another program holds the file.
    void movesRounds() {
        const struct {
            int selected;
            const char* button;
            int selectedAfter;
            const char* order;
            bool isLocked = false;
        } cases[] = {{0, "cmdMove_1", 1, "1 Films|2 Music|3 Sport"},
                     {2, "cmdMove_1", 2, "1 Music|2 Films|3 Sport"},
                     {2, "cmdMove_0", 1, "1 Music|2 Sport|3 Films"},
                     {0, "cmdMove_0", 0, "0 Music|1 Films|2 Sport"},
                     {-1, "cmdMove_0", -1, "1 Music|2 Films|3 Sport"},
                     {0, "cmdMove_1", 0, "1 Music|2 Films|3 Sport", true}};
        for (const auto& [selected, button, selectedAfter, order, isLocked] : cases) {
            const Opened<frmRoundEntry> round;
            round.Get<QLineEdit>("txtRoundName").setText("a new name");
            auto lock = isLocked ? std::make_unique<ForeignLock>(round.DatabasePath()) : nullptr;
            const ModalAnswers none({});
            round.PressFor(selected, button);
            lock.reset();
            QVERIFY(none.AllGiven());
            QCOMPARE(Rows(round.list), order);
            QCOMPARE(round.Stored(Rounds), order);
            QCOMPARE(round.list.indexOfTopLevelItem(round.list.selectedItems().value(0)),
                     selectedAfter);
        }
    }

    // A number is rounded; one that is too big is not stored. What is no number is told, and the
    // dialog stays. Entering a score again changes the same result, and every way out of the dialog
    // keeps its word.
    void entersScores() {
        const QList<int> ok{Qt::Key_Return};
        const QList<int> okAndLeave{Qt::Key_Return, Qt::Key_Escape};
        const struct {
            int row;
            const char *score, *stored;
            QList<int> keys;
        } cases[] = {{2, "-5", "8 N|7 Y|-5 N", ok},
                     {2, "7.5", "8 N|7 Y|8 N", ok},
                     {2, "8.5", "8 N|7 Y|8 N", ok},
                     {2, "99999999999", "8 N|7 Y", ok},
                     {2, "12a", "8 N|7 Y", okAndLeave},
                     {2, "", "8 N|7 Y", okAndLeave},
                     {1, "9", "8 N|9 Y", {Qt::Key_Enter}},
                     {1, "9", "8 N|9 N", {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Return}},
                     {1, "9", "8 N|7 Y", {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space}}};
        for (const auto& [row, score, stored, keys] : cases) {
            const Opened<frmResultEntry> result;
            Answers refusal;
            if (keys == okAndLeave)
                refusal.push_back(
                    MessageBox("Rankelo Error", "Score must be a numeric value", Qt::Key_Return));
            enter(result, row, score, keys, refusal);
            QCOMPARE(result.Stored("SELECT Score || iif(Joker, ' Y', ' N') FROM Results "
                                   "ORDER BY TeamID"),
                     stored);
            const QStringList scores = QString(stored).split(u'|');
            for (int i = 0; i < 3; ++i)
                QCOMPARE(Rows(result.list).split(u'|')[i].section(u' ', 1, 2),
                         scores.value(i, "0 N"));
            QCOMPARE(result.Get<QLineEdit>("txtEntered").text(), QString::number(scores.size()));
        }
    }

    void aFailedSaveLeavesTheRow() {
        Opened<frmResultEntry> result;
        const QString before = Rows(result.list);
        for (const int row : {1, 2}) {
            const ForeignLock lock(result.DatabasePath());
            enter(result, row, "5", {Qt::Key_Return});
            QCOMPARE(Rows(result.list), before);
            QVERIFY(!result.TakeReports().isEmpty());
        }
    }

    // Another round in the chooser: the scores are that round's, but a team without one keeps the
    // identity of the round shown before, and the count stays. So a score entered now moves the
    // other round's result here.
    void keepsTheIdentityWhenTheRoundChanges() {
        const Opened<frmResultEntry> result;
        RunForeign(result.DatabasePath(), {"INSERT INTO Results VALUES ('X3','R2','T1',4,1)"});
        result.Get<QComboBox>("cboRounds").setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(Rows(result.list), "Ants 4 Y X3|Bees 0 N X2|Cats 0 N ");
        QCOMPARE(result.Get<QLineEdit>("txtEntered").text(), "2");
        enter(result, 1, "6", {Qt::Key_Return});
        QCOMPARE(result.Stored("SELECT RoundID || Score FROM Results WHERE ResultID='X2'"), "R26");
    }
};

QTEST_MAIN(EntryScreensTest)
#include "EntryScreensTest.moc"
