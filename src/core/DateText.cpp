#include "core/DateText.h"

#include "core/RuntimeError.h"

#include <QLocale>
#include <QStringList>

QString DateText(qint32 format, const QDateTime& value) {
    // Only the month's name is the language's; digits are everybody's.
    const auto day = [&] {
        const QDate date = value.date();
        return date.toString(u"dd/") +
               QLocale::system().monthName(date.month(), QLocale::ShortFormat) +
               date.toString(u"/yyyy");
    };
    const auto time = [&] { return value.time().toString(u"HH:mm:ss"); };
    switch (format) {
    case 1:
        return day();
    case 2:
    case 8:
        return day() + u' ' + time();
    case 4:
        return time();
    case 16:
        return day() + QStringLiteral(" 00:00:00");
    case 32:
        return day() + QStringLiteral(" 23:59:59");
    case 64:
        return value.date().toString(u"yyyyMMdd");
    case 128:
        return value.toString(u"yyyyMMddHHmmss");
    default:
        return {};
    }
}

QDateTime ParseDateText(const QString& text) {
    const QString trimmed = text.trimmed();
    const QLocale locale = QLocale::system();
    for (const char16_t* time : {u"", u" HH:mm:ss", u" HH:mm"})
        for (const char16_t* day : {u"dd/MMM/yyyy", u"d/M/yyyy", u"yyyy-MM-dd"}) {
            const QString form = QString::fromUtf16(day) + QString::fromUtf16(time);
            if (const QDateTime value = locale.toDateTime(trimmed, form); value.isValid())
                return value;
        }
    if (const QDateTime value = QDateTime::fromString(trimmed, Qt::ISODate); value.isValid())
        return value;
    for (const char16_t* form : {u"HH:mm:ss", u"HH:mm"})
        if (const QTime time = QTime::fromString(trimmed, QString::fromUtf16(form)); time.isValid())
            return {QDate::currentDate(), time};
    for (const QLocale::FormatType type : {QLocale::ShortFormat, QLocale::LongFormat}) {
        if (const QDateTime value = locale.toDateTime(trimmed, type); value.isValid())
            return value;
        if (const QDate value = locale.toDate(trimmed, type); value.isValid())
            return value.startOfDay();
    }
    throw RuntimeError(ErrorNumber::TypeMismatch,
                       QStringLiteral("Type mismatch: \"%1\" is not a date").arg(text));
}
