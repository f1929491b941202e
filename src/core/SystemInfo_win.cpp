#include "core/SystemInfo.h"

#include <QDir>

#include <qt_windows.h>

#include <vector>

QString FileVersionOf(const QString& path) {
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    const DWORD size = GetFileVersionInfoSizeW(name.c_str(), nullptr);
    if (size == 0)
        return {};
    std::vector<char> block(size);
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    if (!GetFileVersionInfoW(name.c_str(), 0, size, block.data()) ||
        !VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&info), &length) ||
        length < sizeof(VS_FIXEDFILEINFO))
        return {};
    return QStringLiteral("%1.%2.%3.%4")
        .arg(HIWORD(info->dwFileVersionMS))
        .arg(LOWORD(info->dwFileVersionMS))
        .arg(HIWORD(info->dwFileVersionLS))
        .arg(LOWORD(info->dwFileVersionLS));
}

QString SystemFolder() {
    std::vector<wchar_t> buffer(MAX_PATH);
    const UINT length = GetSystemDirectoryW(buffer.data(), static_cast<UINT>(buffer.size()));
    return QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(length));
}

bool IsStandardErrorRead() {
    const HANDLE target = GetStdHandle(STD_ERROR_HANDLE);
    return target != INVALID_HANDLE_VALUE && GetFileType(target) != FILE_TYPE_UNKNOWN;
}
