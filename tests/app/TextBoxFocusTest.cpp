#include "app/TextBoxFocus.h"
#include "support/Operator.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class TextBoxFocusTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void entersAndLeaves() {
        for (const int way : {0, 1, 2, 3}) {
            const bool byMouse = way % 2 == 1;
            const bool isPlain = way >= 2;
            QWidget screen;
            screen.setPalette(QPalette(Qt::black));
            auto* layout = new QVBoxLayout(&screen);
            auto* box = new QLineEdit(u"O'Brien's"_s);
            auto* other = new QCheckBox(u"Team's joker"_s);
            for (QWidget* control : {static_cast<QWidget*>(other), static_cast<QWidget*>(box)}) {
                layout->addWidget(control);
                TextBoxFocus::Attach(control, isPlain ? TextBoxFocus::Colours::Palette
                                                      : TextBoxFocus::Colours::BlueAndWhite);
            }
            const QColor white = isPlain ? Qt::black : Qt::white;
            const auto background = [&] {
                return box->grab().toImage().pixelColor(box->width() - 9, box->height() / 2);
            };
            ShowScreen(screen);
            QCOMPARE(background(), white);

            byMouse ? Click(*box) : Press(Qt::Key_Tab);
            QTRY_COMPARE(box->selectedText(), u"O'Brien's"_s);
            QCOMPARE(box->cursorPosition(), 0);
            QCOMPARE(background(), isPlain ? Qt::black : QColor(0, 153, 204));
            Type(u"8'"_s);
            Click(*box);
            QVERIFY2(!box->hasSelectedText(), "a click inside selects nothing");

            // Another program, a menu or a message in front is not the end of the entry.
            QMenu menu(&screen);
            menu.addAction(u"Paste"_s);
            menu.popup(QPoint());
            Press(Qt::Key_Escape);
            {
                QWidget window;
                ShowScreen(window);
                QVERIFY(!box->hasFocus());
            }
            ShowScreen(screen);
            Type(u"9'"_s);
            QCOMPARE(box->text(), u"8'9'"_s);

            byMouse ? Click(*other) : Press(Qt::Key_Tab);
            QCOMPARE(box->text(), u"89"_s);
            QCOMPARE(background(), white);
            QCOMPARE(other->text(), u"Team's joker"_s);
        }
    }
};

QTEST_MAIN(TextBoxFocusTest)
#include "TextBoxFocusTest.moc"
