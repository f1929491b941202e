#include "app/modCommon.h"

#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/IniFile.h"
#include "core/RuntimeError.h"
#include "data/DBObject.h"

#include <QComboBox>
#include <QString>

#include <array>
#include <cstdlib>

namespace {

constexpr const char* Component = "modMain";
const QString Section = QStringLiteral("Application");

QString settingsFile() {
    return Paths().AppPath + QStringLiteral("Rankelo.INI");
}

void load(DisplaySettings& settings) {
    const IniFile file(settingsFile());
    for (const Setting& setting : SettingsTable) {
        const QString key = QString::fromLatin1(setting.Key);
        const QString found = file.Value(Section, key);
        const QString text = found.isEmpty() ? QString::fromLatin1(setting.Default) : found;
        try {
            setting.Assign(settings, text);
        } catch (const RuntimeError& error) {
            // Say which line of the file to mend.
            throw RuntimeError(error.Number(),
                               QStringLiteral("%1: %2=%3: %4")
                                   .arg(settingsFile(), key, text, error.Description()));
        }
    }
}

// What a value that cannot be a line stops is not saved; what came before it is.
void save(const DisplaySettings& settings) {
    std::array<const Setting*, std::size(SettingsTable) + 1> places{};
    for (const Setting& setting : SettingsTable)
        places.at(static_cast<std::size_t>(setting.SavedAs)) = &setting;
    places[Setting::NotSaved] = nullptr;
    IniFile file(settingsFile());
    try {
        for (const Setting* setting : places)
            if (setting)
                file.SetValue(Section, QString::fromLatin1(setting->Key),
                              setting->TextIn(settings));
    } catch (const RuntimeError&) {
        file.Save();
        throw;
    }
    file.Save();
}

} // namespace

DisplaySettings& modCommon::AppSettings() {
    static DisplaySettings settings;
    return settings;
}

bool modCommon::Settings(qint32 mode) {
    return Guarded("Settings", Component, false, [&] {
        if (mode == LoadSettings)
            load(AppSettings());
        else if (mode == SaveSettings)
            save(AppSettings());
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
