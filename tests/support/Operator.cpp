#include "support/Operator.h"

#include "app/InputGuard.h"
#include "app/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWindow>

namespace {

QWindow& keyboardWindow() {
    const QWidgetList first{QApplication::activeModalWidget(), QApplication::activeWindow()};
    // Where there is no window manager, a closed window leaves the keyboard to nobody.
    for (QWidget* window : first + QApplication::topLevelWidgets())
        if (window && window->isVisible()) {
            if (!QApplication::activePopupWidget())
                ShowScreen(*window);
            return *window->windowHandle();
        }
    qFatal("no window has the keyboard");
}

// As from the mouse: the window passes it on to the control.
void click(QWidget& control, const QPoint& place, bool twice, Qt::MouseButton button) {
    QTest::lastMouseTimestamp += QTest::mouseDoubleClickInterval;
    QWidget* window = control.window();
    QTest::mouseEvent(twice ? QTest::MouseDClick : QTest::MouseClick, window->windowHandle(),
                      button, Qt::NoModifier, control.mapTo(window, place));
}

} // namespace

void PrepareApplication() {
    Theme::Apply(*qApp);
    InstallInputGuard(*qApp);
}

void ShowScreen(QWidget& screen) {
    screen.show();
    screen.activateWindow();
    if (!QTest::qWaitForWindowActive(&screen))
        qFatal("%s does not get the keyboard", qPrintable(screen.objectName()));
}

void Press(int key, Qt::KeyboardModifiers modifiers) {
    const auto code = static_cast<Qt::Key>(key);
    QTest::keyPress(&keyboardWindow(), code, modifiers);
    // The press may have closed the last window.
    if (QWindow* window = QGuiApplication::focusWindow())
        QTest::keyRelease(window, code, modifiers);
}

void Hold(int key) {
    QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&keyboardWindow(), &repeated);
}

void Type(const QString& text) {
    for (const char32_t character : text.toUcs4())
        QTest::sendKeyEvent(QTest::Click, &keyboardWindow(), static_cast<Qt::Key>(0),
                            QString::fromUcs4(&character, 1), Qt::NoModifier);
}

void Paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    QTest::keySequence(&keyboardWindow(), QKeySequence::Paste);
}

void Click(QWidget& control, bool twice) {
    click(control, control.rect().center(), twice, Qt::LeftButton);
    // A box selects its text once the click is over.
    QCoreApplication::processEvents();
}

void Wheel(QWidget& control) {
    const QPointF place = control.rect().center();
    QWheelEvent turn(place, control.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&control, &turn);
}

void ClickRow(QTreeWidget& list, int row, bool twice, Qt::MouseButton button) {
    const QTreeWidgetItem* item = list.topLevelItem(row);
    const QPoint below = list.viewport()->rect().bottomLeft() + QPoint(9, -9);
    click(*list.viewport(), item ? list.visualItemRect(item).center() : below, twice, button);
}

QString Rows(const QTreeWidget& list) {
    QStringList rows;
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < list.columnCount(); ++column)
            texts.append(list.topLevelItem(row)->text(column));
        rows.append(texts.join(u' '));
    }
    return rows.join(u'|');
}

ModalAnswers::ModalAnswers(std::list<Answer> answers)
    : m_answers(std::move(answers)) {
    lookSoon();
}

void ModalAnswers::lookSoon() {
    // A new timer each time: one does not run again while its dialog is open.
    QTimer::singleShot(5, this, [this] {
        lookSoon();
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || m_answered.contains(dialog))
            return;
        m_answered.append(dialog);
        if (m_answers.empty()) {
            qWarning("nobody expected the dialog \"%s\"", qPrintable(dialog->windowTitle()));
            m_failed = true;
            return dialog->reject();
        }
        const Answer answer = std::move(m_answers.front());
        m_answers.pop_front();
        answer(*dialog);
    });
}

ModalAnswers::Answer MessageBox(const QString& title, const QString& text, int key) {
    return [=](QDialog& dialog) {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        QCOMPARE(dialog.windowTitle(), title);
        QCOMPARE(box->text(), text);
        QCOMPARE(box->textFormat(), Qt::PlainText); // a team may be called "<b>Bold</b>"
        for (const QAbstractButton* button : box->buttons())
            QVERIFY(button->icon().isNull());
        Press(key);
        QVERIFY2(!box->isVisible(), "the key closes the box");
    };
}
