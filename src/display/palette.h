// The fixed colours of the display: the classic sixteen-colour palette by number, and the
// eight fixed colours that the renderer uses for dimmed, selected and contaminated airways.
#pragma once

#include "display/surface.h"

namespace karvane::display {

// Colour number 0..15 of the sixteen-colour palette; other numbers give black.
Colour PaletteColour(int number);

// FixedColours(0..7): palette numbers 8, 2, 9, 13, 12, 14, 15, 11. Index 0 is dark grey (dimmed
// airways), index 6 bright white (error marks and selections).
Colour FixedColour(int index);

inline constexpr int DarkGreyIndex = 0;
inline constexpr int WhiteIndex = 6;

} // namespace karvane::display
