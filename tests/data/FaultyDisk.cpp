#include "FaultyDisk.h"

#include <QDir>
#include <QFile>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>

namespace {

struct State {
    QString folder;           // empty: nothing is watched
    QMap<int, QString> open;  // descriptors of files in the folder, and of the folder itself
    FaultyDisk::Image synced; // contents as of the last sync
    QStringList names;        // directory entries that have reached the disk
    int calls = 0;
    int failAt = 0;
    int failures = 0; // still to come
    int error = 0;
    bool hasFailed = false;
    int cutAt = 0;
    std::optional<FaultyDisk::Image> cut;
};

State& state() {
    static State& instance = *new State;
    return instance;
}

QStringList entries() {
    return QDir(state().folder).entryList(QDir::Files | QDir::Hidden);
}

bool isWatched(const QString& path) {
    return !state().folder.isEmpty() && path.startsWith(state().folder);
}

// Counts one call; true when it must fail, with errno set.
bool fails() {
    State& disk = state();
    ++disk.calls;
    if (disk.calls == disk.cutAt)
        disk.cut = FaultyDisk::OnDisk();
    if (disk.failAt == 0 || disk.calls < disk.failAt || disk.failures == 0)
        return false;
    --disk.failures;
    disk.hasFailed = true;
    errno = disk.error;
    return true;
}

bool fails(int descriptor) {
    return !state().folder.isEmpty() && state().open.contains(descriptor) && fails();
}

QByteArray contents(int descriptor) {
    struct stat status {};
    fstat(descriptor, &status);
    QByteArray bytes(status.st_size, '\0');
    bytes.resize(pread(descriptor, bytes.data(), static_cast<size_t>(bytes.size()), 0));
    return bytes;
}

template <typename Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// The engine's calls find these before the system's own. Opening in order to read is never
// counted: only what changes the disk is.
extern "C" {

int open64(const char* path, int flags, ...) {
    static auto* const next = real<int(const char*, int, ...)>("open64");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const QString name = QFile::decodeName(path);
    if (!isWatched(name))
        return next(path, flags, mode);
    if ((flags & O_CREAT) != 0 && !QFile::exists(name) && fails())
        return -1;
    const int descriptor = next(path, flags, mode);
    state().open.insert(descriptor,
                        QFileInfo(name).isDir() ? QString() : QFileInfo(name).fileName());
    return descriptor;
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off64_t offset) {
    static auto* const next = real<ssize_t(int, const void*, size_t, off64_t)>("pwrite64");
    return fails(descriptor) ? -1 : next(descriptor, bytes, size, offset);
}

int ftruncate64(int descriptor, off64_t size) noexcept {
    static auto* const next = real<int(int, off64_t)>("ftruncate64");
    return fails(descriptor) ? -1 : next(descriptor, size);
}

int fdatasync(int descriptor) {
    static auto* const next = real<int(int)>("fdatasync");
    if (fails(descriptor))
        return -1;
    State& disk = state();
    if (const auto file = disk.open.constFind(descriptor); file != disk.open.constEnd()) {
        if (file->isEmpty())
            disk.names = entries();
        else
            disk.synced[*file] = contents(descriptor);
    }
    return next(descriptor);
}

int unlink(const char* path) noexcept {
    static auto* const next = real<int(const char*)>("unlink");
    return isWatched(QFile::decodeName(path)) && fails() ? -1 : next(path);
}

} // extern "C"

void FaultyDisk::Watch(const QString& folder) {
    state() = {};
    for (const QString& name : QDir(folder).entryList(QDir::Files)) {
        QFile file(folder + u'/' + name);
        if (file.open(QIODevice::ReadOnly))
            state().synced[name] = file.readAll();
        state().names.append(name);
    }
    state().folder = folder;
}

void FaultyDisk::Unwatch() {
    state() = {};
}

void FaultyDisk::FailAt(int call, int error, int times) {
    state().failAt = state().calls + call;
    state().error = error;
    state().failures = times;
    state().hasFailed = false;
}

bool FaultyDisk::Repair() {
    state().failAt = 0;
    return state().hasFailed;
}

void FaultyDisk::CutAt(int call) {
    state().cutAt = state().calls + call;
    state().cut.reset();
}

std::optional<FaultyDisk::Image> FaultyDisk::Cut() {
    state().cutAt = 0;
    return state().cut;
}

FaultyDisk::Image FaultyDisk::OnDisk() {
    Image image;
    for (const QString& name : std::as_const(state().names))
        image[name] = state().synced.value(name);
    return image;
}
