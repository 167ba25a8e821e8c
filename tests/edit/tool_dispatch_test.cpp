// The dispatcher: tool commands and keys, the mouse gestures of every tool, and the way to
// the tools of other subsystems.
#include <gtest/gtest.h>

#include <tuple>

#include <algorithm>

#include "edit/tool_dispatch.h"
#include "edit_support.h"

namespace karvane::edit {
namespace {

using testing::BuildSquare;
using testing::RecordingHost;
using testing::Scene;

struct Rig {
    Scene S;
    RecordingHost Host{S};
    ToolDispatcher D{S.M, S.Ds, S.Ui, Host};
    Rig() { BuildSquare(S); }
    display::ViewState& View() { return S.Ds.View; }
};

TEST(ToolCommands, ValuesAndKeysSelectToolsOrReachTheirCommands) {
    Rig r;
    r.D.RunToolCommand(cmd::Centre);
    EXPECT_EQ(std::make_tuple(r.D.Tool(), r.Host.Cursor), std::make_tuple(tool::Centre, "Rotate"));
    EXPECT_TRUE(r.D.OnKeyDown(key::F2));
    EXPECT_EQ(std::make_tuple(r.D.Tool(), r.Host.Cursor), std::make_tuple(tool::Zoom, "Magnify"));

    // Commands that select no tool go to the application, the tool stays.
    r.D.RunToolCommand(cmd::Simulate);
    EXPECT_TRUE(r.D.OnKeyDown(key::F12));
    EXPECT_TRUE(r.D.OnKeyDown(key::Backspace));
    EXPECT_TRUE(r.D.OnKeyDown(key::Tab));
    EXPECT_EQ(r.Host.Commands, (std::vector<int>{cmd::Simulate, cmd::Simulate, cmd::Undo, cmd::Redo}));
    EXPECT_EQ(r.D.Tool(), tool::Zoom);

    // A tool whose work is not in this program is refused, and said so; the tool stays.
    EXPECT_TRUE(r.D.OnKeyDown(key::F3));
    EXPECT_EQ(r.Host.Unavailable, (std::vector<int>{cmd::Draw}));
    EXPECT_EQ(r.D.Tool(), tool::Zoom);
    r.Host.AllAvailable = true;
    EXPECT_TRUE(r.D.OnKeyDown(key::F11));
    EXPECT_EQ(r.D.Tool(), tool::Attributes);
    r.D.RunToolCommand(cmd::AttributesToDefaults);
    EXPECT_EQ(r.D.Tool(), tool::Attributes);
    EXPECT_TRUE(r.D.State().CopyToDefaults);
    EXPECT_EQ(r.Host.Cursor, "Paste");

    // The space bar is bound to nothing; the arrows move the level.
    EXPECT_FALSE(r.D.OnKeyDown(32));
    EXPECT_TRUE(r.D.OnKeyDown(key::Down));
    EXPECT_TRUE(r.D.OnKeyDown(key::Down));
    EXPECT_TRUE(r.D.OnKeyDown(key::Up));
    EXPECT_EQ(r.Host.LevelSteps, 1);
}

TEST(ToolCommands, FitAndGridAndTheTwoDThreeDButton) {
    Rig r;
    r.View().ScaleWidth = 50;
    r.D.RunToolCommand(cmd::Fit);
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, 1600);
    const bool grid = r.S.Ds.GridOn;
    r.D.RunToolCommand(cmd::Grid);
    EXPECT_NE(r.S.Ds.GridOn, grid);
    r.D.RunToolCommand(cmd::Toggle3D);
    EXPECT_EQ(r.View().Is3D, 1);
    r.D.RunToolCommand(cmd::Toggle3D);
    EXPECT_EQ(r.View().Is3D, 0);
}

TEST(ZoomPanTool, RightClickZoomsOutAndARightDragPansWithoutZooming) {
    Rig r;
    const float width = r.View().ScaleWidth;
    r.D.OnMouseDown(button::Right, 0, 100, 100, 0);
    r.D.OnMouseUp(button::Right, 0, 100, 100, 0);
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, 2 * width);
    EXPECT_FLOAT_EQ(r.View().CentreX, 600);

    // A drag of at least a fiftieth of the width pans: the centre moves against the drag.
    const float w = r.View().ScaleWidth;
    const float cx = r.View().CentreX, cy = r.View().CentreY;
    r.D.OnMouseDown(button::Right, 0, 0, 0, 0);
    r.D.OnMouseMove(button::Right, 0, w / 100, 0, 0); // not yet a pan
    EXPECT_FLOAT_EQ(r.View().CentreX, cx);
    r.D.OnMouseMove(button::Right, 0, 200, -100, 0);
    EXPECT_FLOAT_EQ(r.View().CentreX, cx - 200);
    EXPECT_FLOAT_EQ(r.View().CentreY, cy + 100);
    EXPECT_TRUE(r.S.Ds.Panning);
    r.D.OnMouseUp(button::Right, 0, 200, -100, 0);
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, w); // no zoom on release
    EXPECT_FLOAT_EQ(r.View().CentreX, cx - 200);
    EXPECT_FALSE(r.S.Ds.Panning);
    EXPECT_FALSE(r.D.State().MouseIsDown);
}

TEST(ZoomPanTool, TheMiddleButtonPansInAnyTool) {
    Rig r;
    r.D.RunToolCommand(cmd::Info);
    const float cx = r.View().CentreX;
    r.D.OnMouseDown(button::Middle, 0, 0, 0, 0);
    r.D.OnMouseMove(button::Middle, 0, -300, 0, 0);
    r.D.OnMouseUp(button::Middle, 0, -300, 0, 0);
    EXPECT_FLOAT_EQ(r.View().CentreX, cx + 300);
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, 1600);
}

TEST(PowerZoom, ShiftPressInToolZeroRepeatsUntilTheRelease) {
    Rig r;
    const float width = r.View().ScaleWidth;
    r.D.OnMouseDown(button::Left, 1, 100, 0, 0);
    EXPECT_TRUE(r.Host.PowerZoomRunning);
    EXPECT_EQ(r.Host.PowerZoomInterval, 200);
    EXPECT_TRUE(r.S.Ds.Gesture.PowerZoomActive);
    r.D.PowerZoomTick();
    r.D.PowerZoomTick();
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, width * 0.96f * 0.96f);
    // Moves are passed over while it runs; the wheel does nothing.
    r.D.OnMouseMove(button::Left, 1, -500, 0, 0);
    r.D.OnWheel(true);
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, width * 0.96f * 0.96f);
    r.D.OnMouseUp(button::Left, 1, 100, 0, 0);
    EXPECT_FALSE(r.Host.PowerZoomRunning);
    EXPECT_FALSE(r.S.Ds.Gesture.PowerZoomActive);
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, width * 0.96f * 0.96f); // no zoom tool step after it

    // Outside Tool 0 a Shift press starts nothing.
    r.D.RunToolCommand(cmd::Select);
    r.D.OnMouseDown(button::Left, 1, 0, 0, 0);
    EXPECT_FALSE(r.Host.PowerZoomRunning);
    r.D.OnMouseUp(button::Left, 1, 0, 0, 0);
}

TEST(MouseRotation, BothButtonsRotateInToolZeroButNotInTheDrawTool) {
    Rig r;
    r.D.OnMouseDown(button::Left, 0, 0, 0, 0);
    r.D.OnMouseDown(button::Right, 0, 0, 0, 0);
    r.D.OnMouseMove(button::Both, 0, -400, 0, 0);
    EXPECT_EQ(r.View().Is3D, 1);
    EXPECT_GT(r.View().Spin, 0.5f);
    r.D.OnMouseUp(button::Right, 0, -400, 0, 0);
    EXPECT_FALSE(r.D.State().RotateStarted);
    // The second release finds no press in progress and does nothing.
    const float width = r.View().ScaleWidth;
    r.D.OnMouseUp(button::Left, 0, -400, 0, 0);
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, width);

    Rig d;
    d.Host.AllAvailable = true;
    d.D.RunToolCommand(cmd::Draw);
    d.D.OnMouseDown(button::Left, 0, 0, 0, 0);
    d.D.OnMouseDown(button::Right, 0, 0, 0, 0);
    d.D.OnMouseMove(button::Both, 0, -400, 0, 0);
    EXPECT_TRUE(d.D.State().RotateStarted); // prepared
    EXPECT_FLOAT_EQ(d.View().Spin, 0);      // but not turned
}

TEST(MouseRotation, TheCentreToolRotatesWithTheRightButtonAlone) {
    Rig r;
    r.D.RunToolCommand(cmd::Centre);
    r.D.OnMouseDown(button::Right, 0, 0, 0, 0);
    EXPECT_TRUE(r.D.State().ViewGesture);
    r.D.OnMouseMove(button::Right, 0, 0, -300, 0);
    EXPECT_EQ(r.View().Is3D, 1);
    EXPECT_GT(r.View().Tilt, 0.3f);
    r.D.OnMouseUp(button::Right, 0, 0, -300, 0);
    EXPECT_TRUE(r.Host.Releases.empty());
}

TEST(ToolRelease, EachToolReachesItsOwnAction) {
    Rig r;
    r.Host.AllAvailable = true;
    r.D.RunToolCommand(cmd::Reverse);
    r.D.OnMouseDown(button::Left, 0, 10, 20, 0);
    r.D.OnMouseUp(button::Left, 0, 12, 22, 0);
    ASSERT_EQ(r.Host.Releases.size(), 1u);
    EXPECT_EQ(std::make_tuple(r.Host.Releases[0].Tool, r.Host.Releases[0].CurX, r.S.M.NetworkSaved),
              std::make_tuple(tool::Reverse, 12.0f, No0));

    // The delete tool acts on the left button only.
    r.D.RunToolCommand(cmd::Delete);
    r.D.OnMouseDown(button::Right, 0, 0, 0, 0);
    r.D.OnMouseUp(button::Right, 0, 0, 0, 0);
    EXPECT_EQ(r.Host.Releases.size(), 1u);

    // A fence: the rectangle's corners come ordered.
    r.D.RunToolCommand(cmd::Select);
    r.D.OnMouseDown(button::Left, 0, 300, 200, 0);
    r.D.OnMouseMove(button::Left, 0, -100, -50, 0);
    r.D.OnMouseUp(button::Left, 0, -100, -50, 0);
    ASSERT_EQ(r.Host.Releases.size(), 2u);
    EXPECT_TRUE(r.Host.Releases[1].Fence);
    EXPECT_EQ(std::tie(r.Host.Releases[1].PressX, r.Host.Releases[1].CurY), std::make_tuple(-100.0f, 200.0f));

    // The draw and move tools are told of the press too.
    r.D.RunToolCommand(cmd::Draw);
    r.D.OnMouseDown(button::Left, 0, 5, 5, 0);
    EXPECT_EQ(r.Host.Presses.size(), 1u);
    r.D.OnMouseUp(button::Left, 0, 5, 5, 0);
    EXPECT_EQ(r.Host.Releases.back().Tool, tool::Draw);

    // The report pins take their type from the button.
    r.D.RunToolCommand(cmd::Pins);
    r.D.OnMouseDown(button::Right, 0, 0, 0, 0);
    r.D.OnMouseUp(button::Right, 0, 0, 0, 0);
    EXPECT_EQ(r.D.State().PinType, 2);
}

TEST(ToolRelease, TheInfoPopUpShowsWhileTheRightButtonIsHeld) {
    Rig r;
    r.D.RunToolCommand(cmd::Info);
    // Airway 1 runs along y = 0 from x = 0 to 1000; the centre is (500, 500).
    r.D.OnMouseDown(button::Right, 0, 0, -500, 0);
    EXPECT_EQ(r.Host.PopupRow, 1);
    r.D.OnMouseUp(button::Right, 0, 0, -500, 0);
    EXPECT_EQ(r.Host.PopupRow, 0);
}

TEST(ToolRelease, TheCentreToolCentresOnThePickedAirway) {
    Rig r;
    r.D.RunToolCommand(cmd::Centre);
    r.D.OnMouseDown(button::Left, 0, 300, -500, 0);
    r.D.OnMouseUp(button::Left, 0, 300, -500, 0);
    EXPECT_EQ(std::tie(r.View().CentreX, r.View().CentreY), std::make_tuple(800.0f, 0.0f));
}

TEST(ToolRelease, CoordinatesBeyondTheLimitAreRefused) {
    Rig r;
    r.Host.AllAvailable = true;
    r.D.RunToolCommand(cmd::Reverse);
    r.View().ScaleWidth = 4e7f;
    r.View().ScaleLeft = -2e7f;
    r.D.OnMouseDown(button::Left, 0, 1.5e7f, 0, 0);
    r.D.OnMouseUp(button::Left, 0, 1.5e7f, 0, 0);
    EXPECT_TRUE(r.S.Ui.Said("ERROR - Cursor Coordinates exceed size limit"));
    EXPECT_TRUE(r.Host.Releases.empty());
    EXPECT_FALSE(r.D.State().Busy);
}

TEST(Wheel, StepsInAndOutReturnTheBoxAndStopAtTheLimit) {
    Rig r;
    const float w = r.View().ScaleWidth, h = r.View().ScaleHeight;
    for (int i = 0; i < 7; ++i) r.D.OnWheel(true);
    for (int i = 0; i < 7; ++i) r.D.OnWheel(false);
    EXPECT_EQ(std::make_tuple(r.View().ScaleWidth, r.View().ScaleHeight), std::make_tuple(w, h));
    for (int i = 0; i < 60; ++i) r.D.OnWheel(true);
    EXPECT_EQ(std::make_tuple(r.View().ScaleWidth, r.S.Ds.LastNote), std::make_tuple(20.0f, "Minimum Scaling Reached"));
}

TEST(FrozenWindow, PressesAndWheelAreIgnored) {
    Rig r;
    r.S.Ds.WindowFrozen = true;
    const float w = r.View().ScaleWidth;
    r.D.OnMouseDown(button::Right, 0, 0, 0, 0);
    r.D.OnMouseUp(button::Right, 0, 0, 0, 0);
    r.D.OnWheel(true);
    EXPECT_FLOAT_EQ(r.View().ScaleWidth, w);
    EXPECT_FALSE(r.D.State().MouseIsDown);
}

} // namespace
} // namespace karvane::edit
