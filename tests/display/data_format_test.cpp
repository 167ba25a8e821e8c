// Values of airways as text: every data type, the decorations, node data, units and the info
// pop-up, and the data type lists with their group memory.
#include <gtest/gtest.h>

#include "display/data_format.h"
#include "display/data_types.h"
#include "display_support.h"
#include "support/golden.h"

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

// Every data type of the airway in each of its states, against a golden file: a line of the
// value, the value with its unit and the extra line where any of them is not empty. The plain
// airway: Q 16 through 5 x 4 (0.8 m/s), a drop of 60 between its nodes, R 0.5, 16^3 x 0.5 /
// 1000 = 2.048 kW costing 2.048 x 0.08 x 8760 / 0.8 = 1794.05 a year.
TEST(FormatAirwayValue, EveryDataTypeAsRecorded) {
    Values s;
    Airway& a = s.Row(s.A);
    std::string record;
    const auto values = [&](const char* title) {
        record += std::string("== ") + title + "\n";
        for (int type = 10; type < 100; ++type) {
            const AirwayValueText plain = FormatAirwayValue(s.M, s.Ds, type, s.A, false);
            const std::string unit = s.Text(type, true);
            if (plain.Text.empty() && unit.empty() && plain.ExtraLine.empty()) continue;
            record += std::to_string(type) + "\t" + plain.Text + "\t" + unit + "\t" + plain.ExtraLine + "\n";
        }
    };
    values("plain");
    s.M.Set.PowerCost = 0.8f;
    a.Contaminant = 3.4f;
    values("power at ten times the price, a contaminant level");
    a.Gas2 = 2;
    s.M.GasActive = GasDisplay::Spread;
    s.M.Smoke.SpreadTime[static_cast<std::size_t>(s.A)] = 3600;
    a.BranchCode = bc::Circular;
    a.Width = 3;
    values("a spread on show, reached after an hour; circular");
    a.BranchCode = bc::AreaEntry;
    a.Width = 20;
    a.Height = 18;
    a.ResType = 3;
    values("by area and perimeter; a resistance preset out of view");
    a.BranchCode |= bc::InView;
    values("in view with resistance symbols on");
    s.Ds.View.DisplayOptions &= ~opt::ShowResistance;
    values("in view with resistance symbols off");

    Values f;
    Airway& fan = f.Row(f.A);
    fan.FanNumber = 1;
    fan.NoOfFans = 1;
    fan.Quantity = 20;
    fan.Pressure = 1000;
    a = fan;
    values("a fan of 2 m at 20 m3/s and 1000 Pa");
    a.Pressure = StalledFanPressure;
    a.NoOfFans = 2;
    a.BranchCode |= bc::FansInSeries;
    values("two fans in series stalled: the stall pressure of the first point times two");
    a.Pressure = NegatedFanPressure;
    values("two fans in series negated");
    a.FanNumber = -1;
    a.Pressure = 300;
    a.BranchCode |= bc::FixedFlow;
    a.NoAirways = 2;
    values("fixed pressure, fixed flow and parallel airways, from the inside out");
    a.FanNumber = 0;
    values("a fixed flow without fan pushes with its own pressure");
    a.Pressure = -5;
    values("a fixed flow taking pressure out");
    karvane::testing::ExpectGolden("airway_values.txt", record);
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
