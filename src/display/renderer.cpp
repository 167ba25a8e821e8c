// The redraw pipeline of a view window, the airway lines and the grid.
#include "display/renderer.h"

#include <cmath>

#include "display/display_list.h"
#include "display/drawn_list.h"
#include "display/view_transform.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::display {

namespace {

constexpr int kGridFontSize = 10;

// Whole grid steps below a value, rounding down as the grid's start does.
double Floor(double v) { return std::floor(v); }

} // namespace

void PrepareSurface(const Model& model, const DisplayState& ds, Surface& surface) {
    const ViewState& v = ds.View;
    surface.SetCoordinateBox(v.ScaleLeft, v.ScaleTop, v.ScaleWidth, v.ScaleHeight);
    surface.SetBackColour(model.Set.Colours[3]);
    surface.SetDrawMode(DrawMode::Copy);
    surface.SetLineStyle(LineStyle::Solid);
}

void DrawLines(const Model& model, const DisplayState& ds, Surface& surface) {
    const int base = std::max<int>(1, model.Set.IconSize[0]);
    surface.SetLineWidth(base);
    int current = base;
    for (const DrawnAirway& d : ds.Drawn) {
        const int w = std::max<int>(1, d.Width);
        if (w != current) {
            surface.SetLineWidth(w);
            current = w;
        }
        surface.Line(d.X1, d.Y1, d.X2, d.Y2, d.LineColour);
    }
    if (current != base) surface.SetLineWidth(base);
}

void DrawGrid(const Model& model, const DisplayState& ds, Surface& surface, ui::UserInterface& ui, bool paper) {
    const ViewState& v = ds.View;
    const int kind = ViewKind(v);
    if (!ds.GridOn || kind == 1) return;
    // Positions are worked in the display's length unit so that lines stand on round numbers
    // of that unit, and converted back to metres to draw.
    const double f = ToDisplay(model, 1.0, uc::LongLength);
    const double g = model.Set.GridSpacing;
    const double left = v.ScaleLeft, top = v.ScaleTop;
    const double right = left + v.ScaleWidth, bottom = top + v.ScaleHeight;
    if (!(g > 0) || !(f > 0) || !std::isfinite(g) || !std::isfinite(f) || !std::isfinite(left) || !std::isfinite(top) ||
        !(v.ScaleWidth > 0) || !(v.ScaleHeight > 0)) {
        ui.Message("MAJOR Error Drawing Graphics Grid !", ProgramName, ui::Icon::Exclamation);
        return;
    }
    // A grid finer than the pixels of the window would only grey it over.
    const double across = std::max<double>(v.ScaleWidth, v.ScaleHeight) * f / g;
    const int area =
        paper ? std::max(surface.AreaWidth(), surface.AreaHeight()) : std::max(ds.AreaWidth, ds.AreaHeight);
    if (across > area) return;

    const Colour lineColour = model.Set.Colours[6];
    const Colour labelColour = paper ? 0 : model.Set.Colours[7];
    surface.SetLineWidth(paper ? 1 : std::max(1, ds.GridWidth));
    surface.SetLineStyle(LineStyle::Solid);
    if (paper) surface.SetTextOpaque(false);
    surface.SetFontName(model.Set.FontName[1]);
    surface.SetFontBold(!paper && model.Set.FontBold[1] != 0);
    surface.SetFontSize(kGridFontSize);
    surface.SetForeColour(labelColour);
    const bool labels = !ds.Panning;
    const double sx = model.SgnX, sy = model.SgnY;
    const double cx = static_cast<double>(v.CentreX) * f, cy = static_cast<double>(v.CentreY) * f;
    const double halfW = static_cast<double>(v.ScaleWidth) / 2 * f, halfH = static_cast<double>(v.ScaleHeight) / 2 * f;
    const std::string& format = UnitFormat(model, uc::LongLength);
    const char sep = ds.DecimalSeparator;
    auto toWindow = [f](double d) { return static_cast<float>(d / f); };
    auto label = [&](double value) { return FormatNumber(value, format, sep); };

    if (kind == 2) {
        // A vertical section: level lines, each with its RL at the left.
        const double y0 = Floor(cy / g) * g * sy - sy * cy - Floor(halfH / g) * g;
        for (int i = 0; toWindow(y0 + i * g) <= bottom; ++i) {
            const double y = y0 + i * g;
            const float wy = toWindow(y);
            if (paper && (wy < top || wy > bottom)) continue;
            surface.Line(static_cast<float>(left), wy, static_cast<float>(right), wy, lineColour);
            if (!labels) continue;
            const std::string text = label(-(sy * cy + y));
            surface.SetForeColour(labelColour);
            surface.SetCurrentPoint(static_cast<float>(left + 1), wy - surface.TextHeight(text));
            surface.PrintText(text);
        }
        return;
    }

    const double x0 = Floor(cx / g) * g * sx - sx * cx - Floor(halfW / g) * g - g;
    double lastLabel = -1e300;
    for (int i = 0; toWindow(x0 + i * g) <= right; ++i) {
        const double x = x0 + i * g;
        const float wx = toWindow(x);
        if (paper && (wx < left || wx > right)) continue;
        surface.Line(wx, static_cast<float>(top), wx, static_cast<float>(bottom), lineColour);
        if (!labels) continue;
        const std::string text = label((sx * cx + x) * sx);
        const float w = surface.TextWidth(text);
        if (std::fabs(static_cast<double>(wx) - lastLabel) > 1.2 * w) {
            surface.SetForeColour(labelColour);
            surface.SetCurrentPoint(wx, static_cast<float>(top));
            surface.PrintText(text);
            lastLabel = wx;
        }
    }
    const double y0 = Floor(cy / g) * g * sy - sy * cy - Floor(halfH / g) * g - g;
    lastLabel = -1e300;
    for (int i = 0; toWindow(y0 + i * g) <= bottom; ++i) {
        const double y = y0 + i * g;
        const float wy = toWindow(y);
        if (paper && (wy < top || wy > bottom)) continue;
        surface.Line(static_cast<float>(left), wy, static_cast<float>(right), wy, lineColour);
        if (!labels) continue;
        const std::string text = label((sy * cy + y) * sy);
        const float h = surface.TextHeight(text);
        if (std::fabs(static_cast<double>(wy) - lastLabel) > 1.2 * h) {
            surface.SetForeColour(labelColour);
            surface.SetCurrentPoint(static_cast<float>(left + h / 2), wy - h);
            surface.PrintText(text);
            lastLabel = wy;
        }
    }
}

void RedrawWindow(const Model& model, DisplayState& ds, Surface& surface, ui::UserInterface& ui) {
    if (!ds.WindowCurrent || ds.WindowFrozen || ds.MainMinimised || ds.StartingUp) return;
    ds.DrawingBusy = true;
    ui.PumpEvents();
    ui.SetBusy(true);
    BuildDrawnList(model, ds);
    PrepareSurface(model, ds, surface);
    surface.Clear();
    DrawGrid(model, ds, surface, ui);
    DrawLines(model, ds, surface);
    DrawAnnotations(model, ds, surface);
    surface.Refresh();
    ui.SetBusy(false);
    ds.DrawingBusy = false;
}

void RedrawLinesOnly(const Model& model, DisplayState& ds, Surface& surface, ui::UserInterface& ui) {
    if (!ds.WindowCurrent || ds.WindowFrozen || ds.MainMinimised || ds.StartingUp) return;
    BuildDrawnList(model, ds);
    PrepareSurface(model, ds, surface);
    surface.Clear();
    if (ds.Panning) DrawGrid(model, ds, surface, ui);
    DrawLines(model, ds, surface);
    surface.Refresh();
}

void RedrawAfterChange(Model& model, DisplayState& ds, Surface& surface, ui::UserInterface& ui) {
    BuildDisplayList(model, ds);
    ApplyRotation(model, ds);
    RedrawWindow(model, ds, surface, ui);
}

} // namespace karvane::display
