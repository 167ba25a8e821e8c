// The pictures of the symbols the views show (node, fan, obstruction, bulkhead, smoke, report
// pins, fixed pressure loss and boost), as a few plain shapes in a 100 x 100 box, so that
// every surface can draw the same pictures at any size.
#pragma once

#include <string_view>
#include <vector>

#include "display/surface.h"

namespace karvane::display {

struct SymbolShape {
    enum class Kind { Circle, Polygon, Polyline, Rect };
    Kind Shape = Kind::Polygon;
    std::vector<float> Points; // Circle: cx, cy, r; Rect: x1, y1, x2, y2; else x, y pairs
    Colour Fill = -1;          // -1: not filled
    Colour Stroke = -1;        // -1: no outline
    float StrokeWidth = 0;     // in box units
};

// The picture of a symbol index (sym::...); empty for an unknown index.
std::vector<SymbolShape> SymbolPicture(int symbol);
// The name the symbol's picture goes by ("Node2", "FanBig").
std::string_view SymbolName(int symbol);

} // namespace karvane::display
