#pragma once

#include "core/DisplaySettings.h"
#include "core/Numbers.h"

#include <QString>
#include <QtGlobal>

/// One element of the board, before it becomes a control: distances in twips, font size in points,
/// colours as red + 256 * green + 65536 * blue.
struct RenderObject {
    /// In the typeface and size of the settings. Error 13 when the size is no number.
    explicit RenderObject(const DisplaySettings& settings)
        : FontSize(ToInt32(QStringView(settings.FontSize)))
        , FontName(settings.FontName) {}

    enum Alignment : qint32 { Left = 0, Right = 1, Centre = 2 };

    QString Name;
    QString FileName; ///< of a picture; empty for no picture
    QString Tag;      ///< the position whose line the element belongs to
    qint32 Align = Left;
    qint32 OLeft = 0;
    qint32 OTop = 0;
    qint32 OHeight = 0;
    qint32 OWidth = 0;
    QString Text;
    qint32 BackColor = 0;
    qint32 ForeColor = 0;
    qint32 FontSize;
    QString FontName;
    bool FontBold = false;
    bool Visible = true;
};
