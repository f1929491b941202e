#include "core/DateText.h"

#include "core/RuntimeError.h"

#include <QLocale>

QString DateText(qint32 format, const QDateTime& value) {
    // Only the month's name is the language's; digits are everybody's.
    const QDate date = value.date();
    const QString day = date.toString(u"dd/") +
                        QLocale::system().monthName(date.month(), QLocale::ShortFormat) +
                        date.toString(u"/yyyy");
    const QString time = value.time().toString(u"HH:mm:ss");
    switch (format) {
    case 1:
        return day;
    case 2:
    case 8:
        return day + u' ' + time;
    case 4:
        return time;
    case 16:
        return day + QStringLiteral(" 00:00:00");
    case 32:
        return day + QStringLiteral(" 23:59:59");
    case 64:
        return date.toString(u"yyyyMMdd");
    case 128:
        return value.toString(u"yyyyMMddHHmmss");
    default:
        return {};
    }
}

QDateTime ParseDateText(const QString& text) {
    const QString trimmed = text.trimmed();
    if (const QTime time = QTime::fromString(trimmed, u"HH:mm:ss"); time.isValid())
        return {QDate::currentDate(), time, Qt::UTC};
    // A day and the time behind it are read apart: together they would be an hour of this place,
    // and the hour that summer time skips is none.
    const std::pair<const char16_t*, QStringView> forms[] = {
        {u"dd/MMM/yyyy", {}}, {u"dd/MMM/yyyy", u" HH:mm:ss"},
        {u"yyyyMMdd", {}},    {u"yyyyMMdd", u"HHmmss"},
        {u"yyyy-MM-dd", {}},  {u"yyyy-MM-dd", u"THH:mm:ss"},
    };
    for (const auto& [dayForm, timeForm] : forms) {
        const qsizetype dayLength = trimmed.size() - timeForm.size();
        const QDate day =
            QLocale::system().toDate(trimmed.left(dayLength), QString::fromUtf16(dayForm));
        const QTime time =
            timeForm.isEmpty() ? QTime(0, 0) : QTime::fromString(trimmed.mid(dayLength), timeForm);
        if (day.isValid() && time.isValid())
            return {day, time, Qt::UTC};
    }
    throw RuntimeError(ErrorNumber::TypeMismatch,
                       QStringLiteral("Type mismatch: \"%1\" is not a date").arg(text));
}
