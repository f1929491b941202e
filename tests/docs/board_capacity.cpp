// Tells how many teams a board with the default settings holds, for the user guide: one line for
// each font size, measured on boards that are really laid out.
//
//   board_capacity WIDTHxHEIGHT    of the screen, in pixels
//
// A line of the answer: the size in points; the most teams that one column shows; the fewest and
// the most that two columns show; how many letters of a name a line has room for, in one column and
// in two; and "cut" when the lowest line of a column crosses the foot of the screen.

#include "app/modCommon.h"
#include "core/AppValues.h"
#include "display/BoardLabel.h"
#include "display/Render.h"
#include "display/frmSummary.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int Sizes[] = {16, 18, 20, 22, 24, 26, 28, 30, 32, 34, 40, 52, 70};
const QString TypicalName = QStringLiteral("Universally Challenged");

struct Board {
    int whole = 0;   ///< lines that are on the screen with their whole height
    int visible = 0; ///< lines that are on the screen at least with their top
    int nameWidth = 0;
    int letters = 0;
};

Board measured(int teams) {
    SummaryList list;
    for (int i = 0; i < teams; ++i) {
        auto row = std::make_shared<Summary>();
        row->TeamName = TypicalName;
        row->Position = i + 1;
        list.Add(row);
    }
    frmSummary screen(nullptr);
    screen.setAttribute(Qt::WA_DeleteOnClose, false);
    if (!Render().RenderResults(screen, list, QStringLiteral("Rankelo Results"), 0))
        std::exit(EXIT_FAILURE);

    Board board;
    for (const auto* label : screen.findChildren<BoardLabel*>()) {
        if (label->text() != TypicalName)
            continue;
        const QRect box = label->geometry();
        // A line is a tenth higher than its letters; so much may be missing of it.
        const QRect letters = box.adjusted(0, 0, 0, -box.height() / 10);
        board.whole += screen.rect().contains(letters) ? 1 : 0;
        board.visible += screen.rect().contains(box.topLeft()) ? 1 : 0;
        const double letter = QFontMetricsF(label->font()).horizontalAdvance(TypicalName) /
                              static_cast<double>(TypicalName.size());
        board.nameWidth = box.width();
        board.letters = static_cast<int>(box.width() / letter);
    }
    return board;
}

// More teams than any board holds, so that its columns are full.
constexpr int Crowd = 200;

void measure(int points) {
    App().FontSize = QString::number(points);
    const Board two = measured(Crowd);
    int narrow = Crowd; // so many teams take two columns,
    int wide = 1;       // and so many one
    while (narrow - wide > 1) {
        const int middle = (narrow + wide) / 2;
        (measured(middle).nameWidth == two.nameWidth ? narrow : wide) = middle;
    }
    const Board one = measured(wide);
    std::printf("%d %d %d %d %d %d%s\n", points, one.whole, narrow, two.visible, one.letters,
                two.letters, two.whole < two.visible ? " cut" : "");
}

QByteArray screenOf(const QByteArray& size) {
    const QList<QByteArray> sides = size.split('x');
    return "{\"screens\": [{\"name\": \"wall\", \"x\": 0, \"y\": 0, \"width\": " + sides.value(0) +
           ", \"height\": " + sides.value(1) +
           ", \"logicalDpi\": 96, \"logicalBaseDpi\": 96, \"dpr\": 1}]}";
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir place;
    QFile screen(place.filePath(QStringLiteral("screen.json")));
    if (argc != 2 || !screen.open(QIODevice::WriteOnly))
        return EXIT_FAILURE;
    screen.write(screenOf(argv[1]));
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
    // Nothing is shown, so nothing can be raised; the platform would say so for each board.
    qputenv("QT_LOGGING_RULES", "default.warning=false");
    QApplication application(argc, argv);

    // No file of settings lies there: these are the defaults.
    App().AppPath = place.path() + u'/';
    if (!modCommon::Settings(modCommon::LoadSettings))
        return EXIT_FAILURE;
    for (const int points : Sizes)
        measure(points);
    return EXIT_SUCCESS;
}
