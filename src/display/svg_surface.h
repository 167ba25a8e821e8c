// A surface that writes an SVG picture: lines as paths, symbols as small vector pictures of
// their own, text in a sans-serif face. The command line draws networks with it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "display/mapped_surface.h"
#include "display/surface.h"

namespace karvane::display {

class SvgSurface : public MappedSurface {
public:
    using MappedSurface::MappedSurface;

    void Clear() override;
    void Line(float x1, float y1, float x2, float y2, Colour colour) override;
    void LineTo(float x, float y, Colour colour) override;
    void Rectangle(float x1, float y1, float x2, float y2, Colour colour) override;
    void FilledRectangle(float x1, float y1, float x2, float y2, Colour colour) override;
    void Circle(float x, float y, float radius) override;
    void PutBitmap(int symbol, float x, float y, float width, float height) override;
    void PrintText(const std::string& text) override;
    // Pages stand one under the other in the picture.
    void NewPage() override;

    // The whole document as it stands.
    std::string Document() const;

private:
    void FlushPath();
    std::string Stroke(Colour colour) const;
    void Segment(double x1, double y1, double x2, double y2, Colour colour);

    std::string Body;
    std::vector<std::string> PagesDone; // the bodies of the pages before the current one
    std::string Path;                   // the open path of consecutive lines that share a stroke
    std::string PathStroke;             // its stroke attributes
    double PathX = 0, PathY = 0;
    double LastX = 0, LastY = 0;
    std::array<bool, sym::Count> SymbolUsed{};
};

// A colour as "#rrggbb".
std::string SvgColour(Colour colour);

} // namespace karvane::display
