#pragma once

#include "core/DisplaySettings.h"
#include "data/SummaryDAO.h"
#include "display/BoardLayout.h"
#include "display/RenderObject.h"

#include <QHash>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QtGlobal>

#include <optional>

class frmSummary;
class frmViewResults;

/// Lays standings out on a board: a heading, then one line of four elements for each row, in one
/// or two columns. Distances in twips. An error is reported to the log and the operation answers
/// false; what was drawn until then stays.
class Render {
public:
    /// Draws in these settings.
    explicit Render(DisplaySettings settings);

    /// Fills the results list, shows it and returns when it is closed.
    bool ViewResults(frmViewResults& screen, const SummaryList& list, const QString& caption);
    /// Builds the whole board and shows it, once it is whole. Lines of positions before
    /// `revealFrom` start hidden; 0 shows every line.
    bool RenderResults(frmSummary& screen, const SummaryList& list, const QString& heading,
                       qint32 revealFrom);
    /// Adds one line at the current place of the board being built.
    bool RenderLine(const Summary& row, bool visible);
    bool RenderLabel(const RenderObject& element);
    /// The picture is created hidden and is shown when its line is revealed.
    bool RenderImage(const RenderObject& element);

private:
    void beginBuild(const frmSummary& screen, const SummaryList& list);
    bool renderHeading(const QString& heading);
    bool renderLines(const SummaryList& list, qint32 revealFrom);
    RenderObject placeBox(const Summary& row, bool visible) const;
    RenderObject teamBox(const Summary& row, const RenderObject& place) const;
    RenderObject jokerBox(const Summary& row, const RenderObject& team) const;
    RenderObject scoreBox(const Summary& row, const RenderObject& team) const;
    QString nextName() const;
    /// Error 91 when no board is being built, or when it was closed meanwhile.
    frmSummary& board() const;
    /// Error 53 when the file holds no picture; no file name is an empty picture.
    QPixmap picture(const QString& fileName);

    /// All places of a board have one size, and so have all its usual scores.
    struct NumberColumn {
        QString Widest;
        double WidestWidth = 0; ///< in pixels, unshrunk
        double Size = 0;        ///< in points, at which it fits
    };

    const DisplaySettings m_settings;
    QPointer<frmSummary> m_board;
    std::optional<BoardLayout> m_layout;
    BoardLayout::Place m_line; ///< where the next line goes
    NumberColumn m_places;
    NumberColumn m_scores;
    qint32 m_counter = 0;               ///< controls created so far; makes names unique
    QHash<QString, QPixmap> m_pictures; ///< loaded for this board
};
