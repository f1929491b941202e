#include "forms/frmResultEntry.h"

#include "app/RecordList.h"
#include "app/Theme.h"
#include "core/Guard.h"
#include "core/Numbers.h"
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

void markEntered(QTreeWidgetItem& row) {
    row.setIcon(TeamName, Theme::RowIcon(QStringLiteral("entered")));
}

void showResult(QTreeWidgetItem& row, const Result& result) {
    row.setText(Score, QString::number(result.Score));
    row.setText(Joker, result.Joker == 1 ? Played : NotPlayed);
    row.setText(ResultID, result.ResultID);
    markEntered(row);
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
    , m_outOf(counter(QStringLiteral("txtOutOf")))
    , m_entered(counter(QStringLiteral("txtEntered"))) {
    setObjectName(QStringLiteral("frmResultEntry"));
    setWindowTitle(QStringLiteral("Result Entry"));
    build();
    connect(m_rounds, &RoundChooser::currentIndexChanged, this,
            [this] { GetResultsForRound(m_rounds->SelectedKey()); });
    connect(m_teams, &RecordList::itemDoubleClicked, this, &frmResultEntry::editSelectedRow);
    new KeyPreview(this, KeyPreview::Releases::Pass, [this](int key) { return onKey(key); });
}

void frmResultEntry::build() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * Theme::Unit, 2 * Theme::Unit, 2 * Theme::Unit, 2 * Theme::Unit);
    layout->setSpacing(2 * Theme::Unit);
    layout->addWidget(makeRoundFrame());
    layout->addWidget(m_teams, 1);
    layout->addWidget(makeCounters());
    setUpColumns();
    resize(90 * Theme::Unit, 70 * Theme::Unit);
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
    QHeaderView* header = m_teams->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(TeamName, QHeaderView::Stretch);
    m_teams->headerItem()->setTextAlignment(Score, Qt::AlignRight | Qt::AlignVCenter);
    m_teams->headerItem()->setTextAlignment(Joker, Qt::AlignCenter);
    for (const int column : {Score, Joker}) {
        header->setSectionResizeMode(column, QHeaderView::Fixed);
        header->resizeSection(column, 12 * Theme::Unit);
    }
}

void frmResultEntry::Fill(const QString& roundKey) {
    fillTeams();
    fillRounds(roundKey);
    if (m_rounds->count() > 0) {
        GetResultsForRound(m_rounds->SelectedKey());
        m_entered->setText(QString::number(CountEntries()));
    }
    m_teams->setCurrentItem(m_teams->topLevelItem(0));
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

void frmResultEntry::GetResultsForRound(const QString& roundKey) {
    Guarded("GetResultsForRound", Component, [&] { showResults(roundKey); });
}

void frmResultEntry::showResults(const QString& roundKey) {
    const auto results = ResultDAO().GetResultList(roundKey, QString());
    QHash<QString, const Result*> byTeam;
    for (const auto& result : Require(results))
        // The first result of a team counts, should a file hold several.
        if (!byTeam.contains(result->TeamID))
            byTeam.insert(result->TeamID, result.get());
    for (QTreeWidgetItem* row : m_teams->Rows()) {
        if (const Result* result = byTeam.value(RecordList::KeyOf(*row))) {
            showResult(*row, *result);
        } else {
            row->setText(Score, NoScore);
            row->setText(Joker, NotPlayed);
        }
    }
}

int frmResultEntry::CountEntries() {
    return Guarded("CountEntries", Component, 0, [&] { return countEntries(); });
}

int frmResultEntry::countEntries() {
    int count = 0;
    for (QTreeWidgetItem* row : m_teams->Rows())
        if (!row->text(ResultID).isEmpty()) {
            markEntered(*row);
            ++count;
        }
    return count;
}

void frmResultEntry::UpdateResult(const QString& roundKey, const QString& teamKey) {
    Guarded("UpdateResult", Component, [&] { updateResult(roundKey, teamKey); });
}

void frmResultEntry::updateResult(const QString& roundKey, const QString& teamKey) {
    QTreeWidgetItem& row = Require(m_teams->RowOf(teamKey));
    qint32 score = ToInt32(QStringView(row.text(Score)));
    bool joker = row.text(Joker) == Played;
    if (!m_askScore(this, row.text(TeamName), score, joker))
        return;
    Result result;
    if (const QString stored = row.text(ResultID); !stored.isEmpty())
        result = Require(ResultDAO().GetResult(stored));
    result.Joker = joker ? 1 : 0;
    result.Score = score;
    result.TeamID = teamKey;
    result.RoundID = roundKey;
    if (ResultDAO().Save(result))
        showResult(row, result);
}

void frmResultEntry::editSelectedRow() {
    const QTreeWidgetItem* row = m_teams->SelectedRow();
    if (!row || m_rounds->currentIndex() < 0)
        return;
    UpdateResult(m_rounds->SelectedKey(), RecordList::KeyOf(*row));
    m_entered->setText(QString::number(CountEntries()));
}

bool frmResultEntry::onKey(int key) {
    if (key == Qt::Key_Escape)
        close();
    else if (key == Qt::Key_Return)
        editSelectedRow();
    else
        return false;
    return true;
}
