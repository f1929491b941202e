#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>

/// How far the quiz is.
struct QuizState {
    qint32 Rounds = 0;
    qint32 Teams = 0;
    qint32 Entered = 0; ///< teams with a result in the round
};

/// Counts the quiz, and the results of the round with the key. One query; nothing when it failed,
/// which is reported to the log.
std::optional<QuizState> CountQuiz(const QString& roundKey);

/// The names of the rounds in which a team has played its joker, but for one round, in the order of
/// their numbers. None when they cannot be read, which is reported to the log.
QStringList JokerRoundsBeside(const QString& roundKey, const QString& teamKey);
