#pragma once

#include "core/ObjectList.h"
#include "data/Summary.h"

#include <QString>

#include <memory>

using SummaryList = ObjectList<Summary>;

/// Turns stored results into standings, best first. Failures are reported to the log; the answer
/// is then nothing, never a part of the list.
class SummaryDAO {
public:
    /// The teams that have a result in the round. Among equal scores mode 1 orders by team name,
    /// mode 2 by the score before doubling and then by name.
    std::unique_ptr<SummaryList> GetSummaryForRound(const QString& roundKey, qint32 mode);
    /// Every team with the sum of all its results, those without any last with 0; equal scores in
    /// the order of names. The mode makes no difference.
    std::unique_ptr<SummaryList> GetOverallSummary(qint32 mode);
    /// Sorts by descending score, keeping the order of equal scores, and sets the positions. The
    /// list keeps its objects in their places and is returned; nothing for no list.
    SummaryList* SortSummaryList(SummaryList* list);
};
