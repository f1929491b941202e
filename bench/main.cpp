#include "Bench.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>

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

Pair Median(QList<Pair> pairs) {
    const auto median = pairs.begin() + pairs.size() / 2;
    std::nth_element(pairs.begin(), median, pairs.end(), [](const Pair& a, const Pair& b) {
        return a.ours / a.bare < b.ours / b.bare;
    });
    return *median;
}

bool RunOnce(const QString& operation) {
    return RunStartOnce(operation) || RunBoardOnce(operation) || RunDataOnce(operation);
}

int main(int argc, char** argv) {
    // The platform without windows says that it cannot raise one each time that it is asked, and
    // writing that takes longer than much of what is measured.
    static const QtMessageHandler say = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& where, const QString& text) {
            if (!text.startsWith(u"This plugin does not support"))
                say(type, where, text);
        });
    QApplication application(argc, argv);
    if (const QStringList words = QApplication::arguments(); words.size() == 2)
        return RunOnce(words[1]) ? EXIT_SUCCESS : EXIT_FAILURE;
    std::printf("%-52s %12s %12s %7s %s\n", "", "ours, us", "bare, us", "ratio", "limit");
    BenchStart();
    BenchBoard();
    BenchScreens();
    BenchData();
    return EXIT_SUCCESS;
}
