#pragma once

#include "display/Render.h"
#include "display/frmSummary.h"

#include <QPointer>

#include <initializer_list>

/// A board of a size of its own choice, for tests of the drawing.
class TestBoard {
public:
    TestBoard() = default;
    TestBoard(int width, int height) {
        m_screen->resize(width, height);
        m_screen->show();
    }
    ~TestBoard() { delete m_screen; }
    TestBoard(const TestBoard&) = delete;
    TestBoard& operator=(const TestBoard&) = delete;

    bool Render(const SummaryList& list, qint32 revealFrom = 0) {
        return ::Render().RenderResults(*m_screen, list, QStringLiteral("Music Results"),
                                        revealFrom);
    }
    frmSummary& Screen() { return *m_screen; }
    bool IsGone() const { return m_screen.isNull(); }
    /// An element by the number in its name.
    QLabel& Element(int number) {
        return *m_screen->findChild<QLabel*>(QStringLiteral("lblLabel%1").arg(number));
    }

private:
    // It deletes itself when it is closed.
    QPointer<frmSummary> m_screen = new frmSummary(nullptr);
};

/// Rows at the given positions; those at a negative position played the joker.
inline SummaryList RowsAt(std::initializer_list<int> positions) {
    SummaryList list;
    for (const int position : positions) {
        auto row = std::make_shared<Summary>();
        row->Position = std::abs(position);
        row->Joker = position < 0;
        row->Score = 100 - row->Position;
        row->TeamName = QStringLiteral("Team %1").arg(list.LastIndex() + 1);
        list.Add(row);
    }
    return list;
}

inline SummaryList Rows(int count) {
    SummaryList list;
    for (int i = 1; i <= count; ++i)
        list.Add(RowsAt({i}).Item(0));
    return list;
}
