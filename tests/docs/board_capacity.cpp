// Tells how many teams a board with the default settings holds, for the user guide: one line for
// each font size, measured on boards that are really laid out.
//
//   board_capacity WIDTHxHEIGHT    of the screen, in pixels
//
// A line of the answer: the size in points; the most teams that one column shows; the fewest and
// the most that two columns show; how many letters of a name a line has room for, in one column and
// in two; and "cut" when the lowest line of a column crosses the foot of the screen.

#include "app/modCommon.h"
#include "core/AppPaths.h"
#include "display/BoardLabel.h"
#include "display/Render.h"
#include "display/frmSummary.h"

#include <QApplication>
#include <QTemporaryFile>

#include <algorithm>
#include <cstdio>
#include <ranges>

namespace {

constexpr int Crowd = 200; // more teams than any board holds

struct Board {
    int whole = 0;   ///< lines that are on the screen with their whole height
    int visible = 0; ///< lines that are on the screen at least with their top
    int nameWidth = 0;
    int letters = 0;
};

Board measured(int teams) {
    const QString name = QStringLiteral("Universally Challenged"); // a typical one
    SummaryList list;
    for (int i = 1; i <= teams; ++i)
        list.Add(std::make_shared<Summary>(Summary{.TeamName = name, .Position = i}));
    frmSummary screen(nullptr);
    screen.setAttribute(Qt::WA_DeleteOnClose, false);
    Render(modCommon::AppSettings())
        .RenderResults(screen, list, QStringLiteral("Rankelo Results"), 0);

    Board board;
    for (const auto* label : screen.findChildren<BoardLabel*>()) {
        if (label->text() != name)
            continue;
        const QRect box = label->geometry();
        // A line is a tenth higher than its letters; so much may be missing of it.
        const QRect letters = box.adjusted(0, 0, 0, -box.height() / 10);
        board.whole += screen.rect().contains(letters) ? 1 : 0;
        board.visible += screen.rect().contains(box.topLeft()) ? 1 : 0;
        const double letter =
            QFontMetricsF(label->font()).horizontalAdvance(name) / static_cast<double>(name.size());
        board.nameWidth = box.width();
        board.letters = static_cast<int>(box.width() / letter);
    }
    return board;
}

} // namespace

int main(int argc, char** argv) {
    const QByteArrayList sides = QByteArray(argv[argc - 1]).split('x');
    QTemporaryFile screen;
    if (sides.size() != 2 || !screen.open())
        return EXIT_FAILURE;
    screen.write("{\"screens\": [{\"name\": \"wall\", \"x\": 0, \"y\": 0, \"width\": " + sides[0] +
                 ", \"height\": " + sides[1] +
                 ", \"logicalDpi\": 96, \"logicalBaseDpi\": 96, \"dpr\": 1}]}");
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
    // Nothing is shown, so nothing can be raised; the platform would say so for each board.
    qputenv("QT_LOGGING_RULES", "default.warning=false");
    QApplication application(argc, argv);

    // No file of settings lies there: these are the defaults.
    Paths().AppPath = screen.fileName();
    if (!modCommon::Settings(modCommon::LoadSettings))
        return EXIT_FAILURE;
    for (const int points : {16, 18, 20, 22, 24, 26, 28, 30, 32, 34, 40, 52, 70}) {
        modCommon::AppSettings().FontSize = QString::number(points);
        const Board two = measured(Crowd);
        // The fewest teams that take two columns.
        const int narrow =
            *std::ranges::partition_point(std::views::iota(1, Crowd), [&](int teams) {
                return measured(teams).nameWidth != two.nameWidth;
            });
        const Board one = measured(narrow - 1);
        std::printf("%d %d %d %d %d %d%s\n", points, one.whole, narrow, two.visible, one.letters,
                    two.letters, two.whole < two.visible ? " cut" : "");
    }
    return EXIT_SUCCESS;
}
