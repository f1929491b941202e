#include "forms/RoundChooser.h"

#include "app/Theme.h"
#include "data/Require.h"
#include "data/RoundDAO.h"

RoundChooser::RoundChooser() {
    setObjectName(QStringLiteral("cboRounds"));
    setIconSize(QSize(Theme::ButtonIcon, Theme::ButtonIcon));
    // A round's name may be longer than the screen is wide.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
}

void RoundChooser::Fill(QString (*caption)(const Round& round)) {
    clear();
    const auto rounds = RoundDAO().GetRoundList();
    const QIcon picture = Theme::RowIcon(QStringLiteral("round"));
    for (const auto& round : Require(rounds))
        addItem(picture, caption(*round), round->RoundID);
}
