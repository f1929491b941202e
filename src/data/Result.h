#pragma once

#include <QString>
#include <QtGlobal>

/// One team's score in one round.
struct Result {
    /// A new result. Its key is made now, before the first save.
    Result();
    /// A result as the database holds it.
    Result(QString resultID, QString roundID, QString teamID, qint32 score, qint32 joker);

    QString ResultID;
    QString RoundID;
    QString TeamID;
    qint32 Score = 0;      ///< before any doubling
    qint32 Joker = 0;      ///< 1 when the team played its joker on this round
    bool IsStored = false; ///< read from the database: Save updates instead of inserting
};
