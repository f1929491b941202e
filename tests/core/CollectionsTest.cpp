#include "core/ItemPair.h"
#include "core/ObjectList.h"
#include "core/ObjectMap.h"
#include "support/AppFolder.h"

#include <QTest>

class CollectionsTest : public QObject {
    Q_OBJECT

private slots:
    void aNewListIsEmptyAndHas301Slots();
    void growsByOneSlotBeyondItsFirst301();
    void removalMovesTheLaterEntriesDown();
    void aMapFindsTheFirstEntryInAnyCase();
};

using Numbers = ObjectList<int>;

void CollectionsTest::aNewListIsEmptyAndHas301Slots() {
    Numbers list;
    QCOMPARE(list.LastIndex(), -1);
    QCOMPARE(list.SlotCount(), 301u);
    QVERIFY(!list.Item(0));
    QVERIFY(!list.Item(300));
    QVERIFY(!list.Item(100000));
    QVERIFY(!list.LastItem());
    try {
        list.Item(-1);
        QFAIL("a negative index was accepted");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.Number(), 9);
    }
}

void CollectionsTest::growsByOneSlotBeyondItsFirst301() {
    Numbers list;
    for (int i = 0; i < 305; ++i) {
        QVERIFY(list.Add(std::make_shared<int>(i)));
        QCOMPARE(list.LastIndex(), i);
        QCOMPARE(list.SlotCount(), static_cast<std::size_t>(std::max(301, i + 1)));
        QCOMPARE(*list.LastItem(), i);
    }
    QCOMPARE(*list.Item(0), 0);
    QVERIFY(!list.Item(305));
    list.Clear();
    QCOMPARE(list.LastIndex(), -1);
    QCOMPARE(list.SlotCount(), 301u);
    QVERIFY(!list.Item(0));
}

void CollectionsTest::removalMovesTheLaterEntriesDown() {
    Numbers list;
    const auto first = std::make_shared<int>(1);
    const auto second = std::make_shared<int>(1); // equal, but another object
    const auto third = std::make_shared<int>(3);
    for (const auto& object : {first, second, third})
        list.Add(object);
    const int stranger = 1;
    QVERIFY(!list.Remove(&stranger));
    QVERIFY(!list.Remove(nullptr));
    QVERIFY(list.Remove(second.get()));
    QCOMPARE(list.LastIndex(), 2);
    QCOMPARE(list.Item(0), first);
    QCOMPARE(list.Item(1), third);
    QCOMPARE(list.Item(2), third);
}

void CollectionsTest::aMapFindsTheFirstEntryInAnyCase() {
    ObjectMap<ItemPair> map;
    QCOMPARE(map.LastIndex(), -1);
    QVERIFY(!map.Item(0));
    for (const char* key : {"abc", "ABC", "straße"})
        QVERIFY(map.Add(QString::fromUtf8(key),
                        std::make_shared<ItemPair>(ItemPair{QString::fromUtf8(key), {}})));
    QCOMPARE(map.LastIndex(), 2);
    QCOMPARE(map.GetObject(QStringLiteral("Abc")), map.Item(0));
    QCOMPARE(map.GetObject(QStringLiteral("STRASSE")), map.Item(2));
    QVERIFY(!map.GetObject(QStringLiteral("abcd")));
    map.Clear();
    QVERIFY(!map.GetObject(QStringLiteral("abc")));
}

QTEST_GUILESS_MAIN(CollectionsTest)
#include "CollectionsTest.moc"
