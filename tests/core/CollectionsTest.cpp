#include "core/ObjectList.h"

#include <QTest>

class CollectionsTest : public QObject {
    Q_OBJECT

private slots:
    void aListGrowsAndRemovalMovesTheLaterEntriesDown() {
        ObjectList<int> list;
        for (int i = 0; i < 305; ++i) {
            QVERIFY(list.LastIndex() == i - 1 && !list.Item(i));
            QCOMPARE(list.SlotCount(), static_cast<std::size_t>(std::max(301, i)));
            QVERIFY(list.Add(std::make_shared<int>(i / 2))); // equal ones, but other objects
        }
        const auto second = list.Item(1);
        QVERIFY(!list.Remove(nullptr) && list.Remove(second.get()) && !list.Remove(second.get()));
        QVERIFY(*list.Item(0) == 0 && *list.Item(1) == 1 && list.LastIndex() == 304);
        QVERIFY(list.Item(303) == list.Item(304) && list.LastItem() == list.Item(304));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, list.Item(-1));
    }
};

QTEST_GUILESS_MAIN(CollectionsTest)
#include "CollectionsTest.moc"
