#pragma once

#include "core/Guard.h"
#include "core/ObjectList.h"

#include <QString>

#include <memory>
#include <utility>
#include <vector>

/// Shared objects under text keys, in the order in which they were added. Keys need not be unique;
/// the first one wins, whatever its case.
template <typename T>
class ObjectMap {
public:
    qint32 LastIndex() const { return m_objects.LastIndex(); }
    std::size_t SlotCount() const { return m_objects.SlotCount(); }
    std::shared_ptr<T> Item(qint32 index) const { return m_objects.Item(index); }

    void Clear() { *this = {}; }

    bool Add(const QString& key, std::shared_ptr<T> object) {
        return Guarded("Add", "ObjectMap", false, [&] {
            m_keys.push_back(key.toUpper());
            return m_objects.Add(std::move(object));
        });
    }

    /// The object that was added first under the key, in upper or lower case; none if there is
    /// none.
    std::shared_ptr<T> GetObject(const QString& key) const {
        return Guarded("GetObject", "ObjectMap", std::shared_ptr<T>(), [&] {
            // Behind the last entry there is a slot without an object.
            const auto found = std::find(m_keys.begin(), m_keys.end(), key.toUpper());
            return m_objects.Item(static_cast<qint32>(found - m_keys.begin()));
        });
    }

private:
    std::vector<QString> m_keys; ///< upper case, parallel to the objects
    ObjectList<T> m_objects;
};
