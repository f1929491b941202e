#include "app/Desktop.h"
#include "app/modCommon.h"
#include "core/Logging.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QComboBox>
#include <QTest>

#include <span>

using namespace Qt::StringLiterals;

namespace {

// Every setting in one line, in the order of reading.
QString allSettings() {
    QStringList values;
    for (const Setting& setting : SettingsTable)
        values.append(setting.TextIn(modCommon::AppSettings()));
    return values.join(u' ');
}

// The numbers become 1, 2, 3 and so on, the texts their defaults.
void setNumbers() {
    modCommon::AppSettings() = {};
    for (qint32 number = 1; const Setting& setting : std::span(SettingsTable).subspan(3))
        setting.Assign(modCommon::AppSettings(), QString::number(number++));
}

} // namespace

class SettingsTest : public QObject {
    Q_OBJECT

private slots:
    void loads() {
        const struct {
            const char* file; ///< the lines below [Application]; nullptr for no file
            const char* settings;
            const char* reason; ///< of the failure
        } cases[] = {
            {nullptr, "Arial 32 0 0 16576 16512 8454143 8454143 40 80 200 200 7 500", ""},
            {"FontName=\nFontSize=\nFooter=\nBColorA=   \n",
             "Arial 32 0 0 16576 16512 8454143 8454143 40 80 200 200 7 500", ""},
            {"FOOTER = 2.5\nCellPadX=1e2\nLabelWidth=-7\nFontSize=huge\nDebugMode=01\nFontName=a "
             "b\n"
             "FColorA=3\nBColorA=4\nFColorB=5\nBColorB=6\nBackGround=7\nCellPadY=8\nLeftMargin=9\n"
             "RightMargin=10\n",
             "a b huge 01 7 4 6 3 5 100 8 9 10 -7 2", ""},
            // The values up to the wrong one are taken, the others stay.
            {"BColorA=9\nBColorB=brown\nFooter=9\n", "Arial 32 0 0 9 3 4 5 6 7 8 9 10 11",
             "Rankelo.INI: BColorB=brown: Type mismatch"},
            {"BackGround=2147483648\n", "Arial 32 0 1 2 3 4 5 6 7 8 9 10 11",
             "Rankelo.INI: BackGround=2147483648: Overflow"},
        };
        for (const auto& c : cases) {
            AppFolder folder;
            if (c.file)
                WriteFile(folder.IniPath(), QByteArray("[application]\n") + c.file);
            setNumbers();
            QCOMPARE(modCommon::Settings(modCommon::LoadSettings), c.reason == ""_L1);
            QCOMPARE(allSettings(), QLatin1StringView(c.settings));
            QVERIFY(AppLog().Description().contains(QLatin1StringView(c.reason)));
            QCOMPARE(QFile::exists(folder.IniPath()), c.file != nullptr);
        }
    }

    void failsOnAFolderInThePlaceOfTheFile() {
        const AppFolder folder;
        QVERIFY(QDir().mkdir(folder.IniPath()));
        for (const auto mode : {modCommon::LoadSettings, modCommon::SaveSettings}) {
            QVERIFY(!modCommon::Settings(mode));
            QVERIFY(AppLog().Description().contains(u"Rankelo.INI: the file cannot be"));
        }
    }

    // One box an error in mode "1" alone.
    void showsErrorsInDebugModeOnly() {
        const AppFolder folder;
        ConnectDesktop();
        for (const QString& mode : {u"1"_s, u"01"_s, u""_s, u"0"_s}) {
            modCommon::AppSettings().DebugMode = mode;
            std::list<ModalAnswers::Answer> expected;
            if (mode == u"1"_s)
                expected.push_back(MessageBox(u"Application Error"_s,
                                              u"9700 : [7] <b>why</b> [P/C]"_s, Qt::Key_Return));
            const ModalAnswers answers(expected);
            AppLog().ProgramError(7, u"<b>why</b>"_s, u"P"_s, u"C"_s);
            QVERIFY2(answers.AllGiven(), qPrintable(mode));
        }
    }

    void selectsAListItem() {
        QComboBox list;
        list.addItems({u"Arial"_s, u"ärger"_s, u"ARIAL"_s});
        for (const auto& [text, index] :
             {std::pair(u"aRiAl"_s, 0), std::pair(u"ÄRGER"_s, 1), std::pair(u"Aria"_s, -1)}) {
            list.setCurrentIndex(2);
            QCOMPARE(modCommon::SelectListItem(list, text), index >= 0);
            QCOMPARE(list.currentIndex(), index >= 0 ? index : 2);
        }
    }
};

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"
