#pragma once

#include "core/DisplaySettings.h"
#include "data/SummaryDAO.h"
#include "display/frmSummary.h"

#include <QPixmap>
#include <QWidget>

/// A picture of the board as it would open, small, in settings that need not be saved. It shows the
/// teams of the quiz, or some made up ones while there are none.
class BoardPreview : public QWidget {
    Q_OBJECT

public:
    /// `console` as for the board: its screen is left to the operator.
    explicit BoardPreview(const QWidget* console);

    /// Draws the board anew. False when that failed, which is reported nowhere else.
    bool Draw(const DisplaySettings& settings);

    /// How many teams of the quiz fit on the board that was drawn last, in words.
    QString Fit() const;

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    frmSummary m_board;
    SummaryList m_rows;
    int m_teams = 0;
    QPixmap m_picture;
};
