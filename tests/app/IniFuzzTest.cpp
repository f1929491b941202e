#include "app/modCommon.h"
#include "core/AppValues.h"
#include "core/Logging.h"
#include "core/Utilities.h"
#include "support/AppFolder.h"
#include "support/Soak.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

const QByteArrayList Words =
    QByteArrayLiteral("[Application]|[|]|=|\n|\r\n|\r|\0|\"|'|;|#| |\t|FontName|FontSize|Footer|"
                      "BColorA|DebugMode|99999999999|-1|1e9|0.5|nan|\xEF\xBB\xBF|\xFF\xFE|\xC3|"
                      "<<<END\n")
        .split('|');

// Files as the program saves them, or as somebody has edited them.
const QByteArrayList Seeds{
    "[Application]\nFontName=Arial\nFontSize=32\nDebugMode=0\nBackGround=0\nFColorA=8454143\n"
    "BColorA=16576\nCellPadX=40\nLabelWidth=7\n",
    "; mine\r\n[Other]\r\na=b\r\n\r\n[APPLICATION]\r\n# big\r\nfontname = \"DejaVu Sans\"\r\n"
    "FontName=second\r\nFooter=\r\n; end",
    "[Application]\nBackGround=a\nFooter=99999999999\n", ""};

const QString Section = QStringLiteral("Application");
const QString Key = QStringLiteral("Footer");

QByteArray fuzzedFile(QRandomGenerator& random) {
    const auto upTo = [&](qsizetype most) { return static_cast<qsizetype>(random.bounded(most)); };
    QByteArray bytes = Seeds[upTo(Seeds.size())];
    for (qsizetype changes = 1 + upTo(8); changes > 0; --changes) {
        const qsizetype at = upTo(bytes.size() + 1);
        const qsizetype length = upTo(40);
        const QByteArray pieces[] = {
            Words[upTo(Words.size())], bytes.mid(upTo(bytes.size() + 1), length),
            QByteArray(length * length, 'x'), QByteArray(1, static_cast<char>(random.generate()))};
        if (upTo(5) == 0)
            bytes.remove(at, length);
        else
            bytes.insert(at, pieces[upTo(4)]);
    }
    return bytes;
}

} // namespace

class IniFuzzTest : public QObject {
    Q_OBJECT

private slots:
    void anyFileGivesSettingsOrAReason();
};

void IniFuzzTest::anyFileGivesSettingsOrAReason() {
    QRandomGenerator random(20260117);
    AppFolder folder;
    const int cases = SoakCount(2000, 200000);
    int loaded = 0;
    for (int i = 0; i < cases; ++i) {
        const QByteArray bytes = fuzzedFile(random);
        const QByteArray shown = "case " + QByteArray::number(i) + ": " + bytes.toPercentEncoding();
        WriteFile(folder.IniPath(), bytes);
        AppLog().Record(1, 0, {}, {}, {}); // no report since
        const bool isLoaded = modCommon::Settings(modCommon::LoadSettings);
        loaded += isLoaded ? 1 : 0;
        QVERIFY2(isLoaded || AppLog().FunctionName() == u"Settings", shown);
        QVERIFY2(App().FontName.size() <= 254 && App().FontName.isValidUtf16(), shown);
        QVERIFY2(ReadFile(folder.IniPath()) == bytes, shown);
        if (i % 10 != 0)
            continue;
        // What is written into any file is read back from it.
        const QString value = QString::number(i);
        QVERIFY2(AppUtilities().WriteINIValue(folder.IniPath(), Section, Key, value), shown);
        QVERIFY2(AppUtilities().ReadINIValue(folder.IniPath(), Section, Key, {}) == value, shown);
    }
    QVERIFY2(loaded > cases / 10 && loaded < cases, "the files are all alike");
    qInfo("%d files, %d of them gave settings", cases, loaded);
}

QTEST_GUILESS_MAIN(IniFuzzTest)
#include "IniFuzzTest.moc"
