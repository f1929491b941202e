#include "core/ObjectList.h"

#include <QTest>

class CollectionsTest : public QObject {
    Q_OBJECT

private slots:
    void aListGrowsByOneSlotBeyondItsFirst301();
    void removalMovesTheLaterEntriesDown();
};

void CollectionsTest::aListGrowsByOneSlotBeyondItsFirst301() {
    ObjectList<int> list;
    QCOMPARE(list.LastIndex(), -1);
    QVERIFY(!list.Item(0) && !list.LastItem());
    try {
        list.Item(-1);
        QFAIL("a negative index was accepted");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.Number(), 9);
    }
    for (int i = 0; i < 305; ++i) {
        QCOMPARE(list.SlotCount(), static_cast<std::size_t>(std::max(301, i)));
        QVERIFY(list.Add(std::make_shared<int>(i)));
        QVERIFY(list.LastIndex() == i && *list.LastItem() == i);
    }
    list.Clear();
    QVERIFY(list.LastIndex() == -1 && !list.Item(0));
}

void CollectionsTest::removalMovesTheLaterEntriesDown() {
    ObjectList<int> list;
    const auto first = std::make_shared<int>(1);
    const auto second = std::make_shared<int>(1); // equal, but another object
    const auto third = std::make_shared<int>(3);
    for (const auto& object : {first, second, third})
        list.Add(object);
    QVERIFY(!list.Remove(nullptr) && list.Remove(second.get()));
    QCOMPARE(list.LastIndex(), 2);
    QVERIFY(list.Item(0) == first && list.Item(1) == third && list.Item(2) == third);
}

QTEST_GUILESS_MAIN(CollectionsTest)
#include "CollectionsTest.moc"
