#include "core/Numbers.h"

#include "core/RuntimeError.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace {

[[noreturn]] void overflow() {
    throw RuntimeError(ErrorNumber::Overflow, QStringLiteral("Overflow"));
}

} // namespace

std::optional<double> ParseNumber(QStringView text) {
    const QStringView trimmed = text.trimmed();
    // A digit must be there: "inf" and "nan" are no scores.
    bool hasDigit = false;
    for (const QChar c : trimmed)
        hasDigit = hasDigit || c.isDigit();
    if (!hasDigit)
        return std::nullopt;

    for (QLocale locale : {QLocale::c(), QLocale::system()}) {
        locale.setNumberOptions(QLocale::RejectGroupSeparator);
        bool ok = false;
        const double value = locale.toDouble(trimmed, &ok);
        // A number beyond the range of double counts as one; it overflows when it is converted.
        if (ok || std::isinf(value))
            return value;
    }
    return std::nullopt;
}

qint32 ToInt32(double value) {
    // The default rounding mode of the processor rounds halves to even.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<qint32>::min() &&
          rounded <= std::numeric_limits<qint32>::max()))
        overflow();
    return static_cast<qint32>(rounded);
}

double ToNumber(QStringView text) {
    const std::optional<double> number = ParseNumber(text);
    if (!number)
        throw RuntimeError(ErrorNumber::TypeMismatch,
                           QStringLiteral("Type mismatch: \"%1\" is not a number").arg(text));
    return *number;
}

qint32 ToInt32(QStringView text) {
    return ToInt32(ToNumber(text));
}

qint32 ToInt32(const QVariant& value) {
    if (value.isNull())
        throw RuntimeError(ErrorNumber::InvalidUseOfNull, QStringLiteral("Invalid use of Null"));
    switch (value.typeId()) {
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::LongLong: {
        const qlonglong number = value.toLongLong();
        if (number < std::numeric_limits<qint32>::min() ||
            number > std::numeric_limits<qint32>::max())
            overflow();
        return static_cast<qint32>(number);
    }
    case QMetaType::Double:
        return ToInt32(value.toDouble());
    default:
        return ToInt32(QStringView(value.toString()));
    }
}

qint32 CheckedAdd(qint32 a, qint32 b) {
    qint32 sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        overflow();
    return sum;
}

qint32 CheckedMultiply(qint32 a, qint32 b) {
    qint32 product = 0;
    if (__builtin_mul_overflow(a, b, &product))
        overflow();
    return product;
}
