#pragma once

#include "forms/ScoreEntry.h"

#include <QDialog>

class QCheckBox;
class QLineEdit;

/// The score dialog: one team's score in a round and whether it played its joker. Enter confirms,
/// Esc cancels; Down and Up confirm as well and ask for the team below or above. Alt+J plays the
/// joker, or takes it back.
class frmEntry : public QDialog {
    Q_OBJECT

public:
    frmEntry(QWidget* parent, const ScoreEntry& entry);

    /// Throws error 6 for a score beyond 32 bits. Halves are rounded to even.
    qint32 Score() const;
    bool Joker() const;
    /// See ScoreEntry.
    int Step() const { return m_step; }
    /// "OK" when confirmed, "CANCEL" otherwise.
    QString Answer() const;

private:
    void build(const ScoreEntry& entry);
    bool onKey(int key, const QKeyEvent& event);
    void confirm(int step);

    QLineEdit* m_score;
    QCheckBox* m_joker;
    int m_step = 0;
};
