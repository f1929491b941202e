#include "Evening.h"
#include "forms/frmMain.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"
#include "forms/modForms.h"
#include "support/HostileTexts.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace {

// Every text that a screen shows, drawn as well.
QStringList textsOf(QWidget& screen) {
    screen.grab();
    QStringList texts;
    for (const auto* list : screen.findChildren<QTreeWidget*>())
        texts += Rows(*list);
    for (const auto* chooser : screen.findChildren<QComboBox*>())
        texts += chooser->currentText();
    for (const auto* label : screen.findChildren<QLabel*>())
        texts += label->textFormat() == Qt::PlainText ? label->text() : QString();
    return texts;
}

} // namespace

class HostileNamesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // Stored by another program, a name stands on every screen and on the board as it is.
    void showsForeignNames() {
        for (const HostileText& name : HostileTexts()) {
            const Evening evening;
            RunForeign(evening.DatabasePath(), {"DELETE FROM Teams WHERE TeamID<>'T1'",
                                                "DELETE FROM Rounds WHERE RoundID<>'R1'"});
            RunForeign(evening.DatabasePath(),
                       {"UPDATE Teams SET TeamName=?", "UPDATE Rounds SET RoundName=?"}, name.Text);
            const QString stored = evening.Stored("SELECT TeamName FROM Teams");
            for (const int width : {Filled<frmMain>()->minimumSizeHint().width(),
                                    Filled<frmResultEntry>()->minimumSizeHint().width()})
                QVERIFY2(width < 1280, name.What);
            QStringList texts = textsOf(*Filled<frmMain>()) + textsOf(*Filled<frmTeamEntry>()) +
                                textsOf(*Filled<frmRoundEntry>()) +
                                textsOf(*Filled<frmResultEntry>());
            const ModalAnswers answers({[&](QDialog& view) {
                texts += textsOf(view);
                view.reject();
            }});
            modForms::ViewResults(modForms::RoundInWindow, 0, "R1");
            QVERIFY2(answers.AllGiven(), name.What);
            modForms::ViewResults(modForms::RoundOnBoard, 0, "R1");
            QCOMPARE(Evening::Boards().size(), 1);
            texts += textsOf(*Evening::Boards().first());
            for (const QString& text : {"[1] " + stored, stored, "1 " + stored, stored + " 8 N X1",
                                        "1 " + stored + " 8 ", stored + " Results"})
                QVERIFY2(texts.contains(text), qPrintable(name.What + (u' ' + text)));
            QCOMPARE(texts.count(stored), 3); // the teams, the chooser of rounds, the board
        }
    }

    // Typed or pasted, what the box holds is what the file holds. A team goes in by Enter; a round
    // by a button, for which the box is left and drops the apostrophes.
    void storesTypedAndPastedNames() {
        for (const HostileText& name : HostileTexts())
            for (const bool isPasted : {false, true}) {
                // Control characters come from no key.
                if (!isPasted && (name.Text.size() > 1000 || name.Text.contains(QChar(0)) ||
                                  name.Text.contains(u'\n')))
                    continue;
                const auto check = [&](const auto& screen, const char* box, const char* button,
                                       const char* query, const QString& before) {
                    isPasted ? Paste(name.Text) : Type(name.Text);
                    const QString held = screen.template Get<QLineEdit>(box).text();
                    const bool isRefused = held.contains(QChar(0));
                    std::list<ModalAnswers::Answer> expected;
                    if (isRefused)
                        expected.push_back(MessageBox(
                            "Rankelo Error", "Operation failed to complete", Qt::Key_Return));
                    const ModalAnswers answers(expected);
                    button ? Click(screen.Get(button)) : Press(Qt::Key_Return);
                    QVERIFY2(answers.AllGiven(), name.What);
                    QString added = held == name.Text ? name.Stored : held;
                    if (button)
                        added.remove(u'\'');
                    QCOMPARE(screen.Stored(query), before + (isRefused ? "" : u'|' + added));
                };
                check(Opened<frmTeamEntry>(), "txtTeamName", nullptr,
                      "SELECT TeamName FROM Teams ORDER BY rowid", "Ants|Bees|Cats");
                check(Opened<frmRoundEntry>(), "txtRoundName", "cmdAdd",
                      "SELECT RoundName FROM Rounds ORDER BY rowid", "Music|Films|Sport");
            }
    }
};

QTEST_MAIN(HostileNamesTest)
#include "HostileNamesTest.moc"
