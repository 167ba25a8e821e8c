// Node keys from coordinates, the surface key, blank rows and airway numbers, and the sort of
// the airway table by keys.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "files/duplicates.h"
#include "model/node_keys.h"
#include "ui/scripted_ui.h"

namespace karvane {
namespace {

constexpr Fixed4 Key(std::int64_t whole, std::int64_t hundredths = 0) { return whole * kFixedScale + hundredths * 100; }

TEST(NodeKeyTest, PackingAndWrapAround) {
    EXPECT_EQ(NodeKey(0, 0, 0), 0);
    EXPECT_EQ(NodeKey(1, 0, 0), Key(0, 1));        // X over 100
    EXPECT_EQ(NodeKey(0, 1, 0), Key(10000));       // Y times 10^4
    EXPECT_EQ(NodeKey(0, 0, 1), Key(10000000000)); // level times 10^10
    EXPECT_EQ(NodeKey(123456, 654321, 789), Key(7896543211234, 56));

    // Each term wraps at its period: ends a whole period apart fall together.
    EXPECT_EQ(NodeKey(1000001, 0, 0), NodeKey(1, 0, 0));
    EXPECT_EQ(NodeKey(0, 1000007, 0), NodeKey(0, 7, 0));
    EXPECT_EQ(NodeKey(0, 0, 10003), NodeKey(0, 0, 3));
    // Negative coordinates shift by 9999 (X and level) or 99999 (Y) before the absolute value.
    EXPECT_EQ(NodeKey(-1, 0, 0), NodeKey(9998, 0, 0));
    EXPECT_EQ(NodeKey(0, -1, 0), NodeKey(0, 99998, 0));
    EXPECT_EQ(NodeKey(0, 0, -1), NodeKey(0, 0, 9998));
    EXPECT_EQ(NodeKey(-10000, 0, 0), NodeKey(1, 0, 0));
    EXPECT_EQ(NodeKey(-9999, -99999, -9999), 0); // wraps onto the origin
    EXPECT_NE(NodeKey(1, 2, 3), NodeKey(3, 2, 1));

    // The surface key stands above every key the packing can make, even at the extremes.
    EXPECT_LT(NodeKey(999999, 999999, 9999), SurfaceKey);
    const std::int32_t lo = std::numeric_limits<std::int32_t>::min();
    const std::int32_t hi = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(NodeKey(lo, lo, lo), NodeKey(2147473649 % 1000000, 2147383649 % 1000000, 3649));
    EXPECT_EQ(NodeKey(hi, hi, hi), NodeKey(483647, 483647, 3647));
    EXPECT_LT(NodeKey(hi, lo, hi), SurfaceKey);
}

class NodeKeysTest : public ::testing::Test {
protected:
    Model model;
    ui::ScriptedUserInterface ui;

    void SetUp() override {
        model.Levels[1] = {"SURFACE", 1000, 1000};
        model.Levels[2] = {"U/Ground", 500, 480};
    }

    std::int32_t Add(std::int32_t x1, std::int32_t y1, std::int32_t z1, std::int32_t x2, std::int32_t y2,
                     std::int32_t z2, std::int32_t code = bc::Rectangular) {
        const std::int32_t row = ++model.AirwayCount;
        Airway& a = model.Airways[row];
        a = Airway{};
        a.X1 = x1, a.Y1 = y1, a.Z1 = z1, a.X2 = x2, a.Y2 = y2, a.Z2 = z2;
        a.BranchCode = code;
        a.BranchName = "A";
        a.BranchName += std::to_string(row);
        return row;
    }
};

TEST_F(NodeKeysTest, SurfaceEndsShareOneKey) {
    EXPECT_EQ(SurfaceLevel(model), 1000);
    Add(10, 20, 1000, 10, 20, 500); // entry exactly at the surface level
    Add(10, 20, 500, 30, 40, 999);  // just below: a node of its own
    Add(30, 40, 999, 70, 80, 500, bc::Rectangular | bc::ExitAtSurface);
    Add(70, 80, 400, 90, 90, 400, bc::Rectangular | bc::EntryAtSurface);
    BuildNodeKeys(model, ui);

    const auto& r = model.Airways;
    EXPECT_EQ(r[1].EntryKey, SurfaceKey);
    EXPECT_EQ(r[1].ExitKey, NodeKey(10, 20, 500));
    EXPECT_EQ(r[2].ExitKey, NodeKey(30, 40, 999));
    EXPECT_EQ(r[3].EntryKey, r[2].ExitKey);
    EXPECT_EQ(r[3].ExitKey, SurfaceKey);
    EXPECT_EQ(r[4].EntryKey, SurfaceKey);
    EXPECT_EQ(r[4].ExitKey, NodeKey(90, 90, 400));
    EXPECT_EQ(EndKey(model, 5, 5, 1000, false), SurfaceKey);
    EXPECT_EQ(EndKey(model, 5, 5, 1, true), SurfaceKey);
    EXPECT_EQ(EndKey(model, 5, 5, 1, false), NodeKey(5, 5, 1));
    EXPECT_TRUE(model.ErrorList.empty());
    EXPECT_TRUE(ui.Transcript.empty());
    EXPECT_EQ(model.SimFail, RunResult::Good);
}

TEST_F(NodeKeysTest, BothEndsOnSurfaceIsReportedAndKept) {
    Add(0, 0, 500, 10, 0, 500);
    Add(0, 0, 1200, 10, 0, 1000);
    Add(5, 5, 500, 6, 6, 500, bc::Rectangular | bc::EntryAtSurface | bc::ExitAtSurface);
    model.Airways[2].AirwayNo = 77;
    BuildNodeKeys(model, ui);

    ASSERT_EQ(model.AirwayCount, 3);
    ASSERT_EQ(model.ErrorList.size(), 2u);
    EXPECT_EQ(model.ErrorList[0].AirwayNo, 77);
    EXPECT_EQ(model.ErrorList[0].Text, "both ends on surface");
    EXPECT_EQ(model.ErrorList[1].AirwayNo, 2); // numbered first, so the line leads to it
    EXPECT_EQ(model.Airways[2].Comment, "ends on surf");
    EXPECT_TRUE(model.Airways[2].Has(bc::ErrorMark));
    EXPECT_FALSE(model.Airways[1].Has(bc::ErrorMark));
    EXPECT_EQ(model.SimFail, RunResult::Failed);
    // One message after the loop, however many rows.
    ASSERT_EQ(ui.Transcript.size(), 1u);
    EXPECT_EQ(ui.Transcript[0].Kind, "Message");
    EXPECT_EQ(ui.Transcript[0].Title, "Karvane");
    EXPECT_EQ(ui.Transcript[0].Text,
              "Karvane has detected that one or more of your airways has both ends on or above the surface\n\n"
              "Please check your surface RL values or the airway data as the network will not simulate properly "
              "with the current settings.");
}

TEST_F(NodeKeysTest, BlankRowsGoAndAirwaysAtTheOriginStay) {
    Add(0, 0, 0, 100, 0, 0);               // live airway from the origin
    Add(0, 0, 0, 0, 0, 0, 0);              // cleared row
    Add(-9999, -99999, -9999, 50, 50, 50); // live, From end wraps onto the origin
    Add(7, 7, 7, 1000000, 0, 0, 0);        // empty row whose To end packs to 0
    Add(7, 7, 7, 8, 8, 8, 0);              // empty row with real keys: kept
    model.Set.LastAirwayNo = 40;
    BuildNodeKeys(model, ui);

    ASSERT_EQ(model.AirwayCount, 3);
    EXPECT_EQ(model.Airways[1].BranchName, "A1");
    EXPECT_EQ(model.Airways[2].BranchName, "A3");
    EXPECT_EQ(model.Airways[3].BranchName, "A5");
    EXPECT_EQ(model.Airways[1].EntryKey, OriginKey);
    EXPECT_EQ(model.Airways[2].EntryKey, OriginKey); // the same node as the origin
    EXPECT_EQ(EndKey(model, 0, 0, 0, false), OriginKey);
    EXPECT_NE(model.Airways[1].ExitKey, OriginKey);
    // The freed rows are cleared, and deleted rows take no number.
    EXPECT_EQ(model.Airways[4].BranchCode, 0);
    EXPECT_TRUE(model.Airways[4].BranchName.empty());
    EXPECT_EQ(model.Airways[1].AirwayNo, 41);
    EXPECT_EQ(model.Airways[2].AirwayNo, 42);
    EXPECT_EQ(model.Airways[3].AirwayNo, 43);
    EXPECT_EQ(model.Set.LastAirwayNo, 43);

    // With the surface at the origin's level a cleared row is still just blank.
    model.Levels[1].RLMin = 0;
    model.AirwayCount = 0;
    Add(0, 0, -100, 10, 0, -100);
    Add(0, 0, 0, 0, 0, 0, 0);
    BuildNodeKeys(model, ui);
    EXPECT_EQ(model.AirwayCount, 1);
    EXPECT_TRUE(model.ErrorList.empty());
}

TEST_F(NodeKeysTest, BlockedAirwaysCarryNoFlowAndNumbersAreKept) {
    Add(0, 0, 10, 1, 0, 10);
    Add(1, 0, 10, 2, 0, 10);
    model.Airways[1].Resistance = 1e9f;
    model.Airways[1].Quantity = 12;
    model.Airways[2].Resistance = 999999936.0f; // the Single just below BlockedRes
    model.Airways[2].Quantity = 12;
    model.Airways[2].AirwayNo = 9;
    model.Set.LastAirwayNo = 20;
    BuildNodeKeys(model, ui);
    EXPECT_EQ(model.Airways[1].Quantity, 0.0f);
    EXPECT_EQ(model.Airways[2].Quantity, 12.0f);
    EXPECT_EQ(model.Airways[1].AirwayNo, 21);
    EXPECT_EQ(model.Airways[2].AirwayNo, 9);
    EXPECT_EQ(model.Set.LastAirwayNo, 21);
}

TEST_F(NodeKeysTest, SortByDescendingKeysMovesWholeRows) {
    Add(1, 0, 10, 2, 0, 10);   // A1
    Add(5, 0, 1000, 1, 0, 10); // A2 from the surface
    Add(1, 0, 10, 3, 0, 10);   // A3 same entry as A1, higher exit
    Add(1, 0, 10, 2, 0, 10);   // A4 duplicate of A1: stays behind it
    Add(0, 0, 0, 9, 9, 9);     // A5 from the origin: last
    Add(2, 0, 10, 9, 0, 1000); // A6
    model.Airways[4].Quantity = 4.5f;
    BuildNodeKeys(model, ui);
    SortAirwayRows(model);

    std::vector<std::string> names;
    for (std::int32_t row = 1; row <= model.AirwayCount; ++row) names.push_back(model.Airways[row].BranchName);
    EXPECT_EQ(names, (std::vector<std::string>{"A2", "A6", "A3", "A1", "A4", "A5"}));
    EXPECT_EQ(model.Airways[5].Quantity, 4.5f);
    EXPECT_EQ(model.Airways[5].AirwayNo, 4);

    // Fewer than two airways: nothing to sort.
    model.AirwayCount = 1;
    files::SortAirways(model, ui);
    ASSERT_EQ(ui.Transcript.size(), 1u);
    EXPECT_EQ(ui.Transcript[0].Text, "No Data to sort");
    EXPECT_EQ(ui.Transcript[0].Title, "Karvane");
}

} // namespace
} // namespace karvane
