#include "forms/frmTeamEntry.h"

#include "data/TeamDAO.h"

namespace {

using Row = EntryForm::Row;

Row rowOf(const Team& team) {
    return {team.TeamID, {team.TeamName}};
}

std::optional<QList<Row>> listTeams() {
    const auto teams = TeamDAO().GetTeamList();
    if (!teams)
        return std::nullopt;
    QList<Row> rows;
    for (const auto& team : *teams)
        rows.append(rowOf(*team));
    return rows;
}

std::optional<Row> addTeam(const QString& name) {
    Team team;
    team.TeamName = name;
    if (!TeamDAO().Save(team))
        return std::nullopt;
    return rowOf(team);
}

bool renameTeam(const QString& key, const QString& name) {
    const auto team = TeamDAO().GetTeam(key);
    if (!team)
        return false;
    team->TeamName = name;
    return TeamDAO().Save(*team);
}

bool removeTeam(const QString& key) {
    return TeamDAO().Delete(key);
}

} // namespace

frmTeamEntry::frmTeamEntry(QWidget* parent)
    : EntryForm({.screen = "frmTeamEntry",
                 .saveProcedure = "SaveTeam",
                 .caption = QStringLiteral("Team Entry"),
                 .list = QStringLiteral("lvTeams"),
                 .columns = {QStringLiteral("Team Name")},
                 .label = QStringLiteral("lblTeamName"),
                 .labelCaption = QStringLiteral("Team Name:"),
                 .box = QStringLiteral("txtTeamName"),
                 .addTip = QStringLiteral("Add a team"),
                 .editTip = QStringLiteral("Rename the selected team"),
                 .deleteTip = QStringLiteral("Delete the selected team"),
                 .deleteQuestion = QStringLiteral("Are you sure you wish to remove this team?"),
                 .emptyText = QStringLiteral("Type a name and press Enter"),
                 .enterAdds = true},
                {listTeams, addTeam, renameTeam, removeTeam}, parent) {}
