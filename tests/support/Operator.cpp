#include "support/Operator.h"

#include "app/HeldKeys.h"
#include "app/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWindow>

namespace {

constexpr int PatienceMs = 10000;

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

class AnswerDialog::Watch : public QObject {
public:
    explicit Watch(Answer answer)
        : m_answer(std::move(answer))
        , m_covered(QApplication::activeModalWidget()) {
        m_since.start();
        connect(&m_timer, &QTimer::timeout, this, &Watch::look);
        m_timer.start(1);
    }

    ~Watch() override {
        if (!m_isAnswered)
            QTest::qFail("no dialog has opened", __FILE__, __LINE__);
    }

private:
    void look() {
        QPointer<QWidget> dialog = QApplication::activeModalWidget();
        const bool isLate = m_since.elapsed() > PatienceMs;
        if (!m_isAnswered && dialog && dialog != m_covered &&
            (isLate || QApplication::activeWindow() == dialog)) {
            m_isAnswered = true;
            m_dialog = dialog;
            m_answer(*dialog);
        } else if (m_dialog && m_dialog->isVisible() && isLate) {
            QTest::qFail("a dialog has stayed open", __FILE__, __LINE__);
            for (int windows = 20; dialog && windows > 0; --windows) {
                dialog->hide();
                dialog = QApplication::activeModalWidget();
            }
        }
    }

    Answer m_answer;
    QPointer<QWidget> m_covered;
    QPointer<QWidget> m_dialog;
    bool m_isAnswered = false;
    QElapsedTimer m_since;
    QTimer m_timer;
};

AnswerDialog::AnswerDialog(Answer answer)
    : m_watch(std::make_unique<Watch>(std::move(answer))) {}

AnswerDialog::AnswerDialog(const QString& title, const QString& text, int key)
    : AnswerDialog([=](QWidget& dialog) {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (QTest::qVerify(box != nullptr, "a message box", "", __FILE__, __LINE__)) {
            QTest::qCompare(dialog.windowTitle(), title, "title", "expected", __FILE__, __LINE__);
            QTest::qCompare(box->text(), text, "text", "expected", __FILE__, __LINE__);
            Press(key);
        }
        QTest::qVerify(!dialog.isVisible(), "the key closes the box", "", __FILE__, __LINE__);
        dialog.hide();
    }) {}

AnswerDialog::~AnswerDialog() = default;
