// The shock calculator's total in both unit systems and the fan tool's dialog.
#include <gtest/gtest.h>

#include "forms/air_edit.h"
#include "forms/fan_edit.h"
#include "forms/shock_form.h"
#include "forms_support.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

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
    EXPECT_EQ(form.Fields().LblNumS[19], "1");
    EXPECT_EQ(form.Fields().LblShockTotal, "155");
    form.Tick(1, false);
    EXPECT_EQ(form.Fields().LblNumS[1], "0");
    EXPECT_EQ(form.Ok(), 20.0f);
    EXPECT_EQ(form.Cancel(), 0.0f);

    // In British units a row enters as the text of its converted length at one decimal place:
    // 45 m is 147.6 ft, 1 m is 3.3 ft.
    s.M.Set.UnitSys = 2;
    ShockForm british(s.M, '.');
    british.SetCount(1, "2");
    british.SetCount(0, "1");
    EXPECT_FLOAT_EQ(british.Total(), static_cast<float>(2 * 147.6 + 3.3));
    EXPECT_EQ(british.Fields().LblShockTotal, "299"); // 298.5, half away from zero
}

struct FanScene : FormScene {
    FanEditForm Form{M, Ui};
    FanScene() {
        M.Fans[2].FanName = "Booster";
        M.Fans[5].FanName = "Main";
    }
};

TEST(FanEdit, PutsADatabaseFanOnAnAirway) {
    FanScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.M.Set.DefaultCurvePct = 0;
    ASSERT_TRUE(s.Form.Open(row));
    EXPECT_EQ(s.Form.Fields().FanCombo2[1].Text, "  2: Booster");
    s.Form.SetControl("FanCombo2", "Main");
    EXPECT_EQ(s.Form.Fields().TxtFanN, "1");
    s.Form.SetControl("OptCurveType", "2"); // combo: 50, which becomes the default
    EXPECT_EQ(s.Form.Fields().TxtVPart, "50");
    EXPECT_EQ(s.M.Set.DefaultCurvePct, 50);
    s.Form.SetControl("TxtFanN", "3");
    s.Form.SetControl("OptSer2", "1");
    s.Form.Ok();
    const Airway& a = s.Row(row);
    EXPECT_EQ(a.FanNumber, 5);
    EXPECT_EQ(a.NoOfFans, 3);
    EXPECT_EQ(a.CurveFraction, 50);
    EXPECT_TRUE(a.Has(bc::FixedDirection));
    EXPECT_TRUE(a.Has(bc::FansInSeries));

    // The count 0 takes the fan off; a fixed pressure marker stays.
    s.Form.Open(row);
    EXPECT_EQ(s.Form.Fields().OptCurveType, 2);
    s.Form.SetControl("TxtFanN", "0");
    s.Form.Ok();
    EXPECT_EQ(s.Row(row).FanNumber, 0);
    EXPECT_EQ(s.Row(row).NoOfFans, 0);
    s.Row(row).FanNumber = -1;
    s.Form.Open(row);
    s.Form.Ok();
    EXPECT_EQ(s.Row(row).FanNumber, -1);
}

TEST(FanEdit, FanBeyondTheDatabaseIsSaidAndKept) {
    FanScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Row(row).FanNumber = 7; // no name in the database
    s.Row(row).NoOfFans = 2;
    s.Form.Open(row);
    EXPECT_TRUE(s.Ui.Said(FanNotDetected));
    s.Form.Ok();
    EXPECT_EQ(s.Row(row).FanNumber, 7);
    EXPECT_EQ(s.Row(row).NoOfFans, 2);
    s.Row(row).FanNumber = 30000;
    s.Form.Open(row);
    s.Form.SetControl("TxtFanN", "99"); // held at 10
    EXPECT_EQ(s.Form.Fields().TxtFanN, "10");
    EXPECT_EQ(s.Form.Fields().VSF, 0);
    EXPECT_FALSE(s.Form.Open(0));
}

} // namespace
} // namespace karvane::forms
