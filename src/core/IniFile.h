#pragma once

#include "core/ItemPair.h"

#include <QList>
#include <QString>

/// One INI file that people edit by hand: names match without regard to case, the first of several
/// equal keys counts, and every line that is not written stays as it is. Errors are RuntimeErrors.
namespace IniFile {

/// The value of a key without surrounding blanks and without one pair of surrounding quotes, cut
/// at 254 characters; empty when the file, the section or the key is missing.
QString ReadValue(const QString& path, const QString& section, const QString& key);

/// Every key of a section and its value as it stands, in the file's order.
QList<ItemPair> ReadSection(const QString& path, const QString& section);

/// Writes one key, making the file and the section when they are missing. Error 5 for what would
/// not be read back as one line, such as a value with a line end.
void WriteValue(const QString& path, const QString& section, const QString& key,
                const QString& value);

/// Replaces everything between a section's header and the next one.
void ReplaceSection(const QString& path, const QString& section, const QList<ItemPair>& entries);

} // namespace IniFile
