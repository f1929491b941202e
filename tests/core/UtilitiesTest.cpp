#include "core/Utilities.h"
#include "core/AppValues.h"
#include "support/AppFolder.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

class UtilitiesTest : public QObject {
    Q_OBJECT

private slots:
    void cutsPaths();
    void formatsDates();
    void keysAreDifferentAndCarryTheirTime();
    void filesAndFolders();
    void opensOnlyWhatExists();
};

void UtilitiesTest::cutsPaths() {
    const struct {
        const char* path;
        const char* file;
        const char* folder;
        const char* extension;
    } cases[] = {
        {"C:\\x\\y.txt", "y.txt", "C:\\x", "txt"},
        {"/x/y.txt", "y.txt", "/x", "txt"},
        {"/x\\y/a.b.txt", "a.b.txt", "/x\\y", "txt"},
        {"a.b.txt", "", "", "txt"},
        {"/", "", "", ""},
        {"x/", "", "x", ""},
        {"a.", "", "", ""},
        {"", "", "", ""},
    };
    Utilities& utilities = AppUtilities();
    for (const auto& c : cases) {
        const QString path = QString::fromLatin1(c.path);
        QCOMPARE(utilities.GetFileFromPath(path), QString::fromLatin1(c.file));
        QCOMPARE(utilities.GetPathFromFile(path), QString::fromLatin1(c.folder));
        QCOMPARE(utilities.GetFileExtension(path), QString::fromLatin1(c.extension));
    }
}

void UtilitiesTest::formatsDates() {
    AppFolder folder;
    const QString month = QLocale::system().monthName(3, QLocale::ShortFormat);
    const QString day = QStringLiteral("05/%1/2026").arg(month);
    const QString value = day + QStringLiteral(" 14:10:09");
    const struct {
        qint32 format;
        QString text;
    } cases[] = {
        {1, day},
        {2, value},
        {4, QStringLiteral("14:10:09")},
        {8, value},
        {16, day + QStringLiteral(" 00:00:00")},
        {32, day + QStringLiteral(" 23:59:59")},
        {64, QStringLiteral("20260305")},
        {128, QStringLiteral("20260305141009")},
    };
    Utilities& utilities = AppUtilities();
    for (const auto& c : cases) {
        for (const QString& input :
             {value, QStringLiteral("2026-03-05 14:10:09"), QStringLiteral("2026-03-05T14:10:09"),
              QStringLiteral(" 5/3/2026 14:10:09 ")})
            QCOMPARE(utilities.FormatDateTime(c.format, input), c.text);
        // What the program writes, it reads.
        const QString now = utilities.GetDateTime(2);
        QCOMPARE(utilities.FormatDateTime(2, now), now);
    }
    QCOMPARE(utilities.FormatDateTime(3, QStringLiteral("2026-03-05 14:10")),
             QStringLiteral("2026-03-05 14:10"));
    // A value without a time of day gets the current one first.
    for (const QString& midnight :
         {day, QStringLiteral("2026-03-05"), day + QStringLiteral(" 00:00:00")}) {
        QCOMPARE(utilities.FormatDateTime(1, midnight), day);
        const QString text = utilities.FormatDateTime(3, midnight);
        QVERIFY2(text.startsWith(day + u' ') && text.size() == value.size(), qPrintable(text));
    }
    QCOMPARE(folder.TakeReports(), QStringList());
    QCOMPARE(utilities.FormatDateTime(1, QStringLiteral("soon")), QString());
    QVERIFY(folder.TakeReports().join(u'\n').endsWith(u" [FormatDateTime/Utilities]"));
}

void UtilitiesTest::keysAreDifferentAndCarryTheirTime() {
    constexpr int many = 100500; // the counter in the key grows beyond its five digits
    const QRegularExpression digits(QStringLiteral("\\A[0-9]{26}\\z"));
    Utilities fresh;
    QSet<QString> keys;
    while (keys.size() < many) {
        const QString key = fresh.GenerateUnique();
        QVERIFY2(!keys.contains(key), qPrintable(key));
        keys.insert(key);
    }
    for (const QString& key : std::as_const(keys))
        QVERIFY2(digits.match(key).hasMatch(), qPrintable(key));
    const auto made = QDateTime::fromString(fresh.GenerateUnique().left(14), u"yyyyMMddHHmmss");
    QVERIFY(qAbs(made.secsTo(QDateTime::currentDateTime())) < 60);
}

void UtilitiesTest::filesAndFolders() {
    AppFolder folder;
    Utilities& utilities = AppUtilities();
    const QString a = folder.Path(QStringLiteral("a"));
    const QString b = folder.Path(QStringLiteral("b %1"));
    const QString sub = folder.Path(QStringLiteral("sub/"));
    const QString deep = folder.Path(QStringLiteral("x/y"));
    WriteFile(a, "new");
    WriteFile(b, "older and longer");

    QVERIFY(utilities.CopyFile(a, b));
    QCOMPARE(ReadFile(b), QByteArray("new"));
    QVERIFY(utilities.CreatePath(sub));
    QVERIFY(utilities.CreatePath(sub));
    QVERIFY(utilities.DirectoryExists(sub));
    QVERIFY(!utilities.FileExists(sub));
    QVERIFY(utilities.MoveFile(b, sub + u'b'));
    QVERIFY(!utilities.FileExists(b));
    QVERIFY(utilities.FolderDelete(sub));
    QVERIFY(!utilities.DirectoryExists(sub));
    QVERIFY(utilities.FileDelete(a));
    QVERIFY(!utilities.FileExists(a));
    for (const QString& blank : {QString(), QStringLiteral("  ")}) {
        QVERIFY(!utilities.FileExists(blank));
        QVERIFY(!utilities.DirectoryExists(blank));
        QVERIFY(!utilities.FileDelete(blank));
        QVERIFY(!utilities.FolderDelete(blank));
    }
    QCOMPARE(folder.TakeReports(), QStringList());

    WriteFile(a, "kept");
    const struct {
        std::function<bool()> action;
        QString end; // of the report
    } failures[] = {
        {[&] { return utilities.CopyFile(b, a); },
         QStringLiteral("File not foundFailed copying [%1] to [%2] [CopyFile/Utilities]")
             .arg(b, a)},
        {[&] { return utilities.CopyFile(a, a); }, QStringLiteral(" [CopyFile/Utilities]")},
        {[&] { return utilities.CopyFile(a, deep); }, QStringLiteral(" [CopyFile/Utilities]")},
        {[&] { return utilities.MoveFile(b, a); },
         QStringLiteral("File not foundFailed moving [%1] to [%2] [CopyFile/Utilities]").arg(b, a)},
        {[&] { return utilities.MoveFile(folder.DatabasePath(), a); },
         QStringLiteral(" [CopyFile/Utilities]")},
        {[&] { return utilities.CreatePath(deep); }, QStringLiteral(" [CreatePath/Utilities]")},
        {[&] { return utilities.CreatePath(a); }, QStringLiteral(" [CreatePath/Utilities]")},
        {[&] { return utilities.FileDelete(b); }, QStringLiteral(" [FileDelete/Utilities]")},
        {[&] { return utilities.FolderDelete(sub); }, QStringLiteral(" [FolderDelete/Utilities]")},
    };
    for (const auto& failure : failures) {
        QVERIFY(!failure.action());
        const QStringList reports = folder.TakeReports();
        QVERIFY2(reports.size() == 1 && reports[0].endsWith(failure.end),
                 qPrintable(reports.join(u'\n')));
    }
    QCOMPARE(ReadFile(a), QByteArray("kept"));
    QCOMPARE(folder.Files(), (QStringList{QStringLiteral("Rankelo.MDB"), QStringLiteral("a")}));
}

void UtilitiesTest::opensOnlyWhatExists() {
    const AppFolder folder;
    QStringList opened;
    App().OpenDocument = [&](const QString& path) {
        opened.append(path);
        return true;
    };
    QVERIFY(!AppUtilities().OpenFile(folder.Path(QStringLiteral("Rankelo.PDF"))));
    QVERIFY(AppUtilities().OpenFile(folder.DatabasePath()));
    QCOMPARE(opened, QStringList{folder.DatabasePath()});
    App().OpenDocument = nullptr;
}

QTEST_GUILESS_MAIN(UtilitiesTest)
#include "UtilitiesTest.moc"
