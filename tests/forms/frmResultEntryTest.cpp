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

    void opensOnARound_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("round");
        QTest::addColumn<QString>("rows");
        QTest::addColumn<QString>("counters");
        QTest::newRow("the one asked for") << "R3"
                                           << "Sport"
                                           << "0 N |0 N |0 N "
                                           << "3 0";
        QTest::newRow("with results") << "R1"
                                      << "Music"
                                      << "8 N X1|7 Y X2|0 N "
                                      << "3 2";
        QTest::newRow("unknown") << "R9"
                                 << "Music"
                                 << "8 N X1|7 Y X2|0 N "
                                 << "3 2";
    }

    void opensOnARound() {
        QFETCH(QString, key);
        QFETCH(QString, round);
        QFETCH(QString, rows);
        QFETCH(QString, counters);
        const Evening evening;
        const ResultScreen result(key);
        QCOMPARE(result.rounds.currentText(), round);
        QCOMPARE(QStringList({result.Row(0), result.Row(1), result.Row(2)}).join(u'|'), rows);
        QCOMPARE(result.Counters(), counters);
    }

    void opensWithoutRounds() {
        const Evening evening;
        RunForeign(evening.DatabasePath(), {QStringLiteral("DELETE FROM Rounds")});
        const ResultScreen result;
        QCOMPARE(result.rounds.count(), 0);
        QCOMPARE(result.Counters(), QStringLiteral("3 0"));
        // There is nothing to enter a score for.
        const ModalAnswers none({});
        Press(Qt::Key_Return);
        QTest::qWait(20);
        QVERIFY(none.AllGiven());
    }

    // What is typed over the old score of Cats, who have none in this round yet.
    void entersScores_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored"); ///< empty when nothing is
        const struct {
            const char *typed, *stored;
        } cases[] = {{"5", "5"},
                     {"0", "0"},
                     {"999", "999"},
                     {"-5", "-5"},
                     {"7.5", "8"},
                     {"8.5", "8"},
                     {"-7.5", "-8"},
                     {"1e1", "10"},
                     {" 7 ", "7"},
                     {"+3", "3"},
                     {"2147483647", "2147483647"},
                     {"99999999999", ""},
                     {"-2147483649", ""}};
        for (const auto& [typed, stored] : cases)
            QTest::addRow("\"%s\"", typed) << QString(typed) << QString(stored);
    }

    void entersScores() {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        for (const bool isByEnter : {true, false}) {
            const Evening evening;
            ResultScreen result;
            ClickRow(result.list, 2);
            const ModalAnswers answers({[&](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Cats"));
                QCOMPARE(scoreBox(dialog).selectedText(), QStringLiteral("0"));
                QCOMPARE(scoreBox(dialog).palette().color(QPalette::Base), QColor(0, 153, 204));
                Type(typed);
                isByEnter ? Press(Qt::Key_Return)
                          : Click(Control<QWidget>(dialog, QStringLiteral("cmdOK")));
            }});
            Press(Qt::Key_Return);
            QVERIFY(answers.AllGiven());
            const QString row =
                evening.Stored("SELECT Score || ' ' || Joker FROM Results WHERE TeamID='T3'");
            if (stored.isEmpty()) {
                QCOMPARE(result.Row(2), QStringLiteral("0 N "));
                QCOMPARE(row, QString());
                QCOMPARE(result.Counters(), QStringLiteral("3 2"));
            } else {
                QCOMPARE(row, stored + QStringLiteral(" 0"));
                QVERIFY(result.Row(2).startsWith(stored + QStringLiteral(" N ")));
                QCOMPARE(result.Counters(), QStringLiteral("3 3"));
            }
        }
    }

    // What is no number is told, and the text stays to be mended.
    void refusesWhatIsNoNumber() {
        for (const QString text : {"12a", "", "  ", "five", "1'2", "0x10", "1,2,3", "inf"}) {
            const Evening evening;
            ResultScreen result;
            ClickRow(result.list, 1);
            const ModalAnswers answers(
                {[&](QDialog& dialog) {
                     Press(Qt::Key_Delete);
                     Type(text);
                     Press(Qt::Key_Return);
                     QVERIFY(dialog.isVisible());
                     QCOMPARE(scoreBox(dialog).text(), text);
                     Press(Qt::Key_Escape);
                 },
                 MessageBox(QStringLiteral("Rankelo Error"),
                            QStringLiteral("Score must be a numeric value"), Qt::Key_Return)});
            Press(Qt::Key_Return);
            QVERIFY2(answers.AllGiven(), qPrintable(text));
            QCOMPARE(result.Row(1), QStringLiteral("7 Y X2"));
        }
    }

    // Entering a score again changes the same result; every way out of the dialog keeps its word.
    void editsAResult_data() {
        using Step = std::function<void(QDialog & dialog)>;
        QTest::addColumn<Step>("step");
        QTest::addColumn<QString>("stored");
        const auto row = [](const char* what, const char* stored, Step step) {
            QTest::newRow(what) << step << QString(stored);
        };
        row("score and joker", "9 0", [](QDialog&) {
            Type(QStringLiteral("9"));
            Press(Qt::Key_Tab);
            Press(Qt::Key_Space);
            Press(Qt::Key_Return);
        });
        row("the joker stays", "9 1", [](QDialog&) {
            Type(QStringLiteral("9"));
            Press(Qt::Key_Enter);
        });
        row("held keys", "9 1", [](QDialog& dialog) {
            Hold(Qt::Key_Return);
            Hold(Qt::Key_Escape);
            QVERIFY2(dialog.isVisible(), "the Enter that opened it does not confirm it");
            Type(QStringLiteral("9"));
            Press(Qt::Key_Return);
        });
        row("an apostrophe left behind", "12 1", [](QDialog&) {
            Type(QStringLiteral("1'2"));
            Press(Qt::Key_Tab);
            Press(Qt::Key_Return);
        });
        row("Esc", "7 1", [](QDialog&) {
            Type(QStringLiteral("9"));
            Press(Qt::Key_Escape);
        });
        row("the Cancel button", "7 1", [](QDialog& dialog) {
            Type(QStringLiteral("9"));
            Click(Control<QWidget>(dialog, QStringLiteral("cmdCancel")));
        });
        row("Space on Cancel", "7 1", [](QDialog& dialog) {
            Type(QStringLiteral("9"));
            Control<QWidget>(dialog, QStringLiteral("cmdCancel")).setFocus();
            Press(Qt::Key_Space);
        });
        row("the close box", "7 1", [](QDialog& dialog) {
            Type(QStringLiteral("9"));
            dialog.close();
        });
    }

    void editsAResult() {
        QFETCH(std::function<void(QDialog&)>, step);
        QFETCH(QString, stored);
        const Evening evening;
        ResultScreen result;
        ClickRow(result.list, 1);
        const ModalAnswers answers({[&](QDialog& dialog) {
            QVERIFY(Control<QCheckBox>(dialog, QStringLiteral("chkJoker")).isChecked());
            step(dialog);
        }});
        QTest::mouseDClick(result.list.viewport(), Qt::LeftButton, Qt::NoModifier,
                           result.list.visualItemRect(result.list.topLevelItem(1)).center());
        QVERIFY(answers.AllGiven());
        QCOMPARE(evening.Stored("SELECT Score || ' ' || Joker FROM Results WHERE TeamID='T2'"),
                 stored);
        QCOMPARE(evening.Stored("SELECT COUNT(*) FROM Results"), QStringLiteral("2"));
        QCOMPARE(result.Row(1), QString(stored)
                                        .replace(QStringLiteral(" 0"), QStringLiteral(" N"))
                                        .replace(QStringLiteral(" 1"), QStringLiteral(" Y")) +
                                    QStringLiteral(" X2"));
    }

    void aFailedSaveLeavesTheRow() {
        Evening evening;
        ResultScreen result;
        for (const bool isLocked : {false, true}) {
            for (const int row : {1, 2}) {
                const QString before = result.Row(row);
                ClickRow(result.list, row);
                std::unique_ptr<ForeignLock> lock;
                const ModalAnswers answers({[&](QDialog&) {
                    if (isLocked)
                        lock = std::make_unique<ForeignLock>(evening.DatabasePath());
                    else
                        evening.Hide("Results");
                    Type(QStringLiteral("5"));
                    Press(Qt::Key_Return);
                }});
                Press(Qt::Key_Return);
                QVERIFY(answers.AllGiven());
                lock.reset();
                if (!isLocked)
                    evening.Unhide("Results");
                QCOMPARE(result.Row(row), before);
                QCOMPARE(result.Counters(), QStringLiteral("3 2"));
                QVERIFY(!evening.TakeReports().isEmpty());
            }
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

        // Results that cannot be read change nothing on the screen.
        evening.Hide("Results");
        Press(Qt::Key_Home);
        result.rounds.setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(result.Row(0), QStringLiteral("4 Y X3"));
    }

    // In the dropped-down list Enter chooses a round and Esc closes the list, nothing else.
    void keysOfTheDroppedDownListStayThere() {
        const Evening evening;
        ResultScreen result;
        const ModalAnswers none({});
        for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
            result.rounds.setFocus();
            result.rounds.showPopup();
            Press(Qt::Key_Down);
            Press(key);
            QTest::qWait(20);
            QVERIFY(result.screen.isVisible());
            QCOMPARE(result.rounds.currentText(), QStringLiteral("Films"));
        }
        QVERIFY(none.AllGiven());
        Press(Qt::Key_Escape);
        QVERIFY(!result.screen.isVisible());
    }
};

QTEST_MAIN(frmResultEntryTest)
#include "frmResultEntryTest.moc"
