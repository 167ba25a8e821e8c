// The gestures that change a view: zoom tool, power zoom, rotation, plan and 3D; the view window
// table (new windows, switching, closing, freezing), and bringing one airway into view.
#include <gtest/gtest.h>

#include <tuple>

#include <cmath>

#include "display/drawn_list.h"
#include "display/saved_views.h"
#include "edit/show_airway.h"
#include "edit/view_gestures.h"
#include "edit/view_windows.h"
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
    EXPECT_EQ(std::tie(v.ScaleWidth, v.ScaleHeight, v.CentreX, v.CentreY, v.ScaleLeft, v.ScaleTop),
              std::make_tuple(800.0f, 600.0f, 610.0f, 460.0f, -400.0f, -300.0f));

    // The right button doubles it about the cursor.
    ZoomFromMouse(s.M, s.Ds, button::Right, 0, 0, -10.4f, 20.6f);
    EXPECT_FLOAT_EQ(v.ScaleWidth, 1600);
    EXPECT_FLOAT_EQ(v.CentreX, 600); // rounded to whole metres
    EXPECT_FLOAT_EQ(v.CentreY, 481);

    // The middle button leaves the box as it was.
    ZoomFromMouse(s.M, s.Ds, button::Middle, 0, 0, 300, 300);
    EXPECT_EQ(std::tie(v.ScaleWidth, v.CentreX), std::make_tuple(1600.0f, 600.0f));
    // In a plan view the rotation centre follows the new middle.
    EXPECT_EQ(std::make_tuple(v.RotCentre[0], v.RotCentre[1]), std::make_tuple(600, 481));
}

TEST(ZoomTool, ADraggedRectangleBecomesTheBoxAtTheWindowsAspect) {
    Scene s;
    BuildSquare(s);
    auto& v = s.Ds.View;
    // A wide drag: its width stands, the height follows the aspect of 0.75.
    ZoomFromMouse(s.M, s.Ds, button::Left, 200, 100, -200, 0);
    EXPECT_EQ(std::tie(v.ScaleWidth, v.ScaleHeight, v.CentreX, v.CentreY),
              std::make_tuple(400.0f, 300.0f, 500.0f, 550.0f));
    // A tall drag, corners in either order: the width grows to keep the whole height in view.
    ZoomFromMouse(s.M, s.Ds, button::Left, 10, 150, 0, -150);
    EXPECT_EQ(std::tie(v.ScaleHeight, v.ScaleWidth, v.CentreX, v.CentreY),
              std::make_tuple(300.0f, 400.0f, 505.0f, 550.0f));
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
    EXPECT_EQ(std::make_tuple(v.Is3D, v.RotCentreSet, r.StartTilt), std::make_tuple(1, 1, 0.0f));
    RotateByMouse(s.M, s.Ds, r, v.ScaleLeft, v.ScaleTop);
    EXPECT_NEAR(v.Spin, 3.14159, 1e-4);
    EXPECT_NEAR(v.Tilt, 3.14159 / 2, 1e-4);
}

TEST(RotationButton, TurnsByTheDistanceFromItsRestPoint) {
    Scene s;
    BuildSquare(s);
    auto& v = s.Ds.View;
    BeginRotationButton(s.M, s.Ds);
    EXPECT_EQ(std::make_tuple(v.Is3D, v.RotCentreSet), std::make_tuple(1, 999));
    EXPECT_FALSE(RotationButtonTick(s.M, s.Ds, RotationRestX, RotationRestY)); // at rest
    EXPECT_FALSE(RotationButtonTick(s.M, s.Ds, 51, 10));                       // off the face
    EXPECT_FALSE(RotationButtonTick(s.M, s.Ds, 10, 0));
    // 15 units left of the rest point turns one degree times half the spin speed (2).
    ASSERT_TRUE(RotationButtonTick(s.M, s.Ds, RotationRestX - 15, RotationRestY));
    EXPECT_NEAR(v.Spin, display::Pi / 180, 1e-6);
    EXPECT_FLOAT_EQ(v.Tilt, 0);
    ASSERT_TRUE(RotationButtonTick(s.M, s.Ds, RotationRestX, RotationRestY - 15));
    EXPECT_NEAR(v.Tilt, display::Pi / 180, 1e-6);
    EXPECT_EQ(std::make_tuple(s.Ds.SpinStep, s.Ds.TiltStep), std::make_tuple(0, 0));
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
    EXPECT_EQ(std::make_tuple(v.RotCentre[0], v.RotCentre[1], v.RotCentre[2]), std::make_tuple(600, 500, 360));
}

TEST(ViewWindows, EachWindowKeepsItsOwnViewAcrossSwitches) {
    Scene s;
    ViewWindowTable table;
    ASSERT_EQ(NumberForNewWindow(table, s.Ui), 0);
    EXPECT_TRUE(EnterNewWindow(s.M, s.Ds, table, 0)); // the first window has no view to copy
    BuildSquare(s);
    const float fitted = s.Ds.View.ScaleWidth;

    // A new window starts as a copy of the current one.
    ASSERT_EQ(NumberForNewWindow(table, s.Ui), 1);
    EXPECT_FALSE(EnterNewWindow(s.M, s.Ds, table, 1));
    EXPECT_EQ(table.CurWin, 1);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, fitted);
    s.Ds.View.ScaleWidth = 400;
    s.Ds.View.ScaleHeight = 300;
    s.Ds.View.DataType = 36;

    EXPECT_TRUE(ActivateViewWindow(s.M, s.Ds, table, 0));
    EXPECT_EQ(table.CurWin, 0);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, fitted);
    EXPECT_EQ(s.Ds.View.DataType, 12);
    EXPECT_FALSE(ActivateViewWindow(s.M, s.Ds, table, 0)); // already current
    EXPECT_TRUE(ActivateViewWindow(s.M, s.Ds, table, 1));
    EXPECT_EQ(std::make_tuple(s.Ds.View.ScaleWidth, s.Ds.View.DataType), std::make_tuple(400.0f, 36));

    // No switch while a tiling or a redraw of all windows runs.
    table.Switching = true;
    EXPECT_FALSE(ActivateViewWindow(s.M, s.Ds, table, 0));
    table.Switching = false;

    for (int n = 2; n < MaxViewWindows; ++n) EnterNewWindow(s.M, s.Ds, table, NumberForNewWindow(table, s.Ui));
    EXPECT_EQ(table.OpenCount(), 5);
    EXPECT_EQ(NumberForNewWindow(table, s.Ui), -1);
    EXPECT_TRUE(s.Ui.Said("Too many windows"));
}

TEST(ViewWindows, ClosingTheCurrentWindowMakesTheHighestRemainingCurrent) {
    Scene s;
    ViewWindowTable table;
    EnterNewWindow(s.M, s.Ds, table, 0);
    BuildSquare(s);
    EnterNewWindow(s.M, s.Ds, table, 1);
    EnterNewWindow(s.M, s.Ds, table, 2);
    s.Ds.View.ScaleWidth = 321;
    ActivateViewWindow(s.M, s.Ds, table, 1);
    EXPECT_EQ(CloseViewWindow(s.M, s.Ds, table, 1), 2);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, 321.0f);
    // Closing another window leaves the current one.
    EXPECT_EQ(CloseViewWindow(s.M, s.Ds, table, 0), 2);
    EXPECT_EQ(CloseViewWindow(s.M, s.Ds, table, 2), -1);
    EXPECT_EQ(table.CurWin, -1);
    EXPECT_FALSE(s.Ds.WindowCurrent);
    // A window number can be given again once free.
    EXPECT_EQ(NumberForNewWindow(table, s.Ui), 0);
}

TEST(ViewWindows, ANewNetworkGivesEveryWindowTheCurrentView) {
    Scene s;
    ViewWindowTable table;
    EnterNewWindow(s.M, s.Ds, table, 0);
    BuildSquare(s);
    EnterNewWindow(s.M, s.Ds, table, 1);
    s.Ds.View.ScaleWidth = 123;
    ActivateViewWindow(s.M, s.Ds, table, 0);
    ASSERT_NE(s.Ds.View.ScaleWidth, 123);
    s.Ds.View.ScaleWidth = 456;
    ShareCurrentView(s.M, s.Ds, table);
    ActivateViewWindow(s.M, s.Ds, table, 1);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, 456);
    EXPECT_TRUE(table.Windows[0].StateSaved);
}

TEST(ViewWindows, FreezeNeedsASecondWindowAndReleasesTheFirstFrozen) {
    Scene s;
    ViewWindowTable table;
    EnterNewWindow(s.M, s.Ds, table, 0);
    BuildSquare(s);
    FreezeChange change = ToggleFreeze(s.M, s.Ds, table, s.Ui);
    EXPECT_EQ(change.Window, -1);
    ASSERT_EQ(s.Ui.Transcript.size(), 1u);
    EXPECT_EQ(std::make_tuple(s.Ui.Transcript[0].Title, s.Ui.Transcript[0].Text),
              std::make_tuple("Freeze error", "Cannot freeze when only one window is present !"));

    EnterNewWindow(s.M, s.Ds, table, 1);
    table.Windows[1].Caption = "View 2 : U/Ground Quantity";
    change = ToggleFreeze(s.M, s.Ds, table, s.Ui);
    EXPECT_EQ(change.Window, 1);
    EXPECT_TRUE(change.Frozen);
    EXPECT_EQ(change.NewCurrent, 0);
    EXPECT_EQ(table.CurWin, 0);
    EXPECT_EQ(ShownCaption(table, 1), "FROZEN View 2 : U/Ground Quantity");
    EXPECT_FALSE(s.Ds.WindowFrozen);
    // Activating a frozen window makes it current, and the views leave it alone.
    ActivateViewWindow(s.M, s.Ds, table, 1);
    EXPECT_TRUE(s.Ds.WindowFrozen);
    ActivateViewWindow(s.M, s.Ds, table, 0);

    change = ToggleFreeze(s.M, s.Ds, table, s.Ui);
    EXPECT_EQ(change.Window, 1);
    EXPECT_FALSE(change.Frozen);
    EXPECT_EQ(ShownCaption(table, 1), "View 2 : U/Ground Quantity");
}

TEST(ShowAirway, PicksTheLevelOfTheEndAndCentresOnTheMidpoint) {
    Scene s;
    BuildSquare(s);
    // Airway 5 is the raise from 500 down to 300: its To end lies on "Deep" (280 to 300).
    ShownAirway shown = ShowAirway(s.M, s.Ds, s.Ui, 5, 0.9f);
    EXPECT_TRUE(shown.Shown);
    EXPECT_TRUE(shown.LevelChanged);
    EXPECT_EQ(std::make_tuple(s.Ds.View.LevelMode, s.Ds.View.CurrentLevel), std::make_tuple(display::lm::Single, 3));
    EXPECT_EQ(s.Ds.View.RotCentre, (std::array<std::int32_t, 3>{1000, 1000, 400}));
    EXPECT_FLOAT_EQ(s.Ds.View.CentreX, 1000);
    shown = ShowAirway(s.M, s.Ds, s.Ui, 5, 0.9f);
    EXPECT_FALSE(shown.LevelChanged);

    // An airway on no level creates "Global Level" once; the second time it lies in it.
    const std::int32_t row = s.Add(0, 0, 2000, 0, 50, 2000);
    s.Row(row).PrimaryLayer = 3;
    s.M.PrimaryLayers[3].LayerOn = 0;
    shown = ShowAirway(s.M, s.Ds, s.Ui, row, 0);
    EXPECT_TRUE(shown.LevelAdded);
    EXPECT_EQ(std::make_tuple(s.M.Levels[4].RLName, s.M.Levels[4].RLMin, s.M.Levels[4].RLMax),
              std::make_tuple("Global Level", 300, 2000));
    EXPECT_EQ(s.M.PrimaryLayers[3].LayerOn, -1); // its layer came on
    EXPECT_TRUE(s.Ui.Said("Could not find a valid defined display level the airway was on!\nKarvane will create a "
                          "new global level range and add it to your level list"));
    shown = ShowAirway(s.M, s.Ds, s.Ui, row, 0);
    EXPECT_FALSE(shown.LevelAdded);

    EXPECT_EQ(RowOfAirwayNo(s.M, 3), 3);
    EXPECT_EQ(RowOfAirwayNo(s.M, 999), 0);
}

} // namespace
} // namespace karvane::edit
