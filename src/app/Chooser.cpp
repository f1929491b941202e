#include "app/Chooser.h"

#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QWheelEvent>

Chooser::Chooser() {
    connect(this, &QComboBox::activated, this, [this] {
        if (m_isOpen)
            emit picked();
    });
}

// On some desktops only a label gives a chooser its name, be it one that nobody sees.
void Chooser::SetSpokenName(const QString& name) {
    setAccessibleName(name);
    if (lineEdit())
        lineEdit()->setAccessibleName(name);
    auto* label = new QLabel(name, parentWidget());
    label->setBuddy(this);
    label->hide();
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
