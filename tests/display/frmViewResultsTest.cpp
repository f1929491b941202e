#include "display/frmViewResults.h"

#include "display/Render.h"
#include "support/AppFolder.h"
#include "support/ModalAnswers.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QTreeWidget>

namespace {

SummaryList standings() {
    SummaryList list;
    for (const Summary& row : {Summary{"The <b>Crisps</b>", 56, true, 1},
                               Summary{"Last Orders", -3, false, 2}, Summary{"Ten", -3, true, 2}})
        list.Add(std::make_shared<Summary>(row));
    return list;
}

QString textOf(const QTreeWidgetItem& row) {
    QStringList texts;
    for (int column = 0; column < row.columnCount(); ++column)
        texts.append(row.text(column));
    return texts.join(u'|');
}

QStringList rowsOf(const QDialog& screen) {
    const auto* list = screen.findChild<QTreeWidget*>(QStringLiteral("lvResults"));
    QStringList rows{textOf(*list->headerItem())};
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        rows.append(textOf(*list->topLevelItem(i)));
    return rows;
}

} // namespace

class frmViewResultsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void listsTheStandingsUntilEscape();
#ifdef Q_OS_UNIX
    void reportsThatNothingCanBePrinted();
#endif
};

void frmViewResultsTest::initTestCase() {
    // No test of this program prints on somebody's printer.
    qputenv("CUPS_SERVER", "/nowhere/cups.sock");
}

void frmViewResultsTest::listsTheStandingsUntilEscape() {
    AppFolder folder;
    frmViewResults screen;
    QCOMPARE(screen.windowTitle(), QStringLiteral("View Results"));
    ModalAnswers answers({[](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("frmViewResults"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Music & More Results"));
        QCOMPARE(rowsOf(dialog),
                 QStringList({"Position|Team Name|Score|Joker", "1|The <b>Crisps</b>|56|Played",
                              "2|Last Orders|-3|", "2|Ten|-3|Played"}));
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblPrintResults"))->text(),
                 QStringLiteral("Print Results To:"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    }});
    QVERIFY(Render().ViewResults(screen, standings(), QStringLiteral("Music & More Results")));
    QVERIFY(answers.AllGiven());
    QCOMPARE(folder.TakeReports(), QStringList());
}

#ifdef Q_OS_UNIX
void frmViewResultsTest::reportsThatNothingCanBePrinted() {
    AppFolder folder;
    frmViewResults screen;
    screen.show();
    auto* printers = screen.findChild<QComboBox*>(QStringLiteral("cboPrinter"));
    auto* button = screen.findChild<QAbstractButton*>(QStringLiteral("cmdPrint"));
    QCOMPARE(printers->count(), 0);
    button->click();
    QCOMPARE(folder.TakeReports(),
             QStringList("9700 : [57] There is no printer [cmdPrint_Click/frmViewResults]"));
    QVERIFY(!button->isEnabled());
    QVERIFY(screen.isVisible());

    // A printer of a service that has gone down meanwhile.
    frmViewResults second;
    second.findChild<QComboBox*>(QStringLiteral("cboPrinter"))->addItem(QStringLiteral("Club"));
    second.findChild<QAbstractButton*>(QStringLiteral("cmdPrint"))->click();
    const QStringList reports = folder.TakeReports();
    QCOMPARE(reports.size(), 1);
    QVERIFY2(reports.first().contains(QStringLiteral("The printing service does not answer")),
             qPrintable(reports.first()));
}
#endif

QTEST_MAIN(frmViewResultsTest)
#include "frmViewResultsTest.moc"
