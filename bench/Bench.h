#pragma once

#include <QElapsedTimer>
#include <QString>

#include <algorithm>
#include <ctime>
#include <limits>
#include <thread>

/// Nanoseconds that something of ours and its bare counterpart took.
struct Pair {
    double ours = std::numeric_limits<double>::max();
    double bare = std::numeric_limits<double>::max();
};

/// What is measured: the time on the wall where a disk takes part, otherwise the processor's, which
/// other programs on the machine disturb less.
enum class Clock { Wall, Processor };

/// Times two actions in turn, so that both see the same machine, and keeps the shortest of each:
/// what disturbs a machine only ever makes it slower.
template <typename Ours, typename Bare>
Pair Compare(Clock clock, int rounds, Ours&& ours, Bare&& bare) {
    const auto time = [clock](auto&& action) {
        QElapsedTimer timer;
        timer.start();
        const std::clock_t start = std::clock();
        action();
        constexpr double nanoseconds = 1e9;
        return clock == Clock::Wall
                   ? static_cast<double>(timer.nsecsElapsed())
                   : static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC * nanoseconds;
    };
    Pair pair;
    for (int i = 0; i < rounds; ++i) {
        pair.ours = std::min(pair.ours, time(ours));
        pair.bare = std::min(pair.bare, time(bare));
    }
    return pair;
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
bool RunOnce(const QString& operation, std::jthread& fonts);
bool RunDataOnce(const QString& operation);
bool RunBoardOnce(const QString& operation);
/// Ends the process when the window has been painted. The search for fonts has begun.
bool RunStartOnce(const QString& operation, std::jthread& fonts);
