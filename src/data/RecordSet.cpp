#include "data/RecordSet.h"

#include "core/RuntimeError.h"

RecordSet::RecordSet(QStringList names, std::vector<QVariant> values)
    : m_names(std::move(names))
    , m_values(std::move(values)) {}

const QVariant& RecordSet::Field(const char* name) const {
    const QLatin1StringView wanted(name);
    const auto count = static_cast<int>(m_names.size());
    for (int i = 0; i < count; ++i) {
        const int position = (m_expected + i) % count;
        if (m_names[position].compare(wanted, Qt::CaseInsensitive) == 0) {
            m_expected = position + 1;
            return Field(position);
        }
    }
    constexpr qint32 noSuchItem = 3265;
    throw RuntimeError(noSuchItem, QStringLiteral("The query gives no field %1").arg(wanted));
}
