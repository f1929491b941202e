#include "display/BoardLabel.h"
#include "core/AppValues.h"
#include "display/BoardGeometry.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QTest>

namespace {

// The columns of a picture that hold anything but the background, as first and last; -1 for none.
std::pair<int, int> inkIn(const QImage& picture, const QColor& background) {
    std::pair<int, int> ink(-1, -1);
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixelColor(x, y) != background) {
                if (ink.first < 0)
                    ink.first = x;
                ink.second = x;
            }
    return ink;
}

} // namespace

class BoardLabelTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // Black and white, and two known neighbours: a grey of 4.54 and one of 4.48 on white.
    void measuresContrast() {
        QCOMPARE(qRound(ContrastRatio(Qt::black, Qt::white) * 100), 2100);
        QCOMPARE(qRound(ContrastRatio(Qt::white, Qt::black) * 100), 2100);
        QCOMPARE(qRound(ContrastRatio(QColor(0x76, 0x76, 0x76), Qt::white) * 100), 454);
        QCOMPARE(qRound(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white) * 100), 448);
        QCOMPARE(qRound(ContrastRatio(Qt::red, Qt::red) * 100), 100);
    }

    // Every pair of colours that the board can have is readable: by itself or by its outline.
    void outlinesWhatIsHardToRead() {
        SetDefaultSettings();
        QWidget screen;
        BoardLabel label(&screen);
        int outlined = 0;
        constexpr qint32 greens[] = {0x00FF00, 0x008000, 0x004000};
        QList<std::pair<QColor, QColor>> pairs{{ColorOf(App().BColorA), ColorOf(App().FColorA)},
                                               {ColorOf(App().BColorB), ColorOf(App().FColorB)},
                                               {ColorOf(App().BackGround), ColorOf(App().FColorA)}};
        for (const qint32 green : greens)
            pairs.append({ColorOf(green), ColorOf(App().FColorA)});
        const qsizetype ofDefaultBoard = pairs.size();
        for (const qint32 fore : {0, 0x808080, 0xFFFFFF, 0x0000FF, 0xFF0000, 0x00FFFF, 0x7A7A7A})
            for (const qint32 back : {0, 0x808080, 0xFFFFFF, 0x00FF00, 0x008000, 0x004040FF})
                pairs.append({ColorOf(back), ColorOf(fore)});
        for (qsizetype i = 0; i < pairs.size(); ++i) {
            const auto& [back, fore] = pairs[i];
            label.SetColors(back, fore);
            const QColor outline = label.OutlineColor();
            QVERIFY2(ContrastRatio(fore, outline.isValid() ? outline : back) >= 4.5,
                     qPrintable(fore.name() + u' ' + back.name()));
            outlined += i < ofDefaultBoard && outline.isValid();
        }
        // Light yellow on the winner's pure green.
        QCOMPARE(outlined, 1);
    }

    void keepsItsTextInside_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Qt::Alignment>("align");
        QTest::addColumn<int>("reserve");
        QTest::addColumn<bool>("outlined");
        const QString longName(300, u'W');
        for (const bool outlined : {false, true}) {
            const char* how = outlined ? "outlined" : "plain";
            QTest::addRow("a long name, %s", how)
                << longName << Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter) << 0 << outlined;
            QTest::addRow("a long name before a joker, %s", how)
                << longName << Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter) << 60 << outlined;
            QTest::addRow("the lowest score, %s", how)
                << "-2147483648" << Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter) << 0
                << outlined;
            QTest::addRow("a long heading, %s", how)
                << longName << Qt::Alignment(Qt::AlignCenter) << 0 << outlined;
            QTest::addRow("line ends, %s", how)
                << "a\nb\tc\r\nd\u2028e" << Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter) << 0
                << outlined;
        }
    }

    void keepsItsTextInside() {
        QFETCH(QString, text);
        QFETCH(Qt::Alignment, align);
        QFETCH(int, reserve);
        QFETCH(bool, outlined);
        QWidget screen;
        BoardLabel label(&screen);
        const QColor background = outlined ? Qt::green : Qt::black;
        label.SetColors(background, QColor(255, 255, 128));
        QCOMPARE(label.OutlineColor().isValid(), outlined);
        label.setFont(QFont(QStringLiteral("Arial"), 20));
        label.setText(text);
        label.setAlignment(align);
        label.SetReserve(reserve);
        label.resize(240, 29);
        const QImage picture = label.grab().toImage();
        const auto [first, last] = inkIn(picture, background);
        QVERIFY2(first > 0, "nothing at the left edge");
        QVERIFY2(last < picture.width() - 1 - reserve, "nothing at the right end");
        QVERIFY2(last > first, "something is drawn");
    }

    // A score is shrunk and never shortened: the widest ones still differ in their last digit.
    void neverCutsAScore() {
        QWidget screen;
        BoardLabel label(&screen);
        label.SetColors(Qt::black, Qt::white);
        label.setFont(QFont(QStringLiteral("Arial"), 32));
        label.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label.resize(78, 47);
        QImage pictures[2];
        for (int i = 0; i < 2; ++i) {
            label.setText(i == 0 ? QStringLiteral("-2147483648") : QStringLiteral("-2147483641"));
            pictures[i] = label.grab().toImage();
        }
        QVERIFY(pictures[0] != pictures[1]);
    }

    // The digits of every line stand on the same height, in the middle of their box.
    void centresInItsHeight() {
        QWidget screen;
        BoardLabel label(&screen);
        label.setFont(QFont(QStringLiteral("Arial"), 32));
        label.setText(QStringLiteral("0"));
        label.resize(80, 60);
        for (const bool outlined : {false, true}) {
            const QColor background = outlined ? Qt::green : Qt::black;
            label.SetColors(background, QColor(255, 255, 128));
            const QTransform turned = QTransform().rotate(90);
            const auto [bottom, top] =
                inkIn(label.grab().toImage().transformed(turned), background);
            QVERIFY2(bottom >= 0, "a digit is drawn");
            QVERIFY2(std::abs(bottom + top - 59) <= 6, "it stands in the middle");
        }
    }
};

QTEST_MAIN(BoardLabelTest)
#include "BoardLabelTest.moc"
