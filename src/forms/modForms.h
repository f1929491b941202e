#pragma once

#include <QString>
#include <QtGlobal>

class QWidget;
class frmSummary;
struct ScoreEntry;

/// The one way in which every screen is opened. A procedure that fails reports it to the log,
/// answers false or nothing, and leaves the screen that called it usable.
namespace modForms {

enum ViewMode : qint32 {
    RoundInWindow = 1,
    OverallInWindow = 2,
    RoundOnBoard = 3,
    OverallOnBoard = 4,
};

// `console` is the screen that the others are opened over, and whose display the board leaves to
// the operator.

/// Opens the round entry screen and waits until it is closed.
bool RoundEntry(QWidget* console);
/// Opens the team entry screen and waits until it is closed.
bool TeamEntry(QWidget* console);
/// Opens the result entry screen on a round, the first one when the key matches none, and waits
/// until it is closed.
bool ResultEntry(QWidget* console, const QString& roundKey);
/// Runs the score dialog over a screen. True when the operator confirmed; the entry then holds the
/// answer, otherwise it stays as it was.
bool GetEntry(QWidget* over, ScoreEntry& entry);
/// The board that is open; null without one.
frmSummary* OpenBoard();
/// Opens the settings of the board and waits until they are closed.
void Options(QWidget* console);
/// Shows the about box over a screen and waits until it is closed.
void ShowAbout(QWidget* over);
/// Shows the splash screen for its two seconds.
void ShowSplash();
/// Shows standings in a window, and waits until it is closed, or on the board. `revealFrom` is 0 to
/// show every line of the board at once, 4 to keep the podium hidden. Shows nothing for an unknown
/// round or without standings.
void ViewResults(QWidget* console, qint32 mode, qint32 revealFrom, const QString& roundKey);

} // namespace modForms
