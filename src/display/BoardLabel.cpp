#include "display/BoardLabel.h"

#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double ReadableContrast = 4.5;
// Far enough for the longest score in the narrowest column; a longer heading is cut.
constexpr double SmallestShare = 1.0 / 8;

// The share of light that a person perceives of one channel.
double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

double ContrastRatio(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

BoardLabel::BoardLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
}

void BoardLabel::SetColors(const QColor& back, const QColor& fore) {
    QPalette colors = palette();
    colors.setColor(QPalette::Window, back);
    colors.setColor(QPalette::WindowText, fore);
    setPalette(colors);
}

QColor BoardLabel::OutlineColor() const {
    const QColor fore = palette().color(QPalette::WindowText);
    if (ContrastRatio(fore, palette().color(QPalette::Window)) >= ReadableContrast)
        return {};
    return ContrastRatio(fore, Qt::black) >= ContrastRatio(fore, Qt::white) ? Qt::black : Qt::white;
}

QString BoardLabel::line() const {
    QString line = text();
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return c.isSpace(); }, u' ');
    return line;
}

QFont BoardLabel::fittingFont(int width) const {
    QFont fitting = font();
    if (alignment().testFlag(Qt::AlignLeft))
        return fitting;
    const QString text = line();
    const double smallest = fitting.pointSizeF() * SmallestShare;
    const auto share = [&] {
        return width / std::max(1.0, double(QFontMetrics(fitting).horizontalAdvance(text)));
    };
    // Glyphs do not shrink quite as much as their font.
    for (double fits = share(); fits < 1 && fitting.pointSizeF() > smallest; fits = share())
        fitting.setPointSizeF(std::max(smallest, fitting.pointSizeF() * std::min(fits, 0.95)));
    return fitting;
}

void BoardLabel::paintEvent(QPaintEvent*) {
    if (text().isEmpty())
        return;
    // A hair of space, so that no glyph touches the edge of its box.
    const int inset = QFontMetrics(font()).averageCharWidth() / 4;
    const QRect box = rect().adjusted(inset, 0, -inset - m_reserve, 0);
    const QFont drawn = fittingFont(box.width());
    const QFontMetrics metrics(drawn);
    const QString shown = metrics.elidedText(line(), Qt::ElideRight, box.width());

    QPainter painter(this);
    painter.setFont(drawn);
    const int flags = static_cast<int>(alignment()) | Qt::TextSingleLine;
    if (const QColor outline = OutlineColor(); outline.isValid()) {
        // The text around itself: the glyphs are known already, and a drawn contour costs more
        // than all other lines of a board together.
        painter.setPen(outline);
        const double distance = std::max(1.0, metrics.height() / 20.0);
        const int directions = std::max(8, static_cast<int>(3 * distance));
        for (int i = 0; i < directions; ++i) {
            const QLineF shift = QLineF::fromPolar(distance, i * 360.0 / directions);
            painter.drawText(QRectF(box).translated(shift.p2()), flags, shown);
        }
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(box, flags, shown);
}
