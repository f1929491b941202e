#include "core/IniFile.h"

#include "core/RuntimeError.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

// Texts stay UTF-8 bytes as the file holds them; the whole library is compiled in here.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

namespace {

constexpr qsizetype LongestValue = 254;

#ifdef Q_OS_WIN
constexpr const char* NewLine = "\r\n";
#else
constexpr const char* NewLine = "\n";
#endif

// One line of the file with its line end. The library says what it means; that the lines are kept
// here, and not its list of keys, brings blank lines, a comment at the end and repeated keys
// through a save as they were.
struct Line {
    enum Kind { Other, Header, Entry };

    explicit Line(const QByteArray& line);

    bool Is(Kind wanted, const QString& wantedName) const {
        return kind == wanted && name.compare(wantedName, Qt::CaseInsensitive) == 0;
    }

    QByteArray bytes;
    Kind kind = Other;
    QString name;  // of the section or the key
    QString value; // of a key
};

using Lines = QList<Line>;

Line::Line(const QByteArray& line)
    : bytes(line) {
    CSimpleIniA ini(/*isUtf8=*/true);
    ini.LoadData(line.constData(), static_cast<size_t>(line.size()));
    CSimpleIniA::TNamesDepend sections;
    ini.GetAllSections(sections);
    if (sections.empty())
        return;
    const char* section = sections.front().pItem;
    CSimpleIniA::TNamesDepend keys;
    ini.GetAllKeys(section, keys);
    kind = keys.empty() ? Header : Entry;
    name = QString::fromUtf8(keys.empty() ? section : keys.front().pItem);
    if (kind == Entry)
        value = QString::fromUtf8(ini.GetValue(section, keys.front().pItem));
}

RuntimeError failure(const QString& doing, const QString& path, const QString& reason) {
    return {ErrorNumber::PermissionDenied,
            QStringLiteral("Cannot %1 %2: %3").arg(doing, QDir::toNativeSeparators(path), reason)};
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

Lines load(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        throw failure(QStringLiteral("read"), path, file.errorString());
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw failure(QStringLiteral("read"), path, file.errorString());
    // Some editors save "Unicode" as UTF-16.
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (encoding && *encoding != QStringConverter::Utf8)
        bytes = QString(QStringDecoder(*encoding).decode(bytes)).toUtf8();
    Lines lines;
    for (const QByteArray& line : splitLines(bytes))
        lines.append(Line(line));
    return lines;
}

// Written to the side and renamed, so that a full disk leaves the old settings whole.
void save(const Lines& lines, const QString& path) {
    QByteArray bytes;
    for (const Line& line : lines)
        bytes += line.bytes;
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) < 0 || !file.commit())
        throw failure(QStringLiteral("write"), path, file.errorString());
}

// A new line of the file; error 5 for a name or a value that would not be read back from it.
Line newLine(Line::Kind kind, const QString& name, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    const bool isOneLine = splitLines(bytes).size() == 1 && !bytes.endsWith('\n') &&
                           !bytes.endsWith('\r') && !bytes.contains('\0');
    Line line(bytes + NewLine);
    if (!isOneLine || !line.Is(kind, name))
        throw RuntimeError(ErrorNumber::InvalidCall,
                           QStringLiteral("\"%1\" cannot be a line of an INI file").arg(text));
    return line;
}

Line newEntry(const QString& key, const QString& value) {
    return newLine(Line::Entry, key, key + u'=' + value);
}

// Puts a line at a place behind lines that may lack their line end.
void insert(Lines& lines, qsizetype place, const Line& line) {
    if (place > 0 && !lines[place - 1].bytes.endsWith('\n') &&
        !lines[place - 1].bytes.endsWith('\r'))
        lines[place - 1].bytes += NewLine;
    lines.insert(place, line);
}

// The place of a section's header; one is put at the end of the file when there is none.
qsizetype headerOf(Lines& lines, const QString& section) {
    for (qsizetype i = 0; i < lines.size(); ++i)
        if (lines[i].Is(Line::Header, section))
            return i;
    insert(lines, lines.size(), newLine(Line::Header, section, u'[' + section + u']'));
    return lines.size() - 1;
}

QString withoutQuotes(const QString& value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.mid(1, value.size() - 2) : value;
}

} // namespace

QString IniFile::ReadValue(const QString& path, const QString& section, const QString& key) {
    for (const ItemPair& pair : ReadSection(path, section)) {
        if (pair.Key.compare(key, Qt::CaseInsensitive) != 0)
            continue;
        const QString value = withoutQuotes(pair.Value);
        const bool cutsCharacter =
            value.size() > LongestValue && value[LongestValue - 1].isHighSurrogate();
        return value.left(cutsCharacter ? LongestValue - 1 : LongestValue);
    }
    return {};
}

QList<ItemPair> IniFile::ReadSection(const QString& path, const QString& section) {
    QList<ItemPair> pairs;
    bool isInside = false;
    for (const Line& line : load(path)) {
        if (line.kind == Line::Header)
            isInside = line.Is(Line::Header, section);
        else if (isInside && line.kind == Line::Entry)
            pairs.append({line.name, line.value});
    }
    return pairs;
}

void IniFile::WriteValue(const QString& path, const QString& section, const QString& key,
                         const QString& value) {
    const Line entry = newEntry(key, value);
    Lines lines = load(path);
    qsizetype last = headerOf(lines, section);
    for (qsizetype i = last + 1; i < lines.size() && lines[i].kind != Line::Header; ++i) {
        if (lines[i].Is(Line::Entry, key)) {
            lines[i] = entry;
            save(lines, path);
            return;
        }
        if (lines[i].kind == Line::Entry)
            last = i;
    }
    insert(lines, last + 1, entry);
    save(lines, path);
}

void IniFile::ReplaceSection(const QString& path, const QString& section,
                             const QList<ItemPair>& entries) {
    Lines lines = load(path);
    qsizetype place = headerOf(lines, section) + 1;
    while (place < lines.size() && lines[place].kind != Line::Header)
        lines.removeAt(place);
    for (const ItemPair& pair : entries)
        insert(lines, place++, newEntry(pair.Key, pair.Value));
    save(lines, path);
}
