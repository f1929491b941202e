#include "data/RecordSet.h"

#include "core/RuntimeError.h"
#include "data/DatabaseError.h"

RecordSet::RecordSet(QSqlQuery query)
    : m_query(std::move(query)) {
    MoveNext();
}

void RecordSet::MoveNext() {
    m_endOfFile = !m_query.next();
    if (m_endOfFile && m_query.lastError().isValid())
        throw DatabaseError(m_query.lastError());
}

QVariant RecordSet::Field(const char* name) const {
    if (m_fields.isEmpty())
        m_fields = m_query.record();
    const int position = m_fields.indexOf(QLatin1StringView(name));
    if (position < 0) {
        constexpr qint32 noSuchItem = 3265;
        throw RuntimeError(
            noSuchItem, QStringLiteral("The query gives no field %1").arg(QLatin1StringView(name)));
    }
    return m_query.value(position);
}
