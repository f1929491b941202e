#include "app/modCommon.h"
#include "core/AppValues.h"
#include "core/Logging.h"
#include "support/AppFolder.h"

#include <QComboBox>
#include <QTest>

namespace {

// Every setting as one line, so that a table can hold them all.
QString allSettings() {
    const AppValues& app = App();
    QStringList values{app.FontName, app.FontSize, app.DebugMode};
    for (const qint32 number :
         {app.BackGround, app.BColorA, app.BColorB, app.FColorA, app.FColorB, app.CellPadX,
          app.CellPadY, app.LeftMargin, app.RightMargin, app.LabelWidth, app.Footer})
        values.append(QString::number(number));
    return values.join(u' ');
}

void setNumbers(qint32 first) {
    for (qint32* value : {&App().BackGround, &App().BColorA, &App().BColorB, &App().FColorA,
                          &App().FColorB, &App().CellPadX, &App().CellPadY, &App().LeftMargin,
                          &App().RightMargin, &App().LabelWidth, &App().Footer})
        *value = first++;
}

constexpr const char* Defaults = "Arial 32 0 0 16576 16512 8454143 8454143 40 80 200 200 7 500";

} // namespace

class SettingsTest : public QObject {
    Q_OBJECT

private slots:
    void loads_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<QString>("reason"); ///< of the failure, empty for a good file

        const auto with = [](const char* from, const char* to) {
            return QString::fromLatin1(Defaults).replace(QLatin1StringView(from),
                                                         QLatin1StringView(to));
        };
        QTest::newRow("no file") << QByteArray() << QString(Defaults) << "";
        QTest::newRow("empty values")
            << QByteArray("[Application]\nFontName=\nFontSize=\nFooter=\nBColorA=   \n")
            << QString(Defaults) << "";
        QTest::newRow("a footer by hand")
            << QByteArray("[application]\r\nFOOTER = 750\r\n") << with("500", "750") << "";
        QTest::newRow("numbers as people write them")
            << QByteArray("[Application]\nFooter=2.5\nCellPadX=1e2\nLabelWidth=-7\n")
            << with("40 80 200 200 7 500", "100 80 200 200 -7 2") << "";
        QTest::newRow("texts are kept as they are")
            << QByteArray("[Application]\nFontSize=huge\nDebugMode=01\n") << with("32 0", "huge 01")
            << "";
        // The values up to the wrong one are taken, the others stay.
        QTest::newRow("a word") << QByteArray("[Application]\nBColorA=9\nBColorB=brown\nFooter=9\n")
                                << QStringLiteral("Arial 32 0 0 9 3 4 5 6 7 8 9 10 11")
                                << "Rankelo.INI: BColorB=brown: Type mismatch";
        QTest::newRow("too big") << QByteArray("[Application]\nFooter=2147483648\n")
                                 << QStringLiteral("Arial 32 0 0 16576 16512 8454143 8454143 "
                                                   "40 80 200 200 7 11")
                                 << "Rankelo.INI: Footer=2147483648: Overflow";
    }

    void loads() {
        QFETCH(QByteArray, file);
        QFETCH(QString, expected);
        QFETCH(QString, reason);
        AppFolder folder;
        if (!file.isEmpty())
            WriteFile(folder.IniPath(), file);
        setNumbers(1);
        const bool isLoaded = modCommon::Settings(modCommon::LoadSettings);
        QCOMPARE(allSettings(), expected);
        QCOMPARE(isLoaded, reason.isEmpty());
        if (!isLoaded) {
            QVERIFY2(AppLog().Description().contains(reason), qPrintable(AppLog().Description()));
            QCOMPARE(AppLog().FunctionName(), QStringLiteral("Settings"));
            QCOMPARE(AppLog().ObjectName(), QStringLiteral("modMain"));
        }
        QCOMPARE(QFile::exists(folder.IniPath()), !file.isEmpty());
    }

    void savesAllButTheFooter() {
        AppFolder folder;
        setNumbers(-2);
        App().BackGround = 0xFFFFFF;
        App().FontName = QStringLiteral("DejaVu Sans");
        App().FontSize = QStringLiteral("20.5");
        QVERIFY(modCommon::Settings(modCommon::SaveSettings));
        QCOMPARE(QString::fromUtf8(ReadFile(folder.IniPath())).remove(u'\r').trimmed(),
                 QStringLiteral("[Application]\n"
                                "FontName=DejaVu Sans\nFontSize=20.5\nDebugMode=1\n"
                                "BackGround=16777215\nFColorA=1\nBColorA=-1\nFColorB=2\nBColorB=0\n"
                                "CellPadX=3\nCellPadY=4\nLeftMargin=5\nRightMargin=6\n"
                                "LabelWidth=7"));
        const QString saved = allSettings();
        App().Footer = 9;
        setNumbers(100);
        QVERIFY(modCommon::Settings(modCommon::LoadSettings));
        QCOMPARE(allSettings(),
                 QString(saved).replace(QStringLiteral("7 8"), QStringLiteral("7 500")));
    }

    void otherModesDoNothing() {
        AppFolder folder;
        setNumbers(1);
        const QString before = allSettings();
        for (const qint32 mode : {-1, 0, 3})
            QVERIFY(modCommon::Settings(mode));
        QCOMPARE(allSettings(), before);
        QVERIFY(!QFile::exists(folder.IniPath()));
    }

    void failsOnAFileThatIsAFolder() {
        AppFolder folder;
        QVERIFY(QDir().mkdir(folder.IniPath()));
        QVERIFY(!modCommon::Settings(modCommon::LoadSettings));
        QVERIFY(!modCommon::Settings(modCommon::SaveSettings));
        QVERIFY2(AppLog().Description().contains(QStringLiteral("Rankelo.INI")),
                 qPrintable(AppLog().Description()));
    }

    void selectsAListItem() {
        QComboBox list;
        QVERIFY(!modCommon::SelectListItem(list, QString()));
        list.addItems({QStringLiteral("Arial"), QStringLiteral("ärger"), QStringLiteral("ARIAL")});
        list.setCurrentIndex(2);
        const struct {
            const char* text;
            bool isFound;
            int index;
        } cases[] = {{"aRiAl", true, 0}, {"ÄRGER", true, 1}, {"Aria", false, 1}, {"", false, 1}};
        for (const auto& [text, isFound, index] : cases) {
            QCOMPARE(modCommon::SelectListItem(list, QString::fromUtf8(text)), isFound);
            QCOMPARE(list.currentIndex(), index);
        }
    }
};

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"
