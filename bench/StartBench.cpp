#include "Bench.h"

#include "app/Desktop.h"
#include "app/HeldKeys.h"
#include "app/Theme.h"
#include "app/modCommon.h"
#include "core/AppValues.h"
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

#include <cstdio>
#include <cstdlib>

#include <sys/resource.h>

namespace {

// Ends the process once a window has been painted, and says how much memory it took (kB) and how
// long the processor worked (us).
class PaintedWatch : public QObject {
public:
    using QObject::QObject;

private:
    bool eventFilter(QObject* object, QEvent* event) override {
        // The event that shows a window paints all of it.
        if (event->type() == QEvent::Expose && static_cast<QWindow*>(object)->isExposed()) {
            object->event(event);
            rusage usage{};
            getrusage(RUSAGE_SELF, &usage);
            const auto time = [](const timeval& t) { return t.tv_sec * 1000000L + t.tv_usec; };
            std::printf("%ld %ld\n", usage.ru_maxrss, time(usage.ru_utime) + time(usage.ru_stime));
            std::fflush(stdout);
            std::_Exit(EXIT_SUCCESS);
        }
        return false;
    }
};

struct Costs {
    QList<double> time;      // ns from the start to the end
    QList<double> processor; // ns
    QList<double> memory;    // bytes at the most
};

// A start waits for other processes, such as the display's: its shortest time is a stroke of luck.
double median(QList<double> values) {
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void start(const QString& what, const QString& platform, Costs& costs) {
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    child.setProcessEnvironment(environment);
    QElapsedTimer timer;
    timer.start();
    child.start(QApplication::applicationFilePath(), {what});
    if (!child.waitForFinished() || child.exitCode() != 0)
        qFatal("%s did not start", qPrintable(what));
    const QByteArrayList words = child.readAllStandardOutput().simplified().split(' ');
    costs.time.append(static_cast<double>(timer.nsecsElapsed()));
    costs.memory.append(words.value(0).toDouble() * 1024);
    costs.processor.append(words.value(1).toDouble() * 1000);
}

void benchStartOn(const QString& platform, const QString& where) {
    constexpr int rounds = 60;
    Costs console;
    Costs empty;
    Costs word;
    for (int i = 0; i < rounds; ++i) {
        start(QStringLiteral("console"), platform, console);
        start(QStringLiteral("empty-window"), platform, empty);
        start(QStringLiteral("word-window"), platform, word);
    }
    PrintRow(QStringLiteral("start to the console %1, an empty window").arg(where),
             {median(console.time), median(empty.time)}, 1, 1.5);
    PrintRow(QStringLiteral("start to the console %1, one word").arg(where),
             {median(console.time), median(word.time)}, 1, 1.5);
    PrintRow(QStringLiteral("  processor time, an empty window"),
             {median(console.processor), median(empty.processor)}, 1, 0);
    PrintRow(QStringLiteral("  memory in kB, an empty window"),
             {median(console.memory), median(empty.memory)}, 1.024, 1.6);
}

} // namespace

void BenchStart() {
    const AppFolder folder;
    qputenv("RANKELO_BENCH_FOLDER", App().AppPath.toUtf8());
    benchStartOn(QStringLiteral("xcb"), QStringLiteral("on a display"));
    benchStartOn(qEnvironmentVariable("QT_QPA_PLATFORM"), QStringLiteral("without one"));
}

bool RunStartOnce(const QString& operation, std::jthread& fonts) {
    PaintedWatch watch(nullptr);
    qApp->installEventFilter(&watch);
    if (operation == u"empty-window" || operation == u"word-window") {
        QLabel window(operation == u"word-window" ? QStringLiteral("Rankelo") : QString());
        window.resize(900, 600);
        window.show();
        QApplication::exec();
    }
    if (operation == u"console") { // everything that Main does but the splash screen's two seconds
        App().TempPath = AppUtilities().ReturnTempPath();
        App().AppPath = qEnvironmentVariable("RANKELO_BENCH_FOLDER");
        Theme::Apply(*qApp);
        ConnectDesktop();
        IgnoreHeldKeys(*qApp);
        if (!modCommon::Settings(modCommon::LoadSettings) || !AppDatabase().OpenDatabase())
            return false;
        frmMain window;
        fonts = {};
        window.show();
        QApplication::exec();
    }
    return false;
}
