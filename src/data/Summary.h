#pragma once

#include <QString>
#include <QtGlobal>

/// One row of standings.
struct Summary {
    QString TeamName;
    qint32 Score = 0;    ///< points, a joker round counted double
    bool Joker = false;  ///< joker played on this round; overall: on any round
    qint32 Position = 0; ///< 1 is best; equal scores share a place and the next place follows on
};
