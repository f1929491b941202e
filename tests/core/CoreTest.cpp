#include "core/AppPaths.h"
#include "core/Guard.h"
#include "core/Logging.h"
#include "core/Numbers.h"
#include "core/ObjectMap.h"
#include "core/PadRight.h"
#include "core/RuntimeError.h"
#include "core/Session.h"
#include "core/Utilities.h"
#include "support/AppFolder.h"

#include <QLoggingCategory>
#include <QRegularExpression>
#include <QStringEncoder>
#include <QTest>

namespace {

// A number as text, or the number of the error that ends the action as "error 6".
QString outcome(const auto& action) {
    try {
        return QString::number(action());
    } catch (const RuntimeError& error) {
        return QString("error %1").arg(error.Number());
    }
}

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

class CoreTest : public QObject {
    Q_OBJECT

private slots:
    void convertsOrRefuses() {
        // "text|outcome"; halves go to the even neighbour, and %1 is the language's decimal point.
        const QString cases =
            "8454143|8454143; \t12 |12;+7|7;007|7;1e3|1000;0.5|0;7.5|8;8%15|8;-2.5|-2;.51|1;"
            "2147483647.4|2147483647;2147483647.5|error 6;-2147483648.5|-2147483648;1e999|error 6;"
            "-2147483649|error 6;|error 13;  |error 13;12a|error 13;1 2|error 13;1,000|error 13;"
            "0x10|error 13;inf|error 13;nan(1)|error 13;e5|error 13";
        for (const QString& c : cases.arg(QLocale::system().decimalPoint()).split(';')) {
            const QString text = c.section('|', 0, 0);
            // As the field of a row that another program wrote, of any type.
            for (const QVariant& field : {QVariant(text), QVariant(text.toUtf8())})
                QCOMPARE(outcome([&] { return ToInt32(field); }), c.section('|', 1));
        }
        QCOMPARE(outcome([] { return ToInt32(QVariant()); }), "error 94");
        QCOMPARE(outcome([] { return ToInt32(QVariant(qint64{1} << 31)); }), "error 6");
        QCOMPARE(outcome([] { return CheckedAdd(2147483647, -1); }), "2147483646");
        QCOMPARE(outcome([] { return CheckedAdd(2147483647, 1); }), "error 6");
        QCOMPARE(outcome([] { return CheckedSubtract(-2147483647, 1); }), "-2147483648");
        QCOMPARE(outcome([] { return CheckedSubtract(-2147483647, 2); }), "error 6");
        QCOMPARE(outcome([] { return CheckedMultiply(-1073741824, 2); }), "-2147483648");
        QCOMPARE(outcome([] { return CheckedMultiply(1073741824, 2); }), "error 6");
    }

    void padsColumns() {
        // "text|width|column"; one character to the eye is one of the column, and a text that is
        // too long is cut before it is trimmed.
        const QString cases =
            "|2|  ;abc|5|abc  ;abc|3|abc;abcdef|5|abcde ; ab |3|ab ;  abcd|3|  a ;"
            "ab|0| ;e\u0301e\u0301|3|e\u0301e\u0301 ;e\u0301e\u0301|1|e\u0301 ";
        for (const QString& c : cases.split(';'))
            QCOMPARE(PadRight(c.section('|', 0, 0), c.section('|', 1, 1).toInt()),
                     c.section('|', 2));
    }

    void listsAndMapsKeepWhatIsAdded() {
        ObjectList<int> list;
        for (int i = 0; i < 305; ++i) {
            QVERIFY(list.LastIndex() == i - 1 && !list.Item(i));
            QCOMPARE(list.SlotCount(), static_cast<std::size_t>(std::max(301, i)));
            QVERIFY(list.Add(std::make_shared<int>(i / 2))); // equal ones, but other objects
        }
        // Removal moves the later entries down and leaves the last one twice.
        const auto second = list.Item(1);
        QVERIFY(!list.Remove(nullptr) && list.Remove(second.get()) && !list.Remove(second.get()));
        QVERIFY(*list.Item(0) == 0 && *list.Item(1) == 1 && list.LastIndex() == 304);
        QVERIFY(list.Item(303) == list.Item(304) && list.LastItem() == list.Item(304));
        QCOMPARE(outcome([&] { return *list.Item(-1); }), "error 9");

        ObjectMap<int> map;
        for (const char* key : {"abc", "ABC", "\u00e4"})
            QVERIFY(map.Add(key, std::make_shared<int>(map.LastIndex())));
        QVERIFY(*map.GetObject("Abc") == -1 && *map.GetObject("\u00c4") == 1 && *map.Item(1) == 0);
        QVERIFY(!map.GetObject("ab") && map.SlotCount() == 301);
        map.Clear();
        QVERIFY(map.LastIndex() == -1 && !map.GetObject("abc"));
    }

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
        QVERIFY(!fresh.WasTaken());
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
        WriteFile(a, QByteArray(3 << 20, 'x'));
        QCOMPARE(u.GetFileFromPath(path) + u.GetFileFromPath("a.b"), "a.b.txt");
        QCOMPARE(u.GetPathFromFile(path) + u.GetPathFromFile("a.b"), "C:\\x/y");
        QCOMPARE(u.GetFileExtension(path) + u.GetFileExtension("txt") + u.GetFileVersion(a), "txt");
        QFile::setPermissions(a, QFile::permissions(a) | QFile::ExeOwner);
        QVERIFY(u.CreatePath(sub) && u.CreatePath("/") && u.CreatePath(sub.chopped(1) + "\\"));
        QVERIFY(u.CopyFile(folder.DatabasePath(), b) && u.CopyFile(a, b) &&
                QFile::permissions(b) == QFile::permissions(a));
        QVERIFY(u.CopyFile(unsized, c) && u.MoveFile(c, d) && u.FileExists(b));
        QVERIFY(u.DirectoryExists(u.SystemDirectory()) && u.DirectoryExists(u.ReturnTempPath()));
        QVERIFY(ReadFile(b) == ReadFile(a) && ReadFile(d) == ReadFile(unsized));
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
        const auto flag = QStringConverter::Flag::WriteBom;
        const std::pair<QByteArray, QString> cases[] = {
            {HandEdited, "Liberation Sans"},
            {"FontName=a\n[Other]\nFontName=b", "default"},
            {"[Application]\na=1\n[Application]\nFontName=b", "default"}, // the first one counts
            {" [Application]\n\tFontName=a", "a"},
            {head + "\"", "\""},
            {head + "\"\"", "default"},
            {head + "\"  a  \"", "  a  "},
            {head + "\"a'", "\"a'"},
            {"\xEF\xBB\xBF" + head + "\xC3\xA9 ; b=c", "\u00e9 ; b=c"},
            {QStringEncoder(QStringConverter::Utf16, flag)(head + "a"), "a"}, // of some editors
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
        // The section, the key and the value; what changes and what is there then, nothing for
        // what could not be read back.
        using Text = const char*;
        const std::tuple<Text, Text, Text, QByteArray, QByteArray> cases[] = {
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
        };
        for (const auto& [section, key, value, before, after] : cases) {
            WriteFile(ini, HandEdited);
            const bool isWritten = u.WriteINIValue(ini, section, key, value);
            QVERIFY(isWritten != before.isEmpty() && isWritten == folder.TakeReports().isEmpty());
            QByteArray expected = HandEdited;
            if (isWritten)
                expected.replace(expected.indexOf(before), before.size(), after);
            QCOMPARE(ReadFile(ini), expected);
        }
        const QString zero(1, QChar());
        QVERIFY(!u.WriteINIValue(ini, "a", "b", zero) &&
                u.WriteSection(ini, "application", {}) && // and into a section without keys
                u.WriteSection(ini, "application", "a=1" + zero + "b=c=d" + zero));
        const qsizetype head = HandEdited.indexOf("# the"), end = HandEdited.indexOf("[Last]");
        QCOMPARE(ReadFile(ini), HandEdited.left(head) + "a=1\r\nb=c=d\r\n" + HandEdited.mid(end));
        const auto section = u.ReadINISection(ini, "APPLICATION");
        QVERIFY(section->LastIndex() == 1 && section->GetObject("B")->Value == "c=d");
    }

    void writesOneHeaderInEachLayout() {
        // Each layout's header, and the pattern of a record. A field that is too long is cut, and
        // shifts the rest of its line by a blank.
        const std::pair<QString, QString> layouts[] = {
            {"Type Data/Time             Component      Version Msg Number     Function            "
             "Object              Session                       Username       Machine Name   "
             "Description\r\n" +
                 QString(100, '-') + "\r\n",
             "4    %1 +1\\.0\\.0   9700           SaveTheTeamOfTheTabl TeamDAO             "
             "%2 {19}%3 +\\[53\\] \"x\", no\r\n"},
            {"Type,Data/Time,Component,Version,Message Number,Function,Object,Session,Username,"
             "MachineName,Description\r\n",
             "4,%1,v1\\.0\\.CoreTest,1\\.0\\.0,9700,SaveTheTeamOfTheTable,TeamDAO,%2,,%3,"
             "\"\\[53\\] \"x\", no\"\r\n"},
        };
        for (qint32 destination = 1; const auto& [header, record] : layouts) {
            const AppFolder folder;
            Logging log;
            log.SetLogPath(' ' + Paths().TempPath.chopped(destination % 2) + ' ');
            QCOMPARE(log.LogPath(), Paths().TempPath);
            log.LogDestination = destination++;
            QStringList shown; // whether it is written or not
            log.ShowError = [&](const QString& text) { shown.append(text); };
            for (log.DebugLevel = 3; log.DebugLevel <= 5; ++log.DebugLevel)
                QCOMPARE(log.ProgramError(53, "\"x\", no", "SaveTheTeamOfTheTable", "TeamDAO"),
                         log.DebugLevel >= 4);
            QCOMPARE(shown,
                     QStringList(3, "9700 : [53] \"x\", no [SaveTheTeamOfTheTable/TeamDAO]"));
            for (const qint32 quietType : {8, 16, 32}) // the last error stays the last message
                QVERIFY(!log.Record(quietType, 1099, {}, {}, {}) && log.MessageType() == 4 &&
                        log.MessageNumber() == 9700);
            const QString text = ReadFile(folder.Path("ISApplication.Log"));
            const QString pattern =
                record.arg("\\d\\d/.+/\\d{4} \\d\\d:\\d\\d:\\d\\d", AppSession().SessionID,
                           QRegularExpression::escape(AppSession().MachineName));
            const QRegularExpression records("\\A(" + pattern + "){2}\\z");
            QVERIFY2(text.startsWith(header) && records.match(text.mid(header.size())).hasMatch(),
                     qPrintable(text));
        }
    }

    void aSessionEndsWithANotice() {
        const AppFolder folder;
        AppLog().DebugLevel = 32;
        qputenv("USERNAME", "Ann");
        QVERIFY(Session().PCUsername == "Ann" && Session().CreatedDate.contains(':'));
        QVERIFY(ReadFile(folder.Path("ISApplication.Log")).endsWith("Class Terminate\r\n"));
    }

    void developersSeeWhatIsSwallowed() {
        AppFolder folder;
        AppLog().SetLogPath(folder.Path("missing"));
        AppLog().DebugLevel = 4;
        AppLog().ShowError = [](const QString&) { throw 1; };
        const QString lost = "lost a record for " + AppLog().LogPath();
        const std::pair<int (*)(), const char*> failures[] = {
            {[]() -> int { throw RuntimeError(53, "no file"); }, "[53] no file [P/C]"},
            {[]() -> int { throw std::bad_alloc(); }, "[7] Out of memory [P/C]"},
            {[]() -> int { throw std::runtime_error("why"); }, "[5] why [P/C]"},
            {[]() -> int { throw 1; }, "[5] Unknown error [P/C]"},
        };
        QTest::failOnWarning(QRegularExpression("."));
        for (const auto& [body, message] : failures) {
            QCOMPARE(Guarded("P", "C", 7, body), 7); // in silence, although the box fails as well
            QLoggingCategory::setFilterRules("rankelo.errors=true");
            for (const QString& text : {QString(message), lost})
                QTest::ignoreMessage(QtWarningMsg, qPrintable(text));
            QCOMPARE(Guarded("P", "C", 7, body), 7);
            QLoggingCategory::setFilterRules({});
        }
    }
};

QTEST_GUILESS_MAIN(CoreTest)
#include "CoreTest.moc"
