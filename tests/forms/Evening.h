#pragma once

#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QTreeWidget>

/// A small quiz under way: three teams, three rounds, two scores in the first of them.
class Evening : public AppFolder {
public:
    Evening() {
        RunForeign(DatabasePath(),
                   {"INSERT INTO Teams VALUES ('T1','Ants'),('T2','Bees'),('T3','Cats')",
                    "INSERT INTO Rounds VALUES "
                    "('R1','Music',1,10),('R2','Films',2,10),('R3','Sport',3,10)",
                    "INSERT INTO Results VALUES ('X1','R1','T1',8,0),('X2','R1','T2',7,1)"});
        Open();
    }

    /// The first column of a query's rows, as another program sees them, joined by "|".
    QString Stored(const QString& query) const {
        return RunForeign(DatabasePath(), {query}).join(u'|');
    }
    /// Gives a table another name, so that every statement on it fails meanwhile.
    void Rename(const QString& table, const QString& name) const {
        RunForeign(DatabasePath(), {"ALTER TABLE " + table + " RENAME TO " + name});
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

    QString Rows() const { return ::Rows(list); }
    template <typename T>
    T& Get(const char* name) const {
        return Control<T>(*screen, name);
    }

    std::unique_ptr<Screen> screen = Filled<Screen>();
    QTreeWidget& list = *screen->template findChild<QTreeWidget*>();
};
