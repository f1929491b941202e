#include "core/Utilities.h"
#include "support/AppFolder.h"

#include <QTest>

namespace {

const QString Section = QStringLiteral("Application");

const char* const HandEdited = "; my settings\r\n"
                               "\r\n"
                               "stray = 1\r\n"
                               "[Other]\r\n"
                               "FontName=Wrong\r\n"
                               "[ application ]\r\n"
                               "# the board\r\n"
                               "FONTNAME =  Liberation Sans  \r\n"
                               "no equals sign\r\n"
                               "=no key\r\n"
                               "Unknown=7\r\n"
                               "FontName=Later\r\n"
                               "Footer=\r\n"
                               "\r\n"
                               "; about the next section\r\n"
                               "[Last]\r\n"
                               "a=b\r\n"
                               "; the end";

} // namespace

class IniFileTest : public QObject {
    Q_OBJECT

private slots:
    void readsValues();
    void readsASection();
    void writingTouchesOneLine();
    void replacesASection();
    void makesTheFileOnTheFirstSave();
    void refusesWhatCouldNotBeReadBack();
    void reportsWhatCannotBeReadOrWritten();
};

void IniFileTest::readsValues() {
    const AppFolder folder;
    const QString longValue(300, u'x');
    const QString wide = QString(253, u'x') + QStringLiteral("\U0001F600");
    const struct {
        QByteArray file;
        QString value;
    } cases[] = {
        {HandEdited, QStringLiteral("Liberation Sans")},
        {"", QStringLiteral("default")},
        {"FontName=a", QStringLiteral("default")},
        {"[Application]\nFontName=", QStringLiteral("default")},
        {"[Application]\nFontName=\"\"", QStringLiteral("default")},
        {"[Application]\nFontName", QStringLiteral("default")},
        {"[Application\nFontName=a", QStringLiteral("default")},
        {"[Application] trailing\nFontName=a", QStringLiteral("a")},
        {"[Application]\rFontName=a\rFontName=b", QStringLiteral("a")},
        {"[Application]\nFontName=\"  a  \"", QStringLiteral("  a  ")},
        {"[Application]\nFontName='a'", QStringLiteral("a")},
        {"[Application]\nFontName=\"\"a\"\"", QStringLiteral("\"a\"")},
        {"[Application]\nFontName=\"a'", QStringLiteral("\"a'")},
        {"[Application]\nFontName=\"", QStringLiteral("\"")},
        {"[Application]\nFontName=a ; b=c", QStringLiteral("a ; b=c")},
        {"[Application]\nFontName=<<<END\nx\nEND", QStringLiteral("<<<END")},
        {"[A]\n[Application]\n[B]\n[APPLICATION]\nFontName=a", QStringLiteral("a")},
        {"\xEF\xBB\xBF[Application]\nFontName=\xC3\xA9", QStringLiteral("é")},
        {QByteArrayLiteral(
             "\xFF\xFE[\0A\0p\0p\0l\0i\0c\0a\0t\0i\0o\0n\0]\0\n\0F\0o\0n\0t\0N\0a\0m\0e\0"
             "=\0\xE9\0"),
         QStringLiteral("é")},
        {QByteArrayLiteral("[Application]\nx\0y=1\nFontName=a\0b"), QStringLiteral("a")},
        {"[Application]\nFontName=" + longValue.toUtf8(), longValue.left(254)},
        {"[Application]\nFontName=" + wide.toUtf8(), wide.left(253)},
    };
    for (const auto& c : cases) {
        WriteFile(folder.IniPath(), c.file);
        QCOMPARE(AppUtilities().ReadINIValue(folder.IniPath(), Section, QStringLiteral("FontName"),
                                             QStringLiteral("default")),
                 c.value);
    }
}

void IniFileTest::readsASection() {
    const AppFolder folder;
    const auto keys = [&](const QString& section) {
        const auto map = AppUtilities().ReadINISection(folder.IniPath(), section);
        QStringList texts;
        for (qint32 i = 0; i <= map->LastIndex(); ++i)
            texts.append(map->Item(i)->Key + u'|' + map->Item(i)->Value);
        return texts;
    };
    QCOMPARE(keys(Section), QStringList());
    WriteFile(folder.IniPath(), HandEdited + QByteArray("\nq=\"1=2\""));
    QCOMPARE(keys(QStringLiteral("LAST")),
             (QStringList{QStringLiteral("a|b"), QStringLiteral("q|\"1=2\"")}));
    QCOMPARE(keys(Section).first(), QStringLiteral("FONTNAME|Liberation Sans"));
    QCOMPARE(AppUtilities()
                 .ReadINISection(folder.IniPath(), Section)
                 ->GetObject(QStringLiteral("fontname"))
                 ->Value,
             QStringLiteral("Liberation Sans"));
    QCOMPARE(keys(QStringLiteral("missing")), QStringList());
}

void IniFileTest::writingTouchesOneLine() {
    const AppFolder folder;
    const QByteArray end("\n");
    const struct {
        const char* section;
        const char* key;
        const char* before; // the part of the file that changes
        const char* after;
    } cases[] = {
        {"Application", "FontName", "FONTNAME =  Liberation Sans  \r\n", "FontName=new"},
        {"application", "UNKNOWN", "Unknown=7\r\n", "UNKNOWN=new"},
        {"Application", "Fresh", "Footer=\r\n", "Footer=\r\nFresh=new"},
        {"Last", "c", "a=b\r\n", "a=b\r\nc=new"},
    };
    for (const auto& c : cases) {
        WriteFile(folder.IniPath(), HandEdited);
        QVERIFY(AppUtilities().WriteINIValue(folder.IniPath(), QString::fromLatin1(c.section),
                                             QString::fromLatin1(c.key), QStringLiteral("new")));
        QByteArray expected(HandEdited);
        QByteArray written = ReadFile(folder.IniPath());
        expected.replace(c.before, c.after + end);
        QCOMPARE(written.replace("new\r\n", "new\n"), expected);
    }
    WriteFile(folder.IniPath(), HandEdited);
    QVERIFY(AppUtilities().WriteINIValue(folder.IniPath(), QStringLiteral("New"),
                                         QStringLiteral("k"), QStringLiteral("v")));
    QCOMPARE(ReadFile(folder.IniPath()).replace("\r\n", "\n"),
             QByteArray(HandEdited).replace("\r\n", "\n") + "\n[New]\nk=v\n");
}

void IniFileTest::replacesASection() {
    const AppFolder folder;
    const QString entries = QStringLiteral("x=1") + QChar::Null + QStringLiteral("y=a=b");
    WriteFile(folder.IniPath(), "[a]\n1=2\n[b]\n; gone\n3=4\n[c]\n5=6");
    for (const QString& section : {QStringLiteral("B"), QStringLiteral("d")})
        QVERIFY(AppUtilities().WriteSection(folder.IniPath(), section, entries));
    QCOMPARE(ReadFile(folder.IniPath()).replace("\r\n", "\n"),
             QByteArray("[a]\n1=2\n[b]\nx=1\ny=a=b\n[c]\n5=6\n[d]\nx=1\ny=a=b\n"));
}

void IniFileTest::makesTheFileOnTheFirstSave() {
    const AppFolder folder;
    const QStringList before = folder.Files();
    AppUtilities().ReadINIValue(folder.IniPath(), Section, QStringLiteral("Footer"), {});
    QCOMPARE(folder.Files(), before);
    QVERIFY(AppUtilities().WriteINIValue(folder.IniPath(), Section, QStringLiteral("Footer"),
                                         QStringLiteral("5")));
    QCOMPARE(ReadFile(folder.IniPath()).replace("\r\n", "\n"),
             QByteArray("[Application]\nFooter=5\n"));
    QCOMPARE(folder.Files().size(), before.size() + 1);
}

void IniFileTest::refusesWhatCouldNotBeReadBack() {
    AppFolder folder;
    WriteFile(folder.IniPath(), HandEdited);
    const QString good = QStringLiteral("good");
    const struct {
        QString section, key, value;
    } cases[] = {
        {good, good, QStringLiteral("a\nFooter=1")},
        {good, good, QStringLiteral("a\r")},
        {good, good, QStringLiteral("a\0b")},
        {good, QStringLiteral("a=b"), good},
        {good, QStringLiteral(";a"), good},
        {good, QStringLiteral("[a]"), good},
        {good, QString(), good},
        {good, QChar(0xD800), good},
        {QStringLiteral("a]"), good, good},
        {QStringLiteral("a\n"), good, good},
    };
    for (const auto& c : cases) {
        QVERIFY(!AppUtilities().WriteINIValue(folder.IniPath(), c.section, c.key, c.value));
        const QStringList reports = folder.TakeReports();
        QVERIFY2(reports.size() == 1 && reports[0].startsWith(u"9700 : [5] "),
                 qPrintable(reports.join(u'\n')));
        QCOMPARE(ReadFile(folder.IniPath()), QByteArray(HandEdited));
    }
}

void IniFileTest::reportsWhatCannotBeReadOrWritten() {
    AppFolder folder;
    const QString directory = folder.Path(QString());
    QCOMPARE(AppUtilities().ReadINIValue(directory, Section, Section, Section), QString());
    QVERIFY(folder.TakeReports().join(u'\n').endsWith(u" [GetINIValue/Utilities]"));
    const QString nowhere = folder.Path(QStringLiteral("missing/Rankelo.INI"));
    QCOMPARE(AppUtilities().ReadINIValue(nowhere, Section, Section, Section), Section);
    QVERIFY(!AppUtilities().WriteINIValue(nowhere, Section, Section, Section));
    QVERIFY(folder.TakeReports().join(u'\n').endsWith(u" [WriteINIValue/Utilities]"));
}

QTEST_GUILESS_MAIN(IniFileTest)
#include "IniFileTest.moc"
