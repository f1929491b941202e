#include "app/frmAbout.h"

#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

class frmAboutTest : public QObject {
    Q_OBJECT

private slots:
    void splashStaysTwoSecondsWhateverThePersonDoes();
};

void frmAboutTest::splashStaysTwoSecondsWhateverThePersonDoes() {
    AppFolder folder;
    // What a person types and clicks meanwhile must not reach this one either.
    QPushButton console;
    QSignalSpy pressed(&console, &QPushButton::clicked);
    console.show();

    QPointer<QWidget> splash;
    bool stillThere = false;
    QTimer::singleShot(300, this, [&] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (qobject_cast<frmAbout*>(window))
                splash = window;
        QVERIFY(splash);
        QVERIFY(!Control<QPushButton>(*splash, "cmdClose").isVisible());
        QCOMPARE(splash->screen()->grabWindow(splash->winId()).toImage(), splash->grab().toImage());
        for (QWidget* target : {splash.data(), static_cast<QWidget*>(&console)}) {
            QTest::keyClick(target, Qt::Key_Escape);
            QTest::keyClick(target, Qt::Key_Space);
            QTest::mouseClick(target, Qt::LeftButton);
        }
        splash->close();
    });
    QTimer::singleShot(1800, this, [&] { stillThere = splash && splash->isVisible(); });
    QElapsedTimer time;
    time.start();
    frmAbout::ShowSplash();
    QVERIFY(time.elapsed() >= 2000);
    QVERIFY(stillThere);
    QVERIFY(!splash);
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(folder.TakeReports(), QStringList());
}

QTEST_MAIN(frmAboutTest)
#include "frmAboutTest.moc"
