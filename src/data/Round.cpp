#include "data/Round.h"

#include "core/Utilities.h"

Round::Round()
    : RoundID(AppUtilities().GenerateUnique()) {}

Round::Round(QString roundID, QString roundName, qint32 roundNumber, qint32 maxScore)
    : RoundID(std::move(roundID))
    , RoundName(std::move(roundName))
    , RoundNumber(roundNumber)
    , MaxScore(maxScore)
    , IsStored(true) {}
