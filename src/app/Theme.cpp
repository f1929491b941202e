#include "app/Theme.h"

#include "app/LookStyle.h"

#include <QApplication>
#include <QFont>
#include <QHash>
#include <QImageReader>
#include <QPalette>
#include <QPixmap>

namespace {

struct Shades {
    QColor window, base, alternate, text, button, border, highlight, muted;
};

const Shades Light{{0xF3, 0xF6, 0xF8}, {0xFF, 0xFF, 0xFF}, {0xF3, 0xF8, 0xFB}, {0x1F, 0x2A, 0x33},
                   {0xFF, 0xFF, 0xFF}, {0xC3, 0xCD, 0xD5}, {0x00, 0x6F, 0x94}, {0x55, 0x65, 0x70}};
const Shades Dark{{0x1E, 0x25, 0x2B}, {0x16, 0x1B, 0x20}, {0x1B, 0x21, 0x27}, {0xE8, 0xEE, 0xF2},
                  {0x2A, 0x33, 0x3B}, {0x4A, 0x57, 0x62}, {0x00, 0x74, 0x9B}, {0xA3, 0xB1, 0xBC}};

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
    palette.setColor(QPalette::Link, shades.highlight);
    palette.setColor(QPalette::Highlight, shades.highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, shades.muted);
    return palette;
}

// Says that it is a PNG, for a reader that has to find out loads the decoders of all other kinds.
QPixmap read(const QString& file) {
    QImageReader reader(file, "png");
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImageReader(&reader);
}

// The picture called name with the modes up to the last. Each is decoded once, for that is a third
// of opening a screen with many buttons. They are never destroyed: pictures must not outlive the
// application object.
QIcon known(const QString& name, QIcon::Mode last) {
    static auto& icons = *new QHash<std::pair<QString, QIcon::Mode>, QIcon>;
    const auto file = [&](const char* set) {
        return QStringLiteral(":/icons/%1/%2.png").arg(QLatin1StringView(set), name);
    };
    const QString normal = file(Theme::IsDark() ? "dark" : "light");
    QIcon& icon = icons[{normal, last}];
    if (icon.isNull()) {
        icon.addPixmap(read(normal));
        if (last == QIcon::Selected) {
            const QPixmap onDark = read(file("dark"));
            icon.addPixmap(onDark, QIcon::Selected);
            icon.addPixmap(onDark, QIcon::Active); // in the list that a chooser drops down
        }
    }
    return icon;
}

QIcon programIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(read(QStringLiteral(":/icons/app/%1.png").arg(side)));
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
    application.setStyle(new LookStyle(Accent));
    application.setPalette(paletteOf(dark ? Dark : Light));
    constexpr int readablePoints = 11;
    application.setFont(QFont(QStringLiteral("Arial"), readablePoints));
    application.setWindowIcon(programIcon());
}

bool Theme::IsDark() {
    const QPalette palette = QApplication::palette();
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

QIcon Theme::Icon(const QString& name) {
    return known(name, QIcon::Normal);
}

QIcon Theme::RowIcon(const QString& name) {
    return known(name, QIcon::Selected);
}
