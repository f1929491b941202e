#include "core/Utilities.h"
#include "support/AppFolder.h"

#include <QTest>

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
    void replacesASection();
    void makesTheFileOnTheFirstSave();
    void refusesWhatCouldNotBeReadBack();
    void reportsWhatCannotBeReadOrWritten();
};

void IniFileTest::readsValues() {
    const AppFolder folder;
    const QString wide = QString(253, u'x') + u"\U0001F600"_s;
    const std::pair<QByteArray, QString> cases[] = {
        {HandEdited, u"Liberation Sans"_s},
        {"FontName=a", u"default"_s},
        {"[Application]\nFontName=\"\"", u"default"_s},
        {"[Application\nFontName=a", u"default"_s},
        {"[Application]\rFontName=a\rFontName=b", u"a"_s},
        {"[Application]\nFontName=\"  a  \"", u"  a  "_s},
        {"[Application]\nFontName=\"a'", u"\"a'"_s},
        {"[Application]\nFontName=a ; b=c", u"a ; b=c"_s},
        {"[Application]\nFontName=<<<END\nx\nEND", u"<<<END"_s},
        {"[A]\n[Application]\n[B]\n[APPLICATION]\nFontName=a", u"a"_s},
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
    const struct {
        QString section, key;
        const char* before; // the part of the file that changes
        const char* after;
    } cases[] = {
        {Section, Key, "FONTNAME =  Liberation Sans  \n", "FontName=new\n"},
        {u"application"_s, u"UNKNOWN"_s, "Unknown=7\n", "UNKNOWN=new\n"},
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

void IniFileTest::replacesASection() {
    const AppFolder folder;
    WriteFile(folder.IniPath(), "[a]\n1=2\n[b]\n; gone\n3=4\n[c]\n5=6");
    for (const QString& section : {u"B"_s, u"d"_s})
        QVERIFY(AppUtilities().WriteSection(folder.IniPath(), section, u"x=1\0y=a=b"_s));
    QCOMPARE(contents(folder), "[a]\n1=2\n[b]\nx=1\ny=a=b\n[c]\n5=6\n[d]\nx=1\ny=a=b\n"_ba);
}

void IniFileTest::makesTheFileOnTheFirstSave() {
    const AppFolder folder;
    AppUtilities().ReadINIValue(folder.IniPath(), Section, Key, {});
    QCOMPARE(folder.Files(), QStringList{u"Rankelo.MDB"_s});
    QVERIFY(AppUtilities().WriteINIValue(folder.IniPath(), Section, Key, u"5"_s));
    QCOMPARE(contents(folder), "[Application]\nFontName=5\n"_ba);
    QCOMPARE(folder.Files(), (QStringList{u"Rankelo.INI"_s, u"Rankelo.MDB"_s}));
}

void IniFileTest::refusesWhatCouldNotBeReadBack() {
    AppFolder folder;
    WriteFile(folder.IniPath(), HandEdited);
    const QString good = u"good"_s;
    const QStringList cases[] = {
        // section, key, value
        {good, good, u"a\nFooter=1"_s}, {good, good, u"a\r"_s},      {good, good, u"a\0b"_s},
        {good, u"a=b"_s, good},         {good, u";a"_s, good},       {good, u"[a]"_s, good},
        {good, QString(), good},        {good, QChar(0xD800), good}, {u"a]"_s, good, good},
        {u"a\n"_s, good, good},
    };
    for (const QStringList& c : cases) {
        QVERIFY(!AppUtilities().WriteINIValue(folder.IniPath(), c[0], c[1], c[2]));
        const QStringList reports = folder.TakeReports();
        QVERIFY2(reports.size() == 1 && reports[0].startsWith(u"9700 : [5] "),
                 qPrintable(reports.join(u'\n')));
        QCOMPARE(ReadFile(folder.IniPath()), HandEdited);
    }
}

void IniFileTest::reportsWhatCannotBeReadOrWritten() {
    AppFolder folder;
    QCOMPARE(AppUtilities().ReadINIValue(folder.Path({}), Section, Key, Key), QString());
    QVERIFY(folder.TakeReports().join(u'\n').endsWith(u" [GetINIValue/Utilities]"));
    const QString nowhere = folder.Path(u"missing/Rankelo.INI"_s);
    QVERIFY(!AppUtilities().WriteINIValue(nowhere, Section, Key, Key));
    QVERIFY(folder.TakeReports().join(u'\n').endsWith(u" [WriteINIValue/Utilities]"));
}

QTEST_GUILESS_MAIN(IniFileTest)
#include "IniFileTest.moc"
