#pragma once

#include <QDateTime>
#include <QString>
#include <QtGlobal>

// Dates as the program writes them, month names in the platform's language.

/// Formats by a code: 1, 2, 4, 8, 16, 32, 64 or 128 (see Utilities::FormatDateTime); empty for any
/// other code.
QString DateText(qint32 format, const QDateTime& value);

/// Reads a date, a time or both in the program's own forms, in ISO form or in the system's; a
/// missing time is midnight. Throws error 13 for any other text.
QDateTime ParseDateText(const QString& text);
