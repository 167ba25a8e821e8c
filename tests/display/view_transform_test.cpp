// View geometry: projection and its inverse, sections, rotation limits, fits and the wheel.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "display/drawn_list.h"
#include "display/view_title.h"
#include "display/view_transform.h"
#include "display_support.h"

namespace karvane::display {
namespace {

using testing::Scene;

TEST(ViewTransform, ProjectionAndUnprojectionAreInverseAtALevel) {
    Scene s;
    std::mt19937 rng(7);
    std::uniform_int_distribution<int> coord(-20000, 20000), level(-500, 1500);
    const float tilts[] = {0.0f, 0.3f, 0.7f, 1.0f, 1.3f};
    const float spins[] = {0.0f, 0.391f, 1.2f, 2.5f, 4.0f, 5.9f};
    for (int is3D = 0; is3D <= 1; ++is3D) {
        for (float tilt : tilts) {
            for (float spin : spins) {
                s.Ds.View.Is3D = static_cast<std::int16_t>(is3D);
                s.Ds.View.Tilt = tilt;
                s.Ds.View.Spin = spin;
                s.Ds.View.CentreX = 1234;
                s.Ds.View.CentreY = -567;
                CacheRotation(s.Ds);
                for (int i = 0; i < 50; ++i) {
                    const int x = coord(rng), y = coord(rng), z = level(rng);
                    const ViewPoint p = ProjectPoint(s.Ds, x, y, z);
                    const WorldPoint w = UnprojectPoint(s.M, s.Ds, p.X, p.Y, z);
                    ASSERT_NEAR(w.X, x, 1) << "tilt " << tilt << " spin " << spin;
                    ASSERT_NEAR(w.Y, y, 1) << "tilt " << tilt << " spin " << spin;
                    ASSERT_EQ(w.Z, z);
                }
            }
        }
    }
}

TEST(ViewTransform, ProjectAirwayFollowsTheRotationFormulas) {
    Scene s;
    const auto row = s.Add(100, 200, 300, -50, 0, 10);
    s.Ds.View.Is3D = 1;
    s.Ds.View.Tilt = 0.5f;
    s.Ds.View.Spin = 0.25f;
    CacheRotation(s.Ds);
    ProjectAirway(s.M, s.Ds, row);
    const float c = std::cos(0.25f), sn = std::sin(0.25f), ct = std::cos(0.5f), st = std::sin(0.5f);
    EXPECT_FLOAT_EQ(s.Ds.ViewFrom[1].X, c * 100 - sn * 200);
    EXPECT_FLOAT_EQ(s.Ds.ViewFrom[1].Y, (c * 200 + sn * 100) * ct - st * 300);
    EXPECT_FLOAT_EQ(s.Ds.ViewTo[1].X, c * -50);
    // A plan view copies X and Y and ignores the angles.
    s.Ds.View.Is3D = 0;
    ProjectAirway(s.M, s.Ds, row);
    EXPECT_EQ(s.Ds.ViewFrom[1].X, 100);
    EXPECT_EQ(s.Ds.ViewFrom[1].Y, 200);
    // Row 0 is the rotation centre.
    s.Ds.View.RotCentre = {7, 8, 9};
    ProjectAirway(s.M, s.Ds, 0);
    EXPECT_EQ(s.Ds.ViewFrom[0].X, 7);
    EXPECT_EQ(s.Ds.ViewFrom[0].Y, 8);
}

TEST(ViewTransform, SectionsMoveInTheVerticalPlaneFacingTheViewer) {
    Scene s;
    ViewState& v = s.Ds.View;
    v.Is3D = 1;
    v.Tilt = static_cast<float>(Pi / 2);
    v.Spin = 0;
    EXPECT_EQ(ViewKind(v), 2);
    v.Tilt = -static_cast<float>(3 * Pi / 2);
    EXPECT_EQ(ViewKind(v), 2);
    v.Tilt = 1.0f;
    EXPECT_EQ(ViewKind(v), 1);
    v.Is3D = 0;
    EXPECT_EQ(ViewKind(v), 0);

    // Long section: the cursor's point lies in the plane through the rotation centre.
    v.Is3D = 1;
    v.Tilt = static_cast<float>(Pi / 2);
    v.RotCentre = {1000, 2000, 400};
    CacheRotation(s.Ds);
    ProjectAirway(s.M, s.Ds, 0);
    v.CentreX = s.Ds.ViewFrom[0].X;
    v.CentreY = s.Ds.ViewFrom[0].Y;
    WorldPoint w = UnprojectPoint(s.M, s.Ds, 30, 20, 0);
    EXPECT_EQ(w.X, 1030);
    EXPECT_EQ(w.Y, 2000);
    EXPECT_EQ(w.Z, 380); // down the window is down in the mine
    // With the button held the move starts from the point picked at the press.
    s.Ds.Gesture.ButtonHeld = true;
    s.Ds.Gesture.PressX = 10;
    s.Ds.Gesture.PressY = 10;
    s.Ds.Gesture.PressPoint = {500, 600, 700};
    w = UnprojectPoint(s.M, s.Ds, 30, 0, 0);
    EXPECT_EQ(w.X, 520);
    EXPECT_EQ(w.Y, 600);
    EXPECT_EQ(w.Z, 710);
}

TEST(ViewTransform, ApplyRotationNormalisesTheAngles) {
    Scene s;
    s.Add(0, 0, 490, 100, 0, 490);
    ViewState& v = s.Ds.View;
    v.Is3D = 1;
    v.RotCentreSet = 1;
    // Exactly 90 degrees of spin is moved on by pi/1000.
    v.Spin = static_cast<float>(Pi / 2);
    v.Tilt = 0.5f;
    s.Refresh();
    EXPECT_FLOAT_EQ(v.Spin, static_cast<float>(Pi / 2) + static_cast<float>(Pi / 1000));
    // Without full rotation the tilt stays within 0 to 90 degrees, or -90 to 0 with SgnY -1.
    v.Tilt = 2.5f;
    s.Refresh();
    EXPECT_FLOAT_EQ(v.Tilt, static_cast<float>(Pi / 2));
    s.M.SgnY = -1;
    v.Tilt = 0.4f;
    s.Refresh();
    EXPECT_EQ(v.Tilt, 0.0f);
    v.Tilt = -2.0f;
    s.Refresh();
    EXPECT_FLOAT_EQ(v.Tilt, -static_cast<float>(Pi / 2));
    // With full rotation the angles only wrap.
    s.M.SgnY = 1;
    s.M.Set.FullRotation = 1;
    v.Tilt = 7.0f;
    v.Spin = -1.0f;
    s.Refresh();
    EXPECT_FLOAT_EQ(v.Tilt, 7.0f - static_cast<float>(2 * Pi));
    EXPECT_FLOAT_EQ(v.Spin, -1.0f + static_cast<float>(2 * Pi));
    // Pending steps of the rotation button are applied with the axis signs.
    v.Tilt = 0.5f;
    v.Spin = 1.0f;
    s.Ds.TiltStep = 0.25f;
    s.Ds.SpinStep = 0.5f;
    s.M.SgnX = -1;
    s.Refresh();
    EXPECT_FLOAT_EQ(v.Tilt, 0.75f);
    EXPECT_FLOAT_EQ(v.Spin, 0.5f);
    EXPECT_EQ(s.Ds.Labels.LabelX, "RotX 42");
    EXPECT_EQ(s.Ds.Labels.LabelY, "RotY 28");
    // The rotation centre stays in the window's middle.
    ProjectAirway(s.M, s.Ds, 0);
    EXPECT_EQ(v.CentreX, s.Ds.ViewFrom[0].X);
    EXPECT_EQ(v.CentreY, s.Ds.ViewFrom[0].Y);
}

TEST(ViewTransform, RotationCentres) {
    Scene s;
    s.Add(0, 0, 400, 100, 0, 500);
    s.Add(100, 0, 500, 100, 300, 500);
    BuildDisplayList(s.M, s.Ds);
    SetViewBox(s.Ds, 1000, 750, 40, 60);
    RotationCentreKeepPlan(s.M, s.Ds);
    EXPECT_EQ(s.Ds.View.RotCentre, (std::array<std::int32_t, 3>{40, 60, 475}));
    RotationCentreMeanOfNetwork(s.M, s.Ds);
    EXPECT_EQ(s.Ds.View.RotCentre, (std::array<std::int32_t, 3>{75, 75, 475}));
    // Of what is seen: only the airway whose midpoint lies in the box counts for the level.
    SetViewBox(s.Ds, 100, 75, 50, 0);
    BuildDrawnList(s.M, s.Ds);
    RotationCentreOfWhatIsSeen(s.M, s.Ds);
    EXPECT_EQ(s.Ds.View.RotCentre, (std::array<std::int32_t, 3>{50, 0, 450}));
}

TEST(ViewTransform, FitsOfASingleAirwayAndOfAnEmptyNetwork) {
    {
        // A single airway along x: h is 0, so the box is 100 by 100 with a fifth of margin.
        Scene s;
        s.Add(0, 0, 490, 300, 0, 490);
        BuildDisplayList(s.M, s.Ds);
        ASSERT_TRUE(FitView(s.M, s.Ds, s.Ui));
        EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, 120);
        EXPECT_FLOAT_EQ(s.Ds.View.ScaleHeight, 120 * 0.75f);
        EXPECT_FLOAT_EQ(s.Ds.View.ScaleLeft, -60);
        EXPECT_EQ(s.Ds.View.CentreX, 150);
        EXPECT_EQ(s.Ds.View.CentreY, 0);
        EXPECT_EQ(s.Ds.View.RotCentre, (std::array<std::int32_t, 3>{150, 0, 490}));
        EXPECT_EQ(s.Ds.View.RotCentreSet, 1);
    }
    {
        // An empty network takes the default box of the settings.
        Scene s;
        BuildDisplayList(s.M, s.Ds);
        ASSERT_TRUE(FitView(s.M, s.Ds, s.Ui));
        EXPECT_EQ(s.Ds.View.CentreX, 1000);
        EXPECT_EQ(s.Ds.View.CentreY, 1000);
        EXPECT_FLOAT_EQ(s.Ds.View.ScaleHeight, 600); // 500 high, widened to the window's shape
        EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, 800);
        EXPECT_TRUE(s.Ui.Transcript.empty());
    }
    {
        // Airways, but none shown: the box stays as it was.
        Scene s;
        s.Add(0, 0, 490, 300, 0, 490);
        s.M.PrimaryLayers[1].LayerOn = 0;
        BuildDisplayList(s.M, s.Ds);
        SetViewBox(s.Ds, 321, 123, 5, 6);
        EXPECT_FALSE(FitView(s.M, s.Ds, s.Ui));
        EXPECT_EQ(s.Ds.View.ScaleWidth, 321);
    }
    {
        // A fit never gives a box lower than 5 metres.
        Scene s;
        s.Add(0, 0, 490, 2, 1, 490);
        BuildDisplayList(s.M, s.Ds);
        ASSERT_TRUE(FitView(s.M, s.Ds, s.Ui));
        EXPECT_NEAR(s.Ds.View.ScaleHeight, 5, 1e-4);
    }
    {
        // A window without height cannot be fitted.
        Scene s;
        s.Add(0, 0, 490, 300, 10, 490);
        BuildDisplayList(s.M, s.Ds);
        s.Ds.Aspect = 0;
        s.Ds.AreaHeight = 0;
        EXPECT_FALSE(FitView(s.M, s.Ds, s.Ui));
        EXPECT_EQ(s.Ui.Texts("Message"), std::vector<std::string>{"Error FITTING Graphics on screen!"});
    }
}

TEST(ViewTransform, FitIn3DUsesTheProjectedEnds) {
    Scene s;
    s.Add(0, 0, 0, 0, 0, 400); // a shaft: a point in plan, 400 high in a section
    s.Add(0, 0, 0, 100, 0, 0);
    s.Ds.View.Is3D = 1;
    s.Ds.View.Tilt = static_cast<float>(Pi / 2);
    BuildDisplayList(s.M, s.Ds);
    ASSERT_TRUE(FitView(s.M, s.Ds, s.Ui));
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleHeight, 400 * 1.2f);
    EXPECT_EQ(s.Ds.View.CentreY, -200);
}

TEST(ViewTransform, WheelInAndOutReturnsTheSameBoxAndStopsAtItsLimits) {
    Scene s;
    std::mt19937 rng(3);
    std::uniform_real_distribution<float> width(25, 900000);
    for (int i = 0; i < 200; ++i) {
        const float w = width(rng);
        SetViewBox(s.Ds, w, w * 0.75f, 10, 20);
        WheelZoom(s.Ds, true);
        WheelZoom(s.Ds, true);
        EXPECT_NE(s.Ds.View.ScaleWidth, w);
        WheelZoom(s.Ds, false);
        WheelZoom(s.Ds, false);
        ASSERT_EQ(s.Ds.View.ScaleWidth, w);
        ASSERT_EQ(s.Ds.View.ScaleHeight, w * 0.75f);
        WheelZoom(s.Ds, false);
        WheelZoom(s.Ds, true);
        ASSERT_EQ(s.Ds.View.ScaleWidth, w);
    }
    SetViewBox(s.Ds, 500, 375, 0, 0);
    EXPECT_EQ(WheelZoom(s.Ds, true), "");
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, 400);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleLeft, -200);
    SetViewBox(s.Ds, 22, 16.5f, 0, 0);
    EXPECT_EQ(WheelZoom(s.Ds, true), "Minimum Scaling Reached");
    EXPECT_EQ(s.Ds.View.ScaleWidth, 20);
    EXPECT_EQ(s.Ds.View.ScaleHeight, 15);
    SetViewBox(s.Ds, 9e6f, 6.75e6f, 0, 0);
    EXPECT_EQ(WheelZoom(s.Ds, false), "Maximum Scaling Reached");
    EXPECT_EQ(s.Ds.View.ScaleWidth, 1e7f);
    // Nothing changes while the power zoom runs.
    s.Ds.Gesture.PowerZoomActive = true;
    WheelZoom(s.Ds, true);
    EXPECT_EQ(s.Ds.View.ScaleWidth, 1e7f);
}

TEST(ViewTitle, ScaleFigureCaptionAndCoordinates) {
    Scene s;
    SetViewBox(s.Ds, 995, 700, 100, 200);
    s.Ds.PrintableWidthMm = 200;
    s.M.FileName = "/mines/north.sim";
    s.M.FileComment = "Stage 3";
    UpdateWindowTitle(s.M, s.Ds);
    EXPECT_EQ(s.Ds.ScaleFigure, 5500);
    EXPECT_EQ(s.Ds.Labels.Caption, "KARVANE [/mines/north.sim  Stage 3] [Scale = 1:5500]");
    s.M.FileName.clear();
    s.M.FileComment.clear();
    UpdateWindowTitle(s.M, s.Ds);
    EXPECT_EQ(s.Ds.Labels.Caption, "KARVANE [] [Scale = 1:5500]");

    s.Ds.View.CurRL = 490;
    const CursorPosition p = ShowCursorCoordinates(s.M, s.Ds, 10.4f, -20.6f);
    EXPECT_EQ(s.Ds.Labels.LabelX, "110");
    EXPECT_EQ(s.Ds.Labels.LabelY, "179");
    EXPECT_EQ(s.Ds.Labels.LabelRL, "490");
    EXPECT_NEAR(p.PlanX, 110.4, 1e-4);
    s.M.Set.UnitSys = 2;
    ShowCursorCoordinates(s.M, s.Ds, 0, 0);
    EXPECT_EQ(s.Ds.Labels.LabelX, "328"); // feet
}

} // namespace
} // namespace karvane::display
