#include "Evening.h"
#include "display/Render.h"
#include "display/frmSummary.h"
#include "forms/frmMain.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"
#include "forms/modForms.h"
#include "support/HostileTexts.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>
#include <QTreeWidget>

namespace {

// Puts a name into the file as another program would, without a word of SQL around it.
void storeForeign(const QString& path, const QString& name) {
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), path);
        file.setDatabaseName(path);
        QVERIFY(file.open());
        QSqlQuery query(file);
        for (const char* statement :
             {"UPDATE Teams SET TeamName=?", "UPDATE Rounds SET RoundName=?"}) {
            query.prepare(QString(statement));
            query.addBindValue(name);
            QVERIFY(query.exec());
        }
        QVERIFY(query.exec(QStringLiteral("DELETE FROM Teams WHERE TeamID<>'T1'")));
        QVERIFY(query.exec(QStringLiteral("DELETE FROM Rounds WHERE RoundID<>'R1'")));
    }
    QSqlDatabase::removeDatabase(path);
}

template <typename List>
QString firstRow(const QWidget& screen, const char* list, int column) {
    return Control<List>(screen, QString(list)).topLevelItem(0)->text(column);
}

} // namespace

Q_DECLARE_METATYPE(HostileText)

class HostileNamesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void names_data() {
        QTest::addColumn<HostileText>("name");
        for (const HostileText& hostile : HostileTexts())
            QTest::newRow(hostile.What) << hostile;
    }

    // Stored by another program, a name stands on every screen and on the board as it is.
    void names() {
        QFETCH(HostileText, name);
        const Evening evening;
        storeForeign(evening.DatabasePath(), name.Text);
        const QString stored = evening.Stored("SELECT TeamName FROM Teams");

        frmTeamEntry teams;
        QVERIFY(teams.FillList());
        frmRoundEntry rounds;
        QVERIFY(rounds.FillList());
        frmResultEntry results;
        results.Fill(QStringLiteral("R1"));
        frmMain console;
        for (QWidget* screen : std::initializer_list<QWidget*>{&teams, &rounds, &results, &console})
            QVERIFY(!screen->grab().isNull());
        QCOMPARE(firstRow<QTreeWidget>(teams, "lvTeams", 0), stored);
        QCOMPARE(firstRow<QTreeWidget>(rounds, "lvRounds", 1), stored);
        QCOMPARE(firstRow<QTreeWidget>(results, "lvTeams", 0), stored);
        QCOMPARE(Control<QComboBox>(results, QStringLiteral("cboRounds")).currentText(), stored);
        QCOMPARE(Control<QComboBox>(console, QStringLiteral("cboRounds")).currentText(),
                 QStringLiteral("[1] ") + stored);

        const ModalAnswers answers({[&](QDialog& view) {
            QCOMPARE(firstRow<QTreeWidget>(view, "lvResults", 1), stored);
            view.grab();
            view.reject();
        }});
        modForms::ViewResults(modForms::RoundInWindow, 0, QStringLiteral("R1"));
        QVERIFY(answers.AllGiven());

        modForms::ViewResults(modForms::RoundOnBoard, 0, QStringLiteral("R1"));
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* board = qobject_cast<frmSummary*>(window)) {
                const auto& heading = Control<QLabel>(*board, QStringLiteral("lblHeading"));
                const auto& team = Control<QLabel>(*board, QStringLiteral("lblLabel2"));
                QCOMPARE(heading.text(), stored + QStringLiteral(" Results"));
                QCOMPARE(team.text(), stored);
                QCOMPARE(team.textFormat(), Qt::PlainText);
                board->grab();
                delete board;
                return;
            }
        QFAIL("no board");
    }

    void typesAndPastes_data() { names_data(); }

    // Typed or pasted and stored by Enter: what the box holds is what the file holds.
    void typesAndPastes() {
        QFETCH(HostileText, name);
        for (const bool isPasted : {false, true}) {
            // Control characters come from no key.
            if (!isPasted && (name.Text.size() > 1000 || name.Text.contains(QChar(0)) ||
                              name.Text.contains(u'\n')))
                continue;
            Evening evening;
            frmTeamEntry screen;
            QVERIFY(screen.FillList());
            ShowScreen(screen);
            isPasted ? Paste(name.Text) : Type(name.Text);
            const QString held = Control<QLineEdit>(screen, QStringLiteral("txtTeamName")).text();
            const bool isRefused = held.contains(QChar(0));
            std::list<ModalAnswers::Answer> expected;
            if (isRefused)
                expected.push_back(MessageBox(QStringLiteral("Rankelo Error"),
                                              QStringLiteral("Operation failed to complete"),
                                              Qt::Key_Return));
            const ModalAnswers answers(expected);
            Press(Qt::Key_Return);
            QTest::qWait(10);
            QVERIFY(answers.AllGiven());
            const QString stored =
                evening.Stored("SELECT TeamName FROM Teams WHERE TeamID NOT LIKE 'T%'");
            QCOMPARE(stored, isRefused ? QString() : held == name.Text ? name.Stored : held);
            QCOMPARE(evening.Stored("SELECT COUNT(*) FROM Teams"), isRefused ? "3" : "4");
        }
    }
};

QTEST_MAIN(HostileNamesTest)
#include "HostileNamesTest.moc"
