// Damaged and extreme networks never crash the display: coordinates at the ends of their
// range, values that are not numbers, layers, presets, fans and pins out of range.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "display/data_format.h"
#include "display/data_types.h"
#include "display/picking.h"
#include "display/recording_surface.h"
#include "display/renderer.h"
#include "display/saved_views.h"
#include "display/svg_surface.h"
#include "display_support.h"

namespace karvane::display {
namespace {

TEST(Robustness, DamagedNetworksAndViewsDrawAndPickWithoutFault) {
    std::mt19937 rng(11);
    const float specials[] = {0.0f,
                              -0.0f,
                              std::numeric_limits<float>::quiet_NaN(),
                              std::numeric_limits<float>::infinity(),
                              -std::numeric_limits<float>::infinity(),
                              3e38f,
                              -9999.0f,
                              9999.0f,
                              1e-30f};
    auto special = [&] { return specials[rng() % std::size(specials)]; };
    auto coord = [&]() -> std::int32_t {
        switch (rng() % 4) {
        case 0: return std::numeric_limits<std::int32_t>::max();
        case 1: return std::numeric_limits<std::int32_t>::min();
        default: return static_cast<std::int32_t>(rng() % 2000) - 1000;
        }
    };
    for (int round = 0; round < 20; ++round) {
        testing::Scene s;
        for (int i = 0; i < 40; ++i) {
            const auto row = s.Add(coord(), coord(), coord(), coord(), coord(), coord());
            Airway& a = s.Row(row);
            a.BranchCode = static_cast<std::int32_t>(rng());
            for (float* f : {&a.Quantity, &a.Resistance, &a.Length, &a.Width, &a.Height, &a.Pressure, &a.IconLoc,
                             &a.FromNodeP, &a.ToNodeP})
                *f = special();
            for (std::int16_t* f :
                 {&a.PrimaryLayer, &a.SecondLayer, &a.ResType, &a.WallType, &a.ShockType, &a.FanNumber, &a.NoOfFans})
                *f = static_cast<std::int16_t>(rng());
            a.NoAirways = static_cast<std::int16_t>(rng() % 3);
            for (std::int16_t* f : {&a.Gas1, &a.Gas2, &a.RemoteStation, &a.CurveFraction})
                *f = static_cast<std::int16_t>(rng());
        }
        s.M.FloatingTexts[1] = {true, "Far", coord(), coord(), coord()};
        s.M.GasActive = static_cast<GasDisplay>(rng() % 3);
        ViewState& v = s.Ds.View;
        v.Is3D = static_cast<std::int16_t>(rng() % 2);
        v.Tilt = round % 3 == 0 ? special() : static_cast<float>(rng() % 700) / 100;
        v.Spin = static_cast<float>(rng() % 700) / 100;
        v.LevelMode = static_cast<std::int16_t>(rng() % 6);
        v.SelectedLevels = {static_cast<std::int16_t>(rng() % 300), 400, -3, 0, 0, 0};
        v.DimOptions = static_cast<std::int32_t>(rng());
        v.DataType = static_cast<std::int16_t>(12 + rng() % 45);
        s.M.Set.GridSpacing = round % 4 == 0 ? 1e-9 : 50;
        s.M.Set.PickDivisions = static_cast<std::int16_t>(rng() % 3);
        s.M.Set.FontSize[1] = static_cast<std::int16_t>(rng());
        s.M.Set.IconSize[0] = static_cast<std::int16_t>(rng() % 5);
        s.Ds.FlowLimitMode = static_cast<std::int16_t>(rng() % 3);
        SaveViewToSlot(s.M, s.Ds, 9);
        LoadViewFromSlot(s.M, s.Ds, 9);
        s.Refresh();
        FitView(s.M, s.Ds, s.Ui);
        if (round % 2 == 0) SetViewBox(s.Ds, special(), special(), special(), special());
        RecordingSurface recording(640, 480);
        RedrawWindow(s.M, s.Ds, recording, s.Ui);
        SvgSurface svg(320, 240);
        RedrawWindow(s.M, s.Ds, svg, s.Ui);
        EXPECT_FALSE(svg.Document().empty());
        for (float x : {0.0f, 5.0f, -300.0f}) {
            FindNode(s.M, s.Ds, x, x);
            FindAirway(s.M, s.Ds, x, -x);
            FindFloatingText(s.M, s.Ds, x, x);
        }
        for (int type = 10; type < 60; ++type) {
            for (std::int32_t row = 0; row <= s.M.AirwayCount + 1; ++row) {
                FormatAirwayValue(s.M, s.Ds, type, row, (type & 1) != 0);
                FormatNodeValue(s.M, s.Ds, type, row, AirwayEnd::To, true);
            }
        }
        InfoPopupText(s.M, s.Ds, 1);
    }
}

} // namespace
} // namespace karvane::display
