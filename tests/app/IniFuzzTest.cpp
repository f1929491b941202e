#include "app/modCommon.h"
#include "core/AppValues.h"
#include "core/Logging.h"
#include "core/Utilities.h"
#include "support/AppFolder.h"
#include "support/Soak.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

constexpr quint32 Seed = 20260117;
const QString Section = QStringLiteral("Application");

const QByteArrayList Words{"[Application]",
                           "[",
                           "]",
                           "=",
                           "\n",
                           "\r\n",
                           "\r",
                           QByteArray(1, '\0'),
                           "\"",
                           "'",
                           ";",
                           "#",
                           " ",
                           "\t",
                           "FontName",
                           "FontSize",
                           "Footer",
                           "BColorA",
                           "DebugMode",
                           "99999999999",
                           "-1",
                           "1e9",
                           "0.5",
                           "nan",
                           "\xEF\xBB\xBF",
                           "\xFF\xFE",
                           "\xC3",
                           "<<<END\n"};

// A file as the program saves it, or as somebody has edited it.
QByteArray seedFile(QRandomGenerator& random) {
    static const QByteArrayList seeds{
        "[Application]\nFontName=Arial\nFontSize=32\nDebugMode=0\nBackGround=0\nFColorA=8454143\n"
        "BColorA=16576\nCellPadX=40\nLabelWidth=7\n",
        "; mine\r\n[Other]\r\na=b\r\n\r\n[APPLICATION]\r\n# big\r\nfontname = \"DejaVu Sans\"\r\n"
        "FontName=second\r\nFooter=\r\n; end",
        "[Application]\nBackGround=a\nFooter=99999999999\n", ""};
    return seeds[static_cast<qsizetype>(random.bounded(seeds.size()))];
}

QByteArray noise(QRandomGenerator& random, int atMost) {
    QByteArray bytes(static_cast<qsizetype>(random.bounded(atMost)), '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.generate());
    return bytes;
}

QByteArray fuzzedFile(QRandomGenerator& random) {
    if (random.bounded(20) == 0)
        return noise(random, 2000);
    QByteArray bytes = seedFile(random);
    const int changes = 1 + static_cast<int>(random.bounded(8));
    for (int change = 0; change < changes; ++change) {
        const auto at = static_cast<qsizetype>(random.bounded(bytes.size() + 1));
        const auto length = static_cast<qsizetype>(random.bounded(40));
        switch (random.bounded(5)) {
        case 0:
            bytes.insert(at, Words[static_cast<qsizetype>(random.bounded(Words.size()))]);
            break;
        case 1:
            bytes.remove(at, length);
            break;
        case 2:
            bytes.insert(
                at, bytes.mid(static_cast<qsizetype>(random.bounded(bytes.size() + 1)), length));
            break;
        case 3:
            bytes.insert(at, noise(random, 10));
            break;
        default:
            bytes.insert(at, QByteArray(length * length, 'x'));
        }
    }
    return bytes;
}

// Every key of the section but one, with its value.
QStringList otherKeys(const QString& path, const QString& key) {
    const auto map = AppUtilities().ReadINISection(path, Section);
    QStringList texts;
    for (qint32 i = 0; i <= map->LastIndex(); ++i)
        if (map->Item(i)->Key.compare(key, Qt::CaseInsensitive) != 0)
            texts.append(map->Item(i)->Key + u'=' + map->Item(i)->Value);
    return texts;
}

} // namespace

class IniFuzzTest : public QObject {
    Q_OBJECT

private slots:
    void anyFileGivesSettingsOrAReason();
};

void IniFuzzTest::anyFileGivesSettingsOrAReason() {
    QRandomGenerator random(Seed);
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
        const QString key = i % 20 == 0 ? QStringLiteral("footer") : QStringLiteral("Fresh");
        const QString value = QString::number(random.generate());
        const QStringList before = otherKeys(folder.IniPath(), key);
        QVERIFY2(AppUtilities().WriteINIValue(folder.IniPath(), Section, key, value), shown);
        QVERIFY2(AppUtilities().ReadINIValue(folder.IniPath(), Section, key, {}) == value, shown);
        QVERIFY2(otherKeys(folder.IniPath(), key) == before, shown);
        const QByteArray written = ReadFile(folder.IniPath());
        QVERIFY2(AppUtilities().WriteINIValue(folder.IniPath(), Section, key, value), shown);
        QVERIFY2(ReadFile(folder.IniPath()) == written, shown);
    }
    QVERIFY2(loaded > cases / 10 && loaded < cases, "the files are all alike");
    qInfo("%d files, %d of them gave settings", cases, loaded);
}

QTEST_GUILESS_MAIN(IniFuzzTest)
#include "IniFuzzTest.moc"
