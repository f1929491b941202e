#pragma once

#include "core/DisplaySettings.h"

#include <QList>
#include <QtGlobal>

/// Where the lines of a board stand. Distances in twips; sums that leave 32 bits are error 6.
class BoardLayout {
public:
    /// The left top corner of a line, which is that of its position box.
    struct Place {
        qint32 Left{};
        qint32 Top{};
    };

    /// For a board of this size with so many lines. Error 13 when the font size is no number.
    BoardLayout(const DisplaySettings& settings, qint32 width, qint32 height, qint32 lines);

    qint32 LineHeight() const { return m_lineHeight; }
    qint32 HeadingHeight() const;
    /// Points.
    qint32 HeadingSize() const;

    // The boxes of a line. The width of a number, a position or a score, is the same in one column
    // and in two; error 11 when the label width is 0.
    qint32 NumberWidth() const;
    qint32 NameWidth() const;
    qint32 NameLeft(qint32 lineLeft) const;
    qint32 ScoreLeft(qint32 lineLeft) const;

    Place First() const;
    /// The top of the line below one.
    qint32 Below(qint32 top) const;
    /// The same place, or the top of the next column when the place is in the footer. The last line
    /// of a column may thus reach into it, and columns that do not fit go on beyond the right edge.
    Place Wrapped(Place place) const;

    /// How many of the lines do not lie on the board with their whole box.
    int LinesOutside() const;

private:
    DisplaySettings m_settings;
    qint32 m_width;
    qint32 m_height;
    qint32 m_lines;
    qint32 m_lineHeight;
    qint32 m_columns;
    qint32 m_columnWidth;
};

/// The font sizes that an operator chooses from, in points, ascending.
QList<int> ListedSizes();

/// The largest of the listed sizes with which every line is on the board; 0 when there is none.
int LargestFittingSize(DisplaySettings settings, qint32 width, qint32 height, qint32 lines);
