#include "support/Operator.h"

#include "app/InputGuard.h"
#include "app/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QTest>
#include <QTreeWidget>
#include <QWindow>

namespace {

// A dialog is visible before the platform gives it the keyboard.
bool keyboardIsThere() {
    const QWindow* window = QGuiApplication::focusWindow();
    const QWidget* modal = QApplication::activeModalWidget();
    return window &&
           (!modal || QApplication::activePopupWidget() || window == modal->windowHandle());
}

QWindow& keyboardWindow() {
    // Where there is no window manager, a closed window leaves the keyboard to nobody.
    QWidget* next = QApplication::activeModalWidget();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (!next && window->isVisible())
            next = window;
    if (next && !QApplication::activePopupWidget() && !QGuiApplication::focusWindow())
        next->activateWindow();
    if (!QTest::qWaitFor(keyboardIsThere))
        qFatal("no window has the keyboard");
    return *QGuiApplication::focusWindow();
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
    Press(Qt::Key_V, Qt::ControlModifier);
}

void Click(QWidget& control) {
    QTest::mouseClick(&control, Qt::LeftButton);
    // A box selects its text once the click is over.
    QCoreApplication::processEvents();
}

void ClickRow(QTreeWidget& list, int row) {
    const QRect box = list.visualItemRect(list.topLevelItem(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, box.center());
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

ModalAnswers::Answer MessageBox(const QString& title, const QString& text, int key,
                                Qt::KeyboardModifiers modifiers) {
    return [=](QDialog& dialog) {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        QVERIFY2(box, qPrintable(dialog.objectName()));
        QCOMPARE(box->windowTitle(), title);
        QCOMPARE(box->text(), text);
        QCOMPARE(box->textFormat(), Qt::PlainText); // a team may be called "<b>Bold</b>"
        Press(key, modifiers);
        QVERIFY2(!box->isVisible(), "the key closes the box");
    };
}
