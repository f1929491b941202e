#pragma once

#include "core/Guard.h"
#include "core/RuntimeError.h"

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

/// An ordered list of shared objects, indexed from 0. It starts with 301 slots and grows by one
/// slot for each entry beyond them; a slot without an entry gives no object.
template <typename T>
class ObjectList {
public:
    static constexpr std::size_t InitialSlots = 301;

    ObjectList() { Clear(); }

    /// Index of the last entry, -1 when the list is empty.
    qint32 LastIndex() const { return m_lastIndex; }
    std::size_t SlotCount() const { return vObjects.size(); }

    void Clear() {
        vObjects.assign(InitialSlots, nullptr);
        m_lastIndex = -1;
    }

    bool Add(std::shared_ptr<T> object) {
        return Guarded("Add", "ObjectList", false, [&] {
            const auto slot = static_cast<std::size_t>(m_lastIndex + 1);
            if (slot >= vObjects.size())
                vObjects.resize(slot + 1);
            vObjects[slot] = std::move(object);
            ++m_lastIndex;
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

    std::shared_ptr<T> LastItem() const { return m_lastIndex < 0 ? nullptr : Item(m_lastIndex); }

    /// Removes the first entry that is this very object by moving the later ones down. LastIndex
    /// stays, so the former last entry is held twice; who removes entries re-reads the list.
    bool Remove(const T* object) {
        // Reported as "Add" like every failure of this class.
        return Guarded("Add", "ObjectList", false, [&] {
            const auto last = vObjects.begin() + (m_lastIndex + 1);
            const auto found = std::find_if(vObjects.begin(), last,
                                            [&](const auto& o) { return o.get() == object; });
            if (found == last)
                return false;
            std::copy(found + 1, last, found);
            return true;
        });
    }

private:
    std::vector<std::shared_ptr<T>> vObjects;
    qint32 m_lastIndex = -1;
};
