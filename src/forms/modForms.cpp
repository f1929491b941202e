#include "forms/modForms.h"

#include "app/TextBoxFocus.h"
#include "app/frmAbout.h"
#include "app/modCommon.h"
#include "core/Guard.h"
#include "data/Require.h"
#include "data/RoundDAO.h"
#include "data/SummaryDAO.h"
#include "display/Render.h"
#include "display/frmSummary.h"
#include "display/frmViewResults.h"
#include "forms/frmEntry.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"

#include <QApplication>
#include <QPointer>

namespace {

constexpr const char* Component = "modForms";

QPointer<QWidget> theConsole;
QPointer<frmSummary> theBoard;

struct Standings {
    std::unique_ptr<SummaryList> list;
    QString title;
};

// Without the round, or when the standings cannot be had, the list stays empty-handed.
Standings standingsOf(qint32 mode, const QString& roundKey) {
    // Among equal scores, the one with fewer points before doubling comes first.
    constexpr qint32 byScore = 2;
    if (mode == modForms::OverallInWindow || mode == modForms::OverallOnBoard)
        return {SummaryDAO().GetOverallSummary(byScore), QStringLiteral("Rankelo Results")};
    const auto round = RoundDAO().GetRound(roundKey);
    if (!round)
        return {};
    return {SummaryDAO().GetSummaryForRound(roundKey, byScore),
            round->RoundName + QStringLiteral(" Results")};
}

// A board that is still open goes first: each build gets a fresh screen.
void showOnBoard(Standings standings, qint32 revealFrom) {
    delete theBoard;
    theBoard = new frmSummary(theConsole);
    theBoard->Build(
        [board = theBoard.data(), settings = modCommon::AppSettings(),
         list = std::shared_ptr(std::move(standings.list)), title = standings.title,
         revealFrom] { Render(settings).RenderResults(*board, *list, title, revealFrom); });
}

void showInWindow(const Standings& standings) {
    frmViewResults screen(theConsole);
    Render(modCommon::AppSettings()).ViewResults(screen, *standings.list, standings.title);
}

} // namespace

void modForms::SetConsole(QWidget* console) {
    theConsole = console;
}

bool modForms::RoundEntry() {
    return Guarded("RoundEntry", Component, false, [] {
        frmRoundEntry screen(theConsole);
        if (!screen.FillList())
            return false;
        screen.exec();
        return true;
    });
}

bool modForms::TeamEntry() {
    return Guarded("TeamEntry", Component, false, [] {
        frmTeamEntry screen(theConsole);
        if (!screen.FillList())
            return false;
        screen.exec();
        return true;
    });
}

bool modForms::ResultEntry(const QString& roundKey) {
    return Guarded("ResultEntry", Component, false, [&] {
        frmResultEntry screen(theConsole);
        screen.Fill(roundKey);
        screen.exec();
        return true;
    });
}

bool modForms::GetEntry(qint32& score, bool& joker) {
    return ::GetEntry(QApplication::activeModalWidget(), QString(), score, joker);
}

void modForms::ShowAbout() {
    frmAbout::ShowAbout(QApplication::activeWindow());
}

void modForms::ShowSplash() {
    frmAbout::ShowSplash();
}

void modForms::ViewResults(qint32 mode, qint32 revealFrom, const QString& roundKey) {
    Guarded("ViewResults", Component, [&] {
        Standings standings = standingsOf(mode, roundKey);
        if (!standings.list)
            return;
        if (mode == RoundOnBoard || mode == OverallOnBoard)
            showOnBoard(std::move(standings), revealFrom);
        else if (mode == RoundInWindow || mode == OverallInWindow)
            showInWindow(standings);
    });
}

void modForms::FocusGained(QWidget* control) {
    TextBoxFocus::Gained(control);
}

void modForms::FocusLost(QWidget* control) {
    TextBoxFocus::Lost(control);
}
