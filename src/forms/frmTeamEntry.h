#pragma once

#include "forms/EntryForm.h"

/// Team entry: teams are added, renamed and deleted as they arrive. Enter adds the team that is
/// typed, Esc closes.
class frmTeamEntry : public EntryForm {
    Q_OBJECT

public:
    explicit frmTeamEntry(QWidget* parent = nullptr);

    /// Fills the list from the database. False when the teams cannot be read; the list then stays
    /// as it is.
    bool FillList();
    /// 0 adds, 1 renames, 2 deletes; see EntryForm::save.
    bool SaveTeam(qint32 action, const QString& teamKey);

private:
    bool onKey(int key);
    void afterAdd() override;
    bool saveGuarded(qint32 action, const QString& key) override { return SaveTeam(action, key); }
    std::optional<Row> addRecord(const QString& name) override;
    bool renameRecord(const QString& key, const QString& name) override;
    bool deleteRecord(const QString& key) override;
};
