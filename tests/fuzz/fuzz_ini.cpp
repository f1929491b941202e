#include "core/IniFile.h"

#include <QTemporaryFile>

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

} // namespace

/// Any bytes are an INI file: it can be read, and what is written into it is read back.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const QString section = QStringLiteral("Application");
    QTemporaryFile file;
    const auto length = static_cast<qint64>(size);
    require(file.open() && file.write(reinterpret_cast<const char*>(data), length) == length);
    const QString path = file.fileName();
    file.close();
    const qsizetype before = IniFile::ReadSection(path, section).size();
    for (const QString& key : {QStringLiteral("Footer"), QStringLiteral("Fresh")}) {
        const bool isNew = IniFile::ReadValue(path, section, key).isNull();
        IniFile::WriteValue(path, section, key, QStringLiteral("-7"));
        require(IniFile::ReadValue(path, section, key) == u"-7");
        const qsizetype grown = IniFile::ReadSection(path, section).size() - before;
        require(grown >= (isNew ? 1 : 0) && grown <= 2);
    }
    return 0;
}
