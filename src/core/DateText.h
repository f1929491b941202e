#pragma once

#include <QDateTime>
#include <QString>
#include <QtGlobal>

// Dates as the program writes them, month names in the platform's language.

/// Formats by a code: 1, 2, 4, 8, 16, 32, 64 or 128 (see Utilities::FormatDateTime); empty for any
/// other code.
QString DateText(qint32 format, const QDateTime& value);

/// Reads what DateText writes, and ISO dates with or without a time; a missing time is midnight, a
/// missing date today. The result knows no time zone: every time of day exists on every day. Throws
/// error 13 for any other text.
QDateTime ParseDateText(const QString& text);
