#pragma once

#include <QLabel>
#include <QPointer>

/// A text on the board, made to be read from the back row: centred in its height and outlined when
/// its two colours are too close to each other. A text too long for its box is drawn smaller, as
/// far as it may be, and then ends with an ellipsis.
class BoardLabel : public QLabel {
    Q_OBJECT

public:
    explicit BoardLabel(QWidget* parent);

    /// Background and text colour.
    void SetColors(const QColor& back, const QColor& fore);
    /// Lets the text be drawn smaller, down to a share of its size; 1 for not at all. It is drawn
    /// as small as the longest text of its kind needs, so that a column has one size.
    void SetShrinking(double smallestShare, const QString& longest = {});
    /// Keeps the text off a picture that lies over the right end of the label, while it shows.
    void SetCover(const QWidget* picture) { m_cover = picture; }

    /// The colour drawn round the glyphs, invalid where text and background are told apart easily.
    QColor OutlineColor() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static double insetFor(const QFont& font);
    /// Where the text must end, in pixels from the left.
    double roomEnd() const;
    QFont fittingFont(const QString& text) const;

    QPointer<const QWidget> m_cover;
    double m_smallestShare = 1;
    QString m_longest;
};

/// How far two colours are apart, from 1 (the same) to 21 (black and white); text wants 4.5.
double ContrastRatio(const QColor& a, const QColor& b);
