#include "app/Theme.h"

#include "app/LookStyle.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QScreen>
#include <QWidget>
#include <QtMath>

#include <algorithm>

namespace {

struct Shades {
    QColor window, base, alternate, text, button, border, highlight, focus, muted;
};

// Borders and the focus stand out from what is around them by more than 3:1, texts by 4.5:1.
const Shades Light{{0xF3, 0xF6, 0xF8}, {0xFF, 0xFF, 0xFF}, {0xF3, 0xF8, 0xFB},
                   {0x1F, 0x2A, 0x33}, {0xFF, 0xFF, 0xFF}, {0x5C, 0x6A, 0x76},
                   {0x00, 0x6F, 0x94}, {0x00, 0x6F, 0x94}, {0x55, 0x65, 0x70}};
const Shades Dark{{0x1E, 0x25, 0x2B}, {0x16, 0x1B, 0x20}, {0x1B, 0x21, 0x27},
                  {0xE8, 0xEE, 0xF2}, {0x2A, 0x33, 0x3B}, {0x84, 0x93, 0x9F},
                  {0x00, 0x74, 0x9B}, {0x4C, 0xC3, 0xEE}, {0xA3, 0xB1, 0xBC}};

QPalette paletteOf(const Shades& shades) {
    QPalette palette(shades.button, shades.window);
    palette.setColor(QPalette::Base, shades.base);
    palette.setColor(QPalette::AlternateBase, shades.alternate);
    palette.setColor(QPalette::ToolTipBase, shades.base);
    palette.setColor(QPalette::ToolTipText, shades.text);
    palette.setColor(QPalette::PlaceholderText, shades.muted);
    palette.setColor(QPalette::WindowText, shades.text);
    palette.setColor(QPalette::Text, shades.text);
    palette.setColor(QPalette::ButtonText, shades.text);
    palette.setColor(QPalette::Mid, shades.border);
    palette.setColor(QPalette::Link, shades.focus);
    palette.setColor(QPalette::Highlight, shades.highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, shades.muted);
    return palette;
}

// The file for the sharpest screen, which Qt draws smaller where that is too much. If it were left
// to find the "@2x" of a file itself, it would enlarge the plain one at 125 %.
QString fileOf(const QString& name, bool dark) {
    const int scale = qBound(1, qCeil(qApp->devicePixelRatio()), 3);
    return QStringLiteral(":/icons/%1/%2x/%3.png")
        .arg(QLatin1StringView(dark ? "dark" : "light"))
        .arg(scale)
        .arg(name);
}

QIcon programIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/icons/app/%1.png").arg(side));
    return icon;
}

} // namespace

// Outside any namespace, as the macro demands; the library would otherwise drop the pictures.
static void keepIcons() {
    Q_INIT_RESOURCE(icons);
}

void Theme::Apply(QApplication& application) {
    keepIcons();
    const bool dark = IsDark();
    application.setStyle(new LookStyle(Unit));
    application.setPalette(paletteOf(dark ? Dark : Light));
    // Who set the desktop to larger letters needs them here as well.
    constexpr double readablePoints = 11;
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(std::max(readablePoints, QApplication::font().pointSizeF()));
    application.setFont(font);
    application.setWindowIcon(programIcon());
}

bool Theme::IsDark() {
    const QPalette palette = QApplication::palette();
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

QColor Theme::Warning() {
    return IsDark() ? QColor(0xFF, 0xA0, 0x94) : QColor(0xB3, 0x1D, 0x12);
}

QIcon Theme::Icon(const QString& name) {
    return QIcon(fileOf(name, IsDark()));
}

QIcon Theme::RowIcon(const QString& name) {
    QIcon icon = Icon(name);
    const QString onDark = fileOf(name, true);
    icon.addFile(onDark, QSize(), QIcon::Selected);
    icon.addFile(onDark, QSize(), QIcon::Active); // in the list that a chooser drops down
    return icon;
}

void Theme::Resize(QWidget& window, int width, int height) {
    constexpr QSize titleBar(0, 5 * Unit);
    window.resize(
        (QSize(width, height) * Unit).boundedTo(window.screen()->availableSize() - titleBar));
}
