#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

/// The process-wide values: where the program lives, and the display settings under the names of
/// their INI keys. Colours are red + 256 * green + 65536 * blue, distances are twips.
struct AppValues {
    QString AppPath;  ///< folder of the executable, ending in the platform's separator
    QString TempPath; ///< the user's temporary folder, ending in the separator

    QString FontName;
    QString FontSize;  ///< points, a whole number as text
    QString DebugMode; ///< "1" shows every error on the screen
    qint32 BackGround = 0;
    qint32 BColorA = 0;
    qint32 FColorA = 0;
    qint32 BColorB = 0;
    qint32 FColorB = 0;
    qint32 CellPadX = 0;
    qint32 CellPadY = 0;
    qint32 LeftMargin = 0;
    qint32 RightMargin = 0;
    qint32 LabelWidth = 0; ///< a divisor of the column width, not a width
    qint32 Footer = 0;

    /// What core needs a desktop for; set by the floors that have one.
    std::function<void(const QString& text)> ShowErrorBox;
    std::function<void(const QString& path)> OpenDocument;
};

/// The one instance, alive until the process ends.
AppValues& App();
