#pragma once

#include "core/Numbers.h"

#include <QColor>

// The board's own units. A twip is 1/1440 inch, 15 to a pixel at 96 DPI; results are rounded,
// halves to even.

constexpr int TwipsPerInch = 1440;

inline int TwipsToPixels(qint32 twips, int dpi) {
    return ToInt32(static_cast<double>(twips) * dpi / TwipsPerInch);
}

inline qint32 PixelsToTwips(int pixels, int dpi) {
    return ToInt32(static_cast<double>(pixels) * TwipsPerInch / dpi);
}

/// A colour of the settings, red in the low byte.
inline QColor ColorOf(qint32 value) {
    return {value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF};
}

/// The value that the settings keep for a colour.
inline qint32 ColorValue(const QColor& color) {
    return color.red() + 256 * color.green() + 65536 * color.blue();
}
