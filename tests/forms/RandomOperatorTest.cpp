#include "Quiz.h"

#include <QProcess>
#include <QRandomGenerator>

namespace {

const char* const Everything =
    "SELECT TeamName FROM Teams UNION ALL SELECT RoundNumber || ' ' || RoundName FROM Rounds "
    "UNION ALL SELECT TeamName || ' ' || RoundName || ' ' || Score || ' ' || Joker "
    "FROM Results JOIN Teams USING (TeamID) JOIN Rounds USING (RoundID) ORDER BY 1";

/// Plays at random, and keeps what must be stored then in a quiz of its own. A step is what
/// Opened::Play takes.
struct RandomOperator {
    QString model; ///< that quiz
    QRandomGenerator random;

    QString Step() {
        const QStringList teams = in("SELECT TeamName FROM Teams ORDER BY 1");
        const QStringList rounds = in("SELECT RoundName FROM Rounds ORDER BY RoundNumber");
        if (below(2) && !teams.isEmpty() && !rounds.isEmpty())
            return scores(teams, rounds);
        const bool isTeam = below(2);
        const QStringList& rows = isTeam ? teams : rounds;
        const QString kind = isTeam ? "Team" : "Round", screen = isTeam ? "#2 " : "#1 ";
        const QString name = QString("N%1").arg(100000 + below(900000));
        const int action = below(isTeam ? 6 : 8);
        if (rows.isEmpty() || (rows.size() < 6 && action < 3)) {
            in(QString(isTeam ? "INSERT INTO Teams VALUES ('%1','%1')"
                              : "INSERT INTO Rounds SELECT '%1','%1',"
                                "ifnull(max(RoundNumber),0)+1,0 FROM Rounds")
                   .arg(name));
            return screen + (below(2) ? "=" : "+") + name + " cmdAdd !Escape";
        }
        const int row = below(rows.size());
        const QString selected = screen + QString("@%1 ").arg(row);
        if (action > 5)
            return selected + move(rows, row, action == 6);
        const QString where = QString("WHERE %1Name='%2'").arg(kind, rows[row]);
        if (action == 3) {
            in(QString("UPDATE %1s SET %1Name='%2' %3").arg(kind, name, where));
            return selected + "txt" + kind + "Name =" + name + " cmdEdit !Escape";
        }
        if (action < 5)
            in("DELETE FROM " + kind + "s " + where);
        return selected + "cmdDelete ?Are_you_sure_you_wish_to_remove_this_" + kind.toLower() +
               (action < 5 ? "? !Return !Escape" : "? !Escape !Escape");
    }

private:
    QStringList in(const QString& statement) const { return RunForeign(model, {statement}); }
    int below(qsizetype end) { return random.bounded(static_cast<int>(end)); }

    // The moved round gets the next number, and the others are counted around it.
    QString move(const QStringList& rows, int row, bool isUp) const {
        if (isUp || row + 1 < rows.size())
            RunForeign(model, {QString("UPDATE Rounds SET RoundNumber=RoundNumber%1, MaxScore=-1 "
                                       "WHERE RoundName='%2'")
                                   .arg(isUp ? "-1" : "+1", rows[row]),
                               "UPDATE Rounds SET RoundNumber=n+((SELECT RoundNumber FROM Rounds "
                               "WHERE MaxScore=-1) BETWEEN 1 AND n) FROM (SELECT RoundID AS id, "
                               "row_number() OVER (ORDER BY RoundNumber) AS n FROM Rounds "
                               "WHERE MaxScore<>-1) WHERE RoundID=id",
                               "UPDATE Rounds SET MaxScore=0"});
        return isUp ? "cmdMove_0 !Escape" : "cmdMove_1 !Escape";
    }

    // Down or up the list; after a change of the round a row without a result keeps the other one,
    // which a new score moves.
    QString scores(const QStringList& teams, const QStringList& rounds) {
        int round = below(rounds.size());
        const QString opened = rounds[round];
        QString steps = QString("#12 ").repeated(6) + QString("#13 ").repeated(round) + "#4 ";
        if (below(3) == 0 && round + 1 < rounds.size()) {
            steps += "!Tab !Down ";
            ++round;
        }
        int row = below(teams.size());
        steps += QString("@%1 !Return ").arg(row);
        for (int way = 2; way > 1 && row >= 0 && row < teams.size(); row += way == 2 ? -1 : 1) {
            const bool toggles = below(4) == 0;
            const int score = below(99) - 9;
            way = below(6);
            steps += QString("?%1 =%2 ").arg(teams[row]).arg(score) +
                     (toggles ? "!Tab !Space " : "") +
                     QStringList{"!Escape ", "!Return ", "!Up "}.value(way, "!Down ");
            if (way > 0)
                in(QString("INSERT OR REPLACE INTO Results SELECT ifnull(ResultID,"
                           "hex(randomblob(8))),r.RoundID,t.TeamID,%1,"
                           "ifnull(x.RoundID=r.RoundID AND Joker,0)<>%2 FROM Teams t, Rounds r "
                           "LEFT JOIN Results x ON x.TeamID=t.TeamID AND x.RoundID IN (SELECT "
                           "RoundID FROM Rounds WHERE RoundName IN ('%3','%4')) "
                           "WHERE TeamName='%5' AND RoundName='%3' "
                           "ORDER BY x.RoundID=r.RoundID DESC LIMIT 1")
                       .arg(score)
                       .arg(toggles)
                       .arg(rounds[round], opened, teams[row]));
        }
        return steps + "!Escape";
    }
};

} // namespace

class RandomOperatorTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    // Plays a quiz in processes that follow each other: each is killed in the middle of a screen,
    // as soon as a step is stored. The last one only looks.
    void storesWhatWasMeant() {
        auto environment = QProcessEnvironment::systemEnvironment();
        if (environment.contains("RANKELO_FOLDER"))
            return play();
        const QTemporaryDir folder;
        environment.insert("TMPDIR", folder.path()); // killed, a process leaves its own
        environment.insert("RANKELO_FOLDER", folder.filePath("quiz"));
        const QString seed = environment.value(
            "RANKELO_SEED", QString::number(QRandomGenerator::global()->generate()));
        QRandomGenerator random(seed.toUInt());
        int left = environment.contains("RANKELO_SOAK") ? 2000 : 200;
        for (int steps = 1; steps > 0; left -= steps) {
            steps = std::min(left, random.bounded(1, 40));
            environment.insert("RANKELO_SEED", QString::number(random.generate()));
            environment.insert("RANKELO_STEPS", QString::number(steps));
            QProcess child;
            child.setProcessEnvironment(environment);
            child.setProcessChannelMode(QProcess::ForwardedChannels);
            child.start(QCoreApplication::applicationFilePath(),
                        QCoreApplication::arguments().mid(1));
            QVERIFY(child.waitForFinished(-1));
            QVERIFY2(child.exitCode() == 9, qPrintable("RANKELO_SEED=" + seed));
        }
    }

private:
    static void play() {
        Opened console(Make<frmMain>, qEnvironmentVariable("RANKELO_FOLDER"));
        RandomOperator player{console.Path("model"),
                              QRandomGenerator(qEnvironmentVariable("RANKELO_SEED").toUInt())};
        QFile::copy(console.DatabasePath(), player.model); // unless it is there
        QString steps;
        for (int left = qEnvironmentVariableIntValue("RANKELO_STEPS");; --left) {
            const QString stored = console.Stored(Everything) + console.TakeReports().join(u'|');
            const QString meant = RunForeign(player.model, {Everything}).join(u'|');
            if (stored != meant)
                QFAIL(qPrintable("after " + steps + '\n' + stored + "\ninstead of\n" + meant));
            if (left == 0)
                console.Play("$");
            steps = player.Step();
            if (left == 1) // without the Escape at the end
                steps.replace(steps.lastIndexOf(u'!'), 99, "$");
            console.Play(steps);
        }
    }
};

QTEST_MAIN(RandomOperatorTest)
#include "RandomOperatorTest.moc"
