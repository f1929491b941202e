#pragma once

#include "app/Chooser.h"

struct Round;

/// The rounds of the quiz in a list that drops down, one item each, found again by its key.
class RoundChooser : public Chooser {
    Q_OBJECT

public:
    RoundChooser();

    /// Clears itself and takes every round in the order of its number, under the text that
    /// `caption` makes of it. Throws when the rounds cannot be read; it is empty then.
    void Fill(QString (*caption)(const Round& round));
    /// The key of the selected round, empty without one.
    QString SelectedKey() const { return currentData().toString(); }
};
