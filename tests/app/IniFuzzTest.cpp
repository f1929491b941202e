#include "app/modCommon.h"
#include "core/Logging.h"
#include "core/Utilities.h"
#include "support/AppFolder.h"
#include "support/Soak.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArrayList Words =
    "[Application]|[|]|=|\n|\r\n|\r|\0|\"|'|;|#| |\t|FontName|FontSize|Footer|BColorA|DebugMode|"
    "99999999999|-1|1e9|0.5|nan|\xEF\xBB\xBF|\xFF\xFE|\xC3|<<<END\n"_ba.split('|');

// A file that the program has saved or somebody has edited, with pieces put in and taken out.
QByteArray fuzzedFile(QRandomGenerator& random) {
    const auto upTo = [&](qsizetype most) { return static_cast<qsizetype>(random.bounded(most)); };
    const QByteArray seeds[] = {
        "[Application]\nFontName=Arial\nFontSize=32\nDebugMode=0\nBackGround=0\nCellPadX=40\n"_ba,
        "; mine\r\n[Other]\r\na=b\r\n\r\n[APPLICATION]\r\n# big\r\nfontname = \"DejaVu Sans\"\r\n"
        "FontName=second\r\nFooter=\r\n; end"_ba,
        "[Application]\nBackGround=a\nFooter=99999999999\n"_ba};
    QByteArray bytes = seeds[upTo(3)];
    for (qsizetype changes = upTo(8); changes >= 0; --changes) {
        const qsizetype at = upTo(bytes.size() + 1);
        const qsizetype length = upTo(40);
        const QByteArray pieces[] = {{},
                                     Words[upTo(Words.size())],
                                     bytes.mid(upTo(bytes.size() + 1), length),
                                     QByteArray(length * length, 'x'),
                                     QByteArray(1, static_cast<char>(random.generate()))};
        const QByteArray& piece = pieces[upTo(5)];
        bytes.replace(at, piece.isEmpty() ? length : 0, piece);
    }
    return bytes;
}

} // namespace

class IniFuzzTest : public QObject {
    Q_OBJECT

private slots:
    void anyFileGivesSettingsOrAReason() {
        QRandomGenerator random(20260117);
        const AppFolder folder;
        const QString path = folder.IniPath();
        const int cases = SoakCount(2000, 200000);
        int loaded = 0;
        for (int i = 0; i < cases; ++i) {
            const QByteArray bytes = fuzzedFile(random);
            const QByteArray shown = QByteArray::number(i) + ": " + bytes.toPercentEncoding();
            WriteFile(path, bytes);
            AppLog().Record(1, 0, {}, {}, {}); // no report since
            const bool isLoaded = modCommon::Settings(modCommon::LoadSettings);
            loaded += isLoaded ? 1 : 0;
            QVERIFY2(isLoaded || AppLog().FunctionName() == u"Settings", shown);
            QVERIFY2(modCommon::AppSettings().FontName.size() <= 254 &&
                         modCommon::AppSettings().FontName.isValidUtf16(),
                     shown);
            QVERIFY2(ReadFile(path) == bytes, shown);
            if (i % 10 != 0)
                continue;
            // What is written into any file is read back from it.
            const QString value = QString::number(i);
            Utilities& utilities = AppUtilities();
            QVERIFY2(utilities.WriteINIValue(path, u"Application"_s, u"Footer"_s, value), shown);
            QVERIFY2(utilities.ReadINIValue(path, u"Application"_s, u"Footer"_s, {}) == value,
                     shown);
        }
        QVERIFY2(loaded > cases / 10 && loaded < cases, "the files are all alike");
        qInfo("%d files, %d of them gave settings", cases, loaded);
    }
};

QTEST_GUILESS_MAIN(IniFuzzTest)
#include "IniFuzzTest.moc"
