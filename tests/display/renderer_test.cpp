// Recorded drawings of small networks in plan, 3D and section views: lines and their colours,
// arrows, symbols, texts at their places, the grid, and what zoom does to text.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "bench/mine_generator.h"
#include "display/drawn_list.h"
#include "display/level_selector.h"
#include "display/palette.h"
#include "display/recording_surface.h"
#include "display/renderer.h"
#include "display_support.h"

namespace karvane::display {
namespace {

using testing::Scene;

// A drive, a crosscut and a raise up from the drive's start, on the "U/Ground" level.
struct Drive : Scene {
    std::int32_t Main, Cross, Raise;
    RecordingSurface Surface{800, 600};
    Drive() {
        Main = Add(0, 0, 490, 100, 0, 490);
        Cross = Add(100, 0, 490, 100, 50, 490);
        Raise = Add(0, 0, 490, 0, 0, 700);
        Row(Main).Quantity = 12.5f;
        Row(Main).BranchName = "Main drive";
        Row(Main).ExitNode = "N2";
        Row(Cross).Quantity = 3;
        Ds.View.DataType = 12;
        ChooseLevelRow(M, Ds, 2);
        SetViewBox(Ds, 200, 150, 50, 0);
        Ds.GridOn = false;
    }
    void Redraw() { RedrawWindow(M, Ds, Surface, Ui); }
    std::vector<RecordedOp> Lines(Colour c) const {
        std::vector<RecordedOp> out;
        for (const RecordedOp& op : Surface.Of(OpKind::Line)) {
            if (op.OpColour == c) out.push_back(op);
        }
        return out;
    }
};

bool Near(float a, float b) { return std::fabs(a - b) < 1e-3f; }

TEST(Renderer, PlanViewLinesColoursArrowsAndTexts) {
    Drive s;
    s.Redraw();
    const auto& colours = s.M.Set.Colours;
    // The airway lines come first, in the order of the drawn list, after the clear.
    ASSERT_EQ(s.Surface.Ops.front().Kind, OpKind::Clear);
    EXPECT_EQ(s.Surface.Ops.front().OpColour, colours[3]);
    const auto& main = s.Surface.Ops[1];
    EXPECT_EQ(main.Kind, OpKind::Line);
    EXPECT_EQ(main.OpColour, colours[0]);
    EXPECT_TRUE(Near(main.X1, -50) && Near(main.Y1, 0) && Near(main.X2, 50) && Near(main.Y2, 0));
    // The raise above the level is a 15-unit stub to the upper right, in the colour of above.
    const auto& raise = s.Surface.Ops[3];
    EXPECT_EQ(raise.OpColour, colours[2]);
    EXPECT_TRUE(Near(raise.X1, -50) && Near(raise.Y1, 0) && Near(raise.X2, -35) && Near(raise.Y2, -15));

    // The arrow of the main drive: an open V at 0.8 of the way, pointing along the airway.
    const float a = std::sqrt(200.0f) * 2 / 20;
    const auto lines = s.Lines(colours[0]);
    const auto barb = std::find_if(lines.begin(), lines.end(), [](const RecordedOp& op) { return Near(op.X2, 30); });
    ASSERT_NE(barb, lines.end());
    EXPECT_TRUE(Near(barb->X1, 30 - a * std::cos(0.3f)));
    EXPECT_TRUE(Near(barb->Y1, -a * std::sin(0.3f)));
    const auto tail = s.Surface.Of(OpKind::LineTo);
    ASSERT_FALSE(tail.empty());
    EXPECT_TRUE(Near(tail[0].X2, 30 - a * std::cos(0.3f)) && Near(tail[0].Y2, a * std::sin(0.3f)));

    // Value at the midpoint, the name one line up, the node name at the To end.
    const RecordedOp* value = s.Surface.FindText("12.5");
    ASSERT_NE(value, nullptr);
    EXPECT_TRUE(Near(value->X1, 0) && Near(value->Y1, 0));
    EXPECT_EQ(value->OpColour, colours[5]);
    EXPECT_EQ(value->FontSize, 5); // 6 points x sqrt(1/200) x 100 / 8
    const float hh = s.Surface.TextHeight("F");
    const RecordedOp* name = s.Surface.FindText("Main drive");
    ASSERT_NE(name, nullptr);
    EXPECT_TRUE(Near(name->Y1, -hh));
    EXPECT_EQ(name->OpColour, colours[0]);
    const RecordedOp* node = s.Surface.FindText("N2");
    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(Near(node->Y1, -hh));
    EXPECT_EQ(node->OpColour, colours[4]);
    EXPECT_NE(s.Surface.FindText("3.0"), nullptr);
    // The raise's value lies at its midpoint like any other.
    EXPECT_NE(s.Surface.FindText("0.0"), nullptr);
}

TEST(Renderer, ErrorMarksSelectionsAndDimming) {
    Drive s;
    s.Row(s.Cross).BranchCode |= bc::ErrorMark;
    s.Row(s.Cross).Comment = "Dead end    ";
    s.Row(s.Main).BranchCode |= bc::Selected | bc::ErrorMark;
    s.Redraw();
    const Colour white = FixedColour(WhiteIndex);
    const auto& ops = s.Surface.Ops;
    EXPECT_EQ(ops[1].OpColour, white);
    EXPECT_EQ(ops[1].Width, 2); // selected: twice the line width, over the error mark
    EXPECT_EQ(ops[2].OpColour, white);
    EXPECT_EQ(ops[2].Width, 1);
    const RecordedOp* error = s.Surface.FindText("Dead end");
    ASSERT_NE(error, nullptr);
    EXPECT_TRUE(Near(error->X1, 50) && Near(error->Y1, 25));
    // The value goes one line up.
    const RecordedOp* value = s.Surface.FindText("3.0");
    ASSERT_NE(value, nullptr);
    EXPECT_TRUE(Near(value->Y1, 25 - s.Surface.TextHeight("F")));

    // Off its layers with "Dim": dark grey, no annotation of its own.
    s.M.PrimaryLayers[1].LayerOn = 0;
    s.Ds.View.DimOptions = dim::Dim;
    s.Row(s.Main).BranchCode &= ~(bc::Selected | bc::ErrorMark);
    s.Row(s.Cross).BranchCode &= ~bc::ErrorMark;
    s.Refresh();
    s.Redraw();
    EXPECT_EQ(s.Surface.Ops[1].OpColour, FixedColour(DarkGreyIndex));
    EXPECT_EQ(s.Surface.FindText("Main drive"), nullptr);
    // ... unless the dim options keep names.
    s.Ds.View.DimOptions = dim::Dim | dim::Branch;
    s.Redraw();
    EXPECT_NE(s.Surface.FindText("Main drive"), nullptr);
    // Outside the flow limits with "Dim": dark grey and no annotations at all.
    s.M.PrimaryLayers[1].LayerOn = -1;
    s.Ds.View.DimOptions = dim::Invisible;
    s.M.Set.FlowMin = 5;
    s.Ds.FlowLimitMode = flow::Dim;
    s.Refresh();
    s.Redraw();
    EXPECT_EQ(s.Surface.Ops[2].OpColour, FixedColour(DarkGreyIndex));
    EXPECT_EQ(s.Surface.FindText("3.0"), nullptr);
    EXPECT_NE(s.Surface.FindText("12.5"), nullptr);
}

TEST(Renderer, ThreeDAndSectionViews) {
    Drive s;
    s.Ds.View.Is3D = 1;
    s.Ds.View.RotCentre = {50, 0, 490};
    s.Ds.View.RotCentreSet = 1;
    SelectAllLevels(s.M, s.Ds);
    s.Redraw();
    // In 3D a raise is coloured by its direction and no stub is made; identical ends, no arrow.
    const auto& raise = s.Surface.Ops[3];
    EXPECT_EQ(raise.OpColour, s.M.Set.Colours[1]);
    EXPECT_TRUE(Near(raise.X1, raise.X2) && Near(raise.Y1, raise.Y2));
    for (const RecordedOp& op : s.Surface.Of(OpKind::LineTo)) EXPECT_NE(op.OpColour, s.M.Set.Colours[1]);
    // A rotated view has no grid.
    s.Ds.GridOn = true;
    s.Ds.View.Tilt = 0.5f;
    s.Refresh();
    s.Redraw();
    EXPECT_EQ(s.Surface.FindText("500"), nullptr);
    EXPECT_EQ(s.Lines(s.M.Set.Colours[6]).size(), 0u);

    // A long section: level lines with their RL at the left, every 50 metres.
    s.Ds.View.Tilt = static_cast<float>(Pi / 2);
    s.Refresh();
    SetViewBox(s.Ds, 400, 300, s.Ds.View.CentreX, s.Ds.View.CentreY);
    s.Redraw();
    const auto grid = s.Lines(s.M.Set.Colours[6]);
    ASSERT_GE(grid.size(), 5u);
    for (const RecordedOp& line : grid) EXPECT_EQ(line.Y1, line.Y2);
    const RecordedOp* rl = s.Surface.FindText("500");
    ASSERT_NE(rl, nullptr);
    // RL 500 stands 10 metres above the centre (at RL 490), so 10 up the window.
    const float h = static_cast<float>(10 * PixelsPerPoint * LineHeightEm * 300 / 600); // 10 points
    EXPECT_TRUE(Near(rl->Y1 + h, -10));
    EXPECT_TRUE(Near(rl->X1, -199));
    // The raise stands upright in the section.
    const auto lines = s.Lines(s.M.Set.Colours[1]);
    ASSERT_FALSE(lines.empty());
    EXPECT_TRUE(Near(lines[0].X1, -50) && Near(lines[0].X2, -50));
    EXPECT_TRUE(Near(lines[0].Y1 - lines[0].Y2, 210));
}

TEST(Renderer, PlanGridLinesAndThinnedLabels) {
    Drive s;
    s.Ds.GridOn = true;
    s.Redraw();
    const auto grid = s.Lines(s.M.Set.Colours[6]);
    // Vertical lines on whole 50 metres of X from -100 to 150, horizontal ones on Y.
    std::vector<float> xs;
    for (const RecordedOp& op : grid) {
        if (op.X1 == op.X2) xs.push_back(op.X1);
    }
    EXPECT_EQ(xs, (std::vector<float>{-150, -100, -50, 0, 50, 100}));
    const RecordedOp* label = s.Surface.FindText("100");
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(Near(label->X1, 50) && Near(label->Y1, -75));
    EXPECT_EQ(label->OpColour, s.M.Set.Colours[7]);
    EXPECT_EQ(label->FontSize, 10);
    // While panning the labels are left out.
    s.Ds.Panning = true;
    RedrawLinesOnly(s.M, s.Ds, s.Surface, s.Ui);
    EXPECT_TRUE(s.Surface.Texts().empty());
    EXPECT_FALSE(s.Lines(s.M.Set.Colours[6]).empty());
    // A grid spacing of nothing is a fault of the grid alone.
    s.Ds.Panning = false;
    s.M.Set.GridSpacing = 0;
    s.Redraw();
    EXPECT_EQ(s.Ui.Texts("Message"), std::vector<std::string>{"MAJOR Error Drawing Graphics Grid !"});
    EXPECT_NE(s.Surface.FindText("12.5"), nullptr);
}

TEST(Renderer, TextSizeFollowsZoomUnlessFontsAreFixed) {
    Drive s;
    SetViewBox(s.Ds, 40000, 30000, 50, 0);
    s.Redraw();
    EXPECT_TRUE(s.Surface.Texts().empty()); // far out: no text at all
    EXPECT_EQ(s.Surface.Of(OpKind::Line).size() - s.Surface.Of(OpKind::LineTo).size(), 3u);
    s.M.Set.ScaleFonts = 0;
    s.Redraw();
    ASSERT_NE(s.Surface.FindText("12.5"), nullptr);
    EXPECT_EQ(s.Surface.FindText("12.5")->FontSize, 6);
    SetViewBox(s.Ds, 20, 15, 50, 0);
    s.Redraw();
    EXPECT_EQ(s.Surface.FindText("12.5")->FontSize, 6);

    const AnnotationSizes at200 = ComputeAnnotationSizes(s.M, 200);
    EXPECT_FLOAT_EQ(at200.Arrow, std::sqrt(200.0f) / 10);
    EXPECT_NEAR(at200.Symbol[4], std::pow(0.5, 0.04), 1e-6);
    EXPECT_NEAR(at200.Symbol[2], std::pow(0.5, 0.04) * 2.5, 1e-6);
    s.M.Set.IconScaled[4] = 0;
    EXPECT_NEAR(ComputeAnnotationSizes(s.M, 200).Symbol[4], 5, 1e-6);
    s.M.Set.IconScaled[4] = 1;
    EXPECT_NEAR(ComputeAnnotationSizes(s.M, 5000).Symbol[4], 10, 1e-6); // never below w / 500
}

TEST(Renderer, SymbolsOnTheAirway) {
    Drive s;
    Airway& main = s.Row(s.Main);
    main.FanNumber = 1;
    main.BranchCode |= bc::FixedFlow | bc::ContaminantSource;
    main.Pressure = -20;
    main.Gas1 = 2;
    main.IconLoc = 0.2f;
    s.Row(s.Cross).ResType = 1;
    s.Redraw();
    auto count = [&](int symbol) {
        const auto all = s.Surface.Of(OpKind::Bitmap);
        return std::count_if(all.begin(), all.end(), [symbol](const RecordedOp& op) { return op.Symbol == symbol; });
    };
    const auto bitmaps = s.Surface.Of(OpKind::Bitmap);
    const auto fan =
        std::find_if(bitmaps.begin(), bitmaps.end(), [](const RecordedOp& op) { return op.Symbol == sym::Fan; });
    ASSERT_NE(fan, bitmaps.end());
    // Half of the way along (IconLoc + 0.3), centred.
    EXPECT_TRUE(Near(fan->X1 + fan->X2 / 2, 0) && Near(fan->Y1 + fan->Y2 / 2, 0));
    EXPECT_EQ(count(sym::FixedLoss), 1);
    EXPECT_EQ(count(sym::Smoke), 1);
    EXPECT_EQ(count(sym::PinClear), 1);
    EXPECT_EQ(count(sym::BulkheadAirway), 1);
    // Node symbols: From ends, and To ends that no airway leaves; the raise gets both.
    EXPECT_EQ(count(sym::Node), 3 + 1 + 1);
    // The fan number stands in front of the value.
    EXPECT_NE(s.Surface.FindText("FixQ Fan1:12.5"), nullptr);
    // Only one airway drawn when a tool asks for it.
    s.Ds.OnlyAirway = s.Cross;
    s.Redraw();
    EXPECT_EQ(count(sym::Fan), 0);
    EXPECT_EQ(count(sym::BulkheadAirway), 1);
}

TEST(Renderer, DataFilterAndNodeData) {
    Drive s;
    SelectAllLevels(s.M, s.Ds);
    s.Row(s.Cross).BranchCode |= bc::DataHidden;
    s.Redraw();
    EXPECT_EQ(s.Surface.FindText("3.0"), nullptr); // "Selected Data only" hides marked airways
    s.M.Set.DataFilter = 1;                        // vertical data only
    s.Redraw();
    EXPECT_EQ(s.Surface.FindText("12.5"), nullptr);
    EXPECT_NE(s.Surface.FindText("0.0"), nullptr);
    s.M.Set.DataFilter = 2; // horizontal data only
    s.Redraw();
    EXPECT_NE(s.Surface.FindText("12.5"), nullptr);
    EXPECT_EQ(s.Surface.FindText("0.0"), nullptr);

    // Node data stands at the ends, nothing but names at the middle.
    s.M.Set.DataFilter = 0;
    s.Ds.View.DataType = 37;
    s.Redraw();
    const RecordedOp* to = s.Surface.FindText("100,0,490");
    ASSERT_NE(to, nullptr);
    EXPECT_TRUE(Near(to->X1, 50 + s.Surface.TextWidth("F") / 2) && Near(to->Y1, 0));
    EXPECT_NE(s.Surface.FindText("0,0,700"), nullptr);
    EXPECT_NE(s.Surface.FindText("0,0,490"), nullptr); // the raise's From end too
    EXPECT_NE(s.Surface.FindText("Main drive"), nullptr);
    EXPECT_EQ(s.Surface.FindText("12.5"), nullptr);
}

TEST(Renderer, FloatingTextAndFreshExhaustColours) {
    Drive s;
    s.M.FloatingTexts[1] = {true, "Pump", 60, 10, 490};
    s.Row(s.Main).BranchCode |= bc::FreshAir;
    s.Row(s.Cross).BranchCode |= bc::ExhaustAir;
    s.Ds.View.FreshExhaust = 1;
    s.Refresh();
    s.Redraw();
    EXPECT_EQ(s.Surface.Ops[1].OpColour, s.M.Set.Colours[2]);
    EXPECT_EQ(s.Surface.Ops[2].OpColour, s.M.Set.Colours[1]);
    EXPECT_EQ(s.Surface.Ops[3].OpColour, s.M.Set.Colours[0]);
    const RecordedOp* pump = s.Surface.FindText("Pump");
    ASSERT_NE(pump, nullptr);
    EXPECT_TRUE(Near(pump->X1, 10) && Near(pump->Y1, 10));
    EXPECT_EQ(pump->OpColour, s.M.Set.Colours[4]);
    const auto circles = s.Surface.Of(OpKind::Circle);
    ASSERT_EQ(circles.size(), 1u);
    EXPECT_TRUE(Near(circles[0].X2, 0.2f));
}

TEST(Renderer, ContaminantResultsColourTheAirwaysAndTheirText) {
    Drive s;
    s.M.GasActive = 2; // a sourcing result: each airway's state is its colour
    s.Row(s.Main).Gas2 = 4;
    s.Row(s.Cross).Gas2 = 7;
    s.Row(s.Raise).BranchCode |= bc::ErrorMark;
    s.Redraw();
    EXPECT_EQ(s.Surface.Ops[1].OpColour, PaletteColour(12));
    EXPECT_EQ(s.Surface.Ops[2].OpColour, PaletteColour(11));
    EXPECT_EQ(s.Surface.Ops[3].OpColour, FixedColour(WhiteIndex)); // the error mark goes over it
    EXPECT_EQ(s.Surface.FindText("12.5")->OpColour, PaletteColour(12));
    EXPECT_EQ(s.Surface.FindText("N2")->OpColour, PaletteColour(12));
    s.M.GasActive = 0;
    s.Redraw();
    EXPECT_EQ(s.Surface.Ops[1].OpColour, s.M.Set.Colours[0]);
}

class TwoLineStation : public StationLabels {
public:
    bool Active() const override { return On; }
    std::vector<StationLabelLine> LabelLines(Model&, std::int32_t row) override {
        Asked.push_back(row);
        return {{"   Fan house", Rgb(255, 255, 255)}, {"Q  12.0m3/s", Rgb(255, 0, 0)}};
    }
    bool On = false;
    std::vector<std::int32_t> Asked;
};

TEST(Renderer, StationLabelsOverTheirAirways) {
    Drive s;
    TwoLineStation station;
    s.Ds.Stations = &station;
    s.Row(s.Cross).RemoteStation = 4;
    s.Redraw();
    EXPECT_EQ(s.Surface.FindText("   Fan house"), nullptr); // real-time input off
    station.On = true;
    s.Redraw();
    EXPECT_EQ(station.Asked, std::vector<std::int32_t>{s.Cross});
    const RecordedOp* name = s.Surface.FindText("   Fan house");
    const RecordedOp* flow = s.Surface.FindText("Q  12.0m3/s");
    ASSERT_NE(name, nullptr);
    ASSERT_NE(flow, nullptr);
    const float hh = s.Surface.TextHeight("F");
    EXPECT_TRUE(Near(name->X1, 50) && Near(flow->X1, 50));
    EXPECT_TRUE(Near(name->Y1, 25 - hh) && Near(flow->Y1, 25));
    EXPECT_EQ(flow->OpColour, Rgb(255, 0, 0));
}

// The node symbol at an airway's To end, decided by the literal scan of the whole table.
std::size_t NodeSymbolsByScan(const Model& m, const DisplayState& ds) {
    std::size_t n = 0;
    const ViewState& v = ds.View;
    const float left = v.ScaleLeft, right = v.ScaleLeft + v.ScaleWidth, top = v.ScaleTop,
                bottom = v.ScaleTop + v.ScaleHeight;
    for (const DrawnAirway& d : ds.Drawn) {
        if (!(d.X1 > left && d.X1 < right && d.Y1 > top && d.Y1 < bottom)) continue;
        const Airway& a = m.Airways[static_cast<std::size_t>(d.Airway)];
        ++n;
        bool leaves = false;
        for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
            if (m.Airways[static_cast<std::size_t>(r)].EntryKey == a.ExitKey) leaves = true;
        }
        const bool raise = IsSteep(a) || a.Has(bc::EntryAtSurface) || a.Has(bc::ExitAtSurface);
        if (!leaves || raise) ++n;
    }
    return n;
}

TEST(Renderer, NodeSymbolsAgreeWithTheScanOfTheTable) {
    for (std::uint64_t seed : {1u, 2u, 3u}) {
        Scene s;
        minegen::MineRequest request;
        request.Airways = 1500;
        request.Seed = seed;
        minegen::GenerateMine(s.M, request);
        BuildNodeKeys(s.M, s.Ui);
        BuildDisplayList(s.M, s.Ds);
        ASSERT_TRUE(FitView(s.M, s.Ds, s.Ui));
        s.Ds.View.DisplayOptions = opt::ShowNodeSymbols;
        RecordingSurface surface(800, 600);
        RedrawWindow(s.M, s.Ds, surface, s.Ui);
        const auto bitmaps = surface.Of(OpKind::Bitmap);
        const auto nodes =
            std::count_if(bitmaps.begin(), bitmaps.end(), [](const RecordedOp& op) { return op.Symbol == sym::Node; });
        EXPECT_EQ(static_cast<std::size_t>(nodes), NodeSymbolsByScan(s.M, s.Ds)) << "seed " << seed;
        EXPECT_GT(nodes, 1000);
    }
}

} // namespace
} // namespace karvane::display
