#pragma once

#include "display/frmSummary.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"
#include "forms/modForms.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QApplication>
#include <QLineEdit>
#include <QTreeWidget>

/// A small quiz under way: three teams, three rounds, two scores in the first of them.
struct Quiz : AppFolder {
    Quiz() {
        RunForeign(DatabasePath(),
                   {"INSERT INTO Teams VALUES ('T1','Ants'),('T2','Bees'),('T3','Cats')",
                    "INSERT INTO Rounds VALUES "
                    "('R1','Music',1,10),('R2','Films',2,10),('R3','Sport',3,10)",
                    "INSERT INTO Results VALUES ('X1','R1','T1',8,0),('X2','R1','T2',7,1)"});
        Open();
    }
    ~Quiz() { qDeleteAll(Boards()); }

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

// The entry screens as the program opens them.
using Screen = std::unique_ptr<QWidget>;
template <typename EntryScreen>
Screen Listed() {
    auto screen = std::make_unique<EntryScreen>();
    screen->FillList();
    return screen;
}
inline Screen ResultScreen() {
    auto screen = std::make_unique<frmResultEntry>(nullptr, modForms::GetEntry);
    screen->Fill("no such round");
    return screen;
}
inline const auto TeamScreen = Listed<frmTeamEntry>;
inline const auto RoundScreen = Listed<frmRoundEntry>;

/// A screen of the quiz that an operator has opened, with its list and its first box.
struct Opened : Quiz {
    explicit Opened(Screen (*make)())
        : screen(make()) {
        ShowScreen(*screen);
    }
    template <typename T = QWidget>
    T& Get(const char* name) const {
        return Control<T>(*screen, name);
    }
    /// Selects a row, unless it is -1, and clicks on a button.
    void PressFor(int row, const char* button) const {
        if (row >= 0)
            ClickRow(*list, row);
        Click(Get(button));
    }

    Screen screen;
    QTreeWidget* list = screen->findChild<QTreeWidget*>();
    QLineEdit* box = screen->findChild<QLineEdit*>();
};
