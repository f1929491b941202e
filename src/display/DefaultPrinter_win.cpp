#include "display/DefaultPrinter.h"

#include "core/RuntimeError.h"

#include <qt_windows.h>
#include <winspool.h>

#include <string>
#include <vector>

namespace {

// The system keeps one entry for each printer, "driver,port" and more, under its name.
constexpr const wchar_t* PrinterSection = L"PrinterPorts";
constexpr const wchar_t* DefaultSection = L"windows";
constexpr const wchar_t* DefaultKey = L"Device";
constexpr DWORD NamesLength = 8102;
constexpr DWORD ValueLength = 1024;

QString readProfile(const wchar_t* section, const wchar_t* key, DWORD length) {
    std::vector<wchar_t> buffer(length);
    const DWORD read = GetProfileStringW(section, key, L"", buffer.data(), length);
    return QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(read));
}

QString defaultName() {
    std::vector<wchar_t> buffer(ValueLength);
    DWORD length = ValueLength;
    if (!GetDefaultPrinterW(buffer.data(), &length))
        return {};
    return QString::fromWCharArray(buffer.data());
}

// Every program, this one too, learns of it; one that hangs does not hold us up.
void tellEverybody() {
    constexpr UINT patienceMilliseconds = 1000;
    SendMessageTimeoutW(HWND_BROADCAST, WM_WININICHANGE, 0,
                        reinterpret_cast<LPARAM>(DefaultSection), SMTO_ABORTIFHUNG,
                        patienceMilliseconds, nullptr);
}

} // namespace

DefaultPrinter::Printers DefaultPrinter::List() {
    // The names come one after the other, each ended by a NUL.
    const QString names = readProfile(PrinterSection, nullptr, NamesLength);
    return {names.split(QChar(u'\0'), Qt::SkipEmptyParts), defaultName()};
}

QString DefaultPrinter::Choose(const QString& name) {
    const std::wstring printer = name.toStdWString();
    const QStringList entry = readProfile(PrinterSection, printer.c_str(), ValueLength).split(u',');
    constexpr qsizetype driverAndPort = 2;
    if (entry.size() < driverAndPort)
        return defaultName();
    const std::wstring device = (name + u',' + entry.at(0) + u',' + entry.at(1)).toStdWString();
    if (!WriteProfileStringW(DefaultSection, DefaultKey, device.c_str()))
        throw RuntimeError(ErrorNumber::DeviceFault,
                           QStringLiteral("%1: the default printer cannot be changed").arg(name));
    tellEverybody();
    return name;
}

// The document went through the system's own calls, which failed on the spot if at all.
void DefaultPrinter::RequireDocumentTaken() {}
