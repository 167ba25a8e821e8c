// Row operations of the airway table: clearing, compaction, new rows and the capacity message,
// numbering, the duplicate number check (against the plain comparison of every pair), and the
// emptying of a network.
#include <gtest/gtest.h>

#include <random>

#include "model/builtin_settings.h"
#include "model/network_rows.h"
#include "ui/scripted_ui.h"

using namespace karvane;

namespace {

// A live airway whose name and number tell it apart.
void PutAirway(Model& m, std::int32_t row, const std::string& name, std::int32_t number) {
    Airway& a = m.Airways[static_cast<std::size_t>(row)];
    a.BranchName = name;
    a.AirwayNo = number;
    a.BranchCode = bc::Rectangular | bc::FixedFlow;
    a.EntryKey = 1234567;
    a.X1 = row;
    a.Quantity = 12.5f;
    a.Comment = "note";
}

Model NetworkOf(int count) {
    Model m;
    for (int r = 1; r <= count; ++r) PutAirway(m, r, "A" + std::to_string(r), r);
    m.AirwayCount = count;
    return m;
}

// The plain procedure: compare every pair of rows.
bool PairwiseDuplicate(const Model& m) {
    for (int i = 1; i <= m.AirwayCount; ++i)
        for (int j = i + 1; j <= m.AirwayCount; ++j)
            if (m.Airways[static_cast<std::size_t>(i)].AirwayNo == m.Airways[static_cast<std::size_t>(j)].AirwayNo)
                return true;
    return false;
}

} // namespace

TEST(NetworkRows, ClearedRowsGoAtCompactionAndTheRestKeepOrder) {
    Model m = NetworkOf(8);
    ClearAirwayRow(m, 1);
    ClearAirwayRow(m, 4);
    ClearAirwayRow(m, 5);
    ClearAirwayRow(m, 8);
    EXPECT_EQ(m.Airways[4].BranchCode, 0);
    EXPECT_EQ(m.Airways[4].EntryKey, 0);

    CompactAirways(m);
    ASSERT_EQ(m.AirwayCount, 4);
    const char* expected[] = {"", "A2", "A3", "A6", "A7"};
    for (int r = 1; r <= 4; ++r) {
        EXPECT_EQ(m.Airways[static_cast<std::size_t>(r)].BranchName, expected[r]) << r;
        EXPECT_EQ(m.Airways[static_cast<std::size_t>(r)].X1, std::stoi(std::string(expected[r]).substr(1)));
    }
    // Rows freed at the end are empty again.
    for (int r = 5; r <= 8; ++r) {
        EXPECT_EQ(m.Airways[static_cast<std::size_t>(r)].BranchCode, 0) << r;
        EXPECT_TRUE(m.Airways[static_cast<std::size_t>(r)].BranchName.empty()) << r;
    }

    // Out-of-range rows are ignored rather than written.
    ClearAirwayRow(m, -1);
    ClearAirwayRow(m, MaxAirways + 5);
    EXPECT_EQ(m.AirwayCount, 4);
}

TEST(NetworkRows, CompactionOfEmptyAndFullyClearedNetworks) {
    Model empty;
    CompactAirways(empty);
    EXPECT_EQ(empty.AirwayCount, 0);

    Model m = NetworkOf(3);
    for (int r = 1; r <= 3; ++r) ClearAirwayRow(m, r);
    CompactAirways(m);
    EXPECT_EQ(m.AirwayCount, 0);

    // A count beyond the table does not take the compaction outside it.
    Model wild = NetworkOf(2);
    wild.AirwayCount = MaxAirways + 100;
    CompactAirways(wild);
    EXPECT_EQ(wild.AirwayCount, 2);
}

TEST(NetworkRows, NewRowIsClearedAndCapacityIsTold) {
    Model m = NetworkOf(2);
    PutAirway(m, 3, "stale", 99); // left over beyond the count
    EXPECT_EQ(NewAirwayRow(m), 3);
    EXPECT_EQ(m.AirwayCount, 3);
    EXPECT_TRUE(m.Airways[3].BranchName.empty());
    EXPECT_EQ(m.Airways[3].BranchCode, 0);

    ui::ScriptedUserInterface ui;
    m.AirwayCount = MaxAirways - 2;
    EXPECT_FALSE(AirwayCapacityReached(m, ui));
    EXPECT_TRUE(ui.Transcript.empty());
    m.AirwayCount = MaxAirways - 1;
    EXPECT_TRUE(AirwayCapacityReached(m, ui));
    ASSERT_EQ(ui.Transcript.size(), 1u);
    EXPECT_EQ(ui.Transcript[0].Kind, "Message");
    EXPECT_EQ(ui.Transcript[0].Text,
              "Maximum Number of Airways Exceeded\nIncrease allowable number of branches in Defaults !");

    // The table itself never overflows.
    m.AirwayCount = MaxAirways;
    EXPECT_EQ(NewAirwayRow(m), 0);
    EXPECT_EQ(m.AirwayCount, MaxAirways);
}

TEST(NetworkRows, NumberingRestartsOrContinues) {
    Model m = NetworkOf(5);
    m.Set.LastAirwayNo = 40;
    NumberAirways(m, 1, true);
    for (int r = 1; r <= 5; ++r) EXPECT_EQ(m.Airways[static_cast<std::size_t>(r)].AirwayNo, r);
    EXPECT_EQ(m.Set.LastAirwayNo, 6);

    // A merge numbers its new rows on from the current value, leaving the old rows alone.
    for (int r = 6; r <= 8; ++r) PutAirway(m, r, "M", 0);
    m.AirwayCount = 8;
    m.Set.LastAirwayNo = 20;
    NumberAirways(m, 6, false);
    EXPECT_EQ(m.Airways[5].AirwayNo, 5);
    EXPECT_EQ(m.Airways[6].AirwayNo, 20);
    EXPECT_EQ(m.Airways[8].AirwayNo, 22);
    EXPECT_EQ(m.Set.LastAirwayNo, 23);

    // Nothing to number: only the restart takes effect.
    Model empty;
    empty.Set.LastAirwayNo = 9;
    NumberAirways(empty, 1, true);
    EXPECT_EQ(empty.Set.LastAirwayNo, 1);
}

TEST(NetworkRows, CheckNumbersAgreesWithEveryPairComparison) {
    std::mt19937 rng(7);
    for (int trial = 0; trial < 200; ++trial) {
        const int count = static_cast<int>(rng() % 60);
        Model m;
        m.AirwayCount = count;
        // Narrow ranges give frequent duplicates, wide ones mostly none; zeros count as numbers.
        const std::uint32_t range = trial % 2 ? 5000u : static_cast<std::uint32_t>(count * 2 + 1);
        for (int r = 1; r <= count; ++r)
            m.Airways[static_cast<std::size_t>(r)].AirwayNo = static_cast<std::int32_t>(rng() % range);
        const bool expectDuplicate = PairwiseDuplicate(m);

        ui::ScriptedUserInterface ui;
        ui.Answers.push_back(ui::Answer::Yes);
        CheckAirwayNumbers(m, ui);
        ASSERT_EQ(ui.Transcript.size(), 1u);
        if (expectDuplicate) {
            EXPECT_EQ(ui.Transcript[0].Kind, "Ask");
            EXPECT_EQ(ui.Transcript[0].Title, "Duplicate airway numbers");
            EXPECT_EQ(ui.Transcript[0].Text,
                      "Duplicate unique airway numbers exist - allow Karvane to re-number them ?");
            for (int r = 1; r <= count; ++r) EXPECT_EQ(m.Airways[static_cast<std::size_t>(r)].AirwayNo, r);
            EXPECT_FALSE(PairwiseDuplicate(m));
            EXPECT_EQ(m.NetworkSaved, No0);
        } else {
            EXPECT_EQ(ui.Transcript[0].Kind, "Message");
            EXPECT_EQ(ui.Transcript[0].Text, "All airways have unqiue numbers");
            EXPECT_EQ(m.NetworkSaved, Yes255);
        }
    }
}

TEST(NetworkRows, CheckNumbersNoKeepsTheNumbers) {
    Model m = NetworkOf(4);
    m.Airways[3].AirwayNo = 1;
    m.Set.LastAirwayNo = 17;
    ui::ScriptedUserInterface ui;
    ui.Answers.push_back(ui::Answer::No);
    CheckAirwayNumbers(m, ui);
    EXPECT_EQ(m.Airways[3].AirwayNo, 1);
    EXPECT_EQ(m.Set.LastAirwayNo, 17);
    EXPECT_EQ(m.NetworkSaved, Yes255);
}

TEST(NetworkRows, ClearNetworkEmptiesDataButKeepsPermanentViews) {
    Model m = NetworkOf(10);
    SetBuiltInSettings(m);
    m.PrimaryLayers[3] = {"Ventilation", 0};
    m.SecondaryLayers[48] = {"Old", 0};
    for (int slot : {6, 50, 100, 101}) {
        m.SavedViews[static_cast<std::size_t>(slot)].ViewName = "mine";
        m.SavedViews[static_cast<std::size_t>(slot)].ViewParam.fill(3.0f);
        m.SavedViews[static_cast<std::size_t>(slot)].ViewValue.fill(77);
    }
    m.FloatingTexts[2] = {true, "Shaft", 1, 2, 3};
    m.Fans[1].FanName = "Main fan";
    m.FileComment = "comment";

    ClearNetwork(m);
    EXPECT_EQ(m.AirwayCount, 0);
    EXPECT_TRUE(m.Airways[1].BranchName.empty());
    EXPECT_EQ(m.PrimaryLayers[3].LayerOn, -1);
    EXPECT_EQ(m.SecondaryLayers[48].LayerOn, -1);
    for (int slot : {6, 50, 100}) {
        const SavedView& v = m.SavedViews[static_cast<std::size_t>(slot)];
        EXPECT_TRUE(v.ViewName.empty()) << slot;
        EXPECT_EQ(v.ViewParam[16], 0.0f) << slot;
        EXPECT_EQ(v.ViewParam[17], 3.0f) << slot; // only the first 16 parameters are blanked
        EXPECT_EQ(v.ViewValue[5], 0) << slot;
    }
    EXPECT_EQ(m.SavedViews[101].ViewName, "mine");
    EXPECT_EQ(m.SavedViews[5].ViewName, " 5. Iso View");
    EXPECT_FALSE(m.FloatingTexts[2].TextOn);
    EXPECT_TRUE(m.Fans[1].FanName.empty());
    EXPECT_TRUE(m.FileComment.empty());
}

TEST(NetworkRows, AllocationFollowsTheSettingsAndResizeKeepsContent) {
    Model m;
    m.Set.MaxFans = 400;
    m.Set.MaxText = 20;
    AllocateNetwork(m);
    EXPECT_EQ(m.Fans.size(), 401u);
    EXPECT_EQ(m.FloatingTexts.size(), 21u);
    EXPECT_EQ(m.Airways.size(), static_cast<std::size_t>(MaxAirways) + 1);

    m.Fans[3].FanName = "Third";
    m.FloatingTexts[20].TextValue = "text";
    m.Set.MaxText = 30;
    ResizeNetwork(m);
    EXPECT_EQ(m.FloatingTexts[20].TextValue, "text");

    m.Set.MaxFans = 10;
    ResizeNetwork(m);
    EXPECT_EQ(m.Fans.size(), 11u);
    EXPECT_EQ(m.Fans[3].FanName, "Third");

    // A negative size from a damaged file allocates an empty table, row 0 only.
    m.Set.MaxFans = -5;
    AllocateNetwork(m);
    EXPECT_EQ(m.Fans.size(), 1u);
}
