#pragma once

#include <QLabel>
#include <QPointer>

#include <limits>

/// A text on the board, made to be read from the back row: centred in its height and outlined when
/// its two colours are too close to each other. A text too long for its box is drawn smaller, as
/// far as it may be, and then ends with an ellipsis.
class BoardLabel : public QLabel {
    Q_OBJECT

public:
    explicit BoardLabel(QWidget* parent);

    /// Background and text colour; not of the palette, which costs more than painting the text.
    void SetColors(const QColor& back, const QColor& fore);
    const QColor& BackColor() const { return m_back; }
    const QColor& ForeColor() const { return m_fore; }
    /// Lets the text be drawn smaller, down to a share of its size: 1 for not at all, AnyShare
    /// however small it must be. Whatever its room, it is drawn no larger than `largest` points.
    void SetShrinking(double smallestShare, double largest = std::numeric_limits<double>::max());
    static constexpr double AnyShare = 0.02;
    /// The size in points at which a text fits into a label of so many pixels: the font's own, or
    /// a smaller one.
    static double FittingSize(const QString& text, const QFont& font, double width);

    /// Keeps the text off a picture that lies over the right end of the label, while it shows.
    void SetCover(const QWidget* picture) { m_cover = picture; }

    /// The colour drawn round the glyphs, invalid where text and background are told apart easily.
    QColor OutlineColor() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Where the text must end, in pixels from the left.
    double roomEnd() const;

    QColor m_back;
    QColor m_fore;
    QPointer<const QWidget> m_cover;
    double m_smallestShare = 1;
    double m_largest = std::numeric_limits<double>::max();
};

/// How far two colours are apart, from 1 (the same) to 21 (black and white); text wants 4.5.
double ContrastRatio(const QColor& a, const QColor& b);
