#pragma once

#include <QString>
#include <QtGlobal>

/// One part of the quiz, with its own scores.
struct Round {
    /// A new round. Its key is made now, its number when it is saved.
    Round();
    /// A round as the database holds it.
    Round(QString roundID, QString roundName, qint32 roundNumber, qint32 maxScore);

    QString RoundID;
    QString RoundName;
    qint32 RoundNumber = 1; ///< its place in the quiz
    qint32 MaxScore = 0;
    bool IsStored = false; ///< read from the database: Save updates instead of inserting
};
