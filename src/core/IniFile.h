#pragma once

#include "core/ItemPair.h"

#include <QList>
#include <QString>

/// One INI file that people edit by hand: names match without regard to case; comments, the order
/// of lines and keys that the program does not know survive a save. Errors are RuntimeErrors.
namespace IniFile {

/// The value of a key without surrounding blanks and without one pair of surrounding quotes, cut
/// at 254 characters; empty when the file, the section or the key is missing.
QString ReadValue(const QString& path, const QString& section, const QString& key);

/// Every key of a section and its value as it stands, in the file's order.
QList<ItemPair> ReadSection(const QString& path, const QString& section);

/// Writes one key, making the file and the section when they are missing.
void WriteValue(const QString& path, const QString& section, const QString& key,
                const QString& value);

/// Replaces every key of a section.
void ReplaceSection(const QString& path, const QString& section, const QList<ItemPair>& entries);

} // namespace IniFile
