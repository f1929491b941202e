#include "app/Chooser.h"

#include <QWheelEvent>

void Chooser::wheelEvent(QWheelEvent* event) {
    event->ignore();
}
