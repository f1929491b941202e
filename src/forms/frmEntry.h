#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

/// The score dialog: one team's score in a round and whether it played its joker. Enter confirms,
/// Esc cancels.
class frmEntry : public QDialog {
    Q_OBJECT

public:
    /// `team` is whose score is asked for.
    frmEntry(QWidget* parent, const QString& team, qint32 score, bool joker);

    /// Throws error 6 for a score beyond 32 bits. Halves are rounded to even.
    qint32 Score() const;
    bool Joker() const;
    /// "OK" when confirmed, "CANCEL" otherwise.
    QString Answer() const;

private:
    void build();
    bool onKey(int key);
    void confirm();

    QLineEdit* m_score;
    QCheckBox* m_joker;
};
