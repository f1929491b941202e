#include "forms/frmTeamEntry.h"
#include "Evening.h"

#include <QLineEdit>
#include <QPushButton>
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

    // Enter leaves the box entered and keeps what is typed; a click on the button leaves the box,
    // which takes the apostrophes away.
    void adds_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("byEnter");
        QTest::addColumn<QString>("byButton");
        const QString nothing;
        QTest::newRow("a name") << "Dogs"
                                << "Dogs"
                                << "Dogs";
        QTest::newRow("an apostrophe") << "O'Brien's"
                                       << "O'Brien's"
                                       << "OBriens";
        QTest::newRow("blanks around") << "  Dogs "
                                       << "  Dogs "
                                       << "  Dogs ";
        QTest::newRow("a name that is there") << "Ants"
                                              << "Ants"
                                              << "Ants";
        QTest::newRow("a statement") << "'); DROP TABLE Teams;--"
                                     << "'); DROP TABLE Teams;--"
                                     << "); DROP TABLE Teams;--";
        QTest::newRow("emoji") << QStringLiteral("\U0001F9D1\u200D\U0001F680 e\u0301")
                               << QStringLiteral("\U0001F9D1\u200D\U0001F680 e\u0301")
                               << QStringLiteral("\U0001F9D1\u200D\U0001F680 e\u0301");
        QTest::newRow("300 characters")
            << QString(300, u'x') << QString(300, u'x') << QString(300, u'x');
        // Enter adds no blank name, the button adds whatever is there.
        QTest::newRow("nothing") << "" << nothing << "";
        QTest::newRow("blanks") << "   " << nothing << "   ";
    }

    void adds() {
        QFETCH(QString, typed);
        QFETCH(QString, byEnter);
        QFETCH(QString, byButton);
        for (const bool isByEnter : {true, false}) {
            const Evening evening;
            TeamScreen team;
            Type(typed);
            isByEnter ? Press(Qt::Key_Return) : team.PressButton("cmdAdd");
            const QString name = isByEnter ? byEnter : byButton;
            const bool isAdded = !isByEnter || !typed.trimmed().isEmpty();
            QCOMPARE(team.list.topLevelItemCount(), isAdded ? 4 : 3);
            if (isAdded) {
                QCOMPARE(team.list.topLevelItem(3)->text(0), name);
                QCOMPARE(evening.Stored("SELECT TeamName FROM Teams WHERE TeamID NOT LIKE 'T%'"),
                         name);
            }
            QCOMPARE(team.box.text(), isAdded ? QString() : typed);
            QVERIFY2(team.box.hasFocus(), "ready for the next team");
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
        // By keyboard the name is copied as well.
        team.list.setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(team.box.text(), QStringLiteral("Cats"));
    }

    // A cancelled deletion takes the row away too, until the screen is opened again.
    void deletes_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("stored");
        QTest::newRow("OK") << int(Qt::Key_Return) << "Ants|Cats";
        QTest::newRow("Cancel") << int(Qt::Key_Escape) << "Ants|Bees|Cats";
    }

    void deletes() {
        QFETCH(int, key);
        QFETCH(QString, stored);
        Evening evening;
        TeamScreen team;
        ClickRow(team.list, 1);
        const ModalAnswers answers({MessageBox(QuestionTitle, Question, key)});
        team.PressButton("cmdDelete");
        QVERIFY(answers.AllGiven());
        QCOMPARE(Column(team.list, 0), QStringLiteral("Ants|Cats"));
        QCOMPARE(evening.Stored("SELECT TeamName FROM Teams ORDER BY TeamName"), stored);
        QVERIFY(team.screen.FillList());
        QCOMPARE(Column(team.list, 0), stored);
    }

    // Every failure is told, and the list stays as it was.
    void tellsFailures_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("isSelected");
        QTest::addColumn<bool>("isAsked");
        QTest::newRow("add") << "cmdAdd" << false << false;
        QTest::newRow("rename") << "cmdEdit" << true << false;
        QTest::newRow("rename nothing") << "cmdEdit" << false << false;
        QTest::newRow("delete") << "cmdDelete" << true << true;
        QTest::newRow("delete nothing") << "cmdDelete" << false << false;
    }

    void tellsFailures() {
        QFETCH(QString, button);
        QFETCH(bool, isSelected);
        QFETCH(bool, isAsked);
        Evening evening;
        TeamScreen team;
        if (isSelected)
            ClickRow(team.list, 1);
        Click(team.box);
        Type(QStringLiteral("Dogs"));
        evening.Hide("Teams");
        std::list<ModalAnswers::Answer> expected;
        if (isAsked)
            expected.push_back(MessageBox(QuestionTitle, Question, Qt::Key_Return));
        expected.push_back(MessageBox(FailedTitle, Failed, Qt::Key_Return));
        const ModalAnswers answers(expected);
        Click(Control<QWidget>(team.screen, button));
        QVERIFY(answers.AllGiven());
        QCOMPARE(Column(team.list, 0), QStringLiteral("Ants|Bees|Cats"));
        QVERIFY(team.box.text().contains(QStringLiteral("Dogs")));
        evening.Unhide("Teams");
        QCOMPARE(evening.Stored("SELECT TeamName FROM Teams ORDER BY TeamName"),
                 QStringLiteral("Ants|Bees|Cats"));
        // The screen works on.
        team.PressButton("cmdAdd");
        QCOMPARE(team.list.topLevelItemCount(), 4);
    }

    void waitsForNoLockedFileForEver() {
        Evening evening;
        TeamScreen team;
        const ForeignLock lock(evening.DatabasePath());
        const ModalAnswers answers({MessageBox(FailedTitle, Failed, Qt::Key_Return)});
        Type(QStringLiteral("Dogs"));
        Press(Qt::Key_Return);
        QVERIFY(answers.AllGiven());
        QCOMPARE(Column(team.list, 0), QStringLiteral("Ants|Bees|Cats"));
        QCOMPARE(team.box.text(), QStringLiteral("Dogs"));
    }

    void holdingEnterAddsOneTeam() {
        const Evening evening;
        TeamScreen team;
        Type(QStringLiteral("Dogs"));
        Press(Qt::Key_Return);
        Type(QStringLiteral("Elks"));
        Hold(Qt::Key_Return);
        QCOMPARE(Column(team.list, 0), QStringLiteral("Ants|Bees|Cats|Dogs"));
    }

    void escCloses() {
        const Evening evening;
        TeamScreen team;
        Press(Qt::Key_Escape);
        QVERIFY(!team.screen.isVisible());
    }

    void deletesNothingFromAnEmptyList() {
        AppFolder folder;
        folder.Open();
        TeamScreen team;
        const ModalAnswers none({});
        team.PressButton("cmdDelete");
        QTest::qWait(20);
        QVERIFY(none.AllGiven());
        QCOMPARE(folder.TakeReports(), QStringList());
    }
};

QTEST_MAIN(frmTeamEntryTest)
#include "frmTeamEntryTest.moc"
