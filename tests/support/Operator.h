#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

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

/// Presses and releases a key.
void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// What a key that is held down sends again and again.
void Hold(int key);
/// Types a text, one press for each character.
void Type(const QString& text);
/// Pastes a text over what is selected.
void Paste(const QString& text);
void Click(QWidget& control);
/// Clicks into the middle of a list's row.
void ClickRow(QTreeWidget& list, int row);

/// A column of a list, from top to bottom, joined by "|".
QString Column(const QTreeWidget& list, int column);
/// The number of the selected row, -1 for none.
int SelectedRow(const QTreeWidget& list);

/// Answers the next modal dialog that opens, once it has the keyboard. To be made before the step
/// that opens the dialog, for that step does not return until the dialog is closed. The test fails
/// when no dialog opens, or when the answer leaves it open; neither keeps the test waiting.
class AnswerDialog {
public:
    using Answer = std::function<void(QWidget& dialog)>;

    explicit AnswerDialog(Answer answer);
    /// Expects a message box with this title and text, and presses a key in it.
    AnswerDialog(const QString& title, const QString& text, int key);
    ~AnswerDialog();
    AnswerDialog(const AnswerDialog&) = delete;
    AnswerDialog& operator=(const AnswerDialog&) = delete;

private:
    class Watch;
    std::unique_ptr<Watch> m_watch;
};
