#pragma once

#include "core/Guard.h"
#include "core/RuntimeError.h"

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

/// An ordered list of shared objects, indexed from 0. It starts with 301 slots and grows by one
/// slot for each entry beyond them; a slot without an entry gives no object, and takes no memory.
template <typename T>
class ObjectList {
public:
    static constexpr std::size_t InitialSlots = 301;

    /// Index of the last entry, -1 when the list is empty.
    qint32 LastIndex() const { return static_cast<qint32>(vObjects.size()) - 1; }
    std::size_t SlotCount() const { return std::max(InitialSlots, vObjects.size()); }

    /// The entries from first to last, for a loop over them.
    auto begin() const { return vObjects.begin(); }
    auto end() const { return vObjects.end(); }

    void Clear() { vObjects.clear(); }

    bool Add(std::shared_ptr<T> object) {
        return Guarded("Add", "ObjectList", false, [&] {
            vObjects.push_back(std::move(object));
            return true;
        });
    }

    /// The object in a slot; none above the last slot. Throws error 9 for a negative index.
    std::shared_ptr<T> Item(qint32 index) const {
        if (index < 0)
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                               QStringLiteral("Subscript out of range"));
        const auto slot = static_cast<std::size_t>(index);
        return slot < vObjects.size() ? vObjects[slot] : nullptr;
    }

    std::shared_ptr<T> LastItem() const { return vObjects.empty() ? nullptr : vObjects.back(); }

    /// Removes the first entry that is this very object by moving the later ones down. LastIndex
    /// stays, so the former last entry is held twice; who removes entries re-reads the list.
    bool Remove(const T* object) {
        // Reported as "Add" like every failure of this class.
        return Guarded("Add", "ObjectList", false, [&] {
            const auto found = std::find_if(vObjects.begin(), vObjects.end(),
                                            [&](const auto& o) { return o.get() == object; });
            if (found == vObjects.end())
                return false;
            std::copy(found + 1, vObjects.end(), found);
            return true;
        });
    }

private:
    std::vector<std::shared_ptr<T>> vObjects; ///< the entries; the empty slots are only counted
};
