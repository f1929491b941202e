#pragma once

#include "Evening.h"
#include "app/frmAbout.h"
#include "display/frmOptions.h"
#include "display/frmViewResults.h"
#include "forms/frmEntry.h"
#include "forms/frmMain.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"

#include <QComboBox>

struct ScoreDialog : frmEntry {
    ScoreDialog()
        : frmEntry(nullptr) {
        SetEntry(12, true);
    }
};

struct OptionsScreen : frmOptions {
    OptionsScreen()
        : frmOptions(nullptr, nullptr) {}
};

struct ResultsWindow : frmViewResults {
    ResultsWindow() {
        AddRow("1", "Ants", "14", "Played");
        Control<QComboBox>(*this, "cboPrinter").addItem("Hall");
        Control<QComboBox>(*this, "cboPrinter").setCurrentIndex(0);
    }
};

template <typename Screen>
std::unique_ptr<QWidget> Make() {
    return Filled<Screen>();
}

/// Every screen but the board, filled, and the order in which Tab visits its controls.
inline const struct {
    std::unique_ptr<QWidget> (*Make)();
    const char* TabOrder;
} Screens[] = {
    {Make<frmMain>,
     "cboRounds chkShowAllRound cmdRoundSetup cmdTeamSetup cmdResultsEntry cmdDisplayRound "
     "cmdDisplayLeader cmdViewResults cmdViewLeader cmdConfiguration cmdExit"},
    {Make<frmTeamEntry>, "txtTeamName cmdAdd cmdEdit cmdDelete lvTeams"},
    {Make<frmRoundEntry>, "txtRoundName cmdAdd cmdEdit cmdDelete cmdMove_0 cmdMove_1 lvRounds"},
    {Make<frmResultEntry>, "lvTeams cboRounds"},
    {Make<ScoreDialog>, "txtScore chkJoker cmdOK cmdCancel"},
    {Make<OptionsScreen>,
     "cboDisplayFont cboDisplaySize cmdBackColourA cmdForeColourA cmdBackColourB cmdForeColourB "
     "cmdBackground txtLMargin txtRMargin txtFooter txtCellPadX txtCellPadY txtCellWidth "
     "cmdReset chkDebugMode cmdSave cmdClose cmdAbout"},
    {Make<ResultsWindow>, "lvResults cboPrinter cmdPrint"},
    {Make<frmAbout>, "cmdClose"},
};
