#include "data/TeamDAO.h"

#include "core/Guard.h"
#include "data/Table.h"

namespace {

constexpr const char* Component = "TeamDAO";

Team teamFrom(const RecordSet& row) {
    return {FieldText(row, "TeamID"), FieldText(row, "TeamName")};
}

constexpr Table<Team> Teams{Component, "GetTeamList", "GetTeam", "Teams", "TeamID", teamFrom};

} // namespace

std::unique_ptr<ObjectList<Team>> TeamDAO::GetTeamList() {
    return Teams.List(QStringLiteral(" ORDER BY TeamName "));
}

std::unique_ptr<Team> TeamDAO::GetTeam(const QString& key) {
    return Teams.One(key);
}

bool TeamDAO::Delete(const QString& key) {
    return Teams.Delete(key);
}

bool TeamDAO::Save(const Team& team) {
    return Guarded("Save", Component, false, [&] {
        const QString name = AppDatabase().SQLTextField(team.TeamName);
        if (team.IsStored)
            return AppDatabase().ExecuteSQL(QStringLiteral("UPDATE Teams SET TeamName='") + name +
                                            QStringLiteral("' WHERE TeamID='") + team.TeamID +
                                            u'\'');
        return AppDatabase().ExecuteSQL(
            QStringLiteral("INSERT INTO Teams (TeamID,TeamName) VALUES ('") + team.TeamID +
            QStringLiteral("','") + name + QStringLiteral("')"));
    });
}
