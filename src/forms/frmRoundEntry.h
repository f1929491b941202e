#pragma once

#include "forms/EntryForm.h"

/// Round entry: rounds are added, renamed, deleted and moved up and down.
class frmRoundEntry : public EntryForm {
    Q_OBJECT

public:
    explicit frmRoundEntry(QWidget* parent = nullptr);

    /// 0 adds, 1 renames, 2 deletes; see EntryForm::save.
    bool SaveRound(qint32 action, const QString& roundKey) { return save(action, roundKey); }

private:
    void addMoveButtons();
    /// By the index of its button: 0 moves the selected round up, 1 down.
    void clickMove(int index);
    void move(int index);
};
