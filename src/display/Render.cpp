#include "display/Render.h"

#include "app/Desktop.h"
#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/Numbers.h"
#include "core/RuntimeError.h"
#include "data/Require.h"
#include "display/BoardGeometry.h"
#include "display/BoardLabel.h"
#include "display/frmSummary.h"
#include "display/frmViewResults.h"

#include <QScopeGuard>

namespace {

constexpr const char* Component = "Render";

// The podium's three shades of green, for places 1, 2 and 3.
constexpr qint32 PodiumGreens[] = {0x00FF00, 0x008000, 0x004000};

// Numbers are never cut, whatever they shrink to; a heading may shrink to half.
constexpr double HeadingShare = 0.5;

// Scores beyond these are drawn smaller by themselves, not with all others.
constexpr qint32 LowestUsualScore = -9999;
constexpr qint32 HighestUsualScore = 99999;

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

Render::Render(DisplaySettings settings)
    : m_settings(std::move(settings)) {}

bool Render::ViewResults(frmViewResults& screen, const SummaryList& list, const QString& caption) {
    return Guarded("ViewResults", Component, false, [&] {
        screen.SetCaption(caption);
        for (const auto& row : list)
            screen.AddRow(QString::number(row->Position), row->TeamName,
                          QString::number(row->Score),
                          row->Joker ? QStringLiteral("Played") : QString());
        screen.exec();
        return true;
    });
}

bool Render::RenderResults(frmSummary& screen, const SummaryList& list, const QString& heading,
                           qint32 revealFrom) {
    return Guarded("RenderResults", Component, false, [&] {
        // A box about an error must not open behind the board.
        const ErrorBoxesOver here(screen);
        m_board = &screen;
        screen.SetHeading(heading);
        QPalette palette = screen.palette();
        palette.setColor(QPalette::Window, ColorOf(m_settings.BackGround));
        screen.setPalette(palette);
        screen.ShowBoard();
        board().BeginPage();
        // Also after a failure: what was drawn until then stays.
        const auto show = qScopeGuard([this] {
            if (m_board)
                m_board->ShowPage();
        });
        beginBuild(screen, list);
        return renderHeading(heading) && renderLines(list, revealFrom);
    });
}

void Render::beginBuild(const frmSummary& screen, const SummaryList& list) {
    m_layout.emplace(m_settings, screen.BoardWidth(), screen.BoardHeight(), list.LastIndex() + 1);
    m_line = {};
    m_counter = 0;
    m_pictures.clear();
    m_places = m_scores = {};
    const QFontMetricsF metrics(QFont(m_settings.FontName, RenderObject(m_settings).FontSize));
    const auto keepWider = [&metrics](NumberColumn& column, qint32 number) {
        const QString text = QString::number(number);
        if (const double width = metrics.horizontalAdvance(text); width > column.WidestWidth)
            column = {.Widest = text, .WidestWidth = width};
    };
    for (const auto& row : list) {
        keepWider(m_places, row->Position);
        if (row->Score >= LowestUsualScore && row->Score <= HighestUsualScore)
            keepWider(m_scores, row->Score);
    }
}

bool Render::renderHeading(const QString& heading) {
    RenderObject element(m_settings);
    element.Name = QStringLiteral("lblHeading");
    element.Align = RenderObject::Centre;
    element.BackColor = m_settings.BackGround;
    element.ForeColor = m_settings.FColorA;
    element.OHeight = m_layout->HeadingHeight();
    element.OWidth = board().DisplayWidth();
    element.Text = heading;
    element.FontBold = true;
    element.FontSize = m_layout->HeadingSize();
    return RenderLabel(element);
}

bool Render::renderLines(const SummaryList& list, qint32 revealFrom) {
    m_line = m_layout->First();
    for (const auto& row : list) {
        if (!RenderLine(*row, revealFrom == 0 || row->Position >= revealFrom))
            return false;
        m_line = m_layout->Wrapped(m_line);
    }
    const frmSummary& screen = board();
    board().SetLinesOutside(
        {m_layout->LinesOutside(), LargestFittingSize(m_settings, screen.BoardWidth(),
                                                      screen.BoardHeight(), list.LastIndex() + 1)});
    return true;
}

bool Render::RenderLine(const Summary& row, bool visible) {
    return Guarded("RenderLine", Component, false, [&] {
        const RenderObject place = placeBox(row, visible);
        if (!RenderLabel(place))
            return false;
        const RenderObject team = teamBox(row, place);
        if (!RenderLabel(team))
            return false;
        const RenderObject joker = jokerBox(row, team);
        if (!RenderImage(joker))
            return false;
        if (row.Joker)
            board().KeepTextLeftOf(team.Name, joker.Name);
        if (!RenderLabel(scoreBox(row, team)))
            return false;
        m_line.Top = m_layout->Below(m_line.Top);
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

RenderObject Render::placeBox(const Summary& row, bool visible) const {
    RenderObject box(m_settings);
    box.Name = nextName();
    box.Tag = QString::number(row.Position);
    box.Visible = visible;
    box.ForeColor = m_settings.FColorA;
    if (row.Position >= 1 && row.Position <= std::ssize(PodiumGreens)) {
        box.BackColor = PodiumGreens[row.Position - 1];
    } else if (row.Position % 2 != 0) {
        box.BackColor = m_settings.BColorA;
    } else {
        box.BackColor = m_settings.BColorB;
        box.ForeColor = m_settings.FColorB;
    }
    box.OLeft = m_line.Left;
    box.OTop = m_line.Top;
    box.OHeight = m_layout->LineHeight();
    box.OWidth = m_layout->NumberWidth();
    box.Text = QString::number(row.Position);
    box.Align = RenderObject::Centre;
    return box;
}

RenderObject Render::teamBox(const Summary& row, const RenderObject& place) const {
    RenderObject box = place;
    box.Name = nextName();
    box.Align = RenderObject::Left;
    box.OWidth = m_layout->NameWidth();
    box.OLeft = m_layout->NameLeft(m_line.Left);
    box.Text = row.TeamName;
    return box;
}

// A square flush inside the right end of the team's box.
RenderObject Render::jokerBox(const Summary& row, const RenderObject& team) const {
    RenderObject box = team;
    box.Name = nextName();
    if (row.Joker)
        box.FileName = Paths().AppPath + QStringLiteral("JOKER.BMP");
    box.OWidth = box.OHeight = m_layout->LineHeight();
    box.OLeft = CheckedSubtract(CheckedAdd(team.OLeft, team.OWidth), box.OWidth);
    return box;
}

RenderObject Render::scoreBox(const Summary& row, const RenderObject& team) const {
    RenderObject box = team;
    box.Name = nextName();
    box.OWidth = m_layout->NumberWidth();
    box.OLeft = m_layout->ScoreLeft(m_line.Left);
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
        if (element.Tag.isEmpty()) {
            label.SetShrinking(HeadingShare);
        } else if (element.Align != RenderObject::Left) {
            NumberColumn& column = element.Align == RenderObject::Right ? m_scores : m_places;
            if (column.Size == 0)
                column.Size = BoardLabel::FittingSize(column.Widest, label.font(), label.width());
            label.SetShrinking(BoardLabel::AnyShare, column.Size);
        }
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
