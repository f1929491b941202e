#pragma once

#include <QLabel>

/// A plain text in one line that leaves out its middle when it is too long, and does not widen its
/// window.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(const QString& text = {});

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;
};
