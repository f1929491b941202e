#pragma once

#include <QLabel>

/// A text in one line that leaves out its middle when it is too long, and does not widen its
/// window.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;
};
