#include "core/Numbers.h"

#include "core/RuntimeError.h"

#include <QLocale>

#include <cmath>
#include <limits>
#include <utility>

namespace {

[[noreturn]] void overflow() {
    throw RuntimeError(ErrorNumber::Overflow, QStringLiteral("Overflow"));
}

qint32 narrow(qint64 value) {
    if (!std::in_range<qint32>(value))
        overflow();
    return static_cast<qint32>(value);
}

} // namespace

std::optional<double> ParseNumber(QStringView text) {
    for (QLocale locale : {QLocale::c(), QLocale::system()}) {
        locale.setNumberOptions(QLocale::RejectGroupSeparator);
        bool ok = false;
        const double value = locale.toDouble(text.trimmed(), &ok);
        // The words "inf" and "nan" are read as well, but are no scores. A number beyond the range
        // of double is not read, but is one: it overflows when it is converted.
        if (ok == std::isfinite(value))
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
    if (value.typeId() == QMetaType::LongLong)
        return narrow(value.toLongLong());
    return ToInt32(QStringView(value.toString()));
}

qint32 CheckedAdd(qint32 a, qint32 b) {
    return narrow(qint64{a} + b);
}

qint32 CheckedSubtract(qint32 a, qint32 b) {
    return narrow(qint64{a} - b);
}

qint32 CheckedMultiply(qint32 a, qint32 b) {
    return narrow(qint64{a} * b);
}
