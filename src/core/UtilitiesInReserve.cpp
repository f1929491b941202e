// The operations of the utility library that the program itself does not call.

#include "core/DateText.h"
#include "core/Guard.h"
#include "core/IniFile.h"
#include "core/RuntimeError.h"
#include "core/SystemInfo.h"
#include "core/Utilities.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr const char* Component = "Utilities";

[[noreturn]] void fail(ErrorNumber number, const QString& description) {
    throw RuntimeError(number, description);
}

// True unless the action fails.
template <typename Action>
bool succeeds(const char* functionName, Action action) {
    return Guarded(functionName, Component, false, [&] {
        action();
        return true;
    });
}

// Paths of either system are cut, whatever system this is.
qsizetype lastSeparator(const QString& path) {
    return std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
}

void requireFile(const QString& path) {
    if (!QFileInfo(path).isFile())
        fail(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
}

void requireNothingAt(const QString& path) {
    if (QFileInfo::exists(path))
        fail(ErrorNumber::FileExists, QStringLiteral("File already exists"));
}

void createFolder(QString path) {
    if (lastSeparator(path) == path.size() - 1 && path.size() > 1)
        path.chop(1);
    if (QFileInfo(path).isDir())
        return;
    requireNothingAt(path);
    if (!QDir().mkdir(path))
        fail(ErrorNumber::PathNotFound,
             QStringLiteral("Cannot make the folder %1").arg(QDir::toNativeSeparators(path)));
}

void copyFile(const QString& source, const QString& destination) {
    requireFile(source);
    if (QFileInfo(source) == QFileInfo(destination))
        fail(ErrorNumber::PermissionDenied,
             QStringLiteral("Source and destination are the same file"));
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly))
        fail(ErrorNumber::PermissionDenied, from.errorString());
    QSaveFile to(destination);
    if (!to.open(QIODevice::WriteOnly))
        fail(ErrorNumber::PathNotFound, to.errorString());
    // Until nothing comes: a file may hold more than the size that it reports.
    constexpr qint64 chunk = 1 << 20;
    QByteArray bytes;
    do {
        bytes = from.read(chunk);
        if (to.write(bytes) != bytes.size())
            fail(ErrorNumber::DeviceFault, to.errorString());
    } while (!bytes.isEmpty());
    if (from.error() != QFileDevice::NoError)
        fail(ErrorNumber::DeviceFault, from.errorString());
    to.setPermissions(from.permissions());
    if (!to.commit())
        fail(ErrorNumber::DeviceFault, to.errorString());
}

void moveFile(const QString& source, const QString& destination) {
    requireFile(source);
    requireNothingAt(destination);
    QFile file(source);
    if (!file.rename(destination))
        fail(ErrorNumber::PathNotFound, file.errorString());
}

void deleteFile(const QString& path) {
    requireFile(path);
    QFile file(path);
    if (!file.remove())
        fail(ErrorNumber::PermissionDenied, file.errorString());
}

void deleteFolder(const QString& path) {
    QDir folder(path);
    if (!folder.exists())
        fail(ErrorNumber::PathNotFound, QStringLiteral("Path not found"));
    if (!folder.removeRecursively())
        fail(ErrorNumber::PermissionDenied,
             QStringLiteral("Cannot delete all of %1").arg(QDir::toNativeSeparators(path)));
}

// The shared shape of copying and moving: a failure names both files behind its own description.
template <typename Action>
bool transfer(const char* doing, const QString& source, const QString& destination, Action action) {
    return succeeds("CopyFile", [&] {
        try {
            action(source, destination);
        } catch (const RuntimeError& error) {
            const QString both = QStringLiteral("Failed %1 [%2] to [%3]")
                                     .arg(QLatin1StringView(doing), source, destination);
            throw RuntimeError(error.Number(), error.Description() + both);
        }
    });
}

QString formatted(qint32 format, QString text) {
    QDateTime value = ParseDateText(text);
    if (value.time() == QTime(0, 0)) {
        value.setTime(QTime::currentTime());
        text = DateText(2, value);
    }
    const QString result = DateText(format, value);
    return result.isEmpty() ? text : result;
}

} // namespace

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
    return path.left(std::max<qsizetype>(lastSeparator(path), 0));
}

bool Utilities::CreatePath(const QString& path) {
    return succeeds("CreatePath", [&] { createFolder(path); });
}

bool Utilities::CopyFile(const QString& source, const QString& destination) {
    return transfer("copying", source, destination, copyFile);
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
    return succeeds("WriteINIValue", [&] {
        IniFile ini(file);
        ini.SetValue(section, key, value);
        ini.Save();
    });
}

bool Utilities::WriteSection(const QString& file, const QString& section, const QString& text) {
    return succeeds("WriteSection", [&] {
        QList<ItemPair> entries;
        for (const QString& entry : text.split(QChar::Null, Qt::SkipEmptyParts))
            entries.append({entry.section(u'=', 0, 0), entry.section(u'=', 1)});
        IniFile ini(file);
        ini.ReplaceSection(section, entries);
        ini.Save();
    });
}

QString Utilities::FormatDateTime(qint32 format, const QString& value) {
    return Guarded("FormatDateTime", Component, QString(),
                   [&] { return formatted(format, value); });
}

bool Utilities::FileDelete(const QString& path) {
    return !path.trimmed().isEmpty() && succeeds("FileDelete", [&] { deleteFile(path); });
}

bool Utilities::FolderDelete(const QString& path) {
    return !path.trimmed().isEmpty() && succeeds("FolderDelete", [&] { deleteFolder(path); });
}

bool Utilities::DirectoryExists(const QString& path) {
    return QFileInfo(path).isDir();
}

QString Utilities::SystemDirectory() {
    return Guarded("SystemDirectory", Component, QString(), SystemFolder);
}

QDateTime Utilities::getRemoteTOD(const QString&) {
    return Guarded("GetRemoteTOD", Component, QDateTime(),
                   [] { return QDateTime::currentDateTime(); });
}
