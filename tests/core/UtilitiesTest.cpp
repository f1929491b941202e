#include "core/Utilities.h"
#include "support/AppFolder.h"

#include <QDateTime>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class UtilitiesTest : public QObject {
    Q_OBJECT

private slots:
    void cutsPaths() {
        const QString path = u"C:\\x/y\\a.b.txt"_s; // the separators of both systems
        QCOMPARE(AppUtilities().GetFileFromPath(path), u"a.b.txt"_s);
        QCOMPARE(AppUtilities().GetPathFromFile(path), u"C:\\x/y"_s);
        QCOMPARE(AppUtilities().GetFileExtension(path), u"txt"_s);
        QCOMPARE(AppUtilities().GetPathFromFile(u"a.b.txt"_s), QString());
    }

    void formatsDates() {
        AppFolder folder;
        const QString day =
            u"05/%1/2026"_s.arg(QLocale::system().monthName(3, QLocale::ShortFormat));
        const QString time = day + u" 14:10:09"_s;
        const std::pair<qint32, QString> cases[] = {
            {1, day},
            {2, time},
            {16, day + u" 00:00:00"_s},
            {32, day + u" 23:59:59"_s},
            {64, u"20260305"_s},
            {128, u"20260305141009"_s},
        };
        for (const auto& [format, text] : cases)
            for (const QString& input : {time, u"2026-03-05T14:10:09"_s, u" 5/3/2026 14:10:09 "_s})
                QCOMPARE(AppUtilities().FormatDateTime(format, input), text);
        // A value without a time of day gets the current one first.
        QVERIFY(AppUtilities().FormatDateTime(2, day).startsWith(day + u' '));
        QCOMPARE(folder.TakeReports(), QStringList());
        QCOMPARE(AppUtilities().FormatDateTime(1, u"soon"_s), QString());
        QCOMPARE(folder.TakeReports().size(), 1);
    }

    void keysAreDifferentAndCarryTheirTime() {
        Utilities fresh;
        QSet<QString> keys;
        QString key;
        for (int i = 0; i < 100500; ++i) { // the counter grows beyond its five digits
            key = fresh.GenerateUnique();
            QVERIFY2(key.size() == 26 && !keys.contains(key), qPrintable(key));
            keys.insert(key);
        }
        const auto made = QDateTime::fromString(key.left(14), u"yyyyMMddHHmmss");
        QVERIFY(qAbs(made.secsTo(QDateTime::currentDateTime())) < 60);
    }

    void filesAndFolders() {
        AppFolder folder;
        Utilities& utilities = AppUtilities();
        const QString a = folder.Path(u"a"_s);
        const QString sub = folder.Path(u"sub %1/"_s);
        WriteFile(a, "new");
        QVERIFY(utilities.CreatePath(sub) && utilities.CreatePath(sub));
        WriteFile(sub + u'b', "older and longer");
        QVERIFY(utilities.CopyFile(a, sub + u'b') && utilities.MoveFile(sub + u'b', sub + u'c'));
        QVERIFY(ReadFile(sub + u'c') == "new" && !utilities.FileExists(sub + u'b'));
        QVERIFY(utilities.FolderDelete(sub) && !utilities.DirectoryExists(sub));
        QVERIFY(!utilities.FileDelete(u" "_s) && !utilities.FolderDelete({}));
        QCOMPARE(folder.TakeReports(), QStringList());

        QVERIFY(!utilities.CopyFile(sub, a) && !utilities.CopyFile(a, a));
        QVERIFY(!utilities.CopyFile(a, sub) && !utilities.MoveFile(folder.DatabasePath(), a));
        QCOMPARE(folder.TakeReports().size(), 4);
        QCOMPARE(folder.Files(), (QStringList{u"Rankelo.MDB"_s, u"a"_s}));
        QCOMPARE(ReadFile(a), "new"_ba);
    }
};

QTEST_GUILESS_MAIN(UtilitiesTest)
#include "UtilitiesTest.moc"
