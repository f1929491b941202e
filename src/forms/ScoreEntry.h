#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

/// What the score dialog asks, and what the operator answered.
struct ScoreEntry {
    QString Team = {};
    QString Round = {};
    QStringList JokerRounds = {}; ///< the other rounds in which the team has played its joker
    qint32 Score = 0;
    bool Joker = false;
    int Step = 0; ///< the team to ask for next: 1 is the one below in the list, -1 the one above
};
