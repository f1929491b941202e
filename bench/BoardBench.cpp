#include "Bench.h"

#include "display/Render.h"
#include "display/frmSummary.h"
#include "support/AppFolder.h"

#include <QApplication>
#include <QImage>
#include <QLabel>

namespace {

void fill(SummaryList& list, int rows) {
    for (int i = 0; i < rows; ++i)
        list.Add(std::make_shared<Summary>(
            Summary{QStringLiteral("The Quizzards of Oz %1").arg(i), rows - i, i % 9 == 0, i + 1}));
}

// The board needs the joker's picture.
void makeJoker(const AppFolder& folder) {
    QImage joker(64, 64, QImage::Format_RGB32);
    joker.fill(Qt::red);
    if (!joker.save(folder.Path(QStringLiteral("JOKER.BMP"))))
        qFatal("no picture");
}

// Lines of places before `revealFrom` are hidden; 0 hides none.
frmSummary* build(const SummaryList& list, qint32 revealFrom) {
    auto* board = new frmSummary(nullptr);
    if (!Render({}).RenderResults(*board, list, QStringLiteral("Rankelo Results"), revealFrom))
        qFatal("no board");
    return board;
}

void ours(const SummaryList& list, qint32 revealFrom) {
    const std::unique_ptr<frmSummary> board(build(list, revealFrom));
}

struct Label {
    QRect geometry;
    QFont font;
    QString text;
    Qt::Alignment alignment;
    QPalette palette;
    bool visible;
};

// What a board's controls look like.
QList<Label> labelsOf(const SummaryList& list, qint32 revealFrom) {
    const std::unique_ptr<frmSummary> board(build(list, revealFrom));
    QList<Label> labels;
    for (const QLabel* label : board->findChildren<QLabel*>())
        labels.append({label->geometry(), label->font(), label->text(), label->alignment(),
                       label->palette(), label->isVisible()});
    return labels;
}

class Window : public QWidget {
public:
    /// Returns when it has been painted with all that is in it.
    void Paint() {
        m_isPainted = false;
        update();
        while (!m_isPainted)
            QApplication::processEvents();
    }

private:
    void paintEvent(QPaintEvent*) override { m_isPainted = true; }
    bool m_isPainted = false;
};

// As many labels in the same places, with the same texts, fonts and colours.
void bare(const QList<Label>& labels) {
    Window board;
    board.showFullScreen();
    board.Paint();
    for (const Label& each : labels) {
        auto* label = new QLabel(each.text, &board);
        label->setFont(each.font);
        label->setAlignment(each.alignment);
        label->setPalette(each.palette);
        label->setAutoFillBackground(true);
        label->setGeometry(each.geometry);
        label->setVisible(each.visible);
    }
    board.Paint();
}

} // namespace

void BenchBoard() {
    const AppFolder folder;
    makeJoker(folder);
    for (const int rows : {40, 400}) {
        SummaryList list;
        fill(list, rows);
        for (const qint32 revealFrom : {4, 0}) {
            const QList<Label> labels = labelsOf(list, revealFrom);
            const Pair pair = Compare(
                Clock::Processor, 4000 / rows, [&] { ours(list, revealFrom); },
                [&] { bare(labels); });
            PrintRow(QStringLiteral("board of %1 rows, podium %2, bare labels")
                         .arg(rows)
                         .arg(QLatin1StringView(revealFrom == 0 ? "shown" : "hidden")),
                     pair, 1, 1.5);
        }
    }
}

bool RunBoardOnce(const QString& operation) {
    if (operation != u"board")
        return false;
    const AppFolder folder;
    makeJoker(folder);
    SummaryList list;
    fill(list, 40);
    ours(list, 0);
    return true;
}
