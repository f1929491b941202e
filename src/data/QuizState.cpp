#include "data/QuizState.h"

#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/DBObject.h"
#include "data/Require.h"

std::optional<QuizState> CountQuiz(const QString& roundKey) {
    return Guarded("CountQuiz", "QuizState", std::optional<QuizState>(), [&] {
        const auto rows = AppDatabase().GetRecordSet(
            QStringLiteral("SELECT (SELECT COUNT(*) FROM Rounds),(SELECT COUNT(*) FROM Teams),"
                           "(SELECT COUNT(*) FROM Teams WHERE TeamID IN "
                           "(SELECT TeamID FROM Results WHERE RoundID='") +
            roundKey + QStringLiteral("'))"));
        const RecordSet& row = Require(rows);
        return std::optional(
            QuizState{ToInt32(row.Field(0)), ToInt32(row.Field(1)), ToInt32(row.Field(2))});
    });
}
