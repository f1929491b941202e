#include "Bench.h"

#include "data/DBObject.h"
#include "data/ResultDAO.h"
#include "data/SummaryDAO.h"
#include "support/AppFolder.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace {

const QString BareConnection = QStringLiteral("bare");

void require(bool condition, const QString& what) {
    if (!condition)
        qFatal("%s", qPrintable(what));
}

// A quiz of so many teams and rounds, every team with a score in every round.
void fill(const AppFolder& folder, int teams, int rounds) {
    const QString numbers = QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 "
                                           "FROM n WHERE i<%1) ");
    RunForeign(
        folder.DatabasePath(),
        {QStringLiteral("BEGIN"),
         numbers.arg(rounds) +
             QStringLiteral("INSERT INTO Rounds SELECT printf('r%025d',i),'Round '||i,i,20 FROM n"),
         numbers.arg(teams) + QStringLiteral("INSERT INTO Teams SELECT printf('t%025d',i),"
                                             "'Team '||(i*7919%100003) FROM n"),
         QStringLiteral("INSERT INTO Results SELECT printf('s%025d',row_number() OVER ()),RoundID,"
                        "TeamID,abs(random())%21,abs(random())%10=0 FROM Rounds,Teams"),
         QStringLiteral("COMMIT")});
}

// A connection of its own to the same file, as durable as the program's.
class Bare {
public:
    explicit Bare(const QString& path) {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), BareConnection);
        database.setDatabaseName(path);
        require(database.open(), database.lastError().text());
        Run(QStringLiteral("PRAGMA journal_mode=DELETE"));
        Run(QStringLiteral("PRAGMA synchronous=EXTRA"));
        Run(QStringLiteral("PRAGMA cache_size=-65536"));
    }
    ~Bare() {
        QSqlDatabase::database(BareConnection).close();
        QSqlDatabase::removeDatabase(BareConnection);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    static QSqlQuery Run(const QString& statement) {
        QSqlQuery query(QSqlDatabase::database(BareConnection, false));
        query.setForwardOnly(true);
        require(query.exec(statement), query.lastError().text());
        return query;
    }
    // Reads every value of a query and throws it away.
    static void Read(const QString& statement, int columns) {
        QSqlQuery query = Run(statement);
        while (query.next())
            for (int column = 0; column < columns; ++column)
                query.value(column);
    }
};

void standings() {
    require(!!SummaryDAO().GetOverallSummary(2), QStringLiteral("no standings"));
}

// The statements of the standings, without anything around them.
void bareStatements() {
    Bare::Run(QStringLiteral("BEGIN"));
    QStringList keys;
    {
        QSqlQuery teams = Bare::Run(QStringLiteral("SELECT * FROM Teams ORDER BY TeamName "));
        while (teams.next()) {
            keys.append(teams.value(0).toString());
            teams.value(1);
        }
    }
    for (const QString& key : std::as_const(keys))
        Bare::Read(QStringLiteral("SELECT * FROM Results WHERE  TeamID='") + key + u'\'', 5);
    Bare::Run(QStringLiteral("COMMIT"));
}

void oneStatement() {
    Bare::Read(QStringLiteral("SELECT T.TeamName,TOTAL(R.Score*(1+(R.Joker=1))) AS Points,"
                              "MAX(R.Joker=1) FROM Teams T LEFT JOIN Results R ON "
                              "T.TeamID=R.TeamID GROUP BY T.TeamID ORDER BY Points DESC,TeamName"),
               3);
}

void benchStandings() {
    const struct {
        int teams, rounds, repeats;
    } sizes[] = {{50, 10, 200}, {1000, 20, 40}, {5000, 20, 20}};
    for (const auto& size : sizes) {
        const AppFolder folder;
        fill(folder, size.teams, size.rounds);
        folder.Open();
        const Bare bare(folder.DatabasePath());
        const QString what =
            QStringLiteral("standings, %1 teams x %2 rounds, ").arg(size.teams).arg(size.rounds);
        PrintRow(what + QStringLiteral("by the same queries"),
                 Compare(Clock::Processor, size.repeats, standings, bareStatements), 1, 1.5);
        PrintRow(what + QStringLiteral("by one statement"),
                 Compare(Clock::Processor, size.repeats, standings, oneStatement), 1, 0);
    }
}

void benchTeam() {
    constexpr int few = 50;
    for (const int many : {1000, 5000}) {
        const AppFolder smallHall;
        const AppFolder largeHall;
        fill(smallHall, few, 20);
        fill(largeHall, many, 20);
        PrintRow(QStringLiteral("standings, one team among %1, among %2").arg(many).arg(few),
                 CompareFixtures({largeHall, many}, {smallHall, few}, 20, standings), many, 1.25);
    }
}

void benchSave(const QString& where) {
    const AppFolder folder;
    fill(folder, 50, 10);
    folder.Open();
    const Bare bare(folder.DatabasePath());
    constexpr int repeats = 200;
    int key = 0;
    const Pair pair = Compare(
        Clock::Wall, repeats,
        [&] {
            Result result;
            result.RoundID = QStringLiteral("r0000000000000000000000001");
            result.TeamID = QStringLiteral("t0000000000000000000000001");
            result.Score = 7;
            require(ResultDAO().Save(result), QStringLiteral("not saved"));
        },
        [&] {
            Bare::Run(QStringLiteral("INSERT INTO Results (ResultID,RoundID,TeamID,Score,Joker) "
                                     "VALUES ('%1','r0000000000000000000000001',"
                                     "'t0000000000000000000000001',7,0)")
                          .arg(++key, 26));
        });
    PrintRow(QStringLiteral("saving one score ") + where, pair, 1, 1.2);
}

} // namespace

void BenchData() {
    benchSave(QStringLiteral("on the disk"));
    if (QDir(QStringLiteral("/dev/shm")).exists()) {
        const QByteArray disk = qgetenv("TMPDIR");
        qputenv("TMPDIR", "/dev/shm");
        benchSave(QStringLiteral("on a disk in memory"));
        qputenv("TMPDIR", disk);
    }
    benchStandings();
    benchTeam();
}

bool RunDataOnce(const QString& operation) {
    const QStringList words = operation.split(u'-'); // such as standings-50-10
    const AppFolder folder;
    fill(folder, words.value(1).toInt(), words.value(2).toInt());
    folder.Open();
    const Bare bare(folder.DatabasePath());
    if (words[0] == u"standings")
        standings();
    else if (words[0] == u"statements")
        bareStatements();
    else if (words[0] == u"save")
        require(ResultDAO().Save(Result()), QStringLiteral("not saved"));
    else
        return false;
    return true;
}
