#pragma once

#include "core/ObjectList.h"
#include "data/Round.h"

#include <QString>

#include <memory>

/// Lists, fetches, deletes, saves, numbers and reorders rounds. Failures are reported to the log;
/// the answer is then false or nothing.
class RoundDAO {
public:
    enum Direction : qint32 { Up = 1, Down = 2 };

    /// Every round by number, rounds of the same number by name.
    std::unique_ptr<ObjectList<Round>> GetRoundList();
    /// Nothing when no round has the key.
    std::unique_ptr<Round> GetRound(const QString& key);
    /// Leaves the round's results in place and the other rounds' numbers as they are. False for an
    /// unknown key.
    bool Delete(const QString& key);
    /// Inserts a new round under the next free number, whatever number it carried, or updates a
    /// stored one. Does not mark a new one as stored.
    bool Save(Round& round);
    /// Moves a round one place and numbers the others densely around it. The new number comes from
    /// the round's old number, so the first round moved up gets 0. An unknown key only renumbers.
    bool Reorder(const QString& key, qint32 direction);
    /// One more than the highest number; 1 without rounds.
    qint32 GetNextRound();
};
