#pragma once

#include "core/ObjectList.h"
#include "data/Result.h"

#include <QString>

#include <memory>

/// Lists, fetches, deletes and saves results. Failures are reported to the log; the answer is then
/// false or nothing.
class ResultDAO {
public:
    /// The results of a round, of a team, or of a team in a round; an empty key does not filter.
    std::unique_ptr<ObjectList<Result>> GetResultList(const QString& roundKey,
                                                      const QString& teamKey);
    /// Nothing when no result has the key.
    std::unique_ptr<Result> GetResult(const QString& key);
    /// False for an unknown key.
    bool Delete(const QString& key);
    /// Inserts a new result, updates a stored one. Does not mark a new one as stored.
    bool Save(const Result& result);
};
