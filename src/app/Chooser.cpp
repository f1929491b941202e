#include "app/Chooser.h"

#include <QTimer>
#include <QWheelEvent>

Chooser::Chooser() {
    connect(this, &QComboBox::activated, this, [this] {
        if (m_isOpen)
            emit picked();
    });
}

void Chooser::showPopup() {
    m_isOpen = true;
    QComboBox::showPopup();
}

// The list is hidden before its entry is taken over.
void Chooser::hidePopup() {
    QComboBox::hidePopup();
    QTimer::singleShot(0, this, [this] { m_isOpen = false; });
}

void Chooser::wheelEvent(QWheelEvent* event) {
    event->ignore();
}
