#include "forms/modForms.h"

#include "app/frmAbout.h"
#include "app/modCommon.h"
#include "core/Guard.h"
#include "data/Require.h"
#include "data/RoundDAO.h"
#include "data/SummaryDAO.h"
#include "display/Render.h"
#include "display/frmOptions.h"
#include "display/frmSummary.h"
#include "display/frmViewResults.h"
#include "forms/frmEntry.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"

#include <QPointer>

namespace {

constexpr const char* Component = "modForms";

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
void showOnBoard(const QWidget* console, Standings standings, qint32 revealFrom) {
    delete theBoard;
    theBoard = new frmSummary(console);
    theBoard->Build(
        [board = theBoard.data(), settings = modCommon::AppSettings(),
         list = std::shared_ptr(std::move(standings.list)), title = standings.title,
         revealFrom] { Render(settings).RenderResults(*board, *list, title, revealFrom); });
}

void showInWindow(QWidget* console, const Standings& standings) {
    frmViewResults screen(console);
    Render(modCommon::AppSettings()).ViewResults(screen, *standings.list, standings.title);
}

void viewResults(QWidget* console, qint32 mode, qint32 revealFrom, const QString& roundKey) {
    Standings standings = standingsOf(mode, roundKey);
    if (!standings.list)
        return;
    if (mode == modForms::RoundOnBoard || mode == modForms::OverallOnBoard)
        showOnBoard(console, std::move(standings), revealFrom);
    else if (mode == modForms::RoundInWindow || mode == modForms::OverallInWindow)
        showInWindow(console, standings);
}

template <typename Screen>
bool runEntry(QWidget* console) {
    Screen screen(console);
    if (!screen.FillList())
        return false;
    screen.exec();
    return true;
}

} // namespace

bool modForms::RoundEntry(QWidget* console) {
    return Guarded("RoundEntry", Component, false,
                   [&] { return runEntry<frmRoundEntry>(console); });
}

bool modForms::TeamEntry(QWidget* console) {
    return Guarded("TeamEntry", Component, false, [&] { return runEntry<frmTeamEntry>(console); });
}

bool modForms::ResultEntry(QWidget* console, const QString& roundKey) {
    return Guarded("ResultEntry", Component, false, [&] {
        frmResultEntry screen(console, GetEntry);
        screen.Fill(roundKey);
        screen.exec();
        return true;
    });
}

bool modForms::GetEntry(QWidget* over, ScoreEntry& entry) {
    return Guarded("GetEntry", Component, false, [&] {
        frmEntry dialog(over, entry);
        dialog.exec();
        if (dialog.Answer() != u"OK")
            return false;
        entry.Score = dialog.Score();
        entry.Joker = dialog.Joker();
        entry.Step = dialog.Step();
        return true;
    });
}

frmSummary* modForms::OpenBoard() {
    return theBoard && theBoard->isVisible() ? theBoard.data() : nullptr;
}

void modForms::Options(QWidget* console) {
    Guarded("Options", Component, [&] { frmOptions(console, ShowAbout).exec(); });
}

void modForms::ShowAbout(QWidget* over) {
    Guarded("ShowAbout", Component, [&] { frmAbout(over).exec(); });
}

void modForms::ShowSplash() {
    Guarded("ShowSplash", Component, [] { frmAbout().RunAsSplash(); });
}

void modForms::ViewResults(QWidget* console, qint32 mode, qint32 revealFrom,
                           const QString& roundKey) {
    Guarded("ViewResults", Component, [&] { viewResults(console, mode, revealFrom, roundKey); });
}
