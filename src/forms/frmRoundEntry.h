#pragma once

#include "forms/EntryForm.h"

/// Round entry: rounds are added, renamed, deleted and moved up and down. Esc closes.
class frmRoundEntry : public EntryForm {
    Q_OBJECT

public:
    explicit frmRoundEntry(QWidget* parent = nullptr);

    /// Fills the list from the database. False when the rounds cannot be read; the list then stays
    /// as it is.
    bool FillList();
    /// 0 adds, 1 renames, 2 deletes; see EntryForm::save.
    bool SaveRound(qint32 action, const QString& roundKey);

private:
    enum Move : int { MoveUp = 0, MoveDown = 1 };
    void move(int index);
    bool saveGuarded(qint32 action, const QString& key) override { return SaveRound(action, key); }
    std::optional<Row> addRecord(const QString& name) override;
    bool renameRecord(const QString& key, const QString& name) override;
    bool deleteRecord(const QString& key) override;
};
