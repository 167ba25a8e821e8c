// Named views, the view options and the layer dialog.
#include <gtest/gtest.h>

#include "display/saved_views.h"
#include "display/view_state.h"
#include "forms/view_names.h"
#include "forms/view_options.h"
#include "forms_support.h"
#include "model/units.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

struct ViewScene : FormScene {
    std::unique_ptr<display::DisplayState> DsPtr = std::make_unique<display::DisplayState>();
    display::DisplayState& Ds = *DsPtr;
    ViewScene() { display::ResetViewOptions(M, Ds); }
};

TEST(NamedViews, NamesAreCheckedAndTakeTheFirstFreeSlot) {
    ViewScene s;
    const std::vector<std::string> permanent = NamedViewList(s.M);
    ASSERT_EQ(permanent.size(), 5u);
    EXPECT_EQ(permanent[4], " 5. Iso View");

    s.Ui.Inputs = {std::string("North, upper"), std::string("\"North\""), std::string(" North"), std::string("#1"),
                   std::string("")};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(SaveNamedView(s.M, s.Ds, s.Ui), "");
    EXPECT_EQ(s.Ui.Texts("Message"), (std::vector<std::string>{"No commas allowed in name !", "Invalid view name",
                                                               "Invalid view name", "Invalid view name"}));

    s.Ds.View.ScaleWidth = 777;
    s.Ui.Inputs.push_back(std::string("North"));
    EXPECT_EQ(SaveNamedView(s.M, s.Ds, s.Ui), "North");
    EXPECT_EQ(SlotOfViewName(s.M, "North"), 6);
    EXPECT_FLOAT_EQ(s.M.SavedViews[6].ViewParam[5], 777);

    // The same name again asks before it overwrites.
    s.Ds.View.ScaleWidth = 888;
    s.Ui.Inputs.push_back(std::string("North"));
    s.Ui.Answers.push_back(ui::Answer::No);
    EXPECT_EQ(SaveNamedView(s.M, s.Ds, s.Ui), "");
    EXPECT_FLOAT_EQ(s.M.SavedViews[6].ViewParam[5], 777);
    EXPECT_EQ(s.Ui.Transcript.back().Text, "There is already a view with that name!\nDo you wish to overwrite ?");
    s.Ui.Inputs.push_back(std::string("North"));
    s.Ui.Answers.push_back(ui::Answer::Yes);
    EXPECT_EQ(SaveNamedView(s.M, s.Ds, s.Ui), "North");
    EXPECT_FLOAT_EQ(s.M.SavedViews[6].ViewParam[5], 888);

    // The user's slots end before slot 100, which window 0 uses.
    for (int slot = 7; slot <= 99; ++slot)
        s.M.SavedViews[static_cast<std::size_t>(slot)].ViewName = "v" + std::to_string(slot);
    s.Ui.Inputs.push_back(std::string("South"));
    EXPECT_EQ(SaveNamedView(s.M, s.Ds, s.Ui), "");
    EXPECT_TRUE(s.Ui.Said("No view slots available to save view"));
    EXPECT_EQ(s.M.SavedViews[100].ViewName, "");
}

TEST(NamedViews, PermanentViewsStayAndUserViewsGoWhole) {
    ViewScene s;
    s.Ui.Inputs.push_back(std::string("North"));
    SaveNamedView(s.M, s.Ds, s.Ui);
    EXPECT_FALSE(DeleteNamedView(s.M, s.Ui, 4, " 5. Iso View"));
    EXPECT_TRUE(s.Ui.Said("Permanent view - cannot delete!"));
    s.Ui.Answers.push_back(ui::Answer::No);
    EXPECT_FALSE(DeleteNamedView(s.M, s.Ui, 5, "North"));
    EXPECT_EQ(SlotOfViewName(s.M, "North"), 6);
    s.Ui.Answers.push_back(ui::Answer::Yes);
    EXPECT_TRUE(DeleteNamedView(s.M, s.Ui, 5, "North"));
    EXPECT_EQ(s.Ui.Transcript.back().Title, "Delete View");
    EXPECT_EQ(SlotOfViewName(s.M, "North"), 0);
    EXPECT_FLOAT_EQ(s.M.SavedViews[6].ViewParam[5], 0);

    EXPECT_FALSE(ChooseNamedView(s.M, s.Ds, s.Ui, "Nowhere"));
    EXPECT_TRUE(s.Ui.Said("Error - could not load view"));
}

TEST(ViewOptions, FlowLimitsOutsideTheirRangeAreRefusedWhole) {
    ViewScene s;
    ViewerFields f = FillViewer(s.M, s.Ds, '.');
    EXPECT_EQ(f.MinFlow, "0");
    EXPECT_EQ(f.MaxFlow, "1000");
    f.Show.fill(false);
    f.MaxFlow = "10001";
    EXPECT_FALSE(ApplyViewer(s.M, s.Ds, f, s.Ui));
    EXPECT_TRUE(s.Ui.Said("Limits of Allowable Significant Flows"));
    EXPECT_EQ(s.Ds.View.DisplayOptions, 511); // nothing applied
    f.MaxFlow = "-1";
    EXPECT_FALSE(ApplyViewer(s.M, s.Ds, f, s.Ui));

    f.MaxFlow = "250,5";
    f.MinFlow = "2";
    f.Show[2] = true;
    f.Show[9] = true;
    f.DataFilter = 2;
    f.FlowLimitMode = 1;
    f.FreshExhaust = 1;
    EXPECT_TRUE(ApplyViewer(s.M, s.Ds, f, s.Ui));
    EXPECT_EQ(s.Ds.View.DisplayOptions, 4 + 512);
    EXPECT_EQ(s.M.Set.DataFilter, 2);
    EXPECT_FLOAT_EQ(s.M.Set.FlowMax, 250.5f);
    EXPECT_FLOAT_EQ(s.M.Set.FlowMin, 2);
    EXPECT_EQ(s.Ds.FlowLimitMode, 1);
    EXPECT_EQ(s.Ds.View.FreshExhaust, 1);

    // Show All and Hide leave the off-level raises alone.
    ShowAllDetails(f);
    EXPECT_TRUE(f.Show[8]);
    f.Show[9] = false;
    ShowAllDetails(f);
    EXPECT_FALSE(f.Show[9]);
    HideAllDetails(f);
    f.Show[9] = true;
    HideAllDetails(f);
    EXPECT_TRUE(f.Show[9]);
    EXPECT_FALSE(f.Show[0]);
}

TEST(ViewOptions, FlowLimitsAreShownAndReadInTheDisplayUnit) {
    ViewScene s;
    s.M.Set.UnitSys = 2;
    s.M.Set.FlowMax = 100;
    ViewerFields f = FillViewer(s.M, s.Ds, '.');
    ASSERT_NE(f.MaxFlow, "100"); // shown in British units
    EXPECT_TRUE(ApplyViewer(s.M, s.Ds, f, s.Ui));
    EXPECT_NEAR(s.M.Set.FlowMax, 100, 0.01);
}

TEST(Layers, ResetKeepsTheDrawLayersAndApplyStoresTheTicks) {
    ViewScene s;
    s.M.DrawPrimaryLayer = 0;
    LayerFields f = FillLayers(s.M, s.Ds);
    EXPECT_EQ(f.DrawPrimary, 1); // a draw layer of 0 becomes 1
    f.DrawPrimary = 3;
    f.DrawSecondary = 40;
    ResetLayers(f);
    for (int k = 1; k <= PrimaryLayerCount; ++k) EXPECT_EQ(f.PrimaryOn[static_cast<std::size_t>(k)], k == 3);
    for (int k = 1; k <= SecondLayerCount; ++k) EXPECT_EQ(f.SecondaryOn[static_cast<std::size_t>(k)], k == 40);
    EXPECT_EQ(LayerLabel(f, true, 5), "5");
    f.PrimaryName[5] = "Services";
    EXPECT_EQ(LayerLabel(f, true, 5), "Services");
    f.Lines = 1;
    f.ShowBits = 4 | 64;
    s.M.NetworkSaved = Yes255;
    EXPECT_TRUE(ApplyLayers(s.M, s.Ds, f));
    EXPECT_EQ(s.M.NetworkSaved, No0);
    EXPECT_EQ(s.M.PrimaryLayers[3].LayerOn, -1);
    EXPECT_EQ(s.M.PrimaryLayers[4].LayerOn, 0);
    EXPECT_EQ(s.M.PrimaryLayers[5].Name, "Services");
    EXPECT_EQ(s.M.DrawSecondaryLayer, 40);
    EXPECT_EQ(s.Ds.View.DimOptions, 1 | 4 | 64);

    // Ticks alone are no change of the network.
    s.M.NetworkSaved = Yes255;
    f = FillLayers(s.M, s.Ds);
    SetAllLayers(f);
    EXPECT_FALSE(ApplyLayers(s.M, s.Ds, f));
    EXPECT_EQ(s.M.NetworkSaved, Yes255);
    EXPECT_EQ(s.M.PrimaryLayers[4].LayerOn, -1);
}

} // namespace
} // namespace karvane::forms
