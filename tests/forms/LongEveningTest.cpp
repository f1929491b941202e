#include "Screens.h"
#include "data/ResultDAO.h"
#include "forms/modForms.h"
#include "support/Soak.h"

#include <QDir>
#include <QLoggingCategory>
#include <QTest>

#include <malloc.h>

namespace {

std::pair<qint64, qsizetype> heapAndHandles() {
    const auto info = mallinfo2();
    return {info.uordblks + info.hblkhd,
            QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size()};
}

// The first times fill the caches; from then on nothing grows by more than a fiftieth.
void staysFlat(int times, const std::function<void(int)>& action) {
    const int warmUp = std::min(times / 2, 1000);
    std::pair<qint64, qsizetype> before;
    for (int done = 0; done < times; ++done) {
        if (done == warmUp)
            before = heapAndHandles();
        action(done);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    const auto after = heapAndHandles();
    qInfo("%d times: the heap went from %lld to %lld kB", times, before.first / 1024,
          after.first / 1024);
    QVERIFY(after.first <= before.first * 51 / 50);
    QCOMPARE(after.second, before.second);
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
    }

    void boardsOpenAndClose() {
        WriteFile(m_evening.Path("JOKER.BMP"), ReadFile(":/JOKER.BMP"));
        staysFlat(SoakCount(200, 10000), [](int) {
            modForms::ViewResults(modForms::OverallOnBoard, 4, QString());
            for (frmSummary* board : Evening::Boards())
                QVERIFY(board->SetLineVisible(1) && board->close());
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
