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

QStringList JokerRoundsBeside(const QString& roundKey, const QString& teamKey) {
    return Guarded("JokerRoundsBeside", "QuizState", QStringList(), [&] {
        auto rows = AppDatabase().GetRecordSet(
            QStringLiteral("SELECT RoundName FROM Rounds JOIN Results USING (RoundID) "
                           "WHERE Joker=1 AND TeamID='%1' AND RoundID<>'%2' ORDER BY RoundNumber")
                .arg(teamKey, roundKey));
        QStringList names;
        for (RecordSet& row = Require(rows); !row.EndOfFile(); row.MoveNext())
            names.append(AppDatabase().SetField(row.Field(0)));
        return names;
    });
}
