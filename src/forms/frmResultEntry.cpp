#include "forms/frmResultEntry.h"

#include "app/Messages.h"
#include "app/RecordList.h"
#include "app/Theme.h"
#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/QuizState.h"
#include "data/Require.h"
#include "data/ResultDAO.h"
#include "data/Round.h"
#include "data/TeamDAO.h"
#include "forms/KeyPreview.h"
#include "forms/RoundChooser.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr const char* Component = "frmResultEntry";

enum Column : int { TeamName, Score, Joker, ResultID };

const QString NoScore = QStringLiteral("0");
const QString Played = QStringLiteral("Y");
const QString NotPlayed = QStringLiteral("N");

QIcon enteredIcon() {
    return Theme::RowIcon(QStringLiteral("entered"));
}

// What was entered stands out: a score from the 0 of none, a played joker from the others.
void show(QTreeWidgetItem& row, const QString& score, bool isEntered, bool jokerPlayed) {
    const QPalette palette = row.treeWidget()->palette();
    const QBrush& quiet = palette.brush(QPalette::PlaceholderText);
    row.setText(Score, score);
    row.setForeground(Score, isEntered ? palette.brush(QPalette::Text) : quiet);
    row.setText(Joker, jokerPlayed ? Played : NotPlayed);
    row.setForeground(Joker, jokerPlayed ? palette.brush(QPalette::Text) : quiet);
    QFont font = row.font(Joker);
    font.setBold(jokerPlayed);
    row.setFont(Joker, font);
    row.setData(TeamName, Qt::AccessibleDescriptionRole,
                isEntered ? QString() : QStringLiteral("no result yet"));
}

void showNoResult(QTreeWidgetItem& row) {
    show(row, NoScore, false, false);
}

void showResult(QTreeWidgetItem& row, const Result& result) {
    show(row, QString::number(result.Score), true, result.Joker == 1);
    row.setText(ResultID, result.ResultID);
}

QLabel* label(const QString& name, const QString& caption, QWidget* buddy) {
    auto* control = new QLabel(caption);
    control->setObjectName(name);
    control->setBuddy(buddy);
    buddy->setAccessibleName(caption);
    return control;
}

QLineEdit* counter(const QString& name) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(8 * Theme::Unit);
    return box;
}

} // namespace

frmResultEntry::frmResultEntry(QWidget* parent, AskScore askScore)
    : QDialog(parent)
    , m_askScore(std::move(askScore))
    , m_rounds(new RoundChooser)
    , m_teams(new RecordList(QStringLiteral("lvTeams"),
                             {QStringLiteral("Team Name"), QStringLiteral("Score"),
                              QStringLiteral("Joker"), QStringLiteral("ResultID")}))
    , m_moves(new QLabel)
    , m_outOf(counter(QStringLiteral("txtOutOf")))
    , m_entered(counter(QStringLiteral("txtEntered"))) {
    setObjectName(QStringLiteral("frmResultEntry"));
    setWindowTitle(QStringLiteral("Result Entry"));
    build();
    connect(m_rounds, &RoundChooser::currentIndexChanged, this, &frmResultEntry::changeRound);
    connect(m_rounds, &RoundChooser::picked, m_teams, qOverload<>(&QWidget::setFocus));
    connect(m_teams, &RecordList::itemDoubleClicked, this, &frmResultEntry::editFromSelectedRow);
    new KeyPreview(this, KeyPreview::Releases::Pass,
                   [this](int key, const QKeyEvent&) { return onKey(key); });
}

void frmResultEntry::build() {
    m_moves->setObjectName(QStringLiteral("lblMoves"));
    m_moves->setTextFormat(Qt::PlainText);
    m_moves->setWordWrap(true);
    m_moves->hide();
    m_teams->SetEmptyText(QStringLiteral("No teams yet: add them in Team Entry (F3)"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * Theme::Unit, 2 * Theme::Unit, 2 * Theme::Unit, 2 * Theme::Unit);
    layout->setSpacing(2 * Theme::Unit);
    layout->addWidget(makeRoundFrame());
    layout->addWidget(m_moves);
    layout->addWidget(m_teams, 1);
    layout->addWidget(makeCounters());
    setUpColumns();
    Theme::Resize(*this, 90, 70);
    setTabOrder(m_rounds, m_teams);
    m_teams->setFocus();
}

QWidget* frmResultEntry::makeRoundFrame() {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("fraRound"));
    m_rounds->setMinimumHeight(5 * Theme::Unit);
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::Unit);
    row->addWidget(label(QStringLiteral("lblRoundName"), QStringLiteral("Round Name:"), m_rounds));
    row->addWidget(m_rounds, 1);
    return frame;
}

QWidget* frmResultEntry::makeCounters() {
    auto* frame = new QFrame;
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::Unit);
    row->addWidget(label(QStringLiteral("lblOutOf"), QStringLiteral("Total Teams:"), m_outOf));
    row->addWidget(m_outOf);
    row->addStretch(1);
    row->addWidget(
        label(QStringLiteral("lblEntered"), QStringLiteral("Results Entered:"), m_entered));
    row->addWidget(m_entered);
    return frame;
}

void frmResultEntry::setUpColumns() {
    // The identity of a result tells an operator nothing; the room belongs to the names.
    m_teams->setColumnHidden(ResultID, true);
    m_teams->setAccessibleName(QStringLiteral("Team Name, Score, Joker"));
    QHeaderView* header = m_teams->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(TeamName, QHeaderView::Stretch);
    m_teams->headerItem()->setTextAlignment(Score, Qt::AlignRight | Qt::AlignVCenter);
    m_teams->headerItem()->setTextAlignment(Joker, Qt::AlignCenter);
}

void frmResultEntry::Fill(const QString& roundKey) {
    fillTeams();
    fillRounds(roundKey);
    m_openedRound = m_rounds->SelectedKey();
    if (m_rounds->count() > 0 && readSelectedRound())
        m_entered->setText(QString::number(CountEntries()));
    m_teams->setCurrentItem(m_teams->topLevelItem(0));
}

// False, and told, when the results of the selected round cannot be read. Without knowing them no
// score may be stored: it could go over another one.
bool frmResultEntry::readSelectedRound() {
    if (GetResultsForRound(m_rounds->SelectedKey())) {
        m_shownRound = m_rounds->SelectedKey();
        return true;
    }
    if (m_shownRound.isEmpty())
        for (QTreeWidgetItem* row : m_teams->Rows())
            for (const int column : {Score, Joker})
                row->setText(column, QString());
    Messages::Inform(isVisible() ? this : parentWidget(),
                     QStringLiteral("Operation failed to complete"),
                     QStringLiteral("Rankelo Error"));
    return false;
}

void frmResultEntry::changeRound() {
    if (!readSelectedRound() && !m_shownRound.isEmpty()) {
        const QSignalBlocker quiet(m_rounds);
        m_rounds->setCurrentIndex(m_rounds->findData(m_shownRound));
    }
    tellOfMoves();
}

void frmResultEntry::tellOfMoves() {
    const int opened = m_rounds->findData(m_openedRound);
    m_moves->setText(
        QStringLiteral("Opened on \"%1\": a score typed for a team that has none in this "
                       "round takes the place of its score there. To keep both, close "
                       "and open again.")
            .arg(m_rounds->itemText(opened)));
    m_moves->setVisible(m_rounds->currentIndex() != opened);
}

void frmResultEntry::fillTeams() {
    m_teams->clear();
    const auto teams = TeamDAO().GetTeamList();
    const QIcon notEntered = Theme::RowIcon(QStringLiteral("not-entered"));
    for (const auto& team : Require(teams)) {
        QTreeWidgetItem* row =
            m_teams->AddRow(team->TeamID, {team->TeamName, NoScore, NotPlayed, QString()});
        row->setIcon(TeamName, notEntered);
        row->setTextAlignment(Score, Qt::AlignRight | Qt::AlignVCenter);
        row->setTextAlignment(Joker, Qt::AlignCenter);
    }
    m_outOf->setText(QString::number(m_teams->topLevelItemCount()));
    m_entered->setText(QStringLiteral("0"));
}

void frmResultEntry::fillRounds(const QString& roundKey) {
    const QSignalBlocker quiet(m_rounds);
    m_rounds->Fill([](const Round& round) { return round.RoundName; });
    m_rounds->setCurrentIndex(std::max(m_rounds->findData(roundKey), 0));
}

bool frmResultEntry::GetResultsForRound(const QString& roundKey) {
    return Guarded("GetResultsForRound", Component, false, [&] {
        showResults(roundKey);
        return true;
    });
}

void frmResultEntry::showResults(const QString& roundKey) {
    const auto results = ResultDAO().GetResultList(roundKey, QString());
    QHash<QString, const Result*> byTeam;
    for (const auto& result : Require(results))
        // The first result of a team counts, should a file hold several.
        if (!byTeam.contains(result->TeamID))
            byTeam.insert(result->TeamID, result.get());
    const QIcon entered = enteredIcon();
    for (QTreeWidgetItem* row : m_teams->Rows()) {
        if (const Result* result = byTeam.value(RecordList::KeyOf(*row))) {
            showResult(*row, *result);
            row->setIcon(TeamName, entered);
        } else {
            showNoResult(*row);
        }
    }
}

int frmResultEntry::CountEntries() {
    return Guarded("CountEntries", Component, 0, [&] { return countEntries(); });
}

int frmResultEntry::countEntries() {
    const QIcon entered = enteredIcon();
    int count = 0;
    for (QTreeWidgetItem* row : m_teams->Rows())
        if (!row->text(ResultID).isEmpty()) {
            row->setIcon(TeamName, entered);
            ++count;
        }
    return count;
}

int frmResultEntry::UpdateResult(const QString& roundKey, const QString& teamKey) {
    return Guarded("UpdateResult", Component, 0, [&] { return updateResult(roundKey, teamKey); });
}

ScoreEntry frmResultEntry::entryOf(const QTreeWidgetItem& row, const QString& roundKey) const {
    return {.Team = row.text(TeamName),
            .Round = m_rounds->currentText(),
            .JokerRounds = JokerRoundsBeside(roundKey, RecordList::KeyOf(row)),
            .Score = ToInt32(QStringView(row.text(Score))),
            .Joker = row.text(Joker) == Played};
}

int frmResultEntry::updateResult(const QString& roundKey, const QString& teamKey) {
    QTreeWidgetItem& row = Require(m_teams->RowOf(teamKey));
    ScoreEntry entry = entryOf(row, roundKey);
    if (!m_askScore(this, entry))
        return 0;
    Result result;
    if (const QString stored = row.text(ResultID); !stored.isEmpty())
        result = Require(ResultDAO().GetResult(stored));
    result.Joker = entry.Joker ? 1 : 0;
    result.Score = entry.Score;
    result.TeamID = teamKey;
    result.RoundID = roundKey;
    if (!ResultDAO().Save(result))
        return 0;
    showResult(row, result);
    return entry.Step;
}

// A sheet of scores is typed down the list, or up, without leaving the dialog.
void frmResultEntry::editFromSelectedRow() {
    QTreeWidgetItem* row = m_teams->SelectedRow();
    if (!row || m_rounds->currentIndex() < 0)
        return;
    if (m_shownRound != m_rounds->SelectedKey() && !readSelectedRound())
        return;
    while (row) {
        m_teams->setCurrentItem(row);
        const int step = UpdateResult(m_rounds->SelectedKey(), RecordList::KeyOf(*row));
        m_entered->setText(QString::number(CountEntries()));
        row = step > 0 ? m_teams->itemBelow(row) : step < 0 ? m_teams->itemAbove(row) : nullptr;
    }
}

bool frmResultEntry::onKey(int key) {
    if (key != Qt::Key_Return)
        return false;
    editFromSelectedRow();
    return true;
}
