#include "data/TeamDAO.h"

#include "core/Guard.h"
#include "data/DBObject.h"
#include "data/Require.h"

namespace {

constexpr const char* Component = "TeamDAO";

Team teamFrom(const RecordSet& row) {
    return {AppDatabase().SetField(row.Field("TeamID")),
            AppDatabase().SetField(row.Field("TeamName"))};
}

} // namespace

std::unique_ptr<ObjectList<Team>> TeamDAO::GetTeamList() {
    return Guarded("GetTeamList", Component, std::unique_ptr<ObjectList<Team>>(), [] {
        const auto rows =
            AppDatabase().GetRecordSet(QStringLiteral("SELECT * FROM Teams ORDER BY TeamName "));
        auto list = std::make_unique<ObjectList<Team>>();
        for (RecordSet& row = Require(rows); !row.EndOfFile(); row.MoveNext())
            list->Add(std::make_shared<Team>(teamFrom(row)));
        return list;
    });
}

std::unique_ptr<Team> TeamDAO::GetTeam(const QString& key) {
    return Guarded("GetTeam", Component, std::unique_ptr<Team>(), [&]() -> std::unique_ptr<Team> {
        const auto rows = AppDatabase().GetRecordSet(
            QStringLiteral("SELECT * FROM Teams WHERE TeamID='") + key + u'\'');
        if (Require(rows).EndOfFile())
            return nullptr;
        return std::make_unique<Team>(teamFrom(*rows));
    });
}

bool TeamDAO::Delete(const QString& key) {
    return Guarded("Delete", Component, false, [&] {
        if (!GetTeam(key))
            return false;
        return AppDatabase().ExecuteSQL(QStringLiteral("DELETE FROM Teams WHERE TeamID='") + key +
                                        u'\'');
    });
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
