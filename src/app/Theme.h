#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;
class QWidget;

/// The one look of every screen: colours, spacing, icons. It follows the desktop's choice between
/// light and dark.
namespace Theme {

/// The blue of an entry box that has the focus; the program's one accent.
inline constexpr QColor Accent{0, 153, 204};
/// The spacing unit in device-independent pixels; every margin and gap is a multiple of it.
inline constexpr int Unit = 8;
/// Sides of button and row pictures in device-independent pixels.
inline constexpr int TileIcon = 48;
inline constexpr int ButtonIcon = 24;

/// Sets style, palette, font and the icon of the program. To be called once, before the first
/// screen.
void Apply(QApplication& application);

/// Whether the screens stand light on dark.
bool IsDark();

/// The colour of a button's text that warns of what it does.
QColor Warning();

/// A picture of the icon family by its name, such as "add", in the set that suits the palette.
QIcon Icon(const QString& name);

/// The same for a row of a list, which is dark in either palette while it is selected. Reads files:
/// one picture serves all rows.
QIcon RowIcon(const QString& name);

/// Gives a window its size in spacing units; less where its screen has less room beside a title
/// bar.
void Resize(QWidget& window, int width, int height);

} // namespace Theme
