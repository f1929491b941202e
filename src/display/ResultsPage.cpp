#include "display/ResultsPage.h"

#include "core/PadRight.h"
#include "core/RuntimeError.h"
#include "display/DefaultPrinter.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

namespace {

constexpr int PositionWidth = 10;
constexpr int NameWidth = 60;
constexpr int ScoreWidth = 10;
constexpr int LineWidth = PositionWidth + NameWidth + ScoreWidth;
constexpr int FontPoints = 11;

// Millimetres. At the sides no more than this is left on A4, where 81 columns take 189 mm: a name
// too long for its column makes a line one column longer.
constexpr double SideMargin = 10;
constexpr double EndMargin = 15;

ResultsPage::Line row(const QString& position, const QString& name, const QString& score) {
    return {PadRight(position, PositionWidth), PadRight(name, NameWidth),
            PadRight(score, ScoreWidth)};
}

// Each column starts where it belongs, also behind a name of wide or right-to-left letters.
void drawLine(QPainter& painter, QPointF place, const ResultsPage::Line& line) {
    const double advance = QFontMetricsF(painter.font(), painter.device()).horizontalAdvance(u'-');
    for (const QString& column : line) {
        painter.drawText(place, column);
        place.rx() += static_cast<double>(CharacterCount(column)) * advance;
    }
}

// Where text may stand, in the painter's own dots, counted from its origin.
struct Area {
    double left, top, bottom;
};

Area areaOf(const QPagedPaintDevice& device) {
    QPageLayout layout = device.pageLayout();
    layout.setUnits(QPageLayout::Millimeter);
    const QMarginsF unprintable = layout.minimumMargins();
    const QPointF origin = layout.paintRect().topLeft();
    const double paperHeight = layout.fullRect().height();
    const double dots = device.logicalDpiY() / 25.4;
    return {(SideMargin - origin.x()) * dots,
            (std::max(EndMargin, unprintable.top()) - origin.y()) * dots,
            (paperHeight - std::max(EndMargin, unprintable.bottom()) - origin.y()) * dots};
}

[[noreturn]] void failed(const QString& what) {
    throw RuntimeError(ErrorNumber::DeviceFault, what);
}

} // namespace

QList<ResultsPage::Line> ResultsPage::Lines(const QString& title, const QList<QStringList>& rows) {
    const Line blank;
    QList<Line> lines{
        {PadRight(title, LineWidth)},
        blank,
        row(QStringLiteral("Position"), QStringLiteral("Team Name"), QStringLiteral("Total")),
        {PadRight(QString(LineWidth, u'-'), LineWidth)},
        blank};
    for (const QStringList& texts : rows)
        lines.append(row(texts.value(0), texts.value(1), texts.value(2)));
    return lines;
}

void ResultsPage::Paint(QPagedPaintDevice& device, const QList<Line>& lines) {
    QPainter painter;
    if (!painter.begin(&device))
        failed(QStringLiteral("The printer cannot be written to"));
    const Area area = areaOf(device);
    QFont fixedPitch(QStringLiteral("Courier New"), FontPoints);
    fixedPitch.setStyleHint(QFont::Monospace);
    double y = area.top;
    for (const Line& line : lines) {
        const QFontMetricsF metrics(painter.font(), &device);
        if (y + metrics.height() > area.bottom) {
            if (!device.newPage())
                failed(QStringLiteral("The printer takes no further page"));
            y = area.top;
        }
        drawLine(painter, {area.left, y + metrics.ascent()}, line);
        y += metrics.lineSpacing();
        painter.setFont(fixedPitch);
    }
    if (!painter.end())
        failed(QStringLiteral("The printer did not take the document"));
}

void ResultsPage::Print(const QString& printerName, const QString& title,
                        const QList<QStringList>& rows) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(printerName);
    if (info.isNull())
        failed(QStringLiteral("%1: no such printer").arg(printerName));
    QPrinter printer(info, QPrinter::HighResolution);
    // The paper that lies in it; otherwise it would be the one of the operator's country.
    if (const QPageSize paper = info.defaultPageSize(); paper.isValid())
        printer.setPageSize(paper);
    printer.setDocName(title);
    Paint(printer, Lines(title, rows));
    DefaultPrinter::RequireDocumentTaken();
}
