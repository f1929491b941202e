#include "core/Utilities.h"
#include "core/AppValues.h"
#include "support/AppFolder.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

class UtilitiesTest : public QObject {
    Q_OBJECT

private slots:
    void cutsPaths();
    void formatsDates();
    void keysAreDifferentAndCarryTheirTime();
    void filesAndFolders();
};

void UtilitiesTest::cutsPaths() {
    const QString path = u"C:\\x/y\\a.b.txt"_s; // the separators of both systems
    QCOMPARE(AppUtilities().GetFileFromPath(path), u"a.b.txt"_s);
    QCOMPARE(AppUtilities().GetPathFromFile(path), u"C:\\x/y"_s);
    QCOMPARE(AppUtilities().GetFileExtension(path), u"txt"_s);
    QCOMPARE(AppUtilities().GetPathFromFile(u"a.b.txt"_s), QString());
}

void UtilitiesTest::formatsDates() {
    AppFolder folder;
    const QString day = u"05/%1/2026"_s.arg(QLocale::system().monthName(3, QLocale::ShortFormat));
    const QString value = day + u" 14:10:09"_s;
    const std::pair<qint32, QString> cases[] = {
        {1, day},
        {2, value},
        {16, day + u" 00:00:00"_s},
        {32, day + u" 23:59:59"_s},
        {64, u"20260305"_s},
        {128, u"20260305141009"_s},
    };
    for (const auto& [format, text] : cases)
        for (const QString& input : {value, u"2026-03-05T14:10:09"_s, u" 5/3/2026 14:10:09 "_s})
            QCOMPARE(AppUtilities().FormatDateTime(format, input), text);
    // A value without a time of day gets the current one first.
    const QString text = AppUtilities().FormatDateTime(3, day);
    QVERIFY2(text.startsWith(day + u' ') && text.size() == value.size(), qPrintable(text));
    QCOMPARE(folder.TakeReports(), QStringList());
    QCOMPARE(AppUtilities().FormatDateTime(1, u"soon"_s), QString());
    QVERIFY(folder.TakeReports().join(u'\n').endsWith(u" [FormatDateTime/Utilities]"));
}

void UtilitiesTest::keysAreDifferentAndCarryTheirTime() {
    constexpr int many = 100500; // the counter in the key grows beyond its five digits
    const QRegularExpression digits(u"\\A[0-9]{26}\\z"_s);
    Utilities fresh;
    QSet<QString> keys;
    while (keys.size() < many) {
        const QString key = fresh.GenerateUnique();
        QVERIFY2(digits.match(key).hasMatch() && !keys.contains(key), qPrintable(key));
        keys.insert(key);
    }
    const auto made = QDateTime::fromString(fresh.GenerateUnique().left(14), u"yyyyMMddHHmmss");
    QVERIFY(qAbs(made.secsTo(QDateTime::currentDateTime())) < 60);
}

void UtilitiesTest::filesAndFolders() {
    AppFolder folder;
    Utilities& utilities = AppUtilities();
    const QString a = folder.Path(u"a"_s);
    const QString b = folder.Path(u"b %1"_s);
    const QString sub = folder.Path(u"sub/"_s);
    WriteFile(a, "new");
    WriteFile(b, "older and longer");
    QStringList opened;
    App().OpenDocument = [&](const QString& path) {
        opened.append(path);
        return true;
    };
    QVERIFY(utilities.CopyFile(a, b));
    QCOMPARE(ReadFile(b), "new"_ba);
    QVERIFY(utilities.OpenFile(b));
    QVERIFY(utilities.CreatePath(sub) && utilities.CreatePath(sub));
    QVERIFY(utilities.MoveFile(b, sub + u'b'));
    QVERIFY(!utilities.FileExists(b) && !utilities.OpenFile(b));
    QCOMPARE(opened, QStringList{b});
    QVERIFY(utilities.FolderDelete(sub) && !utilities.DirectoryExists(sub));
    QVERIFY(!utilities.FileDelete(u" "_s) && !utilities.FolderDelete({}));
    QCOMPARE(folder.TakeReports(), QStringList());
    App().OpenDocument = nullptr;

    const std::function<bool()> failures[] = {
        [&] { return utilities.CopyFile(b, a); },
        [&] { return utilities.CopyFile(a, a); },
        [&] { return utilities.CopyFile(a, folder.Path(u"x/a"_s)); },
        [&] { return utilities.MoveFile(folder.DatabasePath(), a); },
    };
    for (const auto& action : failures) {
        QVERIFY(!action());
        const QString report = folder.TakeReports().join(u'\n');
        QVERIFY2(report.endsWith(u"a] [CopyFile/Utilities]"), qPrintable(report));
    }
    QCOMPARE(ReadFile(a), "new"_ba);
    QCOMPARE(folder.Files(), (QStringList{u"Rankelo.MDB"_s, u"a"_s}));
}

QTEST_GUILESS_MAIN(UtilitiesTest)
#include "UtilitiesTest.moc"
