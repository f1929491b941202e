#include "core/Utilities.h"

#include "core/DateText.h"
#include "core/Guard.h"
#include "core/Numbers.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

namespace {

constexpr const char* Component = "Utilities";

QString digits(qint64 value, int width) {
    return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
}

// The date and time to a hundredth of a second, a number and a random one below the clock's time.
QString newKey(qint32 number) {
    const QDateTime now = QDateTime::currentDateTime();
    const int clock = now.time().toString(u"HHmmss").toInt();
    const auto random = static_cast<qint64>(QRandomGenerator::global()->generateDouble() * clock);
    const QString key = DateText(128, now) + digits(now.time().msec() / 10, 2) + digits(number, 5) +
                        digits(random + 1, 6);
    // Every digit counts, so the number is cut as a text.
    constexpr qsizetype keyLength = 26;
    return key.left(keyLength);
}

QString clockText(qint32 format) {
    QDateTime now = QDateTime::currentDateTime();
    if (!now.isValid())
        now = QDateTime::currentDateTime();
    const QString text = DateText(format, now);
    return text.isEmpty() ? DateText(2, now) : text;
}

} // namespace

QString WithSeparator(const QString& path) {
    const QChar separator = QDir::separator();
    return path.endsWith(separator) ? path : path + separator;
}

QString ApplicationFolder() {
    return WithSeparator(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
}

QString TemporaryFolder() {
    const QString folder = QDir::toNativeSeparators(QDir::tempPath()).trimmed();
    return folder.isEmpty() ? ApplicationFolder() : WithSeparator(folder);
}

QString Utilities::GenerateUnique() {
    return Guarded("GenerateUnique", Component, QString(), [&] {
        m_keyCounter = CheckedAdd(m_keyCounter, 1);
        return newKey(m_keyCounter);
    });
}

QString Utilities::GetDateTime(qint32 format) {
    return Guarded("GetDateTime", Component, QString(), [&] { return clockText(format); });
}

bool Utilities::FileExists(const QString& path) {
    return !path.trimmed().isEmpty() && QFileInfo(path).isFile();
}

QString Utilities::ReturnTempPath() {
    return TemporaryFolder();
}

bool Utilities::OpenFile(const QString& path) {
    return Guarded("OpenFile", Component, false, [&] {
        m_wasTaken = false;
        if (!FileExists(path) || !OpenDocument)
            return false;
        m_wasTaken = OpenDocument(path);
        return true;
    });
}

Utilities& AppUtilities() {
    static Utilities utilities;
    return utilities;
}
