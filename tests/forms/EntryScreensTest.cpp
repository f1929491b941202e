#include "Quiz.h"
#include "forms/frmMain.h"
#include "support/HostileTexts.h"

#include <QComboBox>
#include <QLabel>
#include <QTest>

namespace {

using Answers = std::list<ModalAnswers::Answer>;

const QString Rounds = "SELECT RoundNumber || ' ' || RoundName FROM Rounds ORDER BY RoundNumber";

const QString EveryTeam = "SELECT TeamName || ' ' || ifnull(Score, 0) || iif(Joker, ' Y ', ' N ') "
                          "|| ifnull(ResultID, '') "
                          "FROM Teams LEFT JOIN Results USING (TeamID) ORDER BY TeamName";

ModalAnswers::Answer failure() {
    return MessageBox("Rankelo Error", "Operation failed to complete", Qt::Key_Return);
}

ModalAnswers::Answer deletion(const QString& what, int key) {
    return MessageBox("Melodex Professional", "Are you sure you wish to remove this " + what + "?",
                      key);
}

void add(Screen (*make)(), const HostileText& name, bool isPasted, bool isByEnter) {
    const Opened screen(make);
    isPasted ? Paste(name.Text) : Type(name.Text);
    const QString held = screen.box->text();
    const bool isRefused = held.contains(QChar(0));
    const bool isAdded = !isRefused && !(isByEnter && held.trimmed().isEmpty());
    QString stored = held == name.Text ? name.Stored : held;
    if (!isByEnter)
        stored.remove(u'\'');
    const ModalAnswers answers(isRefused ? Answers{failure()} : Answers{});
    isByEnter ? Press(Qt::Key_Return) : Click(screen.Get("cmdAdd"));
    Hold(Qt::Key_Return); // A held key is one press.
    QVERIFY2(answers.AllGiven(), name.What);
    QCOMPARE(screen.Stored("SELECT TeamName FROM Teams WHERE rowid > 3 UNION ALL "
                           "SELECT RoundName FROM Rounds WHERE rowid > 3"),
             isAdded ? stored : QString());
    QCOMPARE(screen.list->topLevelItemCount(), isAdded ? 4 : 3);
    QCOMPARE(screen.box->text().isEmpty(), isAdded);
    QVERIFY2(isRefused || screen.box->hasFocus(), "ready for the next one");
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

// Opens the dialog of a team, by a double click or by Enter, types over the old score and presses
// more keys.
void enter(const Opened& result, int row, const QString& score, const QList<int>& keys,
           Answers messages = {}) {
    messages.push_front([&](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), result.list->topLevelItem(row)->text(0));
        Hold(Qt::Key_Return);
        QVERIFY2(dialog.isVisible(), "the Enter that opened it does not confirm it");
        QVERIFY(!ReleaseArrives());
        Press(Qt::Key_Delete);
        Type(score);
        for (const int key : keys)
            Press(key);
        QVERIFY2(!dialog.isVisible(), qPrintable(score));
    });
    const ModalAnswers answers(messages);
    const bool isByMouse = row == 1;
    ClickRow(*result.list, row, isByMouse);
    if (!isByMouse)
        Press(Qt::Key_Return);
    QVERIFY2(answers.AllGiven(), qPrintable(score));
}

} // namespace

class EntryScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // What the box holds is what the file holds. Enter takes it as it stands, but no blank; the
    // button is reached by leaving the box, which drops the apostrophes.
    void addsWhatIsTypedOrPasted() {
        const QList<HostileText> names = HostileTexts() << HostileText("a blank", " ");
        for (const HostileText& name : names)
            for (const bool isPasted : {false, true}) {
                // Control characters come from no key.
                if (!isPasted &&
                    (name.Text.size() > 1000 || name.IsRefused || name.Text.contains(u'\n')))
                    continue;
                add(TeamScreen, name, isPasted, true);
                add(TeamScreen, name, isPasted, false);
                add(RoundScreen, name, isPasted, false);
            }
    }

    // Stored by another program, a name stands on every screen and on the board as it is.
    void showsForeignNames() {
        for (const HostileText& name : HostileTexts()) {
            const Quiz quiz;
            RunForeign(quiz.DatabasePath(),
                       {"UPDATE Teams SET TeamName=?", "UPDATE Rounds SET RoundName=?"}, name.Text);
            const QString stored = quiz.Stored("SELECT TeamName FROM Teams").section(u'|', 0, 0);
            QString texts = textsOf(*TeamScreen()) + textsOf(*RoundScreen());
            for (const Screen& screen : {ResultScreen(), Screen(new frmMain)}) {
                QVERIFY2(screen->minimumSizeHint().width() < 1280, name.What);
                texts += textsOf(*screen);
            }
            const ModalAnswers answers({[&](QDialog& view) {
                texts += textsOf(view);
                view.reject();
            }});
            modForms::ViewResults(nullptr, modForms::OverallInWindow, 0, QString());
            modForms::ViewResults(nullptr, modForms::RoundOnBoard, 0, "R1");
            texts += textsOf(*Quiz::Boards().value(0));
            // 3 teams, 3 rounds, 3 teams and a chooser, a chooser, 3 teams, 2 teams and a heading.
            QCOMPARE(texts.count(stored), 3 + 3 + 4 + 1 + 3 + 3);
        }
    }

    // A cancelled deletion takes the row away too, until the screen is opened again. On an empty
    // list the button does nothing.
    void renamesAndDeletesRounds() {
        const Opened round(RoundScreen);
        round.list->setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(round.box->text(), "Music");
        Click(*round.box);
        QTRY_COMPARE(round.box->selectedText(), "Music");
        Type("Bon'us");
        Press(Qt::Key_Return); // It has no meaning here.
        Click(round.Get("cmdEdit"));
        ClickRow(*round.list, 2);
        QCOMPARE(round.box->text(), "Sport");
        round.box->setText("typed");
        ClickRow(*round.list, 2);
        QCOMPARE(round.box->text(), "Sport");
        QCOMPARE(Rows(*round.list), "1 Bonus|2 Films|3 Sport");
        const ModalAnswers answers({deletion("round", Qt::Key_Escape),
                                    deletion("round", Qt::Key_Return),
                                    deletion("round", Qt::Key_Escape)});
        for (const char* left : {"2 Films|3 Sport", "3 Sport", ""}) {
            round.PressFor(0, "cmdDelete");
            QCOMPARE(Rows(*round.list), left);
        }
        round.PressFor(-1, "cmdDelete");
        QVERIFY(answers.AllGiven());
        QCOMPARE(round.Stored(Rounds), "1 Bonus|3 Sport");
    }

    // Every failure is told, and the list stays as it was.
    void tellsFailures() {
        const Opened team(TeamScreen);
        RunForeign(team.DatabasePath(), {"DROP TABLE Teams"});
        for (const int row : {-1, 1})
            for (const QByteArray button : {"cmdAdd", "cmdEdit", "cmdDelete"}) {
                Answers expected{failure()};
                if (row >= 0 && button == "cmdDelete")
                    expected.push_front(deletion("team", Qt::Key_Return));
                const ModalAnswers answers(expected);
                team.PressFor(row, button);
                QVERIFY2(answers.AllGiven(), button);
                QCOMPARE(Rows(*team.list), "Ants|Bees|Cats");
            }
        QVERIFY(ReleaseArrives());
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
            const Opened round(RoundScreen);
            auto lock = isLocked ? std::make_unique<ForeignLock>(round.DatabasePath()) : nullptr;
            const ModalAnswers none({});
            round.PressFor(selected, button);
            lock.reset();
            QVERIFY(none.AllGiven());
            QCOMPARE(Rows(*round.list), order);
            QCOMPARE(round.Stored(Rounds), order);
            QCOMPARE(round.list->indexOfTopLevelItem(round.list->selectedItems().value(0)),
                     selectedAfter);
        }
    }

    // A number is rounded; one that is too big is not stored. What is no number is told, and the
    // dialog stays. Entering a score again changes the same result, and every way out of the dialog
    // keeps its word. A failed save leaves the row.
    void entersScores() {
        using namespace Qt;
        const QList<int> okAndLeave{Key_Return, Key_Escape};
        const struct {
            int row;
            const char *score, *stored;
            QList<int> keys;
            const char* report = "";
            bool isLocked = false;
        } cases[] = {{2, "-5", "8 N|7 Y|-5 N", {Key_Return}},
                     {2, "7.5", "8 N|7 Y|8 N", {Key_Return}},
                     {2, "99999999999", "8 N|7 Y", {Key_Return}, "GetEntry/modForms]"},
                     {2, "12a", "8 N|7 Y", okAndLeave},
                     {1, "9", "8 N|9 Y", {Key_Enter}},
                     {1, "9", "8 N|9 N", {Key_Tab, Key_Space, Key_Return}},
                     {1, "9", "8 N|9 Y", {Key_Tab, Key_Tab, Key_Space}},
                     {1, "9", "8 N|7 Y", {Key_Tab, Key_Tab, Key_Tab, Key_Space}},
                     {1, "9", "8 N|7 Y", {Key_Return}, "UpdateResult/frmResultEntry]", true},
                     {2, "9", "8 N|7 Y", {Key_Return}, "Save/ResultDAO]", true}};
        for (const auto& [row, score, stored, keys, report, isLocked] : cases) {
            Opened result(ResultScreen);
            Answers refusal;
            if (keys == okAndLeave)
                refusal.push_back(
                    MessageBox("Rankelo Error", "Score must be a numeric value", Qt::Key_Return));
            auto lock = isLocked ? std::make_unique<ForeignLock>(result.DatabasePath()) : nullptr;
            enter(result, row, score, keys, refusal);
            lock.reset();
            QVERIFY2(result.TakeReports().join(u' ').endsWith(report), score);
            QCOMPARE(result.Stored("SELECT Score || iif(Joker, ' Y', ' N') FROM Results "
                                   "ORDER BY TeamID"),
                     stored);
            QCOMPARE(Rows(*result.list), result.Stored(EveryTeam));
            QCOMPARE(result.Get<QLineEdit>("txtEntered").text(),
                     result.Stored("SELECT count(*) FROM Results"));
            QCOMPARE(result.Get<QLineEdit>("txtOutOf").text(), "3");
        }
    }

    // Another round in the chooser: the scores are that round's, but a team without one keeps the
    // identity of the round shown before, and the count stays. So a score entered now moves the
    // other round's result here.
    void keepsTheIdentityWhenTheRoundChanges() {
        const Opened result(ResultScreen);
        RunForeign(result.DatabasePath(), {"INSERT INTO Results VALUES ('X3','R2','T1',4,1)"});
        result.Get<QComboBox>("cboRounds").setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(Rows(*result.list), "Ants 4 Y X3|Bees 0 N X2|Cats 0 N ");
        QCOMPARE(result.Get<QLineEdit>("txtEntered").text(), "2");
        enter(result, 1, "6", {Qt::Key_Return});
        QCOMPARE(result.Stored("SELECT RoundID || Score FROM Results WHERE ResultID='X2'"), "R26");
    }
};

QTEST_MAIN(EntryScreensTest)
#include "EntryScreensTest.moc"
