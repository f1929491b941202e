#include "app/TextBoxFocus.h"
#include "support/HostileTexts.h"
#include "support/Operator.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

namespace {

QColor backgroundOf(const QWidget& box) {
    return box.palette().color(QPalette::Base);
}

const QColor Blue(0, 153, 204);

// A screen with a text box, and something beside it that can take the focus.
class Screen : public QWidget {
public:
    Screen() {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&box);
        layout->addWidget(&other);
        TextBoxFocus::Attach(&box);
        TextBoxFocus::Attach(&other);
    }

    QLineEdit box;
    QCheckBox other;
};

} // namespace

class TextBoxFocusTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void entersAndLeaves_data() {
        QTest::addColumn<bool>("byMouse");
        QTest::newRow("by keyboard") << false;
        QTest::newRow("by mouse") << true;
    }

    void entersAndLeaves() {
        QFETCH(bool, byMouse);
        Screen screen;
        screen.box.setText(QStringLiteral("O'Brien's"));
        screen.other.setFocus();
        ShowScreen(screen);
        QCOMPARE(backgroundOf(screen.box), QColor(Qt::white));

        byMouse ? Click(screen.box) : Press(Qt::Key_Tab);
        QTRY_COMPARE(screen.box.selectedText(), QStringLiteral("O'Brien's"));
        QCOMPARE(screen.box.cursorPosition(), 0);
        QCOMPARE(backgroundOf(screen.box), Blue);

        byMouse ? Click(screen.other) : Press(Qt::Key_Tab);
        QCOMPARE(screen.box.text(), QStringLiteral("OBriens"));
        QCOMPARE(backgroundOf(screen.box), QColor(Qt::white));
    }

    void typingReplacesAllAndAClickInsideSelectsNothing() {
        Screen screen;
        screen.box.setText(QStringLiteral("17"));
        screen.other.setFocus();
        ShowScreen(screen);
        Click(screen.box);
        QTRY_COMPARE(screen.box.selectedText(), QStringLiteral("17"));
        Type(QStringLiteral("8'"));
        QCOMPARE(screen.box.text(), QStringLiteral("8'"));
        Click(screen.box);
        QTest::qWait(0);
        QCOMPARE(screen.box.selectedText(), QString());
    }

    // Another program, a menu or a message in front is not the end of the entry.
    void staysEnteredBehindAnotherWindow() {
        Screen screen;
        screen.box.setFocus();
        ShowScreen(screen);
        Press(Qt::Key_Tab);
        Press(Qt::Key_Tab);
        Type(QStringLiteral("O'B"));
        QMenu menu(&screen);
        menu.addAction(QStringLiteral("Paste"));
        menu.popup(QPoint());
        Press(Qt::Key_Escape);
        {
            QWidget other;
            ShowScreen(other);
            QVERIFY(!screen.box.hasFocus());
        }
        screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&screen));
        Type(QStringLiteral("rien"));
        QCOMPARE(screen.box.text(), QStringLiteral("O'Brien"));
        QCOMPARE(backgroundOf(screen.box), Blue);
    }

    void leavesOtherControlsAlone() {
        QCheckBox box(QStringLiteral("Team's joker"));
        const QPalette before = box.palette();
        for (QWidget* control : {static_cast<QWidget*>(&box), static_cast<QWidget*>(nullptr)}) {
            TextBoxFocus::Gained(control);
            TextBoxFocus::Lost(control);
        }
        QCOMPARE(box.text(), QStringLiteral("Team's joker"));
        QCOMPARE(box.palette(), before);
    }

    void takesOnlyApostrophes() {
        for (const HostileText& hostile : HostileTexts()) {
            QLineEdit box;
            box.setText(hostile.Text);
            const QString before = box.text();
            TextBoxFocus::Gained(&box);
            QVERIFY2(box.text() == before, hostile.What);
            TextBoxFocus::Lost(&box);
            QVERIFY2(box.text() == QString(before).remove(u'\''), hostile.What);
        }
    }
};

QTEST_MAIN(TextBoxFocusTest)
#include "TextBoxFocusTest.moc"
