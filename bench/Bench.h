#pragma once

#include "core/AppPaths.h"
#include "support/AppFolder.h"

#include <QElapsedTimer>
#include <QList>
#include <QString>

#include <ctime>

/// Nanoseconds that something of ours and its bare counterpart took.
struct Pair {
    double ours;
    double bare;
};

/// What is measured: the time on the wall where a disk takes part, otherwise the processor's, which
/// other programs on the machine disturb less.
enum class Clock { Wall, Processor };

/// Nanoseconds that an action takes.
template <typename Action>
double Time(Clock clock, Action&& action) {
    QElapsedTimer timer;
    timer.start();
    const std::clock_t start = std::clock();
    action();
    constexpr double nanoseconds = 1e9;
    return clock == Clock::Wall
               ? static_cast<double>(timer.nsecsElapsed())
               : static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC * nanoseconds;
}

/// The pair whose ratio is the median: what disturbs the machine for a while disturbs both
/// times of a pair, and what disturbs only one of them makes its ratio an outer one.
Pair Median(QList<Pair> pairs);

/// Times two actions in turn, so many rounds.
template <typename Ours, typename Bare>
Pair Compare(Clock clock, int rounds, Ours&& ours, Bare&& bare) {
    QList<Pair> pairs;
    for (int i = 0; i < rounds; ++i)
        pairs.append({Time(clock, ours), Time(clock, bare)});
    return Median(pairs);
}

/// An application folder and how many teams are in it.
struct Fixture {
    const AppFolder& folder;
    int teams;
};

/// Times an action in a large fixture, and in a small one as often as it takes to do it for as many
/// teams: what disturbs the machine hits a long measurement more often than a short one.
template <typename Action>
Pair CompareFixtures(const Fixture& large, const Fixture& small, int rounds, Action&& action) {
    const auto time = [&](const Fixture& fixture) {
        Paths().AppPath = fixture.folder.Path(QString());
        fixture.folder.Open();
        action(); // reads the file
        return Time(Clock::Processor, [&] {
            for (int done = 0; done < large.teams; done += fixture.teams)
                action();
        });
    };
    QList<Pair> pairs;
    for (int i = 0; i < rounds; ++i)
        pairs.append({time(large), time(small)});
    return Median(pairs);
}

/// Prints one line of the table: both times in microseconds for each of `count` operations, their
/// ratio and the ratio that is allowed, 0 when none is.
void PrintRow(const QString& what, const Pair& pair, double count, double limit);

void BenchData();
void BenchBoard();
void BenchScreens();
/// Starts this executable again, as the program and as an empty window.
void BenchStart();

/// One operation for a tool that counts instructions; false for an unknown name.
bool RunOnce(const QString& operation);
bool RunDataOnce(const QString& operation);
bool RunBoardOnce(const QString& operation);
/// Ends the process when the window has been painted.
bool RunStartOnce(const QString& operation);
