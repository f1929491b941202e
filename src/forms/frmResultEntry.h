#pragma once

#include "forms/ScoreEntry.h"

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QTreeWidgetItem;
class RecordList;
class RoundChooser;

/// Result entry: all teams in one round. Enter or a double-click asks for the selected team's
/// score, which is saved at once; Esc closes.
class frmResultEntry : public QDialog {
    Q_OBJECT

public:
    /// Runs the score dialog over a screen. True when the operator confirmed; the entry then holds
    /// the answer.
    using AskScore = std::function<bool(QWidget* over, ScoreEntry& entry)>;

    frmResultEntry(QWidget* parent, AskScore askScore);

    /// Fills the screen with all teams and rounds and the stored results of the round with the
    /// key, or of the first round when there is none with it.
    void Fill(const QString& roundKey);

    /// Puts the round's stored results into the rows. A team without one gets 0 and N; its
    /// ResultID and icon stay as they were, so that the screen is to be opened anew for each round.
    /// False when they cannot be read; the rows then stay as they are.
    bool GetResultsForRound(const QString& roundKey);
    /// The number of rows with a stored result; refreshes their icons.
    int CountEntries();
    /// Asks for one team's score and saves it. Gives the step to the team that the operator wants
    /// to go on with, 0 for none. A failed save leaves the row as it was, and is no step.
    int UpdateResult(const QString& roundKey, const QString& teamKey);

private:
    void build();
    QWidget* makeRoundFrame();
    QWidget* makeCounters();
    void setUpColumns();
    void fillTeams();
    void fillRounds(const QString& roundKey);
    void showResults(const QString& roundKey);
    bool readSelectedRound();
    void changeRound();
    void tellOfMoves();
    ScoreEntry entryOf(const QTreeWidgetItem& row, const QString& roundKey) const;
    int updateResult(const QString& roundKey, const QString& teamKey);
    int countEntries();
    void editFromSelectedRow();
    bool onKey(int key);

    AskScore m_askScore;
    RoundChooser* m_rounds;
    RecordList* m_teams;
    QLabel* m_moves; ///< says what a score does to the round that the screen was opened on
    QString m_openedRound;
    QString m_shownRound; ///< whose results are in the rows; empty when none could be read
    QLineEdit* m_outOf;
    QLineEdit* m_entered;
};
