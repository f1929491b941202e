#pragma once

#include <thread>

/// Lets the system look for its fonts in a thread of its own, where that takes as long as all else
/// that comes before the first screen. Needs no application object, and should begin before that is
/// made; it must have ended before the first text is measured, which would look for them again.
[[nodiscard]] std::jthread LookForFonts();
