// The settings dialog: limits and their messages in the order of testing, the values stored
// as the record keeps them, the effects of density and presets, the unit switch, Cancel.
#include <gtest/gtest.h>

#include <tuple>

#include "display/view_state.h"
#include "forms/options_form.h"
#include "forms_support.h"
#include "model/units.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

struct OptionsScene : FormScene {
    std::unique_ptr<display::DisplayState> DsPtr = std::make_unique<display::DisplayState>();
    display::DisplayState& Ds = *DsPtr;
    OptionsScene() { display::ResetViewOptions(M, Ds); }
};

TEST(OptionsForm, EachLimitedFieldIsTestedAloneAndStoredInItsForm) {
    OptionsScene s;
    struct Case {
        const char* box;
        const char* value;
        const char* refusal; // empty: accepted
    };
    const Case cases[] = {
        {"TxtCd", "0", "Limits of Allowable Divisions Exceeded"},
        {"TxtTol", "5", ""},
        {"TxtPowerZoom", "0", "Power Zoom exceeds limits"},
        {"TxtTilt", "46", "Tilt rotation exceeds limits"},
        {"TxtMj", "4", "Limits of Allowable Major Grid Size Exceeded"},
        {"txtIt", "5001", "Limits of Itterations Exceeded"},
        {"txtMe", "0.0001", ""},
        {"TxtAirP", "0", ""},
        {"TxtCost", "0", "Limits of Allowable Cost Exceeded"},
        {"TxtEff", "85", ""},
        {"TxtFanMax", "10", "Limits of Allowable Fan Types Exceeded"},
        {"TxtAirRL", "???", ""},
    };
    OptionsForm form(s.M, s.Ds, s.Ui);
    const Settings before = s.M.Set;
    for (const Case& c : cases) ASSERT_TRUE(form.SetField(c.box, c.value)) << c.box;
    form.PressButton("cmdOK");
    std::vector<std::string> expected;
    for (const Case& c : cases)
        if (*c.refusal) expected.push_back(c.refusal);
    EXPECT_EQ(s.Ui.Texts("Message"), expected);
    EXPECT_EQ(s.Ui.Transcript[1].Kind, "Message"); // the plain box of the power zoom
    EXPECT_EQ(std::make_tuple(s.M.Set.NodeDivisions, s.M.Set.PickDivisions, s.M.Set.PowerZoom, s.M.Set.MaxIter,
                              s.M.Set.AllowErr, s.M.Set.SurfaceBaro),
              std::make_tuple(before.NodeDivisions, 20, before.PowerZoom, before.MaxIter, 0.0001f, 0));
    EXPECT_EQ(std::make_tuple(s.M.Set.PowerCost, s.M.Set.AirEfficiency, s.M.Set.MaxFans, s.M.Set.SurfaceRL),
              std::make_tuple(before.PowerCost, 0.85f, before.MaxFans, 99999));

    // Reopening shows the stored values as typed.
    OptionsForm again(s.M, s.Ds, s.Ui);
    EXPECT_EQ(std::make_tuple(again.F.TxtTol, again.F.TxtEff, again.F.TxtAirRL), std::make_tuple("5.0", "85", "???"));
    again.SetField("TxtFanMax", "11");
    again.SetField("ChkSaveTime", "1");
    again.SetField("txtsavetime", "25");
    again.PressButton("cmdOK");
    EXPECT_EQ(std::make_tuple(s.M.Set.MaxFans, s.M.Set.AutosaveMinutes), std::make_tuple(11, 10));
}

TEST(OptionsForm, DensityAndPresetsRecalculateResistancesOnlyWhenChanged) {
    OptionsScene s;
    const std::int32_t row = s.Add(0, 0, 0, 100, 0, 0);
    s.Row(row).WallType = 4;
    s.M.SimValid = Validity::Valid;
    OptionsForm same(s.M, s.Ds, s.Ui);
    same.PressButton("cmdOK");
    EXPECT_FALSE(same.Effects.ResistancesRecalculated);
    EXPECT_EQ(s.M.SimValid, Validity::Valid);
    EXPECT_EQ(s.Row(row).Resistance, 0); // untouched: nothing recalculated

    OptionsForm denser(s.M, s.Ds, s.Ui);
    denser.SetField("TxtDensity", "1.3");
    denser.PressButton("cmdOK");
    EXPECT_TRUE(denser.Effects.ResistancesRecalculated);
    EXPECT_FLOAT_EQ(s.M.Set.Density, 1.3f);
    EXPECT_GT(s.Row(row).Resistance, 0);
    EXPECT_EQ(s.M.SimValid, Validity::NotValid);

    // A preset value typed in the work copy, with a negative sign, goes in as its magnitude; a
    // name "undefined" is stored empty. Cancel leaves the presets alone.
    OptionsForm cancelled(s.M, s.Ds, s.Ui);
    cancelled.SetField("CmbWall", "4");
    cancelled.SetField("TxtWallC", "0.5");
    cancelled.PressButton("cmdCancel");
    const float wall4 = s.M.Preset.WallPreset[4];
    EXPECT_NE(wall4, 0.5f);
    OptionsForm presets(s.M, s.Ds, s.Ui);
    presets.SetField("CmbWall", "4");
    presets.SetField("TxtWallC", "-0.5");
    presets.SetField("CmbWall", "Undefined");
    EXPECT_FALSE(presets.SetField("CmbShock", "a,b") && s.Ui.Texts("Message").empty());
    presets.PressButton("cmdOK");
    EXPECT_EQ(std::make_tuple(s.M.Preset.WallPreset[4], s.M.Preset.WallNames[4]), std::make_tuple(0.5f, ""));
    EXPECT_TRUE(presets.Effects.ResistancesRecalculated);
}

// The balancing method is one more setting: a change drops the valid state of the results.
TEST(OptionsForm, BalancingMethod) {
    OptionsScene s;
    s.M.SimValid = Validity::Valid;
    OptionsForm newton(s.M, s.Ds, s.Ui);
    EXPECT_EQ(newton.F.OptSolver, 0);
    newton.SetField("OptSolver", "1");
    newton.PressButton("cmdOK");
    EXPECT_EQ(std::make_tuple(s.M.Set.Solver, s.M.SimValid), std::make_tuple(SolverNewton, Validity::NotValid));
    s.M.SimValid = Validity::Valid;
    OptionsForm same(s.M, s.Ds, s.Ui);
    EXPECT_EQ(same.F.OptSolver, 1);
    same.PressButton("cmdOK");
    EXPECT_EQ(s.M.SimValid, Validity::Valid);
}

TEST(OptionsForm, AUnitSwitchChangesEveryShownValueAndNoStoredOne) {
    OptionsScene s;
    OptionsForm form(s.M, s.Ds, s.Ui);
    const Settings before = s.M.Set;
    const OptionsFields si = form.F;
    form.SetField("OptUnitType", "2");
    EXPECT_EQ(s.M.Set.UnitSys, 2);
    EXPECT_TRUE(form.Effects.UnitSystemChanged);
    EXPECT_EQ(form.F.txtHeight, "13.12336"); // 4 m in feet
    EXPECT_NE(form.F.TxtDensity, si.TxtDensity);
    EXPECT_NE(form.F.TxtArea, si.TxtArea);
    EXPECT_EQ(std::make_tuple(s.M.Set.DriveHeight, s.M.Set.Density, s.M.Set.DefaultArea, s.M.Set.SurfaceBaro),
              std::make_tuple(before.DriveHeight, before.Density, before.DefaultArea, before.SurfaceBaro));
    // And back: the same texts as before.
    form.SetField("OptUnitType", "1");
    EXPECT_EQ(std::make_tuple(form.F.txtHeight, form.F.TxtDensity, s.M.Set.DriveHeight),
              std::make_tuple(si.txtHeight, si.TxtDensity, before.DriveHeight));
}

TEST(OptionsForm, CurveTypesSaveTimeColoursAndUnitFormats) {
    OptionsScene s;
    OptionsForm form(s.M, s.Ds, s.Ui);
    form.SetField("Optcurve", "1");
    EXPECT_EQ(form.F.TxtVPart, "100");
    form.SetField("Optcurve", "2");
    EXPECT_EQ(form.F.TxtVPart, "50");
    form.SetField("ChkSaveTime", "1");
    EXPECT_EQ(form.F.txtsavetime, "5");
    form.SetField("Col", "2");
    form.SetField("Frame3D2", "40");
    EXPECT_EQ(form.F.Col[2], Rgb(255, 255, 255));
    EXPECT_FALSE(form.SetCell(4, 1, "abc"));
    EXPECT_TRUE(s.Ui.Said("Invalid format code - formats should look like 0 or 0.00 etc"));
    EXPECT_TRUE(form.SetCell(4, 1, "0.000"));
    EXPECT_FALSE(form.SetCell(4, 2, "m3/s")); // labels are not edited
    form.PressButton("cmdOK");
    EXPECT_EQ(std::make_tuple(s.M.Units.Rows[4].Format[1], s.M.Set.DefaultCurvePct, s.M.Set.AutosaveMinutes,
                              s.M.Set.Colours[2]),
              std::make_tuple("0.000", 50, 5, Rgb(255, 255, 255)));
}

} // namespace
} // namespace karvane::forms
