#include "display/ResultsPage.h"

#include "core/RuntimeError.h"

#include <QBuffer>
#include <QFontInfo>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QTest>

#include <utility>

namespace {

struct Item {
    int page;
    QPointF place;
    QString text;
    QFont font;
};

/// Remembers every text instead of painting it.
class RecordingEngine : public QPaintEngine {
public:
    RecordingEngine()
        : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    Type type() const override { return QPaintEngine::User; }
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        Items.append({Page, place, item.text(), item.font()});
    }

    QList<Item> Items;
    int Page = 1;
};

/// Paper of 1200 dots an inch that breaks after some pages.
class RecordingPaper : public QPdfWriter {
public:
    RecordingPaper(QPageSize::PageSizeId size, double margin, int pagesLeft = 1000)
        : QPdfWriter(&m_nowhere)
        , m_pagesLeft(pagesLeft) {
        setPageLayout({QPageSize(size), QPageLayout::Portrait,
                       QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter});
        m_nowhere.open(QIODevice::WriteOnly);
    }

    bool newPage() override {
        ++Engine.Page;
        return --m_pagesLeft > 0;
    }
    QPaintEngine* paintEngine() const override { return &Engine; }
    double Dots(double millimetres) const { return millimetres * logicalDpiX() / 25.4; }

    mutable RecordingEngine Engine;

private:
    QBuffer m_nowhere;
    int m_pagesLeft;
};

/// Three pages of teams, also with names that a fixed pitch font has no letters for. The last
/// line is the widest: a name too long before a score of eleven characters.
QList<QStringList> manyTeams() {
    const QStringList names{"Plain", "\U0001F984\U0001F984 Unicorns", "\u05E9\u05DC\u05D5\u05DD",
                            "\u65E5\u672C\u8A9E", "e\u0301e\u0301"};
    QList<QStringList> rows;
    for (int i = 1; i <= 120; ++i)
        rows.append({QString::number(i), names[i % names.size()], QString::number(-i)});
    rows.append({"121", QString(61, u'W'), "-2147483648"});
    return rows;
}

QString blanks(int count) {
    return QString(count, u' ');
}

} // namespace

class ResultsPageTest : public QObject {
    Q_OBJECT

private slots:
    void writesEveryLine();
    void staysATableOnEveryPaper();
    void saysWhenThePrinterFails();
};

void ResultsPageTest::writesEveryLine() {
    const QString wide(60, u'W');
    const struct {
        QString title;
        QList<QStringList> rows;
        QStringList text;
    } cases[] = {
        {"Music Results", {}, {"Music Results" + blanks(67)}},
        // A title too long.
        {QString(90, u'x'), {}, {QString(80, u'x') + blanks(1)}},
        // Rows, without their jokers. A name too long pushes the score one column on.
        {"Rankelo Results",
         {{"1", "The Crisps", "56", "Played"},
          {"2", wide, "-7", ""},
          {"10", wide + "XYZ", "1234567890", ""}},
         {"Rankelo Results" + blanks(65),
          "1" + blanks(9) + "The Crisps" + blanks(50) + "56" + blanks(8),
          "2" + blanks(9) + wide + "-7" + blanks(8),
          "10" + blanks(8) + wide + blanks(1) + "1234567890"}},
    };
    for (const auto& [title, rows, text] : cases) {
        QStringList lines;
        for (const ResultsPage::Line& line : ResultsPage::Lines(title, rows))
            lines.append(line.join(QString()));
        QStringList expected{text.first(), "",
                             "Position  Team Name" + blanks(51) + "Total" + blanks(5),
                             QString(80, u'-'), ""};
        QCOMPARE(lines, expected + text.mid(1));
    }
}

void ResultsPageTest::staysATableOnEveryPaper() {
    for (const auto size : {QPageSize::A4, QPageSize::Letter}) {
        for (const double margin : {0.0, 4.0, 20.0}) {
            RecordingPaper paper(size, margin);
            const QFont own = QPainter(&paper).font();
            ResultsPage::Paint(paper, ResultsPage::Lines("Title", manyTeams()));
            const QSizeF sheet = paper.pageLayout().fullRectPixels(1200).size();
            const QPointF origin = paper.pageLayout().paintRectPixels(1200).topLeft();
            int scores = 0;
            double column = 0;
            std::pair<int, double> last;
            for (const Item& item : paper.Engine.Items) {
                const bool isTitle = item.text.startsWith("Title");
                QCOMPARE(item.font.family(), isTitle ? own.family() : "Courier New");
                QCOMPARE(item.font.pointSize(), isTitle ? own.pointSize() : 11);
                QVERIFY(isTitle || QFontInfo(item.font).fixedPitch());

                const QPointF place = item.place + origin;
                const double width =
                    QFontMetricsF(item.font, &paper).horizontalAdvance(item.text.trimmed());
                QVERIFY2(place.x() >= paper.Dots(8), qPrintable(item.text));
                QVERIFY2(place.x() + width <= sheet.width() - paper.Dots(8), qPrintable(item.text));
                QVERIFY(place.y() > paper.Dots(15));
                QVERIFY(place.y() < sheet.height() - paper.Dots(15));

                const int score = item.text.toInt();
                if (score >= 0 || score < -120)
                    continue;
                QCOMPARE(score, -++scores);
                QVERIFY(std::pair(item.page, item.place.y()) > last);
                last = {item.page, item.place.y()};
                column = scores == 1 ? place.x() : column;
                QCOMPARE(place.x(), column);
            }
            QCOMPARE(scores, 120);
            QCOMPARE(last.first, 3);
            QVERIFY(own.family() != "Courier New");
        }
    }
}

void ResultsPageTest::saysWhenThePrinterFails() {
    RecordingPaper paper(QPageSize::A4, 20, 1);
    const auto lines = ResultsPage::Lines("T", manyTeams());
    QVERIFY_THROWS_EXCEPTION(RuntimeError, ResultsPage::Paint(paper, lines));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, ResultsPage::Print("no such printer", "T", {}));
}

QTEST_MAIN(ResultsPageTest)
#include "ResultsPageTest.moc"
