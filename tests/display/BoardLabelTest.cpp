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
        QCOMPARE(qRound(ContrastRatio(QColor(0x76, 0x76, 0x76), Qt::white) * 100), 454);
        QCOMPARE(qRound(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white) * 100), 448);
    }

    // Every pair of colours that the board can have is readable: by itself or by its outline.
    void outlinesWhatIsHardToRead() {
        QWidget screen;
        BoardLabel label(&screen);
        for (const qint32 fore : {0, 0x808080, 0xFFFFFF, 0x0000FF, 0xFF0000, 0x80FFFF, 0x7A7A7A})
            for (const qint32 back : {0, 0x808080, 0xFFFFFF, 0x00FF00, 0x008000, 0x004000}) {
                label.SetColors(ColorOf(back), ColorOf(fore));
                const QColor outline = label.OutlineColor();
                QVERIFY2(ContrastRatio(ColorOf(fore),
                                       outline.isValid() ? outline : ColorOf(back)) >= 4.5,
                         qPrintable(ColorOf(fore).name() + u' ' + ColorOf(back).name()));
            }
    }

    void keepsItsTextInside() {
        const struct {
            QString text;
            Qt::AlignmentFlag align;
            int reserve;
        } cases[] = {{QString(300, u'W'), Qt::AlignLeft, 60},
                     {QString(300, u'W'), Qt::AlignHCenter, 0},
                     {QStringLiteral("-2147483648"), Qt::AlignRight, 0},
                     {QStringLiteral("a\nb\tc\r\nd\u2028e"), Qt::AlignLeft, 0}};
        for (const auto& [text, align, reserve] : cases)
            for (const QColor background : {Qt::green, Qt::black}) {
                BoardLabel label(nullptr);
                label.SetColors(background, QColor(255, 255, 128));
                QCOMPARE(label.OutlineColor().isValid(), background == Qt::green);
                label.setFont(QFont(QStringLiteral("Arial"), 20));
                label.setText(text);
                label.setAlignment(align | Qt::AlignVCenter);
                label.SetReserve(reserve);
                label.resize(240, 29);
                const QImage picture = label.grab().toImage();
                const auto [first, last] = inkIn(picture, background);
                QVERIFY2(first > 0, "nothing at the left edge");
                QVERIFY2(last < picture.width() - 1 - reserve, "nothing at the right end");
                QVERIFY2(last > first, "something is drawn");
            }
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
};

QTEST_MAIN(BoardLabelTest)
#include "BoardLabelTest.moc"
