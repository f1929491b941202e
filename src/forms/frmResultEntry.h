#pragma once

#include <QDialog>

#include <functional>

class QLineEdit;
class RecordList;
class RoundChooser;

/// Result entry: all teams in one round. Enter or a double-click asks for the selected team's
/// score, which is saved at once; Esc closes.
class frmResultEntry : public QDialog {
    Q_OBJECT

public:
    /// Runs the score dialog over a screen for a team. True when the operator confirmed; score and
    /// joker then hold the answer, otherwise they stay as they were.
    using AskScore =
        std::function<bool(QWidget* over, const QString& team, qint32& score, bool& joker)>;

    frmResultEntry(QWidget* parent, AskScore askScore);

    /// Fills the screen with all teams and rounds and the stored results of the round with the
    /// key, or of the first round when there is none with it.
    void Fill(const QString& roundKey);

    /// Puts the round's stored results into the rows. A team without one gets 0 and N; its
    /// ResultID and icon stay as they were, so that the screen is to be opened anew for each round.
    void GetResultsForRound(const QString& roundKey);
    /// The number of rows with a stored result; refreshes their icons.
    int CountEntries();
    /// Asks for one team's score and saves it. A failed save leaves the row as it was.
    void UpdateResult(const QString& roundKey, const QString& teamKey);

private:
    void build();
    QWidget* makeRoundFrame();
    QWidget* makeCounters();
    void setUpColumns();
    void fillTeams();
    void fillRounds(const QString& roundKey);
    void showResults(const QString& roundKey);
    void updateResult(const QString& roundKey, const QString& teamKey);
    int countEntries();
    void editSelectedRow();
    bool onKey(int key);

    AskScore m_askScore;
    RoundChooser* m_rounds;
    RecordList* m_teams;
    QLineEdit* m_outOf;
    QLineEdit* m_entered;
};
