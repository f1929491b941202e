#include "Quiz.h"

#include <QMap>
#include <QProcess>
#include <QRandomGenerator>

namespace {

const char* const Everything =
    "SELECT TeamName FROM Teams UNION ALL SELECT RoundNumber || ' ' || RoundName FROM Rounds "
    "UNION ALL SELECT TeamName || ' ' || RoundName || ' ' || Score || ' ' || Joker "
    "FROM Results JOIN Teams USING (TeamID) JOIN Rounds USING (RoundID)";

/// Plays at random, and knows what must be stored then. A step is what Opened::Play takes.
struct RandomOperator {
    QMap<int, QString> teams{{1, "Ants"}, {2, "Bees"}, {3, "Cats"}};
    QMap<int, QString> rounds{{1, "Music"}, {2, "Films"}, {3, "Sport"}}; ///< by their numbers
    QMap<QString, std::pair<int, bool>> results{{"Ants Music", {8, false}},
                                                {"Bees Music", {7, true}}};
    QRandomGenerator random;

    int Below(qsizetype end) { return random.bounded(static_cast<int>(end)); }

    QStringList Stored() const {
        QStringList rows = teams.values();
        for (const auto& [number, name] : rounds.asKeyValueRange())
            rows += QString("%1 %2").arg(number).arg(name);
        for (const auto& [of, result] : results.asKeyValueRange())
            rows += QString("%1 %2 %3").arg(of).arg(result.first).arg(int{result.second});
        rows.sort();
        return rows;
    }

    QString Step() {
        if (Below(2) && !teams.isEmpty() && !rounds.isEmpty())
            return scores();
        const bool isTeam = Below(2);
        QMap<int, QString>& records = isTeam ? teams : rounds;
        const QString kind = isTeam ? "Team" : "Round", screen = isTeam ? "#2 " : "#1 ";
        const QString name = QString("N%1").arg(100000 + Below(900000));
        const int action = Below(isTeam ? 6 : 8);
        if (records.isEmpty() || (records.size() < 6 && action < 3)) {
            records[records.isEmpty() ? 1 : records.lastKey() + 1] = name;
            return screen + (Below(2) ? "=" : "+") + name + " cmdAdd !Escape";
        }
        QStringList rows = records.values();
        if (isTeam)
            rows.sort();
        const int row = Below(rows.size());
        const QString selected = screen + QString("@%1 ").arg(row);
        if (action > 5)
            return selected + move(row, action == 6);
        if (action == 3) {
            rename(records, rows[row], name);
            return selected + "txt" + kind + "Name =" + name + " cmdEdit !Escape";
        }
        if (action < 5)
            rename(records, rows[row], {});
        return selected + "cmdDelete ?Are_you_sure_you_wish_to_remove_this_" + kind.toLower() +
               (action < 5 ? "? !Return !Escape" : "? !Escape !Escape");
    }

private:
    /// Without a new name the record and its results go.
    void rename(QMap<int, QString>& records, const QString& from, const QString& to) {
        const int number = records.key(from);
        records[number] = to;
        records.removeIf([](const auto& record) { return record.value().isEmpty(); });
        for (const QString& of : results.keys())
            if (const auto result = results.value(of); of.split(u' ').contains(from)) {
                results.remove(of);
                if (!to.isEmpty())
                    results[QString(of).replace(from, to)] = result;
            }
    }

    // The moved round gets the next number, and the others are counted around it.
    QString move(int row, bool isUp) {
        const QList<int> numbers = rounds.keys();
        if (isUp || row + 1 < numbers.size()) {
            QMap<int, QString> moved{{numbers[row] + (isUp ? -1 : 1), rounds[numbers[row]]}};
            int number = 1;
            for (const int old : numbers)
                if (old != numbers[row]) {
                    number += moved.contains(number);
                    moved[number++] = rounds[old];
                }
            rounds = moved;
        }
        return isUp ? "cmdMove_0 !Escape" : "cmdMove_1 !Escape";
    }

    // Down or up the list; after a change of the round a row without a result keeps the other one.
    QString scores() {
        int round = Below(rounds.size());
        QString steps = QString("#12 ").repeated(6) + QString("#13 ").repeated(round) + "#4 ";
        QMap<QString, QString> shown;
        const auto resultOf = [&](const QString& team) {
            return team + u' ' + rounds.values()[round];
        };
        const auto show = [&] {
            for (const QString& team : teams)
                if (results.contains(resultOf(team)))
                    shown[team] = resultOf(team);
        };
        show();
        if (Below(3) == 0 && round + 1 < rounds.size()) {
            steps += "!Tab !Down ";
            ++round;
            show();
        }
        QStringList rows = teams.values();
        rows.sort();
        int row = Below(rows.size());
        steps += QString("@%1 !Return ").arg(row);
        for (int way = 2; way > 1 && row >= 0 && row < rows.size(); row += way == 2 ? -1 : 1) {
            const QString team = rows[row];
            const bool toggles = Below(4) == 0;
            const int score = Below(99) - 9;
            way = Below(6);
            steps += QString("?%1 =%2 ").arg(team).arg(score) + (toggles ? "!Tab !Space " : "") +
                     QStringList{"!Escape ", "!Return ", "!Up "}.value(way, "!Down ");
            if (way == 0)
                break;
            const bool joker = results.value(resultOf(team)).second != toggles;
            results.remove(shown.value(team));
            shown[team] = resultOf(team);
            results[shown[team]] = {score, joker};
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
    // as soon as a step is stored.
    void storesWhatWasMeant() {
        auto environment = QProcessEnvironment::systemEnvironment();
        if (environment.contains("RANKELO_FOLDER"))
            return play();
        const QTemporaryDir folder;
        environment.insert("TMPDIR", folder.path()); // killed, a process leaves its own
        environment.insert("RANKELO_FOLDER", folder.filePath("quiz"));
        const QString any = QString::number(QRandomGenerator::global()->generate());
        const QString seed = environment.value("RANKELO_SEED", any);
        environment.insert("RANKELO_SEED", seed);
        QRandomGenerator random(seed.toUInt());
        const int all = environment.contains("RANKELO_SOAK") ? 2000 : 200;
        for (int first = 0, last = 0; first <= all; first = last) {
            last = first + random.bounded(1, 40);
            environment.insert("RANKELO_STEPS", QString("%1 %2").arg(first).arg(last));
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
    // The steps before those of this process are only thought through.
    static void play() {
        const QStringList range = qEnvironmentVariable("RANKELO_STEPS").split(u' ');
        RandomOperator player{.random =
                                  QRandomGenerator(qEnvironmentVariable("RANKELO_SEED").toUInt())};
        for (int i = 0; i < range[0].toInt(); ++i)
            player.Step();
        Opened console(Make<frmMain>, qEnvironmentVariable("RANKELO_FOLDER"));
        QString steps;
        for (int i = range[0].toInt(); i < range[1].toInt() && !QTest::currentTestFailed(); ++i) {
            QStringList stored = console.Stored(Everything).split(u'|', Qt::SkipEmptyParts);
            stored += console.TakeReports();
            stored.sort();
            QVERIFY2(stored == player.Stored(),
                     qPrintable(QString("before step %1, after \"%2\": %3 instead of %4")
                                    .arg(i)
                                    .arg(steps, stored.join(u'|'), player.Stored().join(u'|'))));
            steps = player.Step();
            if (i + 1 == range[1].toInt()) // without the Escape at the end
                steps.replace(steps.lastIndexOf(u'!'), 99, "$");
            console.Play(steps);
        }
    }
};

QTEST_MAIN(RandomOperatorTest)
#include "RandomOperatorTest.moc"
