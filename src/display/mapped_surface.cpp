// Box mapping and text measurement of the core's surfaces.
#include "display/mapped_surface.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace karvane::display {

namespace {

// Advance widths of the printable ASCII characters in thousandths of an em, of a plain
// sans-serif face; other characters count as a digit.
constexpr std::array<short, 95> kWidths{278, 278, 355, 556, 556, 889, 667,  191, 333, 333, 389, 584, 278,
                                        333, 278, 278,                                                    // ' ' .. '/'
                                        556, 556, 556, 556, 556, 556, 556,  556, 556, 556,                // '0' .. '9'
                                        278, 278, 584, 584, 584, 556, 1015,                               // ':' .. '@'
                                        667, 667, 722, 722, 667, 611, 778,  722, 278, 500, 667, 556, 833, // 'A' .. 'M'
                                        722, 778, 667, 778, 722, 667, 611,  722, 667, 944, 667, 667, 611, // 'N' .. 'Z'
                                        278, 278, 278, 469, 556, 333,                                     // '[' .. '`'
                                        556, 556, 500, 556, 556, 278, 556,  556, 222, 222, 500, 222, 833, // 'a' .. 'm'
                                        556, 556, 556, 556, 333, 500, 278,  556, 500, 722, 500, 500, 500, // 'n' .. 'z'
                                        334, 260, 334, 584};                                              // '{' .. '~'

} // namespace

double SansTextWidthEm(std::string_view text, bool bold) {
    double total = 0;
    for (char c : text) {
        const auto u = static_cast<unsigned char>(c);
        total += (u >= 32 && u <= 126) ? kWidths[u - 32] : 556;
    }
    return total / 1000 * (bold ? 1.06 : 1.0);
}

MappedSurface::MappedSurface(int width, int height) : Width(width > 0 ? width : 1), Height(height > 0 ? height : 1) {
    BoxWidth = static_cast<float>(Width);
    BoxHeight = static_cast<float>(Height);
}

void MappedSurface::SetPage(double widthMm, double heightMm, double dotsPerInch) {
    if (!(widthMm > 0) || !(heightMm > 0) || !(dotsPerInch > 0) || widthMm > 1e5 || heightMm > 1e5) return;
    PageWidth = widthMm;
    PageHeight = heightMm;
    DotsPerInch = dotsPerInch;
    PointPixels = dotsPerInch / 72.0;
    Back = 0xFFFFFF; // white paper: the background of opaque text
    Width = std::max(1, static_cast<int>(std::lround(widthMm / 25.4 * dotsPerInch)));
    Height = std::max(1, static_cast<int>(std::lround(heightMm / 25.4 * dotsPerInch)));
    BoxLeft = 0;
    BoxTop = 0;
    BoxWidth = static_cast<float>(Width);
    BoxHeight = static_cast<float>(Height);
}

void MappedSurface::SetCoordinateBox(float left, float top, float width, float height) {
    if (!std::isfinite(left) || !std::isfinite(top) || !std::isfinite(width) || !std::isfinite(height) || width == 0 ||
        height == 0) {
        return;
    }
    BoxLeft = left;
    BoxTop = top;
    BoxWidth = width;
    BoxHeight = height;
}

float MappedSurface::TextWidth(const std::string& text) {
    const double px = SansTextWidthEm(text, Bold) * FontPixels();
    return static_cast<float>(px * BoxWidth / Width);
}

float MappedSurface::TextHeight(const std::string&) {
    const double px = LineHeightEm * FontPixels();
    return static_cast<float>(px * BoxHeight / Height);
}

} // namespace karvane::display
