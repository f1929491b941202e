#pragma once

#include "core/ObjectList.h"
#include "data/Team.h"

#include <QString>

#include <memory>

/// Lists, fetches, deletes and saves teams. Failures are reported to the log; the answer is then
/// false or nothing.
class TeamDAO {
public:
    /// Every team by ascending name.
    std::unique_ptr<ObjectList<Team>> GetTeamList();
    /// Nothing when no team has the key.
    std::unique_ptr<Team> GetTeam(const QString& key);
    /// Leaves the team's results in place. False for an unknown key.
    bool Delete(const QString& key);
    /// Inserts a new team, updates a stored one. Does not mark a new one as stored: who edits on
    /// reads it again.
    bool Save(const Team& team);
};
