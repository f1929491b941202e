#include "core/Numbers.h"
#include "core/PadRight.h"
#include "core/RuntimeError.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 Most = std::numeric_limits<qint32>::max();

// A number as text, or the number of the error that ends the action as "error 6".
QString outcome(const auto& action) {
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
    void convertsOrRefuses() {
        // "text|outcome"; halves go to the even neighbour.
        const QString cases =
            u"8454143|8454143; \t12 |12;+7|7;007|7;1e3|1000;0.5|0;7.5|8;8.5|8;-2.5|-2;.51|1;"
            "2147483647.4|2147483647;2147483647.5|error 6;-2147483648.5|-2147483648;1e999|error 6;"
            "-2147483649|error 6;|error 13;  |error 13;12a|error 13;1 2|error 13;1,0,0|error 13;"
            "0x10|error 13;inf|error 13;nan(1)|error 13;e5|error 13"_s;
        for (const QString& c : cases.split(u';')) {
            const QString text = c.section(u'|', 0, 0);
            QCOMPARE(outcome([&] { return ToInt32(QStringView(text)); }), c.section(u'|', 1));
            // As the field of a row that another program wrote, of any type.
            for (const QVariant& field : {QVariant(text), QVariant(text.toUtf8())})
                QCOMPARE(outcome([&] { return ToInt32(field); }), c.section(u'|', 1));
        }
        const double notANumber = std::numeric_limits<double>::quiet_NaN();
        QCOMPARE(outcome([] { return ToInt32(QVariant()); }), u"error 94"_s);
        for (const QVariant& field : {QVariant(qlonglong(Most) + 1), QVariant(notANumber)})
            QCOMPARE(outcome([&] { return ToInt32(field); }), u"error 6"_s);
    }

    void sumsAndProductsNeverWrap() {
        QCOMPARE(outcome([] { return CheckedAdd(Most, -1); }), u"2147483646"_s);
        QCOMPARE(outcome([] { return CheckedAdd(Most, 1); }), u"error 6"_s);
        QCOMPARE(outcome([] { return CheckedAdd(-Most, -2); }), u"error 6"_s);
        QCOMPARE(outcome([] { return CheckedMultiply(-1073741824, 2); }), u"-2147483648"_s);
        QCOMPARE(outcome([] { return CheckedMultiply(1073741824, 2); }), u"error 6"_s);
    }

    void padsColumns() {
        // "text|width|column"; one character to the eye is one of the column, and a text that is
        // too long is cut before it is trimmed.
        for (const QString& c :
             {u"|2|  "_s, u"abc|5|abc  "_s, u"abc|3|abc"_s, u"abcdef|5|abcde "_s, u" ab |3|ab "_s,
              u"  abcd|3|  a "_s, u"e\u0301e\u0301|3|e\u0301e\u0301 "_s})
            QCOMPARE(PadRight(c.section(u'|', 0, 0), c.section(u'|', 1, 1).toInt()),
                     c.section(u'|', 2));
    }
};

QTEST_GUILESS_MAIN(NumbersTest)
#include "NumbersTest.moc"
