// Values of airways as text: every data type, the decorations, node data, units and the info
// pop-up, and the data type lists with their group memory.
#include <gtest/gtest.h>

#include <cmath>

#include "display/data_format.h"
#include "display/data_types.h"
#include "display_support.h"
#include "engineering/resistance.h"

namespace karvane::display {
namespace {

using testing::Scene;

struct Values : Scene {
    std::int32_t A;
    Values() {
        A = Add(0, 0, 490, 100, 0, 490);
        Airway& a = Row(A);
        a.Quantity = 16;
        a.Resistance = 0.5f;
        a.FromNodeP = 100;
        a.ToNodeP = 40;
        a.ShockFactor = 20;
        a.WallFactor = 0.012f;
        a.WallType = CustomPreset;
        a.ShockType = CustomPreset;
        a.Height = 5;
        a.Width = 4;
        a.PrimaryLayer = 1;
        a.SecondLayer = 3;
        M.PrimaryLayers[1].Name = "Intake";
        M.SecondaryLayers[3].Name = "East";
        FanRecord& fan = M.Fans[1];
        fan.FanName = "Main";
        fan.FanDiam = 2;
        fan.FanPStatic[1] = 2500;
        fan.FanPStatic[10] = 100;
        for (int p = 1; p <= 10; ++p) fan.FanQ[static_cast<std::size_t>(p)] = static_cast<float>(10 * p);
    }
    std::string Text(int type, bool withUnit = false) { return FormatAirwayValue(M, Ds, type, A, withUnit).Text; }
    std::string Extra(int type) { return FormatAirwayValue(M, Ds, type, A, false).ExtraLine; }
};

TEST(FormatValue, UnitsFormatsAndLabels) {
    Values s;
    EXPECT_EQ(FormatValue(s.M, 12.345, uc::Flow, false, false, '.'), "12.3");
    EXPECT_EQ(FormatValue(s.M, 12.345, uc::Flow, true, false, '.'), "12.3 m3/s");
    EXPECT_EQ(FormatValue(s.M, 12.345, uc::Flow, true, false, ','), "12,3 m3/s");
    EXPECT_EQ(FormatValue(s.M, 0.1, uc::Flow, false, true, '.'), "0.1");
    EXPECT_EQ(FormatValue(s.M, 12345.6, uc::Currency, true, false, '.'), "$ 12,346");
    EXPECT_EQ(FormatValue(s.M, 0.0123, uc::Resistance, false, false, '.'), "0.01230");
    s.M.Set.UnitSys = 2;
    EXPECT_EQ(FormatValue(s.M, 10, uc::Flow, true, false, '.'), "21.2 kcf/m");
    EXPECT_EQ(FormatValue(s.M, 1, uc::Velocity, true, false, '.'), "197 ft/min");
}

TEST(FormatAirwayValue, EveryDataType) {
    Values s;
    Airway& a = s.Row(s.A);
    EXPECT_EQ(s.Text(12), "16.0");
    EXPECT_EQ(s.Text(12, true), "16.0 m3/s");
    EXPECT_EQ(s.Text(13), "0.8");  // 16 / (5 x 4)
    EXPECT_EQ(s.Text(22), "60.0"); // the drop between the nodes
    const double rf = FrictionResistance(s.M, s.A);
    EXPECT_EQ(s.Text(23), FormatValue(s.M, 256 * rf, uc::Pressure, false, false, '.'));
    EXPECT_EQ(s.Text(24), ""); // no fan, no fixed flow
    const double load = std::fabs(60 - 256 * rf) * 20 / 9.81;
    EXPECT_EQ(s.Text(25), FormatValue(s.M, load, uc::Mass, false, false, '.'));
    EXPECT_EQ(s.Text(32), "0.50000");
    EXPECT_EQ(s.Text(33), "20.0");
    EXPECT_EQ(s.Text(34), "0.01200");
    EXPECT_EQ(s.Text(35), "5.0 x 4.0");
    EXPECT_EQ(s.Text(35, true), "5.0 m x 4.0 m");
    EXPECT_EQ(s.Text(36), "100");
    EXPECT_EQ(s.Text(42), "2");     // 16^3 x 0.5 / 1000 = 2.048 kW
    EXPECT_EQ(s.Text(44), "1,794"); // 2.048 x 0.08 x 8760 / 0.8 = 1794.05
    s.M.Set.PowerCost = 0.8f;
    EXPECT_EQ(s.Text(44), "17,940");
    EXPECT_EQ(s.Text(43), ""); // no fan
    EXPECT_EQ(s.Text(52), "1");
    EXPECT_EQ(s.Text(53), "1,3");
    EXPECT_EQ(s.Text(54), "Intake,East");
    EXPECT_EQ(s.Text(55), "");
    a.Contaminant = 3.4f;
    EXPECT_EQ(s.Text(55), "4");
    a.Gas2 = 2;
    s.M.GasActive = 1;
    EXPECT_EQ(s.Text(55), "2");
    EXPECT_EQ(s.Text(56), ""); // never reached
    s.M.Smoke.SpreadTime[static_cast<std::size_t>(s.A)] = 3600;
    EXPECT_EQ(s.Text(56), "01:00:00");
    EXPECT_EQ(s.Text(99), "");

    // Other shapes.
    a.BranchCode = bc::Circular;
    a.Width = 3;
    EXPECT_EQ(s.Text(35), "Diam 3.0");
    a.BranchCode = bc::AreaEntry;
    a.Width = 20;
    a.Height = 18;
    EXPECT_EQ(s.Text(35, true), "Area 20.0 m2  P 18.0 m");
    EXPECT_EQ(s.Text(13), "0.8");

    // The resistance preset's name as the extra line.
    a.ResType = 3;
    EXPECT_EQ(s.Extra(32), "Wood Door");
    EXPECT_EQ(s.Extra(12), ""); // only while the airway is in view with resistance symbols on
    a.BranchCode |= bc::InView;
    EXPECT_EQ(s.Extra(12), "Wood Door");
    s.Ds.View.DisplayOptions &= ~opt::ShowResistance;
    EXPECT_EQ(s.Extra(12), "");
}

TEST(FormatAirwayValue, FansStallsAndDecorations) {
    Values s;
    Airway& a = s.Row(s.A);
    a.FanNumber = 1;
    a.NoOfFans = 1;
    a.Quantity = 20;
    a.Pressure = 1000;
    EXPECT_EQ(s.Text(24), "Fan1:1000.0");
    EXPECT_EQ(s.Text(24, true), "1000.0 Pa");
    EXPECT_EQ(s.Text(22), "Fan1:200.0"); // Q squared x R with a fan
    // Input power at the default efficiency, with the velocity pressure of the fan outlet.
    const double v = std::pow(20 / (3.141592654 * 4 / 4), 2) * 1.2 / 2;
    const double drive = (v + 1000) * 20 / 1000;
    EXPECT_EQ(s.Text(43), "Fan1:" + FormatValue(s.M, drive / 0.8, uc::Power, false, false, '.'));
    EXPECT_EQ(s.Text(45), "Fan1:" + FormatValue(s.M, std::nearbyint(drive * 0.08 * 8760 / 0.8 * 1e4) / 1e4,
                                                uc::Currency, false, false, '.'));
    EXPECT_EQ(s.Text(25), "Fan1:" + FormatValue(s.M, 20 * -1000.0 / 9.81, uc::Mass, false, false, '.'));

    // A stalled fan: the stall pressure of the first curve point, times two fans in series.
    a.Pressure = StalledFanPressure;
    a.NoOfFans = 2;
    a.BranchCode |= bc::FansInSeries;
    EXPECT_EQ(s.Text(24), "2xFan1:-9999.0");
    EXPECT_EQ(s.Extra(24), "Stall @5000.0");
    EXPECT_EQ(s.Text(25), "2xFan1:N/A");
    a.Pressure = NegatedFanPressure;
    EXPECT_EQ(s.Extra(24), "Negate @200.0");
    // With units (the pop-up) the fan number is left out.
    EXPECT_EQ(s.Text(24, true), "9999.0 Pa");

    // Fixed pressure, fixed flow and parallel airways, in that order from the inside out.
    a.FanNumber = -1;
    a.Pressure = 300;
    a.BranchCode |= bc::FixedFlow;
    a.NoAirways = 2;
    EXPECT_EQ(s.Text(12), "[2] FixQ FixP 20.0");
    EXPECT_EQ(s.Text(13), "[2] FixQ FixP 0.5");
    // A fixed flow airway without fan pushes with its own pressure.
    a.FanNumber = 0;
    EXPECT_EQ(s.Text(43), "[2] FixQ " + FormatValue(s.M, 300.0 * 20 / 1000 / 0.8, uc::Power, false, false, '.'));
    a.Pressure = -5;
    EXPECT_EQ(s.Text(43), "");
}

TEST(FormatNodeValue, PressuresAndCoordinatesAtTheEnds) {
    Values s;
    s.Row(s.A).ToNodeP = -250;
    s.Row(s.A).Z1 = 1000; // SurfaceRL unset: the first airway's From level stands for the surface
    auto node = [&](int type, AirwayEnd end) { return FormatNodeValue(s.M, s.Ds, type, s.A, end, false); };
    EXPECT_EQ(node(26, AirwayEnd::To), "-250.0");
    EXPECT_EQ(node(26, AirwayEnd::From), "100.0");
    EXPECT_EQ(node(27, AirwayEnd::To), "100.75");
    EXPECT_EQ(node(28, AirwayEnd::To), "106.75"); // + 510 m of air at 1.2 kg/m3
    s.M.Set.SurfaceRL = 490;
    EXPECT_EQ(node(28, AirwayEnd::To), "100.75");
    EXPECT_EQ(node(37, AirwayEnd::To), "100,0,490");
    EXPECT_EQ(FormatNodeValue(s.M, s.Ds, 37, s.A, AirwayEnd::From, true), "0,0,1000 m");
    EXPECT_EQ(node(12, AirwayEnd::To), "");
    s.Row(s.A).ToNodeP = NodeNotReached;
    EXPECT_EQ(node(26, AirwayEnd::To), "");
    // The node types show nothing at an airway's middle.
    EXPECT_EQ(s.Text(26), "");
    EXPECT_EQ(s.Text(37), "");
}

TEST(DataTypes, ListsMemoryCaptionsAndPopup) {
    Values s;
    EXPECT_EQ(DataValueNames(2), (std::vector<std::string>{"Total Loss", "Friction Loss", "Boost", "Regulator Load",
                                                           "Relative", "Absolute", "Barometric"}));
    EXPECT_EQ(DataGroupName(3), "Airway data");
    EXPECT_EQ(DataMenuCaption(22), "Loss  Pa");
    EXPECT_EQ(DataTypeByName("velocity"), 13);
    EXPECT_EQ(DataTypeByName("Node atmos kPa"), 27);
    EXPECT_EQ(DataTypeByName("nothing"), 0);

    // Returning to a group brings back the value last used in it.
    ChooseDataType(s.M, s.Ds, 13);
    EXPECT_EQ(ChooseDataGroup(s.M, s.Ds, 2), 22);
    ChooseDataType(s.M, s.Ds, 25);
    EXPECT_EQ(s.Ds.Labels.Unit, "kg");
    EXPECT_EQ(ChooseDataGroup(s.M, s.Ds, 1), 13);
    EXPECT_EQ(s.Ds.Labels.Unit, "m/s");
    EXPECT_EQ(ChooseDataGroup(s.M, s.Ds, 2), 25);
    EXPECT_EQ(DataUnitLabel(s.M, 36), "m");
    EXPECT_EQ(DataUnitLabel(s.M, 52), "");
    s.M.Set.UnitSys = 2;
    EXPECT_EQ(DataUnitLabel(s.M, 27), "in.Hg");

    s.M.Set.UnitSys = 1;
    ChooseDataType(s.M, s.Ds, 12);
    s.Ds.View.LevelMode = lm::Single;
    s.Ds.View.CurrentLevel = 2;
    EXPECT_EQ(ViewWindowCaption(s.M, s.Ds, 0), "View 1 : U/Ground Quantity");
    s.Ds.View.LevelMode = lm::All;
    EXPECT_EQ(ViewWindowCaption(s.M, s.Ds, 2), "View 3 :  Quantity");

    // The pop-up shows every value with its unit and no fan number.
    Airway& a = s.Row(s.A);
    a.FanNumber = 1;
    a.NoOfFans = 2;
    EXPECT_EQ(InfoPopupText(s.M, s.Ds, s.A), "     AIRWAY 1\n\n"
                                             "Q = 16.0 m3/s\n"
                                             "Vel = 0.8 m/s\n"
                                             "Res = 0.50000 Ns2/m8\n"
                                             "kFac = 0.01200 kg/m3\n"
                                             "PLoss = 128.0 Pa\n"
                                             "Shock = 20.0 m\n"
                                             "Size = 5.0 m x 4.0 m\n"
                                             "Cost = $ 1,794\n"
                                             "Power = 2 kW\n"
                                             "Layers = Intake,East");
}

} // namespace
} // namespace karvane::display
