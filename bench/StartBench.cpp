#include "Bench.h"

#include "app/Desktop.h"
#include "app/InputGuard.h"
#include "app/Theme.h"
#include "app/modCommon.h"
#include "core/AppPaths.h"
#include "core/Utilities.h"
#include "data/DBObject.h"
#include "forms/frmMain.h"
#include "support/AppFolder.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QProcess>
#include <QProcessEnvironment>
#include <QWindow>

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <sys/resource.h>

namespace {

// Of the clock that all processes share.
double nanosecondsNow() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::nano>(now).count();
}

// Ends the process once a window has been painted, and says when that was (ns), how much memory it
// took (bytes) and how long the processor worked (ns).
class PaintedWatch : public QObject {
public:
    using QObject::QObject;

private:
    bool eventFilter(QObject* object, QEvent* event) override {
        // The event that shows a window paints all of it.
        if (event->type() == QEvent::Expose && static_cast<QWindow*>(object)->isExposed()) {
            object->event(event);
            const double painted = nanosecondsNow();
            rusage usage{};
            getrusage(RUSAGE_SELF, &usage);
            const auto time = [](const timeval& t) {
                return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_usec) * 1e3;
            };
            std::printf("%.0f %.0f %.0f\n", painted, static_cast<double>(usage.ru_maxrss) * 1024,
                        time(usage.ru_utime) + time(usage.ru_stime));
            std::fflush(stdout);
            std::_Exit(EXIT_SUCCESS);
        }
        return false;
    }
};

struct Costs {
    double time;      // ns from the process's start until its window is painted
    double memory;    // bytes at the most
    double processor; // ns
};

Costs start(const QString& what, const QString& platform) {
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    child.setProcessEnvironment(environment);
    const double begin = nanosecondsNow();
    child.start(QApplication::applicationFilePath(), {what});
    if (!child.waitForFinished() || child.exitCode() != 0)
        qFatal("%s did not start", qPrintable(what));
    const QByteArrayList words = child.readAllStandardOutput().simplified().split(' ');
    return {words.value(0).toDouble() - begin, words.value(1).toDouble(),
            words.value(2).toDouble()};
}

void benchStartOn(const QString& platform, const QString& where, double limit) {
    constexpr int rounds = 60;
    QList<Pair> times;
    QList<Pair> timesToWord;
    QList<Pair> processor;
    QList<Pair> memory;
    for (int i = 0; i < rounds; ++i) {
        const Costs console = start(QStringLiteral("console"), platform);
        const Costs empty = start(QStringLiteral("empty-window"), platform);
        const Costs word = start(QStringLiteral("word-window"), platform);
        times.append({console.time, empty.time});
        timesToWord.append({console.time, word.time});
        processor.append({console.processor, empty.processor});
        memory.append({console.memory, empty.memory});
    }
    const QString what = QStringLiteral("start to the console %1, ").arg(where);
    PrintRow(what + QStringLiteral("an empty window"), Median(times), 1, 0);
    PrintRow(what + QStringLiteral("one word"), Median(timesToWord), 1, limit);
    PrintRow(QStringLiteral("  processor time, an empty window"), Median(processor), 1, 0);
    PrintRow(QStringLiteral("  memory in kB, an empty window"), Median(memory), 1.024, 1.6);
}

} // namespace

void BenchStart() {
    const AppFolder folder;
    qputenv("RANKELO_BENCH_FOLDER", Paths().AppPath.toUtf8());
    benchStartOn(QStringLiteral("xcb"), QStringLiteral("on a display"), 1.3);
    benchStartOn(qEnvironmentVariable("QT_QPA_PLATFORM"), QStringLiteral("without one"), 0);
}

bool RunStartOnce(const QString& operation) {
    PaintedWatch watch(nullptr);
    qApp->installEventFilter(&watch);
    if (operation == u"empty-window" || operation == u"word-window") {
        QLabel window(operation == u"word-window" ? QStringLiteral("Rankelo") : QString());
        window.resize(900, 600);
        window.show();
        QApplication::exec();
    }
    if (operation == u"console") { // everything that Main does but the splash screen's two seconds
        Paths().TempPath = AppUtilities().ReturnTempPath();
        Paths().AppPath = qEnvironmentVariable("RANKELO_BENCH_FOLDER");
        Theme::Apply(*qApp);
        ConnectDesktop();
        InstallInputGuard(*qApp);
        if (!modCommon::Settings(modCommon::LoadSettings) || !AppDatabase().OpenDatabase())
            return false;
        frmMain window;
        window.show();
        QApplication::exec();
    }
    return false;
}
