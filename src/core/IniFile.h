#pragma once

#include "core/ItemPair.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// One INI file that people edit by hand, read whole when it is made and written whole by Save.
/// Names match without regard to case, the first of several equal sections and keys counts, and
/// every line that is not set stays as it is, byte for byte. Errors are RuntimeErrors.
class IniFile {
public:
    /// A missing file is an empty one. Throws when the file is there and cannot be read.
    explicit IniFile(QString path);

    /// The value of a key without surrounding blanks and without one pair of surrounding quotes,
    /// cut at 254 characters; empty when the section or the key is missing.
    QString Value(const QString& section, const QString& key) const;

    /// Every key of a section and its value as it stands, in the file's order.
    QList<ItemPair> Section(const QString& section) const;

    /// Sets one key, making the section when it is missing. Error 5 for what would not be read
    /// back as one line, such as a value with a line end.
    void SetValue(const QString& section, const QString& key, const QString& value);

    /// Replaces everything between a section's header and the next one.
    void ReplaceSection(const QString& section, const QList<ItemPair>& entries);

    /// Writes the file to the side and renames it, so that a full disk leaves the old one whole.
    void Save() const;

private:
    /// One line with its line end, and what it means.
    struct Line {
        enum Kind { Other, Header, Entry };

        explicit Line(const QByteArray& line);
        bool Is(Kind wanted, const QString& wantedName) const;

        QByteArray bytes;
        Kind kind = Other;
        QString name;  ///< of the section or the key
        QString value; ///< of a key
    };

    qsizetype find(Line::Kind kind, const QString& name, qsizetype from = 0) const;
    qsizetype endOfSection(qsizetype header) const;
    qsizetype headerOf(const QString& section);
    QByteArray lineEnd() const;
    Line newLine(Line::Kind kind, const QString& name, const QString& text) const;
    void insert(qsizetype place, const Line& line);

    QString m_path;
    QList<Line> m_lines;
};
