#include "app/Messages.h"
#include "support/Operator.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

class MessagesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // Esc refuses, Enter agrees; the text stands there as it is, whatever it looks like.
    void answers() {
        const QString text = u"<b>Tom & Jerry</b><br>%1 'x'"_s;
        for (const auto& [agree, refuse] : {std::pair(QMessageBox::Yes, QMessageBox::No),
                                            std::pair(QMessageBox::Ok, QMessageBox::Cancel)})
            for (const int key : {Qt::Key_Escape, Qt::Key_Return}) {
                const ModalAnswers answers({[&](QDialog& box) {
                    const auto& label = Control<QLabel>(box, u"qt_msgbox_label"_s);
                    QCOMPARE(label.textFormat(), Qt::PlainText);
                    // The first press of a held key opened the box; the rest is no answer.
                    for (const int held : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space})
                        Hold(held);
                    MessageBox(u"Title"_s, text, key)(box);
                }});
                QCOMPARE(Messages::Ask(nullptr, text, u"Title"_s, agree, refuse),
                         key == Qt::Key_Escape ? refuse : agree);
                QVERIFY(answers.AllGiven());
            }
    }
};

QTEST_MAIN(MessagesTest)
#include "MessagesTest.moc"
