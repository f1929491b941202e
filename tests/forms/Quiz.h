#pragma once

#include "display/frmSummary.h"
#include "forms/frmMain.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"
#include "forms/modForms.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>
#include <csignal>
#include <cstdlib>

/// A small quiz under way: three teams, three rounds, two scores in the first of them.
struct Quiz : AppFolder {
    /// A quiz that is in the folder already goes on.
    explicit Quiz(const QString& folder = "Rankelo")
        : AppFolder(folder) {
        if (!QFile::exists(Path("JOKER.BMP"))) {
            WriteFile(Path("JOKER.BMP"), ReadFile(":/JOKER.BMP"));
            RunForeign(DatabasePath(),
                       {"INSERT INTO Teams VALUES ('T1','Ants'),('T2','Bees'),('T3','Cats')",
                        "INSERT INTO Rounds VALUES "
                        "('R1','Music',1,10),('R2','Films',2,10),('R3','Sport',3,10)",
                        "INSERT INTO Results VALUES ('X1','R1','T1',8,0),('X2','R1','T2',7,1)"});
        }
        Open();
    }
    ~Quiz() { delete Board(); }

    /// The first column of a query's rows, as another program sees them, joined by "|".
    QString Stored(const QString& query) const {
        return RunForeign(DatabasePath(), {query}).join(u'|');
    }
    /// The board that is open; the test fails when it is not the only one.
    static frmSummary* Board() {
        QList<frmSummary*> boards;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* board = qobject_cast<frmSummary*>(window))
                boards.append(board);
        [&] { QVERIFY(boards.size() < 2); }();
        return boards.value(0);
    }
};

// The screens as the program opens them.
using Screen = std::unique_ptr<QWidget>;
template <typename T>
Screen Make() {
    auto screen = std::make_unique<T>();
    if constexpr (requires { screen->FillList(); })
        screen->FillList();
    return screen;
}
inline Screen ResultScreen() {
    auto screen = std::make_unique<frmResultEntry>(nullptr, modForms::GetEntry);
    screen->Fill("no such round");
    return screen;
}

/// A screen of the quiz that an operator has opened.
struct Opened : Quiz {
    explicit Opened(Screen (*make)(), const QString& folder = "Rankelo")
        : Quiz(folder)
        , screen(make()) {
        ShowScreen(*screen);
    }

    template <typename T = QWidget>
    T& Get(const QString& name) const {
        return Control<T>(*screen, name);
    }

    /// Takes steps parted by blanks, also in the dialogs that they open; "_" in them is a blank.
    /// "@2" clicks on row 2, "@@2" twice, "@>2" twice with the right button; "!Return" presses the
    /// key, "~Return" holds it, "=text" types, "+text" pastes, with "/" for each line end, "?text"
    /// waits for a window with that title, message or other text (or an empty one), "#2" runs a
    /// command of the console,
    /// "&name" clicks twice on a control, "%name" turns the wheel over it, and a name alone clicks
    /// on it. Between "(" and ")" another program holds the file, and "$" kills the process. No
    /// dialog stays open.
    void Play(const QString& steps) {
        QStringList left = steps.split(u' ', Qt::SkipEmptyParts);
        QList<QPointer<QWidget>> known{nullptr};
        bool isBusy = false;
        QEventLoop loop;
        std::function<void()> tick = [&] {
            QTimer::singleShot(1, &loop, tick);
            QWidget* modal = QApplication::activeModalWidget();
            if (isBusy && known.contains(modal)) // A step goes on until a new dialog stops it.
                return;
            known.append(modal);
            isBusy = true;
            if (!left.isEmpty())
                take(left.takeFirst());
            else if (modal)
                leave(*modal, steps);
            else
                loop.quit();
            isBusy = false;
        };
        tick();
        loop.exec();
        QVERIFY2(left.isEmpty(), qPrintable(steps));
    }

    Screen screen;

private:
    static bool isThere(const QString& text) {
        const QWidget* window = QApplication::activeWindow();
        if (!window || window->windowTitle() == text)
            return window;
        const auto labels = window->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](auto* label) { return label->text() == text; });
    }
    static void kill() {
        if (QTest::currentTestFailed())
            return;
#ifdef SIGKILL
        std::raise(SIGKILL);
#endif
        std::_Exit(9); // what the parent of a killed process sees
    }
    static void leave(QWidget& dialog, const QString& steps) {
        dialog.close();
        QFAIL(qPrintable(dialog.windowTitle() + " stays open after " + steps));
    }
    void take(const QString& step) {
        QWidget* modal = QApplication::activeModalWidget();
        const QWidget& window = modal ? *modal : *screen;
        const QString rest = step.mid(1);
        const QString text = QString(rest).replace(u'_', u' ');
        const QKeyCombination key = QKeySequence(rest)[0];
        if (step[0] == u'@')
            ClickRow(*window.findChild<QTreeWidget*>(), rest.last(1).toInt(), rest.size() > 1,
                     rest[0] == u'>' ? Qt::RightButton : Qt::LeftButton);
        else if (step[0] == u'$')
            kill();
        else if (step[0] == u'(')
            m_lock.emplace(DatabasePath());
        else if (step[0] == u')')
            m_lock.reset();
        else if (step[0] == u'!')
            Press(key.key(), key.keyboardModifiers());
        else if (step[0] == u'~')
            Hold(key.key());
        else if (step[0] == u'=')
            Type(text);
        else if (step[0] == u'+')
            Paste(QString(text).replace(u'/', u'\n'));
        else if (step[0] == u'%')
            Wheel(Control<QWidget>(window, rest));
        else if (step[0] == u'?')
            QTRY_VERIFY2(isThere(text), qPrintable(text));
        else if (step[0] == u'#')
            static_cast<frmMain&>(*screen).RunCommand(rest.toInt());
        else
            Click(Control<QWidget>(window, step[0] == u'&' ? rest : step), step[0] == u'&');
    }

    std::optional<ForeignLock> m_lock;
};
