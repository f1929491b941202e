#pragma once

/// Gives core what needs a desktop: the log its error box, the utilities the way to open a
/// document with the desktop's program for it.
void ConnectDesktop();
