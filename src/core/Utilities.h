#pragma once

#include "core/ItemPair.h"
#include "core/ObjectMap.h"

#include <QDateTime>
#include <QString>
#include <QtGlobal>

#include <functional>

/// The user's temporary folder, ending in the separator; the application's folder when the system
/// names none. Never fails.
QString TemporaryFolder();

/// The folder of the executable, ending in the separator.
QString ApplicationFolder();

/// The path with the platform's separator at its end, added only when none is there.
QString WithSeparator(const QString& path);

/// File, INI, clock and key services. Every operation reports its own errors to the log and then
/// returns its default: false, an empty text or an empty map. Paths may use either separator.
class Utilities {
public:
    /// A fresh key of 26 digits, the first 14 of them the date and time to the second. Two keys
    /// differ even when they are made in the same instant.
    QString GenerateUnique();
    /// The current date and time in the format of a code (see FormatDateTime).
    QString GetDateTime(qint32 format);
    bool FileExists(const QString& path);
    QString ReturnTempPath();
    /// Asks the desktop to open a file with its program for it. True for an existing file, whatever
    /// the desktop then does.
    bool OpenFile(const QString& path);
    /// Whether the desktop had a program for the file that OpenFile was last asked for.
    bool WasTaken() const { return m_wasTaken; }
    /// How OpenFile asks the desktop, which answers whether it has a program for the file; the
    /// desktop sets it, without one nothing opens.
    std::function<bool(const QString& path)> OpenDocument;

    // In reserve: nothing in the program calls what follows. It completes the library for those
    // who build on it; the code is in UtilitiesInReserve.cpp, and each has its row in
    // CoreTest.

    /// "major.minor.x.y" of a file that carries a version block, otherwise empty.
    QString GetFileVersion(const QString& path);
    /// What follows the last "."; empty without one.
    QString GetFileExtension(const QString& path);
    /// What follows the last separator; empty without one, so for a bare file name.
    QString GetFileFromPath(const QString& path);
    /// What precedes the last separator; empty without one.
    QString GetPathFromFile(const QString& path);
    /// Makes one folder when it does not exist; its parent must.
    bool CreatePath(const QString& path);
    /// Overwrites the destination; a failed copy leaves it as it was.
    bool CopyFile(const QString& source, const QString& destination);
    /// Moves a file, no folder. Fails when the destination exists.
    bool MoveFile(const QString& source, const QString& destination);
    /// The value of a key, at most 254 characters; the default when it is missing or empty.
    QString ReadINIValue(const QString& file, const QString& section, const QString& key,
                         const QString& defaultValue);
    /// Every key of a section; empty when the section is missing.
    std::unique_ptr<ObjectMap<ItemPair>> ReadINISection(const QString& file,
                                                        const QString& section);
    bool WriteINIValue(const QString& file, const QString& section, const QString& key,
                       const QString& value);
    /// Replaces a section by entries of the form key=value, separated by zero characters.
    bool WriteSection(const QString& file, const QString& section, const QString& text);
    /// Formats a date, a time or both, in any of these forms or in ISO form. 1: dd/mmm/yyyy, 2 and
    /// 8: with HH:MM:SS, 4: HH:MM:SS, 16 and 32: the day's start and end, 64: yyyymmdd, 128:
    /// yyyymmddhhmmss; any other code gives the text as it is. A value without a time of day gets
    /// the current one.
    QString FormatDateTime(qint32 format, const QString& value);
    bool FileDelete(const QString& path);
    /// Deletes a folder and all that it contains.
    bool FolderDelete(const QString& path);
    bool DirectoryExists(const QString& path);
    QString SystemDirectory();
    /// This machine's date and time; the server's name is not used.
    QDateTime getRemoteTOD(const QString& server);

private:
    qint32 m_keyCounter = 0;
    bool m_wasTaken = false;
};

/// The one instance, alive until the process ends.
Utilities& AppUtilities();
