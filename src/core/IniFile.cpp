#include "core/IniFile.h"

#include "core/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <memory>
#include <string>

// Texts stay UTF-8 bytes as the file holds them.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

namespace {

constexpr qsizetype LongestValue = 254;

RuntimeError failure(const QString& doing, const QString& path, const QString& reason) {
    return {ErrorNumber::PermissionDenied,
            QStringLiteral("Cannot %1 %2: %3").arg(doing, QDir::toNativeSeparators(path), reason)};
}

std::unique_ptr<CSimpleIniA> load(const QString& path) {
    auto ini = std::make_unique<CSimpleIniA>(/*isUtf8=*/true);
    ini->SetSpaces(false);
    QFile file(path);
    if (!file.exists())
        return ini;
    if (!file.open(QIODevice::ReadOnly))
        throw failure(QStringLiteral("read"), path, file.errorString());
    const QByteArray bytes = file.readAll();
    if (ini->LoadData(bytes.constData(), static_cast<size_t>(bytes.size())) < 0)
        throw failure(QStringLiteral("read"), path, QStringLiteral("it is not an INI file"));
    return ini;
}

// Written to the side and renamed, so that a full disk leaves the old settings whole.
void save(const CSimpleIniA& ini, const QString& path) {
    std::string text;
    if (ini.Save(text) < 0)
        throw failure(QStringLiteral("write"), path, QStringLiteral("out of memory"));
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(text.data(), static_cast<qint64>(text.size())) < 0 || !file.commit())
        throw failure(QStringLiteral("write"), path, file.errorString());
}

QString withoutQuotes(const QString& value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.mid(1, value.size() - 2) : value;
}

} // namespace

QString IniFile::ReadValue(const QString& path, const QString& section, const QString& key) {
    const auto ini = load(path);
    const char* value = ini->GetValue(section.toUtf8().constData(), key.toUtf8().constData(), "");
    return withoutQuotes(QString::fromUtf8(value).trimmed()).left(LongestValue);
}

QList<ItemPair> IniFile::ReadSection(const QString& path, const QString& section) {
    const auto ini = load(path);
    const QByteArray name = section.toUtf8();
    CSimpleIniA::TNamesDepend keys;
    ini->GetAllKeys(name.constData(), keys);
    keys.sort(CSimpleIniA::Entry::LoadOrder());
    QList<ItemPair> pairs;
    for (const auto& key : keys)
        pairs.append({QString::fromUtf8(key.pItem),
                      QString::fromUtf8(ini->GetValue(name.constData(), key.pItem, ""))});
    return pairs;
}

void IniFile::WriteValue(const QString& path, const QString& section, const QString& key,
                         const QString& value) {
    const auto ini = load(path);
    ini->SetValue(section.toUtf8().constData(), key.toUtf8().constData(),
                  value.toUtf8().constData(), nullptr, /*bForceReplace=*/true);
    save(*ini, path);
}

void IniFile::ReplaceSection(const QString& path, const QString& section,
                             const QList<ItemPair>& entries) {
    const auto ini = load(path);
    const QByteArray name = section.toUtf8();
    ini->Delete(name.constData(), nullptr);
    ini->SetValue(name.constData(), nullptr, nullptr);
    for (const ItemPair& entry : entries)
        ini->SetValue(name.constData(), entry.Key.toUtf8().constData(),
                      entry.Value.toUtf8().constData());
    save(*ini, path);
}
