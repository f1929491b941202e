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

int RecordSet::Position(const char* name) const {
    if (m_fields.isEmpty())
        m_fields = m_query.record();
    const int position = m_fields.indexOf(QString::fromLatin1(name));
    if (position >= 0)
        return position;
    constexpr qint32 noSuchItem = 3265;
    throw RuntimeError(noSuchItem,
                       QStringLiteral("The query gives no field %1").arg(QLatin1StringView(name)));
}
