#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class RoundChooser;

/// The console: the operator's home for the whole quiz. Every action is a numbered command,
/// run by a button or a function key. It cannot be closed, only left by the exit command.
class frmMain : public QWidget {
    Q_OBJECT

public:
    enum Command : qint32 {
        RoundsSetup = 1,
        TeamsSetup = 2,
        Configuration = 3,
        EnterResults = 4,
        ShowRound = 5,
        ShowOverall = 6,
        ViewRound = 7,
        ViewOverall = 8,
        UserGuide = 9,
        PreviousRound = 12,
        NextRound = 13,
        ExitProgram = 14,
    };

    frmMain();

    /// Runs one command; any other number does nothing.
    void RunCommand(qint32 command);
    /// Refills the round chooser and selects the item at a position counted from 1; -1 selects the
    /// first one.
    void ListRounds(qint32 selectPosition);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void listRounds(qint32 selectPosition);
    void dispatch(qint32 command);
    void runForRound(qint32 command);
    qint32 revealFrom() const;
    void step(int by);
    void askToExit();
    bool onKey(int key, const QKeyEvent& event);
    QWidget* makeTiles();
    QLayout* makeFoot();
    QString status() const;
    void showStatus();
    void say(const QString& text);
    void openGuide();
    void followBoard() const;

    RoundChooser* m_rounds;
    QCheckBox* m_showAll;
    QLabel* m_status;
};
