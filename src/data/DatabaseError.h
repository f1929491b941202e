#pragma once

#include "core/RuntimeError.h"

#include <QSqlError>

/// The engine's failure with the engine's own code.
inline RuntimeError DatabaseError(const QSqlError& error) {
    constexpr qint32 generalError = 1;
    bool isNumber = false;
    const qint32 code = error.nativeErrorCode().toInt(&isNumber);
    const QString text = error.databaseText().isEmpty() ? error.text() : error.databaseText();
    return {isNumber ? code : generalError, text};
}
