#include "forms/frmMain.h"

#include "app/Desktop.h"
#include "app/ElidedLabel.h"
#include "app/Messages.h"
#include "app/Theme.h"
#include "app/TileButton.h"
#include "app/modCommon.h"
#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/ProductInfo.h"
#include "core/Utilities.h"
#include "data/QuizState.h"
#include "data/Round.h"
#include "display/frmSummary.h"
#include "forms/KeyPreview.h"
#include "forms/RoundChooser.h"
#include "forms/modForms.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeySequence>

#include <algorithm>

namespace {

constexpr const char* Component = "frmMain";
constexpr qint32 NoPreference = -1;
constexpr int NoKey = 0;

struct KnownCommand {
    int key;
    qint32 command;
    // The tile, for the commands that have one, and its place in the grid.
    const char *name = nullptr, *icon = nullptr, *caption = nullptr, *toolTip = nullptr;
    int row = 0, column = 0, columns = 1;
};
// Tab visits the tiles in this order. Their rows follow the quiz: set up, enter and the rest above,
// show and view below.
constexpr KnownCommand Commands[] = {
    {Qt::Key_F2, frmMain::RoundsSetup, "cmdRoundSetup", "rounds-setup", "Rounds Setup",
     "[F2] Add, Edit & Delete Rounds", 0, 0},
    {Qt::Key_F3, frmMain::TeamsSetup, "cmdTeamSetup", "teams-setup", "Teams Setup",
     "[F3] Enter, Edit & Delete Teams", 0, 1},
    {Qt::Key_F6, frmMain::EnterResults, "cmdResultsEntry", "results-entry", "Enter Results",
     "[F6] Enter Results for a Round", 0, 2, 2},
    {Qt::Key_F7, frmMain::ShowRound, "cmdDisplayRound", "show-round", "Show Round",
     "[F7] Display Results for Selected Round", 1, 0},
    {Qt::Key_F8, frmMain::ShowOverall, "cmdDisplayLeader", "show-leader", "Show Rankelo",
     "[F8] Display Results for Selected Round", 1, 1},
    {NoKey, frmMain::ViewRound, "cmdViewResults", "view-round", "View Round",
     "View results in a Window", 1, 2},
    {NoKey, frmMain::ViewOverall, "cmdViewLeader", "view-leader", "View Rankelo",
     "Add, Edit & Delete Rounds", 1, 3},
    {NoKey, frmMain::Configuration, "cmdConfiguration", "configuration", "Configuration",
     "Application Configuration", 0, 4},
    {Qt::Key_Escape, frmMain::ExitProgram, "cmdExit", "exit", "Exit Application",
     "Exit Application", 1, 4},
    {Qt::Key_F1, frmMain::UserGuide},
    {Qt::Key_F4, frmMain::PreviousRound},
    {Qt::Key_F5, frmMain::NextRound},
};

// "[3] Music".
QString numberedName(const Round& round) {
    return u'[' + QString::number(round.RoundNumber) + QStringLiteral("] ") + round.RoundName;
}

} // namespace

frmMain::frmMain()
    : m_rounds(new RoundChooser)
    , m_showAll(new QCheckBox(QStringLiteral("Show All Rankings")))
    , m_status(new ElidedLabel) {
    setObjectName(QStringLiteral("frmMain"));
    build();
    new KeyPreview(this, KeyPreview::Releases::Swallow,
                   [this](int key, const QKeyEvent& event) { return onKey(key, event); });
    ListRounds(NoPreference);
    showStatus();
    setWindowTitle(
        QStringLiteral("%1 - [%2]")
            .arg(QLatin1StringView(ProductInfo::Name), QLatin1StringView(ProductInfo::Version)));
}

void frmMain::build() {
    m_showAll->setObjectName(QStringLiteral("chkShowAllRound"));
    // What every round begins with is read from a step away.
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * 1.4);
    m_rounds->setFont(large);
    m_rounds->setMinimumHeight(std::max(6 * Theme::Unit, m_rounds->sizeHint().height()));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(3 * Theme::Unit, 3 * Theme::Unit, 3 * Theme::Unit, 2 * Theme::Unit);
    layout->setSpacing(Theme::Unit);
    // The room that the tiles do not take lies around them.
    constexpr int nearlyAll = 1000;
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(makeTiles(), nearlyAll);
    row->addStretch(1);
    layout->addStretch(1);
    layout->addLayout(row, nearlyAll);
    layout->addStretch(1);
    layout->addLayout(makeFoot());
}

// Tiles of one size with equal gutters, which stay a size that the eye takes in at once, however
// large the window is.
QWidget* frmMain::makeTiles() {
    auto* tiles = new QWidget;
    tiles->setMaximumSize(150 * Theme::Unit, 64 * Theme::Unit);
    auto* grid = new QGridLayout(tiles);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(Theme::Unit);
    grid->addWidget(m_rounds, 0, 0, 1, 4);
    m_rounds->SetSpokenName(QStringLiteral("Round"));
    grid->addWidget(m_showAll, 0, 4, Qt::AlignCenter);
    int width = m_showAll->sizeHint().width();
    for (const KnownCommand& tile : Commands) {
        if (!tile.name)
            continue;
        auto* button =
            new TileButton(QString::fromLatin1(tile.name), QString::fromLatin1(tile.icon),
                           QString::fromLatin1(tile.caption), QString::fromLatin1(tile.toolTip),
                           QKeySequence(tile.key).toString());
        width = std::max(width, button->sizeHint().width());
        grid->addWidget(button, 1 + tile.row, tile.column, 1, tile.columns);
        grid->setRowStretch(1 + tile.row, 1);
        connect(button, &TileButton::clicked, this, [this, &tile] { RunCommand(tile.command); });
    }
    for (int column = 0; column < grid->columnCount(); ++column) {
        grid->setColumnStretch(column, 1);
        grid->setColumnMinimumWidth(column, width);
    }
    return tiles;
}

QLayout* frmMain::makeFoot() {
    auto* foot = new QHBoxLayout;
    m_status->setObjectName(QStringLiteral("lblStatus"));
    m_status->setProperty(IsStatus, true);
    auto* guide = new QLabel(QStringLiteral("F1 user guide"));
    guide->setObjectName(QStringLiteral("lblGuide"));
    foot->addWidget(m_status, 1);
    foot->addWidget(guide);
    connect(m_rounds, &RoundChooser::currentIndexChanged, this, &frmMain::showStatus);
    return foot;
}

// What the quiz waits for, or what stands on the wall.
QString frmMain::status() const {
    if (const frmSummary* board = modForms::OpenBoard()) {
        QString text =
            QStringLiteral("On the wall: %1 (3, 2, 1 reveal, Esc closes)").arg(board->Heading());
        const auto [outside, fittingSize] = board->LinesOutside();
        if (outside > 0)
            text += (outside == 1 ? QStringLiteral("; 1 team does not fit, ")
                                  : QStringLiteral("; %1 teams do not fit, ").arg(outside)) +
                    (fittingSize > 0 ? QStringLiteral("%1 points would").arg(fittingSize)
                                     : QStringLiteral("no size of the list would"));
        return text;
    }
    const auto quiz = CountQuiz(m_rounds->SelectedKey());
    if (!quiz)
        return {};
    if (quiz->Rounds == 0)
        return QStringLiteral("No rounds yet: press F2");
    if (quiz->Teams == 0)
        return QStringLiteral("No teams yet: press F3");
    return QStringLiteral("Round %1 of %2: %3 of %4 results entered")
        .arg(m_rounds->currentIndex() + 1)
        .arg(quiz->Rounds)
        .arg(quiz->Entered)
        .arg(quiz->Teams);
}

void frmMain::showStatus() {
    say(status());
}

void frmMain::say(const QString& text) {
    if (text == m_status->text())
        return;
    m_status->setText(text);
    m_status->setAccessibleName(text); // says it to a screen reader as well
}

void frmMain::openGuide() {
    const QString guide = Paths().AppPath + QStringLiteral("Rankelo.PDF");
    if (!AppUtilities().OpenFile(guide) || !AppUtilities().WasTaken())
        say(QStringLiteral("Nothing here opens the user guide. It belongs in ") + guide);
}

void frmMain::ListRounds(qint32 selectPosition) {
    Guarded("ListRounds", Component, [&] { listRounds(selectPosition); });
}

void frmMain::listRounds(qint32 selectPosition) {
    const QSignalBlocker quiet(m_rounds); // the status is read once, when the rounds are there
    m_rounds->Fill(numberedName);
    const int wanted = selectPosition == NoPreference ? 0 : std::max(selectPosition, 0) - 1;
    m_rounds->setCurrentIndex(wanted);
}

void frmMain::RunCommand(qint32 command) {
    Guarded("RunCommand", Component, [&] { dispatch(command); });
}

void frmMain::dispatch(qint32 command) {
    switch (command) {
    case RoundsSetup:
        if (modForms::RoundEntry(this))
            ListRounds(NoPreference);
        break;
    case TeamsSetup:
        modForms::TeamEntry(this);
        break;
    case Configuration:
        modForms::Options(this);
        break;
    case EnterResults:
    case ShowRound:
    case ViewRound:
        runForRound(command);
        break;
    case ShowOverall:
        modForms::ViewResults(this, modForms::OverallOnBoard, revealFrom(), QString());
        break;
    case ViewOverall:
        modForms::ViewResults(this, modForms::OverallInWindow, revealFrom(), QString());
        break;
    case UserGuide:
        openGuide();
        return;
    case PreviousRound:
        step(-1);
        return;
    case NextRound:
        step(+1);
        return;
    case ExitProgram:
        askToExit();
        break;
    default:
        return;
    }
    followBoard();
    showStatus();
}

// The status says what stands on the wall from the moment the board is there until it closes.
void frmMain::followBoard() const {
    const frmSummary* board = modForms::OpenBoard();
    if (!board)
        return;
    connect(board, &frmSummary::built, this, &frmMain::showStatus, Qt::UniqueConnection);
    // Queued: it is told while the board is still being taken apart.
    connect(board, &QObject::destroyed, this, &frmMain::showStatus,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection));
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
    const QString round = m_rounds->SelectedKey();
    if (command == EnterResults)
        modForms::ResultEntry(this, round);
    else if (command == ShowRound)
        modForms::ViewResults(this, modForms::RoundOnBoard, revealFrom(), round);
    else
        modForms::ViewResults(this, modForms::RoundInWindow, revealFrom(), round);
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

bool frmMain::onKey(int key, const QKeyEvent& event) {
    // On some desktops the keyboard stays here when the board opens.
    if (frmSummary* board = modForms::OpenBoard())
        board->Reveal(event);
    const auto* known = std::ranges::find(Commands, key, &KnownCommand::key);
    // A key that the keyboard does not name has no code either.
    if (key == NoKey || known == std::end(Commands))
        return false;
    RunCommand(known->command);
    return true;
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->ignore();
}
