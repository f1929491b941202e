#include "core/Utilities.h"
#include "support/AppFolder.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString Section = u"Application"_s;
const QString Key = u"FontName"_s;

const QByteArray HandEdited =
    "; my settings\r\n\r\nstray = 1\r\n[Other]\r\nFontName=Wrong\r\n[ application ]\r\n"
    "# the board\r\nFONTNAME =  Liberation Sans  \r\nno equals sign\r\n=no key\r\nUnknown=7\r\n"
    "FontName=Later\r\nFooter=\r\n\r\n; about the next section\r\n[Last]\r\na=b\r\n; the end";

// The file without the difference of the systems' line ends.
QByteArray contents(const AppFolder& folder) {
    return ReadFile(folder.IniPath()).replace("\r\n", "\n");
}

} // namespace

class IniFileTest : public QObject {
    Q_OBJECT

private slots:
    void readsValues();
    void writingTouchesOneLine();
    void refusesWhatCouldNotBeReadBack();
};

void IniFileTest::readsValues() {
    const AppFolder folder;
    const QString wide = QString(253, u'x') + u"\U0001F600"_s;
    const std::pair<QByteArray, QString> cases[] = {
        {HandEdited, u"Liberation Sans"_s},
        {"FontName=a", u"default"_s},
        {"[Application]\nFontName=\"\"", u"default"_s},
        {"[Application]\nFontName=\"  a  \"", u"  a  "_s},
        {"[Application]\nFontName=\"a'", u"\"a'"_s},
        {"[Application]\nFontName=a ; b=c", u"a ; b=c"_s},
        {"\xEF\xBB\xBF[Application]\nFontName=\xC3\xA9", u"é"_s},
        {"\xFF\xFE[\0A\0p\0p\0l\0i\0c\0a\0t\0i\0o\0n\0]\0\n\0F\0o\0n\0t\0N\0a\0m\0e\0=\0\xE9\0"_ba,
         u"é"_s},
        {"[Application]\nx\0y=1\nFontName=a\0b"_ba, u"a"_s},
        {"[Application]\nFontName=" + wide.toUtf8(), wide.left(253)},
    };
    for (const auto& [file, value] : cases) {
        WriteFile(folder.IniPath(), file);
        QCOMPARE(AppUtilities().ReadINIValue(folder.IniPath(), Section, Key, u"default"_s), value);
    }
    WriteFile(folder.IniPath(), HandEdited + "\nq=\"1=2\"");
    const auto section = AppUtilities().ReadINISection(folder.IniPath(), u"LAST"_s);
    QCOMPARE(section->LastIndex(), 1);
    QCOMPARE(section->GetObject(u"Q"_s)->Value, u"\"1=2\""_s);
}

void IniFileTest::writingTouchesOneLine() {
    const AppFolder folder;
    AppUtilities().ReadINIValue(folder.IniPath(), Section, Key, {});
    QCOMPARE(folder.Files(), QStringList{u"Rankelo.MDB"_s}); // reading makes no file
    QVERIFY(AppUtilities().WriteINIValue(folder.IniPath(), Section, Key, u"5"_s));
    QCOMPARE(contents(folder), "[Application]\nFontName=5\n"_ba);
    const struct {
        QString section, key;
        const char* before; // the part of the file that changes
        const char* after;
    } cases[] = {
        {Section, Key, "FONTNAME =  Liberation Sans  \n", "FontName=new\n"},
        {Section, u"Fresh"_s, "Footer=\n", "Footer=\nFresh=new\n"},
        {u"New"_s, u"k"_s, "; the end", "; the end\n[New]\nk=new\n"},
    };
    for (const auto& c : cases) {
        WriteFile(folder.IniPath(), HandEdited);
        QVERIFY(AppUtilities().WriteINIValue(folder.IniPath(), c.section, c.key, u"new"_s));
        QVERIFY(ReadFile(folder.IniPath()).startsWith("; my settings\r\n"));
        QByteArray expected = HandEdited;
        QCOMPARE(contents(folder), expected.replace("\r\n", "\n").replace(c.before, c.after));
    }
}

void IniFileTest::refusesWhatCouldNotBeReadBack() {
    AppFolder folder;
    WriteFile(folder.IniPath(), HandEdited);
    const QString good = u"good"_s;
    const QString nul = u"a\0b"_s;
    for (const auto& [section, key, value] :
         std::initializer_list<std::array<QString, 3>>{{good, good, u"a\nFooter=1"_s},
                                                       {good, good, nul},
                                                       {good, u"a=b"_s, good},
                                                       {good, u";a"_s, good},
                                                       {good, {}, good},
                                                       {u"a]"_s, good, good}}) {
        QVERIFY(!AppUtilities().WriteINIValue(folder.IniPath(), section, key, value));
        const QString report = folder.TakeReports().join(u'\n');
        QVERIFY2(report.startsWith(u"9700 : [5] "), qPrintable(report));
        QCOMPARE(ReadFile(folder.IniPath()), HandEdited);
    }
    QVERIFY(!AppUtilities().WriteINIValue(folder.Path(u"missing/a"_s), Section, Key, good));
    QCOMPARE(AppUtilities().ReadINIValue(folder.Path({}), Section, Key, good), QString());
    QCOMPARE(folder.TakeReports().size(), 2);
}

QTEST_GUILESS_MAIN(IniFileTest)
#include "IniFileTest.moc"
