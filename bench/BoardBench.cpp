#include "Bench.h"

#include "display/BoardLabel.h"
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

// Sees a window being painted with all that is in it.
struct Eye : QObject {
    explicit Eye(QWidget& window) { window.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        HasSeen = HasSeen || event->type() == QEvent::Paint;
        return false;
    }
    bool HasSeen = false;
};

void paint(QWidget& window) {
    const Eye eye(window);
    window.update();
    while (!eye.HasSeen)
        QApplication::processEvents();
}

// Lines of places before `revealFrom` are hidden; 0 hides none.
std::unique_ptr<frmSummary> build(const SummaryList& list, qint32 revealFrom) {
    auto board = std::make_unique<frmSummary>(nullptr);
    board->Build([&list, revealFrom, screen = board.get()] {
        if (!Render({}).RenderResults(*screen, list, QStringLiteral("Rankelo Results"), revealFrom))
            qFatal("no board");
    });
    paint(*board);
    return board;
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
    const auto board = build(list, revealFrom);
    QList<Label> labels;
    for (const QLabel* label : board->findChildren<QLabel*>()) {
        QPalette palette = label->palette();
        if (const auto* text = qobject_cast<const BoardLabel*>(label)) {
            palette.setColor(QPalette::Window, text->BackColor());
            palette.setColor(QPalette::WindowText, text->ForeColor());
        }
        labels.append({label->geometry(), label->font(), label->text(), label->alignment(), palette,
                       label->isVisible()});
    }
    return labels;
}

// As many labels in the same places, with the same texts, fonts and colours.
void bare(const QList<Label>& labels) {
    QWidget board;
    board.showFullScreen();
    paint(board);
    for (const Label& each : labels) {
        auto* label = new QLabel(each.text, &board);
        label->setFont(each.font);
        label->setAlignment(each.alignment);
        label->setPalette(each.palette);
        label->setAutoFillBackground(true);
        label->setGeometry(each.geometry);
        label->setVisible(each.visible);
    }
    paint(board);
}

// The board in two sizes in turn, against one that is made and built for the one size.
void benchRelayout(const SummaryList& list) {
    const auto board = build(list, 0);
    const QSize sizes[] = {board->size(), board->size() - QSize(1, 1)};
    int times = 0;
    const auto resize = [&] {
        bool isBuilt = false;
        Eye eye(*board);
        QObject::connect(board.get(), &frmSummary::built, &eye, [&] {
            isBuilt = true;
            eye.HasSeen = false;
        });
        board->resize(sizes[++times % 2]);
        while (!isBuilt || !eye.HasSeen)
            QApplication::processEvents();
    };
    PrintRow(QStringLiteral("board of 40 rows laid out anew, built"),
             Compare(Clock::Processor, 100, resize, [&] { build(list, 0); }), 1, 1);
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
                Clock::Processor, 4000 / rows, [&] { build(list, revealFrom); },
                [&] { bare(labels); });
            PrintRow(QStringLiteral("board of %1 rows, podium %2, bare labels")
                         .arg(rows)
                         .arg(QLatin1StringView(revealFrom == 0 ? "shown" : "hidden")),
                     pair, 1, 1.3);
        }
        if (rows == 40)
            benchRelayout(list);
    }
}

bool RunBoardOnce(const QString& operation) {
    if (operation != u"board")
        return false;
    const AppFolder folder;
    makeJoker(folder);
    SummaryList list;
    fill(list, 40);
    build(list, 0);
    return true;
}
