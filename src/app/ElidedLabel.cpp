#include "app/ElidedLabel.h"

#include <QPainter>

ElidedLabel::ElidedLabel(const QString& text)
    : QLabel(text) {
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}
