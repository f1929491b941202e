#pragma once

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <list>

/// Answers modal dialogs in the order in which they open, each one once, as an operator would.
/// A dialog that nobody expected is closed and fails the test.
class ModalAnswers : public QObject {
public:
    using Answer = std::function<void(QDialog& dialog)>;

    explicit ModalAnswers(std::list<Answer> answers)
        : m_answers(std::move(answers)) {
        lookSoon();
    }

    /// True when every dialog came and was answered, and no other one came.
    bool AllGiven() const { return m_answers.empty() && !m_failed; }

private:
    void lookSoon() {
        // A new timer each time: one does not run again while its dialog is open.
        QTimer::singleShot(5, this, [this] {
            lookSoon();
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog && dialog->isVisible() && !m_answered.contains(dialog))
                answer(*dialog);
        });
    }

    void answer(QDialog& dialog) {
        m_answered.append(&dialog);
        if (m_answers.empty()) {
            qWarning("nobody expected the dialog \"%s\"", qPrintable(dialog.windowTitle()));
            m_failed = true;
            return dialog.reject();
        }
        const Answer answer = std::move(m_answers.front());
        m_answers.pop_front();
        answer(dialog);
    }

    std::list<Answer> m_answers;
    QList<QPointer<QDialog>> m_answered;
    bool m_failed = false;
};
