#include "data/Result.h"

#include "core/Utilities.h"

Result::Result()
    : ResultID(AppUtilities().GenerateUnique()) {}

Result::Result(QString resultID, QString roundID, QString teamID, qint32 score, qint32 joker)
    : ResultID(std::move(resultID))
    , RoundID(std::move(roundID))
    , TeamID(std::move(teamID))
    , Score(score)
    , Joker(joker)
    , IsStored(true) {}
