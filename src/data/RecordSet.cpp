#include "data/RecordSet.h"

#include "core/RuntimeError.h"
#include "data/DatabaseError.h"

#include <QSqlRecord>

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
    if (m_names.isEmpty()) {
        const QSqlRecord record = m_query.record();
        for (int position = 0; position < record.count(); ++position)
            m_names.append(record.fieldName(position).toLatin1());
    }
    for (int position = 0; position < m_names.size(); ++position)
        if (qstricmp(m_names[position].constData(), name) == 0)
            return m_query.value(position);
    constexpr qint32 noSuchItem = 3265;
    throw RuntimeError(noSuchItem,
                       QStringLiteral("The query gives no field %1").arg(QLatin1StringView(name)));
}
