#pragma once

#include <QStringView>
#include <QVariant>
#include <QtGlobal>

#include <optional>

/// The number that a text holds, surrounding blanks aside: a decimal number with optional sign,
/// fraction and exponent, in the C locale or the system's; nothing for any other text.
std::optional<double> ParseNumber(QStringView text);

/// Rounds halves to even. Error 6 when the result does not fit into 32 bits.
qint32 ToInt32(double value);

/// Error 13 for a text that is not a number.
double ToNumber(QStringView text);

/// Error 13 for a text that is not a number, error 6 for one that does not fit.
qint32 ToInt32(QStringView text);

/// A field of the database as a 32-bit integer: error 94 for Null, otherwise as for a text.
qint32 ToInt32(const QVariant& value);

// 32-bit sums, differences and products of scores, settings and positions; error 6 instead of a
// wrapped number.
qint32 CheckedAdd(qint32 a, qint32 b);
qint32 CheckedSubtract(qint32 a, qint32 b);
qint32 CheckedMultiply(qint32 a, qint32 b);
