#include "support/Operator.h"

#include "app/HeldKeys.h"
#include "app/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QTest>
#include <QTreeWidget>
#include <QWindow>

namespace {

QWindow& keyboardWindow() {
    if (!QTest::qWaitFor([] { return QGuiApplication::focusWindow() != nullptr; }))
        qFatal("no window has the keyboard");
    return *QGuiApplication::focusWindow();
}

// Sent to the window like a key from the system, so that pop-ups and the focus decide.
void send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text,
          bool isRepeat = false) {
    QKeyEvent event(type, key, modifiers, text, isRepeat);
    QApplication::sendEvent(&keyboardWindow(), &event);
}

QString textOf(int key, Qt::KeyboardModifiers modifiers) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return QStringLiteral("\r");
    if (key == Qt::Key_Escape)
        return QStringLiteral("\033");
    if (key < Qt::Key_Escape && modifiers == Qt::NoModifier)
        return QString(QChar(key)).toLower();
    return {};
}

} // namespace

void PrepareApplication() {
    Theme::Apply(*qApp);
    IgnoreHeldKeys(*qApp);
}

void ShowScreen(QWidget& screen) {
    screen.show();
    screen.activateWindow();
    if (!QTest::qWaitForWindowActive(&screen))
        qFatal("%s does not get the keyboard", qPrintable(screen.objectName()));
}

void Press(int key, Qt::KeyboardModifiers modifiers) {
    send(QEvent::KeyPress, key, modifiers, textOf(key, modifiers));
    // The press may have closed the last window.
    if (QGuiApplication::focusWindow())
        send(QEvent::KeyRelease, key, modifiers, textOf(key, modifiers));
}

void Hold(int key) {
    send(QEvent::KeyPress, key, Qt::NoModifier, textOf(key, Qt::NoModifier), true);
}

void Type(const QString& text) {
    for (const char32_t character : text.toUcs4()) {
        const QString typed = QString::fromUcs4(&character, 1);
        send(QEvent::KeyPress, 0, Qt::NoModifier, typed);
        send(QEvent::KeyRelease, 0, Qt::NoModifier, typed);
    }
}

void Paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    Press(Qt::Key_V, Qt::ControlModifier);
}

void Click(QWidget& control) {
    QTest::mouseClick(&control, Qt::LeftButton);
}

void ClickRow(QTreeWidget& list, int row) {
    const QRect box = list.visualItemRect(list.topLevelItem(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, box.center());
}

QString Column(const QTreeWidget& list, int column) {
    QStringList texts;
    for (int row = 0; row < list.topLevelItemCount(); ++row)
        texts.append(list.topLevelItem(row)->text(column));
    return texts.join(u'|');
}

int SelectedRow(const QTreeWidget& list) {
    const QList<QTreeWidgetItem*> selected = list.selectedItems();
    return selected.isEmpty() ? -1 : list.indexOfTopLevelItem(selected.first());
}

ModalAnswers::Answer MessageBox(const QString& title, const QString& text, int key) {
    return [=](QDialog& dialog) {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        QVERIFY2(box, qPrintable(dialog.objectName()));
        QCOMPARE(box->windowTitle(), title);
        QCOMPARE(box->text(), text);
        Press(key);
        QVERIFY2(!box->isVisible(), "the key closes the box");
    };
}
