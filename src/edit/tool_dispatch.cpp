// The dispatcher of the view windows.
#include "edit/tool_dispatch.h"

#include <algorithm>
#include <cmath>

#include "display/drawn_list.h"
#include "display/picking.h"
#include "display/renderer.h"
#include "display/view_title.h"
#include "display/view_transform.h"

namespace karvane::edit {

namespace {

// The tools in which the left button draws a rubber rectangle, the right button pans (Tool 0)
// and both buttons rotate.
bool RectangleTool(int t) {
    return t == tool::Zoom || t == tool::Move || t == tool::Delete || t == tool::Attributes || t == tool::Layers ||
           t == tool::Select;
}

// Cursor coordinates beyond this are no place in a mine.
constexpr double kCoordinateLimit = 9999999;

// The power zoom waits this long between passes; with unlimited speed it runs at every turn of
// the event loop.
constexpr int kPowerZoomWaitMs = 200;

} // namespace

ToolDispatcher::ToolDispatcher(Model& model, display::DisplayState& ds, ui::UserInterface& ui, ToolHost& host)
    : m_(model),
      ds_(ds),
      ui_(ui),
      host_(host) {}

void ToolDispatcher::RunToolCommand(int value) {
    const ToolCommand* command = FindToolCommand(value);
    if (!command) return;
    if (!host_.CommandAvailable(value)) {
        host_.CommandUnavailable(value);
        return;
    }
    if (command->Tool >= 0) {
        s_.Tool = command->Tool;
        s_.CommandValue = value;
        s_.CopyToDefaults = value == cmd::AttributesToDefaults;
        s_.CursorValue = -1;
        host_.ShowToolState(value);
        host_.SetViewCursor(CursorName(value, button::Left));
        return;
    }
    switch (value) {
    case cmd::Fit:
        if (display::FitView(m_, ds_, ui_)) {
            host_.Redraw();
            host_.ShowViewStatus();
        }
        break;
    case cmd::Toggle3D:
        if (host_.CurrentSurface() == nullptr || Frozen()) break;
        TogglePlan3D(m_, ds_);
        host_.Redraw();
        host_.ShowViewStatus();
        break;
    case cmd::Grid:
        ds_.GridOn = !ds_.GridOn;
        host_.RedrawAll();
        break;
    case cmd::UpdateScreen:
        for (std::int32_t row = 1; row <= m_.AirwayCount; ++row)
            m_.Airways[static_cast<std::size_t>(row)].BranchCode &= ~bc::Selected;
        host_.RedrawAll();
        break;
    default: host_.RunCommand(value); break;
    }
    host_.ShowToolState(s_.CommandValue);
}

void ToolDispatcher::StoreCursor(int pressed, int window) {
    const int b = pressed == button::Left || pressed == 0 ? button::Left : button::Right;
    if (s_.CursorValue == s_.CommandValue && s_.CursorButton == b && s_.CursorWindow == window) return;
    s_.CursorValue = s_.CommandValue;
    s_.CursorButton = b;
    s_.CursorWindow = window;
    host_.SetViewCursor(CursorName(s_.CommandValue, b));
}

void ToolDispatcher::OnMouseDown(int pressed, int shift, float x, float y, int window) {
    host_.StopRotationTimer();
    const float cx = x * static_cast<float>(m_.SgnX);
    const float cy = y * static_cast<float>(m_.SgnY);
    if (Frozen() || s_.Busy) return;
    ui_.PumpEvents();
    s_.ShiftState = shift;
    StoreCursor(pressed, window);
    s_.PressWindow = window;
    s_.Button = pressed;
    s_.CurX = cx;
    s_.CurY = cy;
    if (s_.Tool == tool::Draw) {
        s_.PressRL = ds_.View.CurRL;
        host_.SaveWindowState();
    }

    // The press: the picked world point, the press and drag positions, the centre to pan from.
    s_.PanState = 1;
    display::GestureState& g = ds_.Gesture;
    g.ButtonHeld = false;
    g.ShiftDown = (shift & 1) != 0;
    const display::WorldPoint picked = display::UnprojectPoint(m_, ds_, cx, cy, ds_.View.CurRL);
    g.PressPoint = {picked.X, picked.Y, picked.Z};
    g.PressX = cx;
    g.PressY = cy;
    g.ButtonHeld = true;
    s_.PressX = s_.DragX = cx;
    s_.PressY = s_.DragY = cy;
    s_.PressWinX = x;
    s_.PressWinY = y;
    s_.StartCentreX = ds_.View.CentreX;
    s_.StartCentreY = ds_.View.CentreY;
    s_.MouseIsDown = true;
    s_.RubberDrawn = false;
    s_.RubberLineDrawn = false;
    s_.PressOnSomething = false;
    s_.RotateStarted = false;
    s_.LastMoveWindow = window;
    s_.ViewGesture = pressed >= button::Both || (s_.Tool == tool::Centre && pressed > button::Left);

    if (s_.Tool == tool::Zoom && (shift & 1) != 0) {
        s_.PowerZoom = 5;
        g.PowerZoomActive = true;
        host_.StartPowerZoomTimer(m_.Set.UnlimitedSpeed != 0 ? 0 : kPowerZoomWaitMs);
        return;
    }
    if (s_.ViewGesture) return;

    ToolEvent event;
    event.Tool = s_.Tool;
    event.Button = pressed;
    event.Shift = shift;
    event.PressX = event.CurX = cx;
    event.PressY = event.CurY = cy;
    event.Window = window;
    if (s_.Tool == tool::Draw || s_.Tool == tool::Move) {
        host_.ToolPress(event);
    } else if (s_.Tool == tool::Info && pressed == button::Right) {
        const display::AirwayPick pick = display::FindAirway(m_, ds_, cx, cy);
        if (pick.Airway > 0) host_.ShowPopup(pick.Airway, x, y);
    }
}

void ToolDispatcher::OnMouseMove(int buttons, int shift, float x, float y, int window) {
    const float cx = x * static_cast<float>(m_.SgnX);
    const float cy = y * static_cast<float>(m_.SgnY);
    if (s_.Busy || Frozen() || window < 0 || s_.PowerZoom == 5 || host_.CoordinateDialogOpen()) return;
    StoreCursor(buttons, window);
    s_.Button = buttons;
    s_.ShiftState = shift;
    s_.CurX = cx;
    s_.CurY = cy;
    s_.LastMoveWindow = window;
    display::ShowCursorCoordinates(m_, ds_, cx, cy);
    host_.ShowViewStatus();
    if (s_.Tool == tool::Centre && s_.Button == button::Right) s_.Button = button::Both;
    if (!s_.MouseIsDown) return;

    if (s_.Button == button::Both && !s_.RotateStarted) BeginRotation();
    if (s_.Button == button::Both && s_.Tool == tool::Centre) Rotate(x, y);
    if (s_.Button == button::Middle && !s_.RotateStarted) Pan(x, y);
    if (s_.ViewGesture) return;

    if (RectangleTool(s_.Tool)) {
        if (s_.Button == button::Left && !s_.RotateStarted) {
            if (s_.Tool != tool::Move || !s_.PressOnSomething) DrawRubberRectangle(cx, cy);
        } else if (s_.Button == button::Right && s_.Tool == tool::Zoom && !s_.RotateStarted) {
            Pan(x, y);
        } else if (s_.Button == button::Both) {
            Rotate(x, y);
        }
    }
    if ((s_.Tool == tool::Draw && s_.Button != button::Both) || (s_.Tool == tool::Move && s_.PressOnSomething))
        DrawRubberLine(cx, cy);
}

void ToolDispatcher::OnMouseUp(int released, int shift, float x, float y, int window) {
    if (Frozen() || !s_.MouseIsDown) return;
    if ((s_.Tool == tool::Draw || s_.Tool == tool::Move) && s_.RubberLineDrawn && !s_.RubberDrawn) EraseRubber();

    // A release outside the window's box is pulled back to its edge.
    const display::ViewState& v = ds_.View;
    x = std::clamp(x, std::min(v.ScaleLeft, v.ScaleLeft + v.ScaleWidth),
                   std::max(v.ScaleLeft, v.ScaleLeft + v.ScaleWidth));
    y = std::clamp(y, std::min(v.ScaleTop, v.ScaleTop + v.ScaleHeight),
                   std::max(v.ScaleTop, v.ScaleTop + v.ScaleHeight));
    if (window >= 0 && window != s_.PressWindow) host_.MakeWindowCurrent(window);
    const float cx = x * static_cast<float>(m_.SgnX);
    const float cy = y * static_cast<float>(m_.SgnY);
    s_.CurX = cx;
    s_.CurY = cy;
    s_.ShiftState = shift;

    auto finish = [this] {
        s_.MouseIsDown = false;
        s_.Busy = false;
        ds_.Gesture.ButtonHeld = false;
        ds_.Panning = false;
    };

    if (s_.RotateStarted) {
        s_.RotateStarted = false;
        finish();
        host_.Redraw();
        host_.ShowViewStatus();
        return;
    }
    if (host_.CoordinateDialogOpen()) {
        s_.Busy = false;
        return;
    }
    if (s_.Busy) return;
    s_.Busy = true;

    if (s_.Tool > tool::Move && (std::fabs(static_cast<double>(v.CentreX) + cx) > kCoordinateLimit ||
                                 std::fabs(static_cast<double>(v.CentreY) + cy) > kCoordinateLimit)) {
        EraseRubber();
        finish();
        if (s_.PowerZoom == 5) EndPowerZoom();
        ui_.Message("ERROR - Cursor Coordinates exceed size limit", ProgramName, ui::Icon::Exclamation);
        host_.Redraw();
        return;
    }

    ToolEvent event;
    event.Tool = s_.Tool;
    event.Button = released;
    event.Shift = shift;
    event.PressX = s_.PressX;
    event.PressY = s_.PressY;
    event.CurX = cx;
    event.CurY = cy;
    event.Window = window >= 0 ? window : s_.PressWindow;
    const double near = static_cast<double>(v.ScaleWidth) / 50;
    if (s_.RubberDrawn) {
        EraseRubber();
        if (std::fabs(static_cast<double>(cx) - s_.PressX) > near ||
            std::fabs(static_cast<double>(cy) - s_.PressY) > near) {
            event.Fence = true;
            event.PressX = std::min(s_.PressX, cx);
            event.CurX = std::max(s_.PressX, cx);
            event.PressY = std::min(s_.PressY, cy);
            event.CurY = std::max(s_.PressY, cy);
        }
    }

    if (!s_.ViewGesture) ReleaseTool(event);

    if (released == button::Middle || s_.Tool == tool::Zoom) {
        const float startX = s_.StartCentreX, startY = s_.StartCentreY;
        if (s_.PowerZoom == 5) {
            EndPowerZoom();
            RecentreView(m_, ds_, ds_.View.CentreX - startX, ds_.View.CentreY - startY);
            host_.Redraw();
        } else if (s_.PanState == 1) {
            if (released != button::Middle) {
                ZoomFromMouse(m_, ds_, released, s_.PressX, s_.PressY, cx, cy);
                host_.Redraw();
            }
        } else {
            ds_.Panning = false;
            RecentreView(m_, ds_, ds_.View.CentreX - startX, ds_.View.CentreY - startY);
            host_.Redraw();
        }
        display::UpdateWindowTitle(m_, ds_);
        host_.ShowViewStatus();
    }
    finish();
    if (s_.Tool == tool::Draw) host_.FocusWindow(event.Window);
}

void ToolDispatcher::ReleaseTool(const ToolEvent& event) {
    switch (s_.Tool) {
    case tool::Zoom: return;
    case tool::Info:
        host_.HidePopup();
        if (event.Button == button::Left) host_.ToolRelease(event);
        return;
    case tool::Centre:
        if (event.Button == button::Left) {
            const display::AirwayPick pick = display::FindAirway(m_, ds_, event.CurX, event.CurY);
            if (pick.Airway > 0) {
                CentreOnPoint(m_, ds_, pick.Point);
                host_.Redraw();
                host_.ShowViewStatus();
            }
        }
        return;
    case tool::Delete:
        if (event.Button != button::Left) return;
        break;
    case tool::Pins: s_.PinType = event.Button == button::Left ? 1 : 2; break;
    default: break;
    }
    host_.ToolRelease(event);
    if ((s_.Tool >= tool::Reverse && s_.Tool <= tool::Names) || s_.Tool == tool::Edit) m_.NetworkSaved = No0;
}

bool ToolDispatcher::OnKeyDown(int keyCode) {
    if (keyCode == key::Up || keyCode == key::Down) {
        host_.StepLevel(keyCode == key::Up ? -1 : 1);
        // The level change redraws the window: a rubber band in progress is gone from it.
        if (s_.MouseIsDown) s_.RubberDrawn = s_.RubberLineDrawn = false;
        return true;
    }
    const int value = CommandOfKey(keyCode);
    if (value < 0) return false;
    RunToolCommand(value);
    return true;
}

void ToolDispatcher::LinesOnly() {
    display::Surface* surface = host_.CurrentSurface();
    if (surface) display::RedrawLinesOnly(m_, ds_, *surface, ui_);
    host_.ShowViewStatus();
}

void ToolDispatcher::Pan(float x, float y) {
    if (s_.PanState == 1) {
        const double near = static_cast<double>(ds_.View.ScaleWidth) / 50;
        if (std::fabs(static_cast<double>(x) - s_.PressWinX) <= near &&
            std::fabs(static_cast<double>(y) - s_.PressWinY) <= near)
            return;
        s_.PanState = 2;
        EraseRubber();
    }
    PanView(m_, ds_, s_.StartCentreX, s_.StartCentreY, s_.PressWinX, s_.PressWinY, x, y);
    ds_.Panning = true;
    LinesOnly();
}

void ToolDispatcher::BeginRotation() {
    EraseRubber();
    // The turn is measured from where the press was.
    s_.Rotation = BeginMouseRotation(m_, ds_, s_.PressWinX, s_.PressWinY);
    s_.RotateStarted = true;
}

void ToolDispatcher::Rotate(float x, float y) {
    if (!s_.RotateStarted) BeginRotation();
    RotateByMouse(m_, ds_, s_.Rotation, x, y);
    LinesOnly();
}

void ToolDispatcher::PowerZoomTick() {
    if (s_.PowerZoom != 5) return;
    PowerZoomPass(ds_, s_.Button, m_.Set.PowerZoom, s_.CurX, s_.CurY);
    display::UpdateWindowTitle(m_, ds_);
    LinesOnly();
}

void ToolDispatcher::EndPowerZoom() {
    s_.PowerZoom = 0;
    ds_.Gesture.PowerZoomActive = false;
    host_.StopPowerZoomTimer();
}

void ToolDispatcher::OnWheel(bool positive) {
    if (host_.CurrentSurface() == nullptr || Frozen() || ds_.Gesture.PowerZoomActive) return;
    display::WheelZoom(ds_, positive);
    host_.Redraw();
    display::UpdateWindowTitle(m_, ds_);
    host_.ShowViewStatus();
}

void ToolDispatcher::DrawRubberRectangle(float toX, float toY) {
    display::Surface* surface = host_.CurrentSurface();
    if (!surface) return;
    const display::ViewState& v = ds_.View;
    const float sx = static_cast<float>(m_.SgnX), sy = static_cast<float>(m_.SgnY);
    surface->SetCoordinateBox(v.ScaleLeft, v.ScaleTop, v.ScaleWidth, v.ScaleHeight);
    surface->SetLineWidth(1);
    surface->SetLineStyle(display::LineStyle::Solid);
    surface->SetDrawMode(display::DrawMode::Invert);
    if (s_.RubberDrawn) surface->Rectangle(s_.PressX * sx, s_.PressY * sy, s_.DragX * sx, s_.DragY * sy, 0);
    surface->Rectangle(s_.PressX * sx, s_.PressY * sy, toX * sx, toY * sy, 0);
    surface->SetDrawMode(display::DrawMode::Copy);
    surface->Refresh();
    s_.DragX = toX;
    s_.DragY = toY;
    s_.RubberDrawn = true;
}

void ToolDispatcher::DrawRubberLine(float toX, float toY) {
    display::Surface* surface = host_.CurrentSurface();
    if (!surface) return;
    const display::ViewState& v = ds_.View;
    const float sx = static_cast<float>(m_.SgnX), sy = static_cast<float>(m_.SgnY);
    const display::Colour colour = s_.Tool == tool::Draw ? 0 : Rgb(255, 96, 96);
    surface->SetCoordinateBox(v.ScaleLeft, v.ScaleTop, v.ScaleWidth, v.ScaleHeight);
    surface->SetLineWidth(1);
    surface->SetDrawMode(display::DrawMode::Invert);
    if (s_.RubberLineDrawn) surface->Line(s_.PressX * sx, s_.PressY * sy, s_.DragX * sx, s_.DragY * sy, colour);
    surface->Line(s_.PressX * sx, s_.PressY * sy, toX * sx, toY * sy, colour);
    surface->SetDrawMode(display::DrawMode::Copy);
    surface->Refresh();
    s_.DragX = toX;
    s_.DragY = toY;
    s_.RubberLineDrawn = true;
}

void ToolDispatcher::EraseRubber() {
    display::Surface* surface = host_.CurrentSurface();
    if (!surface || (!s_.RubberDrawn && !s_.RubberLineDrawn)) {
        s_.RubberDrawn = s_.RubberLineDrawn = false;
        return;
    }
    const float sx = static_cast<float>(m_.SgnX), sy = static_cast<float>(m_.SgnY);
    surface->SetDrawMode(display::DrawMode::Invert);
    if (s_.RubberDrawn) surface->Rectangle(s_.PressX * sx, s_.PressY * sy, s_.DragX * sx, s_.DragY * sy, 0);
    if (s_.RubberLineDrawn) surface->Line(s_.PressX * sx, s_.PressY * sy, s_.DragX * sx, s_.DragY * sy, 0);
    surface->SetDrawMode(display::DrawMode::Copy);
    surface->Refresh();
    s_.RubberDrawn = s_.RubberLineDrawn = false;
}

void ToolDispatcher::SnapPress(float x, float y, bool onSomething) {
    s_.PressX = s_.DragX = x;
    s_.PressY = s_.DragY = y;
    s_.PressOnSomething = onSomething;
}

void ToolDispatcher::DropPress() {
    EraseRubber();
    s_.MouseIsDown = false;
    s_.PanState = 0;
    ds_.Gesture.ButtonHeld = false;
}

void ToolDispatcher::CancelGesture() {
    if (s_.PowerZoom == 5) EndPowerZoom();
    EraseRubber();
    s_.MouseIsDown = false;
    s_.Busy = false;
    s_.RotateStarted = false;
    s_.PanState = 0;
    ds_.Gesture.ButtonHeld = false;
    ds_.Panning = false;
    host_.HidePopup();
}

} // namespace karvane::edit
