#include "display/Render.h"

#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/Numbers.h"
#include "core/RuntimeError.h"
#include "data/Require.h"
#include "display/BoardGeometry.h"
#include "display/BoardLabel.h"
#include "display/frmSummary.h"
#include "display/frmViewResults.h"

namespace {

constexpr const char* Component = "Render";

// A line is a tenth higher than its letters: 22 twips to the point, of which there are 20.
constexpr double TwipsPerPoint = 22;
constexpr double HeadingScale = 1.5;

// The podium's three shades of green, for places 1, 2 and 3.
constexpr qint32 PodiumGreens[] = {0x00FF00, 0x008000, 0x004000};
constexpr qint32 LastPodiumPlace = 3;

qint32 add(qint32 a, qint32 b) {
    return CheckedAdd(a, b);
}

qint32 subtract(qint32 a, qint32 b) {
    return ToInt32(static_cast<double>(a) - b);
}

double divide(double value, double divisor) {
    if (divisor == 0)
        throw RuntimeError(ErrorNumber::DivisionByZero, QStringLiteral("Division by zero"));
    return value / divisor;
}

Qt::Alignment alignmentOf(qint32 align) {
    switch (align) {
    case RenderObject::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case RenderObject::Centre:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

void place(QWidget& control, const RenderObject& element, int dpi) {
    control.setGeometry(TwipsToPixels(element.OLeft, dpi), TwipsToPixels(element.OTop, dpi),
                        TwipsToPixels(element.OWidth, dpi), TwipsToPixels(element.OHeight, dpi));
}

QFont fontOf(const RenderObject& element) {
    if (element.FontSize <= 0)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           QStringLiteral("No font size: %1 points").arg(element.FontSize));
    QFont font(element.FontName, element.FontSize);
    font.setBold(element.FontBold);
    return font;
}

} // namespace

Render::Render(const DisplaySettings& settings)
    : m_settings(settings) {}

bool Render::ViewResults(frmViewResults& screen, const SummaryList& list, const QString& caption) {
    return Guarded("ViewResults", Component, false, [&] {
        screen.setWindowTitle(caption);
        for (qint32 i = 0; i <= list.LastIndex(); ++i) {
            const Summary& row = *list.Item(i);
            screen.AddRow(QString::number(row.Position), row.TeamName, QString::number(row.Score),
                          row.Joker ? QStringLiteral("Played") : QString());
        }
        screen.exec();
        return true;
    });
}

bool Render::RenderResults(frmSummary& screen, const SummaryList& list, const QString& heading,
                           qint32 revealFrom) {
    return Guarded("RenderResults", Component, false, [&] {
        m_board = &screen;
        m_pictures.clear();
        screen.setWindowTitle(heading);
        screen.ShowBoard();
        QPalette palette = board().palette();
        palette.setColor(QPalette::Window, ColorOf(m_settings.BackGround));
        board().setPalette(palette);

        m_lineHeight = ToInt32(ToNumber(m_settings.FontSize) * TwipsPerPoint);
        // Padding and footer are left out of this test, though a column ends before the footer.
        const double needed = (list.LastIndex() + 1.0) * m_lineHeight;
        m_columns = board().BoardHeight() < needed ? 2 : 1;
        m_columnWidth = ToInt32(static_cast<double>(board().BoardWidth()) / m_columns);
        m_left = 0;
        m_top = 0;
        m_counter = 0;
        if (!renderHeading(heading))
            return false;

        m_top = CheckedMultiply(2, m_lineHeight);
        m_left = m_settings.LeftMargin;
        for (qint32 i = 0; i <= list.LastIndex(); ++i) {
            const Summary& row = *list.Item(i);
            if (!RenderLine(row, revealFrom == 0 || row.Position >= revealFrom))
                return false;
            nextColumnWhenFull();
        }
        board().ShowBoard();
        return true;
    });
}

bool Render::renderHeading(const QString& heading) {
    RenderObject element(m_settings);
    element.Name = QStringLiteral("lblHeading");
    element.Align = RenderObject::Centre;
    element.BackColor = m_settings.BackGround;
    element.ForeColor = m_settings.FColorA;
    element.OHeight = ToInt32(m_lineHeight * HeadingScale);
    element.OWidth = board().DisplayWidth();
    element.Text = heading;
    element.FontBold = true;
    element.FontSize = ToInt32(ToNumber(m_settings.FontSize) * HeadingScale);
    return RenderLabel(element);
}

// Tested after a line has been placed, against the top of the next one: the last line of a column
// may reach into the footer. Columns that do not fit go on beyond the right edge.
void Render::nextColumnWhenFull() {
    if (subtract(board().BoardHeight(), m_settings.Footer) < m_top) {
        m_left = add(m_left, m_columnWidth);
        m_top = CheckedMultiply(2, m_lineHeight);
    }
}

bool Render::RenderLine(const Summary& row, bool visible) {
    return Guarded("RenderLine", Component, false, [&] {
        const RenderObject position = numberBox(row, visible);
        if (!RenderLabel(position))
            return false;
        const RenderObject team = teamBox(row, position);
        if (!RenderLabel(team))
            return false;
        const RenderObject joker = jokerBox(row, team);
        if (!RenderImage(joker))
            return false;
        // Only the podium's pictures are ever revealed; there the name must end before them.
        if (row.Joker && row.Position <= LastPodiumPlace)
            board().KeepTextLeftOf(team.Name, joker.Name);
        if (!RenderLabel(scoreBox(row, position, team)))
            return false;
        m_top = add(m_top, add(m_lineHeight, m_settings.CellPadY));
        return true;
    });
}

frmSummary& Render::board() const {
    return Require(m_board);
}

// Forty jokers are the same file; the next board reads it again, should it be another picture.
QPixmap Render::picture(const QString& fileName) {
    if (fileName.isEmpty())
        return {};
    QPixmap& loaded = m_pictures[fileName];
    if (loaded.isNull() && !loaded.load(fileName))
        throw RuntimeError(ErrorNumber::FileNotFound,
                           QStringLiteral("%1: no picture that can be read").arg(fileName));
    return loaded;
}

QString Render::nextName() const {
    return QStringLiteral("lblLabel") + QString::number(m_counter);
}

RenderObject Render::numberBox(const Summary& row, bool visible) const {
    RenderObject box(m_settings);
    box.Name = nextName();
    box.Tag = QString::number(row.Position);
    box.Visible = visible;
    box.ForeColor = m_settings.FColorA;
    if (row.Position >= 1 && row.Position <= LastPodiumPlace) {
        box.BackColor = PodiumGreens[row.Position - 1];
    } else if (row.Position % 2 != 0) {
        box.BackColor = m_settings.BColorA;
    } else {
        box.BackColor = m_settings.BColorB;
        box.ForeColor = m_settings.FColorB;
    }
    box.OLeft = m_left;
    box.OTop = m_top;
    box.OHeight = m_lineHeight;
    // The label width is a divisor; twice of it in one column keeps the box as wide as in two.
    const double divisor = m_settings.LabelWidth * (m_columns == 1 ? 2.0 : 1.0);
    box.OWidth = ToInt32(divide(m_columnWidth, divisor) - m_settings.RightMargin);
    box.Text = QString::number(row.Position);
    box.Align = RenderObject::Centre;
    return box;
}

RenderObject Render::teamBox(const Summary& row, const RenderObject& position) const {
    RenderObject box = position;
    box.Name = nextName();
    box.Align = RenderObject::Left;
    box.OWidth = ToInt32(static_cast<double>(m_columnWidth) - 2.0 * position.OWidth -
                         (static_cast<double>(m_settings.LeftMargin) + m_settings.RightMargin));
    box.OLeft = add(position.OLeft, add(m_settings.CellPadX, position.OWidth));
    box.Text = row.TeamName;
    return box;
}

// A square flush inside the right end of the team's box.
RenderObject Render::jokerBox(const Summary& row, const RenderObject& team) const {
    RenderObject box = team;
    box.Name = nextName();
    if (row.Joker)
        box.FileName = Paths().AppPath + QStringLiteral("JOKER.BMP");
    box.OWidth = box.OHeight = m_lineHeight;
    box.OLeft = subtract(add(team.OLeft, team.OWidth), box.OWidth);
    return box;
}

RenderObject Render::scoreBox(const Summary& row, const RenderObject& position,
                              const RenderObject& team) const {
    RenderObject box = team;
    box.Name = nextName();
    box.OWidth = position.OWidth;
    box.OLeft = add(team.OLeft, add(m_settings.CellPadX, team.OWidth));
    box.Text = QString::number(row.Score);
    box.Align = RenderObject::Right;
    return box;
}

bool Render::RenderLabel(const RenderObject& element) {
    return Guarded("RenderLabel", Component, false, [&] {
        BoardLabel& label = board().AddLabel(element.Name);
        place(label, element, board().Dpi());
        label.setFont(fontOf(element));
        label.setText(element.Text);
        label.SetColors(ColorOf(element.BackColor), ColorOf(element.ForeColor));
        label.setAlignment(alignmentOf(element.Align));
        label.setProperty(TagProperty, element.Tag);
        label.setVisible(element.Visible);
        ++m_counter;
        return true;
    });
}

bool Render::RenderImage(const RenderObject& element) {
    return Guarded("RenderImage", Component, false, [&] {
        QLabel& control = board().AddPicture(element.Name);
        control.hide();
        control.setPixmap(picture(element.FileName));
        place(control, element, board().Dpi());
        control.setProperty(TagProperty, element.Tag);
        control.setScaledContents(true);
        control.raise();
        ++m_counter;
        return true;
    });
}
