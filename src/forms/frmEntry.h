#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

/// The score dialog: one team's score in a round and whether it played its joker. Enter confirms,
/// Esc cancels.
class frmEntry : public QDialog {
    Q_OBJECT

public:
    explicit frmEntry(QWidget* parent);

    void SetEntry(qint32 score, bool joker);
    /// Throws error 6 for a score beyond 32 bits. Halves are rounded to even.
    qint32 Score() const;
    bool Joker() const;
    /// "OK" when confirmed, "CANCEL" otherwise.
    const QString& Answer() const { return m_answer; }

private:
    void confirm();
    void cancel();
    bool onKey(int key);
    void closeEvent(QCloseEvent* event) override;

    QLineEdit* m_score;
    QCheckBox* m_joker;
    QString m_answer;
};

/// Runs the score dialog over `parent`, under a title that says whose score is asked for. True when
/// the operator confirmed; `score` and `joker` then hold the answer, otherwise they stay as they
/// were.
bool GetEntry(QWidget* parent, const QString& title, qint32& score, bool& joker);
