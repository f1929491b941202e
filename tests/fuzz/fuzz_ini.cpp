#include "core/IniFile.h"
#include "core/RuntimeError.h"

#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstdlib>

namespace {

const QString Section = QStringLiteral("Application");
const QString Value = QStringLiteral("-7");

QString fileOf(const uint8_t* data, size_t size) {
    static const QString path =
        QDir::tempPath() + QStringLiteral("/rankelo-fuzz-%1.ini").arg(std::rand());
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.write(reinterpret_cast<const char*>(data),
                                    static_cast<qint64>(size)) == static_cast<qint64>(size);
    if (!written)
        std::abort();
    return path;
}

} // namespace

/// Any bytes are an INI file: it can be read, and what is written into it is read back.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString path = fileOf(data, size);
    const QList<ItemPair> before = IniFile::ReadSection(path, Section);
    for (const char* key : {"Footer", "Fresh"}) {
        const QString name = QString::fromLatin1(key);
        const bool isNew = IniFile::ReadValue(path, Section, name).isNull();
        IniFile::WriteValue(path, Section, name, Value);
        if (IniFile::ReadValue(path, Section, name) != Value)
            std::abort();
        const qsizetype grown = IniFile::ReadSection(path, Section).size() - before.size();
        if (grown < 0 || grown > 2 || (isNew && grown == 0))
            std::abort();
    }
    return 0;
}
