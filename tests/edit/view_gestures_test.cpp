// The gestures that change a view: zoom tool, power zoom, pan, rotation, plan and 3D.
#include <gtest/gtest.h>

#include <cmath>

#include "display/drawn_list.h"
#include "edit/view_gestures.h"
#include "edit_support.h"

namespace karvane::edit {
namespace {

using testing::BuildSquare;
using testing::Scene;

TEST(ZoomTool, ClicksHalveAndDoubleTheBoxAboutTheCursor) {
    Scene s;
    BuildSquare(s);
    auto& v = s.Ds.View;
    ASSERT_FLOAT_EQ(v.ScaleWidth, 1600);
    ASSERT_FLOAT_EQ(v.CentreX, 500);

    // A left click (a drag below a fiftieth of the width) halves the box, centred under the cursor.
    ZoomFromMouse(s.M, s.Ds, button::Left, 100, -50, 110, -40);
    EXPECT_FLOAT_EQ(v.ScaleWidth, 800);
    EXPECT_FLOAT_EQ(v.ScaleHeight, 600);
    EXPECT_FLOAT_EQ(v.CentreX, 610);
    EXPECT_FLOAT_EQ(v.CentreY, 460);
    EXPECT_FLOAT_EQ(v.ScaleLeft, -400);
    EXPECT_FLOAT_EQ(v.ScaleTop, -300);

    // The right button doubles it about the cursor.
    ZoomFromMouse(s.M, s.Ds, button::Right, 0, 0, -10.4f, 20.6f);
    EXPECT_FLOAT_EQ(v.ScaleWidth, 1600);
    EXPECT_FLOAT_EQ(v.CentreX, 600); // rounded to whole metres
    EXPECT_FLOAT_EQ(v.CentreY, 481);

    // The middle button leaves the box as it was.
    ZoomFromMouse(s.M, s.Ds, button::Middle, 0, 0, 300, 300);
    EXPECT_FLOAT_EQ(v.ScaleWidth, 1600);
    EXPECT_FLOAT_EQ(v.CentreX, 600);
    // In a plan view the rotation centre follows the new middle.
    EXPECT_EQ(v.RotCentre[0], 600);
    EXPECT_EQ(v.RotCentre[1], 481);
}

TEST(ZoomTool, ADraggedRectangleBecomesTheBoxAtTheWindowsAspect) {
    Scene s;
    BuildSquare(s);
    auto& v = s.Ds.View;
    // A wide drag: its width stands, the height follows the aspect of 0.75.
    ZoomFromMouse(s.M, s.Ds, button::Left, 200, 100, -200, 0);
    EXPECT_FLOAT_EQ(v.ScaleWidth, 400);
    EXPECT_FLOAT_EQ(v.ScaleHeight, 300);
    EXPECT_FLOAT_EQ(v.CentreX, 500);
    EXPECT_FLOAT_EQ(v.CentreY, 550);
    // A tall drag, corners in either order: the width grows to keep the whole height in view.
    ZoomFromMouse(s.M, s.Ds, button::Left, 10, 150, 0, -150);
    EXPECT_FLOAT_EQ(v.ScaleHeight, 300);
    EXPECT_FLOAT_EQ(v.ScaleWidth, 400);
    EXPECT_FLOAT_EQ(v.CentreX, 505);
    EXPECT_FLOAT_EQ(v.CentreY, 550);
}

TEST(PowerZoom, KeepsTheWorldPointUnderThePointer) {
    Scene s;
    BuildSquare(s);
    auto& v = s.Ds.View;
    float curX = 300, curY = -200;
    const float worldX = v.CentreX + curX, worldY = v.CentreY + curY;
    for (int pass = 0; pass < 5; ++pass) PowerZoomPass(s.Ds, button::Left, 4, curX, curY);
    EXPECT_NEAR(v.ScaleWidth, 1600 * std::pow(0.96, 5), 0.01);
    EXPECT_NEAR(v.CentreX + curX, worldX, 3.0); // centres are rounded to whole metres each pass
    EXPECT_NEAR(v.CentreY + curY, worldY, 3.0);
    EXPECT_FLOAT_EQ(v.ScaleLeft, -v.ScaleWidth / 2);
    for (int pass = 0; pass < 5; ++pass) PowerZoomPass(s.Ds, button::Right, 4, curX, curY);
    EXPECT_GT(v.ScaleWidth, 1600 * std::pow(0.96, 5));
    EXPECT_NEAR(v.CentreX + curX, worldX, 6.0);
}

TEST(MouseRotation, WidthAndHeightOfTheBoxTurnHalfAndQuarterTurns) {
    Scene s;
    s.M.Set.FullRotation = -1;
    BuildSquare(s);
    auto& v = s.Ds.View;
    ASSERT_EQ(v.Is3D, 0);
    const MouseRotation r = BeginMouseRotation(s.M, s.Ds, v.ScaleLeft + v.ScaleWidth, v.ScaleTop + v.ScaleHeight);
    // The plan view became 3D with both angles 0, about its plan centre.
    EXPECT_EQ(v.Is3D, 1);
    EXPECT_EQ(v.RotCentreSet, 1);
    EXPECT_FLOAT_EQ(r.StartTilt, 0);
    RotateByMouse(s.M, s.Ds, r, v.ScaleLeft, v.ScaleTop);
    EXPECT_NEAR(v.Spin, 3.14159, 1e-4);
    EXPECT_NEAR(v.Tilt, 3.14159 / 2, 1e-4);
}

TEST(MouseRotation, TiltIsHeldWithinAQuarterTurnWithoutFullRotation) {
    Scene s;
    BuildSquare(s);
    auto& v = s.Ds.View;
    const MouseRotation r = BeginMouseRotation(s.M, s.Ds, 0, 0);
    RotateByMouse(s.M, s.Ds, r, 0, v.ScaleTop - 4 * v.ScaleHeight);
    EXPECT_NEAR(v.Tilt, display::Pi / 2, 1e-5);
    RotateByMouse(s.M, s.Ds, r, 0, v.ScaleTop + 4 * v.ScaleHeight);
    EXPECT_FLOAT_EQ(v.Tilt, 0);
}

TEST(RotationButton, TurnsByTheDistanceFromItsRestPoint) {
    Scene s;
    BuildSquare(s);
    auto& v = s.Ds.View;
    BeginRotationButton(s.M, s.Ds);
    EXPECT_EQ(v.Is3D, 1);
    EXPECT_EQ(v.RotCentreSet, 999);
    EXPECT_FALSE(RotationButtonTick(s.M, s.Ds, RotationRestX, RotationRestY)); // at rest
    EXPECT_FALSE(RotationButtonTick(s.M, s.Ds, 51, 10));                       // off the face
    EXPECT_FALSE(RotationButtonTick(s.M, s.Ds, 10, 0));
    // 15 units left of the rest point turns one degree times half the spin speed (2).
    ASSERT_TRUE(RotationButtonTick(s.M, s.Ds, RotationRestX - 15, RotationRestY));
    EXPECT_NEAR(v.Spin, display::Pi / 180, 1e-6);
    EXPECT_FLOAT_EQ(v.Tilt, 0);
    ASSERT_TRUE(RotationButtonTick(s.M, s.Ds, RotationRestX, RotationRestY - 15));
    EXPECT_NEAR(v.Tilt, display::Pi / 180, 1e-6);
    EXPECT_EQ(s.Ds.SpinStep, 0);
    EXPECT_EQ(s.Ds.TiltStep, 0);
}

TEST(Recentring, AZoomInALongSectionMovesTheCentreInTheSectionPlane) {
    Scene s;
    BuildSquare(s);
    auto& v = s.Ds.View;
    v.Is3D = 1;
    v.Tilt = static_cast<float>(display::Pi / 2);
    v.Spin = 0;
    v.RotCentre = {500, 500, 400};
    v.RotCentreSet = 999;
    display::ApplyRotation(s.M, s.Ds);
    ASSERT_EQ(display::ViewKind(v), 2);
    const float width = v.ScaleWidth;
    ZoomFromMouse(s.M, s.Ds, button::Right, 0, 0, 100, 40);
    EXPECT_FLOAT_EQ(v.ScaleWidth, 2 * width);
    // Moving right moves along X; moving down the window goes down in RL.
    EXPECT_EQ(v.RotCentre[0], 600);
    EXPECT_EQ(v.RotCentre[1], 500);
    EXPECT_EQ(v.RotCentre[2], 360);
}

} // namespace
} // namespace karvane::edit
