#pragma once

#include <QDialog>
#include <QPointer>

#include <functional>
#include <list>

class QTreeWidget;

// An operator at the real screens: keys go where the focus is, as from a keyboard.

/// The look and the key rules of the program, as its start-up sets them. Before the first screen.
void PrepareApplication();

/// Shows a screen and waits until it has the keyboard.
void ShowScreen(QWidget& screen);

/// A control by the name that everybody finds it by; the test ends at once when it is not there.
template <typename T>
T& Control(const QWidget& screen, const QString& name) {
    auto* control = screen.findChild<T*>(name);
    if (!control)
        qFatal("%s has no %s", qPrintable(screen.objectName()), qPrintable(name));
    return *control;
}

void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// What a key that is held down sends again and again.
void Hold(int key);
void Type(const QString& text);
void Paste(const QString& text);
void Click(QWidget& control, bool twice = false);
void Wheel(QWidget& control);

/// Clicks into the middle of a list's row; below the rows when it has no such row.
void ClickRow(QTreeWidget& list, int row, bool twice = false,
              Qt::MouseButton button = Qt::LeftButton);

/// What a list shows: the texts of a row are joined by blanks, the rows by "|".
QString Rows(const QTreeWidget& list);

/// Answers modal dialogs in the order in which they open, each one once, as an operator would.
/// A dialog that nobody expected is closed and fails the test.
class ModalAnswers : public QObject {
public:
    using Answer = std::function<void(QDialog& dialog)>;

    explicit ModalAnswers(std::list<Answer> answers);

    /// True when every dialog came and was answered, and no other one came.
    bool AllGiven() const { return m_answers.empty() && !m_failed; }

private:
    void lookSoon();

    std::list<Answer> m_answers;
    QList<QPointer<QDialog>> m_answered;
    bool m_failed = false;
};

/// The answer to a message box that must have this title and text: a key pressed in it.
ModalAnswers::Answer MessageBox(const QString& title, const QString& text, int key);
