#include "display/BoardLabel.h"

#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double ReadableContrast = 4.5;

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

void BoardLabel::SetShrinking(double smallestShare, const QString& longest) {
    m_smallestShare = smallestShare;
    m_longest = longest;
}

// A hair of room on each side, so that no glyph touches the edge of its box.
double BoardLabel::insetFor(const QFont& font) {
    return QFontMetricsF(font).averageCharWidth() / 4;
}

double BoardLabel::roomEnd() const {
    return m_cover && m_cover->isVisible() ? std::min(width(), m_cover->x() - x()) : width();
}

QFont BoardLabel::fittingFont(const QString& text) const {
    QFont fitting = font();
    const double smallest = fitting.pointSizeF() * m_smallestShare;
    // Glyphs do not shrink quite as much as their font.
    constexpr double step = 0.97;
    while (fitting.pointSizeF() > smallest) {
        const QFontMetricsF metrics(fitting);
        const double room = roomEnd() - 2 * insetFor(fitting);
        const double needed =
            std::max(metrics.horizontalAdvance(text), metrics.horizontalAdvance(m_longest));
        if (needed <= room)
            break;
        fitting.setPointSizeF(
            std::max(smallest, fitting.pointSizeF() * std::clamp(room / needed, 0.5, step)));
    }
    return fitting;
}

void BoardLabel::paintEvent(QPaintEvent*) {
    // In one line, though a name may hold line ends.
    QString line = text();
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return c.isSpace(); }, u' ');
    const QFont drawn = fittingFont(line);
    const double inset = insetFor(drawn);
    const QRectF box(inset, 0, roomEnd() - 2 * inset, height());
    if (line.isEmpty() || box.width() <= 0)
        return;
    const QFontMetricsF metrics(drawn);
    const QString shown = metrics.horizontalAdvance(line) <= box.width()
                              ? line
                              : metrics.elidedText(line, Qt::ElideRight, box.width());

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
            painter.drawText(box.translated(shift.p2()), flags, shown);
        }
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(box, flags, shown);
}
