// The symbol pictures.
#include "display/symbols.h"

#include <array>

#include "model/settings.h"

namespace karvane::display {

namespace {

using K = SymbolShape::Kind;

constexpr Colour kBlack = Rgb(0, 0, 0);
constexpr Colour kWhite = Rgb(255, 255, 255);
constexpr Colour kYellow = Rgb(255, 208, 0);

SymbolShape Shape(K kind, std::vector<float> points, Colour fill, Colour stroke, float width) {
    return SymbolShape{kind, std::move(points), fill, stroke, width};
}

std::vector<SymbolShape> Pin(Colour colour) {
    return {Shape(K::Polygon, {36, 50, 64, 50, 50, 96}, colour, kBlack, 3),
            Shape(K::Circle, {50, 34, 27}, colour, kBlack, 4), Shape(K::Circle, {41, 26, 8}, kWhite, -1, 0)};
}

std::vector<SymbolShape> Hazard() {
    return {Shape(K::Polygon, {50, 6, 96, 92, 4, 92}, kYellow, kBlack, 5),
            Shape(K::Rect, {45, 34, 55, 68}, kBlack, -1, 0), Shape(K::Circle, {50, 80, 6}, kBlack, -1, 0)};
}

std::vector<SymbolShape> Bulkhead() {
    const Colour brick = Rgb(176, 48, 32);
    return {Shape(K::Rect, {6, 18, 94, 82}, brick, kBlack, 5),   Shape(K::Polyline, {6, 39, 94, 39}, -1, kWhite, 3),
            Shape(K::Polyline, {6, 61, 94, 61}, -1, kWhite, 3),  Shape(K::Polyline, {36, 18, 36, 39}, -1, kWhite, 3),
            Shape(K::Polyline, {68, 18, 68, 39}, -1, kWhite, 3), Shape(K::Polyline, {22, 39, 22, 61}, -1, kWhite, 3),
            Shape(K::Polyline, {52, 39, 52, 61}, -1, kWhite, 3), Shape(K::Polyline, {80, 39, 80, 61}, -1, kWhite, 3),
            Shape(K::Polyline, {36, 61, 36, 82}, -1, kWhite, 3), Shape(K::Polyline, {68, 61, 68, 82}, -1, kWhite, 3)};
}

} // namespace

std::vector<SymbolShape> SymbolPicture(int symbol) {
    switch (symbol) {
    case sym::Line: return {Shape(K::Polyline, {10, 90, 90, 10}, -1, kBlack, 8)};
    case sym::Arrow:
        return {Shape(K::Polyline, {8, 50, 90, 50}, -1, kBlack, 8),
                Shape(K::Polyline, {62, 28, 90, 50, 62, 72}, -1, kBlack, 8)};
    case sym::Smoke:
        return {Shape(K::Circle, {34, 60, 22}, Rgb(160, 160, 160), Rgb(90, 90, 90), 3),
                Shape(K::Circle, {70, 62, 20}, Rgb(160, 160, 160), Rgb(90, 90, 90), 3),
                Shape(K::Circle, {54, 42, 26}, Rgb(185, 185, 185), Rgb(90, 90, 90), 3)};
    case sym::Fan: {
        const Colour blue = Rgb(16, 96, 192);
        return {
            Shape(K::Circle, {50, 50, 45}, kWhite, blue, 6), Shape(K::Polygon, {50, 50, 38, 14, 62, 12}, blue, -1, 0),
            Shape(K::Polygon, {50, 50, 87, 58, 74, 78}, blue, -1, 0),
            Shape(K::Polygon, {50, 50, 26, 80, 13, 60}, blue, -1, 0), Shape(K::Circle, {50, 50, 9}, blue, kWhite, 3)};
    }
    case sym::Node: return {Shape(K::Circle, {50, 50, 38}, kYellow, kBlack, 10)};
    case sym::Hazard:
    case sym::ObstructionAirway: return Hazard();
    case sym::Bulkhead:
    case sym::BulkheadAirway: return Bulkhead();
    case sym::PinSmoke: return Pin(Rgb(220, 20, 20));
    case sym::PinClear: return Pin(Rgb(30, 80, 230));
    case sym::FixedLoss:
        return {Shape(K::Rect, {6, 28, 94, 72}, kWhite, kBlack, 5),
                Shape(K::Polyline, {12, 50, 22, 36, 34, 64, 46, 36, 58, 64, 70, 36, 82, 64, 88, 50}, -1, Rgb(192, 0, 0),
                      5)};
    case sym::FixedBoost:
        return {Shape(K::Circle, {50, 50, 44}, Rgb(32, 160, 64), kBlack, 5),
                Shape(K::Polygon, {50, 14, 80, 50, 62, 50, 62, 86, 38, 86, 38, 50, 20, 50}, kWhite, -1, 0)};
    default: return {};
    }
}

std::string_view SymbolName(int symbol) {
    static constexpr std::array<const char*, sym::Count> names{"Line",    "Arrow", "Smoke2",  "FanBig",  "Node2",
                                                               "Hazard2", "BBH2",  "PinRed2", "Pinblu2", "Res",
                                                               "Fixed",   "BBH2",  "Hazard2"};
    if (symbol < 0 || symbol >= sym::Count) return {};
    return names[static_cast<std::size_t>(symbol)];
}

} // namespace karvane::display
