#pragma once

#include <QList>
#include <QString>

/// A text that somebody may type, paste or store as the name of a team or a round.
struct HostileText {
    const char* What;
    QString Text;
    QString Stored = Text; ///< what a save through the data classes makes of it
    bool IsRefused = Text.contains(QChar(0));
    QString Pasted =
        Stored; ///< what the entry screens make of it: a line that ends in "|" is one record
};

inline QList<HostileText> HostileTexts() {
    const QString half(QChar(0xD83D));
    const QString otherHalf(QChar(0xDE00));
    return {
        {"nothing but apostrophes", "''''"},
        {"quotes of every kind", "O'Brien \"a\" `b` 'c' „d“ «e» ‘f’"},
        {"a statement", "'); DROP TABLE Teams;--/* c */ ? :name $1 %_[a-z]*"},
        {"markup and formats", "<b>x</b><img src=\"/etc/passwd\">&amp;<br> %1 %s %n %99 {0} \\"},
        {"a menu key", "Tom & Jerry && Co"},
        {.What = "a column", .Text = "a\nb \r\n \r\n\tc\t\td\r", .Pasted = "a|b |c d|"},
        {.What = "a line end and a tab", .Text = "a\tb\r\n", .Pasted = "a b"},
        {"surrounding blanks", "  a  "},
        {"right to left", "\u202Eabc\u202C \u200F\u05D0\u05D1 \u0627\u0644"},
        {"emoji", "\U0001F9D1\u200D\U0001F680\U0001F1E9\U0001F1EA e\u0301"},
        {.What = "separators", .Text = "a\uFEFF\u2028\u2029\u200B", .Pasted = "a\uFEFF|\u200B|"},
        {"stacked marks", u'Z' + QString(500, QChar(0x0334))},
        {"10,000 characters", QString(10000, u'x')},
        {"a code that is no character", u'a' + QString(QChar(0xFFFE)), "a\uFFFD"},
        {"half a character before an apostrophe", half + u'\'', "?'"},
        {"halves the wrong way round", otherHalf + half, "??"},
        {"a zero character", QStringLiteral("a\0'; DELETE FROM Teams")}};
}
