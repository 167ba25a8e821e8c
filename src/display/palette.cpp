// The sixteen-colour palette and the renderer's fixed colours.
#include "display/palette.h"

#include <array>

#include "model/settings.h"

namespace karvane::display {

Colour PaletteColour(int number) {
    static constexpr std::array<Colour, 16> table{
        Rgb(0, 0, 0),     Rgb(0, 0, 128),     Rgb(0, 128, 0),     Rgb(0, 128, 128),  Rgb(128, 0, 0), Rgb(128, 0, 128),
        Rgb(128, 128, 0), Rgb(192, 192, 192), Rgb(128, 128, 128), Rgb(0, 0, 255),    Rgb(0, 255, 0), Rgb(0, 255, 255),
        Rgb(255, 0, 0),   Rgb(255, 0, 255),   Rgb(255, 255, 0),   Rgb(255, 255, 255)};
    if (number < 0 || number > 15) return table[0];
    return table[static_cast<std::size_t>(number)];
}

Colour FixedColour(int index) {
    static constexpr std::array<int, 8> numbers{8, 2, 9, 13, 12, 14, 15, 11};
    if (index < 0 || index > 7) return PaletteColour(8);
    return PaletteColour(numbers[static_cast<std::size_t>(index)]);
}

} // namespace karvane::display
