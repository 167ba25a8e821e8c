// The tools that act on picks and fences. The selection, attribute and layer tools: the paste
// store and the defaults, the words of every message, the undo records of a paste. The delete
// tool: the join at a node of two airways and its refusal at a node of three, the airway at the
// network's edge, the selection, floating text, the fence delete in one undo step. The Find
// menu, FindNext with its wrap, and the follow tool.
#include <gtest/gtest.h>

#include <tuple>

#include "display/palette.h"
#include "edit/attribute_paste.h"
#include "edit/delete_rows.h"
#include "edit/find.h"
#include "model/network_rows.h"
#include "pick_support.h"

namespace karvane::edit {
namespace {

using testing::PickRig;

// Three parallel drives 500 m apart; the first is the one to copy from.
void BuildThree(PickRig& r) {
    for (int k = 0; k < 3; ++k) r.S.Add(0, 500 * k, 500, 1000, 500 * k, 500);
    Airway& a = r.S.Row(1);
    a.Height = 5;
    a.Width = 6;
    a.WallType = 4;
    a.ShockType = 2;
    a.ResType = 2;
    a.BranchCode |= bc::FixedLength | bc::FreshAir | bc::DataHidden | bc::EntryAtSurface;
    a.Length = 333;
    a.PrimaryLayer = 2;
    r.S.M.PrimaryLayers[2].Name = "Vent";
    r.S.Row(3).BranchCode |= bc::ExitAtSurface;
    r.Draw();
}

TEST(SelectTool, ClicksAndFencesSetTheBitWhichOutlivesAToolChange) {
    PickRig r;
    r.S.Add(0, 0, 500, 2000, 0, 500); // a long airway whose midpoint is (1000, 0)
    r.S.Add(0, 400, 500, 2000, 400, 500);
    r.Draw();
    // A fence across the line between its ends and midpoint takes nothing.
    r.Drag(cmd::Select, 400, -50, 600, 50);
    EXPECT_FALSE(r.S.Row(1).Has(bc::Selected));
    // A fence round the midpoint alone takes it.
    r.Drag(cmd::Select, 900, -50, 1100, 50);
    EXPECT_TRUE(r.S.Row(1).Has(bc::Selected));
    EXPECT_FALSE(r.S.Row(2).Has(bc::Selected));
    // A click: left sets, right clears.
    r.Click(cmd::Select, 500, 400);
    EXPECT_TRUE(r.S.Row(2).Has(bc::Selected));
    r.Click(cmd::Select, 500, 400, button::Right);
    EXPECT_FALSE(r.S.Row(2).Has(bc::Selected));
    EXPECT_EQ(r.Calls.back(), "RedrawAllWindows");
    // The selection stays through another tool, is drawn white and twice as wide, and Esc ends it.
    r.D.RunToolCommand(cmd::Layers);
    r.Host.Redraw();
    EXPECT_TRUE(r.S.Row(1).Has(bc::Selected));
    EXPECT_EQ(r.S.Ds.Drawn[0].Width, 2 * r.S.M.Set.IconSize[0]);
    EXPECT_NE(r.S.Ds.Drawn[0].LineColour, r.S.Ds.Drawn[1].LineColour);
    EXPECT_EQ(r.S.Ds.Drawn[0].LineColour, display::FixedColour(display::WhiteIndex));
    r.S.M.Set.Colours[3] = Rgb(255, 255, 250); // a light background: the selection turns black
    r.Host.Redraw();
    EXPECT_EQ(r.S.Ds.Drawn[0].LineColour, display::PaletteColour(0));
    r.D.OnKeyDown(key::Escape);
    EXPECT_FALSE(r.S.Row(1).Has(bc::Selected));
    EXPECT_TRUE(r.LogEntries().empty());
}

TEST(AttributeTool, CopyThenPasteWithEveryLineAndNeverTheSurfaceBits) {
    PickRig r;
    BuildThree(r);
    r.Click(cmd::Attributes, 500, 0, button::Right);
    EXPECT_EQ(r.S.Ui.Texts("Message").back(), "The following attributes for branch 1 were copied for future pasting\n"
                                              "Dimension 5 x 6\n"
                                              "Drive Wall Friction Factor: Smooth Blasted Airway\n"
                                              "Shock Value: Low\n"
                                              "Resistance Type: Steel Door\n"
                                              "Length is fixed to  333\n"
                                              "Airway is in fresh air\n"
                                              "Primary Layer = 2 : Vent\n"
                                              "Secondary Layer = 1 : \n"
                                              "Data values will be hidden");
    EXPECT_EQ(r.S.M.Paste.PasteBranchCode & (bc::EntryAtSurface | bc::ExitAtSurface), 0);

    const std::int16_t step = r.Undo.CurrentStep;
    r.Click(cmd::Attributes, 500, 1000);
    EXPECT_EQ(r.S.Ui.Texts("Notice").back(), "Attributes pasted to Branch 3\n"
                                             "Dimension 5 x 6\n"
                                             "Drive Wall Type: Smooth Blasted Airway\n"
                                             "Low\n"
                                             "Resistance Type: Steel Door\n"
                                             "Length is fixed\n"
                                             "Airway is in fresh air\n"
                                             "Primary Layer = 2 : Vent\n"
                                             "Secondary Layer = 1 : \n"
                                             "Data values will be hidden");
    const Airway& b = r.S.Row(3);
    EXPECT_EQ(std::make_tuple(b.Height, b.Width, b.WallType, b.ShockType, b.ResType, b.Length),
              std::make_tuple(5.0f, 6.0f, 4, 2, 2, 333.0f));
    EXPECT_EQ(b.PrimaryLayer, 2);
    EXPECT_TRUE(b.Has(bc::FixedLength) && b.Has(bc::FreshAir) && b.Has(bc::DataHidden) && b.Has(bc::Rectangular));
    EXPECT_FALSE(b.Has(bc::EntryAtSurface));
    EXPECT_TRUE(b.Has(bc::ExitAtSurface)); // its own surface bit stays
    EXPECT_EQ(r.LogEntries(), (std::vector<std::pair<int, int>>{{step, 2}, {step, 1}}));
    EXPECT_EQ(r.Undo.CurrentStep, step + 1);
}

TEST(AttributeTool, AnEmptyStoreAndAnEmptyMaskHaveTheirOwnWords) {
    PickRig r;
    BuildThree(r);
    r.Click(cmd::Attributes, 500, 500);
    r.Drag(cmd::Attributes, -50, 400, 1050, 1050);
    r.S.M.Set.AttributeMask = -1;
    r.Click(cmd::Attributes, 500, 500, button::Right);
    r.S.M.Set.AttributeMask = attr::All;
    r.Drag(cmd::Attributes, -50, 400, 1050, 1050);
    EXPECT_EQ(r.S.Ui.Texts("Message"),
              (std::vector<std::string>{
                  "Paste attributes must first be copied from an existing branch by using the right mouse button",
                  "Use the right mouse button to copy attributes from an airway first !",
                  "No copy/paste attributes have been selected !", "No copy/paste attributes have been selected !"}));
    EXPECT_TRUE(r.S.Ui.Texts("Ask").empty());
    EXPECT_EQ(r.S.M.Paste.PasteBranchCode, 0);
    EXPECT_TRUE(r.LogEntries().empty());
}

TEST(AttributeTool, CopyToTheDefaultsGoesByShapeThenTheToolPastesAgain) {
    PickRig r;
    BuildThree(r);
    Airway& raise = r.S.Row(2);
    raise.BranchCode = (raise.BranchCode & ~bc::Rectangular) | bc::Circular;
    raise.Height = 0;
    raise.Width = 2.5f;
    raise.WallType = 3;
    raise.PrimaryLayer = 2;
    r.S.M.Set.AttributeMask = attr::Resistance | attr::Length | attr::Air | attr::Secondary | attr::Display;
    const std::int16_t driveWall = r.S.M.Set.DriveWallType;
    r.Click(cmd::AttributesToDefaults, 500, 500);
    EXPECT_EQ(r.S.Ui.Texts("Message").back(), "The following attributes for branch 2 were copied to defaults\n"
                                              "Diameter 2.5\n"
                                              "Raise Wall Type: Raisebored Airway\n"
                                              "None\n"
                                              "Primary Layer = 2 : Vent");
    EXPECT_EQ(std::make_tuple(r.S.M.Set.RaiseDiameter, r.S.M.Set.RaiseWallType), std::make_tuple(2.5f, 3));
    EXPECT_EQ(r.S.M.Set.DriveWallType, driveWall); // a raise sets the raise wall alone
    EXPECT_EQ(std::make_tuple(r.S.M.Set.DefaultShock, r.S.M.DrawPrimaryLayer), std::make_tuple(0.0f, 2));
    EXPECT_EQ(r.S.M.Paste.PasteBranchCode, 0); // the paste store is not touched
    EXPECT_EQ(r.D.State().CommandValue, cmd::Attributes);
    EXPECT_FALSE(r.D.State().CopyToDefaults);
    EXPECT_TRUE(r.LogEntries().empty());
}

TEST(LayerTool, RightCopiesTheDrawLayersLeftAndTheFencePasteThem) {
    PickRig r;
    BuildThree(r);
    r.Click(cmd::Layers, 500, 0, button::Right);
    EXPECT_EQ(std::make_tuple(r.S.Ui.Texts("Message").back(), r.S.M.DrawPrimaryLayer),
              std::make_tuple("Primary Layer Default = 2 : Vent\nSecondary Layer Default = 1 : ", 2));
    r.Click(cmd::Layers, 500, 500);
    EXPECT_EQ(std::make_tuple(r.S.Ui.Texts("Notice").back(), r.S.Row(2).PrimaryLayer),
              std::make_tuple("Layers pasted to branch 2", 2));

    r.S.M.DrawSecondaryLayer = 7;
    const std::int16_t step = r.Undo.CurrentStep;
    r.Drag(cmd::Layers, -50, -50, 1050, 1050);
    EXPECT_EQ(r.S.Ui.Texts("Ask"),
              (std::vector<std::string>{"Are you sure you want to change all airway view layers within the fence ?"}));
    EXPECT_EQ(r.S.Ui.Transcript.back().Title, "Fence Tag");
    for (std::int32_t row = 1; row <= 3; ++row) EXPECT_EQ(r.S.Row(row).SecondLayer, 7);
    EXPECT_EQ(std::make_tuple(r.LogEntries().size(), r.LogEntries().back().first, r.Undo.CurrentStep),
              std::make_tuple(2u + 6u, step, step + 1));
}

// A drive of two airways meeting at (500, 0), of different sizes and names, and a parallel
// airway at y = 500.
void BuildPair(PickRig& r) {
    r.S.Add(0, 0, 500, 500, 0, 500);
    r.S.Row(1).BranchName = "WEST DRIVE";
    r.S.Add(500, 0, 500, 1000, 0, 500);
    r.S.Row(2).Width = 6;
    r.S.Add(0, 500, 500, 1000, 500, 500);
}

TEST(DeleteTool, ANodeOfThreeIsRefusedAndTheEdgeOfTheNetworkDeletesTheAirway) {
    PickRig r;
    BuildPair(r);
    r.S.Add(500, 0, 500, 500, 500, 500); // a third airway leaves the node
    r.Draw();
    r.Click(cmd::Delete, 500, 0);
    EXPECT_EQ(r.S.Ui.Texts("Message"), (std::vector<std::string>{"Too many attached branches to delete node"}));
    EXPECT_EQ(r.S.M.AirwayCount, 4);
    EXPECT_TRUE(r.LogEntries().empty());

    // No other airway ends where airway 1 begins: the pick goes on as an airway pick.
    r.Click(cmd::Delete, 0, 0);
    ASSERT_EQ(r.S.M.AirwayCount, 3);
    EXPECT_EQ(r.S.Row(1).X1, 500);
    EXPECT_NE(r.S.Row(1).BranchName, "WEST DRIVE");
    EXPECT_EQ(r.LogEntries().size(), 1u);
}

TEST(DeleteTool, TheSelectionGoesInOneStepAndTextIsSwitchedOff) {
    PickRig r;
    BuildPair(r);
    r.S.Add(0, 1000, 500, 1000, 1000, 500);
    r.S.Row(1).BranchCode |= bc::Selected;
    r.S.Row(4).BranchCode |= bc::Selected;
    r.S.M.FloatingTexts[1] = FloatingText{true, "PUMP", 200, 300, 500};
    r.Draw();
    const std::int16_t step = r.Undo.CurrentStep;
    r.Click(cmd::Delete, 250, 0); // on a selected airway
    ASSERT_EQ(r.S.M.AirwayCount, 2);
    EXPECT_EQ(r.LogEntries(), (std::vector<std::pair<int, int>>{{step, 2}, {step, 2}}));
    EXPECT_EQ(r.Calls.back(), "RedrawAllWindows");

    r.Click(cmd::Delete, 200, 300);
    EXPECT_FALSE(r.S.M.FloatingTexts[1].TextOn);
    EXPECT_EQ(r.S.M.AirwayCount, 2);
}

TEST(DeleteTool, TheFenceAsksAndDeletesEveryDrawnAirwayWithinInOneStep) {
    PickRig r;
    BuildPair(r);
    r.Draw();
    const std::vector<std::string> question{"Are you sure you want to delete all airways within the fence?"};

    // No: nothing goes.
    r.S.Ui.Answers.push_back(ui::Answer::No);
    r.Drag(cmd::Delete, -50, -50, 1050, 100);
    EXPECT_EQ(std::make_tuple(r.S.Ui.Texts("Ask"), r.S.Ui.Transcript.back().Title, r.S.M.AirwayCount),
              std::make_tuple(question, "Fence Delete", 3));

    // An empty fence asks nothing.
    r.Drag(cmd::Delete, 100, 150, 300, 350);
    EXPECT_EQ(r.S.Ui.Texts("Ask").size(), 1u);

    // Yes: both airways of the drive, in one step; the parallel airway stays.
    const std::int16_t step = r.Undo.CurrentStep;
    r.Drag(cmd::Delete, -50, -50, 1050, 100);
    ASSERT_EQ(r.S.M.AirwayCount, 1);
    EXPECT_EQ(r.S.Row(1).Y1, 500);
    EXPECT_EQ(r.LogEntries(), (std::vector<std::pair<int, int>>{{step, 2}, {step, 2}}));
    EXPECT_EQ(r.Undo.CurrentStep, step + 1);

    // Everything: the table is empty and the log holds the last row.
    r.Drag(cmd::Delete, -100, -100, 1100, 600);
    EXPECT_EQ(r.S.M.AirwayCount, 0);
    EXPECT_NE(r.Undo.RecordText(3).find("500"), std::string::npos);
    r.Click(cmd::Delete, 500, 0); // on nothing: nothing happens
    EXPECT_EQ(r.S.M.AirwayCount, 0);
}

TEST(DeleteTool, OnlyAirwaysDrawnInTheViewAreWithinAFence) {
    PickRig r;
    BuildPair(r);
    r.S.Add(0, 0, 300, 1000, 0, 300); // under the drive, on another level
    r.Draw();
    r.S.Ds.View.LevelMode = display::lm::Single;
    r.S.Ds.View.CurrentRLMin = 480;
    r.S.Ds.View.CurrentRLMax = 500;
    r.S.Refresh();
    r.Host.Redraw();
    r.Drag(cmd::Delete, -50, -50, 1050, 100);
    ASSERT_EQ(r.S.M.AirwayCount, 2);
    EXPECT_EQ(r.S.Row(2).Z1, 300);
}

TEST(DeleteRows, TheRowsOfASpreadsheetGoInOneStepAndOneCompaction) {
    PickRig r;
    BuildPair(r);
    r.S.Add(0, 1000, 500, 1000, 1000, 500);
    const std::vector<std::int32_t> rows{1, 3, 3, 99};
    DeleteRows(r.S.M, r.S.Ui, r.Undo, rows);
    ASSERT_EQ(r.S.M.AirwayCount, 2);
    EXPECT_EQ(std::make_tuple(r.S.Row(1).X1, r.S.Row(2).Y1), std::make_tuple(500, 1000));
    EXPECT_EQ(r.LogEntries(), (std::vector<std::pair<int, int>>{{1, 2}, {1, 2}}));
    EXPECT_EQ(r.Undo.CurrentStep, 2);
}

std::vector<std::int32_t> ShownRows(const PickRig& r) {
    std::vector<std::int32_t> rows;
    for (const auto& [row, fraction] : r.Shown) rows.push_back(row);
    return rows;
}

void BuildNamed(PickRig& r) {
    for (int k = 0; k < 5; ++k) r.S.Add(0, 300 * k, 500, 1000, 300 * k, 500);
    r.S.Row(1).EntryNode = "Shaft A";
    r.S.Row(3).ExitNode = "N-SHAFT";
    r.S.Row(4).BranchName = "Shaft road";
    r.Draw();
}

TEST(Find, PartOfANodeNameFindsInTurnAndWrapsRoundOnce) {
    PickRig r;
    BuildNamed(r);
    r.S.Ui.Inputs.push_back("haft");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::NodeName), 1);
    EXPECT_EQ(r.S.Ui.Transcript.back().Text, "Enter all or part of node name");
    EXPECT_EQ(r.S.Ui.Transcript.back().Title, "Locate Node");
    EXPECT_EQ(r.S.M.Find.FindText, "HAFT");
    EXPECT_EQ(r.S.M.Find.FinderTick, find::NodeName);
    FindNext(r.S.M, r.S.Ds, r.S.Ui, r);
    FindNext(r.S.M, r.S.Ds, r.S.Ui, r);
    EXPECT_EQ(ShownRows(r), (std::vector<std::int32_t>{1, 3, 1}));
    EXPECT_FLOAT_EQ(r.Shown.back().second, 0);
    EXPECT_TRUE(r.S.Ui.Texts("Message").empty());

    // The tool bar's find again goes on from there.
    r.D.RunToolCommand(cmd::FindNext);
    EXPECT_EQ(r.Host.Commands, (std::vector<int>{cmd::FindNext}));
}

TEST(Find, NothingToFindSaysSoOnceAndACancelledBoxStops) {
    PickRig r;
    BuildNamed(r);
    EXPECT_EQ(FindNext(r.S.M, r.S.Ds, r.S.Ui, r), 0); // no search yet: nothing at all
    EXPECT_TRUE(r.S.Ui.Transcript.empty());

    r.S.Ui.Inputs.push_back("ZZ");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::BranchName), 0);
    r.S.Ui.Inputs.push_back("0");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::BranchNumber), 0);
    r.S.Ui.Inputs.push_back(std::nullopt);
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::NodeName), 0);
    // Bytes of another code page find nothing and break nothing.
    r.S.Ui.Inputs.push_back("\xCE\xA9\xE2\x82\xAC?");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::NodeName), 0);
    EXPECT_EQ(r.S.Ui.Texts("Message"), (std::vector<std::string>{"No branches to find!", "No branches to find!"}));
    EXPECT_EQ(r.S.M.Find.FinderTick, find::NodeName);
    EXPECT_TRUE(r.Shown.empty());

    // An empty network, and a new network clears the search.
    ClearNetwork(r.S.M);
    EXPECT_EQ(r.S.M.Find.FindKind, find::None);
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::Errors), 0);
    EXPECT_EQ(r.S.Ui.Texts("Message").size(), 3u);
}

TEST(Find, EachKindFindsItsAirways) {
    PickRig r;
    BuildNamed(r);
    r.S.Row(2).BranchCode |= bc::ErrorMark;
    r.S.Row(3).Pressure = StalledFanPressure;
    r.S.Row(4).BranchCode |= bc::FixedFlow;
    r.S.Row(5).FanNumber = -1;
    r.S.Row(1).BranchCode |= bc::FixedDirection;
    r.S.Row(5).BranchCode |= bc::FixedDirection; // a fan: not a fixed direction
    r.S.Row(2).Length = 0;
    r.S.Row(5).AirwayNo = 77;
    r.S.Ui.Inputs.push_back("77");
    r.S.Ui.Inputs.push_back("road");
    const struct {
        int Entry;
        std::int32_t Row;
    } cases[] = {{find::Errors, 2},          {find::BadFans, 3},     {find::FixedFlows, 4},   {find::FixedPressure, 5},
                 {find::FixedDirections, 1}, {find::ZeroLengths, 2}, {find::BranchNumber, 5}, {find::BranchName, 4}};
    for (const auto& c : cases) EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, c.Entry), c.Row) << FinderCaption(c.Entry);
    EXPECT_EQ(r.S.Ui.Transcript.back().Title, "Locate Branch");
}

TEST(Find, WithEveryLevelRowTakenNoGlobalLevelIsAdded) {
    PickRig r;
    BuildNamed(r);
    r.S.Add(0, 0, 2000, 400, 0, 2000);
    r.S.Row(6).BranchName = "HIGH";
    for (int row = 4; row <= 249; ++row)
        r.S.M.Levels[static_cast<std::size_t>(row)] = {"L" + std::to_string(row), 10, 0};
    r.Draw();
    r.ShowForReal = true;
    r.S.Ui.Inputs.push_back("HIGH");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::BranchName), 6);
    ASSERT_EQ(r.S.Ui.Texts("Message").size(), 2u);
    EXPECT_EQ(r.S.Ui.Texts("Message")[1], "Level addition failed - too many levels already defined");
    EXPECT_TRUE(r.S.M.Levels[250].RLName.empty());
    EXPECT_EQ(r.S.Ds.View.RotCentre, (std::array<std::int32_t, 3>{200, 0, 2000}));
}

TEST(FollowTool, AClickOnAnAirwayShowsItByTheEndClicked) {
    PickRig r;
    BuildNamed(r);
    r.Click(cmd::Follow, 900, 300);
    ASSERT_EQ(r.Shown.size(), 1u);
    EXPECT_EQ(r.Shown[0].first, 2);
    EXPECT_GT(r.Shown[0].second, 0.5f);
    r.Click(cmd::Follow, 500, 150); // between the airways
    r.Drag(cmd::Follow, 100, 0, 900, 0);
    EXPECT_EQ(r.Shown.size(), 1u);
}

} // namespace
} // namespace karvane::edit
