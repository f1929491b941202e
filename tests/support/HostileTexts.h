#pragma once

#include <QList>
#include <QString>

/// A text that somebody may type, paste or store as the name of a team or a round.
struct HostileText {
    const char* What;
    QString Text;
    /// What a save through the data classes makes of it; the entry screens take the apostrophes
    /// away before.
    QString Stored;
    /// A text with a zero character is refused.
    bool IsRefused = false;
};

inline QList<HostileText> HostileTexts() {
    const auto same = [](const char* what, const QString& text) {
        return HostileText{what, text, text};
    };
    const QString half(QChar(0xD83D));
    const QString otherHalf(QChar(0xDE00));
    return {
        same("an apostrophe", QStringLiteral("O'Brien")),
        same("nothing but apostrophes", QStringLiteral("''''")),
        same("quotes of every kind", QStringLiteral("\"a\" `b` 'c' „d“ «e» ‘f’")),
        same("a statement", QStringLiteral("'); DROP TABLE Teams;--")),
        same("a comment", QStringLiteral("a -- b /* c */")),
        same("a placeholder", QStringLiteral("? :name @name $name ?1")),
        same("a pattern", QStringLiteral("%_[a-z]*")),
        same("a format", QStringLiteral("%1 %2 %s %n %99 {0}")),
        same("a backslash", QStringLiteral("\\'\\")),
        same("markup", QStringLiteral("<b>x</b><img src=\"file:///etc/passwd\">&amp;<br>")),
        same("a menu key", QStringLiteral("Tom & Jerry && Co")),
        same("line ends and a tab", QStringLiteral("a\nb\r\nc\td")),
        same("surrounding blanks", QStringLiteral("  a  ")),
        same("right to left", QStringLiteral("\u202Eabc\u202C \u200F\u05D0\u05D1 \u0627\u0644")),
        same("emoji", QStringLiteral("\U0001F9D1\u200D\U0001F680\U0001F1E9\U0001F1EA e\u0301")),
        same("invisible separators", QStringLiteral("a\uFEFF\u2028\u2029\u200B")),
        same("stacked marks", u'Z' + QString(500, QChar(0x0334))),
        same("10,000 characters", QString(10000, u'x')),
        {"a code that is no character", u'a' + QString(QChar(0xFFFE)),
         u'a' + QString(QChar::ReplacementCharacter)},
        {"half a character at the end", u'a' + half, QStringLiteral("a?")},
        {"half a character before an apostrophe", half + u'\'', QStringLiteral("?'")},
        {"half a character alone", otherHalf, QStringLiteral("?")},
        {"halves the wrong way round", otherHalf + half, QStringLiteral("??")},
        {"a zero character", QStringLiteral("a\0b"), QString(), true},
        {"a zero character before a statement", QStringLiteral("a\0'; DELETE FROM Teams"),
         QString(), true},
    };
}
