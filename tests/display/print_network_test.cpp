// The print of a view on a recorded page: the scale on paper, the frame and exact clipping by
// their closed forms, the figure's reset afterwards; text that must fit, monochrome, legends and
// the title line against a golden file.
#include <gtest/gtest.h>

#include <cmath>

#include "display/drawn_list.h"
#include "display/level_selector.h"
#include "display/print_network.h"
#include "display/recording_surface.h"
#include "display/renderer.h"
#include "display/svg_surface.h"
#include "display_support.h"
#include "support/golden.h"

namespace karvane::display {
namespace {

using testing::Scene;

constexpr double kDpi = 600;

// A drive of 100 m and a crosscut on "U/Ground", a 400 x 300 m view, printed on a page of
// 200 x 280 mm.
struct PrintScene : Scene {
    std::int32_t Main, Cross;
    RecordingSurface Page{1, 1};
    PrintSettings Print;
    PrintScene() {
        Main = Add(0, 0, 490, 100, 0, 490);
        Cross = Add(100, 0, 490, 100, 50, 490);
        Row(Main).Quantity = 12.5f;
        Row(Main).BranchName = "Main drive";
        Row(Cross).Quantity = 3;
        Ds.View.DataType = 12;
        ChooseLevelRow(M, Ds, 2);
        SetViewBox(Ds, 400, 300, 50, 0);
        Ds.GridOn = false;
        Page.SetPage(200, 280, kDpi);
        Print.PrintInColour = 1;
        Print.PrintTitle = "Ventilation plan";
    }
    bool Run(float figure = 0) {
        BuildDrawnList(M, Ds);
        Ds.ScaleFigure = figure;
        return PrintNetwork(M, Ds, Page, Print, Ui);
    }
    // Millimetres on the paper of a page coordinate.
    double MmX(double x) const { return Page.PixelX(x) / kDpi * 25.4; }
    double MmY(double y) const { return Page.PixelY(y) / kDpi * 25.4; }
    std::vector<RecordedOp> AirwayLines() const {
        std::vector<RecordedOp> out;
        for (const RecordedOp& op : Page.Of(OpKind::Line)) {
            if (op.Width >= 3) out.push_back(op);
        }
        return out;
    }
};

TEST(PrintNetwork, PaperScaleFrameAndFigureReset) {
    for (const double times : {1.0, 2.0, 5.0}) {
        PrintScene s;
        const float own = PageScaleFigure(s.Ds.View, 200);
        ASSERT_GT(own, 0);
        const float figure = static_cast<float>(own * times);
        ASSERT_TRUE(s.Run(figure));
        EXPECT_EQ(s.Ds.ScaleFigure, 0) << "the figure waits for the next title update";
        ASSERT_EQ(s.Page.Ops.back().Kind, OpKind::EndDocument);
        // The 100 m drive measures 100 m / figure on paper: 1 mm is figure / 1000 metres, within
        // the half percent of the printable width's margin and the whole figure.
        const auto lines = s.AirwayLines();
        ASSERT_FALSE(lines.empty());
        const double mm = s.MmX(lines[0].X2) - s.MmX(lines[0].X1);
        EXPECT_NEAR(mm, 100.0 * 1000 / figure, 100.0 * 1000 / figure * 0.01) << times;
        // The frame stands W/20 from the page's left and top edges; at the offered figure it
        // runs W/20 short of the right edge too, and twice the figure halves it.
        const auto frame = s.Page.Of(OpKind::Rectangle);
        ASSERT_EQ(frame.size(), 1U);
        EXPECT_EQ(frame[0].Width, 5);
        const double margin = 200.0 / 22 / times; // W/20 of a page 1.1 W wide
        EXPECT_NEAR(s.MmX(frame[0].X1), margin, 0.05);
        EXPECT_NEAR(s.MmY(frame[0].Y1), margin, 0.05);
        EXPECT_NEAR(s.MmX(frame[0].X2) - s.MmX(frame[0].X1), 200.0 / 1.1 / times, 0.05);
        if (times == 1.0) {
            EXPECT_NEAR(200 - s.MmX(frame[0].X2), margin, 0.05);
        }
    }
}

TEST(PrintNetwork, ClipsExactlyAtTheFrame) {
    struct Case {
        double X1, Y1, X2, Y2;
        ClippedLine Want;
    };
    // Frame from (-10, -10) to (10, 10).
    const Case cases[] = {
        {0, 0, 5, 5, {0, 0, 5, 5, true, true}},
        {0, 0, 20, 10, {0, 0, 10, 5, true, false}},
        {-20, -5, 0, 5, {-10, 0, 0, 5, false, true}},
        {0, -30, 0, 0, {0, -10, 0, 0, false, true}},    // vertical: only y moves
        {-30, 3, 30, 3, {-10, 3, 10, 3, false, false}}, // horizontal across
        {0, 0, 10, 0, {0, 0, 10, 0, true, false}},      // an end exactly on the frame is out
        {0, 0, 40, 20, {0, 0, 10, 5, true, false}},     // right side first, then nothing more
        {0, 0, 8, 40, {0, 0, 2, 10, true, false}},      // right side untouched, bottom cuts
        {-20, -20, 20, 20, {-10, -10, 10, 10, false, false}},
    };
    for (const Case& c : cases) {
        const ClippedLine got = ClipToFrame(c.X1, c.Y1, c.X2, c.Y2, -10, -10, 10, 10);
        EXPECT_DOUBLE_EQ(got.X1, c.Want.X1) << c.X1 << "," << c.Y1 << " " << c.X2 << "," << c.Y2;
        EXPECT_DOUBLE_EQ(got.Y1, c.Want.Y1);
        EXPECT_DOUBLE_EQ(got.X2, c.Want.X2);
        EXPECT_DOUBLE_EQ(got.Y2, c.Want.Y2);
        EXPECT_EQ(got.In1, c.Want.In1);
        EXPECT_EQ(got.In2, c.Want.In2);
    }
}

// Each print, added to the record under its title.
TEST(PrintNetwork, PagesPrintAsRecorded) {
    std::string record;
    const auto print = [&record](PrintScene& s, const char* title, float figure = 0) {
        ASSERT_TRUE(s.Run(figure));
        record += std::string("== ") + title + "\n" + testing::DrawingText(s.Page);
    };
    {
        PrintScene s;
        const std::int32_t out = s.Add(100, 20, 490, 400, 20, 490);
        s.Row(out).Quantity = 77;
        s.Row(out).BranchName = "Outbye";
        s.Refresh();
        print(s, "a drive through the right side of the frame is cut and carries no value; the value inside "
                 "on its own background");
    }
    {
        PrintScene s;
        print(s, "the title line holds the scale, the level and the value, in the margin over the frame", 2500);
        s.M.GasActive = GasDisplay::Spread;
        s.M.Smoke.ContaminantThreshold = {100, 80, 60, 40, 20, 1};
        s.Row(s.Main).Gas2 = 50;
        print(s, "in colour the spread draws its bands");
        s.Print.PrintInColour = 0;
        s.Ds.GridOn = true;
        s.Ds.View.DisplayOptions = static_cast<std::int16_t>(s.Ds.View.DisplayOptions & ~opt::ShowArrows);
        s.Row(s.Main).Gas2 = 100;
        s.Row(s.Cross).Gas2 = 0;
        print(s, "monochrome: black lines, band widths, grey dotted, the legend and grid in colour");
    }
    {
        PrintScene s;
        s.M.GasActive = GasDisplay::Sourcing;
        const std::int32_t edge = s.Add(230, -60, 490, 248, -60, 490);
        s.Row(edge).BranchName = "Edge";
        s.Refresh();
        print(s, "the sourcing legend; a name near the right side of the frame is left out, not cut");
    }
    karvane::testing::ExpectGolden("print_pages.txt", record);
}

TEST(PrintNetwork, FaultsGivePrintingError) {
    PrintScene s;
    RecordingSurface window(800, 600); // no paper
    BuildDrawnList(s.M, s.Ds);
    s.Ds.ScaleFigure = 1000;
    EXPECT_FALSE(PrintNetwork(s.M, s.Ds, window, s.Print, s.Ui));
    ASSERT_FALSE(s.Ui.Transcript.empty());
    EXPECT_EQ(s.Ui.Transcript.back().Text, "Printing Error");
    EXPECT_EQ(s.Ds.ScaleFigure, 0);
    // No current window: nothing at all.
    s.Ds.WindowCurrent = false;
    EXPECT_FALSE(PrintNetwork(s.M, s.Ds, s.Page, s.Print, s.Ui));
    EXPECT_TRUE(s.Page.Ops.empty());
}

TEST(PrintNetwork, SvgPageHasPaperSize) {
    PrintScene s;
    SvgSurface svg(1, 1);
    svg.SetPage(200, 280, kDpi);
    BuildDrawnList(s.M, s.Ds);
    ASSERT_TRUE(PrintNetwork(s.M, s.Ds, svg, s.Print, s.Ui));
    const std::string doc = svg.Document();
    EXPECT_NE(doc.find("width=\"200mm\" height=\"280mm\""), std::string::npos);
    EXPECT_NE(doc.find("Main drive"), std::string::npos);
}

} // namespace
} // namespace karvane::display
