#include "app/FontSearch.h"

#include <QFont>
#include <QFontMetrics>
#include <QString>

#include <fontconfig/fontconfig.h>

std::jthread LookForFonts() {
    return std::jthread([] { FcInit(); });
}

std::jthread ReadFonts(std::jthread search, const QFont& font) {
    // The thread makes a font of its own, for two threads must not use the same one.
    return std::jthread(
        [search = std::move(search), family = font.family(), points = font.pointSize()]() mutable {
            search = {}; // waits for its end
            const QFontMetrics metrics(QFont(family, points));
            (void)metrics.horizontalAdvance(u'x');
        });
}
