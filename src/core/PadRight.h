#pragma once

#include <QString>

/// The number of characters as a person counts them: a letter and its accents are one.
qsizetype CharacterCount(const QString& text);

/// Makes one column of a fixed-width text line. A text that fits, surrounding blanks aside, is
/// trimmed and padded on the right to `width` characters as a person counts them. A longer one
/// yields its first `width` characters and one blank: one wider than the column, so that it stays
/// apart from the next one. A null text yields blanks. Never fails.
QString PadRight(const QString& text, int width);
