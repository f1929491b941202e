#pragma once

#include <QString>

/// Makes one column of a fixed-width text line. A text that fits, surrounding blanks aside, is
/// trimmed and padded on the right to `width` characters as a person counts them. A longer one
/// yields its first `width` characters and one blank: one wider than the column, so that it stays
/// apart from the next one. A null text yields blanks. Never fails.
QString PadRight(const QString& text, int width);
