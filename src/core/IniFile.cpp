#include "core/IniFile.h"

#include "core/RuntimeError.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace {

constexpr qsizetype LongestValue = 254;

RuntimeError failure(const QString& path, const QString& what, const QString& reason) {
    return {ErrorNumber::PermissionDenied, QStringLiteral("%1: the file cannot be %2 (%3)")
                                               .arg(QDir::toNativeSeparators(path), what, reason)};
}

QByteArrayList splitLines(const QByteArray& bytes) {
    QByteArrayList lines;
    qsizetype start = 0;
    while (start < bytes.size()) {
        qsizetype end = start;
        while (end < bytes.size() && bytes[end] != '\n' && bytes[end] != '\r')
            ++end;
        const bool twoBytes = bytes.mid(end, 2) == "\r\n";
        end = std::min(end + (twoBytes ? 2 : 1), bytes.size());
        lines.append(bytes.mid(start, end - start));
        start = end;
    }
    return lines;
}

bool isUtf8(const QByteArray& bytes) {
    return QUtf8StringView(bytes).isValidUtf8();
}

QByteArray lineEndOf(const QByteArray& line) {
    return line.endsWith("\r\n")                        ? "\r\n"
           : line.endsWith('\n') || line.endsWith('\r') ? line.last(1)
                                                        : QByteArray();
}

QByteArray read(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        throw failure(path, QStringLiteral("read"), file.errorString());
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw failure(path, QStringLiteral("read"), file.errorString());
    // Some editors save "Unicode" as UTF-16.
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (encoding && *encoding != QStringConverter::Utf8)
        bytes = QString(QStringDecoder(*encoding).decode(bytes)).toUtf8();
    return bytes;
}

QString withoutQuotes(const QString& value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.mid(1, value.size() - 2) : value;
}

} // namespace

// An older editor may have written the one line in the system's own letters.
IniFile::Line::Line(const QByteArray& line)
    : bytes(line) {
    const QByteArray readable = line.split('\0').first();
    // A byte order mark goes with the decoding.
    const QString text =
        (isUtf8(readable) ? QString::fromUtf8(readable) : QString::fromLatin1(readable)).trimmed();
    const qsizetype equals = text.indexOf(u'=');
    const qsizetype bracket = text.indexOf(u']');
    if (text.startsWith(u';') || text.startsWith(u'#'))
        return;
    if (text.startsWith(u'[')) {
        kind = bracket > 0 ? Header : Other;
        name = text.mid(1, bracket - 1).trimmed();
    } else if (equals > 0) {
        kind = Entry;
        name = text.left(equals).trimmed();
        value = text.mid(equals + 1).trimmed();
    }
}

bool IniFile::Line::Is(Kind wanted, const QString& wantedName) const {
    return kind == wanted && name.compare(wantedName, Qt::CaseInsensitive) == 0;
}

IniFile::IniFile(QString path)
    : m_path(std::move(path)) {
    for (const QByteArray& line : splitLines(read(m_path)))
        m_lines.append(Line(line));
}

// The place of the first such line behind `from` in the same section, or of the first header; -1
// when there is none.
qsizetype IniFile::find(Line::Kind kind, const QString& name, qsizetype from) const {
    for (qsizetype i = from; i < m_lines.size(); ++i) {
        if (m_lines[i].Is(kind, name))
            return i;
        if (kind == Line::Entry && m_lines[i].kind == Line::Header)
            return -1;
    }
    return -1;
}

qsizetype IniFile::endOfSection(qsizetype header) const {
    qsizetype end = header + 1;
    while (end < m_lines.size() && m_lines[end].kind != Line::Header)
        ++end;
    return end;
}

QString IniFile::Value(const QString& section, const QString& key) const {
    const qsizetype header = find(Line::Header, section);
    const qsizetype entry = header < 0 ? -1 : find(Line::Entry, key, header + 1);
    if (entry < 0)
        return {};
    const QString value = withoutQuotes(m_lines[entry].value);
    const bool cutsCharacter =
        value.size() > LongestValue && value[LongestValue - 1].isHighSurrogate();
    return value.left(cutsCharacter ? LongestValue - 1 : LongestValue);
}

QList<ItemPair> IniFile::Section(const QString& section) const {
    QList<ItemPair> pairs;
    const qsizetype header = find(Line::Header, section);
    for (qsizetype i = header + 1; header >= 0 && i < endOfSection(header); ++i)
        if (m_lines[i].kind == Line::Entry)
            pairs.append({m_lines[i].name, m_lines[i].value});
    return pairs;
}

void IniFile::SetValue(const QString& section, const QString& key, const QString& value) {
    const Line entry = newLine(Line::Entry, key, key + u'=' + value);
    const qsizetype header = headerOf(section);
    if (const qsizetype old = find(Line::Entry, key, header + 1); old >= 0) {
        // What is only spelled in other letters than ours was not edited.
        if (isUtf8(m_lines[old].bytes) || Value(section, key) != value)
            m_lines[old] = entry;
        return;
    }
    qsizetype last = endOfSection(header) - 1;
    while (last > header && m_lines[last].kind != Line::Entry)
        --last;
    insert(last + 1, entry);
}

void IniFile::ReplaceSection(const QString& section, const QList<ItemPair>& entries) {
    QList<Line> lines;
    for (const ItemPair& pair : entries)
        lines.append(newLine(Line::Entry, pair.Key, pair.Key + u'=' + pair.Value));
    qsizetype place = headerOf(section) + 1;
    m_lines.remove(place, endOfSection(place - 1) - place);
    for (const Line& line : lines)
        insert(place++, line);
}

void IniFile::Save() const {
    QSaveFile file(m_path);
    file.setDirectWriteFallback(true);
    bool isWritten = file.open(QIODevice::WriteOnly);
    for (const Line& line : m_lines)
        isWritten = isWritten && file.write(line.bytes) == line.bytes.size();
    if (!isWritten || !file.commit())
        throw failure(m_path, QStringLiteral("written"), file.errorString());
}

// New lines end as the file's others do.
QByteArray IniFile::lineEnd() const {
    const QByteArray first = m_lines.isEmpty() ? QByteArray() : lineEndOf(m_lines.first().bytes);
    if (!first.isEmpty())
        return first;
#ifdef Q_OS_WIN
    return "\r\n";
#else
    return "\n";
#endif
}

// Error 5 for a name or a value that would not be read back.
IniFile::Line IniFile::newLine(Line::Kind kind, const QString& name, const QString& text) const {
    const QByteArray bytes = text.toUtf8();
    const bool isOneLine =
        splitLines(bytes).size() == 1 && lineEndOf(bytes).isEmpty() && !bytes.contains('\0');
    Line line(bytes + lineEnd());
    if (!isOneLine || !line.Is(kind, name) || name.isEmpty())
        throw RuntimeError(ErrorNumber::InvalidCall,
                           QStringLiteral("\"%1\" cannot be a line of an INI file").arg(text));
    return line;
}

// Puts a line behind lines that may lack their line end.
void IniFile::insert(qsizetype place, const Line& line) {
    if (place > 0 && lineEndOf(m_lines[place - 1].bytes).isEmpty())
        m_lines[place - 1].bytes += lineEnd();
    m_lines.insert(place, line);
}

// The place of a section's header; one is put at the end of the file when there is none.
qsizetype IniFile::headerOf(const QString& section) {
    const qsizetype header = find(Line::Header, section);
    if (header >= 0)
        return header;
    insert(m_lines.size(), newLine(Line::Header, section, u'[' + section + u']'));
    return m_lines.size() - 1;
}
