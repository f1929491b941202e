#pragma once

#include <QString>
#include <QtGlobal>

class QWidget;

/// The one way in which every screen is opened. A procedure that fails reports it to the log,
/// answers false or nothing, and leaves the screen that called it usable.
namespace modForms {

enum ViewMode : qint32 {
    RoundInWindow = 1,
    OverallInWindow = 2,
    RoundOnBoard = 3,
    OverallOnBoard = 4,
};

/// The screen that all others are opened over; null for none.
void SetConsole(QWidget* console);

/// Opens the round entry screen and waits until it is closed.
bool RoundEntry();
/// Opens the team entry screen and waits until it is closed.
bool TeamEntry();
/// Opens the result entry screen on a round, the first one when the key matches none, and waits
/// until it is closed.
bool ResultEntry(const QString& roundKey);
/// Runs the score dialog over the screen in use; see GetEntry in frmEntry.h.
bool GetEntry(qint32& score, bool& joker);
/// Shows the about box and waits until it is closed.
void ShowAbout();
/// Shows the splash screen for its two seconds.
void ShowSplash();
/// Shows standings in a window, and waits until it is closed, or on the board. `revealFrom` is 0 to
/// show every line of the board at once, 4 to keep the podium hidden. Shows nothing for an unknown
/// round or without standings.
void ViewResults(qint32 mode, qint32 revealFrom, const QString& roundKey);

// What a text box does when it is entered and left; see TextBoxFocus.
void FocusGained(QWidget* control);
void FocusLost(QWidget* control);

} // namespace modForms
