#include "forms/frmResultEntry.h"

#include "app/RecordList.h"
#include "app/Theme.h"
#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/Require.h"
#include "data/ResultDAO.h"
#include "data/RoundDAO.h"
#include "data/TeamDAO.h"
#include "forms/KeyPreview.h"
#include "forms/frmEntry.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr const char* Component = "frmResultEntry";

enum Column : int { TeamName, Score, Joker, ResultID };

const QString Played = QStringLiteral("Y");
const QString NotPlayed = QStringLiteral("N");

QString jokerText(bool played) {
    return played ? Played : NotPlayed;
}

void showResult(QTreeWidgetItem& row, const Result& result) {
    row.setText(Score, QString::number(result.Score));
    row.setText(Joker, jokerText(result.Joker == 1));
    row.setText(ResultID, result.ResultID);
}

QIcon enteredIcon() {
    return Theme::RowIcon(QStringLiteral("entered"));
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

frmResultEntry::frmResultEntry(QWidget* parent)
    : QDialog(parent)
    , m_rounds(new QComboBox)
    , m_teams(new RecordList(QStringLiteral("lvTeams"),
                             {QStringLiteral("Team Name"), QStringLiteral("Score"),
                              QStringLiteral("Joker"), QStringLiteral("ResultID")}))
    , m_outOf(counter(QStringLiteral("txtOutOf")))
    , m_entered(counter(QStringLiteral("txtEntered"))) {
    setObjectName(QStringLiteral("frmResultEntry"));
    setWindowTitle(QStringLiteral("Result Entry"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * Theme::Unit, 2 * Theme::Unit, 2 * Theme::Unit, 2 * Theme::Unit);
    layout->setSpacing(2 * Theme::Unit);
    layout->addWidget(makeRoundFrame());
    layout->addWidget(m_teams, 1);
    layout->addWidget(makeCounters());
    resize(90 * Theme::Unit, 70 * Theme::Unit);
    setTabOrder(m_rounds, m_teams);
    m_teams->setFocus();

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

    connect(m_rounds, &QComboBox::currentIndexChanged, this,
            [this] { GetResultsForRound(m_rounds->currentData().toString()); });
    connect(m_teams, &RecordList::itemDoubleClicked, this, [this] { editSelectedRow(); });
    new KeyPreview(this, KeyPreview::Releases::Pass, [this](int key) { return onKey(key); });
}

QWidget* frmResultEntry::makeRoundFrame() {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("fraRound"));
    m_rounds->setObjectName(QStringLiteral("cboRounds"));
    m_rounds->setMinimumHeight(5 * Theme::Unit);
    // A round's name may be longer than the screen is wide.
    m_rounds->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_rounds->setIconSize(QSize(Theme::ButtonIcon, Theme::ButtonIcon));
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

void frmResultEntry::Fill(const QString& roundKey) {
    fillTeams();
    fillRounds(roundKey);
    if (m_rounds->count() > 0) {
        GetResultsForRound(m_rounds->currentData().toString());
        m_entered->setText(QString::number(CountEntries()));
    }
    m_teams->setCurrentItem(m_teams->topLevelItem(0));
}

void frmResultEntry::fillTeams() {
    m_teams->clear();
    const auto list = TeamDAO().GetTeamList();
    const ObjectList<Team>& teams = Require(list);
    const QIcon notEntered = Theme::RowIcon(QStringLiteral("not-entered"));
    for (qint32 i = 0; i <= teams.LastIndex(); ++i) {
        const Team& team = *teams.Item(i);
        QTreeWidgetItem* row = m_teams->AddRow(
            team.TeamID, {team.TeamName, QStringLiteral("0"), NotPlayed, QString()});
        row->setIcon(TeamName, notEntered);
        row->setTextAlignment(Score, Qt::AlignRight | Qt::AlignVCenter);
        row->setTextAlignment(Joker, Qt::AlignCenter);
    }
    m_outOf->setText(QString::number(teams.LastIndex() + 1));
    m_entered->setText(QStringLiteral("0"));
}

void frmResultEntry::fillRounds(const QString& roundKey) {
    const QSignalBlocker quiet(m_rounds);
    m_rounds->clear();
    const auto list = RoundDAO().GetRoundList();
    const ObjectList<Round>& rounds = Require(list);
    const QIcon picture = Theme::RowIcon(QStringLiteral("round"));
    for (qint32 i = 0; i <= rounds.LastIndex(); ++i)
        m_rounds->addItem(picture, rounds.Item(i)->RoundName, rounds.Item(i)->RoundID);
    const int wanted = m_rounds->findData(roundKey);
    m_rounds->setCurrentIndex(wanted < 0 && m_rounds->count() > 0 ? 0 : wanted);
}

void frmResultEntry::GetResultsForRound(const QString& roundKey) {
    Guarded("GetResultsForRound", Component, [&] {
        const auto list = ResultDAO().GetResultList(roundKey, QString());
        const ObjectList<Result>& results = Require(list);
        const QIcon entered = enteredIcon();
        // The first result of a team counts, should a file hold several.
        QHash<QString, const Result*> byTeam;
        for (qint32 i = results.LastIndex(); i >= 0; --i)
            byTeam.insert(results.Item(i)->TeamID, results.Item(i).get());
        for (int i = 0; i < m_teams->topLevelItemCount(); ++i) {
            QTreeWidgetItem& row = *m_teams->topLevelItem(i);
            if (const Result* result = byTeam.value(RecordList::KeyOf(row))) {
                showResult(row, *result);
                row.setIcon(TeamName, entered);
            } else {
                row.setText(Score, QStringLiteral("0"));
                row.setText(Joker, NotPlayed);
            }
        }
    });
}

int frmResultEntry::CountEntries() {
    return Guarded("CountEntries", Component, 0, [&] {
        const QIcon entered = enteredIcon();
        int count = 0;
        for (int i = 0; i < m_teams->topLevelItemCount(); ++i) {
            QTreeWidgetItem& row = *m_teams->topLevelItem(i);
            if (row.text(ResultID).isEmpty())
                continue;
            row.setIcon(TeamName, entered);
            ++count;
        }
        return count;
    });
}

QTreeWidgetItem* frmResultEntry::rowOf(const QString& teamKey) const {
    for (int i = 0; i < m_teams->topLevelItemCount(); ++i)
        if (RecordList::KeyOf(*m_teams->topLevelItem(i)) == teamKey)
            return m_teams->topLevelItem(i);
    return nullptr;
}

void frmResultEntry::UpdateResult(const QString& roundKey, const QString& teamKey) {
    Guarded("UpdateResult", Component, [&] {
        QTreeWidgetItem& row = Require(rowOf(teamKey));
        qint32 score = ToInt32(QStringView(row.text(Score)));
        bool joker = row.text(Joker) == Played;
        if (!GetEntry(this, row.text(TeamName), score, joker))
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
    });
}

void frmResultEntry::editSelectedRow() {
    const QTreeWidgetItem* row = m_teams->SelectedRow();
    if (!row || m_rounds->currentIndex() < 0)
        return;
    UpdateResult(m_rounds->currentData().toString(), RecordList::KeyOf(*row));
    m_entered->setText(QString::number(CountEntries()));
}

bool frmResultEntry::onKey(int key) {
    if (key == Qt::Key_Escape)
        close();
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        editSelectedRow();
    else
        return false;
    return true;
}
