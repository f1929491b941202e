#include "Evening.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"

#include <QLineEdit>
#include <QTest>

namespace {

const QString Teams = "SELECT TeamName FROM Teams ORDER BY rowid";
const QString Rounds = "SELECT RoundNumber || ' ' || RoundName FROM Rounds ORDER BY RoundNumber";

ModalAnswers::Answer deletion(const QString& what, int key) {
    return MessageBox("Melodex Professional", "Are you sure you wish to remove this " + what + "?",
                      key);
}

} // namespace

class EntryFormTest : public QObject {
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
                added == byEnter ? Press(Qt::Key_Return) : Click(team.Get<QWidget>("cmdAdd"));
                Hold(Qt::Key_Return); // A held key is one press.
                QCOMPARE(team.Rows(), "Ants|Bees|Cats" + added);
                QCOMPARE(team.Stored(Teams), "Ants|Bees|Cats" + added);
                QCOMPARE(box.text(), added.isEmpty() ? typed : "");
                QVERIFY2(box.hasFocus(), "ready for the next team");
            }
    }

    // In a round's name, Enter has no meaning. A cancelled deletion takes the row away too, until
    // the screen is opened again.
    void addsRenamesAndDeletesRounds() {
        const Opened<frmRoundEntry> round;
        auto& box = round.Get<QLineEdit>("txtRoundName");
        Type("Fin'al");
        Press(Qt::Key_Return);
        QCOMPARE(round.Rows(), "1 Music|2 Films|3 Sport");
        Click(round.Get<QWidget>("cmdAdd"));
        QCOMPARE(box.text(), "");
        ClickRow(round.list, 1);
        Click(box);
        QTRY_COMPARE(box.selectedText(), "Films");
        Type("Bon'us");
        Click(round.Get<QWidget>("cmdEdit"));
        QCOMPARE(round.Rows(), "1 Music|2 Bonus|3 Sport|4 Final");
        const ModalAnswers answers(
            {deletion("round", Qt::Key_Escape), deletion("round", Qt::Key_Return)});
        for (const char* left : {"2 Bonus|3 Sport|4 Final", "3 Sport|4 Final"}) {
            ClickRow(round.list, 0);
            Click(round.Get<QWidget>("cmdDelete"));
            QCOMPARE(round.Rows(), left);
        }
        QVERIFY(answers.AllGiven());
        QCOMPARE(round.Stored(Rounds), "1 Music|3 Sport|4 Final");
    }

    // Every failure is told, and the list stays as it was.
    void tellsFailures() {
        const Opened<frmTeamEntry> team;
        team.Rename("Teams", "Hidden");
        for (const bool isSelected : {false, true})
            for (const char* button : {"cmdAdd", "cmdEdit", "cmdDelete"}) {
                if (isSelected)
                    ClickRow(team.list, 1);
                std::list<ModalAnswers::Answer> expected{
                    MessageBox("Rankelo Error", "Operation failed to complete", Qt::Key_Return)};
                if (isSelected && button == QString("cmdDelete"))
                    expected.push_front(deletion("team", Qt::Key_Return));
                const ModalAnswers answers(expected);
                Click(team.Get<QWidget>(button));
                QVERIFY2(answers.AllGiven(), button);
                QCOMPARE(team.Rows(), "Ants|Bees|Cats");
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
            bool isLocked;
        } cases[] = {{0, "cmdMove_1", 1, "1 Films|2 Music|3 Sport", false},
                     {2, "cmdMove_1", 2, "1 Music|2 Films|3 Sport", false},
                     {2, "cmdMove_0", 1, "1 Music|2 Sport|3 Films", false},
                     {0, "cmdMove_0", 0, "0 Music|1 Films|2 Sport", false},
                     {-1, "cmdMove_0", -1, "1 Music|2 Films|3 Sport", false},
                     {0, "cmdMove_1", 0, "1 Music|2 Films|3 Sport", true}};
        for (const auto& [selected, button, selectedAfter, order, isLocked] : cases) {
            const Opened<frmRoundEntry> round;
            if (selected >= 0)
                ClickRow(round.list, selected);
            round.Get<QLineEdit>("txtRoundName").setText("a new name");
            auto lock = isLocked ? std::make_unique<ForeignLock>(round.DatabasePath()) : nullptr;
            const ModalAnswers none({});
            Click(round.Get<QWidget>(button));
            lock.reset();
            QVERIFY(none.AllGiven());
            QCOMPARE(round.Rows(), order);
            QCOMPARE(round.Stored(Rounds), order);
            QCOMPARE(round.list.indexOfTopLevelItem(round.list.selectedItems().value(0)),
                     selectedAfter);
            QCOMPARE(round.Get<QLineEdit>("txtRoundName").text(), "a new name");
        }
    }
};

QTEST_MAIN(EntryFormTest)
#include "EntryFormTest.moc"
