#include "forms/frmResultEntry.h"
#include "Evening.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace {

struct ResultScreen : Opened<frmResultEntry> {
    /// Opens the dialog of a team by Enter, types over the old score and presses more keys.
    void Enter(int row, const QString& score, const QList<int>& keys,
               std::list<ModalAnswers::Answer> messages = {}) const {
        ClickRow(list, row);
        messages.push_front([&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), list.topLevelItem(row)->text(0));
            Hold(Qt::Key_Return);
            QVERIFY2(dialog.isVisible(), "the Enter that opened it does not confirm it");
            Press(Qt::Key_Delete);
            Type(score);
            for (const int key : keys) {
                QVERIFY2(dialog.isVisible(), qPrintable(score));
                Press(key);
            }
        });
        const ModalAnswers answers(messages);
        Press(Qt::Key_Return);
        QVERIFY2(answers.AllGiven(), qPrintable(score));
    }
    QString Counters() const {
        return Get<QLineEdit>("txtEntered").text() + '/' + Get<QLineEdit>("txtOutOf").text();
    }
};

} // namespace

class frmResultEntryTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // A number is rounded; one that is too big is not stored. What is no number is told, and the
    // dialog stays. Entering a score again changes the same result, and every way out of the dialog
    // keeps its word.
    void entersScores() {
        const QList<int> confirm{Qt::Key_Return};
        const QList<int> confirmAndLeave{Qt::Key_Return, Qt::Key_Escape};
        const struct {
            int row;
            QString score;
            QList<int> keys;
            const char* stored;
            bool isRefused = false;
        } cases[] = {
            {2, "-5", confirm, "8 N|7 Y|-5 N"},
            {2, "7.5", confirm, "8 N|7 Y|8 N"},
            {2, "8.5", confirm, "8 N|7 Y|8 N"},
            {2, "99999999999", confirm, "8 N|7 Y"},
            {2, "12a", confirmAndLeave, "8 N|7 Y", true},
            {2, "", confirmAndLeave, "8 N|7 Y", true},
            {2, "1'2", confirmAndLeave, "8 N|7 Y", true},
            {1, "9", {Qt::Key_Enter}, "8 N|9 Y"},
            {1, "9", {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Return}, "8 N|9 N"},
            {1, "9", {Qt::Key_Escape}, "8 N|7 Y"},
            {1, "9", {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space}, "8 N|7 Y"},
        };
        for (const auto& [row, score, keys, stored, isRefused] : cases) {
            const ResultScreen result;
            std::list<ModalAnswers::Answer> refusal;
            if (isRefused)
                refusal.push_back(
                    MessageBox("Rankelo Error", "Score must be a numeric value", Qt::Key_Return));
            result.Enter(row, score, keys, refusal);
            const QStringList scores = QString(stored).split(u'|');
            QCOMPARE(result.Stored("SELECT Score || iif(Joker, ' Y', ' N') FROM Results "
                                   "ORDER BY TeamID"),
                     stored);
            for (int i = 0; i < 3; ++i)
                QCOMPARE(result.Rows().split(u'|')[i].section(u' ', 1, 2), scores.value(i, "0 N"));
            QCOMPARE(result.Counters(), QString::number(scores.size()) + "/3");
        }
    }

    void aFailedSaveLeavesTheRow() {
        ResultScreen result;
        const QString before = result.Rows();
        for (const int row : {1, 2}) {
            const ForeignLock lock(result.DatabasePath());
            result.Enter(row, "5", {Qt::Key_Return});
            QCOMPARE(result.Rows(), before);
            QCOMPARE(result.Counters(), "2/3");
            QVERIFY(!result.TakeReports().isEmpty());
        }
        QCOMPARE(result.Stored("SELECT Score FROM Results ORDER BY TeamID"), "8|7");
    }

    // Another round in the chooser: the scores are that round's, but a team without one keeps the
    // identity of the round shown before, and the count stays. So a score entered now moves the
    // other round's result here.
    void keepsTheIdentityWhenTheRoundChanges() {
        const ResultScreen result;
        RunForeign(result.DatabasePath(), {"INSERT INTO Results VALUES ('X3','R2','T1',4,1)"});
        auto& rounds = result.Get<QComboBox>("cboRounds");
        rounds.setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(result.Rows(), "Ants 4 Y X3|Bees 0 N X2|Cats 0 N ");
        QCOMPARE(result.Counters(), "2/3");
        result.Enter(1, "6", {Qt::Key_Return});
        QCOMPARE(result.Stored("SELECT RoundID || Score FROM Results WHERE ResultID='X2'"), "R26");
        result.screen->Fill("R9"); // A round that is gone gives way to the first one.
        QCOMPARE(rounds.currentText(), "Music");
    }
};

QTEST_MAIN(frmResultEntryTest)
#include "frmResultEntryTest.moc"
