// The display list under each level mode, layer option and flow limit, and the level selector.
#include <gtest/gtest.h>

#include "display/display_list.h"
#include "display/level_selector.h"
#include "display_support.h"

namespace karvane::display {
namespace {

using testing::Scene;
using Rows = std::vector<std::int32_t>;

// Four airways around the "U/Ground" level (480 to 500) and a deep one.
struct Levels : Scene {
    std::int32_t OnLevel, OneEnd, Crossing, Deep, Above;
    Levels() {
        OnLevel = Add(0, 0, 490, 100, 0, 490);
        OneEnd = Add(100, 0, 490, 100, 0, 700);   // a raise with its foot on the level
        Crossing = Add(200, 0, 300, 200, 0, 700); // passes through the level, no end on it
        Deep = Add(0, 0, 290, 100, 0, 290);
        Above = Add(0, 0, 900, 50, 0, 900);
    }
};

TEST(DisplayList, LevelModes) {
    Levels s;
    // All.
    BuildDisplayList(s.M, s.Ds);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{1, 2, 3, 4, 5}));

    // Single, off-level raises off: an airway shows when an end lies on the level.
    ChooseLevelRow(s.M, s.Ds, 2);
    EXPECT_EQ(s.Ds.View.LevelMode, lm::Single);
    EXPECT_EQ(s.Ds.View.CurrentRLMin, 480);
    EXPECT_EQ(s.Ds.View.CurrentRLMax, 500);
    EXPECT_EQ(s.Ds.View.CurRL, 490);
    s.Ds.View.DisplayOptions = 511;
    BuildDisplayList(s.M, s.Ds);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{s.OnLevel, s.OneEnd}));
    // With off-level raises on, the crossing raise shows too.
    s.Ds.View.DisplayOptions = 511 | opt::ShowOffLevelRaises;
    BuildDisplayList(s.M, s.Ds);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{s.OnLevel, s.OneEnd, s.Crossing}));

    // Multiple: an airway on two selected levels enters twice; the bounds end at the last level.
    s.Ds.View.DisplayOptions = 511;
    s.Row(s.Crossing).Z1 = 290;
    s.Row(s.Crossing).Z2 = 490;
    SelectMultipleLevels(s.M, s.Ds, {2, 3});
    EXPECT_EQ(s.Ds.DisplayList, (Rows{s.OnLevel, s.OneEnd, s.Crossing, s.Crossing, s.Deep}));
    EXPECT_EQ(s.Ds.View.CurrentRLMin, 280);

    // Range: the same bounds whichever way round the two rows are given.
    SelectLevelRange(s.M, s.Ds, 3, 2);
    const auto one = s.Ds.DisplayList;
    EXPECT_EQ(s.Ds.View.CurrentRLMax, 480);
    EXPECT_EQ(s.Ds.View.CurrentRLMin, 300);
    SelectLevelRange(s.M, s.Ds, 2, 3);
    EXPECT_EQ(s.Ds.View.CurrentRLMax, 500);
    EXPECT_EQ(s.Ds.View.CurrentRLMin, 280);
    EXPECT_EQ(s.Ds.RangeMin, 280);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{s.OnLevel, s.OneEnd, s.Crossing, s.Deep}));
    EXPECT_TRUE(one.empty()); // the band between the two levels holds no end
}

TEST(DisplayList, LayersAndDimOptions) {
    Levels s;
    s.Row(s.OneEnd).PrimaryLayer = 3;
    s.Row(s.Deep).SecondLayer = 60;  // counts and is stored as 48
    s.Row(s.Above).PrimaryLayer = 0; // counts and is stored as 1
    s.M.PrimaryLayers[3].LayerOn = 0;
    s.M.SecondaryLayers[48].LayerOn = 0;

    // Invisible: airways off their layers leave the list.
    s.Ds.View.DimOptions = dim::Invisible;
    BuildDisplayList(s.M, s.Ds);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{s.OnLevel, s.Crossing, s.Above}));
    EXPECT_EQ(s.Row(s.Deep).SecondLayer, 48);
    EXPECT_EQ(s.Row(s.Above).PrimaryLayer, 1);
    EXPECT_TRUE(s.Row(s.OnLevel).Has(bc::InView));
    EXPECT_FALSE(s.Row(s.OneEnd).Has(bc::InView));

    // Dim and Solid: they stay in the list, without the in-view bit.
    for (std::int32_t lines : {dim::Dim, dim::Solid}) {
        s.Ds.View.DimOptions = lines;
        BuildDisplayList(s.M, s.Ds);
        EXPECT_EQ(s.Ds.DisplayList, (Rows{1, 2, 3, 4, 5}));
        EXPECT_FALSE(s.Row(s.Deep).Has(bc::InView));
        EXPECT_TRUE(s.Row(s.Crossing).Has(bc::InView));
    }

    // Empty rows never enter.
    s.Row(s.Crossing).EntryKey = 0;
    BuildDisplayList(s.M, s.Ds);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{1, 2, 4, 5}));
}

TEST(DisplayList, FlowLimitsAndFloatingText) {
    Levels s;
    s.M.Set.FlowMin = 5;
    s.M.Set.FlowMax = 50;
    for (std::int32_t r = 1; r <= s.M.AirwayCount; ++r) s.Row(r).Quantity = 10;
    s.Row(s.Deep).Quantity = 60;
    s.Row(s.Above).Quantity = 1;
    s.Ds.FlowLimitMode = flow::Dim;
    BuildDisplayList(s.M, s.Ds);
    EXPECT_EQ(s.Ds.DisplayList.size(), 5u);
    s.Ds.FlowLimitMode = flow::Invisible;
    BuildDisplayList(s.M, s.Ds);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{1, 2, 3}));

    s.M.FloatingTexts[2] = {true, "Pump station", 10, 10, 490};
    s.M.FloatingTexts[3] = {true, "Portal", 10, 10, 1000};
    s.M.FloatingTexts[4] = {false, "Old", 10, 10, 490};
    BuildDisplayList(s.M, s.Ds);
    EXPECT_EQ(s.Ds.VisibleText, (Rows{2, 3}));
    ChooseLevelRow(s.M, s.Ds, 2);
    EXPECT_EQ(s.Ds.VisibleText, (Rows{2}));
}

TEST(LevelSelector, SingleMultipleSwapsAndKeys) {
    Levels s;
    ChooseLevelRow(s.M, s.Ds, 2);
    EXPECT_EQ(LevelListCount(s.M), 3);

    // Up and Down move one row within the list.
    EXPECT_TRUE(StepLevel(s.M, s.Ds, 1));
    EXPECT_EQ(s.Ds.View.CurrentLevel, 3);
    EXPECT_EQ(s.Ds.View.CurRL, 290);
    EXPECT_FALSE(StepLevel(s.M, s.Ds, 1));
    EXPECT_EQ(s.Ds.View.CurrentLevel, 3);
    EXPECT_TRUE(StepLevel(s.M, s.Ds, -1));
    EXPECT_EQ(s.Ds.View.CurrentLevel, 2);

    // Single to Multiple and back restores the row.
    SelectMultipleLevels(s.M, s.Ds, {3, 1});
    EXPECT_EQ(s.Ds.View.LevelMode, lm::Multiple);
    SelectSingleLevel(s.M, s.Ds);
    EXPECT_EQ(s.Ds.View.LevelMode, lm::Single);
    EXPECT_EQ(s.Ds.View.CurrentLevel, 2);
    EXPECT_EQ(s.Ds.View.CurrentRLMin, 480);
    EXPECT_EQ(s.Ds.OtherLevelMode, lm::Multiple);

    // The Single/Multi button swaps between single and the mode left behind.
    SwapSingleMulti(s.M, s.Ds);
    EXPECT_EQ(s.Ds.View.LevelMode, lm::Multiple);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{s.Crossing, s.Deep}));
    SwapSingleMulti(s.M, s.Ds);
    EXPECT_EQ(s.Ds.View.LevelMode, lm::Single);
    EXPECT_EQ(s.Ds.View.CurrentRLMax, 500);
    EXPECT_EQ(s.Ds.DisplayList, (Rows{s.OnLevel, s.OneEnd}));

    // A range comes back with its remembered bounds.
    SelectLevelRange(s.M, s.Ds, 1, 2);
    ChooseLevelRow(s.M, s.Ds, 3);
    SwapSingleMulti(s.M, s.Ds);
    EXPECT_EQ(s.Ds.View.LevelMode, lm::Range);
    EXPECT_EQ(s.Ds.View.CurrentRLMin, 480);
    EXPECT_EQ(s.Ds.View.CurrentRLMax, 1000);

    // Nothing remembered (0 or 1): the button shows all levels.
    ChooseLevelRow(s.M, s.Ds, 2);
    s.Ds.OtherLevelMode = 0;
    SwapSingleMulti(s.M, s.Ds);
    EXPECT_EQ(s.Ds.View.LevelMode, lm::All);

    // The Multiple dialog takes six levels at most.
    std::vector<int> chosen;
    for (int row = 1; row <= 6; ++row) EXPECT_TRUE(AddSelectedLevel(chosen, row, s.Ui));
    EXPECT_FALSE(AddSelectedLevel(chosen, 7, s.Ui));
    EXPECT_EQ(chosen.size(), 6u);
    EXPECT_EQ(s.Ui.Texts("Message"), std::vector<std::string>{"Maximum of only 6 selected levels allowed!"});
}

} // namespace
} // namespace karvane::display
