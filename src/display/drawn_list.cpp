// Building the drawn list: centre, axis signs, clipping against the view box, raise stubs and
// the colour rules.
#include "display/drawn_list.h"

#include "contaminant/colours.h"
#include "display/display_list.h"
#include "display/palette.h"
#include "display/view_transform.h"
#include "files/number_text.h"

namespace karvane::display {

namespace {

// How far the ends of a vertical raise are pushed apart in a single level plan view, so that
// it shows as a short stub: up and right for above the level, up and left for below.
constexpr float kStub = 15;

Colour SchemeColour(const Model& model, const Airway& a) {
    if (a.Has(bc::FreshAir)) return model.Set.Colours[2];
    if (a.Has(bc::ExhaustAir)) return model.Set.Colours[1];
    return model.Set.Colours[0];
}

// Selected airways are white on the usual dark background; on a light background, where white
// would vanish, they are black, so that the engineer always sees what is selected.
Colour SelectionColour(Colour background) {
    const int r = background & 255, g = (background >> 8) & 255, b = (background >> 16) & 255;
    return 299 * r + 587 * g + 114 * b > 160 * 1000 ? PaletteColour(0) : FixedColour(WhiteIndex);
}

} // namespace

Colour AirwayLineColour(const Model& model, const DisplayState& ds, const Airway& a, std::int32_t row,
                        bool planSingleLevel) {
    const ViewState& v = ds.View;
    const auto& colours = model.Set.Colours;
    Colour colour = colours[0];
    if (planSingleLevel) {
        if (a.Z1 > v.CurrentRLMax) colour = colours[2];
        if (a.Z2 > v.CurrentRLMax) colour = colours[2];
        if (a.Z1 < v.CurrentRLMin) colour = colours[1];
        if (a.Z2 < v.CurrentRLMin) colour = colours[1];
        if (v.FreshExhaust != 0) colour = SchemeColour(model, a);
    } else if (v.FreshExhaust != 0) {
        colour = SchemeColour(model, a);
    } else if (IsSteep(a)) {
        colour = a.Z1 > a.Z2 ? colours[2] : colours[1];
    }
    if (model.GasActive != GasDisplay::None) {
        colour = FixedColour(contaminant::AirwayContaminantColour(model, row));
    }
    if (!a.Has(bc::InView) && (v.DimOptions & dim::LinesMask) == dim::Dim) colour = FixedColour(DarkGreyIndex);
    if (ds.FlowLimitMode == flow::Dim && OutsideFlowLimits(model, a)) colour = FixedColour(DarkGreyIndex);
    if (a.Has(bc::ErrorMark)) colour = FixedColour(WhiteIndex);
    return colour;
}

void BuildDrawnList(const Model& model, DisplayState& ds, bool clip) {
    const ViewState& v = ds.View;
    const bool plan = v.Is3D == 0;
    if (plan) MakePlanCopies(model, ds);
    RefreshAspect(ds);
    const float left = static_cast<float>(files::ToInt32(v.ScaleLeft));
    const float right = static_cast<float>(files::ToInt32(static_cast<double>(v.ScaleLeft) + v.ScaleWidth));
    const float top = static_cast<float>(files::ToInt32(v.ScaleTop));
    const float bottom = static_cast<float>(files::ToInt32(static_cast<double>(v.ScaleTop) + v.ScaleHeight));
    const float sx = model.SgnX, sy = model.SgnY;
    const std::int16_t width = model.Set.IconSize[0];
    const std::int16_t selectedWidth = static_cast<std::int16_t>(2 * width);
    const Colour selected = SelectionColour(model.Set.Colours[3]);
    const bool planSingleLevel = plan && v.LevelMode == lm::Single;

    ds.Drawn.clear();
    for (std::int32_t row : ds.DisplayList) {
        if (row <= 0 || row > model.AirwayCount) continue;
        const auto r = static_cast<std::size_t>(row);
        const Airway& a = model.Airways[r];
        float x1 = (ds.ViewFrom[r].X - v.CentreX) * sx;
        float y1 = (ds.ViewFrom[r].Y - v.CentreY) * sy;
        float x2 = (ds.ViewTo[r].X - v.CentreX) * sx;
        float y2 = (ds.ViewTo[r].Y - v.CentreY) * sy;

        const float mx = (x1 + x2) / 2, my = (y1 + y2) / 2;
        const bool midInside = mx > left && mx < right && my > top && my < bottom;
        if (!midInside && clip) {
            if ((x1 < left && x2 < left) || (x1 > right && x2 > right) || (y1 < top && y2 < top) ||
                (y1 > bottom && y2 > bottom)) {
                continue;
            }
        }
        if (planSingleLevel && a.X1 == a.X2 && a.Y1 == a.Y2) {
            if (a.Z1 > v.CurrentRLMax) {
                x1 += kStub;
                y1 -= kStub;
            }
            if (a.Z2 > v.CurrentRLMax) {
                x2 += kStub;
                y2 -= kStub;
            }
            if (a.Z1 < v.CurrentRLMin) {
                x1 -= kStub;
                y1 -= kStub;
            }
            if (a.Z2 < v.CurrentRLMin) {
                x2 -= kStub;
                y2 -= kStub;
            }
        }
        DrawnAirway d;
        d.X1 = x1;
        d.Y1 = y1;
        d.X2 = x2;
        d.Y2 = y2;
        d.Airway = row;
        if (a.Has(bc::Selected)) {
            d.LineColour = selected;
            d.Width = selectedWidth;
        } else {
            d.LineColour = AirwayLineColour(model, ds, a, row, planSingleLevel);
            d.Width = width;
        }
        ds.Drawn.push_back(d);
    }
    ds.AnythingDrawn = !ds.Drawn.empty();
}

} // namespace karvane::display
