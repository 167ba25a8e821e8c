// Recorded drawings of small networks in plan, 3D and section views against golden files:
// lines and their colours, arrows, symbols, texts at their places, the grid, what zoom does to
// text; the annotation sizes by their formulas, and the node symbols against a scan of the table.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "display/drawn_list.h"
#include "display/level_selector.h"
#include "display/palette.h"
#include "display/recording_surface.h"
#include "display/renderer.h"
#include "display_support.h"
#include "generate/mine_generator.h"
#include "support/golden.h"

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
};

class TwoLineStation : public StationLabels {
public:
    bool Active() const override { return On; }
    std::vector<StationLabelLine> LabelLines(const Model&, std::int32_t) override {
        return {{"   Fan house", Rgb(255, 255, 255)}, {"Q  12.0m3/s", Rgb(255, 0, 0)}};
    }
    bool On = false;
};

// Each view of the scenes, redrawn and added to the record under its title.
TEST(Renderer, ViewsDrawAsRecorded) {
    std::string record;
    const auto shot = [&record](Drive& s, const char* title) {
        s.Redraw();
        EXPECT_TRUE(s.Ui.Transcript.empty()) << title;
        record += std::string("== ") + title + "\n" + testing::DrawingText(s.Surface);
    };
    {
        Drive s;
        shot(s, "plan: lines in drawn-list order, the raise a stub to the upper right, arrows at 0.8 of the way, "
                "value at the midpoint, name one line up, node name at the To end");
        s.Row(s.Cross).BranchCode |= bc::ErrorMark;
        s.Row(s.Cross).Comment = "Dead end    ";
        s.Row(s.Main).BranchCode |= bc::Selected | bc::ErrorMark;
        shot(s, "error marks under a selection, the value one line up");
        s.M.PrimaryLayers[1].LayerOn = 0;
        s.Ds.View.DimOptions = dim::Dim;
        s.Row(s.Main).BranchCode &= ~(bc::Selected | bc::ErrorMark);
        s.Row(s.Cross).BranchCode &= ~bc::ErrorMark;
        s.Refresh();
        shot(s, "off its layers, dimmed: dark grey without annotation");
        s.Ds.View.DimOptions = dim::Dim | dim::Branch;
        shot(s, "dimmed but keeping names");
        s.M.PrimaryLayers[1].LayerOn = -1;
        s.Ds.View.DimOptions = dim::Invisible;
        s.M.Set.FlowMin = 5;
        s.Ds.FlowLimitMode = flow::Dim;
        s.Refresh();
        shot(s, "outside the flow limits, dimmed: no annotation");
    }
    {
        Drive s;
        s.Ds.View.Is3D = 1;
        s.Ds.View.RotCentre = {50, 0, 490};
        s.Ds.View.RotCentreSet = 1;
        SelectAllLevels(s.M, s.Ds);
        shot(s, "3D: the raise coloured by its direction, no stub, no arrow");
        s.Ds.GridOn = true;
        s.Ds.View.Tilt = 0.5f;
        s.Refresh();
        shot(s, "3D rotated: no grid");
        s.Ds.View.Tilt = static_cast<float>(Pi / 2);
        s.Refresh();
        SetViewBox(s.Ds, 400, 300, s.Ds.View.CentreX, s.Ds.View.CentreY);
        shot(s, "long section: level lines with their RL at the left every 50 metres, the raise upright");
    }
    {
        Drive s;
        s.Ds.GridOn = true;
        shot(s, "plan grid on whole 50 metres with labels");
    }
    {
        Drive s;
        SetViewBox(s.Ds, 40000, 30000, 50, 0);
        shot(s, "far out: no text at all");
        s.M.Set.ScaleFonts = 0;
        shot(s, "far out with fixed fonts");
        SetViewBox(s.Ds, 20, 15, 50, 0);
        shot(s, "close in with fixed fonts");
    }
    {
        Drive s;
        Airway& main = s.Row(s.Main);
        main.FanNumber = 1;
        main.BranchCode |= bc::FixedFlow | bc::ContaminantSource;
        main.Pressure = -20;
        main.Gas1 = 2;
        main.IconLoc = 0.2f;
        s.Row(s.Cross).ResType = 1;
        shot(s, "symbols half way along (IconLoc + 0.3), node symbols, the fan number before the value");
        s.Ds.OnlyAirway = s.Cross;
        shot(s, "only one airway drawn");
    }
    {
        Drive s;
        SelectAllLevels(s.M, s.Ds);
        s.Row(s.Cross).BranchCode |= bc::DataHidden;
        shot(s, "selected data only hides marked airways");
        s.M.Set.DataFilter = 1;
        shot(s, "vertical data only");
        s.M.Set.DataFilter = 2;
        shot(s, "horizontal data only");
        s.M.Set.DataFilter = 0;
        s.Ds.View.DataType = 37;
        shot(s, "node data at the ends, names at the middle");
    }
    {
        Drive s;
        s.M.FloatingTexts[1] = {true, "Pump", 60, 10, 490};
        s.Row(s.Main).BranchCode |= bc::FreshAir;
        s.Row(s.Cross).BranchCode |= bc::ExhaustAir;
        s.Ds.View.FreshExhaust = 1;
        s.Refresh();
        shot(s, "floating text and fresh and exhaust colours");
    }
    {
        Drive s;
        s.M.GasActive = GasDisplay::Sourcing;
        s.Row(s.Main).Gas2 = 4;
        s.Row(s.Cross).Gas2 = 7;
        s.Row(s.Raise).BranchCode |= bc::ErrorMark;
        shot(s, "sourcing states colour the airways and their text, under the error mark");
    }
    {
        Drive s;
        TwoLineStation station;
        s.Ds.Stations = &station;
        s.Row(s.Cross).RemoteStation = 4;
        shot(s, "station labels while real-time input is off");
        station.On = true;
        shot(s, "station labels over their airway");
    }
    karvane::testing::ExpectGolden("renderer_views.txt", record);
}

TEST(Renderer, PanningLeavesTheLabelsOutAndABadGridSpacingIsAFaultOfTheGridAlone) {
    Drive s;
    s.Ds.GridOn = true;
    s.Ds.Panning = true;
    RedrawLinesOnly(s.M, s.Ds, s.Surface, s.Ui);
    EXPECT_TRUE(s.Surface.Texts().empty());
    EXPECT_EQ(s.Surface.FindText("12.5"), nullptr);
    EXPECT_GT(s.Surface.Of(OpKind::Line).size(), 10u);
    s.Ds.Panning = false;
    s.M.Set.GridSpacing = 0;
    s.Redraw();
    EXPECT_EQ(s.Ui.Texts("Message"), std::vector<std::string>{"MAJOR Error Drawing Graphics Grid !"});
    EXPECT_EQ(s.Surface.Texts().size(), 5u); // the network's own texts, without the grid's
    ASSERT_NE(s.Surface.FindText("12.5"), nullptr);
    EXPECT_EQ(s.Surface.FindText("12.5")->FontSize, 5); // 6 points x sqrt(1/200) x 100 / 8
    EXPECT_GT(s.Surface.TextHeight("F"), s.Surface.TextWidth("F"));
}

TEST(Renderer, AnnotationSizesFollowTheViewWidth) {
    Drive s;
    const AnnotationSizes at200 = ComputeAnnotationSizes(s.M, 200);
    EXPECT_FLOAT_EQ(at200.Arrow, std::sqrt(200.0f) / 10);
    EXPECT_NEAR(at200.Symbol[4], std::pow(0.5, 0.04), 1e-6);
    EXPECT_NEAR(at200.Symbol[2], std::pow(0.5, 0.04) * 2.5, 1e-6);
    s.M.Set.IconScaled[4] = 0;
    EXPECT_NEAR(ComputeAnnotationSizes(s.M, 200).Symbol[4], 5, 1e-6);
    s.M.Set.IconScaled[4] = 1;
    EXPECT_NEAR(ComputeAnnotationSizes(s.M, 5000).Symbol[4], 10, 1e-6); // never below w / 500
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
