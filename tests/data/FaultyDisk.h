#pragma once

#include <QDir>
#include <QMap>

/// A disk that fails or loses power on demand. While one lives, it stands between the database
/// engine and the system: the engine's calls that create, write, sync and delete a file are
/// counted, and the one numbered FailAt and the next ones, Times in all, fail with Error. Linux
/// only.
struct FaultyDisk {
    /// Files by name and what they hold.
    using Image = QMap<QString, QByteArray>;

    /// What is in the folder now counts as being on the disk.
    explicit FaultyDisk(const QString& folder);
    ~FaultyDisk();

    /// Counts a call; true when it must fail.
    bool FailsNext();
    void NoteSync(int descriptor);
    /// What would be left if the plug were pulled now: of every file whose name has reached the
    /// disk, what was last synced.
    Image OnDisk() const;

    int FailAt = 0;
    int Times = 0;
    int Error = 0;
    int Calls = 0;
    QList<Image> Pulled; ///< what would be left if the plug were pulled before each of the calls

    QDir Folder;
    QStringList Names;
    Image Synced;
};
