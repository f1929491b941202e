#include "app/modCommon.h"

#include "core/AppValues.h"
#include "core/Guard.h"
#include "core/Numbers.h"
#include "core/RuntimeError.h"
#include "core/Utilities.h"
#include "data/DBObject.h"

#include <QComboBox>
#include <QString>

#include <cstdlib>

namespace {

constexpr const char* Component = "modMain";
const QString Section = QStringLiteral("Application");

struct TextSetting {
    const char* key;
    const char* defaultValue;
    QString AppValues::*value;
};
struct NumberSetting {
    const char* key;
    const char* defaultValue;
    qint32 AppValues::*value;
};

constexpr TextSetting Texts[] = {
    {"FontName", "Arial", &AppValues::FontName},
    {"FontSize", "32", &AppValues::FontSize},
    {"DebugMode", "0", &AppValues::DebugMode},
};

// In the order in which they are read.
constexpr NumberSetting Numbers[] = {
    {"BackGround", "0", &AppValues::BackGround},     {"BColorA", "16576", &AppValues::BColorA},
    {"BColorB", "16512", &AppValues::BColorB},       {"FColorA", "8454143", &AppValues::FColorA},
    {"FColorB", "8454143", &AppValues::FColorB},     {"CellPadX", "40", &AppValues::CellPadX},
    {"CellPadY", "80", &AppValues::CellPadY},        {"LeftMargin", "200", &AppValues::LeftMargin},
    {"RightMargin", "200", &AppValues::RightMargin}, {"LabelWidth", "7", &AppValues::LabelWidth},
    {"Footer", "500", &AppValues::Footer},
};

// In the order in which a new file holds them; without the footer height.
constexpr NumberSetting SavedNumbers[] = {
    {"BackGround", "", &AppValues::BackGround},   {"FColorA", "", &AppValues::FColorA},
    {"BColorA", "", &AppValues::BColorA},         {"FColorB", "", &AppValues::FColorB},
    {"BColorB", "", &AppValues::BColorB},         {"CellPadX", "", &AppValues::CellPadX},
    {"CellPadY", "", &AppValues::CellPadY},       {"LeftMargin", "", &AppValues::LeftMargin},
    {"RightMargin", "", &AppValues::RightMargin}, {"LabelWidth", "", &AppValues::LabelWidth},
};

QString settingsFile() {
    return App().AppPath + QStringLiteral("Rankelo.INI");
}

QString read(const char* key, const char* defaultValue) {
    const QString value = AppUtilities().ReadINIValue(
        settingsFile(), Section, QString::fromLatin1(key), QString::fromLatin1(defaultValue));
    // Even a missing key gives its default, so nothing at all means an unreadable file.
    if (value.isEmpty())
        throw RuntimeError(ErrorNumber::PermissionDenied,
                           settingsFile() + QStringLiteral(": the file cannot be read"));
    return value;
}

void write(const char* key, const QString& value) {
    if (!AppUtilities().WriteINIValue(settingsFile(), Section, QString::fromLatin1(key), value))
        throw RuntimeError(ErrorNumber::PermissionDenied,
                           settingsFile() + QStringLiteral(": the file cannot be written"));
}

void load() {
    for (const TextSetting& setting : Texts)
        App().*setting.value = read(setting.key, setting.defaultValue);
    for (const NumberSetting& setting : Numbers) {
        const QString text = read(setting.key, setting.defaultValue);
        try {
            App().*setting.value = ToInt32(QStringView(text));
        } catch (const RuntimeError& error) {
            // Say which line of the file to mend.
            throw RuntimeError(error.Number(),
                               QStringLiteral("%1: %2=%3: %4")
                                   .arg(settingsFile(), QLatin1StringView(setting.key), text,
                                        error.Description()));
        }
    }
}

void save() {
    for (const TextSetting& setting : Texts)
        write(setting.key, App().*setting.value);
    for (const NumberSetting& setting : SavedNumbers)
        write(setting.key, QString::number(App().*setting.value));
}

} // namespace

bool modCommon::Settings(qint32 mode) {
    return Guarded("Settings", Component, false, [&] {
        if (mode == LoadSettings)
            load();
        else if (mode == SaveSettings)
            save();
        return true;
    });
}

void modCommon::ExitApp() {
    Guarded("ExitApp", Component, [] {
        AppDatabase().CloseDatabase();
        // At once: no window and no object gets a say.
        std::_Exit(EXIT_SUCCESS);
    });
}

bool modCommon::SelectListItem(QComboBox& list, const QString& text) {
    const QString wanted = text.toUpper();
    for (int i = 0; i < list.count(); ++i) {
        if (list.itemText(i).toUpper() == wanted) {
            list.setCurrentIndex(i);
            return true;
        }
    }
    return false;
}
