// The common part of the surfaces of the core (recording, null, SVG): the linear mapping of
// the coordinate box onto an area of pixels, the drawing state, and text measured with the
// widths of a plain sans-serif face so that layout comes out the same on every machine.
#pragma once

#include <string>
#include <string_view>

#include "display/surface.h"

namespace karvane::display {

// Width of a text in ems of a sans-serif face.
double SansTextWidthEm(std::string_view text, bool bold);
// Pixels of one point on the screens the views are laid out for.
inline constexpr double PixelsPerPoint = 96.0 / 72.0;
// Line height of a font, in ems.
inline constexpr double LineHeightEm = 1.15;

class MappedSurface : public Surface {
public:
    MappedSurface(int width, int height);

    int AreaWidth() const override { return Width; }
    int AreaHeight() const override { return Height; }
    void SetCoordinateBox(float left, float top, float width, float height) override;
    void SetBackColour(Colour colour) override { Back = colour; }
    void SetForeColour(Colour colour) override { Fore = colour; }
    void SetLineWidth(int width) override { LineWidth = width; }
    void SetLineStyle(LineStyle style) override { Style = style; }
    void SetFontName(const std::string& name) override { FontName = name; }
    void SetFontSize(int points) override { FontSize = points; }
    void SetFontBold(bool bold) override { Bold = bold; }
    void SetDrawMode(DrawMode mode) override { Mode = mode; }
    void SetTextOpaque(bool opaque) override { Opaque = opaque; }
    void SetCurrentPoint(float x, float y) override {
        CurrentX = x;
        CurrentY = y;
    }
    float TextWidth(const std::string& text) override;
    float TextHeight(const std::string& text) override;
    void Refresh() override {}
    void SetBuffered(bool buffered) override { Buffered = buffered; }
    double PageWidthMm() const override { return PageWidth; }
    double PageHeightMm() const override { return PageHeight; }
    void NewPage() override { ++Pages; }
    void EndDocument() override { Ended = true; }

    // Makes the surface a page of paper: the printable area in millimetres, laid out in dots of
    // the given resolution, text sized in points of it.
    void SetPage(double widthMm, double heightMm, double dotsPerInch);
    bool IsPage() const { return PageWidth > 0; }

    // Window coordinates to pixels of the area.
    double PixelX(double x) const { return (x - BoxLeft) / BoxWidth * Width; }
    double PixelY(double y) const { return (y - BoxTop) / BoxHeight * Height; }
    // A length along x in window units, in pixels.
    double PixelLength(double units) const { return units / BoxWidth * Width; }
    // Pixel size of the current font.
    double FontPixels() const { return FontSize * PointPixels; }

    int Width, Height;
    float BoxLeft = 0, BoxTop = 0, BoxWidth = 1, BoxHeight = 1;
    Colour Back = 0, Fore = 0;
    int LineWidth = 1;
    LineStyle Style = LineStyle::Solid;
    std::string FontName = "Arial";
    int FontSize = 8;
    bool Bold = false;
    DrawMode Mode = DrawMode::Copy;
    bool Opaque = false;
    bool Buffered = false;
    float CurrentX = 0, CurrentY = 0;
    double PointPixels = PixelsPerPoint;
    // A page: its printable area in millimetres (0 on a window), its resolution, the pages begun
    // after the first, and whether the document has been ended.
    double PageWidth = 0, PageHeight = 0, DotsPerInch = 96;
    int Pages = 1;
    bool Ended = false;
};

// A surface that draws nothing: for benchmarks of the drawing logic alone.
class NullSurface : public MappedSurface {
public:
    using MappedSurface::MappedSurface;
    void Clear() override {}
    void Line(float, float, float x2, float y2, Colour) override { SetCurrentPoint(x2, y2); }
    void LineTo(float x, float y, Colour) override { SetCurrentPoint(x, y); }
    void Rectangle(float, float, float, float, Colour) override {}
    void FilledRectangle(float, float, float, float, Colour) override {}
    void Circle(float, float, float) override {}
    void PutBitmap(int, float, float, float, float) override {}
    void PrintText(const std::string&) override {}
};

} // namespace karvane::display
