// The second pass of the renderer: floating text, then airway by airway the arrow, node
// symbols, node names and node data, the symbols on the airway, station labels, and the
// value lines with the airway's name at its middle.
#include <algorithm>
#include <cmath>
#include <vector>

#include "display/data_format.h"
#include "display/display_list.h"
#include "display/palette.h"
#include "display/renderer.h"
#include "display/view_transform.h"
#include "files/number_text.h"

namespace karvane::display {

namespace {

bool Scaled(const Model& model, int k) { return model.Set.IconScaled[static_cast<std::size_t>(k)] != 0; }
double Icon(const Model& model, int k) { return model.Set.IconSize[static_cast<std::size_t>(k)]; }

void UseFont(const Model& model, Surface& surface, int kind, int size) {
    surface.SetFontName(model.Set.FontName[static_cast<std::size_t>(kind)]);
    surface.SetFontBold(model.Set.FontBold[static_cast<std::size_t>(kind)] != 0);
    surface.SetFontSize(size);
}

void Print(Surface& surface, float x, float y, const std::string& text) {
    if (text.empty()) return;
    surface.SetCurrentPoint(x, y);
    surface.PrintText(text);
}

void Centred(Surface& surface, int symbol, float x, float y, float size) {
    surface.PutBitmap(symbol, x - size / 2, y - size / 2, size, size);
}

// Entry keys of all live airways, sorted: whether a node has an airway leaving it is a
// binary search instead of a scan of the table for every airway drawn.
std::vector<Fixed4> SortedEntryKeys(const Model& model) {
    std::vector<Fixed4> keys;
    keys.reserve(static_cast<std::size_t>(std::max(0, model.AirwayCount)));
    for (std::int32_t row = 1; row <= model.AirwayCount; ++row) {
        const Fixed4 k = model.Airways[static_cast<std::size_t>(row)].EntryKey;
        if (k != 0) keys.push_back(k);
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

} // namespace

AnnotationSizes ComputeAnnotationSizes(const Model& model, double w) {
    AnnotationSizes s;
    s.Arrow = static_cast<float>(Scaled(model, 1) ? std::sqrt(w) * Icon(model, 1) / 20 : w / 200 * Icon(model, 1));
    for (int k = 2; k <= 6; ++k) {
        const double divisor = k == 2 ? 2 : 5;
        double size;
        if (Scaled(model, k)) {
            size = std::max(std::pow(std::fabs(100 / w), 0.04) * Icon(model, k) / divisor, w / 500);
        } else {
            size = w / 200 * Icon(model, k);
        }
        s.Symbol[static_cast<std::size_t>(k)] = static_cast<float>(size);
    }
    double f = std::sqrt(1 / w) * 100 / 8;
    if (!(f >= 0.2)) f = 0;
    if (model.Set.ScaleFonts == 0) f = 1;
    s.FontFactor = f;
    for (int k = 1; k <= 4; ++k) {
        const double size = std::trunc(model.Set.FontSize[static_cast<std::size_t>(k)] * f);
        s.Font[static_cast<std::size_t>(k)] = std::isfinite(size) ? static_cast<int>(std::clamp(size, -1e6, 1e6)) : 0;
    }
    return s;
}

void DrawAnnotations(const Model& model, DisplayState& ds, Surface& surface) {
    const ViewState& v = ds.View;
    const std::int32_t options = v.DisplayOptions;
    if (options == 0) return;
    if (v.Is3D == 0) MakePlanCopies(model, ds);
    const float left = static_cast<float>(files::ToInt32(v.ScaleLeft));
    const float right = static_cast<float>(files::ToInt32(static_cast<double>(v.ScaleLeft) + v.ScaleWidth));
    const float top = static_cast<float>(files::ToInt32(v.ScaleTop));
    const float bottom = static_cast<float>(files::ToInt32(static_cast<double>(v.ScaleTop) + v.ScaleHeight));
    const double w = v.ScaleWidth;
    const AnnotationSizes sz = ComputeAnnotationSizes(model, w);
    const auto& colours = model.Set.Colours;
    const float sx = model.SgnX, sy = model.SgnY;
    auto show = [options](std::int32_t bit) { return (options & bit) != 0; };
    auto inside = [&](float x, float y) { return x > left && x < right && y > top && y < bottom; };

    if (show(opt::ShowFloatingText) && sz.Font[4] != 0) {
        UseFont(model, surface, 4, sz.Font[4]);
        surface.SetForeColour(colours[4]);
        const float radius = static_cast<float>(w / 1000);
        for (std::int32_t slot : ds.VisibleText) {
            if (slot <= 0 || static_cast<std::size_t>(slot) >= model.FloatingTexts.size()) continue;
            const FloatingText& t = model.FloatingTexts[static_cast<std::size_t>(slot)];
            const ViewPoint p = ProjectPoint(ds, t.TextX, t.TextY, t.TextZ);
            const float x = p.X * sx, y = p.Y * sy;
            surface.Circle(x, y, radius);
            Print(surface, x, y, t.TextValue);
        }
    }

    if (sz.Font[1] != 0) UseFont(model, surface, 1, sz.Font[1]);
    surface.SetLineWidth(std::max<int>(1, model.Set.IconSize[0]));
    const float hw = surface.TextWidth("F");
    const float hh = surface.TextHeight("F");
    const bool textShown = sz.FontFactor != 0;
    const Colour background = colours[3];
    const Colour darkGrey = FixedColour(DarkGreyIndex);
    const bool gas = model.GasActive != GasDisplay::None;
    const bool nodeData = IsNodeDataType(v.DataType);
    const std::int16_t filter = model.Set.DataFilter;
    const std::vector<Fixed4> entryKeys = show(opt::ShowNodeSymbols) ? SortedEntryKeys(model) : std::vector<Fixed4>();
    const bool stations = ds.Stations != nullptr && ds.Stations->Active();

    for (const DrawnAirway& d : ds.Drawn) {
        const std::int32_t i = d.Airway;
        if (i <= 0 || i > model.AirwayCount) continue;
        const Airway& a = model.Airways[static_cast<std::size_t>(i)];
        if (a.Has(bc::DataHidden) && filter == 3) continue;
        if (ds.FlowLimitMode == flow::Dim && OutsideFlowLimits(model, a)) continue;
        if (ds.OnlyAirway != 0 && ds.OnlyAirway != i) continue;

        const bool in1 = inside(d.X1, d.Y1), in2 = inside(d.X2, d.Y2);
        const float mx = (d.X1 + d.X2) / 2, my = (d.Y1 + d.Y2) / 2;
        const float along = a.IconLoc + 0.3f;
        const float px = d.X1 + (d.X2 - d.X1) * along, py = d.Y1 + (d.Y2 - d.Y1) * along;
        const bool inM = inside(mx, my), inP = inside(px, py);
        const bool raise = IsSteep(a) || a.Has(bc::EntryAtSurface) || a.Has(bc::ExitAtSurface);
        const bool inView = a.Has(bc::InView);
        auto visible = [&](std::int32_t mask) { return inView || (v.DimOptions & mask) != 0; };

        if (show(opt::ShowArrows) && visible(dim::Arrow) && inM && (d.X1 != d.X2 || d.Y1 != d.Y2)) {
            const double dx = static_cast<double>(d.X2) - d.X1, dy = static_cast<double>(d.Y2) - d.Y1;
            const float tx = d.X1 + (d.X2 - d.X1) * 0.8f, ty = d.Y1 + (d.Y2 - d.Y1) * 0.8f;
            double angle = dx == 0 ? Pi / 2 : std::atan(dy / dx);
            if (dx > 0 || (dx == 0 && dy > 0)) angle += Pi;
            const double a1 = angle + 0.3, a2 = angle - 0.3;
            surface.Line(tx + static_cast<float>(sz.Arrow * std::cos(a1)),
                         ty + static_cast<float>(sz.Arrow * std::sin(a1)), tx, ty, d.LineColour);
            surface.LineTo(tx + static_cast<float>(sz.Arrow * std::cos(a2)),
                           ty + static_cast<float>(sz.Arrow * std::sin(a2)), d.LineColour);
        }

        Colour textColour = gas ? d.LineColour : colours[4];
        if (d.LineColour == background) textColour = background;

        if (show(opt::ShowNodeSymbols) && visible(dim::Nodes) && in1) {
            const float size = sz.Symbol[4];
            Centred(surface, sym::Node, d.X1, d.Y1, size);
            const bool leaves = std::binary_search(entryKeys.begin(), entryKeys.end(), a.ExitKey);
            if (!leaves || raise) Centred(surface, sym::Node, d.X2, d.Y2, size);
        }

        if (filter != 0 && (filter & (raise ? 5 : 6)) == 0) continue;

        if (sz.Font[3] != 0 && show(opt::ShowNodeNames) && visible(dim::Name) && (in1 || in2)) {
            UseFont(model, surface, 3, sz.Font[3]);
            surface.SetForeColour(textColour);
            if (in2) Print(surface, d.X2 + hw / 2, d.Y2 - hh, TrimText(a.ExitNode));
            if (raise && in1) Print(surface, d.X1 + hw / 2, d.Y1 - hh, TrimText(a.EntryNode));
        }

        Colour dataColour = colours[5];
        if (d.LineColour == background || d.LineColour == darkGrey || gas) dataColour = d.LineColour;

        if (nodeData && show(opt::ShowData) && visible(dim::Data) && (in1 || in2) && textShown) {
            if (sz.Font[1] != 0) UseFont(model, surface, 1, sz.Font[1]);
            surface.SetForeColour(dataColour);
            if (in2)
                Print(surface, d.X2 + hw / 2, d.Y2, FormatNodeValue(model, ds, v.DataType, i, AirwayEnd::To, false));
            if (raise && in1) {
                Print(surface, d.X1 + hw / 2, d.Y1, FormatNodeValue(model, ds, v.DataType, i, AirwayEnd::From, false));
            }
        }

        if (inP && inView) {
            const float fan = sz.Symbol[3];
            if (show(opt::ShowFans)) {
                if (a.FanNumber != 0) Centred(surface, sym::Fan, px, py, fan);
                if (a.Has(bc::FixedFlow))
                    Centred(surface, a.Pressure < 0 ? sym::FixedLoss : sym::FixedBoost, mx, my, fan);
            }
            if (show(opt::ShowResistance) && a.ResType != 0) {
                if (a.ResType == 1) {
                    Centred(surface, sym::BulkheadAirway, px, py, sz.Symbol[6]);
                } else {
                    Centred(surface, sym::ObstructionAirway, px, py, sz.Symbol[5]);
                }
            }
            if (a.Has(bc::ContaminantSource) && show(opt::ShowContaminants)) {
                Centred(surface, sym::Smoke, px, py, sz.Symbol[2]);
            }
        }
        if (inP && (a.Gas1 == 1 || a.Gas1 == 2)) {
            const float smoke = sz.Symbol[2];
            surface.PutBitmap(sym::Bulkhead + a.Gas1, px, py - 0.9f * smoke, smoke, smoke);
        }

        if (stations && a.RemoteStation != 0) {
            UseFont(model, surface, 2, std::max(1, sz.Font[2]));
            // The station's name one line over the midpoint, its channels on the lines below.
            float y = my - hh;
            for (const StationLabelLine& line : ds.Stations->LabelLines(model, i)) {
                surface.SetForeColour(line.TextColour);
                Print(surface, mx, y, line.Text);
                y += hh;
            }
        }

        if (sz.Font[1] == 0 || !inM) continue;
        float y = my;
        UseFont(model, surface, 1, sz.Font[1]);
        surface.SetForeColour(dataColour);
        const bool dataLine = show(opt::ShowData) && visible(dim::Data);
        AirwayValueText value;
        if (!a.Has(bc::ErrorMark) || dataLine) value = FormatAirwayValue(model, ds, v.DataType, i, false);
        const std::string first = a.Has(bc::ErrorMark) ? TrimText(a.Comment) : value.ExtraLine;
        if (!first.empty()) {
            Print(surface, mx, y, first);
            y -= hh;
        }
        if (dataLine && !value.Text.empty()) {
            Print(surface, mx, y, value.Text);
            y -= hh;
        }
        const std::string name = TrimText(a.BranchName);
        if (!name.empty() && sz.Font[2] != 0 && show(opt::ShowBranchNames) && visible(dim::Branch)) {
            UseFont(model, surface, 2, sz.Font[2]);
            if (d.LineColour != background && !gas) surface.SetForeColour(d.LineColour);
            Print(surface, mx, y, name);
        }
    }
}

} // namespace karvane::display
