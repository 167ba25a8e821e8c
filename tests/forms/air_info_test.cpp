// The airway information card against hand-worked values: a plain drive, a fixed-flow airway
// and a fan airway, and the fan graph drawn with the operating point the run stored; and the
// texts of the network summary before and after a run.
#include <gtest/gtest.h>

#include <tuple>

#include <cmath>

#include "display/recording_surface.h"
#include "engineering/resistance.h"
#include "files/network_load.h"
#include "forms/air_info.h"
#include "forms/summary_form.h"
#include "forms_support.h"
#include "model/number_format.h"
#include "simulate/run.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

struct CardScene : FormScene {
    std::int32_t Row = 0;
    CardScene() {
        Row = Add(0, 0, -100, 100, 0, -100);
        Airway& a = this->Row_();
        a.Height = 4;
        a.Width = 5;
        a.WallType = 5; // 0.012
        a.AirwayNo = 7;
        a.BranchName = "Drive";
        a.Quantity = 30;
        a.FromNodeP = -200;
        a.ToNodeP = -260;
        RecalcAirway(M, Row);
        M.Set.SurfaceRL = 0;
        FanRecord& f = M.Fans[1];
        f.FanName = "Main fan";
        f.FanDiam = 2;
        const std::int16_t eff[] = {60, 65, 70, 75, 80, 80, 75, 70, 65, 60};
        for (int p = 1; p <= 10; ++p) {
            const float q = static_cast<float>(10 * (p - 1));
            f.FanQ[static_cast<std::size_t>(p)] = q;
            f.FanPStatic[static_cast<std::size_t>(p)] = 1000 - q * q / 10;
            f.FanPTotal[static_cast<std::size_t>(p)] = 1050 - q * q / 10;
            f.FanEff[static_cast<std::size_t>(p)] = eff[p - 1];
        }
    }
    Airway& Row_() { return M.Airways[static_cast<std::size_t>(Row)]; }
    AirInfoCard Card() { return FillAirInfo(M, Row, '.'); }
};

std::vector<std::string> Captions(const AirInfoCard& c) {
    std::vector<std::string> out;
    for (const auto& r : c.Rows) out.push_back(r.Caption);
    return out;
}

const std::vector<std::string> kCommonRows = {"Branch name",   "Node names",    "Dimensions",    "Airflow",
                                              "Resistance",    "Length",        "Layer Names",   "Node Rel Pres",
                                              "Node Abs Pres", "Node Bar Pres", "Friction Loss", "Total Press Loss",
                                              "Pressure Load"};

TEST(AirInfo, PlainDriveRowsMatchHandWorkedValues) {
    CardScene s;
    const AirInfoCard c = s.Card();
    EXPECT_EQ(c.LblAirName, "Passive Airway 7");
    EXPECT_FALSE(c.Wide);
    EXPECT_FALSE(c.Graph.Drawn);
    ASSERT_EQ(Captions(c), kCommonRows);
    const std::vector<std::string> values = {
        "Drive",
        "unnamed to unnamed",
        "20.0 m2 : 4.0 m x 5.0 m",
        "30.0 m3/s @ 1.5 m/s",
        "0.00270 Ns2/m8", // 0.012 x 18 x 100 x 1.2 / (20^3 x 1.2)
        "100.0 m",
        "1, 1",
        "-200.0 Pa to -260.0 Pa",
        "100.80 kPa to 100.74 kPa", // p / 1000 + 101
        "101.98 kPa to 101.92 kPa", // + (0 - (-100)) x 1.2 x 9.81 / 1000
        "2.4 Pa",                   // 0.0027 x 30^2 = 2.43
        "60.0 Pa",
        "57.6 Pa  @  117 kg", // |60 - 2.43|, x 20 / 9.81
    };
    for (std::size_t i = 0; i < values.size(); ++i) EXPECT_EQ(c.Rows[i].Value, values[i]) << c.Rows[i].Caption;
    EXPECT_EQ(std::make_tuple(c.LblCoord, c.LblCoord2), std::make_tuple("X 0  Y 0  Z -100 m", "X 100  Y 0  Z -100 m"));
}

TEST(AirInfo, FixedFlowAirwayRows) {
    CardScene s;
    s.Row_().BranchCode |= bc::FixedFlow;
    s.Row_().Pressure = 150;
    s.Row_().NoAirways = 2;
    RecalcAirway(s.M, s.Row);
    AirInfoCard c = s.Card();
    EXPECT_EQ(c.LblAirName, "Fixed Quantity Airway 7 x 2");
    ASSERT_EQ(c.Rows.size(), 16u);
    EXPECT_EQ(c.Rows[3].Value, "30.0 m3/s @ 0.8 m/s"); // per airway of the two: 30 / 20 / 2
    EXPECT_EQ(std::make_tuple(c.Rows[13].Caption, c.Rows[13].Value, c.Rows[14].Caption),
              std::make_tuple("Fixed Q Pres", "150.0 Pa", "Fixed Q Power"));
    // 30 x 150 / 1000 / 0.8 = 5.625 kW, x 0.08 x 8760 = $3,942 a year
    EXPECT_EQ(std::make_tuple(c.Rows[14].Value, c.Rows[15].Caption, c.Rows[15].Value),
              std::make_tuple("6 kW @ $3,942/yr", "Required Res", "Infinite"));

    s.Row_().Pressure = -90; // the airway must take pressure away: it needs a regulator
    c = s.Card();
    EXPECT_EQ(std::make_tuple(c.Rows[13].Value, c.Rows[14].Value), std::make_tuple("-90.0 Pa", "n/a"));
    EXPECT_EQ(c.Rows[15].Value, "0.10000 Ns2/m8"); // 90 / 30^2
}

TEST(AirInfo, FanAirwayRowsAndGraph) {
    CardScene s;
    Airway& a = s.Row_();
    a.FanNumber = 1;
    a.NoOfFans = 2; // in parallel
    a.Quantity = 100;
    a.Pressure = 750; // what the run stored: 50 m3/s a fan on the static curve
    const AirInfoCard c = s.Card();
    EXPECT_EQ(c.LblAirName, "Fan Airway 7");
    EXPECT_TRUE(c.Wide);
    EXPECT_EQ(c.LblFanName, "Main fan x 2 in parallel");
    ASSERT_EQ(c.Rows.size(), 16u);
    // Outlet area 2 x pi x 2^2 / 4, velocity pressure (100 / 6.2832)^2 x 0.6 = 151.98 Pa.
    EXPECT_EQ(std::make_tuple(c.Rows[13].Caption, c.Rows[13].Value, c.LblDutyP, c.LblDutyQ),
              std::make_tuple("Fan Pressures", "+ Static 750.0 Pa  Total 902.0 Pa", c.Rows[13].Value, "100.0 m3/s"));
    // Efficiency at 50 m3/s a fan: 80 %. 100 x 901.98 / 1000 / 0.8 = 112.7 kW.
    EXPECT_EQ(c.Rows[14].Caption, "Fan Power");
    const double kw = 100 * (750 + std::pow(100 / (2 * 3.141592654), 2) * 0.6) / 1000 / 0.8;
    EXPECT_EQ(std::make_tuple(c.Rows[14].Value, c.Rows[15].Value),
              std::make_tuple("113 kW @ " + FormatNumber(kw * 0.08f * 8760, "$#,##0") + "/yr", "80 %"));

    const FanGraph& g = c.Graph;
    ASSERT_TRUE(g.Drawn);
    EXPECT_DOUBLE_EQ(g.FlowMult, 2);
    EXPECT_DOUBLE_EQ(g.FlowScale, 0.18); // 90 x 2 / 1000
    EXPECT_DOUBLE_EQ(g.PressScale, 1.0);
    display::RecordingSurface surface(600, 550);
    DrawFanGraph(g, surface);
    // The red cross stands on the operating point the run stored.
    std::vector<display::RecordedOp> cross;
    for (const auto& op : surface.Of(display::OpKind::Line))
        if (op.Width == 3) cross.push_back(op);
    ASSERT_EQ(cross.size(), 2u);
    EXPECT_NEAR((cross[0].X1 + cross[0].X2) / 2, 100 / 0.18, 1e-3);
    EXPECT_NEAR((cross[0].Y1 + cross[0].Y2) / 2, 250, 1e-3);
    EXPECT_EQ(surface.Of(display::OpKind::Circle).size(), 9u);
    EXPECT_NE(surface.FindText("100%"), nullptr);
    EXPECT_NE(surface.FindText("0,0"), nullptr);
    EXPECT_NE(surface.FindText("180.0 m3/s"), nullptr);
    // The read-out under the mouse.
    const GraphReadout r = ReadFanGraph(s.M, g, 500, 400, '.');
    EXPECT_EQ(std::make_tuple(r.LblQ, r.LblP), std::make_tuple("90.0 m3/s", "600.0 Pa"));
}

TEST(AirInfo, StalledAndNegatedFansAndSeriesScaling) {
    CardScene s;
    Airway& a = s.Row_();
    a.FanNumber = 1;
    a.NoOfFans = 3;
    a.BranchCode |= bc::FansInSeries;
    a.Pressure = StalledFanPressure;
    AirInfoCard c = s.Card();
    EXPECT_EQ(std::make_tuple(c.Rows[13].Value, c.Rows[14].Value, c.Graph.PointY),
              std::make_tuple("Stalled +3000.0 Pa", "n/a", 0.0f));
    EXPECT_DOUBLE_EQ(c.Graph.PressMult, 3);
    EXPECT_DOUBLE_EQ(c.Graph.PressScale, 3.0);
    EXPECT_EQ(c.LblFanName, "Main fan x 3 in series");
    a.Pressure = NegatedFanPressure;
    c = s.Card();
    EXPECT_EQ(std::make_tuple(c.Rows[13].Value, c.Rows[14].Value, c.Graph.PointY),
              std::make_tuple("Negated", "n/a", 1000.0f));
}

TEST(AirInfo, BlankCurvesFixedPressureAndMissingRows) {
    CardScene s;
    Airway& a = s.Row_();
    a.FanNumber = 2; // a slot with no curve: no graph, no crash
    s.M.Fans[2].FanName = "Blank";
    AirInfoCard c = s.Card();
    EXPECT_TRUE(c.Wide);
    EXPECT_FALSE(c.Graph.Drawn);
    display::RecordingSurface surface(100, 100);
    DrawFanGraph(c.Graph, surface);
    EXPECT_TRUE(surface.Of(display::OpKind::Line).empty());
    a.FanNumber = 400; // beyond the database: a fan airway without a card graph
    c = s.Card();
    EXPECT_FALSE(c.Wide);
    a.FanNumber = -1;
    a.Pressure = 200;
    c = s.Card();
    EXPECT_EQ(c.LblAirName, "Fixed Pressure Airway 7");
    ASSERT_EQ(c.Rows.size(), 15u);
    EXPECT_EQ(std::make_tuple(c.Rows[13].Caption, c.Rows[14].Caption),
              std::make_tuple("Fix Pressure", "Fixed P Power"));
    // A zero area leaves the velocity out; a row beyond the network gives an empty card.
    a.Width = 0;
    c = s.Card();
    EXPECT_EQ(c.Rows[3].Value, "30.0 m3/s");
    EXPECT_EQ(FillAirInfo(s.M, 5, '.').Row, 0);
}

TEST(Summary, AFreshNetworkKeepsTheFiguresItCannotWorkOutAndARunFillsThem) {
    FormScene s;
    ASSERT_TRUE(files::LoadNetwork(s.M, std::string(KARVANE_EXAMPLES) + "/demo-mine.sim", s.Ui));
    // As a network that was never simulated: no flow anywhere.
    for (std::int32_t r = 1; r <= s.M.AirwayCount; ++r) s.Row(r).Quantity = 0;
    SummaryTexts t = FillSummary(s.M, '.');
    EXPECT_EQ(t.LblNA, std::to_string(s.M.AirwayCount));
    EXPECT_EQ(t.LblEff, SummaryNoFigure); // no input power before a run
    EXPECT_EQ(t.LblResist, SummaryNoFigure);
    EXPECT_EQ(t.LblAF, "0.0 m3/s"); // the flow class shows one decimal
    EXPECT_EQ(t.LblCost, "$0");
    EXPECT_NE(t.LblNF, "0");

    simulate::RunAirflow(s.M, s.Ui);
    ASSERT_EQ(s.M.SimValid, Validity::Valid);
    t = FillSummary(s.M, '.');
    EXPECT_NE(t.LblAF, "0.0 m3/s");
    EXPECT_TRUE(t.LblEff.ends_with(" %") || t.LblEff.ends_with("%")) << t.LblEff;
    EXPECT_NE(t.LblResist, SummaryNoFigure);
    EXPECT_TRUE(t.LblCost.starts_with("$")) << t.LblCost;
    EXPECT_NE(t.LblCost, "$0");
    EXPECT_TRUE(t.LblLA.ends_with(" m")) << t.LblLA;

    // British units change the units of the labels, not the counts.
    s.M.Set.UnitSys = 2;
    const SummaryTexts british = FillSummary(s.M, '.');
    EXPECT_NE(british.LblAF, t.LblAF);
    EXPECT_EQ(std::make_tuple(british.LblNA, british.LblCost), std::make_tuple(t.LblNA, t.LblCost));
}

} // namespace
} // namespace karvane::forms
