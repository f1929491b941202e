#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <limits>
#include <optional>

/// A disk that fails or loses power on demand. It stands between the database engine and the
/// system for one folder: the engine's calls that create, write, cut, sync and delete a file there
/// are counted, and can be made to fail. Linux only.
namespace FaultyDisk {

/// Files by name and what they hold.
using Image = QMap<QString, QByteArray>;

/// Starts to watch a folder. What is in it now counts as being on the disk.
void Watch(const QString& folder);
/// Works without faults again.
void Unwatch();

/// Makes the n-th call from now on, and `times` calls in all, fail with an error of the system.
void FailAt(int call, int error, int times = std::numeric_limits<int>::max());
/// The disk works again. True when a call has failed since FailAt.
bool Repair();

/// Notes what would be left on the disk if the plug were pulled just before the n-th call from
/// now on.
void CutAt(int call);
/// What CutAt noted; nothing when there were fewer calls.
std::optional<Image> Cut();
/// What would be left if the plug were pulled now: of every file whose name has reached the disk,
/// what was last synced.
Image OnDisk();

} // namespace FaultyDisk
