#include "app/Messages.h"
#include "support/Operator.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

using Button = QMessageBox::StandardButton;

class MessagesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void answers_data() {
        QTest::addColumn<Button>("agree");
        QTest::addColumn<Button>("refuse");
        QTest::addColumn<int>("key");
        QTest::addColumn<Button>("answer");
        const struct {
            const char* what;
            Button agree, refuse;
        } questions[] = {{"yes or no", QMessageBox::Yes, QMessageBox::No},
                         {"OK or Cancel", QMessageBox::Ok, QMessageBox::Cancel}};
        for (const auto& [what, agree, refuse] : questions) {
            QTest::addRow("%s, Esc", what) << agree << refuse << int(Qt::Key_Escape) << refuse;
            QTest::addRow("%s, Enter", what) << agree << refuse << int(Qt::Key_Return) << agree;
        }
    }

    void answers() {
        QFETCH(Button, agree);
        QFETCH(Button, refuse);
        QFETCH(int, key);
        QFETCH(Button, answer);
        const ModalAnswers answers(
            {MessageBox(QStringLiteral("Title"), QStringLiteral("Sure?"), key)});
        QCOMPARE(
            Messages::Ask(nullptr, QStringLiteral("Sure?"), QStringLiteral("Title"), agree, refuse),
            answer);
        QVERIFY(answers.AllGiven());
    }

    // The first press of a held key opened the box; the rest of them is no answer.
    void aHeldKeyIsNoAnswer() {
        for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space}) {
            const ModalAnswers answers({[&](QDialog& box) {
                for (int i = 0; i < 5; ++i)
                    Hold(key);
                QVERIFY(box.isVisible());
                Press(Qt::Key_Escape);
            }});
            Messages::Ask(nullptr, QStringLiteral("Sure?"), QStringLiteral("Title"),
                          QMessageBox::Yes, QMessageBox::No);
            QVERIFY(answers.AllGiven());
        }
    }

    void showsTextsAsTheyStand() {
        const QString text = QStringLiteral("<b>Tom & Jerry</b><br>%1 'x'");
        QWidget screen;
        ShowScreen(screen);
        const ModalAnswers answers({[&](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            QCOMPARE(box.icon(), QMessageBox::Information);
            QCOMPARE(box.standardButtons(), QMessageBox::Ok);
            QCOMPARE(box.parentWidget(), &screen);
            const auto& label = Control<QLabel>(box, QStringLiteral("qt_msgbox_label"));
            QCOMPARE(label.text(), text);
            QCOMPARE(label.textFormat(), Qt::PlainText);
            Press(Qt::Key_Escape);
        }});
        Messages::Inform(&screen, text, QStringLiteral("Title"));
        QVERIFY(answers.AllGiven());
    }
};

QTEST_MAIN(MessagesTest)
#include "MessagesTest.moc"
