#include "app/frmAbout.h"

#include "core/ProductInfo.h"
#include "support/AppFolder.h"
#include "support/ModalAnswers.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

QPushButton* closeButton(const QWidget& about) {
    return about.findChild<QPushButton*>(QStringLiteral("cmdClose"));
}

} // namespace

class frmAboutTest : public QObject {
    Q_OBJECT

private slots:
    void tellsWhoMadeIt();
    void closesByButtonAndEscape();
    void splashStaysTwoSecondsWhateverThePersonDoes();
    void reportsNothing();

private:
    AppFolder m_folder;
};

void frmAboutTest::tellsWhoMadeIt() {
    const frmAbout about;
    const struct {
        const char* name;
        const char* text;
    } labels[] = {
        {"lblProductName", "Rankelo"},         {"lblVersion", ProductInfo::Version},
        {"lblCopyRight", ProductInfo::Notice}, {"lblURL", ProductInfo::Url},
        {"lblSupport", ProductInfo::Support},
    };
    for (const auto& [name, text] : labels) {
        const auto* label = about.findChild<QLabel*>(QLatin1StringView(name));
        QVERIFY2(label, name);
        QCOMPARE(label->text(), QString::fromUtf8(text));
        QCOMPARE(label->font().family(), QStringLiteral("Arial"));
    }
    QVERIFY(!about.findChild<QLabel*>(QStringLiteral("imgIcon"))->pixmap().isNull());
    QCOMPARE(closeButton(about)->text(), QStringLiteral("Close"));
}

void frmAboutTest::closesByButtonAndEscape() {
    QWidget parent;
    ModalAnswers answers({[&](QDialog& about) {
                              QCOMPARE(about.objectName(), QStringLiteral("frmAbout"));
                              QCOMPARE(about.parentWidget(), &parent);
                              QTest::mouseClick(closeButton(about), Qt::LeftButton);
                          },
                          [](QDialog& about) { QTest::keyClick(&about, Qt::Key_Escape); }});
    frmAbout::ShowAbout(&parent);
    frmAbout::ShowAbout(&parent);
    QVERIFY(answers.AllGiven());
}

void frmAboutTest::splashStaysTwoSecondsWhateverThePersonDoes() {
    // What a person types and clicks meanwhile must not reach this one either.
    QPushButton console;
    QSignalSpy pressed(&console, &QPushButton::clicked);
    console.show();

    QPointer<QWidget> splash;
    bool buttonShown = true;
    bool stillThere = false;
    QTimer::singleShot(300, this, [&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (qobject_cast<frmAbout*>(window))
                splash = window;
        }
        QVERIFY(splash);
        buttonShown = closeButton(*splash)->isVisible();
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
    QVERIFY(!buttonShown);
    QVERIFY(stillThere);
    QVERIFY(!splash);
    QCOMPARE(pressed.count(), 0);
}

void frmAboutTest::reportsNothing() {
    QCOMPARE(m_folder.TakeReports(), QStringList());
}

QTEST_MAIN(frmAboutTest)
#include "frmAboutTest.moc"
