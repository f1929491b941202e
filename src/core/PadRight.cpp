#include "core/PadRight.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace {

// The number of characters that a person sees, at most `limit` of them; `end` is set to the
// position in the text behind the last one counted.
int countCharacters(const QString& text, int limit, qsizetype& end) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    end = 0;
    while (count < limit) {
        const qsizetype next = finder.toNextBoundary();
        if (next < 0)
            break;
        end = next;
        ++count;
    }
    return count;
}

} // namespace

QString PadRight(const QString& text, int width) {
    const QString trimmed = text.trimmed();
    qsizetype end = 0;
    const int length = countCharacters(trimmed, width, end);
    if (end == trimmed.size())
        return trimmed + QString(std::max(0, width - length), u' ');
    countCharacters(text, width, end);
    return text.left(end) + u' ';
}
