// The drawing surface of a view window or a printed page: the short list of operations the
// renderer, the annotation and the print layout draw through, in window coordinates mapped
// linearly onto the drawing area by the coordinate box. Back ends: Qt (shell), SVG, recording
// (tests), null (benchmarks).
#pragma once

#include <cstdint>
#include <string>

namespace karvane::display {

// Colours are 24-bit values packed as R + 256 G + 65536 B.
using Colour = std::int32_t;

enum class DrawMode { Copy, Invert };
enum class LineStyle { Solid, Dotted };

// Symbol pictures by index, as the renderer and the print layout ask for them.
namespace sym {
inline constexpr int Line = 0;
inline constexpr int Arrow = 1;
inline constexpr int Smoke = 2;
inline constexpr int Fan = 3;
inline constexpr int Node = 4;
inline constexpr int Hazard = 5;
inline constexpr int Bulkhead = 6;
inline constexpr int PinSmoke = 7;
inline constexpr int PinClear = 8;
inline constexpr int FixedLoss = 9;
inline constexpr int FixedBoost = 10;
inline constexpr int BulkheadAirway = 11;
inline constexpr int ObstructionAirway = 12;
inline constexpr int Count = 13;
} // namespace sym

class Surface {
public:
    virtual ~Surface() = default;

    // Size of the drawing area in device units (pixels, or printer dots).
    virtual int AreaWidth() const = 0;
    virtual int AreaHeight() const = 0;
    // The coordinate box: window x = left maps to the area's left edge, left + width to its
    // right edge; likewise y from the top.
    virtual void SetCoordinateBox(float left, float top, float width, float height) = 0;

    // Fills the area with the background colour.
    virtual void SetBackColour(Colour colour) = 0;
    virtual void Clear() = 0;

    // Drawing state.
    virtual void SetForeColour(Colour colour) = 0;
    virtual void SetLineWidth(int width) = 0;
    virtual void SetLineStyle(LineStyle style) = 0;
    virtual void SetFontName(const std::string& name) = 0;
    virtual void SetFontSize(int points) = 0;
    virtual void SetFontBold(bool bold) = 0;
    virtual void SetDrawMode(DrawMode mode) = 0;
    // Text with a background box of its own (pages) or transparent (the default).
    virtual void SetTextOpaque(bool opaque) = 0;

    // A line in the given colour with the current width and style; the end becomes the last point.
    virtual void Line(float x1, float y1, float x2, float y2, Colour colour) = 0;
    // A line from the last point.
    virtual void LineTo(float x, float y, Colour colour) = 0;
    virtual void Rectangle(float x1, float y1, float x2, float y2, Colour colour) = 0;
    virtual void FilledRectangle(float x1, float y1, float x2, float y2, Colour colour) = 0;
    // A circle outline in the fore colour.
    virtual void Circle(float x, float y, float radius) = 0;
    // A symbol picture stretched into the box with its top left corner at (x, y).
    virtual void PutBitmap(int symbol, float x, float y, float width, float height) = 0;

    // Text at the current point, printed from its top left corner in the fore colour.
    virtual void SetCurrentPoint(float x, float y) = 0;
    virtual void PrintText(const std::string& text) = 0;
    // Size of a text in the current font, in window coordinates.
    virtual float TextWidth(const std::string& text) = 0;
    virtual float TextHeight(const std::string& text) = 0;

    // Shows what has been drawn; keeps the picture off screen while buffered.
    virtual void Refresh() = 0;
    virtual void SetBuffered(bool buffered) = 0;

    // Pages. The printable area of the paper in millimetres, in the orientation of the job; 0 on
    // a window, which has no paper.
    virtual double PageWidthMm() const { return 0; }
    virtual double PageHeightMm() const { return 0; }
    // Finishes the page and starts the next one.
    virtual void NewPage() {}
    // Finishes the last page and sends the document; nothing more is drawn after it.
    virtual void EndDocument() {}
};

} // namespace karvane::display
