#include "app/frmAbout.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

class frmAboutTest : public QObject {
    Q_OBJECT

private slots:
    void splashStaysTwoSecondsWhateverThePersonDoes() {
        AppFolder folder;
        // What a person types and clicks meanwhile must not reach this one either.
        QPushButton console;
        const QSignalSpy pressed(&console, &QPushButton::pressed);
        console.show();
        int seen = 0;
        const auto disturb = [&] {
            const QWidgetList windows = QApplication::topLevelWidgets();
            const auto found = std::find_if(windows.begin(), windows.end(), [](QWidget* window) {
                return qobject_cast<frmAbout*>(window) && window->isVisible();
            });
            QVERIFY(found != windows.end() && ++seen);
            QWidget* splash = *found;
            // It is painted, not an empty frame.
            QCOMPARE(splash->screen()->grabWindow(splash->winId()).toImage(),
                     splash->grab().toImage());
            QVERIFY(!Control<QPushButton>(*splash, QStringLiteral("cmdClose")).isVisible());
            QTest::keyClick(splash, Qt::Key_Escape);
            QTest::keyClick(&console, Qt::Key_Space);
            QTest::mouseClick(&console, Qt::LeftButton);
            splash->close();
        };
        for (const int milliseconds : {300, 1800})
            QTimer::singleShot(milliseconds, this, disturb);
        QElapsedTimer time;
        time.start();
        frmAbout().RunAsSplash();
        QVERIFY(time.elapsed() >= 2000 && seen == 2 && pressed.isEmpty());
        QCOMPARE(folder.TakeReports(), QStringList());
    }
};

QTEST_MAIN(frmAboutTest)
#include "frmAboutTest.moc"
