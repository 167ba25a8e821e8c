// The levels editor: limits, order, the surface band warning, deletion of whole rows, and the
// level filter after saving.
#include <gtest/gtest.h>

#include <tuple>

#include "display/display_list.h"
#include "display/view_state.h"
#include "forms/level_list_form.h"
#include "forms_support.h"
#include "model/node_keys.h"
#include "model/units.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

struct LevelScene : FormScene {
    std::unique_ptr<display::DisplayState> DsPtr = std::make_unique<display::DisplayState>();
    display::DisplayState& Ds = *DsPtr;
    LevelScene() {
        display::ResetViewOptions(M, Ds);
        M.Levels.assign(LevelRows + 1, LevelRecord{});
        M.Levels[1] = {"SURFACE", 1000, 950};
        M.Levels[2] = {"Upper", 900, 800};
        M.Levels[3] = {"Lower", 700, 600};
    }
    const LevelRecord& L(int row) { return M.Levels[static_cast<std::size_t>(row)]; }
};

TEST(LevelListForm, SavingRepairsLimitsSwapsBoundsAndWarnsOfTheSurfaceBand) {
    LevelScene s;
    LevelListForm form(s.M, s.Ds, s.Ui);
    EXPECT_EQ(form.F.Cells[2][rlcol::High], "900");
    EXPECT_EQ(form.F.Cells[4][rlcol::Name], "");
    EXPECT_EQ(LevelColumnHeading(s.M, rlcol::Low), "RL Low m");
    form.SetCell(2, rlcol::High, "100");
    form.SetCell(2, rlcol::Low, "200"); // swapped on saving
    form.SetCell(4, rlcol::Name, "New");
    form.SetCell(4, rlcol::Low, "-50"); // High 0 on a row with no values: Low not read
    form.SetCell(5, rlcol::Name, "Deep");
    form.SetCell(5, rlcol::High, "12345678"); // held at the limit, with a message
    form.SetCell(5, rlcol::Low, "-20000000");
    form.SetCell(3, rlcol::High, "960"); // reaches into the surface band: warned, kept
    ASSERT_TRUE(form.PressButton("RLOK"));
    EXPECT_TRUE(form.Closed());
    EXPECT_EQ(std::make_tuple(s.L(2).RLMax, s.L(2).RLMin, s.L(4).RLMax, s.L(4).RLMin, s.L(5).RLMax, s.L(5).RLMin),
              std::make_tuple(200, 100, 0, 0, 9999999, -9999999));
    EXPECT_EQ(s.L(3).RLMax, 960);
    EXPECT_EQ(
        s.Ui.Texts("Message"),
        (std::vector<std::string>{"Warning : The level Lower is within the NO.1 (surface) RL range.  Change the RL "
                                  "ranges to LESS THAN these values to prevent possible problems.",
                                  "Exceeds Maximum RL Limits", "Exceeds Minimum RL Limits",
                                  "Warning : The level Deep is within the NO.1 (surface) RL range.  Change the RL "
                                  "ranges to LESS THAN these values to prevent possible problems."}));
    EXPECT_EQ(s.Ui.Transcript[0].Title, "RL Range Problem");
}

TEST(LevelListForm, BritishFeetAreStoredAsWholeMetres) {
    LevelScene s;
    s.M.Set.UnitSys = 2;
    LevelListForm form(s.M, s.Ds, s.Ui);
    form.SetCell(3, rlcol::High, "1000");
    form.SetCell(3, rlcol::Low, "500");
    form.PressButton("RLOK");
    EXPECT_EQ(s.L(3).RLMax, 305); // 304.8 m
    EXPECT_EQ(s.L(3).RLMin, 152);
}

TEST(LevelListForm, DeletingWholeRowsClosesTheGapAndCancelAsks) {
    LevelScene s;
    s.M.Levels[4] = {"Fourth", 500, 400};
    LevelListFields f = FillLevelList(s.M, '.');
    DeleteLevelCells(f, 2, rlcol::Name, 3, rlcol::Low);
    EXPECT_EQ(std::make_tuple(f.Cells[2][rlcol::Name], f.Cells[3][rlcol::Name]), std::make_tuple("Fourth", ""));
    // Part of a row only empties the cells.
    DeleteLevelCells(f, 1, rlcol::High, 1, rlcol::High);
    EXPECT_EQ(std::make_tuple(f.Cells[1][rlcol::Name], f.Cells[1][rlcol::High]), std::make_tuple("SURFACE", ""));

    // Cancel with No keeps the level list as it was.
    LevelListForm form(s.M, s.Ds, s.Ui);
    form.SetCell(2, rlcol::Name, "Renamed");
    s.Ui.Answers = {ui::Answer::No};
    form.PressButton("RLCancel");
    EXPECT_EQ(std::make_tuple(s.L(2).RLName, s.Ui.Transcript.back().Text),
              std::make_tuple("Upper", "Save spreadsheet changes to network ?"));
    EXPECT_FALSE(form.Saved());
    // Paste reaches the three data columns only.
    PasteLevelTable(f, "A\t10\t5\t99\r\nB\t4\t2\r\n", {5, rlcol::Name}, 5);
    EXPECT_EQ(f.Cells[5][rlcol::Low], "5");
    EXPECT_EQ(f.Cells[6][rlcol::Name], "B");
    EXPECT_EQ(CopyLevelTable(f, 5, 1, 6, 3), "A\t10\t5\r\nB\t4\t2\r\n");
}

} // namespace
} // namespace karvane::forms
