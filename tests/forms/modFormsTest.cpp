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

    void showsStandings_data() {
        QTest::addColumn<qint32>("mode");
        QTest::addColumn<QString>("round");
        QTest::addColumn<QString>("table"); ///< that cannot be read
        QTest::addColumn<QString>("window");
        QTest::addColumn<QString>("board");
        const QString nothing;
        QTest::newRow("round in a window") << 1 << "R1" << nothing << "Music Results" << nothing;
        QTest::newRow("overall in a window") << 2 << "" << nothing << "Rankelo Results" << nothing;
        QTest::newRow("round on the board") << 3 << "R1" << nothing << nothing << "Music Results";
        QTest::newRow("overall on the board") << 4 << "" << nothing << nothing << "Rankelo Results";
        QTest::newRow("a round without results")
            << 3 << "R2" << nothing << nothing << "Films Results";
        QTest::newRow("an unknown round") << 3 << "R9" << nothing << nothing << nothing;
        QTest::newRow("an unknown round in a window") << 1 << "R9" << nothing << nothing << nothing;
        QTest::newRow("no rounds to be had") << 3 << "R1"
                                             << "Rounds" << nothing << nothing;
        QTest::newRow("no results to be had") << 3 << "R1"
                                              << "Results" << nothing << nothing;
        QTest::newRow("no teams to be had") << 4 << ""
                                            << "Teams" << nothing << nothing;
        QTest::newRow("no teams for a window") << 2 << ""
                                               << "Teams" << nothing << nothing;
        QTest::newRow("another mode") << 5 << "R1" << nothing << nothing << nothing;
    }

    void showsStandings() {
        QFETCH(qint32, mode);
        QFETCH(QString, round);
        QFETCH(QString, table);
        QFETCH(QString, window);
        QFETCH(QString, board);
        const Evening evening;
        if (!table.isEmpty())
            evening.Hide(table.toLatin1());
        std::list<ModalAnswers::Answer> expected;
        if (!window.isEmpty())
            expected.emplace_back([&](QDialog& dialog) {
                QCOMPARE(dialog.objectName(), QStringLiteral("frmViewResults"));
                QCOMPARE(dialog.windowTitle(), window);
                Press(Qt::Key_Escape);
            });
        const ModalAnswers answers(expected);
        modForms::ViewResults(mode, 0, round);
        QTest::qWait(20);
        QVERIFY(answers.AllGiven());
        QCOMPARE(boards().size(), board.isEmpty() ? 0 : 1);
        if (!board.isEmpty())
            QCOMPARE(boards().first()->windowTitle(), board);
    }

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
        modForms::ViewResults(modForms::OverallOnBoard, 4, QString());
        QCOMPARE(boards().size(), 1);
    }

    void opensNoScreenThatCannotBeFilled() {
        const struct {
            const char* table;
            bool (*open)();
        } cases[] = {
            {"Rounds", [] { return modForms::RoundEntry(); }},
            {"Teams", [] { return modForms::TeamEntry(); }},
            {"Teams", [] { return modForms::ResultEntry(QStringLiteral("R1")); }},
            {"Rounds", [] { return modForms::ResultEntry(QStringLiteral("R1")); }},
        };
        for (const auto& [table, open] : cases) {
            Evening evening;
            {
                const ModalAnswers answers({[](QDialog&) { Press(Qt::Key_Escape); }});
                QVERIFY(open());
                QVERIFY(answers.AllGiven());
            }
            evening.Hide(table);
            const ModalAnswers none({});
            QVERIFY(!open());
            QVERIFY(none.AllGiven());
            QVERIFY(!evening.TakeReports().isEmpty());
        }
    }

    // Cancelled or too big, the caller's score and joker stay.
    void asksForAScore_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("isConfirmed");
        QTest::addColumn<qint32>("score");
        QTest::newRow("confirmed") << "12" << int(Qt::Key_Return) << true << 12;
        QTest::newRow("cancelled") << "12" << int(Qt::Key_Escape) << false << 3;
        QTest::newRow("too big") << "1e10" << int(Qt::Key_Return) << false << 3;
    }

    void asksForAScore() {
        QFETCH(QString, typed);
        QFETCH(int, key);
        QFETCH(bool, isConfirmed);
        QFETCH(qint32, score);
        AppFolder folder;
        qint32 given = 3;
        bool joker = true;
        const ModalAnswers answers({[&](QDialog&) {
            Type(typed);
            Press(key);
        }});
        QCOMPARE(modForms::GetEntry(given, joker), isConfirmed);
        QVERIFY(answers.AllGiven());
        QCOMPARE(given, score);
        QVERIFY(joker);
        QCOMPARE(folder.TakeReports().size(), typed == QStringLiteral("1e10") ? 1 : 0);
    }
};

QTEST_MAIN(modFormsTest)
#include "modFormsTest.moc"
