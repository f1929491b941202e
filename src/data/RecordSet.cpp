#include "data/RecordSet.h"

#include "core/RuntimeError.h"

RecordSet::RecordSet(QStringList names, std::vector<QVariant> values)
    : m_names(std::move(names))
    , m_values(std::move(values)) {}

const QVariant& RecordSet::Field(const char* name) const {
    const QLatin1StringView wanted(name);
    for (int i = 0; i < m_names.size(); ++i)
        if (m_names[i].compare(wanted, Qt::CaseInsensitive) == 0)
            return Field(i);
    constexpr qint32 noSuchItem = 3265;
    throw RuntimeError(noSuchItem, QStringLiteral("The query gives no field %1").arg(wanted));
}
