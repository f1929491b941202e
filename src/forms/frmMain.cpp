#include "forms/frmMain.h"

#include "app/Messages.h"
#include "app/Theme.h"
#include "app/TileButton.h"
#include "app/modCommon.h"
#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/ProductInfo.h"
#include "core/Utilities.h"
#include "data/Require.h"
#include "data/RoundDAO.h"
#include "display/frmOptions.h"
#include "forms/KeyPreview.h"
#include "forms/modForms.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>

#include <algorithm>

namespace {

constexpr const char* Component = "frmMain";
constexpr qint32 NoPreference = -1;

struct Key {
    int code;
    qint32 command;
};
constexpr Key Keys[] = {
    {Qt::Key_F1, frmMain::UserGuide},       {Qt::Key_F2, frmMain::RoundsSetup},
    {Qt::Key_F3, frmMain::TeamsSetup},      {Qt::Key_F4, frmMain::PreviousRound},
    {Qt::Key_F5, frmMain::NextRound},       {Qt::Key_F6, frmMain::EnterResults},
    {Qt::Key_F7, frmMain::ShowRound},       {Qt::Key_F8, frmMain::ShowOverall},
    {Qt::Key_Escape, frmMain::ExitProgram},
};

// Where a tile stands. The rows follow the evening: set up, enter and the rest above, show and
// view below; empty columns part the groups.
struct Tile {
    const char *name, *icon, *caption, *toolTip, *key;
    qint32 command;
    int row, column, columns;
};
constexpr Tile Tiles[] = {
    {"cmdRoundSetup", "rounds-setup", "Rounds Setup", "[F2] Add, Edit & Delete Rounds", "F2",
     frmMain::RoundsSetup, 0, 0, 1},
    {"cmdTeamSetup", "teams-setup", "Teams Setup", "[F3] Enter, Edit & Delete Teams", "F3",
     frmMain::TeamsSetup, 0, 1, 1},
    {"cmdResultsEntry", "results-entry", "Enter Results", "[F6] Enter Results for a Round", "F6",
     frmMain::EnterResults, 0, 3, 2},
    {"cmdDisplayRound", "show-round", "Show Round", "[F7] Display Results for Selected Round", "F7",
     frmMain::ShowRound, 1, 0, 1},
    {"cmdDisplayLeader", "show-leader", "Show Rankelo", "[F8] Display Results for Selected Round",
     "F8", frmMain::ShowOverall, 1, 1, 1},
    {"cmdViewResults", "view-round", "View Round", "View results in a Window", "",
     frmMain::ViewRound, 1, 3, 1},
    {"cmdViewLeader", "view-leader", "View Rankelo", "Add, Edit & Delete Rounds", "",
     frmMain::ViewOverall, 1, 4, 1},
    {"cmdConfiguration", "configuration", "Configuration", "Application Configuration", "",
     frmMain::Configuration, 0, 6, 1},
    {"cmdExit", "exit", "Exit Application", "Exit Application", "Esc", frmMain::ExitProgram, 1, 6,
     1},
};
constexpr int GapColumns[] = {2, 5};

} // namespace

frmMain::frmMain()
    : m_rounds(new QComboBox)
    , m_showAll(new QCheckBox(QStringLiteral("Show All Rankings"))) {
    setObjectName(QStringLiteral("frmMain"));
    build();
    modForms::SetConsole(this);
    new KeyPreview(this, KeyPreview::Releases::Swallow, [this](int key) { return onKey(key); });
    ListRounds(NoPreference);
    setWindowTitle(
        QStringLiteral("%1 - [%2]")
            .arg(QLatin1StringView(ProductInfo::Name), QLatin1StringView(ProductInfo::Version)));
}

void frmMain::build() {
    m_rounds->setObjectName(QStringLiteral("cboRounds"));
    m_rounds->setAccessibleName(QStringLiteral("Round"));
    m_rounds->setIconSize(QSize(Theme::ButtonIcon, Theme::ButtonIcon));
    m_rounds->setMinimumHeight(6 * Theme::Unit);
    // A round's name may be longer than the screen is wide.
    m_rounds->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_showAll->setObjectName(QStringLiteral("chkShowAllRound"));
    // What every round begins with is read from a step away.
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * 1.4);
    m_rounds->setFont(large);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(3 * Theme::Unit, 3 * Theme::Unit, 3 * Theme::Unit, 3 * Theme::Unit);
    grid->setSpacing(Theme::Unit);
    grid->addWidget(m_rounds, 0, 0, 1, 5);
    grid->addWidget(m_showAll, 0, 6);
    grid->setRowMinimumHeight(1, Theme::Unit);
    constexpr int firstTileRow = 2;
    for (const Tile& tile : Tiles) {
        auto* button =
            new TileButton(QString::fromLatin1(tile.name), QString::fromLatin1(tile.icon),
                           QString::fromLatin1(tile.caption), QString::fromLatin1(tile.toolTip),
                           QString::fromLatin1(tile.key));
        grid->addWidget(button, firstTileRow + tile.row, tile.column, 1, tile.columns);
        connect(button, &TileButton::clicked, this, [this, &tile] { RunCommand(tile.command); });
    }
    for (int column = 0; column < grid->columnCount(); ++column)
        grid->setColumnStretch(column, 1);
    for (const int column : GapColumns) {
        grid->setColumnStretch(column, 0);
        grid->setColumnMinimumWidth(column, Theme::Unit);
    }
    grid->setRowStretch(firstTileRow, 1);
    grid->setRowStretch(firstTileRow + 1, 1);
    m_rounds->setFocus();
}

void frmMain::ListRounds(qint32 selectPosition) {
    Guarded("ListRounds", Component, [&] {
        m_rounds->clear();
        const auto list = RoundDAO().GetRoundList();
        const ObjectList<Round>& rounds = Require(list);
        const QIcon picture = Theme::RowIcon(QStringLiteral("round"));
        for (qint32 i = 0; i <= rounds.LastIndex(); ++i) {
            const Round& round = *rounds.Item(i);
            m_rounds->addItem(picture,
                              u'[' + QString::number(round.RoundNumber) + QStringLiteral("] ") +
                                  round.RoundName,
                              round.RoundID);
        }
        const bool anyway = selectPosition == NoPreference && m_rounds->count() > 0;
        m_rounds->setCurrentIndex(anyway ? 0 : std::max(selectPosition, 0) - 1);
    });
}

void frmMain::RunCommand(qint32 command) {
    Guarded("RunCommand", Component, [&] { dispatch(command); });
}

void frmMain::dispatch(qint32 command) {
    switch (command) {
    case RoundsSetup:
        if (modForms::RoundEntry())
            ListRounds(NoPreference);
        break;
    case TeamsSetup:
        modForms::TeamEntry();
        break;
    case Configuration:
        frmOptions(this, [](QWidget*) { modForms::ShowAbout(); }).exec();
        break;
    case EnterResults:
    case ShowRound:
    case ViewRound:
        runForRound(command);
        break;
    case ShowOverall:
        modForms::ViewResults(modForms::OverallOnBoard, revealFrom(), QString());
        break;
    case ViewOverall:
        modForms::ViewResults(modForms::OverallInWindow, revealFrom(), QString());
        break;
    case UserGuide:
        AppUtilities().OpenFile(Paths().AppPath + QStringLiteral("Rankelo.PDF"));
        break;
    case PreviousRound:
        step(-1);
        break;
    case NextRound:
        step(+1);
        break;
    case ExitProgram:
        askToExit();
        break;
    default:
        break;
    }
}

// 4 keeps places 1 to 3 hidden until the operator reveals them; 0 shows every line at once.
qint32 frmMain::revealFrom() const {
    return m_showAll->isChecked() ? 0 : 4;
}

void frmMain::runForRound(qint32 command) {
    if (m_rounds->currentIndex() < 0) {
        Messages::Inform(this, QStringLiteral("You need to select a round"),
                         QStringLiteral("Rankelo Invalid Entry"));
        return;
    }
    const QString round = m_rounds->currentData().toString();
    if (command == EnterResults)
        modForms::ResultEntry(round);
    else if (command == ShowRound)
        modForms::ViewResults(modForms::RoundOnBoard, revealFrom(), round);
    else
        modForms::ViewResults(modForms::RoundInWindow, revealFrom(), round);
}

void frmMain::step(int by) {
    const int wanted = m_rounds->currentIndex() + by;
    if (wanted >= 0 && wanted < m_rounds->count())
        m_rounds->setCurrentIndex(wanted);
}

void frmMain::askToExit() {
    const auto answer =
        Messages::Ask(this, QStringLiteral("Are you sure you wish to exit?"),
                      QStringLiteral("Exit Application"), QMessageBox::Yes, QMessageBox::No);
    if (answer == QMessageBox::Yes)
        modCommon::ExitApp();
}

bool frmMain::onKey(int key) {
    const auto* known = std::ranges::find(Keys, key, &Key::code);
    if (known == std::end(Keys))
        return false;
    RunCommand(known->command);
    return true;
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->ignore();
}
