#include "forms/frmRoundEntry.h"

#include "app/InputGuard.h"
#include "app/PictureButton.h"
#include "app/Theme.h"
#include "core/Guard.h"
#include "data/RoundDAO.h"
#include "forms/KeyPreview.h"

#include <QHBoxLayout>
#include <QHeaderView>

#include <algorithm>

frmRoundEntry::frmRoundEntry(QWidget* parent)
    : EntryForm({.screen = QStringLiteral("frmRoundEntry"),
                 .caption = QStringLiteral("Round Entry"),
                 .list = QStringLiteral("lvRounds"),
                 .columns = {QStringLiteral("Round"), QStringLiteral("Round Name")},
                 .label = QStringLiteral("lblRoundName"),
                 .labelCaption = QStringLiteral("Round Name:"),
                 .box = QStringLiteral("txtRoundName"),
                 .addTip = QStringLiteral("Add a round"),
                 .editTip = QStringLiteral("Rename the selected round"),
                 .deleteTip = QStringLiteral("Delete the selected round"),
                 .deleteQuestion = QStringLiteral("Are you sure you wish to remove this round?")},
                parent) {
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
    setTabOrder(up, down);
    setTabOrder(down, &list());
    list().header()->resizeSection(0, 10 * Theme::Unit);
    connect(up, &PictureButton::clicked, this, [this] { move(MoveUp); });
    connect(down, &PictureButton::clicked, this, [this] { move(MoveDown); });
    new KeyPreview(this, KeyPreview::Releases::Pass, [this](int key) {
        if (key == Qt::Key_Escape)
            close();
        return key == Qt::Key_Escape;
    });
}

bool frmRoundEntry::FillList() {
    const auto rounds = RoundDAO().GetRoundList();
    if (!rounds)
        return false;
    list().clear();
    for (qint32 i = 0; i <= rounds->LastIndex(); ++i) {
        const Round& round = *rounds->Item(i);
        list().AddRow(round.RoundID, {QString::number(round.RoundNumber), round.RoundName});
    }
    return true;
}

void frmRoundEntry::move(int index) {
    Guarded("cmdMove_Click", "frmRoundEntry", [&] {
        QTreeWidgetItem* selected = list().SelectedRow();
        if (!selected)
            return;
        const int row = list().indexOfTopLevelItem(selected);
        const int last = list().topLevelItemCount() - 1;
        if (index == MoveDown && row == last)
            return;
        const qint32 direction = index == MoveUp ? RoundDAO::Up : RoundDAO::Down;
        if (!RoundDAO().Reorder(RecordList::KeyOf(*selected), direction))
            return;
        const int next = std::clamp(index == MoveUp ? row - 1 : row + 1, 0, last);
        // The same round is selected again; what is typed about it stays in the box.
        const QSignalBlocker quiet(&list());
        if (FillList())
            list().setCurrentItem(list().topLevelItem(next));
    });
}

bool frmRoundEntry::SaveRound(qint32 action, const QString& roundKey) {
    return Guarded("SaveRound", "frmRoundEntry", false, [&] { return save(action, roundKey); });
}

std::optional<EntryForm::Row> frmRoundEntry::addRecord(const QString& name) {
    Round round;
    round.RoundName = name;
    if (!RoundDAO().Save(round))
        return std::nullopt;
    return Row{round.RoundID, {QString::number(round.RoundNumber), round.RoundName}};
}

bool frmRoundEntry::renameRecord(const QString& key, const QString& name) {
    const auto round = RoundDAO().GetRound(key);
    if (!round)
        return false;
    round->RoundName = name;
    return RoundDAO().Save(*round);
}

bool frmRoundEntry::deleteRecord(const QString& key) {
    return RoundDAO().Delete(key);
}
