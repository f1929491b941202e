#pragma once

#include "forms/EntryForm.h"

/// Team entry: teams are added, renamed and deleted as they arrive. Enter adds the team that is
/// typed.
class frmTeamEntry : public EntryForm {
    Q_OBJECT

public:
    explicit frmTeamEntry(QWidget* parent = nullptr);

    /// 0 adds, 1 renames, 2 deletes; see EntryForm::save.
    bool SaveTeam(qint32 action, const QString& teamKey) { return save(action, teamKey); }
};
