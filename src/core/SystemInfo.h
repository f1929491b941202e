#pragma once

#include <QString>

// What only the system itself can tell; one implementation for each system.

/// The version in a file's version block as four numbers joined by "."; empty for a file without
/// one, and on systems that know no such block.
QString FileVersionOf(const QString& path);

/// The system's own folder, without a separator at the end.
QString SystemFolder();

/// Whether standard error leads to a terminal, a file or another program. A program that was
/// started from a menu or by its icon speaks into nothing there, or into the system's journal.
bool IsStandardErrorRead();
