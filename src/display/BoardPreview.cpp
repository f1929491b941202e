#include "display/BoardPreview.h"

#include "app/Theme.h"
#include "core/Logging.h"
#include "display/Render.h"

#include <QPainter>
#include <QScopeGuard>

namespace {

// A board of as many lines as a small quiz has.
SummaryList madeUpTeams() {
    constexpr qint32 teams = 8;
    SummaryList list;
    for (qint32 place = 1; place <= teams; ++place)
        list.Add(std::make_shared<Summary>(
            Summary{QStringLiteral("Team %1").arg(place), 10 * (teams - place), false, place}));
    return list;
}

} // namespace

BoardPreview::BoardPreview(const QWidget* console)
    : m_board(console, frmSummary::Use::Picture) {
    if (auto standings = SummaryDAO().GetOverallSummary(2)) {
        m_teams = standings->LastIndex() + 1;
        m_rows = std::move(*standings);
    }
    if (m_teams == 0)
        m_rows = madeUpTeams();
    setAccessibleName(QStringLiteral("The board in these settings"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    constexpr int leastWidth = 34 * Theme::Unit;
    setMinimumWidth(leastWidth);
}

bool BoardPreview::Draw(const DisplaySettings& settings) {
    // Half-typed numbers are no errors that anybody wants to be told.
    auto show = std::exchange(AppLog().ShowError, nullptr);
    const auto restore = qScopeGuard([&] { AppLog().ShowError = std::move(show); });
    const bool isWhole =
        Render(settings).RenderResults(m_board, m_rows, QStringLiteral("Rankelo Results"), 0);
    m_picture = m_board.grab();
    update();
    return isWhole;
}

QString BoardPreview::Fit() const {
    if (m_teams == 0)
        return QStringLiteral("No teams yet: these are made up");
    const auto [outside, fittingSize] = m_board.LinesOutside();
    const QString advice = fittingSize > 0
                               ? QStringLiteral("all fit with up to %1 points").arg(fittingSize)
                               : QStringLiteral("no size of the list fits all");
    return QStringLiteral("%1 of %2 teams fit; %3").arg(m_teams - outside).arg(m_teams).arg(advice);
}

QSize BoardPreview::sizeHint() const {
    constexpr int width = 44 * Theme::Unit;
    return {width, heightForWidth(width)};
}

int BoardPreview::heightForWidth(int width) const {
    return width * m_board.height() / std::max(1, m_board.width());
}

void BoardPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QSize size = m_board.size().scaled(this->size(), Qt::KeepAspectRatio);
    const QPixmap small = m_picture.scaled(size * devicePixelRatioF(), Qt::IgnoreAspectRatio,
                                           Qt::SmoothTransformation);
    painter.drawPixmap(QRect(QPoint(), size), small);
}
