// Writing a view as SVG.
#include "display/svg_surface.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "display/symbols.h"

namespace karvane::display {

namespace {

// Ascent of a sans-serif face in ems: the baseline stands this far below the top of a text.
constexpr double kAscentEm = 0.905;

std::string Num(double v) {
    if (!std::isfinite(v)) v = 0;
    v = std::clamp(v, -1e7, 1e7);
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2f", v);
    std::string s(buffer);
    // Trailing zeros say nothing and cost bytes over thousands of lines.
    while (!s.empty() && s.back() == '0') s.pop_back();
    if (!s.empty() && s.back() == '.') s.pop_back();
    if (s == "-0") s = "0";
    return s;
}

std::string Escape(std::string_view text) {
    std::string out;
    for (char c : text) {
        const auto u = static_cast<unsigned char>(c);
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default:
            if (u < 32) {
                out += ' ';
            } else if (u >= 128) {
                // Names are kept as Windows-1252 bytes; the picture is UTF-8.
                out += "&#" + std::to_string(u) + ";";
            } else {
                out += c;
            }
        }
    }
    return out;
}

std::string ShapeElement(const SymbolShape& s) {
    std::string fill = s.Fill < 0 ? "none" : SvgColour(s.Fill);
    std::string attrs = " fill=\"" + fill + "\"";
    if (s.Stroke >= 0) {
        attrs += " stroke=\"" + SvgColour(s.Stroke) + "\" stroke-width=\"" + Num(s.StrokeWidth) +
                 "\" stroke-linejoin=\"round\" stroke-linecap=\"round\"";
    }
    const auto& p = s.Points;
    switch (s.Shape) {
    case SymbolShape::Kind::Circle:
        if (p.size() < 3) return {};
        return "<circle cx=\"" + Num(p[0]) + "\" cy=\"" + Num(p[1]) + "\" r=\"" + Num(p[2]) + "\"" + attrs + "/>";
    case SymbolShape::Kind::Rect:
        if (p.size() < 4) return {};
        return "<rect x=\"" + Num(p[0]) + "\" y=\"" + Num(p[1]) + "\" width=\"" + Num(p[2] - p[0]) + "\" height=\"" +
               Num(p[3] - p[1]) + "\"" + attrs + "/>";
    case SymbolShape::Kind::Polygon:
    case SymbolShape::Kind::Polyline: {
        std::string pts;
        for (std::size_t i = 0; i + 1 < p.size(); i += 2) {
            if (!pts.empty()) pts += ' ';
            pts += Num(p[i]) + "," + Num(p[i + 1]);
        }
        const char* tag = s.Shape == SymbolShape::Kind::Polygon ? "polygon" : "polyline";
        return std::string("<") + tag + " points=\"" + pts + "\"" + attrs + "/>";
    }
    }
    return {};
}

} // namespace

std::string SvgColour(Colour colour) {
    char buffer[8];
    const int r = colour & 0xFF, g = (colour >> 8) & 0xFF, b = (colour >> 16) & 0xFF;
    std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x", r, g, b);
    return buffer;
}

std::string SvgSurface::Stroke(Colour colour) const {
    std::string s = "stroke=\"" + SvgColour(Mode == DrawMode::Invert ? 0xFFFFFF : colour) + "\" stroke-width=\"" +
                    Num(std::max(1, LineWidth)) + "\"";
    if (Style == LineStyle::Dotted) s += " stroke-dasharray=\"2,3\"";
    if (Mode == DrawMode::Invert) s += " style=\"mix-blend-mode:difference\"";
    return s;
}

void SvgSurface::FlushPath() {
    if (Path.empty()) return;
    Body += "<path fill=\"none\" stroke-linecap=\"round\" " + PathStroke + " d=\"" + Path + "\"/>\n";
    Path.clear();
}

void SvgSurface::Segment(double x1, double y1, double x2, double y2, Colour colour) {
    const std::string stroke = Stroke(colour);
    if (stroke != PathStroke) {
        FlushPath();
        PathStroke = stroke;
    }
    const double px1 = PixelX(x1), py1 = PixelY(y1), px2 = PixelX(x2), py2 = PixelY(y2);
    if (Path.empty() || px1 != PathX || py1 != PathY) Path += "M" + Num(px1) + " " + Num(py1);
    Path += "L" + Num(px2) + " " + Num(py2);
    PathX = px2;
    PathY = py2;
    LastX = x2;
    LastY = y2;
    // Very long paths are closed now and then so that viewers need not hold one huge string.
    if (Path.size() > 60000) FlushPath();
}

void SvgSurface::Clear() {
    Body.clear();
    Path.clear();
    PathStroke.clear();
}

void SvgSurface::Line(float x1, float y1, float x2, float y2, Colour colour) { Segment(x1, y1, x2, y2, colour); }

void SvgSurface::LineTo(float x, float y, Colour colour) { Segment(LastX, LastY, x, y, colour); }

void SvgSurface::Rectangle(float x1, float y1, float x2, float y2, Colour colour) {
    FlushPath();
    const double a = PixelX(x1), b = PixelY(y1), c = PixelX(x2), d = PixelY(y2);
    Body += "<rect x=\"" + Num(std::min(a, c)) + "\" y=\"" + Num(std::min(b, d)) + "\" width=\"" +
            Num(std::fabs(c - a)) + "\" height=\"" + Num(std::fabs(d - b)) + "\" fill=\"none\" " + Stroke(colour) +
            "/>\n";
}

void SvgSurface::FilledRectangle(float x1, float y1, float x2, float y2, Colour colour) {
    FlushPath();
    const double a = PixelX(x1), b = PixelY(y1), c = PixelX(x2), d = PixelY(y2);
    Body += "<rect x=\"" + Num(std::min(a, c)) + "\" y=\"" + Num(std::min(b, d)) + "\" width=\"" +
            Num(std::fabs(c - a)) + "\" height=\"" + Num(std::fabs(d - b)) + "\" fill=\"" + SvgColour(colour) +
            "\"/>\n";
}

void SvgSurface::Circle(float x, float y, float radius) {
    FlushPath();
    Body += "<circle cx=\"" + Num(PixelX(x)) + "\" cy=\"" + Num(PixelY(y)) + "\" r=\"" +
            Num(std::max(0.5, std::fabs(PixelLength(radius)))) + "\" fill=\"none\" " + Stroke(Fore) + "/>\n";
}

void SvgSurface::PutBitmap(int symbol, float x, float y, float width, float height) {
    if (symbol < 0 || symbol >= sym::Count) return;
    FlushPath();
    SymbolUsed[static_cast<std::size_t>(symbol)] = true;
    const double px = PixelX(x), py = PixelY(y);
    const double w = PixelX(static_cast<double>(x) + width) - px, h = PixelY(static_cast<double>(y) + height) - py;
    if (!std::isfinite(w) || !std::isfinite(h) || std::fabs(w) < 0.05 || std::fabs(h) < 0.05) return;
    Body += "<use xlink:href=\"#s" + std::to_string(symbol) + "\" transform=\"translate(" + Num(px) + "," + Num(py) +
            ") scale(" + Num(w / 100) + "," + Num(h / 100) + ")\"/>\n";
}

void SvgSurface::PrintText(const std::string& text) {
    if (text.empty() || FontSize <= 0) return;
    FlushPath();
    const double px = FontPixels();
    const double x = PixelX(CurrentX), y = PixelY(CurrentY);
    if (Opaque) {
        Body += "<rect x=\"" + Num(x) + "\" y=\"" + Num(y) + "\" width=\"" + Num(SansTextWidthEm(text, Bold) * px) +
                "\" height=\"" + Num(LineHeightEm * px) + "\" fill=\"" + SvgColour(Back) + "\"/>\n";
    }
    Body += "<text x=\"" + Num(x) + "\" y=\"" + Num(y + kAscentEm * px) + "\" font-size=\"" + Num(px) + "\"";
    if (Bold) Body += " font-weight=\"bold\"";
    Body += " fill=\"" + SvgColour(Fore) + "\">" + Escape(text) + "</text>\n";
}

void SvgSurface::NewPage() {
    FlushPath();
    MappedSurface::NewPage();
    PagesDone.push_back(std::move(Body));
    Body.clear();
}

std::string SvgSurface::Document() const {
    const int pages = static_cast<int>(PagesDone.size()) + 1;
    const long long height = static_cast<long long>(Height) * pages;
    // A page says its size on paper; a window's picture is in pixels.
    const std::string w = IsPage() ? Num(PageWidth) + "mm" : std::to_string(Width);
    const std::string h = IsPage() ? Num(PageHeight * pages) + "mm" : std::to_string(height);
    std::string doc = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    doc += "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"" + w +
           "\" height=\"" + h + "\" viewBox=\"0 0 " + std::to_string(Width) + " " + std::to_string(height) + "\">\n";
    doc += "<defs>\n";
    for (int s = 0; s < sym::Count; ++s) {
        if (!SymbolUsed[static_cast<std::size_t>(s)]) continue;
        doc += "<g id=\"s" + std::to_string(s) + "\">";
        for (const SymbolShape& shape : SymbolPicture(s)) doc += ShapeElement(shape);
        doc += "</g>\n";
    }
    doc += "</defs>\n";
    doc += "<rect width=\"100%\" height=\"100%\" fill=\"" + SvgColour(Back) + "\"/>\n";
    doc += "<g font-family=\"Arial, Helvetica, 'Liberation Sans', 'DejaVu Sans', sans-serif\">\n";
    for (std::size_t i = 0; i < PagesDone.size(); ++i) {
        doc += "<g transform=\"translate(0," +
               std::to_string(static_cast<long long>(Height) * static_cast<long long>(i)) + ")\">\n" + PagesDone[i] +
               "</g>\n";
    }
    if (!PagesDone.empty()) {
        doc += "<g transform=\"translate(0," +
               std::to_string(static_cast<long long>(Height) * static_cast<long long>(PagesDone.size())) + ")\">\n";
    }
    doc += Body;
    if (!Path.empty()) {
        doc += "<path fill=\"none\" stroke-linecap=\"round\" " + PathStroke + " d=\"" + Path + "\"/>\n";
    }
    if (!PagesDone.empty()) doc += "</g>\n";
    doc += "</g>\n</svg>\n";
    return doc;
}

} // namespace karvane::display
