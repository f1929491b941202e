#pragma once

#include <thread>

class QFont;

/// Lets the system look for its fonts in a thread of its own, where that takes as long as all else
/// that comes before the first screen. Needs no application object, and should begin before that is
/// made.
[[nodiscard]] std::jthread LookForFonts();

/// Goes on after the search: reads the list of fonts, and what stands in for the font where it has
/// no letter. Needs the application object, which must outlive the thread. The thread must have
/// ended before the first text is measured, which would do the same again.
[[nodiscard]] std::jthread ReadFonts(std::jthread search, const QFont& font);
