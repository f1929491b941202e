#include "core/AppValues.h"
#include "data/DBObject.h"
#include "data/ResultDAO.h"
#include "data/RoundDAO.h"
#include "data/SummaryDAO.h"
#include "data/TeamDAO.h"
#include "display/Render.h"
#include "display/frmOptions.h"
#include "display/frmSummary.h"
#include "display/frmViewResults.h"
#include "forms/frmEntry.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"
#include "support/AppFolder.h"
#include "support/Soak.h"

#include <QDir>
#include <QImage>
#include <QLoggingCategory>
#include <QTest>

#include <malloc.h>

#include <functional>

namespace {

constexpr int TeamCount = 12;
constexpr int RoundCount = 6;

qint64 heapInUse() {
    const auto info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}

qsizetype openHandles() {
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

// Shows a screen and closes it, as far as the event loop takes part in it.
void showAndClose(QWidget& screen) {
    screen.show();
    QCoreApplication::processEvents();
    screen.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

/// What an operator does a hundred times on one evening, done thousands of times: neither memory
/// nor handles may grow.
class LongEveningTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void boardsOpenAndClose();
    void screensOpenAndClose();
    void scoresAreSaved();

private:
    static void staysFlat(int times, const std::function<void(int)>& action);

    AppFolder m_folder;
    QString m_round;
};

void LongEveningTest::initTestCase() {
    // The platform without a screen says for each board that it cannot raise a window.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    QImage joker(32, 32, QImage::Format_RGB32);
    joker.fill(Qt::red);
    QVERIFY(joker.save(m_folder.Path(QStringLiteral("JOKER.BMP"))));
    m_folder.Open();
    for (int i = 0; i < RoundCount; ++i) {
        Round round;
        round.RoundName = QStringLiteral("Round %1").arg(i);
        QVERIFY(RoundDAO().Save(round));
        m_round = round.RoundID;
    }
    for (int i = 0; i < TeamCount; ++i) {
        Team team;
        team.TeamName = QStringLiteral("Team %1").arg(i);
        QVERIFY(TeamDAO().Save(team));
        Result result;
        result.TeamID = team.TeamID;
        result.RoundID = m_round;
        result.Score = i;
        QVERIFY(ResultDAO().Save(result));
    }
}

// The first times fill the caches; from then on nothing grows by more than a fiftieth.
void LongEveningTest::staysFlat(int times, const std::function<void(int)>& action) {
    const int warmUp = std::min(times / 2, 1000);
    int done = 0;
    while (done < warmUp)
        action(done++);
    const qint64 heap = heapInUse();
    const qsizetype handles = openHandles();
    while (done < times)
        action(done++);
    const qint64 growth = heapInUse() - heap;
    qInfo("%d times: the heap went from %lld kB by %+lld kB", times, heap / 1024LL,
          growth / 1024LL);
    QVERIFY(growth <= heap / 50);
    QCOMPARE(openHandles(), handles);
}

void LongEveningTest::boardsOpenAndClose() {
    staysFlat(SoakCount(200, 10000), [](int) {
        const auto standings = SummaryDAO().GetOverallSummary(2);
        QVERIFY(standings);
        auto* board = new frmSummary(nullptr);
        QVERIFY(Render().RenderResults(*board, *standings, QStringLiteral("Rankelo Results"), 4));
        for (const qint32 position : {3, 2, 1})
            QVERIFY(board->SetLineVisible(position));
        QCoreApplication::processEvents();
        delete board;
    });
}

void LongEveningTest::screensOpenAndClose() {
    staysFlat(SoakCount(200, 10000), [this](int i) {
        switch (i % 6) {
        case 0: {
            frmTeamEntry screen;
            QVERIFY(screen.FillList());
            return showAndClose(screen);
        }
        case 1: {
            frmRoundEntry screen;
            QVERIFY(screen.FillList());
            return showAndClose(screen);
        }
        case 2: {
            frmResultEntry screen;
            screen.Fill(m_round);
            return showAndClose(screen);
        }
        case 3: {
            frmEntry screen(nullptr);
            screen.SetEntry(i, true);
            return showAndClose(screen);
        }
        case 4: {
            frmOptions screen;
            return showAndClose(screen);
        }
        default: {
            frmViewResults screen;
            for (int row = 0; row < TeamCount; ++row)
                screen.AddRow(QStringLiteral("1"), QStringLiteral("Team"), QStringLiteral("7"), {});
            return showAndClose(screen);
        }
        }
    });
}

void LongEveningTest::scoresAreSaved() {
    const auto results = ResultDAO().GetResultList({}, {});
    QVERIFY(results && results->LastIndex() == TeamCount - 1);
    staysFlat(SoakCount(2000, 100000), [&](int i) {
        Result& result = *results->Item(i % TeamCount);
        result.Score = i;
        result.Joker = i % 2;
        QVERIFY(ResultDAO().Save(result));
    });
    QCOMPARE(m_folder.TakeReports(), QStringList());
}

QTEST_MAIN(LongEveningTest)
#include "LongEveningTest.moc"
