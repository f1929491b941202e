#pragma once

#include <QString>

/// One competitor of the quiz.
struct Team {
    /// A new team. Its key is made now, before the first save.
    Team();
    /// A team as the database holds it.
    Team(QString teamID, QString teamName);

    QString TeamID;
    QString TeamName;
    bool IsStored = false; ///< read from the database: Save updates instead of inserting
};
