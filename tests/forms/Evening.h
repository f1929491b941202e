#pragma once

#include "display/frmSummary.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QApplication>
#include <QTreeWidget>

/// A small quiz under way: three teams, three rounds, two scores in the first of them.
struct Evening : AppFolder {
    Evening() {
        RunForeign(DatabasePath(),
                   {"INSERT INTO Teams VALUES ('T1','Ants'),('T2','Bees'),('T3','Cats')",
                    "INSERT INTO Rounds VALUES "
                    "('R1','Music',1,10),('R2','Films',2,10),('R3','Sport',3,10)",
                    "INSERT INTO Results VALUES ('X1','R1','T1',8,0),('X2','R1','T2',7,1)"});
        Open();
    }
    ~Evening() { qDeleteAll(Boards()); }

    /// The first column of a query's rows, as another program sees them, joined by "|".
    QString Stored(const QString& query) const {
        return RunForeign(DatabasePath(), {query}).join(u'|');
    }
    /// The boards that are open.
    static QList<frmSummary*> Boards() {
        QList<frmSummary*> boards;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* board = qobject_cast<frmSummary*>(window))
                boards.append(board);
        return boards;
    }
};

/// A screen, filled from the database as the program does it.
template <typename Screen>
std::unique_ptr<Screen> Filled() {
    auto screen = std::make_unique<Screen>();
    if constexpr (requires { screen->FillList(); })
        screen->FillList();
    if constexpr (requires { screen->Fill(QString()); })
        screen->Fill("R1");
    return screen;
}

/// A screen of the evening that an operator has opened, with its list.
template <typename Screen>
struct Opened : Evening {
    Opened() { ShowScreen(*screen); }

    template <typename T = QWidget>
    T& Get(const char* name) const {
        return Control<T>(*screen, name);
    }
    /// Selects a row, unless it is -1, and clicks on a button.
    void PressFor(int row, const char* button) const {
        if (row >= 0)
            ClickRow(list, row);
        Click(Get(button));
    }

    std::unique_ptr<Screen> screen = Filled<Screen>();
    QTreeWidget& list = *screen->template findChild<QTreeWidget*>();
};
