#include "forms/frmRoundEntry.h"

#include "app/InputGuard.h"
#include "app/PictureButton.h"
#include "app/RecordList.h"
#include "app/Theme.h"
#include "core/Guard.h"
#include "data/RoundDAO.h"

#include <QHBoxLayout>

namespace {

constexpr int MoveUp = 0;
constexpr int MoveDown = 1;

using Row = EntryForm::Row;

Row rowOf(const Round& round) {
    return {round.RoundID, {QString::number(round.RoundNumber), round.RoundName}};
}

std::optional<QList<Row>> listRounds() {
    const auto rounds = RoundDAO().GetRoundList();
    if (!rounds)
        return std::nullopt;
    QList<Row> rows;
    for (const auto& round : *rounds)
        rows.append(rowOf(*round));
    return rows;
}

std::optional<Row> addRound(const QString& name) {
    Round round;
    round.RoundName = name;
    if (!RoundDAO().Save(round))
        return std::nullopt;
    return rowOf(round);
}

bool renameRound(const QString& key, const QString& name) {
    const auto round = RoundDAO().GetRound(key);
    if (!round)
        return false;
    round->RoundName = name;
    return RoundDAO().Save(*round);
}

bool removeRound(const QString& key) {
    return RoundDAO().Delete(key);
}

} // namespace

frmRoundEntry::frmRoundEntry(QWidget* parent)
    : EntryForm({.screen = "frmRoundEntry",
                 .saveProcedure = "SaveRound",
                 .caption = QStringLiteral("Round Entry"),
                 .list = QStringLiteral("lvRounds"),
                 .columns = {QStringLiteral("Round"), QStringLiteral("Round Name")},
                 .label = QStringLiteral("lblRoundName"),
                 .labelCaption = QStringLiteral("Round Name:"),
                 .box = QStringLiteral("txtRoundName"),
                 .addTip = QStringLiteral("Add a round"),
                 .editTip = QStringLiteral("Rename the selected round"),
                 .deleteTip = QStringLiteral("Delete the selected round"),
                 .deleteQuestion = QStringLiteral("Are you sure you wish to remove this round?"),
                 .emptyText = QStringLiteral("Type a name and press the plus"),
                 .enterAdds = false},
                {listRounds, addRound, renameRound, removeRound}, parent) {
    addMoveButtons();
}

void frmRoundEntry::addMoveButtons() {
    auto* up = new PictureButton(QStringLiteral("cmdMove_0"), QStringLiteral("move-up"),
                                 QStringLiteral("Move the selected round up"));
    auto* down = new PictureButton(QStringLiteral("cmdMove_1"), QStringLiteral("move-down"),
                                   QStringLiteral("Move the selected round down"));
    for (QWidget* button : {up, down}) // two places at two fast clicks
        button->setProperty(EveryClickCounts, true);
    buttons().addSpacing(Theme::Unit);
    buttons().addWidget(up);
    buttons().addWidget(down);
    setTabOrder(findChild<QWidget*>(QStringLiteral("cmdDelete")), up);
    setTabOrder(down, &list());
    connect(up, &PictureButton::clicked, this, [this] { clickMove(MoveUp); });
    connect(down, &PictureButton::clicked, this, [this] { clickMove(MoveDown); });
}

void frmRoundEntry::clickMove(int index) {
    Guarded("cmdMove_Click", "frmRoundEntry", [&] { move(index); });
}

void frmRoundEntry::move(int index) {
    QTreeWidgetItem* selected = list().SelectedRow();
    if (!selected)
        return;
    const int row = list().indexOfTopLevelItem(selected);
    const int last = list().topLevelItemCount() - 1;
    if (index == MoveDown && row == last)
        return;
    const qint32 direction = index == MoveUp ? RoundDAO::Up : RoundDAO::Down;
    const QString key = RecordList::KeyOf(*selected);
    if (!RoundDAO().Reorder(key, direction))
        return;
    // The same round is selected again, wherever its number has put it.
    if (FillList())
        list().setCurrentItem(list().RowOf(key));
}
