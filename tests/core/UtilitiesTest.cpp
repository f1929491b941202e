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
    "FontName=Later\r\nBoss=Ren\xE9\r\nFooter=\r\n\r\n# about=the next\r\n[Last]\r\na=b\r\n"
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
            QCOMPARE(key.mid(16, 5).toInt(), i);
            QVERIFY2(key.size() == 26 && key.mid(21) <= key.mid(8, 5), qPrintable(key));
        }
    }

    void filesAndFolders() {
        AppFolder folder;
        Utilities& u = AppUtilities();
        const QString a = folder.Path("a"), sub = folder.Path("sub %1/"), b = sub + "b",
                      c = sub + "c", d = sub + "d", path = "C:\\x/y\\a.b.txt",
                      unsized = QFile::exists("/proc/version") ? "/proc/version" : a;
        WriteFile(a, "new");
        QCOMPARE(u.GetFileFromPath(path) + u.GetFileFromPath("a.b"), "a.b.txt");
        QCOMPARE(u.GetPathFromFile(path) + u.GetPathFromFile("a.b"), "C:\\x/y");
        QCOMPARE(u.GetFileExtension(path) + u.GetFileExtension("txt") + u.GetFileVersion(a), "txt");
        QFile::setPermissions(a, QFile::permissions(a) | QFile::ExeOwner);
        QVERIFY(u.CreatePath(sub) && u.CreatePath("/") && u.CreatePath(sub.chopped(1) + "\\"));
        QVERIFY(u.CopyFile(folder.DatabasePath(), b) && u.CopyFile(a, b) &&
                QFile::permissions(b) == QFile::permissions(a));
        QVERIFY(u.CopyFile(unsized, c) && u.MoveFile(c, d) && u.FileExists(b));
        QVERIFY(u.DirectoryExists(u.SystemDirectory()) && u.DirectoryExists(u.ReturnTempPath()));
        QVERIFY(ReadFile(b) == "new" && ReadFile(d) == ReadFile(unsized));
        const QList<bool> refused = {
            u.FileExists(c),        u.FileExists(sub),       u.OpenFile(a),
            u.DirectoryExists(a),   u.FileDelete(" "),       u.FolderDelete(" "),
            u.CreatePath(c + "/c"), u.CreatePath(a),         u.CopyFile(sub, c),
            u.CopyFile(a, a),       u.CopyFile(a, sub),      u.MoveFile(sub, c),
            u.MoveFile(b, a),       u.MoveFile(b, c + "/c"), u.FileDelete(c),
            u.FolderDelete(c)};
        QCOMPARE(refused.indexOf(true), -1);
        QString reports;
        for (const QString& report : folder.TakeReports())
            reports += report.mid(8, 2) + report.section('[', -1).section('/', 0, 0) + ' ';
        QCOMPARE(reports, "76CreatePath 58CreatePath 53CopyFile 70CopyFile 76CopyFile 53CopyFile "
                          "58CopyFile 76CopyFile 53FileDelete 76FolderDelete ");
        QVERIFY(u.FileDelete(b) && u.FolderDelete(sub) && !u.CopyFile("x", "y"));
        QCOMPARE(folder.Files(), QStringList({"a", "Rankelo.MDB"}));
        QVERIFY(folder.TakeReports().value(0).contains("foundFailed copying [x] to [y] ["));
    }

    void readsIniValues() {
        const AppFolder folder;
        const QByteArray head = "[Application]\nFontName=", wide = QByteArray(253, 'x');
        const std::pair<QByteArray, QString> cases[] = {
            {HandEdited, "Liberation Sans"},
            {"FontName=a\n[Other]\nFontName=b", "default"},
            {"[Application]\na=1\n[Application]\nFontName=b", "default"}, // the first one counts
            {head + "\"", "\""},
            {head + "\"\"", "default"},
            {head + "\"  a  \"", "  a  "},
            {head + "\"a'", "\"a'"},
            {"\xEF\xBB\xBF" + head + "\xC3\xA9 ; b=c", "\u00e9 ; b=c"},
            {head + QByteArray("a\0b", 3), "a"},
            {head + wide + "xy", wide + 'x'},
            {head + wide + "\xF0\x9F\x98\x80", wide},
        };
        for (const auto& [file, value] : cases) {
            WriteFile(folder.IniPath(), file);
            QCOMPARE(
                AppUtilities().ReadINIValue(folder.IniPath(), "application", "FontName", "default"),
                value);
        }
    }

    void writingAnIniFileTouchesOneLine() {
        AppFolder folder;
        Utilities& u = AppUtilities();
        const QString ini = folder.IniPath();
        const struct {
            const char *section, *key, *value;
            QByteArray before, after; // the part that changes; none for what could not be read back
        } cases[] = {
            {"Application", "FontName", "a", "FONTNAME =  Liberation Sans  \r\n", "FontName=a\r\n"},
            {"Application", "Fresh", "a", "Footer=\r\n", "Footer=\r\nFresh=a\r\n"},
            {"New", "k", "a", "; the end", "; the end\r\n[New]\r\nk=a\r\n"},
            // Letters of an older editor stay while nobody edits them.
            {"Application", "Boss", "Ren\u00e9", "Boss", "Boss"},
            {"Application", "Boss", "a", "Boss=Ren\xE9\r\n", "Boss=a\r\n"},
            {"Application", "k", "a\nFooter=1", {}, {}},
            {"Application", "a=b", "a", {}, {}},
            {"Application", ";a", "a", {}, {}},
            {"", "k", "a", {}, {}},
            {"a]", "k", "a", {}, {}},
        };
        for (const auto& c : cases) {
            WriteFile(ini, HandEdited);
            const bool isWritten = u.WriteINIValue(ini, c.section, c.key, c.value);
            QVERIFY(isWritten != c.before.isEmpty() && isWritten == folder.TakeReports().isEmpty());
            QByteArray expected = HandEdited;
            if (isWritten)
                expected.replace(expected.indexOf(c.before), c.before.size(), c.after);
            QCOMPARE(ReadFile(ini), expected);
        }
        const QString zero(1, QChar());
        QVERIFY(!u.WriteINIValue(ini, "a", "b", zero) &&
                u.WriteSection(ini, "application", "a=1" + zero + "b=c=d" + zero));
        const qsizetype head = HandEdited.indexOf("# the"), end = HandEdited.indexOf("[Last]");
        QCOMPARE(ReadFile(ini), HandEdited.left(head) + "a=1\r\nb=c=d\r\n" + HandEdited.mid(end));
        const auto section = u.ReadINISection(ini, "APPLICATION");
        QVERIFY(section->LastIndex() == 1 && section->GetObject("B")->Value == "c=d");
    }
};

QTEST_GUILESS_MAIN(UtilitiesTest)
#include "UtilitiesTest.moc"
