#include "core/Utilities.h"

#include "core/DateText.h"
#include "core/Guard.h"
#include "core/IniFile.h"
#include "core/Numbers.h"
#include "core/RuntimeError.h"
#include "core/SystemInfo.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSaveFile>

namespace {

constexpr const char* Component = "Utilities";

QString native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

// Paths of either system are cut, whatever system this is.
qsizetype lastSeparator(const QString& path) {
    return std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
}

void copyContents(const QString& source, const QString& destination) {
    QFile from(source);
    if (!from.exists())
        throw RuntimeError(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
    if (QFileInfo(source) == QFileInfo(destination))
        throw RuntimeError(ErrorNumber::PermissionDenied,
                           QStringLiteral("Source and destination are the same file"));
    QSaveFile to(destination);
    if (!from.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorNumber::PermissionDenied, from.errorString());
    if (!to.open(QIODevice::WriteOnly))
        throw RuntimeError(ErrorNumber::PathNotFound, to.errorString());
    constexpr qint64 chunk = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray bytes = from.read(chunk);
        if (bytes.isEmpty() || to.write(bytes) != bytes.size())
            throw RuntimeError(ErrorNumber::DeviceFault,
                               bytes.isEmpty() ? from.errorString() : to.errorString());
    }
    to.setPermissions(from.permissions());
    if (!to.commit())
        throw RuntimeError(ErrorNumber::DeviceFault, to.errorString());
}

void moveFile(const QString& source, const QString& destination) {
    QFile file(source);
    if (!file.exists())
        throw RuntimeError(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
    if (QFileInfo::exists(destination))
        throw RuntimeError(ErrorNumber::FileExists, QStringLiteral("File already exists"));
    if (!file.rename(destination))
        throw RuntimeError(ErrorNumber::PathNotFound, file.errorString());
}

// The shared shape of copying and moving: a failure names both files behind its own description.
template <typename Action>
bool transfer(const char* doing, const QString& source, const QString& destination, Action action) {
    return Guarded("CopyFile", Component, false, [&] {
        try {
            action(source, destination);
        } catch (const RuntimeError& error) {
            throw RuntimeError(error.Number(),
                               error.Description() +
                                   QStringLiteral("Failed %1 [%2] to [%3]")
                                       .arg(QLatin1StringView(doing), source, destination));
        }
        return true;
    });
}

} // namespace

QString WithSeparator(const QString& path) {
    const QChar separator = QDir::separator();
    return path.endsWith(separator) ? path : path + separator;
}

QString ApplicationFolder() {
    return WithSeparator(native(QCoreApplication::applicationDirPath()));
}

QString TemporaryFolder() {
    const QString folder = native(QDir::tempPath()).trimmed();
    return folder.isEmpty() ? ApplicationFolder() : WithSeparator(folder);
}

QString Utilities::GetFileVersion(const QString& path) {
    return Guarded("GetFileVersion", Component, QString(), [&] { return FileVersionOf(path); });
}

QString Utilities::GetFileExtension(const QString& path) {
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot < 0 ? QString() : path.mid(dot + 1);
}

QString Utilities::GetFileFromPath(const QString& path) {
    const qsizetype separator = lastSeparator(path);
    return separator < 0 ? QString() : path.mid(separator + 1);
}

QString Utilities::GetPathFromFile(const QString& path) {
    const qsizetype separator = lastSeparator(path);
    return separator < 0 ? QString() : path.left(separator);
}

bool Utilities::CreatePath(const QString& path) {
    return Guarded("CreatePath", Component, false, [&] {
        QString folder = path;
        if (lastSeparator(folder) == folder.size() - 1 && folder.size() > 1)
            folder.chop(1);
        if (QFileInfo(folder).isDir())
            return true;
        if (QFileInfo::exists(folder))
            throw RuntimeError(ErrorNumber::FileExists, QStringLiteral("File already exists"));
        if (!QDir().mkdir(folder))
            throw RuntimeError(ErrorNumber::PathNotFound,
                               QStringLiteral("Cannot make the folder %1").arg(native(folder)));
        return true;
    });
}

bool Utilities::CopyFile(const QString& source, const QString& destination) {
    return transfer("copying", source, destination, copyContents);
}

bool Utilities::MoveFile(const QString& source, const QString& destination) {
    return transfer("moving", source, destination, moveFile);
}

QString Utilities::ReadINIValue(const QString& file, const QString& section, const QString& key,
                                const QString& defaultValue) {
    return Guarded("GetINIValue", Component, QString(), [&] {
        const QString value = IniFile(file).Value(section, key);
        return value.isEmpty() ? defaultValue : value;
    });
}

std::unique_ptr<ObjectMap<ItemPair>> Utilities::ReadINISection(const QString& file,
                                                               const QString& section) {
    auto map = std::make_unique<ObjectMap<ItemPair>>();
    Guarded("ReadINISection", Component, [&] {
        for (const ItemPair& pair : IniFile(file).Section(section))
            map->Add(pair.Key, std::make_shared<ItemPair>(pair));
    });
    return map;
}

bool Utilities::WriteINIValue(const QString& file, const QString& section, const QString& key,
                              const QString& value) {
    return Guarded("WriteINIValue", Component, false, [&] {
        IniFile ini(file);
        ini.SetValue(section, key, value);
        ini.Save();
        return true;
    });
}

bool Utilities::WriteSection(const QString& file, const QString& section, const QString& text) {
    return Guarded("WriteSection", Component, false, [&] {
        QList<ItemPair> entries;
        for (const QString& entry : text.split(QChar::Null, Qt::SkipEmptyParts))
            entries.append({entry.section(u'=', 0, 0), entry.section(u'=', 1)});
        IniFile ini(file);
        ini.ReplaceSection(section, entries);
        ini.Save();
        return true;
    });
}

QString Utilities::GenerateUnique() {
    return Guarded("GenerateUnique", Component, QString(), [&] {
        const QDateTime now = QDateTime::currentDateTime();
        const QDate day = now.date();
        const QTime time = now.time();
        const auto digits = [](qint64 value, int width) {
            return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
        };
        const int clock = time.hour() * 10000 + time.minute() * 100 + time.second();
        const qint64 date = day.year() * 10000 + day.month() * 100 + day.day();
        m_keyCounter = CheckedAdd(m_keyCounter, 1);
        const auto random =
            static_cast<qint64>(QRandomGenerator::global()->generateDouble() * clock + 1);
        const QString key = digits(date * 1000000 + clock, 14) + digits(time.msec() / 10, 2) +
                            digits(m_keyCounter, 5) + digits(random, 6);
        // Every digit counts, so the number is cut as a text.
        constexpr qsizetype keyLength = 26;
        return key.left(keyLength);
    });
}

QString Utilities::GetDateTime(qint32 format) {
    return Guarded("GetDateTime", Component, QString(), [&] {
        QDateTime now = QDateTime::currentDateTime();
        if (!now.isValid())
            now = QDateTime::currentDateTime();
        const QString text = DateText(format, now);
        return text.isEmpty() ? DateText(2, now) : text;
    });
}

QString Utilities::FormatDateTime(qint32 format, const QString& value) {
    return Guarded("FormatDateTime", Component, QString(), [&] {
        QString text = value;
        QDateTime date = ParseDateText(value);
        if (date.time() == QTime(0, 0)) {
            date.setTime(QTime::currentTime());
            text = DateText(2, date);
        }
        const QString formatted = DateText(format, date);
        return formatted.isEmpty() ? text : formatted;
    });
}

bool Utilities::FileExists(const QString& path) {
    return Guarded("FileExists", Component, false,
                   [&] { return !path.trimmed().isEmpty() && QFileInfo(path).isFile(); });
}

bool Utilities::FileDelete(const QString& path) {
    return Guarded("FileDelete", Component, false, [&] {
        if (path.trimmed().isEmpty())
            return false;
        QFile file(path);
        if (!file.exists())
            throw RuntimeError(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
        if (!file.remove())
            throw RuntimeError(ErrorNumber::PermissionDenied, file.errorString());
        return true;
    });
}

bool Utilities::FolderDelete(const QString& path) {
    return Guarded("FolderDelete", Component, false, [&] {
        if (path.trimmed().isEmpty())
            return false;
        QDir folder(path);
        if (!folder.exists())
            throw RuntimeError(ErrorNumber::PathNotFound, QStringLiteral("Path not found"));
        if (!folder.removeRecursively())
            throw RuntimeError(ErrorNumber::PermissionDenied,
                               QStringLiteral("Cannot delete all of %1").arg(native(path)));
        return true;
    });
}

bool Utilities::DirectoryExists(const QString& path) {
    return Guarded("DirectoryExists", Component, false,
                   [&] { return !path.trimmed().isEmpty() && QFileInfo(path).isDir(); });
}

QString Utilities::SystemDirectory() {
    return Guarded("SystemDirectory", Component, QString(), [] { return SystemFolder(); });
}

QString Utilities::ReturnTempPath() {
    return Guarded("ReturnTempPath", Component, QString(), [] { return TemporaryFolder(); });
}

QDateTime Utilities::getRemoteTOD(const QString&) {
    return Guarded("GetRemoteTOD", Component, QDateTime(),
                   [] { return QDateTime::currentDateTime(); });
}

bool Utilities::OpenFile(const QString& path) {
    return Guarded("OpenFile", Component, false, [&] {
        if (!FileExists(path) || !OpenDocument)
            return false;
        OpenDocument(path);
        return true;
    });
}

Utilities& AppUtilities() {
    static Utilities utilities;
    return utilities;
}
