// The network spreadsheet without a window: cell texts by column rule, the recalculation as
// the user types, the save and its undo records, the grid commands with bad input, and the key
// rules of the tables' edit box and their clipboard text.
#include <gtest/gtest.h>

#include <tuple>

#include <algorithm>
#include <cmath>

#include "display/display_list.h"
#include "display/recording_surface.h"
#include "engineering/resistance.h"
#include "files/network_file.h"
#include "forms/grid_edit.h"
#include "forms/sheet_print.h"
#include "forms/spreadsheet_form.h"
#include "forms_support.h"
#include "model/node_keys.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

struct RecordingSheetHost : SpreadSheetHost {
    std::vector<std::string> Calls;
    void ShowAirwayEditor(std::int32_t row) override { Calls.push_back("edit " + std::to_string(row)); }
    void ShowAirwayInfo(std::int32_t row) override { Calls.push_back("info " + std::to_string(row)); }
    void RunSimulation() override { Calls.push_back("simulate"); }
    void RefreshViews() override { Calls.push_back("refresh"); }
};

// Three airways in a line and a fourth off to the side; every row has a lasting UndoNo, as a
// network that has been edited before.
struct SheetScene : FormScene {
    display::DisplayState Ds;
    files::UndoLog Undo;
    RecordingSheetHost Host;
    SheetWidths Widths;
    std::unique_ptr<SpreadSheetForm> Form;

    SheetScene() {
        Add(0, 0, -100, 100, 0, -100);
        Add(100, 0, -100, 200, 0, -100);
        Add(200, 0, -100, 200, 300, -140);
        Add(100, 0, -100, 100, 50, -100);
        for (std::int32_t r = 1; r <= M.AirwayCount; ++r) {
            Airway& a = Row(r);
            a.WallType = 5; // "Average Blasted Airway", 0.012
            a.Quantity = 12.34567f;
            a.UndoNo = r;
            RecalcAirway(M, r);
        }
        Row(1).BranchName = "Intake";
        Row(1).EntryNode = "Portal";
        Row(2).AirwayNo = 7; // rows come sorted on "No."
        M.Set.LastAirwayNo = 8;
        Undo.LastUndoNo = 10;
        BuildNodeKeys(M, Ui);
        Undo.Open(Ui, Temp.File("undo.tmp"));
        display::BuildDisplayList(M, Ds);
        Form = std::make_unique<SpreadSheetForm>(M, Ds, Undo, Ui, Host, Widths);
        Form->Open();
    }
    SpreadSheetForm& F() { return *Form; }
    // The grid row showing an airway row.
    int GridRow(std::int32_t key) {
        for (int r = 1; r <= F().RowCount(); ++r)
            if (F().Row(r).Key == key) return r;
        return 0;
    }
    std::string NetworkText() {
        std::string out = std::to_string(M.AirwayCount) + "\n";
        for (std::int32_t r = 1; r <= M.AirwayCount; ++r) out += files::AirwayRowText(M, r, '.') + "\n";
        return out;
    }
    std::vector<std::string> Texts(int row, std::initializer_list<int> cols) {
        std::vector<std::string> out;
        for (int c : cols) out.push_back(F().Text(row, c));
        return out;
    }
    std::vector<std::string> Messages() const {
        std::vector<std::string> out;
        for (const auto& t : Ui.Transcript) out.push_back(t.Text);
        return out;
    }
};

TEST(SpreadSheet, CellsShowEachColumnByItsRuleInDisplayUnits) {
    SheetScene s;
    Airway& a = s.Row(3);
    a.Quantity = -3.14159f;
    a.FanNumber = 2;
    a.NoOfFans = 1;
    a.Pressure = NegatedFanPressure;
    a.ResType = 1;
    a.Comment = "Door ";
    a.BranchCode |= bc::FixedLength;
    a.WallType = 50;
    a.WallFactor = 0.012f;
    s.F().Fill();
    ASSERT_EQ(s.F().RowCount(), 4);
    // Sorted on "No.": airway 2 carries number 7 and comes last.
    EXPECT_EQ(s.F().Row(4).Key, 2);
    const int r = s.GridRow(3);
    // Flow truncated to 3 decimals, not rounded; the custom K-Factor of the row.
    EXPECT_EQ(s.Texts(r, {sc::Key, sc::Flow, sc::Fan, sc::FPres, sc::Comments, sc::Length, sc::Z2, sc::KFactor}),
              (std::vector<std::string>{"3", "-3.141", "2", "Negate", "Door " + TrimText(s.M.Preset.ResNames[1]),
                                        "302.0", "-140", "0.01200"}));
    EXPECT_EQ((std::array{s.F().Red(r, sc::Length), s.F().Red(r, sc::Resistance), s.F().Red(r, sc::KFactor),
                          s.F().Red(r, sc::Flow)}),
              (std::array{true, true, true, false}));
    // Velocity 12.34567 / 16; pressure drop R Q2 = 0.0046875 x 12.34567^2.
    EXPECT_EQ(s.Texts(s.GridRow(1), {sc::Name, sc::Fan, sc::FPres, sc::Vel, sc::Pdrop}),
              (std::vector<std::string>{"Intake", "", "", "0.8", "0.7"}));

    // A fixed pressure airway: F Pres in whole display units and fixed; stall shows its word.
    a.FanNumber = -1;
    a.Pressure = 250.4f;
    s.M.Set.UnitSys = 2;
    s.F().Fill();
    EXPECT_EQ(s.F().Text(s.GridRow(3), sc::FPres), "1006"); // 250.4 Pa x 4.0186
    EXPECT_TRUE(s.F().Red(s.GridRow(3), sc::FPres));
    EXPECT_EQ(s.F().Text(s.GridRow(1), sc::Length), "328.08398"); // 100 m x 3.28084 in single precision
    EXPECT_EQ(s.F().Text(s.GridRow(1), sc::X2), "328");
    a.Pressure = StalledFanPressure;
    s.F().Fill();
    EXPECT_EQ(s.F().Text(s.GridRow(3), sc::FPres), "Stall");
    EXPECT_EQ(SheetColumns()[sc::Resistance].Heading, "Resistance");
    EXPECT_TRUE(SheetColumns()[sc::Resistance].RightAligned);
    EXPECT_EQ(SheetColumns()[sc::Comments].Heading, " Comments  ");
}

TEST(SpreadSheet, AWidthEditShowsTheNewResistanceAndTheSaveWritesIt) {
    SheetScene s;
    const int r = s.GridRow(1);
    const float before = s.Row(1).Resistance;
    s.F().SetCurrent(r, sc::Width);
    s.F().EnterCell(r, sc::Width, "3");
    EXPECT_TRUE(s.F().Modified);
    EXPECT_EQ(s.Row(1).Resistance, before) << "nothing reaches the network before the save";

    // What the airway editor would work out for the new width.
    Airway copy = s.Row(1);
    s.Row(1).Width = 3;
    RecalcAirway(s.M, 1);
    const float expected = s.Row(1).Resistance;
    s.Row(1) = copy;
    EXPECT_EQ(s.F().Text(r, sc::Resistance), FormatNumber(expected, "0.00000"));
    EXPECT_FALSE(s.F().Red(r, sc::Resistance));

    ASSERT_TRUE(s.F().SaveGrid());
    EXPECT_FALSE(s.F().Modified);
    EXPECT_EQ(std::make_tuple(s.Row(1).Width, s.Row(1).ResType), std::make_tuple(3.0f, 0));
    EXPECT_NEAR(s.Row(1).Resistance, expected, 0.5e-5);
    RecalcAirway(s.M, 1); // as the next run does
    EXPECT_EQ(s.Row(1).Resistance, expected);

    // K-Factor under a fixed resistance: the resistance stays, the K-Factor turns red.
    const std::string fixedText = s.F().Text(r, sc::Resistance);
    s.F().SetCurrent(r, sc::Resistance);
    s.F().Fix(true);
    s.F().SetCurrent(r, sc::KFactor);
    s.F().EnterCell(r, sc::KFactor, "0.02");
    EXPECT_EQ(s.F().Text(r, sc::Resistance), fixedText);
    EXPECT_TRUE(s.F().Red(r, sc::KFactor));

    // A rectangular airway with Height 0 works as a circle of diameter Width.
    const int r2 = s.GridRow(2);
    s.F().EnterCell(r2, sc::Height, "0");
    const double area = 4.0 * 4.0 * ResistancePi / 4.0, perimeter = 4.0 * ResistancePi;
    const float circle = static_cast<float>(0.012f * static_cast<float>(perimeter) * 100.0f * 1.2f /
                                            std::pow(static_cast<float>(area), 3) / 1.2);
    EXPECT_EQ(s.F().Text(r2, sc::Resistance), FormatNumber(circle, "0.00000"));
}

TEST(SpreadSheet, FlowAndPressureTogetherOfferTheResistance) {
    SheetScene s;
    const int r = s.GridRow(2);
    s.Ui.Answers = {ui::Answer::Yes};
    s.F().EnterCell(r, sc::Flow, "20");
    EXPECT_TRUE(s.Ui.Transcript.empty());
    s.F().EnterCell(r, sc::Pdrop, "-100");
    ASSERT_EQ(s.Ui.Transcript.size(), 1u);
    EXPECT_EQ(std::make_tuple(s.Ui.Transcript[0].Title, s.Ui.Transcript[0].Text, s.F().Text(r, sc::Resistance)),
              std::make_tuple("Resistance Calculation", "Calculate and fix resistance ?", "0.25000"));
    EXPECT_TRUE(s.F().Red(r, sc::Resistance));
    ASSERT_TRUE(s.F().SaveGrid());
    EXPECT_EQ(std::tie(s.Row(2).Resistance, s.Row(2).ResType, s.Row(2).Quantity),
              std::make_tuple(0.25f, CustomPreset, 20.0f));
    EXPECT_TRUE(s.Row(2).Has(bc::FixedFlow));
    EXPECT_EQ(s.M.SimFail, RunResult::Good);

    // Unfixing a preset resistance makes the airway calculated again.
    s.Row(3).ResType = 4;
    s.F().Fill();
    s.F().SetCurrent(s.GridRow(3), sc::Resistance);
    s.F().Fix(false);
    ASSERT_TRUE(s.F().SaveGrid());
    EXPECT_EQ(s.Row(3).ResType, 0);

    // A resistance of 0 typed in: the airway goes back to calculated.
    s.F().EnterCell(s.GridRow(4), sc::Resistance, "0");
    ASSERT_TRUE(s.F().SaveGrid());
    EXPECT_EQ(std::tie(s.Row(4).Resistance, s.Row(4).ResType), std::make_tuple(0.0f, 0));

    // A fixed flow pressure cannot be fixed.
    s.F().EnterCell(s.GridRow(4), sc::FPres, "12*");
    EXPECT_EQ(s.Ui.Transcript.back().Text, "Cannot fix this pressure due to fixed flow");
    EXPECT_FALSE(s.F().Red(s.GridRow(4), sc::FPres));
}

// The undo of a save as the undo command replays it: the "before" records of the step, last
// first, read back into their rows.
void UndoStep(SheetScene& s, std::int16_t step) {
    for (std::int32_t k = UndoCapacity - 1; k >= 1; --k) {
        const files::UndoEntry& e = s.Undo.UndoIndex[static_cast<std::size_t>(k)];
        const files::UndoEntry& after = s.Undo.UndoIndex[static_cast<std::size_t>(k + 1)];
        if (e.UndoStep != step || e.UndoAction != files::undo::Before) continue;
        ASSERT_EQ(after.UndoAction, files::undo::After); // each row's pair of records
        for (std::int32_t r = 1; r <= s.M.AirwayCount; ++r)
            if (s.Row(r).UndoNo == after.UndoRowNo) files::ParseAirwayRow(s.M, s.Ui, s.Undo.RecordText(k), r, 2.9, '.');
    }
}

TEST(SpreadSheet, ASaveIsOneUndoStepAndItsUndoGivesTheNetworkBack) {
    SheetScene s;
    const std::string before = s.NetworkText();
    const std::int16_t step = s.Undo.CurrentStep;
    s.F().EnterCell(s.GridRow(1), sc::Name, "Main intake");
    s.F().EnterCell(s.GridRow(3), sc::Height, "2.5");
    s.F().EnterCell(s.GridRow(3), sc::X2, "210");
    ASSERT_TRUE(s.F().SaveGrid());
    EXPECT_EQ(std::make_tuple(s.Undo.CurrentStep, TrimText(s.Row(1).BranchName), s.Row(3).X2),
              std::make_tuple(step + 1, "Main intake", 210));
    // Two records for each changed row, none for the rows left alone.
    int records = 0;
    for (const auto& e : s.Undo.UndoIndex) records += e.UndoStep == step ? 1 : 0;
    EXPECT_EQ(records, 4);
    EXPECT_NE(s.NetworkText(), before);
    UndoStep(s, step);
    EXPECT_EQ(s.NetworkText(), before);

    // A save with nothing changed logs nothing and keeps the step.
    s.F().Fill();
    ASSERT_TRUE(s.F().SaveGrid());
    EXPECT_EQ(s.Undo.CurrentStep, step + 1);
}

TEST(SpreadSheet, BadCellsRefuseTheSaveAndLeaveTheNetworkAsItWas) {
    SheetScene s;
    const std::string before = s.NetworkText();
    const struct {
        int Col;
        const char* Text;
        const char* Message;
    } cases[] = {
        {sc::Width, "wide", "Error in Number Format"},
        {sc::Flow, "12.5.1", "Error in Number Format"},
        {sc::Length, "1e99", "Error in Number Format"},
        {sc::Fan, "2.5", "Error in Number Format"},
        {sc::X1, "10000000", "Coordinate data exceeds 9999999 - changes not saved"},
        {sc::Z2, "-12345678", "Coordinate data exceeds 9999999 - changes not saved"},
    };
    for (const auto& c : cases) {
        s.F().Fill();
        s.Ui.Transcript.clear();
        s.F().EnterCell(s.GridRow(2), sc::Name, "Renamed");
        s.F().EnterCell(s.GridRow(3), c.Col, c.Text);
        EXPECT_FALSE(s.F().SaveGrid()) << c.Text;
        EXPECT_EQ(s.Messages().back(), c.Message) << c.Text;
        EXPECT_EQ(s.NetworkText(), before) << c.Text;
        EXPECT_EQ(std::tie(s.F().Modified, s.F().CurRow, s.F().CurCol), std::make_tuple(true, s.GridRow(3), c.Col));
        // Leaving with the bad cell keeps the window open.
        s.Ui.Answers = {ui::Answer::Yes};
        EXPECT_FALSE(s.F().Close());
    }
    // Text the recalculation cannot read counts as 0 without a word.
    s.F().Fill();
    s.Ui.Transcript.clear();
    s.F().EnterCell(s.GridRow(1), sc::Height, "abc");
    EXPECT_TRUE(s.Ui.Transcript.empty());
    // Blanks and a comma as decimal point read as numbers; an empty cell is 0.
    EXPECT_EQ(ReadSheetNumber(" 2,5 "), 2.5);
    EXPECT_EQ(ReadSheetNumber(""), 0.0);
    EXPECT_EQ(ReadSheetNumber("-1E3"), -1000.0);
    EXPECT_FALSE(ReadSheetNumber("1-"));
    EXPECT_FALSE(ReadSheetNumber("."));
}

TEST(SpreadSheet, SortingWithEditsPendingKeepsEditsAndRedCellsOnTheirRows) {
    SheetScene s;
    s.F().EnterCell(s.GridRow(3), sc::Shock, "15");
    s.F().EnterCell(s.GridRow(4), sc::Name, "zeta");
    s.F().EnterCell(s.GridRow(2), sc::Name, "Alpha");
    s.F().SetCurrent(1, sc::Name);
    s.F().Sort(true);
    // Empty names first, then "Alpha" before "Intake" before "zeta", whatever the case.
    EXPECT_EQ((std::array{s.F().Row(1).Key, s.F().Row(2).Key, s.F().Row(3).Key, s.F().Row(4).Key}),
              (std::array{3, 2, 1, 4}));
    EXPECT_TRUE(s.F().Red(s.GridRow(3), sc::Shock));
    EXPECT_TRUE(s.F().Modified);
    s.F().SetCurrent(1, sc::Length);
    s.F().Sort(false);
    EXPECT_EQ(s.F().Row(1).Key, 3); // the longest first
    ASSERT_TRUE(s.F().SaveGrid());
    EXPECT_EQ(std::tie(s.Row(3).ShockFactor, s.Row(3).ShockType), std::make_tuple(15.0f, CustomPreset));
    EXPECT_EQ(TrimText(s.Row(2).BranchName) + TrimText(s.Row(4).BranchName), "Alphazeta");
}

TEST(SpreadSheet, PastedBlocksFillFromTheCurrentCellAndRepeatDownTheSelection) {
    SheetScene s;
    s.F().Select(1, sc::Height, 4, sc::Height);
    s.F().Paste("5\t6\r\n");
    for (int r = 1; r <= 4; ++r) {
        EXPECT_EQ(std::make_tuple(s.F().Text(r, sc::Height), s.F().Text(r, sc::Width)), std::make_tuple("5", "6"));
    }
    // Wider than the table: the cells past the last column are dropped.
    s.F().SetCurrent(1, sc::Z1);
    s.F().Paste("1\t2\t3\t4\t5");
    EXPECT_EQ(s.F().Text(1, sc::Z2), "4");
    // Longer than the table: the lines past the last row go, with a word.
    s.F().SetCurrent(3, sc::Name);
    s.F().Paste("a\r\nb\r\nc\r\n");
    EXPECT_EQ(s.F().Text(4, sc::Name), "b");
    EXPECT_EQ(s.F().RowCount(), 4);
    EXPECT_EQ(s.Messages().back(), "Rows past the end of the table were not pasted - insert rows first");
    // Copy gives the block back as the clipboard text.
    s.F().Select(1, sc::Height, 2, sc::Width);
    EXPECT_EQ(s.F().Copy(), "5\t6\r\n5\t6\r\n");
    // No current cell: the paste error.
    s.F().Fill();
    s.F().Paste("x");
    EXPECT_EQ(std::make_tuple(s.Ui.Transcript.back().Title, s.Messages().back()),
              std::make_tuple("Paste Error", "An error has occured while attempting to paste data"));
}

TEST(SpreadSheet, NamesFollowTheCoordinatesAndTheFilterLimitsTheSave) {
    SheetScene s;
    // The To end of airway 1 is the node at (100,0,0): airway 2 and 4 start there.
    s.Row(2).EntryNode = "Old";
    s.F().Fill();
    s.F().EnterCell(s.GridRow(1), sc::To, "N1");
    EXPECT_EQ((std::array{s.F().Text(s.GridRow(2), sc::From), s.F().Text(s.GridRow(4), sc::From),
                          s.F().Text(s.GridRow(3), sc::From)}),
              (std::array<std::string, 3>{"N1", "N1", ""}));
    s.F().EnterCell(s.GridRow(1), sc::To, "");
    EXPECT_EQ(s.F().Text(s.GridRow(2), sc::From), "N1");

    // A display list of two airways: two rows, and the others are not touched.
    s.Ds.DisplayList = {3, 1, 0, 2};
    s.F().Fill();
    ASSERT_EQ(s.F().RowCount(), 2);
    s.Ui.Answers = {ui::Answer::Yes};
    s.F().SelectAll();
    s.F().Command("mnuClear");
    ASSERT_TRUE(s.F().SaveGrid());
    EXPECT_EQ(std::make_tuple(TrimText(s.Row(1).BranchName), s.Row(1).X2, s.Row(2).X2), std::make_tuple("", 0, 200));
    // "Show All Data" brings every airway back.
    s.F().Command("mnuShowAll");
    EXPECT_EQ(s.F().RowCount(), 4);
}

TEST(SpreadSheet, SearchFindsReplacesAndSaysWhatItFound) {
    SheetScene s;
    s.Row(1).BranchName = "Return";
    s.Row(3).BranchName = "Return shaft"; // the next row on "No."
    s.F().Fill();
    s.F().SetCurrent(1, sc::Name);
    s.Ui.Inputs = {std::string("return")};
    s.F().Command("mnufind");
    EXPECT_EQ(s.F().Row(s.F().CurRow).Key, 1);
    EXPECT_TRUE(s.F().ScrollCurrentToTop);
    // Find again goes on from the next row, where only a partial match is left.
    s.Ui.Answers = {ui::Answer::Yes};
    s.F().Command("mnuAgain");
    EXPECT_EQ(std::make_tuple(s.Ui.Transcript.back().Text, s.F().Row(s.F().CurRow).Key),
              std::make_tuple("Could not find name - Do you mean Return shaft", 3));
    s.Ui.Inputs = {std::string("nowhere")};
    s.F().Command("mnufind");
    EXPECT_EQ(s.Messages().back(), "Level name not found");
    s.Ui.Inputs = {std::string("RETURN"), std::string("Exhaust")};
    s.F().Command("mnuReplace");
    EXPECT_EQ(std::make_tuple(s.Messages().back(), s.F().Text(s.GridRow(1), sc::Name)),
              std::make_tuple("1 replacements made", "Exhaust"));
    EXPECT_TRUE(s.F().Modified);
}

TEST(SpreadSheet, RowsAreInsertedOnSaveAndDeletedThroughTheUndoLog) {
    SheetScene s;
    s.F().SetCurrent(2, sc::Name);
    s.F().Command("mnuInsert2");
    ASSERT_EQ(s.F().RowCount(), 5);
    EXPECT_EQ(s.F().Row(3).Key, 5);
    EXPECT_EQ(s.M.AirwayCount, 4) << "the network waits for the save";
    s.F().SetCurrent(3, sc::Name);
    s.F().Paste("New\tA\tB");
    s.F().Select(3, sc::Height, 3, sc::Height);
    s.F().Paste("3\t3\t\t0\t0\t-100\t0\t50\t-100");
    ASSERT_TRUE(s.F().SaveGrid());
    ASSERT_EQ(s.M.AirwayCount, 5);
    EXPECT_EQ(std::make_tuple(TrimText(s.Row(5).BranchName), s.Row(5).Y2, s.Row(5).AirwayNo),
              std::make_tuple("New", 50, 8));

    // One row deleted: asked by its row number, saved first, the table compacted and refilled.
    const std::int16_t step = s.Undo.CurrentStep;
    s.F().EnterCell(s.GridRow(4), sc::Name, "Kept");
    s.F().SetCurrent(s.GridRow(1), sc::Name);
    s.Ui.Answers = {ui::Answer::Yes};
    s.Host.Calls.clear();
    s.F().Command("mnuDelete");
    EXPECT_EQ(s.Ui.Transcript.back().Title, "Delete");
    EXPECT_EQ(s.Ui.Transcript.back().Text, std::to_string(1) + " Permanently delete branch ?");
    ASSERT_EQ(s.M.AirwayCount, 4);
    EXPECT_EQ(s.F().RowCount(), 4);
    EXPECT_EQ(TrimText(s.Row(3).BranchName), "Kept"); // airway 4 moved up to row 3
    EXPECT_EQ(s.Undo.CurrentStep, step + 2);          // the save, then the delete
    EXPECT_EQ(s.Host.Calls.back(), "refresh");
    // The deleted airway's record is logged whole under the delete's step.
    bool logged = false;
    for (const auto& e : s.Undo.UndoIndex)
        logged = logged || (e.UndoStep == step + 1 && e.UndoAction == files::undo::Before);
    EXPECT_TRUE(logged);

    // Several rows: one question; No leaves everything.
    s.F().Select(1, sc::Name, 2, sc::Name);
    s.Ui.Answers = {ui::Answer::No};
    s.F().Command("mnuDelete");
    EXPECT_EQ(std::make_tuple(s.Ui.Transcript.back().Text, s.M.AirwayCount),
              std::make_tuple("Permanently delete row selections ?", 4));
}

TEST(SpreadSheet, LeavingWithEditsAsksAndTheHostOpensTheCards) {
    SheetScene s;
    s.F().EnterCell(1, sc::Name, "x");
    s.Ui.Answers = {ui::Answer::No};
    EXPECT_TRUE(s.F().Close());
    EXPECT_EQ(std::make_tuple(s.Ui.Transcript.back().Title, s.Ui.Transcript.back().Text),
              std::make_tuple("Save changes", "Save spreadsheet changes to network ?"));
    EXPECT_EQ(TrimText(s.Row(s.F().Row(1).Key).BranchName), "Intake") << "No drops the edits";
    EXPECT_EQ(s.Host.Calls.back(), "refresh");
    s.F().Fill();
    s.F().SetCurrent(2, sc::Name);
    s.F().Command("mnuInfo");
    s.F().Command("mnuEditBox");
    EXPECT_EQ(s.Host.Calls[1], "info " + std::to_string(s.F().Row(2).Key));
    EXPECT_EQ(s.Host.Calls[2], "edit " + std::to_string(s.F().Row(2).Key));
    // Insert past the largest network.
    s.M.AirwayCount = MaxAirways - 1;
    s.F().Command("mnuInsert");
    EXPECT_EQ(s.Messages().back(), "Network size has exceeded maximum airways - increase airways in default settings");
    EXPECT_FALSE(s.F().Command("mnuNothing"));
}

struct PrintingHost : RecordingSheetHost {
    SpreadSheetForm* Form = nullptr;
    display::RecordingSurface Page{1123, 794};
    bool PrintTable(int fontSize) override {
        Calls.push_back("print " + std::to_string(fontSize));
        return PrintSheetTable(*Form, Page, fontSize);
    }
};

TEST(SpreadSheetPrint, HeadingsOnEveryPageAndOnlyTheVisibleColumns) {
    SheetScene s;
    // Enough rows for several pages of an A4 landscape page.
    for (int k = 0; k < 60; ++k) s.Add(0, k * 10, -100, 10, k * 10, -100);
    BuildNodeKeys(s.M, s.Ui);
    display::BuildDisplayList(s.M, s.Ds);
    PrintingHost host;
    host.Page.PageWidth = 297;
    host.Page.PageHeight = 210;
    SpreadSheetForm form(s.M, s.Ds, s.Undo, s.Ui, host, s.Widths);
    host.Form = &form;
    form.Open();
    // Width, K-Factor hidden; 21 and 22 are never printed.
    form.Select(1, sc::KFactor, 1, sc::KFactor);
    s.Widths.Taken = true;
    for (int c = 1; c < sc::Count; ++c) s.Widths.Width[static_cast<std::size_t>(c)] = 40;
    form.HideColumns();
    s.Ui.Inputs = {std::string("5"), std::string("8")};
    form.Command("mnuPrint");
    EXPECT_TRUE(host.Page.Ops.empty()) << "a size below 6 prints nothing";
    EXPECT_EQ(std::make_tuple(s.Ui.Transcript.back().Title, s.Ui.Transcript.back().Text),
              std::make_tuple("Font Size", "Enter Printer Font Size"));
    form.Command("mnuPrint");
    ASSERT_EQ(host.Calls.back(), "print 8");
    const auto texts = host.Page.Texts();
    const auto pages = host.Page.Of(display::OpKind::NewPage).size() + 1;
    EXPECT_GE(pages, 2u);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Resistance"), static_cast<long>(pages));
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "K-Factor"), 0);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "X2"), static_cast<long>(pages));
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Y2"), 0);
    // Every text stands within the page, columns within its width less the margins.
    for (const auto& op : host.Page.Of(display::OpKind::Text)) {
        EXPECT_LE(op.Y1, 210 - 210 / 25.0);
        EXPECT_GE(op.X1, 297 / 20.0 - 1e-3);
    }
    const auto cols = SheetPrintColumns(form, 297);
    EXPECT_NEAR(cols.back().Left + cols.back().Width, 297 / 20.0 + 297 * 0.9, 1e-6);
    // Show Columns brings the hidden one back.
    form.ShowColumns();
    EXPECT_EQ(form.ShownWidth(sc::KFactor), 40);
}

const GridLimits Table{1, 10, 1, 4};

TEST(GridEdit, KeysOpenCloseAndMoveTheBoxWithinTheTable) {
    struct Case {
        bool open;
        GridKey key;
        const char* typed;
        GridCell at;
        bool editable;
        GridAction action;
        GridCell next;
        const char* text;
    };
    const Case cases[] = {
        {false, GridKey::Char, "7", {3, 2}, true, GridAction::OpenReplace, {3, 2}, "7"},
        {false, GridKey::Char, ".", {3, 2}, true, GridAction::OpenReplace, {3, 2}, ","}, // the machine's separator
        {false, GridKey::Char, " ", {3, 2}, true, GridAction::OpenKeep, {3, 2}, ""},
        {false, GridKey::DoubleClick, "", {3, 2}, true, GridAction::OpenKeep, {3, 2}, ""},
        {false, GridKey::Char, "7", {3, 2}, false, GridAction::Ignore, {3, 2}, ""},   // a fixed column
        {false, GridKey::Char, "7", {0, 2}, true, GridAction::Ignore, {0, 2}, ""},    // the heading row
        {false, GridKey::Char, "\x03", {3, 2}, true, GridAction::Ignore, {3, 2}, ""}, // Ctrl+C's character
        {false, GridKey::Escape, "", {3, 2}, true, GridAction::EscapeForm, {3, 2}, ""},
        {false, GridKey::Delete, "", {3, 2}, true, GridAction::Clear, {3, 2}, ""},
        {false, GridKey::Enter, "", {3, 2}, true, GridAction::Ignore, {3, 2}, ""},
        {true, GridKey::Escape, "", {3, 2}, true, GridAction::Cancel, {3, 2}, ""},
        {true, GridKey::Enter, "", {3, 2}, true, GridAction::CommitMove, {4, 2}, ""},
        {true, GridKey::Enter, "", {10, 2}, true, GridAction::CommitMove, {10, 2}, ""}, // bounded by the last row
        {true, GridKey::Tab, "", {3, 2}, true, GridAction::CommitMove, {3, 3}, ""},
        {true, GridKey::Tab, "", {3, 4}, true, GridAction::CommitMove, {3, 4}, ""}, // and the last column
        {true, GridKey::Up, "", {1, 2}, true, GridAction::CommitMove, {1, 2}, ""},
        {true, GridKey::Up, "", {5, 2}, true, GridAction::CommitMove, {4, 2}, ""},
        {true, GridKey::Down, "", {5, 2}, true, GridAction::CommitMove, {6, 2}, ""},
        {true, GridKey::Char, "5", {5, 2}, true, GridAction::Ignore, {5, 2}, ""},
    };
    for (const Case& c : cases) {
        const GridStep step = GridKeyStep(c.open, c.key, c.typed, c.at, Table, c.editable, ',');
        SCOPED_TRACE(std::string("key ") + std::to_string(static_cast<int>(c.key)) + " typed '" + c.typed + "'");
        EXPECT_EQ(std::make_tuple(step.Action, step.Next, step.Text), std::make_tuple(c.action, c.next, c.text));
    }
    EXPECT_EQ(BoxText("1.5\r", ','), "1,5");
}

TEST(GridEdit, ClipboardTextReadsBackCellForCell) {
    const CellTable table{{"1", "2950", "", "12.5"}, {"2", "", "x y", "0"}};
    const std::string text = ClipboardText(table);
    EXPECT_EQ(text, "1\t2950\t\t12.5\r\n2\t\tx y\t0\r\n");
    EXPECT_EQ(ReadClipboardTable(text), table);
    // Rows ended by LF alone, and a last row without its end, read the same.
    EXPECT_EQ(ReadClipboardTable("1\t2950\t\t12.5\n2\t\tx y\t0"), table);
    EXPECT_TRUE(ReadClipboardTable("").empty());
    EXPECT_EQ(ReadClipboardTable("\r\n"), (CellTable{{""}}));
    EXPECT_EQ(ClipboardColumns(ReadClipboardTable("a\tb\r\nc\td\te\r\n")), 3);
}

} // namespace
} // namespace karvane::forms
