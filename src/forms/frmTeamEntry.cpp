#include "forms/frmTeamEntry.h"

#include "core/Guard.h"
#include "data/TeamDAO.h"
#include "forms/KeyPreview.h"

#include <QLineEdit>

frmTeamEntry::frmTeamEntry(QWidget* parent)
    : EntryForm({.screen = QStringLiteral("frmTeamEntry"),
                 .caption = QStringLiteral("Team Entry"),
                 .list = QStringLiteral("lvTeams"),
                 .columns = {QStringLiteral("Team Name")},
                 .label = QStringLiteral("lblTeamName"),
                 .labelCaption = QStringLiteral("Team Name:"),
                 .box = QStringLiteral("txtTeamName"),
                 .addTip = QStringLiteral("Add a team"),
                 .editTip = QStringLiteral("Rename the selected team"),
                 .deleteTip = QStringLiteral("Delete the selected team"),
                 .deleteQuestion = QStringLiteral("Are you sure you wish to remove this team?")},
                parent) {
    new KeyPreview(this, KeyPreview::Releases::Pass, [this](int key) { return onKey(key); });
}

bool frmTeamEntry::onKey(int key) {
    if (key == Qt::Key_Escape)
        close();
    else if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    else if (!box().text().trimmed().isEmpty())
        clickAdd();
    return true;
}

void frmTeamEntry::afterAdd() {
    // Ready for the next team.
    box().setFocus();
}

bool frmTeamEntry::FillList() {
    const auto teams = TeamDAO().GetTeamList();
    if (!teams)
        return false;
    list().clear();
    for (qint32 i = 0; i <= teams->LastIndex(); ++i)
        list().AddRow(teams->Item(i)->TeamID, {teams->Item(i)->TeamName});
    return true;
}

bool frmTeamEntry::SaveTeam(qint32 action, const QString& teamKey) {
    return Guarded("SaveTeam", "frmTeamEntry", false, [&] { return save(action, teamKey); });
}

std::optional<EntryForm::Row> frmTeamEntry::addRecord(const QString& name) {
    Team team;
    team.TeamName = name;
    if (!TeamDAO().Save(team))
        return std::nullopt;
    return Row{team.TeamID, {team.TeamName}};
}

bool frmTeamEntry::renameRecord(const QString& key, const QString& name) {
    const auto team = TeamDAO().GetTeam(key);
    if (!team)
        return false;
    team->TeamName = name;
    return TeamDAO().Save(*team);
}

bool frmTeamEntry::deleteRecord(const QString& key) {
    return TeamDAO().Delete(key);
}
