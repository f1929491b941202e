#pragma once

#include <QComboBox>

/// A drop-down list that the wheel changes only while it is open: a turn over the closed one is
/// meant for something else, or for nothing.
class Chooser : public QComboBox {
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override;
};
