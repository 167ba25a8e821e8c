// Showing one airway.
#include "edit/show_airway.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "display/display_list.h"
#include "display/level_selector.h"
#include "display/view_transform.h"
#include "files/number_text.h"

namespace karvane::edit {

namespace {

constexpr const char* GlobalLevelName = "Global Level";
constexpr int MostLevels = 249;

int LevelHolding(const Model& model, std::int32_t z) {
    const int count = display::LevelListCount(model);
    for (int row = 1; row <= count; ++row) {
        const LevelRecord& level = model.Levels[static_cast<std::size_t>(row)];
        if (z >= std::min(level.RLMin, level.RLMax) && z <= std::max(level.RLMin, level.RLMax)) return row;
    }
    return 0;
}

} // namespace

std::int32_t RowOfAirwayNo(const Model& model, std::int32_t airwayNo) {
    for (std::int32_t row = 1; row <= model.AirwayCount; ++row)
        if (model.Airways[static_cast<std::size_t>(row)].AirwayNo == airwayNo) return row;
    return 0;
}

ShownAirway ShowAirway(Model& model, display::DisplayState& ds, ui::UserInterface& ui, std::int32_t row,
                       float pickFraction) {
    ShownAirway result;
    if (row < 1 || row > model.AirwayCount) return result;
    Airway& a = model.Airways[static_cast<std::size_t>(row)];
    const std::int32_t z = pickFraction <= 0.5f ? a.Z1 : a.Z2;
    int level = LevelHolding(model, z);
    if (level == 0) {
        ui.Message("Could not find a valid defined display level the airway was on!\nKarvane will create a new "
                   "global level range and add it to your level list",
                   ProgramName, ui::Icon::Exclamation);
        const int count = display::LevelListCount(model);
        if (count >= MostLevels || static_cast<std::size_t>(count + 1) >= model.Levels.size()) {
            ui.Message("Level addition failed - too many levels already defined", ProgramName, ui::Icon::Exclamation);
        } else {
            std::int32_t lo = std::numeric_limits<std::int32_t>::max(), hi = std::numeric_limits<std::int32_t>::min();
            for (std::int32_t r = 1; r <= model.AirwayCount; ++r) {
                const Airway& b = model.Airways[static_cast<std::size_t>(r)];
                lo = std::min({lo, b.Z1, b.Z2});
                hi = std::max({hi, b.Z1, b.Z2});
            }
            LevelRecord& added = model.Levels[static_cast<std::size_t>(count + 1)];
            added.RLName = GlobalLevelName;
            added.RLMin = lo;
            added.RLMax = hi;
            level = count + 1;
            result.LevelAdded = true;
        }
    }

    // The airway's layers come on.
    if (a.PrimaryLayer >= 1 && static_cast<std::size_t>(a.PrimaryLayer) < model.PrimaryLayers.size())
        model.PrimaryLayers[static_cast<std::size_t>(a.PrimaryLayer)].LayerOn = -1;
    if (a.SecondLayer >= 1 && static_cast<std::size_t>(a.SecondLayer) < model.SecondaryLayers.size())
        model.SecondaryLayers[static_cast<std::size_t>(a.SecondLayer)].LayerOn = -1;

    display::ViewState& v = ds.View;
    if (level > 0 && (v.LevelMode != display::lm::Single || v.CurrentLevel != level)) {
        display::ChooseLevelRow(model, ds, level);
        result.LevelChanged = true;
    } else {
        display::BuildDisplayList(model, ds);
    }

    const double mx = (static_cast<double>(a.X1) + a.X2) / 2;
    const double my = (static_cast<double>(a.Y1) + a.Y2) / 2;
    const double mz = (static_cast<double>(a.Z1) + a.Z2) / 2;
    v.RotCentre = {files::ToInt32(mx), files::ToInt32(my), files::ToInt32(mz)};
    if (v.Is3D == 0)
        display::SetViewBox(ds, v.ScaleWidth, v.ScaleHeight, static_cast<float>(v.RotCentre[0]),
                            static_cast<float>(v.RotCentre[1]));
    display::ApplyRotation(model, ds);
    result.Shown = true;
    return result;
}

void MarkShownAirway(const display::DisplayState& ds, display::Surface& surface) {
    const display::ViewState& v = ds.View;
    surface.SetCoordinateBox(v.ScaleLeft, v.ScaleTop, v.ScaleWidth, v.ScaleHeight);
    surface.SetDrawMode(display::DrawMode::Copy);
    surface.SetLineWidth(2);
    surface.SetForeColour(Rgb(0, 0, 0));
    surface.Circle(0, 0, v.ScaleWidth / 29);
    surface.SetForeColour(Rgb(255, 255, 255));
    surface.Circle(0, 0, v.ScaleWidth / 30);
    surface.SetLineWidth(1);
    surface.Refresh();
}

} // namespace karvane::edit
