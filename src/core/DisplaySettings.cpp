#include "core/DisplaySettings.h"

#include "core/Numbers.h"

DisplaySettings::DisplaySettings() {
    for (const Setting& setting : SettingsTable)
        setting.Assign(*this, QString::fromLatin1(setting.Default));
}

QString Setting::TextIn(const DisplaySettings& settings) const {
    if (const auto* text = std::get_if<QString DisplaySettings::*>(&Member))
        return settings.**text;
    return QString::number(settings.*std::get<qint32 DisplaySettings::*>(Member));
}

void Setting::Assign(DisplaySettings& settings, const QString& text) const {
    if (const auto* member = std::get_if<QString DisplaySettings::*>(&Member))
        settings.** member = text;
    else
        settings.*std::get<qint32 DisplaySettings::*>(Member) = ToInt32(QStringView(text));
}
