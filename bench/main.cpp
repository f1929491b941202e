#include "Bench.h"

#include "app/FontSearch.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <string_view>

void PrintRow(const QString& what, const Pair& pair, double count, double limit) {
    constexpr double microsecond = 1000;
    const double ratio = pair.ours / pair.bare;
    QString verdict;
    if (limit > 0)
        verdict = QStringLiteral("%1  %2")
                      .arg(limit, 5, 'f', 2)
                      .arg(ratio <= limit ? QStringLiteral("holds") : QStringLiteral("OVER"));
    std::printf("%-52s %12.1f %12.1f %7.2f %s\n", qPrintable(what), pair.ours / count / microsecond,
                pair.bare / count / microsecond, ratio, qPrintable(verdict));
    std::fflush(stdout);
}

Pair Middle(QList<Pair> pairs) {
    const auto middle = pairs.begin() + pairs.size() / 2;
    std::nth_element(pairs.begin(), middle, pairs.end(), [](const Pair& a, const Pair& b) {
        return a.ours / a.bare < b.ours / b.bare;
    });
    return *middle;
}

bool RunOnce(const QString& operation, std::jthread& search) {
    return RunStartOnce(operation, search) || RunBoardOnce(operation) || RunDataOnce(operation);
}

int main(int argc, char** argv) {
    // As the program does, which is one of the operations.
    const bool isProgram = argc == 2 && std::string_view(argv[1]) == "console";
    std::jthread search = isProgram ? LookForFonts() : std::jthread();
    QApplication application(argc, argv);
    if (const QStringList words = QApplication::arguments(); words.size() == 2)
        return RunOnce(words[1], search) ? EXIT_SUCCESS : EXIT_FAILURE;
    std::printf("%-52s %12s %12s %7s %s\n", "", "ours, us", "bare, us", "ratio", "limit");
    BenchStart();
    BenchBoard();
    BenchScreens();
    BenchData();
    return EXIT_SUCCESS;
}
