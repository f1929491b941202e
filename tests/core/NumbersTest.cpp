#include "core/Numbers.h"
#include "core/PadRight.h"
#include "core/RuntimeError.h"

#include <QTest>

#include <functional>
#include <limits>

namespace {

constexpr qint32 Most = std::numeric_limits<qint32>::max();
constexpr qint32 Least = std::numeric_limits<qint32>::min();

constexpr int None = 0; // no error
constexpr int Overflow = 6;
constexpr int TypeMismatch = 13;
constexpr int NullValue = 94;

// The number of the error that an action ends with.
int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return None;
}

} // namespace

class NumbersTest : public QObject {
    Q_OBJECT

private slots:
    void convertsTexts();
    void convertsFields();
    void sumsAndProductsNeverWrap();
    void padsColumns();
};

void NumbersTest::convertsTexts() {
    const struct {
        const char* text;
        int error;
        qint32 value;
    } cases[] = {
        {"0", None, 0},
        {"8454143", None, 8454143},
        {" \t12 ", None, 12},
        {"+7", None, 7},
        {"-5", None, -5},
        {"007", None, 7},
        {"1e3", None, 1000},
        {"25E-1", None, 2},
        // Halves go to the even neighbour.
        {"0.5", None, 0},
        {"1.5", None, 2},
        {"7.5", None, 8},
        {"8.5", None, 8},
        {"-2.5", None, -2},
        {".51", None, 1},
        {"2147483647", None, Most},
        {"2147483647.4", None, Most},
        {"2147483647.5", Overflow, 0},
        {"-2147483648.5", None, Least},
        {"-2147483649", Overflow, 0},
        {"99999999999", Overflow, 0},
        {"1e300", Overflow, 0},
        {"1e999", Overflow, 0},
        {"", TypeMismatch, 0},
        {"  ", TypeMismatch, 0},
        {"12a", TypeMismatch, 0},
        {"a12", TypeMismatch, 0},
        {"1 2", TypeMismatch, 0},
        {"1,000", TypeMismatch, 0},
        {"--1", TypeMismatch, 0},
        {"0x10", TypeMismatch, 0},
        {"inf", TypeMismatch, 0},
        {"nan", TypeMismatch, 0},
        {"nan(1)", TypeMismatch, 0},
        {"e5", TypeMismatch, 0},
    };
    for (const auto& c : cases) {
        qint32 value = 0;
        const int error =
            errorOf([&] { value = ToInt32(QStringView(QString::fromLatin1(c.text))); });
        QVERIFY2(error == c.error && value == c.value,
                 qPrintable(QStringLiteral("\"%1\" gave %2, error %3")
                                .arg(QLatin1StringView(c.text))
                                .arg(value)
                                .arg(error)));
    }
}

void NumbersTest::convertsFields() {
    const struct {
        QVariant field;
        int error;
        qint32 value;
    } cases[] = {
        {QVariant(), NullValue, 0},
        {QVariant(QMetaType(QMetaType::QString)), NullValue, 0},
        {qlonglong(Most), None, Most},
        {qlonglong(Least), None, Least},
        {qlonglong(Most) + 1, Overflow, 0},
        {qlonglong(Least) - 1, Overflow, 0},
        {12, None, 12},
        {2.5, None, 2},
        {-3.5, None, -4},
        {1e10, Overflow, 0},
        {std::numeric_limits<double>::infinity(), Overflow, 0},
        {std::numeric_limits<double>::quiet_NaN(), Overflow, 0},
        {QStringLiteral(" 42 "), None, 42},
        {QStringLiteral("x"), TypeMismatch, 0},
        {QStringLiteral(""), TypeMismatch, 0},
        {QByteArrayLiteral("17"), None, 17},
        {QByteArrayLiteral("\xFF\xFE"), TypeMismatch, 0},
    };
    for (const auto& c : cases) {
        qint32 value = 0;
        const int error = errorOf([&] { value = ToInt32(c.field); });
        QVERIFY2(error == c.error && value == c.value,
                 qPrintable(QStringLiteral("%1 \"%2\" gave %3, error %4")
                                .arg(QLatin1StringView(c.field.typeName()), c.field.toString())
                                .arg(value)
                                .arg(error)));
    }
}

void NumbersTest::sumsAndProductsNeverWrap() {
    QCOMPARE(CheckedAdd(Most, -1), Most - 1);
    QCOMPARE(CheckedMultiply(1073741823, 2), Most - 1);
    QCOMPARE(CheckedMultiply(-1073741824, 2), Least);
    QCOMPARE(errorOf([] { CheckedAdd(Most, 1); }), Overflow);
    QCOMPARE(errorOf([] { CheckedAdd(Least, -1); }), Overflow);
    QCOMPARE(errorOf([] { CheckedMultiply(1073741824, 2); }), Overflow);
}

void NumbersTest::padsColumns() {
    const struct {
        QString text;
        int width;
        QString column;
    } cases[] = {
        {QString(), 4, QStringLiteral("    ")},
        {QStringLiteral(""), 2, QStringLiteral("  ")},
        {QStringLiteral("abc"), 5, QStringLiteral("abc  ")},
        {QStringLiteral("abc"), 3, QStringLiteral("abc")},
        {QStringLiteral("abcdefg"), 5, QStringLiteral("abcde ")},
        {QStringLiteral("  ab  "), 3, QStringLiteral("ab ")},
        {QStringLiteral("  ab  "), 8, QStringLiteral("ab      ")},
        // Too long: cut before anything is trimmed.
        {QStringLiteral("  abcd"), 3, QStringLiteral("  a ")},
        {QStringLiteral("abc"), 0, QStringLiteral(" ")},
        {QString(), 0, QStringLiteral("")},
        // One character to the eye is one character of the column.
        {QStringLiteral("e\u0301e\u0301"), 3, QStringLiteral("e\u0301e\u0301 ")},
        {QStringLiteral("\U0001F600\U0001F600"), 1, QStringLiteral("\U0001F600 ")},
        {QStringLiteral("\U0001F1E9\U0001F1EA!"), 2, QStringLiteral("\U0001F1E9\U0001F1EA!")},
    };
    for (const auto& c : cases)
        QCOMPARE(PadRight(c.text, c.width), c.column);
}

QTEST_GUILESS_MAIN(NumbersTest)
#include "NumbersTest.moc"
