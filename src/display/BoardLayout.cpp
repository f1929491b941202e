#include "display/BoardLayout.h"

#include "core/Numbers.h"
#include "core/RuntimeError.h"

#include <QString>

namespace {

// A line is a tenth higher than its letters: 22 twips to the point, of which there are 20.
constexpr double TwipsPerPoint = 22;
constexpr double HeadingScale = 1.5;

double divide(double value, double divisor) {
    if (divisor == 0)
        throw RuntimeError(ErrorNumber::DivisionByZero, QStringLiteral("Division by zero"));
    return value / divisor;
}

} // namespace

BoardLayout::BoardLayout(const DisplaySettings& settings, qint32 width, qint32 height, qint32 lines)
    : m_settings(settings)
    , m_width(width)
    , m_height(height)
    , m_lines(lines)
    , m_lineHeight(ToInt32(ToNumber(settings.FontSize) * TwipsPerPoint))
    // Padding and footer are left out of this test, though a column ends before the footer.
    , m_columns(height < static_cast<double>(lines) * m_lineHeight ? 2 : 1)
    , m_columnWidth(ToInt32(static_cast<double>(width) / m_columns)) {}

qint32 BoardLayout::HeadingHeight() const {
    return ToInt32(m_lineHeight * HeadingScale);
}

qint32 BoardLayout::HeadingSize() const {
    return ToInt32(ToNumber(m_settings.FontSize) * HeadingScale);
}

qint32 BoardLayout::NumberWidth() const {
    // The label width is a divisor; twice of it in one column keeps the box as wide as in two.
    const double divisor = m_settings.LabelWidth * (m_columns == 1 ? 2.0 : 1.0);
    return ToInt32(divide(m_columnWidth, divisor) - m_settings.RightMargin);
}

qint32 BoardLayout::NameWidth() const {
    return ToInt32(static_cast<double>(m_columnWidth) - 2.0 * NumberWidth() -
                   (static_cast<double>(m_settings.LeftMargin) + m_settings.RightMargin));
}

qint32 BoardLayout::NameLeft(qint32 lineLeft) const {
    return CheckedAdd(lineLeft, CheckedAdd(m_settings.CellPadX, NumberWidth()));
}

qint32 BoardLayout::ScoreLeft(qint32 lineLeft) const {
    return CheckedAdd(NameLeft(lineLeft), CheckedAdd(m_settings.CellPadX, NameWidth()));
}

BoardLayout::Place BoardLayout::First() const {
    return {m_settings.LeftMargin, CheckedMultiply(2, m_lineHeight)};
}

qint32 BoardLayout::Below(qint32 top) const {
    return CheckedAdd(top, CheckedAdd(m_lineHeight, m_settings.CellPadY));
}

BoardLayout::Place BoardLayout::Wrapped(Place place) const {
    if (CheckedSubtract(m_height, m_settings.Footer) >= place.Top)
        return place;
    return {CheckedAdd(place.Left, m_columnWidth), First().Top};
}

int BoardLayout::LinesOutside() const {
    int outside = 0;
    Place place = First();
    for (qint32 line = 0; line < m_lines; ++line) {
        const qint32 right = CheckedAdd(ScoreLeft(place.Left), NumberWidth());
        const qint32 bottom = CheckedAdd(place.Top, m_lineHeight);
        const bool isInside =
            place.Left >= 0 && place.Top >= 0 && right <= m_width && bottom <= m_height;
        outside += isInside ? 0 : 1;
        place = Wrapped({place.Left, Below(place.Top)});
    }
    return outside;
}

QList<int> ListedSizes() {
    // Three characters a size.
    const QString sizes =
        QStringLiteral("8  9  10 11 12 14 16 18 20 22 24 26 28 30 32 34 40 52 70");
    constexpr int sizeLength = 3;
    QList<int> list;
    for (qsizetype i = 0; i < sizes.size(); i += sizeLength)
        list.append(sizes.mid(i, sizeLength).trimmed().toInt());
    return list;
}

int LargestFittingSize(DisplaySettings settings, qint32 width, qint32 height, qint32 lines) {
    int largest = 0;
    for (const int size : ListedSizes()) {
        settings.FontSize = QString::number(size);
        if (BoardLayout(settings, width, height, lines).LinesOutside() == 0)
            largest = size;
    }
    return largest;
}
