#include "app/frmAbout.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QPushButton>
#include <QTest>

class frmAboutTest : public QObject {
    Q_OBJECT

private slots:
    void splashStaysTwoSecondsWhateverThePersonDoes() {
        AppFolder folder;
        int seen = 0;
        const auto disturb = [&] {
            QWidget* splash = QApplication::topLevelWidgets().value(0);
            QVERIFY(qobject_cast<frmAbout*>(splash) && splash->isVisible() && ++seen);
            QVERIFY(!Control<QPushButton>(*splash, QStringLiteral("cmdClose")).isVisible());
            QTest::keyClick(splash, Qt::Key_Escape);
            splash->close();
        };
        for (const int milliseconds : {300, 1800})
            QTimer::singleShot(milliseconds, this, disturb);
        QElapsedTimer time;
        time.start();
        frmAbout::ShowSplash();
        QVERIFY(time.elapsed() >= 2000 && seen == 2);
        QCOMPARE(folder.TakeReports(), QStringList());
    }
};

QTEST_MAIN(frmAboutTest)
#include "frmAboutTest.moc"
