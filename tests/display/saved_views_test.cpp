// A window's view in its stored form: round trips, views of angles only, old slots and masks.
#include <gtest/gtest.h>

#include <tuple>

#include "display/display_list.h"
#include "display/saved_views.h"
#include "display_support.h"

namespace karvane::display {
namespace {

using testing::Scene;

TEST(SavedViews, SaveAndLoadRoundTrip) {
    Scene s;
    s.Add(0, 0, 490, 100, 0, 490);
    ViewState& v = s.Ds.View;
    v.Is3D = 0;
    v.Tilt = 0.25f;
    v.Spin = 1.5f;
    SetViewBox(s.Ds, 640, 480, 1234.5f, -77);
    v.RotCentre = {10, 20, 30};
    v.RotCentreSet = 1;
    v.LevelMode = lm::Multiple;
    v.SelectedLevels = {3, 2, 0, 0, 0, 0};
    v.CurrentLevel = 2;
    v.CurrentRLMin = 100;
    v.CurrentRLMax = 201;
    v.CurRL = 222;
    v.DataType = 27;
    v.DisplayOptions = 1 + 4 + 64;
    v.DimOptions = dim::Dim | dim::Branch;
    v.FreshExhaust = 1;
    s.M.PrimaryLayers[3].LayerOn = 0;
    s.M.SecondaryLayers[30].LayerOn = 0;
    s.M.SecondaryLayers[2].LayerOn = 0;
    SaveViewToSlot(s.M, s.Ds, 7);
    const SavedView& slot = s.M.SavedViews[7];
    EXPECT_EQ(slot.ViewValue[4], 69 * kFixedScale);
    EXPECT_EQ(slot.ViewValue[2], (0x1FFFE - 8) * kFixedScale);    // primary 1..16 but 3
    EXPECT_EQ(slot.ViewValue[3], (0x1FFFFFE - 64) * kFixedScale); // secondary 25..48 but 30
    EXPECT_EQ(slot.ViewValue[1], (0x1FFFFFE - 4) * kFixedScale);  // secondary 1..24 but 2

    const ViewState saved = v;
    s.Ds.View = ViewState{};
    for (auto& layer : s.M.PrimaryLayers) layer.LayerOn = -1;
    for (auto& layer : s.M.SecondaryLayers) layer.LayerOn = -1;
    ASSERT_EQ(LoadViewFromSlot(s.M, s.Ds, 7), ViewLoad::Loaded);
    const auto kept = [](const ViewState& w) {
        return std::tuple(w.Tilt, w.Spin, w.ScaleWidth, w.ScaleTop, w.CentreX, w.CentreY, w.RotCentre, w.LevelMode,
                          w.SelectedLevels, w.DataType, w.DisplayOptions, w.DimOptions, w.FreshExhaust);
    };
    EXPECT_TRUE(kept(v) == kept(saved));
    EXPECT_EQ(s.Ds.Labels.Unit, "kPa");
    EXPECT_EQ(
        (std::vector<int>{s.M.PrimaryLayers[3].LayerOn, s.M.PrimaryLayers[4].LayerOn, s.M.SecondaryLayers[30].LayerOn,
                          s.M.SecondaryLayers[2].LayerOn, s.M.SecondaryLayers[48].LayerOn}),
        (std::vector<int>{0, -1, 0, 0, -1}));
    // The multiple scan left the bounds of the last selected level; the list was rebuilt.
    EXPECT_EQ(v.CurRL, 222);
    EXPECT_EQ(v.CurrentRLMin, 480);
    EXPECT_EQ(s.Ds.DisplayList.size(), 1u);

    // A slot read from a file has no data type and no cursor level: the present ones stay.
    s.M.SavedViews[7].ViewParam[28] = 0;
    s.M.SavedViews[7].ViewParam[27] = 0;
    s.M.SavedViews[7].ViewValue[2] = 0; // and a primary mask of 0 means all primary layers on
    v.DataType = 13;
    ASSERT_EQ(LoadViewFromSlot(s.M, s.Ds, 7), ViewLoad::Loaded);
    EXPECT_EQ(v.DataType, 13);
    EXPECT_EQ(s.M.PrimaryLayers[3].LayerOn, -1);
    EXPECT_EQ(v.CurRL, 150); // the middle of 100 and 201, rounded to even
}

TEST(SavedViews, PermanentViewsAndOldSlots) {
    Scene s;
    s.Add(0, 0, 490, 100, 0, 490);
    SetViewBox(s.Ds, 300, 225, 5, 6);

    // A view of angles only: the tilt takes the sign of the Y axis, the box stays for a fit.
    s.M.SgnY = -1;
    EXPECT_EQ(LoadViewFromSlot(s.M, s.Ds, 3), ViewLoad::AnglesOnly);
    EXPECT_FLOAT_EQ(s.Ds.View.Tilt, -static_cast<float>(Pi / 2));
    EXPECT_EQ(s.Ds.View.Is3D, 1);
    EXPECT_EQ(s.Ds.View.RotCentreSet, 0);
    EXPECT_EQ(s.Ds.View.ScaleWidth, 300);
    EXPECT_EQ(LoadViewFromSlot(s.M, s.Ds, 5), ViewLoad::AnglesOnly);
    EXPECT_FLOAT_EQ(s.Ds.View.Tilt, -1.0f);
    EXPECT_FLOAT_EQ(s.Ds.View.Spin, -0.391f);

    // View 1 ends as a plan view whatever was stored.
    s.M.SavedViews[1].ViewParam[14] = 1;
    EXPECT_EQ(LoadViewFromSlot(s.M, s.Ds, 1), ViewLoad::AnglesOnly);
    EXPECT_EQ(s.Ds.View.Is3D, 0);
    s.M.SavedViews[1].ViewParam[5] = 200;
    s.M.SavedViews[1].ViewParam[6] = 150;
    s.M.SavedViews[1].ViewParam[26] = 1;
    EXPECT_EQ(LoadViewFromSlot(s.M, s.Ds, 1), ViewLoad::Loaded);
    EXPECT_EQ(s.Ds.View.Is3D, 0);

    // A slot stored without a rotation centre keeps its box by the corner: it is centred.
    SavedView& old = s.M.SavedViews[8];
    old.ViewName = "Old stope";
    old.ViewParam[3] = 1000;
    old.ViewParam[4] = 2000;
    old.ViewParam[5] = 400;
    old.ViewParam[6] = 300;
    old.ViewParam[10] = 4;
    ASSERT_EQ(LoadViewFromSlot(s.M, s.Ds, 8), ViewLoad::Loaded);
    EXPECT_EQ(s.Ds.View.CentreX, 1200);
    EXPECT_EQ(s.Ds.View.CentreY, 2150);
    EXPECT_EQ(s.Ds.View.ScaleLeft, -200);
    EXPECT_EQ(s.Ds.View.ScaleTop, -150);

    // Copies carry the view, not the name; nothing loads while the main window is minimised.
    CopyViewSlot(s.M, 8, 101);
    EXPECT_EQ(s.M.SavedViews[101].ViewParam, old.ViewParam);
    EXPECT_EQ(s.M.SavedViews[101].ViewName, "");
    s.Ds.MainMinimised = true;
    EXPECT_EQ(LoadViewFromSlot(s.M, s.Ds, 8), ViewLoad::NotLoaded);
    EXPECT_EQ(LoadViewFromSlot(s.M, s.Ds, 111), ViewLoad::NotLoaded);
}

} // namespace
} // namespace karvane::display
