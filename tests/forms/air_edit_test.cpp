// The airway editor without a window: what it writes back for each shape and unit system, the
// shape memo, the touched groups of a multiple selection, its undo entries, its messages.
#include <gtest/gtest.h>

#include <tuple>

#include <cmath>

#include "engineering/resistance.h"
#include "files/network_file.h"
#include "files/undo_log.h"
#include "forms/air_edit.h"
#include "forms_support.h"
#include "model/node_keys.h"
#include "model/number_format.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

struct EditScene : FormScene {
    files::UndoLog Undo;
    AirEditMemory Memory;
    AirEditForm Form{M, Ui, Undo, Memory, '.'};
    EditScene() {
        Undo.Open(Ui, Temp.File("undo.dat"));
        M.Fans[1].FanName = "Main fan";
        M.Fans[3].FanName = "Booster";
    }
    void Keys() { BuildNodeKeys(M, Ui); }
    std::string Text(std::int32_t row) { return files::AirwayRowText(M, row, '.'); }
};

// The Atkinson resistance worked by hand from SI values.
double Atkinson(double k, double area, double perimeter, double length, double density) {
    return k * perimeter * length * density / (area * area * area * 1.2);
}

TEST(AirEdit, ResistanceThroughTheDialogIsTheFormulasForEveryShapeAndUnitSystem) {
    struct Case {
        int Shape;
        std::int16_t UnitSys;
        const char* Width;
        const char* Height;
    };
    const Case cases[] = {{0, 1, "5", "4"},       {1, 1, "3.5", ""},  {2, 1, "20", "18"},
                          {0, 2, "16.4", "13.1"}, {1, 2, "11.5", ""}, {2, 2, "215", "59"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << "shape " << c.Shape << " units " << c.UnitSys);
        EditScene s;
        s.M.Set.UnitSys = c.UnitSys;
        s.M.Set.Density = 1.1f;
        const std::int32_t row = s.Add(0, 0, 0, 300, 400, 0); // 500 m long
        ASSERT_TRUE(s.Form.Open(row, AirEditSingle));
        ASSERT_EQ("", s.Form.SetControl("CmdShape", std::to_string(c.Shape)));
        ASSERT_EQ("", s.Form.SetControl("TxtWidth", c.Width));
        if (*c.Height) {
            ASSERT_EQ("", s.Form.SetControl("txtHeight", c.Height));
        }
        ASSERT_EQ("", s.Form.SetControl("WallCombo", "5"));  // "Average Blasted Airway", 0.012
        ASSERT_EQ("", s.Form.SetControl("ShockCombo", "1")); // "Slight", 5 m
        s.Form.Ok();
        const Airway& a = s.Row(row);
        const double length = c.UnitSys == 2 ? 3.28084f : 1.0;
        const double areaUnit = c.UnitSys == 2 ? 10.764f : 1.0;
        double area = 0, perimeter = 0;
        const double w = std::atof(c.Width), h = std::atof(c.Height);
        if (c.Shape == 0) {
            area = static_cast<float>((w / length) * (h / length));
            perimeter = 2 * (w / length) + 2 * (h / length);
        } else if (c.Shape == 1) {
            const double d = w / length;
            area = d * d * 3.1415926 / 4.0;
            perimeter = d * 3.1415926;
        } else {
            area = w / areaUnit;
            perimeter = h / length;
        }
        EXPECT_EQ(std::make_tuple(a.WallType, a.Length), std::make_tuple(5, 500.0f));
        const double expected = Atkinson(0.012, area, perimeter, 505, 1.1);
        EXPECT_NEAR(a.Resistance, expected, expected * 2e-6);
        if (c.Shape == 1) {
            EXPECT_EQ(a.Height, 0.0f);
        }
    }
}

TEST(AirEdit, ChangeOfShapeKeepsTheMemoValues) {
    EditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Row(row).Width = 5;
    s.Row(row).Height = 4;
    s.Form.Open(row, AirEditSingle);
    auto& f = s.Form.Fields();
    EXPECT_EQ(std::tie(f.TxtWidth, f.LblWidth), std::make_tuple("5.0", "Width m"));
    s.Form.SetControl("TxtWidth", "6");
    s.Form.CmdShape(); // circular: the width box keeps its text, the height box is hidden
    EXPECT_EQ(std::tie(f.TxtWidth, f.TxtHeightVisible, f.LblWidth), std::make_tuple("6", false, "Diam m"));
    s.Form.CmdShape(); // area and perimeter from the memo
    EXPECT_EQ(std::tie(f.TxtWidth, f.TxtHeight, f.LblWidth, f.LblHeight),
              std::make_tuple("20.0", "18.0", "Area m2", "Perim m"));
    s.Form.CmdShape(); // back to the memo's width and height, not the 6 typed
    EXPECT_EQ(std::tie(f.TxtWidth, f.TxtHeight), std::make_tuple("5.0", "4.0"));
    EXPECT_EQ(s.Memory.ShapeIndex, ShapeRectangular);
}

TEST(AirEdit, MultipleSelectionSizesReachOnlyAirwaysOfTheDialogsShapeUnlessTheShapeIsTouched) {
    for (const bool shapeTouched : {false, true}) {
        EditScene s;
        const std::int32_t a = s.Add(0, 0, 0, 100, 0, 0);
        const std::int32_t b = s.Add(100, 0, 0, 200, 0, 0);
        s.Row(b).BranchCode = bc::Circular;
        s.Row(b).Width = 3;
        s.Row(a).BranchCode |= bc::Selected;
        s.Row(b).BranchCode |= bc::Selected;
        s.Form.Open(a, AirEditMultiple);
        s.Form.SetControl("TxtWidth", "7");
        if (shapeTouched) s.Form.Click(AirBox::TxtMultiAir);
        s.Form.Ok();
        EXPECT_EQ(std::make_tuple(s.Row(a).Width, s.Row(b).Width, s.Row(b).Has(bc::Rectangular)),
                  std::make_tuple(7.0f, shapeTouched ? 7.0f : 3.0f, shapeTouched));
    }
}

TEST(AirEdit, ResetSelectionAndDoubleClickClearTheTouchedMarks) {
    EditScene s;
    const std::int32_t a = s.Add(0, 0, 0, 100, 0, 0);
    s.Row(a).BranchCode |= bc::Selected;
    s.Form.Open(a, AirEditMultiple);
    auto& f = s.Form.Fields();
    s.Form.Click(AirBox::TxtWall);
    s.Form.Focus(AirBox::TxtHeight);
    s.Form.Focus(AirBox::TxtWidth); // the width is marked by a click or a key, not by focus
    EXPECT_TRUE(f.IsTouched(AirGroup::Wall));
    EXPECT_TRUE(f.IsTouched(AirGroup::Height));
    EXPECT_FALSE(f.IsTouched(AirGroup::Width));
    s.Form.DoubleClick(AirBox::TxtWall);
    EXPECT_FALSE(f.IsTouched(AirGroup::Wall));
    s.Form.ResetSelection();
    EXPECT_FALSE(f.IsTouched(AirGroup::Height));
}

TEST(AirEdit, AnEditAndItsUndoGiveBackTheRowTextByteForByte) {
    EditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 123, 45, -6);
    s.Row(row).BranchName = "Main drive";
    s.Row(row).WallType = 4;
    RecalcAirway(s.M, row);
    s.Row(row).UndoNo = 7;
    s.Undo.LastUndoNo = 7;
    const std::string original = s.Text(row);
    s.Form.Open(row, AirEditSingle);
    s.Form.SetControl("TxtName", "Renamed");
    s.Form.SetControl("CheckService", "1");
    s.Form.SetControl("TxtWidth", "6.25");
    s.Form.Ok();
    ASSERT_NE(s.Text(row), original);
    // The before entry holds the row text as it was; reading it back restores the row exactly.
    ASSERT_EQ(s.Undo.UndoIndex[1].UndoAction, files::undo::Before);
    ASSERT_EQ(s.Undo.UndoIndex[2].UndoAction, files::undo::After);
    std::string record = s.Undo.RecordText(1);
    record.erase(record.find_last_not_of(' ') + 1);
    EXPECT_EQ(record, original);
    ClearAirwayRow(s.M, row);
    files::ParseAirwayRow(s.M, s.Ui, record, row, 2.6, '.');
    EXPECT_EQ(s.Text(row), original);
}

TEST(AirEdit, FixedPressureWithFixedFlowBecomesTheResistanceOfThatPressureAtThatFlow) {
    EditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Form.Open(row, AirEditSingle);
    s.Form.SetControl("CheckFix", "1");
    s.Form.SetControl("TxtFlow", "20");
    s.Form.SetControl("ChkPress", "1");
    s.Form.SetControl("TxtPres", "500");
    s.Form.Ok();
    const Airway& a = s.Row(row);
    EXPECT_EQ(std::tie(a.ResType, a.Resistance, a.FanNumber, a.BranchCode, a.Pressure),
              std::make_tuple(CustomPreset, 1.25f, std::int16_t{0}, bc::Rectangular, 500.0f));
    s.Form.Open(row, AirEditSingle);
    const auto& f = s.Form.Fields();
    EXPECT_EQ(std::tie(f.CheckFix, f.ChkPress, f.ChkFixRes), std::make_tuple(false, false, true));
}

TEST(AirEdit, FanRules) {
    EditScene s;
    // A new fan on a fixed-flow airway clears the fixed flow and fixes the direction.
    const std::int32_t fixedFlow = s.Add(0, 0, 0, 100, 0, 0);
    s.Row(fixedFlow).BranchCode |= bc::FixedFlow;
    s.Form.Open(fixedFlow, AirEditSingle);
    s.Form.SetControl("FanCombo2", "3");
    EXPECT_EQ(s.Form.Fields().TxtFanN, "1");
    EXPECT_TRUE(s.Form.Fields().CheckDirection);
    s.Form.SetControl("OptSer2", "1");
    s.Form.SetControl("Optcurve", "2");
    EXPECT_EQ(s.Form.Fields().TxtCPart, "50");
    s.Form.SetControl("TxtCPart", "150");
    s.Form.Ok();
    const Airway& fan = s.Row(fixedFlow);
    EXPECT_EQ(std::tie(fan.FanNumber, fan.NoOfFans, fan.BranchCode, fan.CurveFraction),
              std::make_tuple(std::int16_t{3}, std::int16_t{1}, bc::Rectangular | bc::FixedDirection | bc::FansInSeries,
                              std::int16_t{100}));

    // "None" leaves a fixed pressure marker alone.
    const std::int32_t fixedP = s.Add(100, 0, 0, 200, 0, 0);
    s.Row(fixedP).FanNumber = -1;
    s.Row(fixedP).Pressure = 300;
    s.Form.Open(fixedP, AirEditSingle);
    s.Form.SetControl("FanCombo2", "None");
    s.Form.Ok();
    EXPECT_EQ(std::tie(s.Row(fixedP).FanNumber, s.Row(fixedP).Pressure), std::make_tuple(std::int16_t{-1}, 300.0f));

    // Fans are refused in an airway that stands for several in parallel.
    const std::int32_t multi = s.Add(200, 0, 0, 300, 0, 0);
    s.Row(multi).NoAirways = 2;
    s.Form.Open(multi, AirEditSingle);
    s.Form.SetControl("FanCombo2", "Main fan");
    s.Form.Ok();
    EXPECT_TRUE(s.Ui.Said(FansInMultipleAirways));
    EXPECT_EQ(std::tie(s.Row(multi).FanNumber, s.Row(multi).NoOfFans), std::make_tuple(0, 0));

    // A fan beyond the database is reported and kept.
    const std::int32_t lost = s.Add(300, 0, 0, 400, 0, 0);
    s.Row(lost).FanNumber = 9;
    s.Row(lost).NoOfFans = 2;
    s.Row(lost).CurveFraction = 40;
    s.Ui.Transcript.clear();
    s.Form.Open(lost, AirEditSingle);
    EXPECT_TRUE(s.Ui.Said(FanNotDetected));
    s.Form.Ok();
    EXPECT_EQ(std::tie(s.Row(lost).FanNumber, s.Row(lost).NoOfFans, s.Row(lost).CurveFraction),
              std::make_tuple(9, 2, 40));
}

TEST(AirEdit, RenamingANodeRenamesItOnEveryAirwayThatMeetsThere) {
    EditScene s;
    const std::int32_t a = s.Add(0, 0, -500, 100, 0, -500);
    const std::int32_t b = s.Add(100, 0, -500, 200, 0, -500);
    const std::int32_t c = s.Add(300, 0, -500, 100, 0, -500);
    const std::int32_t d = s.Add(400, 0, -500, 500, 0, -500);
    s.Keys();
    s.Form.Open(a, AirEditSingle);
    s.Form.SetControl("LblTo", "Junction 4");
    s.Form.Ok();
    EXPECT_EQ(std::tie(s.Row(a).ExitNode, s.Row(b).EntryNode, s.Row(c).ExitNode, s.Row(d).EntryNode, s.Row(d).ExitNode),
              std::make_tuple("Junction 4", "Junction 4", "Junction 4", "", ""));
}

TEST(AirEdit, CustomValuesAndBadEntries) {
    EditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Row(row).ResType = 50;
    s.Row(row).Resistance = 0.75f;
    s.Row(row).WallType = 50;
    s.Row(row).WallFactor = 0.015f;
    s.Form.Open(row, AirEditSingle);
    s.Form.SetControl("TxtFixRes", "");     // emptied: the old resistance stays, custom
    s.Form.SetControl("TxtWall", "rough");  // not a number: the message, the field as it was
    s.Form.SetControl("TxtWidth", "1e60");  // beyond a Single: the message, the width as it was
    s.Form.SetControl("txtHeight", "0");    // becomes 0.01
    s.Form.SetControl("TxtMultiAir", "-3"); // no number of parallel airways
    s.Form.Ok();
    const Airway& a = s.Row(row);
    EXPECT_EQ(std::tie(a.ResType, a.Resistance, a.WallFactor, a.Width, a.Height, a.NoAirways),
              std::make_tuple(std::int16_t{50}, 0.75f, 0.015f, 4.0f, 0.01f, std::int16_t{1}));
    int errors = 0;
    for (const std::string& t : s.Ui.Texts("Message")) errors += t == DataEntryError;
    EXPECT_EQ(errors, 3);

    // A custom resistance of 0 keeps the old value.
    s.Form.Open(row, AirEditSingle);
    s.Form.SetControl("TxtFixRes", "0");
    s.Form.Ok();
    EXPECT_FLOAT_EQ(s.Row(row).Resistance, 0.75f);
    // Negative sizes and flows are taken as their size.
    s.Form.Open(row, AirEditSingle);
    s.Form.SetControl("TxtWidth", "-3");
    EXPECT_EQ(s.Form.Fields().TxtWidth, "3");
    s.Form.SetControl("TxtFanN", "14");
    EXPECT_EQ(s.Form.Fields().TxtFanN, "10");
    EXPECT_TRUE(s.Ui.Said("Number of fans must be from 0 to 10"));
}

TEST(AirEdit, OrificeAddsTheRegulatorToTheResistanceOnOk) {
    EditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0); // 4 x 4 m
    RecalcAirway(s.M, row);
    s.Form.Open(row, AirEditSingle);
    s.Ui.Inputs.push_back(std::string("2"));
    s.Form.Orifice();
    const double ro = std::pow(1 / (2 * 0.65) - 1 / 16.0, 2) * 0.6;
    const double total = std::stod(FormatNumber(s.Row(row).Resistance, "0.00000")) + ro;
    EXPECT_EQ(s.Form.Fields().TxtFixRes, FormatNumber(total, "0.00000"));
    EXPECT_TRUE(s.Form.Fields().ChkFixRes);
    ASSERT_FALSE(s.Ui.Texts("Ask").empty());
    EXPECT_EQ(s.Ui.Transcript.back().Title, "Fix resistance for oriface");
    EXPECT_EQ(s.Ui.Transcript.back().Text, "A resistance of " + FormatNumber(ro, "0.00000") +
                                               " Ns2/m8 will now be added to the airway.\n\nThe total resistance "
                                               "will be fixed to " +
                                               FormatNumber(total, "0.00000") + " Ns2/m8");
    // Blocked airways have none; an empty or zero answer changes nothing.
    s.Row(row).ResType = 1;
    s.Form.Orifice();
    EXPECT_TRUE(s.Ui.Said("No orifice available on blocked ariways"));
    s.Row(row).ResType = 0;
    s.Ui.Inputs.push_back(std::string("0"));
    const std::string kept = s.Form.Fields().TxtFixRes;
    s.Form.Orifice();
    EXPECT_EQ(s.Form.Fields().TxtFixRes, kept);
}

TEST(AirEdit, LeavingTheDialogAppliesWithoutABeforeEntryUnlessAChildHoldsIt) {
    EditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Form.Open(row, AirEditSingle);
    s.Form.SetControl("TxtWidth", "9");
    s.Memory.Hold = true;
    EXPECT_FALSE(s.Form.Leave().has_value()); // the information card holds it open
    EXPECT_EQ(s.Row(row).Width, 4.0f);
    const auto closed = s.Form.Leave();
    ASSERT_TRUE(closed.has_value());
    EXPECT_TRUE(closed->Applied);
    EXPECT_EQ(s.Row(row).Width, 9.0f);
    EXPECT_EQ(std::tie(s.Undo.NextUndoRow, s.Undo.CurrentStep), std::make_tuple(2, 2));
    EXPECT_EQ(s.Undo.UndoIndex[1].UndoAction, files::undo::After);
}

TEST(AirEdit, RecalcThenOkLogsOneBeforeEntryAndCancelOnlyRedrawsWithoutTheBuffer) {
    EditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Form.Open(row, AirEditSingle);
    s.Form.SetControl("TxtWidth", "8");
    s.Form.Recalc();
    EXPECT_EQ(s.Form.Fields().TxtWidth, "8.0");
    s.Form.Ok();
    int before = 0;
    for (int k = 1; k < s.Undo.NextUndoRow; ++k)
        before += s.Undo.UndoIndex[static_cast<std::size_t>(k)].UndoAction == 2;
    EXPECT_EQ(before, 1);
    s.M.Set.ScreenBuffer = true;
    s.Form.Open(row, AirEditSingle);
    EXPECT_FALSE(s.Form.Cancel().Redraw);
}

TEST(AirEdit, ShockTotalAndChangeOfTypeMoveTheIcon) {
    EditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Form.Open(row, AirEditSingle, 0.8f);
    s.Form.TakeShockTotal(0);
    EXPECT_FALSE(s.Form.Fields().ChkShock);
    s.Form.TakeShockTotal(66.4f);
    EXPECT_TRUE(s.Form.Fields().ChkShock);
    EXPECT_EQ(s.Form.Fields().TxtShock, "66");
    s.Form.SetControl("ResCombo", "2"); // "Steel Door"
    s.Form.Ok();
    const Airway& a = s.Row(row);
    EXPECT_EQ(std::tie(a.ShockType, a.ShockFactor, a.ResType, a.IconLoc),
              std::make_tuple(CustomPreset, 66.0f, std::int16_t{2}, 0.5f));
}

TEST(AirEdit, AirwayGoneBeforeTheApplyIsSaidAndNothingIsWritten) {
    EditScene s;
    const std::int32_t a = s.Add(0, 0, 0, 100, 0, 0);
    const std::int32_t b = s.Add(100, 0, 0, 200, 0, 0);
    s.Form.Open(b, AirEditSingle);
    s.Form.SetControl("TxtWidth", "9");
    std::swap(s.Row(a), s.Row(b)); // a run sorted the rows: the airway is found again
    s.Form.Ok();
    EXPECT_EQ(std::tie(s.Row(a).Width, s.Row(b).Width), std::make_tuple(9.0f, 4.0f));
    s.Form.Open(a, AirEditSingle);
    ClearAirwayRow(s.M, a);
    s.Form.Ok();
    EXPECT_TRUE(s.Ui.Said("The airway being edited no longer exists"));
    EXPECT_EQ(s.Row(a).BranchCode, 0);
}

} // namespace
} // namespace karvane::forms
