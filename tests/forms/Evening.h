#pragma once

#include "support/AppFolder.h"
#include "support/Operator.h"

/// A small quiz under way: three teams, three rounds, two scores in the first of them.
class Evening : public AppFolder {
public:
    Evening() {
        RunForeign(DatabasePath(),
                   {QStringLiteral("INSERT INTO Teams VALUES ('T1','Ants'),('T2','Bees'),"
                                   "('T3','Cats')"),
                    QStringLiteral("INSERT INTO Rounds VALUES ('R1','Music',1,10),"
                                   "('R2','Films',2,10),('R3','Sport',3,10)"),
                    QStringLiteral("INSERT INTO Results VALUES ('X1','R1','T1',8,0),"
                                   "('X2','R1','T2',7,1)")});
        Open();
    }

    /// The first column of a query's rows, as another program sees them, joined by "|".
    QString Stored(const char* query) const {
        return RunForeign(DatabasePath(), {QString::fromLatin1(query)}).join(u'|');
    }
    /// Takes a table away or brings it back, so that every statement on it fails meanwhile.
    void Hide(const char* table) const { rename(table, "Hidden"); }
    void Unhide(const char* table) const { rename("Hidden", table); }

private:
    void rename(const char* from, const char* to) const {
        RunForeign(DatabasePath(), {QStringLiteral("ALTER TABLE %1 RENAME TO %2")
                                        .arg(QLatin1StringView(from), QLatin1StringView(to))});
    }
};
