#include "Bench.h"

#include "data/SummaryDAO.h"
#include "display/frmViewResults.h"
#include "forms/frmResultEntry.h"
#include "forms/frmTeamEntry.h"
#include "support/AppFolder.h"

#include <QApplication>

namespace {

constexpr int Few = 250;
constexpr int Many = 2000;

void showIt(QWidget& screen) {
    screen.show();
    QApplication::processEvents();
}

void openTeams() {
    frmTeamEntry screen;
    screen.FillList();
    showIt(screen);
}

void openResults() {
    frmResultEntry screen(nullptr, nullptr);
    screen.Fill(QStringLiteral("r1"));
    showIt(screen);
}

void openStandings() {
    frmViewResults screen;
    const auto list = SummaryDAO().GetOverallSummary(2);
    for (qint32 i = 0; i <= list->LastIndex(); ++i) {
        const Summary& row = *list->Item(i);
        screen.AddRow(QString::number(row.Position), row.TeamName, QString::number(row.Score), {});
    }
    showIt(screen);
}

void fill(const AppFolder& folder, int teams) {
    RunForeign(folder.DatabasePath(),
               {QStringLiteral("INSERT INTO Rounds VALUES ('r1','Round',1,20)"),
                QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n "
                               "WHERE i<%1) INSERT INTO Teams SELECT 't'||i,'Team '||i FROM n")
                    .arg(teams),
                QStringLiteral("INSERT INTO Results SELECT 's'||TeamID,'r1',TeamID,7,0 "
                               "FROM Teams")});
}

} // namespace

void BenchScreens() {
    const struct {
        const char* what;
        void (*open)();
    } screens[] = {{"team entry", openTeams},
                   {"result entry", openResults},
                   {"standings in a window", openStandings}};
    const AppFolder smallHall;
    const AppFolder largeHall;
    fill(smallHall, Few);
    fill(largeHall, Many);
    for (const auto& screen : screens)
        PrintRow(QStringLiteral("%1, one team among %2, among %3")
                     .arg(QLatin1StringView(screen.what))
                     .arg(Many)
                     .arg(Few),
                 CompareFixtures({largeHall, Many}, {smallHall, Few}, 20, screen.open), Many, 1.5);
}
