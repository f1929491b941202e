#include "core/Numbers.h"
#include "core/PadRight.h"
#include "core/RuntimeError.h"

#include <QTest>

#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 Most = std::numeric_limits<qint32>::max();
constexpr qint32 Least = std::numeric_limits<qint32>::min();

// A number as text, or the number of the error that ends the action as "error 6".
QString outcome(const std::function<qint32()>& action) {
    try {
        return QString::number(action());
    } catch (const RuntimeError& error) {
        return u"error %1"_s.arg(error.Number());
    }
}

} // namespace

class NumbersTest : public QObject {
    Q_OBJECT

private slots:
    void convertsOrRefuses();
    void sumsAndProductsNeverWrap();
    void padsColumns();
};

void NumbersTest::convertsOrRefuses() {
    const struct {
        const char* text;
        qint32 value;
    } numbers[] = {{"8454143", 8454143},
                   {" \t12 ", 12},
                   {"+7", 7},
                   {"-5", -5},
                   {"007", 7},
                   {"1e3", 1000},
                   // Halves go to the even neighbour.
                   {"0.5", 0},
                   {"7.5", 8},
                   {"8.5", 8},
                   {"-2.5", -2},
                   {"25E-1", 2},
                   {".51", 1},
                   {"2147483647.4", Most},
                   {"-2147483648.5", Least}};
    const auto ofText = [](const char* text) {
        return outcome([&] { return ToInt32(QStringView(QString::fromLatin1(text))); });
    };
    for (const auto& number : numbers)
        QCOMPARE(ofText(number.text), QString::number(number.value));
    for (const char* text : {"2147483647.5", "-2147483649", "99999999999", "1e999"})
        QCOMPARE(ofText(text), u"error 6"_s);
    for (const char* text : {"", "  ", "12a", "1 2", "1,000", "--1", "0x10", "inf", "nan(1)", "e5"})
        QCOMPARE(ofText(text), u"error 13"_s);

    const std::pair<QVariant, QString> fields[] = {
        {QVariant(), u"error 94"_s},
        {QVariant(QMetaType(QMetaType::QString)), u"error 94"_s},
        {qlonglong(Least), QString::number(Least)},
        {qlonglong(Least) - 1, u"error 6"_s},
        {qlonglong(Most) + 1, u"error 6"_s},
        {-3.5, u"-4"_s},
        {std::numeric_limits<double>::quiet_NaN(), u"error 6"_s},
        {u" 42 "_s, u"42"_s},
        {"17"_ba, u"17"_s},
        {"\xFF\xFE"_ba, u"error 13"_s},
    };
    for (const auto& [field, expected] : fields)
        QCOMPARE(outcome([&, &value = field] { return ToInt32(value); }), expected);
}

void NumbersTest::sumsAndProductsNeverWrap() {
    QCOMPARE(outcome([] { return CheckedAdd(Most, -1); }), u"2147483646"_s);
    QCOMPARE(outcome([] { return CheckedAdd(Most, 1); }), u"error 6"_s);
    QCOMPARE(outcome([] { return CheckedAdd(Least, -1); }), u"error 6"_s);
    QCOMPARE(outcome([] { return CheckedMultiply(-1073741824, 2); }), u"-2147483648"_s);
    QCOMPARE(outcome([] { return CheckedMultiply(1073741824, 2); }), u"error 6"_s);
}

void NumbersTest::padsColumns() {
    const struct {
        QString text;
        int width;
        QString column;
    } cases[] = {{QString(), 4, u"    "_s},
                 {u"abc"_s, 5, u"abc  "_s},
                 {u"abc"_s, 3, u"abc"_s},
                 {u"abcdefg"_s, 5, u"abcde "_s},
                 {u"  ab  "_s, 3, u"ab "_s},
                 {u"abc"_s, 0, u" "_s},
                 // Too long: cut before anything is trimmed.
                 {u"  abcd"_s, 3, u"  a "_s},
                 // One character to the eye is one character of the column.
                 {u"e\u0301e\u0301"_s, 3, u"e\u0301e\u0301 "_s},
                 {u"\U0001F600\U0001F600"_s, 1, u"\U0001F600 "_s},
                 {u"\U0001F1E9\U0001F1EA!"_s, 2, u"\U0001F1E9\U0001F1EA!"_s}};
    for (const auto& c : cases)
        QCOMPARE(PadRight(c.text, c.width), c.column);
}

QTEST_GUILESS_MAIN(NumbersTest)
#include "NumbersTest.moc"
