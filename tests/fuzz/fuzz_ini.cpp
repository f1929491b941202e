#include "core/DisplaySettings.h"
#include "core/IniFile.h"
#include "core/RuntimeError.h"

#include <QTemporaryFile>

#include <cstdint>

/// Any bytes are an INI file: each setting is read from it or refused with a reason, and what is
/// written into it is read back.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const QString section = QStringLiteral("Application");
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto require = [&](bool promise) {
        if (!promise)
            qFatal("broken by %s", bytes.toPercentEncoding().constData());
    };
    QTemporaryFile file;
    require(file.open() && file.write(bytes) == bytes.size());
    const QString path = file.fileName();
    file.close();

    const IniFile before(path);
    DisplaySettings settings;
    for (const Setting& setting : SettingsTable) {
        const QString value = before.Value(section, QString::fromLatin1(setting.Key));
        require(value.size() <= 254 && value.isValidUtf16());
        try {
            setting.Assign(settings, value);
        } catch (const RuntimeError& reason) {
            require(!reason.Description().isEmpty());
        }
    }
    for (const QString& key : {QStringLiteral("Footer"), QStringLiteral("Fresh")}) {
        IniFile edited(path);
        edited.SetValue(section, key, QStringLiteral("-7"));
        edited.Save();
        require(IniFile(path).Value(section, key) == u"-7");
    }
    return 0;
}
