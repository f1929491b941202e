#include "forms/frmTeamEntry.h"
#include "Evening.h"

#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

namespace {

const QString Failed = QStringLiteral("Operation failed to complete");
const QString FailedTitle = QStringLiteral("Rankelo Error");
const QString Question = QStringLiteral("Are you sure you wish to remove this team?");
const QString QuestionTitle = QStringLiteral("Melodex Professional");

// The screen with the evening's teams, and its controls.
struct TeamScreen {
    TeamScreen() {
        if (!screen.FillList())
            qFatal("no teams");
        ShowScreen(screen);
    }
    void PressButton(const char* name) {
        Click(Control<QWidget>(screen, QString::fromLatin1(name)));
    }

    frmTeamEntry screen;
    QTreeWidget& list = Control<QTreeWidget>(screen, QStringLiteral("lvTeams"));
    QLineEdit& box = Control<QLineEdit>(screen, QStringLiteral("txtTeamName"));
};

} // namespace

class frmTeamEntryTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // Enter keeps what is typed and adds no blank name; a click on the button leaves the box, which
    // takes the apostrophes away, and adds whatever is there.
    void adds() {
        const QString start = QStringLiteral("Ants|Bees|Cats");
        const struct {
            const char *typed, *byEnter, *byButton;
        } cases[] = {
            {"O'Brien", "|O'Brien", "|OBrien"},
            {" Ants ", "| Ants ", "| Ants "},
            {"'); DROP TABLE Teams;--", "|'); DROP TABLE Teams;--", "|); DROP TABLE Teams;--"},
            {"  ", "", "|  "}};
        for (const auto& [typed, byEnter, byButton] : cases) {
            for (const bool isByEnter : {true, false}) {
                const Evening evening;
                TeamScreen team;
                Type(QString(typed));
                isByEnter ? Press(Qt::Key_Return) : team.PressButton("cmdAdd");
                const QString added(isByEnter ? byEnter : byButton);
                QCOMPARE(Column(team.list, 0), start + added);
                QCOMPARE(evening.Stored("SELECT TeamName FROM Teams ORDER BY rowid"),
                         start + added);
                QCOMPARE(team.box.text(), added.isEmpty() ? QString(typed) : QString());
                QVERIFY2(team.box.hasFocus(), "ready for the next team");
            }
        }
    }

    void renamesTheSelectedTeam() {
        Evening evening;
        TeamScreen team;
        ClickRow(team.list, 1);
        QCOMPARE(team.box.text(), QStringLiteral("Bees"));
        Click(team.box);
        QTRY_COMPARE(team.box.selectedText(), QStringLiteral("Bees"));
        Type(QStringLiteral("D'Bees"));
        team.PressButton("cmdEdit");
        QCOMPARE(Column(team.list, 0), QStringLiteral("Ants|DBees|Cats"));
        QCOMPARE(evening.Stored("SELECT TeamName FROM Teams WHERE TeamID='T2'"),
                 QStringLiteral("DBees"));
        QCOMPARE(SelectedRow(team.list), 1);
    }

    // A cancelled deletion takes the row away too, until the screen is opened again.
    void deletes() {
        const Evening evening;
        TeamScreen team;
        for (const bool isConfirmed : {false, true}) {
            ClickRow(team.list, 1);
            const ModalAnswers answers({MessageBox(QuestionTitle, Question,
                                                   isConfirmed ? Qt::Key_Return : Qt::Key_Escape)});
            team.PressButton("cmdDelete");
            QVERIFY(answers.AllGiven());
            QCOMPARE(Column(team.list, 0), QStringLiteral("Ants|Cats"));
            QVERIFY(team.screen.FillList());
            QCOMPARE(Column(team.list, 0), QString(isConfirmed ? "Ants|Cats" : "Ants|Bees|Cats"));
        }
    }

    // Every failure is told, and the list stays as it was.
    void tellsFailures() {
        Evening evening;
        TeamScreen team;
        const auto failure = MessageBox(FailedTitle, Failed, Qt::Key_Return);
        evening.Hide("Teams");
        for (const int row : {-1, 1})
            for (const char* button : {"cmdAdd", "cmdEdit", "cmdDelete"}) {
                if (row >= 0)
                    ClickRow(team.list, row);
                std::list<ModalAnswers::Answer> expected{failure};
                if (row >= 0 && button == QStringLiteral("cmdDelete"))
                    expected.push_front(MessageBox(QuestionTitle, Question, Qt::Key_Return));
                const ModalAnswers answers(expected);
                team.PressButton(button);
                QVERIFY2(answers.AllGiven(), button);
                QCOMPARE(Column(team.list, 0), QStringLiteral("Ants|Bees|Cats"));
            }
        evening.Unhide("Teams");
        QCOMPARE(evening.Stored("SELECT TeamName FROM Teams ORDER BY TeamName"),
                 QStringLiteral("Ants|Bees|Cats"));
        Type(QStringLiteral("Dogs"));
        team.PressButton("cmdAdd");
        QVERIFY2(team.list.topLevelItemCount() == 4, "the screen works on");
    }

    void holdingEnterAddsOneTeam() {
        const Evening evening;
        TeamScreen team;
        Type(QStringLiteral("Dogs"));
        Press(Qt::Key_Return);
        Type(QStringLiteral("Elks"));
        Hold(Qt::Key_Return);
        QCOMPARE(Column(team.list, 0), QStringLiteral("Ants|Bees|Cats|Dogs"));
        Press(Qt::Key_Escape);
        QVERIFY(!team.screen.isVisible());
    }
};

QTEST_MAIN(frmTeamEntryTest)
#include "frmTeamEntryTest.moc"
