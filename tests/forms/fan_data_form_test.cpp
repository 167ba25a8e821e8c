// The fan database editor: the table read into the database, the blank flags, names, the
// estimates, paste, efficiencies, the closing roads and the graph; the fan tool's dialog and the
// shock calculator's total in both unit systems.
#include <gtest/gtest.h>

#include <tuple>

#include "display/recording_surface.h"
#include "forms/air_edit.h"
#include "forms/fan_data_form.h"
#include "forms/fan_edit.h"
#include "forms/shock_form.h"
#include "forms_support.h"
#include "model/units.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

struct FanScene : FormScene {
    FanDataFields F;
    FanScene() {
        for (auto& fan : M.Fans) fan = FanRecord{};
        F = OpenFanData(M, Ui);
    }
    FanRecord& Fan(int n = 1) { return M.Fans[static_cast<std::size_t>(n)]; }
};

TEST(FanDataForm, FillingSetsTheBlankFlagsAndTheColumns) {
    FanScene s;
    FanRecord& f = s.Fan(3);
    f.FanName = "Axial";
    f.FanDiam = 2.5f;
    for (int p = 1; p <= 10; ++p) {
        f.FanPTotal[p] = static_cast<float>(3000 - 200 * p);
        f.FanQ[p] = static_cast<float>(10 * p);
    }
    SelectFan(s.M, s.F, 3, s.Ui);
    EXPECT_FALSE(s.F.ChkStatic);
    EXPECT_TRUE(s.F.ChkTotal);
    EXPECT_FALSE(s.F.ChkEff);
    EXPECT_TRUE(s.F.StaticBlank && s.F.EffBlank && !s.F.FlowBlank);
    EXPECT_EQ(s.F.Cells[1][fancol::Static], "");
    EXPECT_EQ(s.F.Cells[1][fancol::Total], "2800.0");
    EXPECT_EQ(s.F.TxtOutDiam, "2.5 m");
    EXPECT_EQ(FanColumnWidth(s.F, fancol::Static), 0);
    EXPECT_EQ(FanColumnWidth(s.F, fancol::Total), 800);
    EXPECT_EQ(FanColumnHeading(s.M, fancol::Total), "Pt Pa");
    EXPECT_EQ(FanListEntry(s.M, 3), "3 Axial");
    EXPECT_EQ(FanListEntry(s.M, 4), "4 -none-");
    // The last curve box stays ticked.
    SetCurveBox(s.F, 1, false);
    EXPECT_TRUE(s.F.ChkTotal);
    SetCurveBox(s.F, 0, true);
    SetCurveBox(s.F, 1, false);
    EXPECT_FALSE(s.F.ChkTotal);
    // Names lose their commas; the diameter follows its box.
    TypeFanName(s.M, s.F, "Axial, 2 stage");
    EXPECT_EQ(f.FanName, "Axial 2 stage");
    EnterOutDiam(s.M, s.F, "");
    EXPECT_EQ(std::make_tuple(f.FanDiam, s.M.FansSaved), std::make_tuple(0, No0));
}

TEST(FanDataForm, APastedManufacturersTableReadsExactly) {
    FanScene s;
    const std::string table = "3150\t3400\t20.5\t62\r\n2980\t3290\t40.25\t71\r\n2600\t2990\t60\t78\r\n"
                              "2050\t2525.5\t80.75\t80\r\n1400\t1990\t101\t74\r\n";
    ASSERT_TRUE(PasteFanTable(s.M, s.F, table, {1, fancol::Static}, 1, s.Ui));
    const FanRecord& f = s.Fan();
    EXPECT_EQ(std::make_tuple(f.FanPStatic[2], f.FanPTotal[4], f.FanQ[2], f.FanQ[5], f.FanEff[3], f.FanQ[10]),
              std::make_tuple(2980.0f, 2525.5f, 40.25f, 101.0f, 78, 101.0f));
    EXPECT_EQ(CopyFanTable(s.F, 1, 1, 2, 4), "3150\t3400\t20.5\t62\r\n2980\t3290\t40.25\t71\r\n");

    // Too many columns, or text in a number cell: refused whole, the database as it was.
    const FanRecord before = f;
    EXPECT_FALSE(PasteFanTable(s.M, s.F, "1\t2\t3\t4\t5\r\n", {1, fancol::Static}, 1, s.Ui));
    EXPECT_FALSE(PasteFanTable(s.M, s.F, "100\tabc\r\n", {6, fancol::Static}, 6, s.Ui));
    EXPECT_EQ(s.Ui.Texts("Message"),
              (std::vector<std::string>(2, "An error has occured while attempting to paste data")));
    EXPECT_EQ(std::make_tuple(f.FanPStatic, s.F.Cells[6][fancol::Static]), std::make_tuple(before.FanPStatic, ""));
    // A bad cell typed in says so and leaves the database alone.
    SetFanCell(s.M, s.F, 2, fancol::Flow, "x4", s.Ui);
    EXPECT_TRUE(s.Ui.Said("An error has occured - probably in data entry"));
    EXPECT_EQ(f.FanQ, before.FanQ);
}

TEST(FanDataForm, EfficienciesEstimatesAndTheClosingRoads) {
    FanScene s;
    FanRecord& f = s.Fan();
    f.FanName = "Main";
    for (int p = 1; p <= 10; ++p) {
        f.FanPTotal[p] = static_cast<float>(1100 - 10 * p);
        f.FanQ[p] = 30.4f + static_cast<float>(p - 1);
        f.FanEff[p] = p <= 7 ? 75 : 0;
    }
    FillEfficiency(s.M, 1, s.Ui);
    EXPECT_EQ(
        s.Ui.Texts("Message").back(),
        "Your fan curve contains 3 zero efficiency value(s)\r\nReplacing these with the default efficiency value!");
    EXPECT_EQ(f.FanEff[10], 80);
    FanRecord none;
    s.M.Fans[2] = none;
    s.Ui.Transcript.clear();
    FillEfficiency(s.M, 2, s.Ui);
    EXPECT_TRUE(s.Ui.Transcript.empty());

    // Total from static without a diameter is refused with its message, the curve kept.
    SelectFan(s.M, s.F, 1, s.Ui);
    s.Ui.Answers = {ui::Answer::OK};
    EstimateTotal(s.M, s.F, false, s.Ui);
    EXPECT_EQ(s.Ui.Transcript[0].Title, "Estimate total curve");
    EXPECT_TRUE(s.Ui.Said("No fan diameter has been entered for Fan 1.  Cannot estimate Total Pressure unless the "
                          "velocity pressure can be calculated from the fan diameter!!"));
    EXPECT_EQ(f.FanPTotal[1], 1090);
    // Static from total with 2 m, all fans; Cancel does nothing.
    f.FanDiam = 2;
    s.Ui.Answers = {ui::Answer::Cancel};
    EstimateStatic(s.M, s.F, true, s.Ui);
    EXPECT_EQ(f.FanPStatic[1], 0);
    s.Ui.Answers = {ui::Answer::OK};
    EstimateStatic(s.M, s.F, true, s.Ui);
    EXPECT_EQ(f.FanPStatic[1], 1033);        // 1090 - 56.18, rounded down
    EXPECT_EQ(s.M.Fans[2].FanPStatic[1], 0); // an empty slot stays all zero
    EXPECT_EQ(s.F.Cells[1][fancol::Static], "1033.0");

    // Cancel asks only when modified; No keeps the fan's efficiencies as typed.
    s.Ui.Transcript.clear();
    CancelFan(s.M, s.F, s.Ui);
    EXPECT_TRUE(s.Ui.Transcript.empty());
    s.F.Modified = true;
    s.Ui.Answers = {ui::Answer::No};
    CancelFan(s.M, s.F, s.Ui);
    EXPECT_EQ(s.Ui.Transcript.back().Text, "Save fan changes to network ?");
    // Delete empties the name and the curve.
    s.Ui.Answers = {ui::Answer::OK};
    DeleteFan(s.M, s.F, s.Ui);
    EXPECT_TRUE(f.FanName.empty());
    EXPECT_TRUE(f.IsFree());
    EXPECT_EQ(s.F.TxtFanName, "-none-");
}

TEST(FanDataForm, TheGraphDrawsBothCurvesAndItsCaptions) {
    FanScene s;
    FanRecord& f = s.Fan();
    for (int p = 1; p <= 10; ++p) {
        f.FanPStatic[p] = static_cast<float>(2000 - 150 * p);
        f.FanPTotal[p] = f.FanPStatic[p] + 100;
        f.FanQ[p] = static_cast<float>(8 * p);
        f.FanEff[p] = 70;
    }
    display::RecordingSurface rec(400, 400);
    DrawFanGraph(s.M, f, rec, '.');
    EXPECT_EQ(rec.Of(display::OpKind::Line).size(), 27u + 3u); // three curves of nine segments, three axes
    EXPECT_EQ(rec.Of(display::OpKind::Circle).size(), 18u);
    const std::vector<std::string> texts = rec.Texts();
    EXPECT_EQ(texts.size(), 5u);
    EXPECT_NE(rec.FindText("0,0"), nullptr);
    EXPECT_NE(rec.FindText("100%"), nullptr);
    // Nothing but a cleared picture for an empty fan.
    display::RecordingSurface empty(400, 400);
    DrawFanGraph(s.M, s.M.Fans[2], empty, '.');
    EXPECT_TRUE(empty.Of(display::OpKind::Line).empty());
}

TEST(ShockForm, CountsTicksAndTheTotalInDisplayUnits) {
    FormScene s;
    ShockForm form(s.M, '.');
    EXPECT_EQ(form.Fields().LblShockTotal, "0");
    form.Fields().LblNumS[1] = "3"; // a count on an unticked row adds nothing
    form.Update();
    EXPECT_EQ(form.Total(), 0.0f);
    form.SetCount(1, "3"); // typing it ticks the row: 3 x 45 m
    EXPECT_TRUE(form.Fields().ChkShockType[1]);
    EXPECT_EQ(form.Total(), 135.0f);
    form.Tick(19, true); // "Discharge": count 0 becomes 1
    EXPECT_EQ(std::make_tuple(form.Fields().LblNumS[19], form.Fields().LblShockTotal), std::make_tuple("1", "155"));
    form.Tick(1, false);
    EXPECT_EQ(form.Fields().LblNumS[1], "0");
    EXPECT_FLOAT_EQ(form.Ok(), 20.0f);
    EXPECT_FLOAT_EQ(form.Cancel(), 0.0f);

    // In British units a row enters as the text of its converted length at one decimal place:
    // 45 m is 147.6 ft, 1 m is 3.3 ft.
    s.M.Set.UnitSys = 2;
    ShockForm british(s.M, '.');
    british.SetCount(1, "2");
    british.SetCount(0, "1");
    EXPECT_FLOAT_EQ(british.Total(), static_cast<float>(2 * 147.6 + 3.3));
    EXPECT_EQ(british.Fields().LblShockTotal, "299"); // 298.5, half away from zero
}

struct FanEditScene : FormScene {
    FanEditForm Form{M, Ui};
    FanEditScene() {
        M.Fans[2].FanName = "Booster";
        M.Fans[5].FanName = "Main";
    }
};

TEST(FanEdit, PutsADatabaseFanOnAnAirway) {
    FanEditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.M.Set.DefaultCurvePct = 0;
    ASSERT_TRUE(s.Form.Open(row));
    EXPECT_EQ(s.Form.Fields().FanCombo2[1].Text, "  2: Booster");
    s.Form.SetControl("FanCombo2", "Main");
    EXPECT_EQ(s.Form.Fields().TxtFanN, "1");
    s.Form.SetControl("OptCurveType", "2"); // combo: 50, which becomes the default
    EXPECT_EQ(std::make_tuple(s.Form.Fields().TxtVPart, s.M.Set.DefaultCurvePct), std::make_tuple("50", 50));
    s.Form.SetControl("TxtFanN", "3");
    s.Form.SetControl("OptSer2", "1");
    s.Form.Ok();
    const Airway& a = s.Row(row);
    EXPECT_EQ(std::make_tuple(a.FanNumber, a.NoOfFans, a.CurveFraction), std::make_tuple(5, 3, 50));
    EXPECT_TRUE(a.Has(bc::FixedDirection));
    EXPECT_TRUE(a.Has(bc::FansInSeries));

    // The count 0 takes the fan off; a fixed pressure marker stays.
    s.Form.Open(row);
    EXPECT_EQ(s.Form.Fields().OptCurveType, 2);
    s.Form.SetControl("TxtFanN", "0");
    s.Form.Ok();
    EXPECT_EQ(std::make_tuple(s.Row(row).FanNumber, s.Row(row).NoOfFans), std::make_tuple(0, 0));
    s.Row(row).FanNumber = -1;
    s.Form.Open(row);
    s.Form.Ok();
    EXPECT_EQ(s.Row(row).FanNumber, -1);
}

TEST(FanEdit, FanBeyondTheDatabaseIsSaidAndKept) {
    FanEditScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Row(row).FanNumber = 7; // no name in the database
    s.Row(row).NoOfFans = 2;
    s.Form.Open(row);
    EXPECT_TRUE(s.Ui.Said(FanNotDetected));
    s.Form.Ok();
    EXPECT_EQ(std::make_tuple(s.Row(row).FanNumber, s.Row(row).NoOfFans), std::make_tuple(7, 2));
    s.Row(row).FanNumber = 30000;
    s.Form.Open(row);
    s.Form.SetControl("TxtFanN", "99"); // held at 10
    EXPECT_EQ(std::make_tuple(s.Form.Fields().TxtFanN, s.Form.Fields().VSF), std::make_tuple("10", 0));
    EXPECT_FALSE(s.Form.Open(0));
}

} // namespace
} // namespace karvane::forms
