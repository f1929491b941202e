#pragma once

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <list>

/// Answers modal dialogs in the order in which they open, each one once, as an operator would.
/// A dialog that nobody expected, or that stays open too long, is closed and fails the test, so
/// that no test waits for ever.
class ModalAnswers : public QObject {
public:
    using Answer = std::function<void(QDialog& dialog)>;

    explicit ModalAnswers(std::list<Answer> answers)
        : m_answers(std::move(answers)) {
        m_sinceLast.start();
        lookSoon();
    }

    /// True when every dialog came and was answered, and no other one came.
    bool AllGiven() const { return m_answers.empty() && !m_failed; }

private:
    void lookSoon() {
        constexpr int milliseconds = 5;
        // A new timer each time: one does not run again while its dialog is open.
        QTimer::singleShot(milliseconds, this, [this] {
            lookSoon();
            look();
        });
    }

    void look() {
        constexpr int patienceMilliseconds = 20000;
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        const bool isNew = !m_answered.contains(dialog);
        if (isNew && !m_answers.empty()) {
            m_answered.append(dialog);
            m_sinceLast.restart();
            const Answer answer = std::move(m_answers.front());
            m_answers.pop_front();
            answer(*dialog);
        } else if (isNew || m_sinceLast.hasExpired(patienceMilliseconds)) {
            qWarning("left alone with the dialog \"%s\"", qPrintable(dialog->windowTitle()));
            m_failed = true;
            dialog->reject();
        }
    }

    std::list<Answer> m_answers;
    QList<QPointer<QDialog>> m_answered;
    QElapsedTimer m_sinceLast;
    bool m_failed = false;
};
