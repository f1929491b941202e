#pragma once

class QApplication;

/// Lets Enter and Esc count only when they are pressed, not while they are held down: a key held
/// too long must not run on into the screen that its first press opened or left, and there answer
/// a question that nobody has read.
void IgnoreHeldKeys(QApplication& application);
