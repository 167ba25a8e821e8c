// The attribute choice (frmAttrib) and the list finders of "Find by List".
#include <gtest/gtest.h>

#include <memory>

#include "display/view_state.h"
#include "forms/attrib_form.h"
#include "forms/name_lists.h"
#include "ui/scripted_ui.h"

namespace karvane::forms {
namespace {

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
