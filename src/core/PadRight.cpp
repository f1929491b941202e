#include "core/PadRight.h"

#include <QList>
#include <QTextBoundaryFinder>

namespace {

// The position behind each character that a person sees.
QList<qsizetype> characterEnds(const QString& text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    QList<qsizetype> ends;
    while (finder.toNextBoundary() >= 0)
        ends.append(finder.position());
    return ends;
}

} // namespace

qsizetype CharacterCount(const QString& text) {
    return characterEnds(text).size();
}

QString PadRight(const QString& text, int width) {
    const QString trimmed = text.trimmed();
    const qsizetype room = width - CharacterCount(trimmed);
    if (room >= 0)
        return trimmed + QString(room, u' ');
    return text.left(characterEnds(text).value(width - 1)) + u' ';
}
