#pragma once

class QWidget;

/// The one focus behaviour of all text boxes.
namespace TextBoxFocus {

/// Selects the whole text, caret at its start, and turns the box blue. Does nothing to a control
/// that is not a text box.
void Gained(QWidget* control);

/// Removes every apostrophe from the text and turns the box white. Does nothing to a control that
/// is not a text box.
void Lost(QWidget* control);

/// Blue and white, as above, or the colours that the box has without them.
enum class Colors { BlueAndWhite, Palette };

/// Runs both routines whenever the text box is entered and left. Leaving it for another program or
/// for a message box is not leaving it.
void Attach(QWidget* textBox, Colors colors = Colors::BlueAndWhite);

} // namespace TextBoxFocus
