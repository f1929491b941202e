#include "display/ResultsPage.h"

#include "core/RuntimeError.h"

#include <QBuffer>
#include <QFontInfo>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QTest>

#include <map>

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
    explicit RecordingPaper(QPageSize::PageSizeId size, int pagesLeft = 1000)
        : QPdfWriter(&m_nowhere)
        , m_pagesLeft(pagesLeft) {
        setPageSize(QPageSize(size));
        m_nowhere.open(QIODevice::WriteOnly);
    }

    bool newPage() override {
        ++m_engine.Page;
        return --m_pagesLeft > 0;
    }
    QPaintEngine* paintEngine() const override { return &m_engine; }

    const QList<Item>& Items() const { return m_engine.Items; }
    double Dots(double millimetres) const { return millimetres * logicalDpiX() / 25.4; }
    QSizeF Paper() const { return pageLayout().fullRectPixels(logicalDpiX()).size(); }
    QPointF Origin() const { return pageLayout().paintRectPixels(logicalDpiX()).topLeft(); }

private:
    mutable RecordingEngine m_engine;
    QBuffer m_nowhere;
    int m_pagesLeft;
};

QList<QStringList> teams(int count) {
    QList<QStringList> rows;
    for (int i = 1; i <= count; ++i)
        rows.append({QString::number(i), QStringLiteral("Team %1").arg(i), QString::number(-i)});
    return rows;
}

QString blanks(int count) {
    return QString(count, u' ');
}

const QString Header =
    QStringLiteral("Position  Team Name") + blanks(51) + QStringLiteral("Total") + blanks(5);
const QString Rule = QString(80, u'-');

} // namespace

class ResultsPageTest : public QObject {
    Q_OBJECT

private slots:
    void writesEveryLine();
    void printsTheTitleInThePrintersFontAndTheRestInFixedPitch();
    void fitsOnPaper();
    void breaksPages();
    void keepsColumnsStraight();
    void saysWhenThePrinterFails();
};

void ResultsPageTest::writesEveryLine() {
    const QString wide(60, u'W');
    const struct {
        const char* what;
        QString title;
        QList<QStringList> rows;
        QStringList text;
    } cases[] = {
        {"an empty list", "Music Results", {}, {"Music Results" + blanks(67)}},
        {"a title too long", QString(90, u'x'), {}, {QString(80, u'x') + blanks(1)}},
        {"rows, without their jokers",
         "Rankelo Results",
         {{"1", "The Crisps", "56", "Played"}, {"2", wide, "-7", ""}},
         {"Rankelo Results" + blanks(65),
          "1" + blanks(9) + "The Crisps" + blanks(50) + "56" + blanks(8),
          "2" + blanks(9) + wide + "-7" + blanks(8)}},
        {"a name too long pushes the score one column on",
         "R",
         {{"10", wide + "XYZ", "1234567890", ""}},
         {"R" + blanks(79), "10" + blanks(8) + wide + blanks(1) + "1234567890"}},
    };
    for (const auto& [what, title, rows, text] : cases) {
        QStringList lines;
        for (const ResultsPage::Line& line : ResultsPage::Lines(title, rows))
            lines.append(line.join(QString()));
        QStringList expected{text.first(), QString(), Header, Rule, QString()};
        expected += text.mid(1);
        QVERIFY2(lines == expected, what);
    }
}

void ResultsPageTest::printsTheTitleInThePrintersFontAndTheRestInFixedPitch() {
    RecordingPaper paper(QPageSize::A4);
    QFont own;
    {
        RecordingPaper other(QPageSize::A4);
        const QPainter painter(&other);
        own = painter.font();
    }
    ResultsPage::Paint(paper, ResultsPage::Lines(QStringLiteral("Title"), teams(3)));
    QVERIFY(!paper.Items().isEmpty());
    for (const Item& item : paper.Items()) {
        const bool isTitle = item.text.startsWith(QStringLiteral("Title"));
        QCOMPARE(item.font.family(), isTitle ? own.family() : QStringLiteral("Courier New"));
        QCOMPARE(item.font.pointSize(), isTitle ? own.pointSize() : 11);
        QVERIFY(isTitle || QFontInfo(item.font).fixedPitch());
    }
    QVERIFY(own.family() != QStringLiteral("Courier New"));
}

void ResultsPageTest::fitsOnPaper() {
    // The widest line: a name too long before a score of eleven characters.
    const QList<QStringList> widest{{"1", QString(61, u'W'), "-2147483648"}};
    for (const auto size : {QPageSize::A4, QPageSize::Letter}) {
        for (const double margin : {0.0, 4.0, 20.0}) {
            RecordingPaper paper(size);
            paper.setPageMargins(QMarginsF(margin, margin, margin, margin),
                                 QPageLayout::Millimeter);
            ResultsPage::Paint(paper, ResultsPage::Lines(QStringLiteral("T"), widest));
            const double edge = paper.Dots(8);
            const double titleTop = paper.Items().constFirst().place.y() + paper.Origin().y();
            QVERIFY(titleTop > paper.Dots(15) && titleTop < paper.Dots(25));
            for (const Item& item : paper.Items()) {
                const double left = item.place.x() + paper.Origin().x();
                const double width =
                    QFontMetricsF(item.font, &paper).horizontalAdvance(item.text.trimmed());
                QVERIFY2(left >= edge && left + width <= paper.Paper().width() - edge,
                         qPrintable(item.text));
            }
        }
    }
}

void ResultsPageTest::breaksPages() {
    RecordingPaper paper(QPageSize::A4);
    ResultsPage::Paint(paper, ResultsPage::Lines(QStringLiteral("T"), teams(120)));
    std::map<std::pair<int, double>, QString> lines;
    for (const Item& item : paper.Items()) {
        QVERIFY(item.place.y() + paper.Origin().y() < paper.Paper().height() - paper.Dots(15));
        lines[{item.page, item.place.y()}] += item.text;
    }
    int next = 1;
    for (const auto& [place, text] : lines) {
        if (text.contains(QStringLiteral("Team ")) && !text.contains(QStringLiteral("Name"))) {
            QCOMPARE(text.simplified(), QStringLiteral("%1 Team %1 -%1").arg(next));
            ++next;
        }
    }
    QCOMPARE(next, 121);
    QCOMPARE(paper.Items().constLast().page, 3);
}

// A table stays a table with names that a fixed pitch font has no letters for.
void ResultsPageTest::keepsColumnsStraight() {
    double expected = 0;
    for (const char* name : {"Plain", "\U0001F984\U0001F984 Unicorns", "\u05E9\u05DC\u05D5\u05DD",
                             "\u65E5\u672C\u8A9E", "e\u0301e\u0301"}) {
        RecordingPaper paper(QPageSize::A4);
        ResultsPage::Paint(
            paper, ResultsPage::Lines(QStringLiteral("T"), {{"1", QString::fromUtf8(name), "42"}}));
        const Item& score = paper.Items().constLast();
        QCOMPARE(score.text.trimmed(), QStringLiteral("42"));
        if (expected == 0)
            expected = score.place.x();
        QCOMPARE(score.place.x(), expected);
    }
}

void ResultsPageTest::saysWhenThePrinterFails() {
    RecordingPaper paper(QPageSize::A4, 1);
    const auto lines = ResultsPage::Lines(QStringLiteral("T"), teams(120));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, ResultsPage::Paint(paper, lines));
    const QString nobody = QStringLiteral("no such printer");
    QVERIFY_THROWS_EXCEPTION(RuntimeError, ResultsPage::Print(nobody, QStringLiteral("T"), {}));
}

QTEST_MAIN(ResultsPageTest)
#include "ResultsPageTest.moc"
