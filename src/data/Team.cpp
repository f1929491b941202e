#include "data/Team.h"

#include "core/Utilities.h"

Team::Team()
    : TeamID(AppUtilities().GenerateUnique()) {}

Team::Team(QString teamID, QString teamName)
    : TeamID(std::move(teamID))
    , TeamName(std::move(teamName))
    , IsStored(true) {}
