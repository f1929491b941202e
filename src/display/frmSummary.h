#pragma once

#include <QHash>
#include <QList>
#include <QWidget>

class BoardLabel;
class QLabel;

/// The board for the audience: a full screen without controls of its own, on a screen other than
/// the console's when there is one. The keys "3", "2" and "1" reveal the podium, Esc closes it. It
/// deletes itself when it is closed, or when its screen is unplugged.
class frmSummary : public QWidget {
    Q_OBJECT

public:
    /// `console` is the window whose screen is left to the operator; may be null.
    explicit frmSummary(const QWidget* console);

    /// Shows the board without waiting for it, and lets it reach its final size.
    void ShowBoard();

    // Geometry in twips.
    qint32 BoardWidth() const;
    qint32 BoardHeight() const;
    /// Of the whole display that the board is on.
    qint32 DisplayWidth() const;
    int Dpi() const { return logicalDpiY(); }

    /// Adds a hidden control under a name that must be new on this board (error 5).
    BoardLabel& AddLabel(const QString& name);
    QLabel& AddPicture(const QString& name);

    /// Ends a label's text before a picture that lies over its right end.
    void KeepTextLeftOf(const QString& label, const QString& picture);

    /// Makes every element of a position's line visible, tied teams' lines together.
    bool SetLineVisible(qint32 position);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void checkNew(const QString& name) const;
    void add(QWidget& control, const QString& name);

    QList<QWidget*> m_controls; ///< in the order of their creation
    QHash<QString, QWidget*> m_byName;
};

/// The dynamic property of a board element that holds its position.
inline constexpr const char* TagProperty = "Tag";
