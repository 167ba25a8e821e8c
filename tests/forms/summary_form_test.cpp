// The texts of the network summary.
#include <gtest/gtest.h>

#include "files/network_load.h"
#include "forms/summary_form.h"
#include "forms_support.h"
#include "simulate/run.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

TEST(Summary, AFreshNetworkKeepsTheFiguresItCannotWorkOutAndARunFillsThem) {
    FormScene s;
    s.M.FileName = std::string(KARVANE_EXAMPLES) + "/demo-mine.sim";
    ASSERT_TRUE(files::LoadNetwork(s.M, s.Ui));
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
    ASSERT_EQ(s.M.SimValid, -1);
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
    EXPECT_EQ(british.LblNA, t.LblNA);
    EXPECT_EQ(british.LblCost, t.LblCost);
}

} // namespace
} // namespace karvane::forms
