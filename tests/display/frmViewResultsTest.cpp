#include "display/frmViewResults.h"

#include "display/Render.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QTest>
#include <QTreeWidget>

class frmViewResultsTest : public QObject {
    Q_OBJECT

private slots:
    void listsTheStandingsUntilEscape();
};

void frmViewResultsTest::listsTheStandingsUntilEscape() {
    AppFolder folder;
    SummaryList standings;
    for (const Summary& row : {Summary{"The <b>Crisps</b>", 56, true, 1},
                               Summary{"Last Orders", -3, false, 2}, Summary{"Ten", -3, true, 2}})
        standings.Add(std::make_shared<Summary>(row));
    frmViewResults screen;
    ModalAnswers answers({[](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Music & More Results"));
        const auto& list = Control<QTreeWidget>(dialog, "lvResults");
        const char* columns[] = {"1|2|2", "The <b>Crisps</b>|Last Orders|Ten", "56|-3|-3",
                                 "Played||Played"};
        for (int column = 0; column < 4; ++column)
            QCOMPARE(Column(list, column), columns[column]);
        // One print an opening, also when there is no printer to take it.
        Control<QComboBox>(dialog, "cboPrinter").clear();
        auto& print = Control<QAbstractButton>(dialog, "cmdPrint");
        print.click();
        QVERIFY(!print.isEnabled());
        Press(Qt::Key_Escape);
    }});
    QVERIFY(Render().ViewResults(screen, standings, "Music & More Results"));
    QVERIFY(answers.AllGiven());
    QCOMPARE(folder.TakeReports(),
             QStringList("9700 : [57] There is no printer [cmdPrint_Click/frmViewResults]"));
}

QTEST_MAIN(frmViewResultsTest)
#include "frmViewResultsTest.moc"
