#pragma once

#include "display/ScreenAwake.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QWidget>

#include <functional>
#include <optional>

class BoardLabel;
class QLabel;

/// The board for the audience: a full screen without controls of its own, on a screen other than
/// the console's when there is one. The keys "3", "2" and "1" reveal the podium, Esc closes it. It
/// deletes itself when it is closed, or when its screen is unplugged.
class frmSummary : public QWidget {
    Q_OBJECT

public:
    /// What it is made for: to be seen by the audience, or to be drawn and never shown.
    enum class Use { Audience, Picture };

    /// `console` is the window whose screen is left to the operator; may be null.
    explicit frmSummary(const QWidget* console, Use use = Use::Audience);

    /// Builds the board, and builds it anew whenever it gets another size: with the same lines
    /// hidden, and those revealed that were. `build` puts one page on the board.
    void Build(std::function<void()> build);

    /// What the board shows, as its heading and its window say it.
    const QString& Heading() const { return m_heading; }
    void SetHeading(const QString& heading);

    /// Shows the board without waiting for it, and lets it reach its final size.
    void ShowBoard();

    // Geometry in twips.
    qint32 BoardWidth() const;
    qint32 BoardHeight() const;
    /// Of the whole display that the board is on.
    qint32 DisplayWidth() const;
    int Dpi() const { return logicalDpiY(); }

    /// Begins a page, on which controls are put. The page before it stays to be seen until this
    /// one is shown, so that nobody ever sees half a board.
    void BeginPage();
    void ShowPage();

    /// Adds a hidden control to the page, under a name that must be new there (error 5).
    BoardLabel& AddLabel(const QString& name);
    QLabel& AddPicture(const QString& name);

    /// Ends a label's text before a picture that lies over its right end, once that shows.
    void KeepTextLeftOf(const QString& label, const QString& picture);

    /// Makes every element of a position's line visible, tied teams' lines together.
    bool SetLineVisible(qint32 position);
    /// Reveals what a typed character stands for: "3", "2" or "1"; nothing for any other.
    void Reveal(const QKeyEvent& key);

    /// What the audience cannot see: lines that are outside the board in part or whole, and the
    /// largest listed font size, in points, with which none is; 0 for no such size.
    struct Overflow {
        int Lines = 0;
        int FittingSize = 0;
    };
    const Overflow& LinesOutside() const { return m_overflow; }
    void SetLinesOutside(const Overflow& overflow);

signals:
    /// The board was built, for the first time or anew.
    void built();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    template <typename Control>
    Control& add(const QString& name);
    void buildForThisSize();

    const Use m_use;
    QString m_heading;
    std::optional<ScreenAwake> m_awake; ///< from its first showing on
    std::function<void()> m_build;
    bool m_isBuilding = false;
    QSize m_builtFor; ///< the size for which the newest page was begun
    QSet<qint32> m_revealed;
    Overflow m_overflow;
    QWidget* m_page = nullptr;    ///< what is seen
    QWidget* m_newPage = nullptr; ///< what is being built
    QList<QWidget*> m_controls;   ///< of the page begun last, in the order of their creation
    QHash<QString, QWidget*> m_byName;
};

/// The dynamic property of a board element that holds its position.
inline constexpr const char* TagProperty = "Tag";
