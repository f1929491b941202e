#pragma once

#include "core/AppValues.h"
#include "core/Numbers.h"

#include <QString>
#include <QtGlobal>

/// One element of the board, before it becomes a control: distances in twips, font size in points,
/// colours as red + 256 * green + 65536 * blue.
struct RenderObject {
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
    qint32 FontSize = ToInt32(QStringView(App().FontSize)); ///< error 13 when no number is set
    QString FontName = App().FontName;
    bool FontBold = false;
    bool Visible = true;
};
