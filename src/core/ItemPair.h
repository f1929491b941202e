#pragma once

#include <QString>

/// A key and its value, as a section of an INI file holds them.
struct ItemPair {
    QString Key;
    QString Value;
};
