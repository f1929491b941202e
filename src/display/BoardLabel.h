#pragma once

#include <QLabel>

/// A text on the board, made to be read from the back row: centred in its height and outlined when
/// its two colours are too close to each other. A name that is too long for its box ends with an
/// ellipsis; a place or a score, which is not aligned left, is drawn smaller, never cut.
class BoardLabel : public QLabel {
    Q_OBJECT

public:
    explicit BoardLabel(QWidget* parent);

    /// Background and text colour.
    void SetColors(const QColor& back, const QColor& fore);
    /// Keeps the text off the right end, in pixels, where a picture lies over the label.
    void SetReserve(int pixels) { m_reserve = pixels; }

    /// The colour drawn round the glyphs, invalid where text and background are told apart easily.
    QColor OutlineColor() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The text in one line, though a name may hold line ends.
    QString line() const;
    QFont fittingFont(int width) const;

    int m_reserve = 0;
};

/// How far two colours are apart, from 1 (the same) to 21 (black and white); text wants 4.5.
double ContrastRatio(const QColor& a, const QColor& b);
