#include "FaultyDisk.h"

#include "support/AppFolder.h"

#include <QFile>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace {

FaultyDisk* disk = nullptr;

// Makes a call unless the disk fails it.
template <typename Function, typename... Arguments>
auto call(const char* name, bool isCounted, Arguments... arguments) {
    auto* const system = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
    return isCounted && disk && disk->FailsNext() ? -1 : system(arguments...);
}

} // namespace

// The engine's calls find these before the system's own. Opening in order to read is never
// counted: only what changes the disk is.
extern "C" {

int open64(const char* path, int flags, ...) {
    constexpr mode_t mode = 0600; // of every file that a test makes
    const bool isNew = (flags & O_CREAT) != 0 && access(path, F_OK) != 0;
    return call<int(const char*, int, ...)>("open64", isNew, path, flags, mode);
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off64_t offset) {
    return call<decltype(pwrite64)>("pwrite64", true, descriptor, bytes, size, offset);
}

int fdatasync(int descriptor) {
    const int failed = call<decltype(fdatasync)>("fdatasync", true, descriptor);
    if (disk && !failed)
        disk->NoteSync(descriptor);
    return failed;
}

int unlink(const char* path) noexcept {
    return call<decltype(unlink)>("unlink", true, path);
}

} // extern "C"

FaultyDisk::FaultyDisk(const QString& folder)
    : Folder(folder)
    , Names(Folder.entryList(QDir::Files)) {
    for (const QString& name : std::as_const(Names))
        Synced[name] = ReadFile(Folder.filePath(name));
    disk = this;
}

FaultyDisk::~FaultyDisk() {
    disk = nullptr;
}

bool FaultyDisk::FailsNext() {
    ++Calls;
    Pulled.append(OnDisk());
    errno = Error;
    return Calls >= FailAt && Calls < FailAt + Times;
}

void FaultyDisk::NoteSync(int descriptor) {
    const QFileInfo file(QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(descriptor)));
    if (file.isDir())
        Names = Folder.entryList(QDir::Files);
    else // this drops the engine's locks, which nobody else asks for
        Synced[file.fileName()] = ReadFile(file.filePath());
}

FaultyDisk::Image FaultyDisk::OnDisk() const {
    Image image;
    for (const QString& name : Names)
        image[name] = Synced.value(name);
    return image;
}
