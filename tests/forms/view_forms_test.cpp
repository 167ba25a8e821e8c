// Named views, the view options, the layer dialog, the attribute choice and the list finders.
#include <gtest/gtest.h>

#include <tuple>

#include <memory>

#include "display/saved_views.h"
#include "display/view_state.h"
#include "forms/attrib_form.h"
#include "forms/name_lists.h"
#include "forms/view_names.h"
#include "forms/view_options.h"
#include "forms_support.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

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
    EXPECT_FLOAT_EQ(s.M.SavedViews[6].ViewParam[5], 777.0f);

    // The same name again asks before it overwrites.
    s.Ds.View.ScaleWidth = 888;
    s.Ui.Inputs.push_back(std::string("North"));
    s.Ui.Answers.push_back(ui::Answer::No);
    EXPECT_EQ(SaveNamedView(s.M, s.Ds, s.Ui), "");
    EXPECT_FLOAT_EQ(s.M.SavedViews[6].ViewParam[5], 777.0f);
    EXPECT_EQ(s.Ui.Transcript.back().Text, "There is already a view with that name!\nDo you wish to overwrite ?");
    s.Ui.Inputs.push_back(std::string("North"));
    s.Ui.Answers.push_back(ui::Answer::Yes);
    EXPECT_EQ(SaveNamedView(s.M, s.Ds, s.Ui), "North");
    EXPECT_FLOAT_EQ(s.M.SavedViews[6].ViewParam[5], 888.0f);

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
    EXPECT_FLOAT_EQ(s.M.SavedViews[6].ViewParam[5], 0.0f);

    EXPECT_FALSE(ChooseNamedView(s.M, s.Ds, s.Ui, "Nowhere"));
    EXPECT_TRUE(s.Ui.Said("Error - could not load view"));
}

TEST(ViewOptions, FlowLimitsOutsideTheirRangeAreRefusedWhole) {
    ViewScene s;
    ViewerFields f = FillViewer(s.M, s.Ds, '.');
    EXPECT_EQ(std::make_tuple(f.MinFlow, f.MaxFlow), std::make_tuple("0", "1000"));
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
    EXPECT_EQ(std::make_tuple(s.Ds.View.DisplayOptions, s.M.Set.DataFilter, s.M.Set.FlowMax, s.M.Set.FlowMin,
                              s.Ds.FlowLimitMode, s.Ds.View.FreshExhaust),
              std::make_tuple(4 + 512, 2, 250.5f, 2.0f, 1, 1));

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
    EXPECT_EQ(std::make_tuple(s.M.NetworkSaved, s.M.PrimaryLayers[3].LayerOn, s.M.PrimaryLayers[4].LayerOn,
                              s.M.PrimaryLayers[5].Name, s.M.DrawSecondaryLayer, s.Ds.View.DimOptions),
              std::make_tuple(No0, -1, 0, "Services", 40, 1 | 4 | 64));

    // Ticks alone are no change of the network.
    s.M.NetworkSaved = Yes255;
    f = FillLayers(s.M, s.Ds);
    SetAllLayers(f);
    EXPECT_FALSE(ApplyLayers(s.M, s.Ds, f));
    EXPECT_EQ(std::make_tuple(s.M.NetworkSaved, s.M.PrimaryLayers[4].LayerOn), std::make_tuple(Yes255, -1));
}

TEST(AttribForm, BoxesFollowTheMaskAndDeselectAllCarriesNothing) {
    auto model = std::make_unique<Model>();
    Model& m = *model;
    m.Set.AttributeMask = 2 | 256;
    AttribFields f = LoadAttribForm(m);
    EXPECT_FALSE(f.ChkAttrib[1]);
    EXPECT_FALSE(f.ChkAttrib[8]);
    EXPECT_TRUE(f.ChkAttrib[0]);
    EXPECT_STREQ(AttribCaption(5), "Fresh / Return Air");

    f.ChkAttrib[1] = true;
    EXPECT_TRUE(ApplyAttribForm(m, f));
    EXPECT_EQ(m.Set.AttributeMask, 256);
    EXPECT_FALSE(ApplyAttribForm(m, f));
    DeselectAllAttributes(f);
    ApplyAttribForm(m, f);
    EXPECT_EQ(m.Set.AttributeMask & 511, 511);
    SelectAllAttributes(f);
    ApplyAttribForm(m, f);
    EXPECT_EQ(m.Set.AttributeMask, 0);
}

class RecordingFinder : public edit::FinderHost {
public:
    std::vector<std::int32_t> Rows;
    void ShowAirwayRow(std::int32_t row, float) override { Rows.push_back(row); }
};

TEST(NameLists, EachNameOnceSortedWithoutCaseFilteredAndChosen) {
    auto model = std::make_unique<Model>();
    Model& m = *model;
    m.Airways.resize(8);
    const char* names[][3] = {{"beta", "Shaft", "B2"},
                              {"Alpha ", "Beta", "  "},
                              {"", "shaft", "Alpha"},
                              {"", "", "b2"},
                              {"ALPHA", "Shaft", "x"}};
    for (const auto& n : names) {
        Airway& a = m.Airways[static_cast<std::size_t>(++m.AirwayCount)];
        a.EntryNode = n[0];
        a.ExitNode = n[1];
        a.BranchName = n[2];
        a.BranchCode = bc::Rectangular;
    }
    const std::vector<std::string> nodes = ListedNames(m, true);
    EXPECT_EQ(nodes, (std::vector<std::string>{"ALPHA", "Alpha", "Beta", "beta", "Shaft", "shaft"}));
    EXPECT_EQ(ListedNames(m, false), (std::vector<std::string>{"Alpha", "B2", "b2", "x"}));
    EXPECT_EQ(FilterNames(nodes, "HA"), (std::vector<std::string>{"ALPHA", "Alpha", "Shaft", "shaft"}));
    EXPECT_EQ(FilterNames(nodes, ""), nodes);

    auto ds = std::make_unique<display::DisplayState>();
    ui::ScriptedUserInterface ui;
    RecordingFinder finder;
    EXPECT_EQ(ChooseListedName(m, *ds, ui, finder, true, "shaft"), 1);
    EXPECT_EQ(m.Find.FindKind, find::NodeName);
    EXPECT_EQ(m.Find.FindText, "SHAFT");
    EXPECT_EQ(ChooseListedName(m, *ds, ui, finder, false, "b2"), 1);
    EXPECT_EQ(finder.Rows, (std::vector<std::int32_t>{1, 1}));

    // An empty network lists nothing.
    m.AirwayCount = 0;
    EXPECT_TRUE(ListedNames(m, true).empty());
}

} // namespace
} // namespace karvane::forms
