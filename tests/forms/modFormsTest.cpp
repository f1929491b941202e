#include "forms/modForms.h"
#include "Evening.h"
#include "display/frmSummary.h"

#include <QPointer>
#include <QTest>

namespace {

QList<frmSummary*> boards() {
    QList<frmSummary*> found;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* board = qobject_cast<frmSummary*>(window))
            found.append(board);
    return found;
}

} // namespace

class modFormsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void cleanup() { qDeleteAll(boards()); }

    // A board that is still open goes when another is asked for.
    void showsOneBoardAtATime() {
        const Evening evening;
        modForms::ViewResults(modForms::OverallOnBoard, 4, QString());
        const QPointer<frmSummary> first = boards().value(0);
        QVERIFY(first);
        modForms::ViewResults(modForms::RoundOnBoard, 0, QStringLiteral("R1"));
        QVERIFY(!first);
        QCOMPARE(boards().size(), 1);
        QVERIFY(QTest::qWaitForWindowActive(boards().first()));
        Press(Qt::Key_Escape);
        QTRY_COMPARE(boards().size(), 0);
    }

    // Neither an empty screen nor an empty board: the report alone says what is wrong.
    void opensNothingThatCannotBeFilled() {
        const struct {
            const char* table;
            void (*open)();
        } cases[] = {
            {"Rounds", [] { modForms::RoundEntry(); }},
            {"Teams", [] { modForms::TeamEntry(); }},
            {"Rounds", [] { modForms::ResultEntry(QStringLiteral("R1")); }},
            {"Teams", [] { modForms::ViewResults(2, 0, QString()); }},
            {"Rounds", [] { modForms::ViewResults(3, 0, QStringLiteral("R1")); }},
            {"Results", [] { modForms::ViewResults(3, 0, QStringLiteral("R1")); }},
        };
        for (const auto& [table, open] : cases) {
            Evening evening;
            evening.Hide(table);
            const ModalAnswers none({});
            open();
            QVERIFY(none.AllGiven());
            QCOMPARE(boards().size(), 0);
            QVERIFY(!evening.TakeReports().isEmpty());
        }
    }
};

QTEST_MAIN(modFormsTest)
#include "modFormsTest.moc"
