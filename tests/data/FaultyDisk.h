#pragma once

#include "support/AppFolder.h"

#include <QDir>
#include <QMap>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

/// A disk that fails or loses power on demand. While one lives, it stands between the database
/// engine and the system and counts the engine's calls of one kind: those that read, or those that
/// open a file for writing, write, sync and delete. For one source file on Linux.
struct FaultyDisk {
    enum Kind { Reads, Writes, Others };
    static constexpr int Always = 999;
    static constexpr int UntilReopened = 1000; ///< as long as the handle of the database is old
    using Image = QMap<QString, QByteArray>;   ///< files by name and what they hold

    /// What is in the folder now counts as being on the disk. `times` calls from call `from` on,
    /// the first of which is 1, fail with `error`.
    FaultyDisk(const QString& folder, Kind counted, int from = 1, int times = 0, int error = 0)
        : Folder(folder)
        , Counted(counted)
        , From(from)
        , Times(times)
        , Error(error)
        , Names(Folder.entryList(QDir::Files)) {
        for (const QString& name : std::as_const(Names))
            Synced[name] = ReadFile(Folder.filePath(name));
        Current = this;
    }
    ~FaultyDisk() { Current = nullptr; }

    /// What would be left if the plug were pulled now: of every file whose name has reached the
    /// disk, what was last synced.
    Image OnDisk() const {
        Image image;
        for (const QString& name : Names)
            image[name] = Synced.value(name);
        return image;
    }

    bool Fails(Kind kind) {
        if (kind != Counted)
            return false;
        ++Calls;
        errno = Error;
        return Calls >= From && Calls < From + Times;
    }

    void NoteSync(int descriptor) {
        const QFileInfo file(QFile::symLinkTarget(u"/proc/self/fd/%1"_qs.arg(descriptor)));
        if (file.isDir())
            Names = Folder.entryList(QDir::Files);
        else // this drops the engine's locks, which nobody else asks for
            Synced[file.fileName()] = ReadFile(file.filePath());
    }

    const QDir Folder;
    const Kind Counted;
    const int From;
    int Times;
    const int Error;
    int Calls = 0;
    QStringList Names;
    Image Synced;
    inline static FaultyDisk* Current = nullptr;
};

// Makes a call unless the disk fails it.
template <typename Function, typename... Arguments>
auto Call(const char* name, FaultyDisk::Kind kind, Arguments... arguments) {
    auto* const system = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
    return FaultyDisk::Current && FaultyDisk::Current->Fails(kind) ? -1 : system(arguments...);
}

// The engine's calls find these before the system's own.
extern "C" {

int open64(const char* path, int flags, ...) {
    const auto kind = (flags & O_ACCMODE) == O_RDWR ? FaultyDisk::Writes : FaultyDisk::Others;
    auto* const disk = FaultyDisk::Current;
    if (disk && disk->Times == FaultyDisk::UntilReopened &&
        QLatin1StringView(path).endsWith(u".MDB"))
        disk->Times = 0;
    constexpr mode_t mode = 0600; // of every file that a test makes
    return Call<int(const char*, int, ...)>("open64", kind, path, flags, mode);
}

ssize_t pread64(int file, void* bytes, size_t size, off64_t offset) {
    return Call<decltype(pread64)>("pread64", FaultyDisk::Reads, file, bytes, size, offset);
}

ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
    return Call<decltype(pwrite64)>("pwrite64", FaultyDisk::Writes, file, bytes, size, offset);
}

int fdatasync(int file) {
    const int failed = Call<decltype(fdatasync)>("fdatasync", FaultyDisk::Writes, file);
    if (!failed && FaultyDisk::Current)
        FaultyDisk::Current->NoteSync(file);
    return failed;
}

int unlink(const char* path) noexcept {
    return Call<decltype(unlink)>("unlink", FaultyDisk::Writes, path);
}

} // extern "C"
