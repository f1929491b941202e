#include "core/Numbers.h"
#include "core/ObjectMap.h"
#include "core/PadRight.h"

#include <QTest>

namespace {

// A number as text, or the number of the error that ends the action as "error 6".
QString outcome(const auto& action) {
    try {
        return QString::number(action());
    } catch (const RuntimeError& error) {
        return QString("error %1").arg(error.Number());
    }
}

} // namespace

class ValuesTest : public QObject {
    Q_OBJECT

private slots:
    void convertsOrRefuses() {
        // "text|outcome"; halves go to the even neighbour, and %1 is the language's decimal point.
        const QString cases =
            "8454143|8454143; \t12 |12;+7|7;007|7;1e3|1000;0.5|0;7.5|8;8%15|8;-2.5|-2;.51|1;"
            "2147483647.4|2147483647;2147483647.5|error 6;-2147483648.5|-2147483648;1e999|error 6;"
            "-2147483649|error 6;|error 13;  |error 13;12a|error 13;1 2|error 13;1,000|error 13;"
            "0x10|error 13;inf|error 13;nan(1)|error 13;e5|error 13";
        for (const QString& c : cases.arg(QLocale::system().decimalPoint()).split(';')) {
            const QString text = c.section('|', 0, 0);
            // As the field of a row that another program wrote, of any type.
            for (const QVariant& field : {QVariant(text), QVariant(text.toUtf8())})
                QCOMPARE(outcome([&] { return ToInt32(field); }), c.section('|', 1));
        }
        QCOMPARE(outcome([] { return ToInt32(QVariant()); }), "error 94");
        QCOMPARE(outcome([] { return ToInt32(QVariant(qint64{1} << 31)); }), "error 6");
    }

    void arithmeticNeverWraps() {
        QCOMPARE(outcome([] { return CheckedAdd(2147483647, -1); }), "2147483646");
        QCOMPARE(outcome([] { return CheckedAdd(2147483647, 1); }), "error 6");
        QCOMPARE(outcome([] { return CheckedSubtract(-2147483647, 1); }), "-2147483648");
        QCOMPARE(outcome([] { return CheckedSubtract(-2147483647, 2); }), "error 6");
        QCOMPARE(outcome([] { return CheckedMultiply(-1073741824, 2); }), "-2147483648");
        QCOMPARE(outcome([] { return CheckedMultiply(1073741824, 2); }), "error 6");
    }

    void padsColumns() {
        // "text|width|column"; one character to the eye is one of the column, and a text that is
        // too long is cut before it is trimmed.
        const QString cases =
            "|2|  ;abc|5|abc  ;abc|3|abc;abcdef|5|abcde ; ab |3|ab ;  abcd|3|  a ;"
            "ab|0| ;e\u0301e\u0301|3|e\u0301e\u0301 ;e\u0301e\u0301|1|e\u0301 ";
        for (const QString& c : cases.split(';'))
            QCOMPARE(PadRight(c.section('|', 0, 0), c.section('|', 1, 1).toInt()),
                     c.section('|', 2));
    }

    void listsAndMapsKeepWhatIsAdded() {
        ObjectList<int> list;
        for (int i = 0; i < 305; ++i) {
            QVERIFY(list.LastIndex() == i - 1 && !list.Item(i));
            QCOMPARE(list.SlotCount(), static_cast<std::size_t>(std::max(301, i)));
            QVERIFY(list.Add(std::make_shared<int>(i / 2))); // equal ones, but other objects
        }
        // Removal moves the later entries down and leaves the last one twice.
        const auto second = list.Item(1);
        QVERIFY(!list.Remove(nullptr) && list.Remove(second.get()) && !list.Remove(second.get()));
        QVERIFY(*list.Item(0) == 0 && *list.Item(1) == 1 && list.LastIndex() == 304);
        QVERIFY(list.Item(303) == list.Item(304) && list.LastItem() == list.Item(304));
        QCOMPARE(outcome([&] { return *list.Item(-1); }), "error 9");

        ObjectMap<int> map;
        for (const char* key : {"abc", "ABC", "\u00e4"})
            QVERIFY(map.Add(key, std::make_shared<int>(map.LastIndex())));
        QVERIFY(*map.GetObject("Abc") == -1 && *map.GetObject("\u00c4") == 1 && *map.Item(1) == 0);
        QVERIFY(!map.GetObject("ab") && map.SlotCount() == 301);
        map.Clear();
        QVERIFY(map.LastIndex() == -1 && !map.GetObject("abc"));
    }
};

QTEST_GUILESS_MAIN(ValuesTest)
#include "ValuesTest.moc"
