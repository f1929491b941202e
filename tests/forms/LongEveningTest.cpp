#include "Screens.h"
#include "data/ResultDAO.h"
#include "display/frmSummary.h"
#include "forms/modForms.h"
#include "support/Soak.h"

#include <QDir>
#include <QLoggingCategory>
#include <QTest>

#include <malloc.h>

namespace {

qint64 heapInUse() {
    const auto info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}

qsizetype openHandles() {
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size();
}

// The first times fill the caches; from then on nothing grows by more than a fiftieth.
void staysFlat(int times, const std::function<void(int)>& action) {
    const int warmUp = std::min(times / 2, 1000);
    qint64 heap = 0;
    qsizetype handles = 0;
    for (int done = 0; done < times; ++done) {
        if (done == warmUp) {
            heap = heapInUse();
            handles = openHandles();
        }
        action(done);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    const qint64 growth = heapInUse() - heap;
    qInfo("%d times: the heap went from %lld kB by %+lld kB", times, heap / 1024, growth / 1024);
    QVERIFY(growth <= heap / 50);
    QCOMPARE(openHandles(), handles);
}

} // namespace

/// What an operator does a hundred times on one evening, done thousands of times: neither memory
/// nor handles may grow.
class LongEveningTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        // The platform without a screen says for each board that it cannot raise a window.
        QLoggingCategory::setFilterRules("default.warning=false");
        WriteFile(m_evening.Path("JOKER.BMP"), ReadFile(":/JOKER.BMP"));
    }

    void boardsOpenAndClose() {
        staysFlat(SoakCount(200, 10000), [](int) {
            modForms::ViewResults(modForms::OverallOnBoard, 4, QString());
            for (QWidget* window : QApplication::topLevelWidgets())
                if (auto* board = qobject_cast<frmSummary*>(window)) {
                    for (const qint32 position : {3, 2, 1})
                        QVERIFY(board->SetLineVisible(position));
                    QCoreApplication::processEvents();
                    QVERIFY(board->close());
                }
        });
    }

    void screensOpenAndClose() {
        staysFlat(SoakCount(200, 10000), [](int i) {
            const auto screen = Screens[static_cast<size_t>(i) % std::size(Screens)].Make();
            screen->show();
            QCoreApplication::processEvents();
        });
    }

    void scoresAreSaved() {
        const auto results = ResultDAO().GetResultList({}, {});
        QVERIFY(results && results->LastIndex() == 1);
        staysFlat(SoakCount(2000, 100000), [&](int i) {
            Result& result = *results->Item(i % 2);
            result.Score = i;
            QVERIFY(ResultDAO().Save(result));
        });
        QCOMPARE(m_evening.TakeReports(), QStringList());
    }

private:
    Evening m_evening;
};

QTEST_MAIN(LongEveningTest)
#include "LongEveningTest.moc"
