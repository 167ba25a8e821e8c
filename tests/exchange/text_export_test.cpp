// The text export: the heading, one airway's line under either decimal separator and unit
// system (flow and resistance rounded before conversion), names at their full width, and the
// file of an empty network.
#include <gtest/gtest.h>

#include "exchange/text_export.h"
#include "exchange_support.h"

using namespace karvane;
using namespace karvane::exchange;
using karvane::testing::ExchangeBench;

namespace {

std::string Blanks(std::size_t n) { return std::string(n, ' '); }

} // namespace

TEST(TextExport, HeadingAndLines) {
    ExchangeBench b;
    Model& m = b.m();
    Airway& a = b.Add(100, -20, 500, 250, -20, 480);
    a.BranchName = "Drive A";
    a.ExitNode = "N2";
    a.Quantity = 12.34f;
    a.FanNumber = 3;
    a.NoOfFans = 2;
    a.Height = 3.5f;
    a.Width = 4.25f;
    a.EntryNode = std::string(45, 'E');
    b.Settle();
    a.Resistance = 0.0012345f;
    a.AirwayNo = 77;

    ASSERT_TRUE(ExportText(m, b.Dir.File("si.txt"), b.ui()));
    const std::string heading =
        "X1\tY1\tZ1\tX2\tY2\tZ2\tQUANTITY\tRESISTANCE\tFAN TYPE\tNO FANS\tBRANCH NAME\tENTRY NODE\t"
        "EXIT NODE\tHEIGHT\tWIDTH/DIAM\tAirway No";
    const std::string names = "\tDrive A" + Blanks(33) + "\t" + std::string(40, 'E') + "\tN2" + Blanks(38) + "\t";
    EXPECT_EQ(b.Dir.Read("si.txt"), heading + "\r\n" +
                                        " 100 \t-20 \t 500 \t 250 \t-20 \t 480 \t 12.3 \t 0.00123 \t 3 \t 2 " + names +
                                        " 3.5 \t 4.25 \t 77 \r\n");

    // A machine of decimal commas, British units: lengths in feet, the flow rounded to 12.3 before
    // it is put in kcf/m, the resistance to 0.00123 before its factor.
    b.ui().Separator = ',';
    m.Set.UnitSys = 2;
    ASSERT_TRUE(ExportText(m, b.Dir.File("uk.txt"), b.ui()));
    const std::vector<std::string> lines = karvane::testing::FileLines(b.Dir.Read("uk.txt"));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1],
              " 328,084 \t-65,6168 \t 1640,42 \t 820,21 \t-65,6168 \t 1574,803 \t 26,06247 \t 0,001101219 \t 3 \t 2 " +
                  names + " 11,48294 \t 13,94357 \t 77 ");
    EXPECT_TRUE(b.ui().Transcript.empty());
}

TEST(TextExport, EmptyNetworkGivesTheHeadingAlone) {
    ExchangeBench b;
    ASSERT_TRUE(ExportText(b.m(), b.Dir.File("e.txt"), b.ui()));
    EXPECT_EQ(karvane::testing::FileLines(b.Dir.Read("e.txt")).size(), 1u);
    EXPECT_FALSE(ExportText(b.m(), b.Dir.File("missing/e.txt"), b.ui()));
    EXPECT_EQ(b.ui().Texts("Message"), std::vector<std::string>{"Error exporting File"});
}
