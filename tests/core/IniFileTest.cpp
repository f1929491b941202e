#include "core/Utilities.h"
#include "support/AppFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray HandEdited =
    "; my settings\r\n\r\nstray = 1\r\n[Other]\r\nFontName=Wrong\r\n[ application ]\r\n"
    "# the board\r\nFONTNAME =  Liberation Sans  \r\nno equals sign\r\n=no key\r\nUnknown=7\r\n"
    "FontName=Later\r\nBoss=Ren\xE9\r\nFooter=\r\n\r\n; about the next section\r\n[Last]\r\na=b\r\n"
    "[Application]\r\nBoss=Second\r\nOnly=Here\r\n; the end";

} // namespace

class IniFileTest : public QObject {
    Q_OBJECT

private slots:
    void readsValues() {
        const AppFolder folder;
        const QByteArray head = "[Application]\nFontName=";
        const QString wide = QString(253, u'x') + u"\U0001F600"_s;
        const std::pair<QByteArray, QString> cases[] = {
            {HandEdited, u"Liberation Sans"_s},
            {"FontName=a", u"default"_s},
            {"[Application]\na=1\n[Application]\nFontName=b", u"default"_s}, // the first one counts
            {head + "Ren\xE9", u"René"_s},
            {head + "\"\"", u"default"_s},
            {head + "\"  a  \"", u"  a  "_s},
            {head + "\"a'", u"\"a'"_s},
            {head + "a ; b=c", u"a ; b=c"_s},
            {"\xEF\xBB\xBF" + head + "\xC3\xA9", u"é"_s},
            {head + "a\0b"_ba, u"a"_s},
            {head + wide.toUtf8(), wide.left(253)},
        };
        for (const auto& [file, value] : cases) {
            WriteFile(folder.IniPath(), file);
            QCOMPARE(AppUtilities().ReadINIValue(folder.IniPath(), u"Application"_s, u"FontName"_s,
                                                 u"default"_s),
                     value);
        }
        const auto section = AppUtilities().ReadINISection(folder.IniPath(), u"application"_s);
        QVERIFY(section->LastIndex() == 0 && section->GetObject(u"FONTNAME"_s));
    }

    void writingTouchesOneLine() {
        AppFolder folder;
        const QString app = u"Application"_s;
        const QString value = u"new"_s;
        const struct {
            QString section, key, value;
            const char* before; // the part of the file that changes; none when it is refused
            const char* after;
        } cases[] = {
            {app, u"FontName"_s, value, "FONTNAME =  Liberation Sans  \r\n", "FontName=new\r\n"},
            {app, u"Fresh"_s, value, "Footer=\r\n", "Footer=\r\nFresh=new\r\n"},
            {u"New"_s, u"k"_s, value, "; the end", "; the end\r\n[New]\r\nk=new\r\n"},
            // Letters of an older editor stay while nobody edits them.
            {app, u"Boss"_s, u"René"_s, "Boss", "Boss"},
            {app, u"Boss"_s, value, "Boss=Ren\xE9\r\n", "Boss=new\r\n"},
            // What could not be read back.
            {app, u"k"_s, u"a\nFooter=1"_s, "", ""},
            {app, u"k"_s, u"a\0b"_s, "", ""},
            {app, u"a=b"_s, value, "", ""},
            {app, u";a"_s, value, "", ""},
            {app, {}, value, "", ""},
            {u"a]"_s, u"k"_s, value, "", ""},
        };
        for (const auto& c : cases) {
            const bool isRefused = c.before == ""_L1;
            WriteFile(folder.IniPath(), HandEdited);
            QCOMPARE(AppUtilities().WriteINIValue(folder.IniPath(), c.section, c.key, c.value),
                     !isRefused);
            QCOMPARE(folder.TakeReports().size(), isRefused ? 1 : 0);
            QByteArray expected = HandEdited;
            if (!isRefused)
                expected.replace(expected.indexOf(c.before), qstrlen(c.before), c.after);
            QCOMPARE(ReadFile(folder.IniPath()), expected);
        }
    }
};

QTEST_GUILESS_MAIN(IniFileTest)
#include "IniFileTest.moc"
