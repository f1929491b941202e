#pragma once

#include <QComboBox>

/// A drop-down list that the wheel changes only while it is open: a turn over the closed one is
/// meant for something else, or for nothing.
class Chooser : public QComboBox {
    Q_OBJECT

public:
    Chooser();

    /// Says what is chosen here where no label stands beside it, to a screen reader; for a chooser
    /// that is in its window already.
    void SetSpokenName(const QString& name);

    void showPopup() override;
    void hidePopup() override;

signals:
    /// An entry was picked in the open list, not stepped to in the closed one.
    void picked();

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    bool m_isOpen = false;
};
