#include "forms/frmRoundEntry.h"
#include "Evening.h"

#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

namespace {

struct RoundScreen {
    RoundScreen() {
        if (!screen.FillList())
            qFatal("no rounds");
        ShowScreen(screen);
    }
    void PressButton(const char* name) {
        Click(Control<QWidget>(screen, QString::fromLatin1(name)));
    }

    frmRoundEntry screen;
    QTreeWidget& list = Control<QTreeWidget>(screen, QStringLiteral("lvRounds"));
    QLineEdit& box = Control<QLineEdit>(screen, QStringLiteral("txtRoundName"));
};

constexpr const char* StoredOrder =
    "SELECT RoundNumber || ' ' || RoundName FROM Rounds ORDER BY RoundNumber, RoundName";

} // namespace

class frmRoundEntryTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // The moved round stays selected, and what is typed about it stays too.
    void moves_data() {
        QTest::addColumn<int>("selected");
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("selectedAfter");
        QTest::addColumn<QString>("order");
        const QString same = QStringLiteral("1 Music|2 Films|3 Sport");
        QTest::newRow("down") << 0 << "cmdMove_1" << 1 << "1 Films|2 Music|3 Sport";
        QTest::newRow("down to the end") << 1 << "cmdMove_1" << 2 << "1 Music|2 Sport|3 Films";
        QTest::newRow("down from the end") << 2 << "cmdMove_1" << 2 << same;
        QTest::newRow("up") << 2 << "cmdMove_0" << 1 << "1 Music|2 Sport|3 Films";
        QTest::newRow("up to the top") << 1 << "cmdMove_0" << 0 << "1 Films|2 Music|3 Sport";
        QTest::newRow("nothing selected, up") << -1 << "cmdMove_0" << -1 << same;
        QTest::newRow("nothing selected, down") << -1 << "cmdMove_1" << -1 << same;
    }

    void moves() {
        QFETCH(int, selected);
        QFETCH(QString, button);
        QFETCH(int, selectedAfter);
        QFETCH(QString, order);
        const Evening evening;
        RoundScreen round;
        if (selected >= 0)
            ClickRow(round.list, selected);
        round.box.setText(QStringLiteral("a new name"));
        Click(Control<QWidget>(round.screen, button));
        QCOMPARE(evening.Stored(StoredOrder), order);
        QStringList shown;
        for (int row = 0; row < 3; ++row)
            shown.append(round.list.topLevelItem(row)->text(0) + u' ' +
                         round.list.topLevelItem(row)->text(1));
        QCOMPARE(shown.join(u'|'), order);
        QCOMPARE(SelectedRow(round.list), selectedAfter);
        QCOMPARE(round.box.text(), QStringLiteral("a new name"));
    }

    // The first round has nowhere to go; its selection stays.
    void keepsTheTopSelected() {
        const Evening evening;
        RoundScreen round;
        ClickRow(round.list, 0);
        round.PressButton("cmdMove_0");
        QCOMPARE(SelectedRow(round.list), 0);
        QCOMPARE(Column(round.list, 1), QStringLiteral("Music|Films|Sport"));
    }

    void saysNothingAboutAFailedMove() {
        Evening evening;
        RoundScreen round;
        ClickRow(round.list, 0);
        const ForeignLock lock(evening.DatabasePath());
        const ModalAnswers none({});
        round.PressButton("cmdMove_1");
        QTest::qWait(20);
        QVERIFY(none.AllGiven());
        QCOMPARE(Column(round.list, 1), QStringLiteral("Music|Films|Sport"));
        QCOMPARE(SelectedRow(round.list), 0);
    }

    void addsRenamesAndDeletes() {
        const Evening evening;
        RoundScreen round;
        // Enter has no meaning here.
        Type(QStringLiteral("Fin'al"));
        Press(Qt::Key_Return);
        QCOMPARE(round.list.topLevelItemCount(), 3);
        round.PressButton("cmdAdd");
        QCOMPARE(round.box.text(), QString());
        round.PressButton("cmdAdd"); // without a name
        QCOMPARE(evening.Stored(StoredOrder), QStringLiteral("1 Music|2 Films|3 Sport|4 Final|5 "));

        ClickRow(round.list, 4);
        Click(round.box);
        Type(QStringLiteral("Bonus"));
        round.PressButton("cmdEdit");
        QCOMPARE(Column(round.list, 1), QStringLiteral("Music|Films|Sport|Final|Bonus"));

        const QString title = QStringLiteral("Melodex Professional");
        const QString question = QStringLiteral("Are you sure you wish to remove this round?");
        const ModalAnswers answers({MessageBox(title, question, Qt::Key_Escape),
                                    MessageBox(title, question, Qt::Key_Return)});
        for (const int row : {0, 0}) {
            ClickRow(round.list, row);
            round.PressButton("cmdDelete");
        }
        QVERIFY(answers.AllGiven());
        QCOMPARE(Column(round.list, 1), QStringLiteral("Sport|Final|Bonus"));
        // The first deletion was cancelled; the other rounds keep their numbers.
        QCOMPARE(evening.Stored(StoredOrder), QStringLiteral("1 Music|3 Sport|4 Final|5 Bonus"));
        QVERIFY(round.screen.FillList());
        QCOMPARE(Column(round.list, 1), QStringLiteral("Music|Sport|Final|Bonus"));
        Press(Qt::Key_Escape);
        QVERIFY(!round.screen.isVisible());
    }
};

QTEST_MAIN(frmRoundEntryTest)
#include "frmRoundEntryTest.moc"
