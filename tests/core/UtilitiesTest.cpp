#include "core/Utilities.h"
#include "support/AppFolder.h"

#include <QTest>

namespace {

// Whether the digits of a date and time lie between the moments before and after they are made.
bool areNow(const auto& make) {
    const auto now = [] { return QDateTime::currentDateTime().toString("yyyyMMddHHmmsszzz"); };
    const QString before = now();
    const QString digits = make();
    const qsizetype size = digits.size();
    return size >= 14 && before.left(size) <= digits && digits <= now().left(size);
}

const QByteArray HandEdited =
    "; my settings\r\n\r\nstray = 1\r\n[Other]\r\nFontName=Wrong\r\n[ application ]\r\n"
    "# the board\r\nFONTNAME =  Liberation Sans  \r\nno equals sign\r\n=no key\r\nUnknown=7\r\n"
    "FontName=Later\r\nBoss=Ren\xE9\r\nFooter=\r\n\r\n; about the next section\r\n[Last]\r\na=b\r\n"
    "[Application]\r\nBoss=Second\r\nOnly=Here\r\n; the end";

} // namespace

class UtilitiesTest : public QObject {
    Q_OBJECT

private slots:
    void formatsDates() {
        AppFolder folder;
        Utilities& u = AppUtilities();
        const QString march = QLocale::system().monthName(3, QLocale::ShortFormat);
        const QString day = "05/" + march + "/2026";
        for (const QString& input :
             {day + " 14:10:09", QString("2026-03-05T14:10:09"), QString(" 20260305141009 ")}) {
            QStringList made;
            for (const qint32 format : {1, 2, 3, 4, 8, 16, 32, 64, 128})
                made.append(u.FormatDateTime(format, input));
            const QString all = "%1|%1 14:10:09|%2|14:10:09|%1 14:10:09|%1 00:00:00|%1 "
                                "23:59:59|20260305|20260305141009";
            QCOMPARE(made.join('|'), all.arg(day, input));
        }
        // A time alone is one of today; summer time skips this hour in many places.
        QCOMPARE(u.FormatDateTime(4, "14:10:09"), "14:10:09");
        QCOMPARE(u.FormatDateTime(128, "2026-03-29T02:30:00"), "20260329023000");
        // A day without a time gets the current one. Midnight may pass meanwhile.
        for (const char* form : {"yyyyMMdd", "yyyy-MM-dd"})
            QTRY_VERIFY(
                areNow([&] { return u.FormatDateTime(128, QDate::currentDate().toString(form)); }));
        QVERIFY(u.FormatDateTime(1, day) == day && u.FormatDateTime(3, day).startsWith(day + ' '));
        QCOMPARE(folder.TakeReports(), QStringList());
        for (const QString& text : {QString("soon"), QString("5/3/26"), day + " 1"})
            QVERIFY2(u.FormatDateTime(1, text).isEmpty() && folder.TakeReports().size() == 1,
                     qPrintable(text));
        QVERIFY(areNow([&] { return u.GetDateTime(128); }) && u.GetDateTime(3).contains(':'));
        QVERIFY(areNow([&] { return u.getRemoteTOD({}).toString("yyyyMMddHHmmss"); }));
    }

    void keysAreDifferentAndCarryTheirTime() {
        Utilities fresh;
        for (int i = 1; i <= 1000; ++i) {
            QString key;
            QVERIFY(areNow([&] { return (key = fresh.GenerateUnique()).left(16); }));
            // The number makes it the only one; the random part is not above the clock's time.
            QVERIFY2(key.size() == 26 && key.mid(16, 5).toInt() == i &&
                         key.mid(21) <= key.mid(8, 5),
                     qPrintable(key));
        }
    }

    void filesAndFolders() {
        AppFolder folder;
        Utilities& u = AppUtilities();
        const QString a = folder.Path("a"), sub = folder.Path("sub %1/"), b = sub + "b",
                      c = sub + "c", none = sub + "none/a", path = "C:\\x/y\\a.b.txt",
                      unsized = QFile::exists("/proc/version") ? "/proc/version" : a;
        WriteFile(a, "new");
        // What a call returns, or the number and the procedure of the error that it reports.
        const auto got = [&](bool result) {
            const QString report = folder.TakeReports().value(0);
            return report.isEmpty() ? QString::number(result)
                                    : report.mid(8, 2) + report.section('[', -1).section('/', 0, 0);
        };
        // One row an operation, in this order.
        const std::pair<QString, QStringList> rows[] = {
            {"a.b.txt,", {u.GetFileFromPath(path), u.GetFileFromPath("a.b")}},
            {"C:\\x/y,", {u.GetPathFromFile(path), u.GetPathFromFile("a.b")}},
            {"txt,", {u.GetFileExtension(path), u.GetFileExtension("txt")}},
            {"", {u.GetFileVersion(a)}},
            {"1,1,76CreatePath,58CreatePath",
             {got(u.CreatePath(sub)), got(u.CreatePath(sub)), got(u.CreatePath(none)),
              got(u.CreatePath(a))}},
            {"1,1,new,53CopyFile,70CopyFile,76CopyFile",
             {got(u.CopyFile(folder.DatabasePath(), b)), got(u.CopyFile(a, b)), ReadFile(b),
              got(u.CopyFile(sub, a)), got(u.CopyFile(a, a)), got(u.CopyFile(a, sub))}},
            {"1," + ReadFile(unsized), {got(u.CopyFile(unsized, c)), ReadFile(c)}},
            {"1,53FileDelete,0",
             {got(u.FileDelete(c)), got(u.FileDelete(c)), got(u.FileDelete(" "))}},
            {"1,53CopyFile,58CopyFile,76CopyFile",
             {got(u.MoveFile(b, c)), got(u.MoveFile(sub, folder.Path("d"))), got(u.MoveFile(c, a)),
              got(u.MoveFile(c, none))}},
            {"1,0,0", {got(u.FileExists(c)), got(u.FileExists(b)), got(u.FileExists(sub))}},
            {"1,1,0",
             {got(u.DirectoryExists(u.SystemDirectory())),
              got(u.DirectoryExists(u.ReturnTempPath())), got(u.DirectoryExists(c))}},
            {"1,76FolderDelete,0",
             {got(u.FolderDelete(sub)), got(u.FolderDelete(sub)), got(u.FolderDelete(" "))}},
        };
        for (const auto& [expected, results] : rows)
            QCOMPARE(results.join(','), expected);
        QVERIFY(!u.CopyFile("x", "y") && folder.Files() == (QStringList{"Rankelo.MDB", "a"}));
        QVERIFY(folder.TakeReports().value(0).contains("foundFailed copying [x] to [y] ["));
    }

    void readsIniValues() {
        const AppFolder folder;
        const QByteArray head = "[Application]\nFontName=";
        const QString wide = QString(253, 'x') + "\U0001F600";
        const std::pair<QByteArray, QString> cases[] = {
            {HandEdited, "Liberation Sans"},
            {"FontName=a", "default"},
            {"[Application]\na=1\n[Application]\nFontName=b", "default"}, // the first one counts
            {head + "Ren\xE9", "Ren\u00e9"},
            {head + "\"\"", "default"},
            {head + "\"  a  \"", "  a  "},
            {head + "\"a'", "\"a'"},
            {head + "a ; b=c", "a ; b=c"},
            {"\xEF\xBB\xBF" + head + "\xC3\xA9", "\u00e9"},
            {head + QByteArray("a\0b", 3), "a"},
            {head + wide.toUtf8(), wide.left(253)},
        };
        for (const auto& [file, value] : cases) {
            WriteFile(folder.IniPath(), file);
            QCOMPARE(
                AppUtilities().ReadINIValue(folder.IniPath(), "Application", "FontName", "default"),
                value);
        }
    }

    void writingAnIniFileTouchesOneLine() {
        AppFolder folder;
        Utilities& u = AppUtilities();
        const QString ini = folder.IniPath();
        // The part of the file that changes, and to what; none when the text could not be read
        // back.
        const struct {
            QString section, key, value;
            QByteArray before, after = {};
        } cases[] = {
            {"Application", "FontName", "new", "FONTNAME =  Liberation Sans  \r\n",
             "FontName=new\r\n"},
            {"Application", "Fresh", "new", "Footer=\r\n", "Footer=\r\nFresh=new\r\n"},
            {"New", "k", "new", "; the end", "; the end\r\n[New]\r\nk=new\r\n"},
            // Letters of an older editor stay while nobody edits them.
            {"Application", "Boss", "Ren\u00e9", "Boss", "Boss"},
            {"Application", "Boss", "new", "Boss=Ren\xE9\r\n", "Boss=new\r\n"},
            {"Application", "k", "a\nFooter=1", {}},
            {"Application", "k", QString(1, QChar()), {}},
            {"Application", "a=b", "new", {}},
            {"Application", ";a", "new", {}},
            {"Application", "", "new", {}},
            {"a]", "k", "new", {}},
        };
        for (const auto& c : cases) {
            WriteFile(ini, HandEdited);
            QCOMPARE(u.WriteINIValue(ini, c.section, c.key, c.value), !c.before.isEmpty());
            QCOMPARE(folder.TakeReports().size(), c.before.isEmpty() ? 1 : 0);
            QByteArray expected = HandEdited;
            if (!c.before.isEmpty())
                expected.replace(expected.indexOf(c.before), c.before.size(), c.after);
            QCOMPARE(ReadFile(ini), expected);
        }
        QVERIFY(u.WriteSection(ini, "application", QString("a=1,b=c=d,").replace(',', QChar())));
        const qsizetype head = HandEdited.indexOf("# the"), end = HandEdited.indexOf("[Last]");
        QCOMPARE(ReadFile(ini), HandEdited.left(head) + "a=1\r\nb=c=d\r\n" + HandEdited.mid(end));
        const auto section = u.ReadINISection(ini, "APPLICATION");
        QVERIFY(section->LastIndex() == 1 && section->GetObject("B")->Value == "c=d");
    }
};

QTEST_GUILESS_MAIN(UtilitiesTest)
#include "UtilitiesTest.moc"
