#pragma once

class QApplication;

/// Makes a slip of the hand count once, on every screen:
/// - Enter, Esc and Space count when they are pressed, not while they are held down: a key held too
///   long must not run on into the screen that its first press opened or left, and there answer a
///   question that nobody has read, nor tick and untick a box. In a text, Space repeats as ever.
/// - The second click of a double click on a button goes nowhere, and neither does a press in
///   another window within that time: it was meant for what has just opened or closed.
void InstallInputGuard(QApplication& application);

/// The dynamic property, true, of a button whose every click counts, however fast they come.
inline constexpr const char* EveryClickCounts = "EveryClickCounts";

/// The dynamic property, true, of a window in which Up and Down, held down, count once as well.
inline constexpr const char* HeldArrowsCountOnce = "HeldArrowsCountOnce";
