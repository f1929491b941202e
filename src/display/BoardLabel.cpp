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

struct FittedText {
    QFont Font;
    double Inset; ///< a hair of room on each side, so that no glyph touches the edge of its box
    double Width;
};

// A text in the largest font, down to the smallest size in points, in which it has room.
FittedText fit(const QString& text, QFont font, double room, double smallest) {
    // Glyphs do not shrink quite as much as their font.
    constexpr double step = 0.97;
    for (;;) {
        const QFontMetricsF metrics(font);
        const FittedText fitted{font, metrics.height() / 10, metrics.horizontalAdvance(text)};
        const double share = (room - 2 * fitted.Inset) / fitted.Width;
        const double points = font.pointSizeF();
        if (share >= 1 || points <= smallest)
            return fitted;
        font.setPointSizeF(std::max(smallest, points * std::clamp(share, 0.5, step)));
    }
}

} // namespace

double ContrastRatio(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

BoardLabel::BoardLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void BoardLabel::SetColors(const QColor& back, const QColor& fore) {
    m_back = back;
    m_fore = fore;
    update();
}

QColor BoardLabel::OutlineColor() const {
    if (ContrastRatio(m_fore, m_back) >= ReadableContrast)
        return {};
    return ContrastRatio(m_fore, Qt::black) >= ContrastRatio(m_fore, Qt::white) ? Qt::black
                                                                                : Qt::white;
}

void BoardLabel::SetShrinking(double smallestShare, double largest) {
    m_smallestShare = smallestShare;
    m_largest = largest;
}

double BoardLabel::FittingSize(const QString& text, const QFont& font, double width) {
    return fit(text, font, width, font.pointSizeF() * AnyShare).Font.pointSizeF();
}

double BoardLabel::roomEnd() const {
    return m_cover && m_cover->isVisible() ? std::min(width(), m_cover->x() - x()) : width();
}

void BoardLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_back);
    // In one line, though a name may hold line ends.
    QString line = text();
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return c.isSpace(); }, u' ');
    QFont largest = font();
    const double smallest = largest.pointSizeF() * m_smallestShare;
    largest.setPointSizeF(std::min(largest.pointSizeF(), m_largest));
    auto [drawn, inset, advance] = fit(line, largest, roomEnd(), smallest);
    const QFontMetricsF metrics(drawn);
    const double room = roomEnd() - 2 * inset;
    if (line.isEmpty() || room <= 0)
        return;
    if (advance > room) {
        line = metrics.elidedText(line, Qt::ElideRight, room);
        advance = metrics.horizontalAdvance(line);
    }
    double left = inset;
    if (alignment() & Qt::AlignRight)
        left += room - advance;
    else if (alignment() & Qt::AlignHCenter)
        left += (room - advance) / 2;
    // On whole pixels, where the same glyph always looks the same.
    const QPoint start(qRound(left), qRound((height() - metrics.height()) / 2 + metrics.ascent()));

    painter.setFont(drawn);
    if (const QColor outline = OutlineColor(); outline.isValid()) {
        // The text around itself: the glyphs are known already, and a drawn contour costs more
        // than all other lines of a board together.
        painter.setPen(outline);
        const double distance = std::max(1.0, metrics.height() / 20.0);
        const int directions = std::max(8, static_cast<int>(3 * distance));
        for (int i = 0; i < directions; ++i) {
            const QLineF shift = QLineF::fromPolar(distance, i * 360.0 / directions);
            painter.drawText(start + shift.p2(), line);
        }
    }
    painter.setPen(m_fore);
    painter.drawText(start, line);
}
