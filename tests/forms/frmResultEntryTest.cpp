#include "forms/frmResultEntry.h"
#include "Evening.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

namespace {

enum Column { TeamName, Score, Joker, ResultID };

struct ResultScreen {
    explicit ResultScreen(const QString& round = QStringLiteral("R1")) {
        screen.Fill(round);
        ShowScreen(screen);
    }
    /// A row as "score joker identity".
    QString Row(int row) const {
        const QTreeWidgetItem& item = *list.topLevelItem(row);
        return item.text(Score) + u' ' + item.text(Joker) + u' ' + item.text(ResultID);
    }
    QString Counters() const { return outOf.text() + u' ' + entered.text(); }

    frmResultEntry screen;
    QTreeWidget& list = Control<QTreeWidget>(screen, QStringLiteral("lvTeams"));
    QComboBox& rounds = Control<QComboBox>(screen, QStringLiteral("cboRounds"));
    QLineEdit& outOf = Control<QLineEdit>(screen, QStringLiteral("txtOutOf"));
    QLineEdit& entered = Control<QLineEdit>(screen, QStringLiteral("txtEntered"));
};

QLineEdit& scoreBox(QDialog& dialog) {
    return Control<QLineEdit>(dialog, QStringLiteral("txtScore"));
}

} // namespace

class frmResultEntryTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void opensOnARound() {
        const Evening evening;
        for (const char* key : {"R3", "R9"}) // the one asked for, and the first for an unknown one
            QCOMPARE(ResultScreen(QString(key)).rounds.currentText(),
                     QString(key == QStringLiteral("R3") ? "Sport" : "Music"));
    }

    // What is typed over the old score of Cats, who have none in this round yet. What is no number
    // is told, and the text stays to be mended; what is too big is not stored.
    void entersScores() {
        const struct {
            const char *typed, *stored;
            bool isRefused = false;
        } cases[] = {{"999", "999"},
                     {"-5", "-5"},
                     {"7.5", "8"},
                     {"8.5", "8"},
                     {"2147483647", "2147483647"},
                     {"99999999999", ""},
                     {"12a", "", true},
                     {"", "", true},
                     {"1'2", "", true}};
        for (const auto& [typed, stored, isRefused] : cases) {
            const Evening evening;
            ResultScreen result;
            ClickRow(result.list, 2);
            std::list<ModalAnswers::Answer> expected{[&](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Cats"));
                QCOMPARE(scoreBox(dialog).selectedText(), QStringLiteral("0"));
                Press(Qt::Key_Delete);
                Type(QString(typed));
                Press(Qt::Key_Return);
                QCOMPARE(dialog.isVisible(), isRefused);
                QCOMPARE(scoreBox(dialog).text(), QString(typed));
                if (isRefused)
                    Press(Qt::Key_Escape);
            }};
            if (isRefused)
                expected.push_back(MessageBox(QStringLiteral("Rankelo Error"),
                                              QStringLiteral("Score must be a numeric value"),
                                              Qt::Key_Return));
            const ModalAnswers answers(expected);
            Press(Qt::Key_Return);
            QVERIFY2(answers.AllGiven(), typed);
            QCOMPARE(evening.Stored("SELECT Score FROM Results WHERE TeamID='T3'"),
                     QString(stored));
            QCOMPARE(result.Row(2).section(u' ', 0, 1),
                     (*stored ? QString(stored) : QStringLiteral("0")) + QStringLiteral(" N"));
            QCOMPARE(result.Counters(), QString(*stored ? "3 3" : "3 2"));
        }
    }

    // Entering a score again changes the same result; every way out of the dialog keeps its word.
    void editsAResult() {
        const struct {
            const char *stored, *row;
            void (*step)(QDialog& dialog);
        } cases[] = {{"9 0", "9 N X2",
                      [](QDialog&) {
                          Press(Qt::Key_Tab);
                          Press(Qt::Key_Space);
                          Press(Qt::Key_Return);
                      }},
                     {"9 1", "9 Y X2", [](QDialog&) { Press(Qt::Key_Enter); }},
                     {"7 1", "7 Y X2", [](QDialog&) { Press(Qt::Key_Escape); }},
                     {"7 1", "7 Y X2", [](QDialog& dialog) {
                          Control<QWidget>(dialog, QStringLiteral("cmdCancel")).setFocus();
                          Press(Qt::Key_Space);
                      }}};
        for (const auto& [stored, row, step] : cases) {
            const Evening evening;
            ResultScreen result;
            ClickRow(result.list, 1);
            const ModalAnswers answers({[&](QDialog& dialog) {
                QVERIFY(Control<QCheckBox>(dialog, QStringLiteral("chkJoker")).isChecked());
                Hold(Qt::Key_Return);
                QVERIFY2(dialog.isVisible(), "the Enter that opened it does not confirm it");
                Type(QStringLiteral("9"));
                step(dialog);
            }});
            Press(Qt::Key_Return);
            QVERIFY(answers.AllGiven());
            QCOMPARE(evening.Stored("SELECT Score || ' ' || Joker FROM Results WHERE TeamID='T2'"),
                     QString(stored));
            QCOMPARE(evening.Stored("SELECT COUNT(*) FROM Results"), QStringLiteral("2"));
            QCOMPARE(result.Row(1), QString(row));
        }
    }

    void aFailedSaveLeavesTheRow() {
        Evening evening;
        ResultScreen result;
        for (const int row : {1, 2}) {
            const QString before = result.Row(row);
            ClickRow(result.list, row);
            std::unique_ptr<ForeignLock> lock;
            const ModalAnswers answers({[&](QDialog&) {
                lock = std::make_unique<ForeignLock>(evening.DatabasePath());
                Type(QStringLiteral("5"));
                Press(Qt::Key_Return);
            }});
            Press(Qt::Key_Return);
            QVERIFY(answers.AllGiven());
            QCOMPARE(result.Row(row), before);
            QCOMPARE(result.Counters(), QStringLiteral("3 2"));
            QVERIFY(!evening.TakeReports().isEmpty());
        }
        QCOMPARE(evening.Stored("SELECT Score FROM Results ORDER BY TeamID"),
                 QStringLiteral("8|7"));
    }

    // Another round in the chooser: the scores are that round's, but a team without one keeps the
    // identity of the round shown before, and the count stays.
    void keepsTheIdentityWhenTheRoundChanges() {
        Evening evening;
        RunForeign(evening.DatabasePath(),
                   {QStringLiteral("INSERT INTO Results VALUES ('X3','R2','T1',4,1)")});
        ResultScreen result;
        result.rounds.setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(result.rounds.currentText(), QStringLiteral("Films"));
        QCOMPARE(result.Row(0), QStringLiteral("4 Y X3"));
        QCOMPARE(result.Row(1), QStringLiteral("0 N X2"));
        QCOMPARE(result.Row(2), QStringLiteral("0 N "));
        QCOMPARE(result.Counters(), QStringLiteral("3 2"));

        // So a score entered now moves the other round's result here.
        ClickRow(result.list, 1);
        const ModalAnswers answers({[](QDialog&) {
            Type(QStringLiteral("6"));
            Press(Qt::Key_Return);
        }});
        Press(Qt::Key_Return);
        QVERIFY(answers.AllGiven());
        QCOMPARE(evening.Stored("SELECT RoundID || Score FROM Results WHERE ResultID='X2'"),
                 QStringLiteral("R26"));
    }
};

QTEST_MAIN(frmResultEntryTest)
#include "frmResultEntryTest.moc"
