#pragma once

class QString;

/// Gives core what needs a desktop: the log its error box, shown while the setting `DebugMode` is
/// "1", and the utilities the way to open a document with the desktop's program for it.
void ConnectDesktop();

/// The box of a program error, over the window in use.
void ShowErrorBox(const QString& text);
