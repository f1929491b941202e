#include "Quiz.h"
#include "data/DBObject.h"

#include <QMap>
#include <QRandomGenerator>

namespace {

/// What must be stored.
struct Model {
    using Key = std::pair<QString, QString>;
    QStringList teams{"Ants", "Bees", "Cats"};
    QMap<int, QString> rounds{{1, "Music"}, {2, "Films"}, {3, "Sport"}}; ///< by their numbers
    QMap<Key, std::pair<int, bool>> results{{{"Ants", "Music"}, {8, false}},
                                            {{"Bees", "Music"}, {7, true}}}; ///< by team and round

    QString Stored() const {
        QStringList rows = teams;
        rows.sort();
        for (const auto& [number, name] : rounds.asKeyValueRange())
            rows += QString("%1 %2").arg(number).arg(name);
        for (const auto& [key, result] : results.asKeyValueRange())
            rows += QString("%1 %2 %3 %4")
                        .arg(key.first, key.second)
                        .arg(result.first)
                        .arg(int{result.second});
        return rows.join(u'|');
    }
    /// Gives the results of a team or a round another name; without one they go.
    void Rename(const QString& from, const QString& to) {
        for (const auto& [team, round] : results.keys())
            if (team == from || round == from) {
                const auto result = results.take({team, round});
                if (!to.isEmpty())
                    results[team == from ? Key(to, round) : Key(team, to)] = result;
            }
    }
};
const char* const Stored =
    "SELECT * FROM (SELECT TeamName FROM Teams ORDER BY TeamName) UNION ALL "
    "SELECT * FROM (SELECT RoundNumber || ' ' || RoundName FROM Rounds ORDER BY RoundNumber) "
    "UNION ALL SELECT * FROM (SELECT TeamName || ' ' || RoundName || ' ' || Score || ' ' || Joker "
    "FROM Results JOIN Teams USING (TeamID) JOIN Rounds USING (RoundID) "
    "ORDER BY TeamName, RoundName)";

/// Plays at random and keeps the model. Each step is one that Opened::Play takes.
struct RandomOperator : Model {
    explicit RandomOperator(quint32 seed)
        : random(seed) {}

    int Below(qsizetype end) { return random.bounded(static_cast<int>(end)); }

    QString Step() {
        if (Below(2) && !teams.isEmpty() && !rounds.isEmpty())
            return scores();
        const bool isTeam = Below(2);
        const QString kind = isTeam ? "Team" : "Round", screen = isTeam ? "#2 " : "#1 ";
        teams.sort();
        const QStringList held = isTeam ? teams : rounds.values();
        const QString name = QString("N%1").arg(++names, 4, 10, QChar(u'0'));
        if (held.isEmpty() || (held.size() < 6 && Below(2))) {
            replace(kind, {}, name);
            return screen + (Below(2) ? "=" : "+") + name + " cmdAdd !Escape";
        }
        const int row = Below(held.size()), action = Below(isTeam ? 3 : 5);
        const QString selected = screen + QString("@%1 ").arg(row);
        if (action == 0) {
            replace(kind, held[row], name);
            return selected + "txt" + kind + "Name =" + name + " cmdEdit !Escape";
        }
        if (action < 3) {
            if (action == 1)
                replace(kind, held[row], {});
            return selected + "cmdDelete ?Are_you_sure_you_wish_to_remove_this_" + kind.toLower() +
                   (action == 1 ? "? !Return !Escape" : "? !Escape !Escape");
        }
        move(row, action == 3 ? -1 : 1);
        return selected + (action == 3 ? "cmdMove_0 !Escape" : "cmdMove_1 !Escape");
    }

    void replace(const QString& kind, const QString& from, const QString& to) {
        if (kind == "Team") {
            teams.removeOne(from);
            teams += to;
            teams.removeAll(QString());
        } else {
            const int number =
                from.isEmpty() ? rounds.isEmpty() ? 1 : rounds.lastKey() + 1 : rounds.key(from);
            rounds[number] = to;
            if (to.isEmpty())
                rounds.remove(number);
        }
        if (!from.isEmpty())
            Rename(from, to);
    }

    // The moved round gets the next number, and the others are counted around it.
    void move(int row, int by) {
        if (by > 0 && row + 1 == rounds.size())
            return;
        const QList<int> numbers = rounds.keys();
        QMap<int, QString> moved{{numbers[row] + by, rounds[numbers[row]]}};
        int number = 1;
        for (const int old : numbers)
            if (old != numbers[row]) {
                number += moved.contains(number);
                moved[number++] = rounds[old];
            }
        rounds = moved;
    }

    QString scores() {
        const QStringList names = rounds.values();
        int round = Below(names.size());
        QString steps = QString("#12 ").repeated(6) + QString("#13 ").repeated(round) + "#4 ";
        // A row keeps the result that it showed last.
        QMap<QString, QString> shown;
        const auto show = [&] {
            for (const QString& team : teams)
                if (results.contains({team, names[round]}))
                    shown[team] = names[round];
        };
        show();
        if (Below(3) == 0 && round + 1 < names.size()) {
            steps += "!Tab !Down ";
            ++round;
            show();
        }
        teams.sort();
        int row = Below(teams.size());
        steps += QString("@%1 !Return ").arg(row);
        while (row >= 0 && row < teams.size()) {
            const QString team = teams[row];
            const Model::Key key(team, names[round]);
            const bool toggles = Below(4) == 0;
            const int score = Below(99) - 9, way = Below(5);
            steps += QString("?%1 =%2 ").arg(team).arg(score) + (toggles ? "!Tab !Space " : "");
            if (way == 0)
                return steps + "!Escape !Escape";
            const bool joker = results.value(key).second != toggles;
            if (shown.contains(team))
                results.remove({team, shown[team]});
            results[key] = {score, joker};
            shown[team] = names[round];
            steps += way == 1 ? "!Return " : way == 2 ? "!Up " : "!Down ";
            row = way == 1 ? -1 : way == 2 ? row - 1 : row + 1;
        }
        return steps + "!Escape";
    }

    QRandomGenerator random;
    int names = 0;
};

} // namespace

class RandomOperatorTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { PrepareApplication(); }

    void storesWhatWasMeant() {
        const quint32 seed = qEnvironmentVariableIsSet("RANKELO_SEED")
                                 ? qEnvironmentVariable("RANKELO_SEED").toUInt()
                                 : QRandomGenerator::global()->generate();
        RandomOperator player(seed);
        Opened console(Make<frmMain>);
        const int all = qEnvironmentVariableIsSet("RANKELO_SOAK") ? 2000 : 200;
        for (int i = 0; i < all; ++i) {
            const QString steps = player.Step();
            const QString what = QString("RANKELO_SEED=%1, step %2: ").arg(seed).arg(i) + steps;
            console.Play(steps);
            const QString stored = console.Stored(Stored);
            QVERIFY2(stored == player.Stored(),
                     qPrintable(what + u'\n' + stored + u'\n' + player.Stored()));
            QVERIFY2(console.TakeReports().isEmpty(), qPrintable(what));
            if (player.Below(20) == 0) { // the program is started again
                AppDatabase().CloseDatabase();
                console.Open();
                console.screen = Make<frmMain>();
                ShowScreen(*console.screen);
            }
        }
    }
};

QTEST_MAIN(RandomOperatorTest)
#include "RandomOperatorTest.moc"
