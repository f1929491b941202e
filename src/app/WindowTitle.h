#pragma once

#include <QWidget>

/// Sets a window's title as it stands; the toolkit would take "[*]" for a mark of its own.
inline void SetWindowTitle(QWidget& window, QString title) {
    window.setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}
