#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QTreeWidgetItem;
class RecordList;

/// Result entry: all teams in one round. Enter or a double-click asks for the selected team's
/// score, which is saved at once; Esc closes.
class frmResultEntry : public QDialog {
    Q_OBJECT

public:
    explicit frmResultEntry(QWidget* parent = nullptr);

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
    QWidget* makeRoundFrame();
    QWidget* makeCounters();
    void fillTeams();
    void fillRounds(const QString& roundKey);
    void editSelectedRow();
    QTreeWidgetItem* rowOf(const QString& teamKey) const;
    bool onKey(int key);

    QComboBox* m_rounds;
    RecordList* m_teams;
    QLineEdit* m_outOf;
    QLineEdit* m_entered;
};
