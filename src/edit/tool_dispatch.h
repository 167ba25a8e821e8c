// The dispatcher of the view windows: the current tool, the commands of the tool bar, the
// menus and the keys, and the three mouse handlers with the gestures that work in every tool
// (zoom, power zoom, pan, rotation). What a press, a drag and a release mean depends on the
// tool and the button; the tools of other subsystems are reached through ToolHost.
#pragma once

#include <cstdint>
#include <string>

#include "display/view_state.h"
#include "edit/tool_table.h"
#include "edit/view_gestures.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::edit {

// What a tool of another subsystem is told at a press or a release.
struct ToolEvent {
    int Tool = 0;
    int Button = 0;               // 1 left, 2 right, 3 both, 4 middle
    int Shift = 0;                // 1 with Shift held
    float PressX = 0, PressY = 0; // cursor coordinates of the press (ordered corners after a fence)
    float CurX = 0, CurY = 0;     // cursor coordinates of the event
    bool Fence = false;           // a rubber rectangle was drawn and the release lies clear of the press
    int Window = -1;
};

// The platform and the application around the dispatcher: the views' surfaces and redraws,
// the tool bar, cursors and timers, and the commands and tools that live elsewhere.
class ToolHost {
public:
    virtual ~ToolHost() = default;

    // The surface of the current view window; null when none is open.
    virtual display::Surface* CurrentSurface() = 0;
    // The whole pipeline for the current window, and for every open window.
    virtual void Redraw() = 0;
    virtual void RedrawAll() = 0;
    // The main window's caption and labels from the display state's labels.
    virtual void ShowViewStatus() = 0;
    // The tool bar after a command: the button of a tool shown down.
    virtual void ShowToolState(int value) = 0;
    virtual void SetViewCursor(const std::string& name) = 0;

    // The power zoom repeats PowerZoomTick at this interval until the button comes up.
    virtual void StartPowerZoomTimer(int intervalMs) = 0;
    virtual void StopPowerZoomTimer() = 0;
    virtual void StopRotationTimer() = 0;

    // Window switching for a release over another view window than the press.
    virtual void SaveWindowState() = 0;
    virtual void MakeWindowCurrent(int window) = 0;
    virtual void FocusWindow(int window) = 0;

    // Commands that are no tool and no view gesture (open, save, simulate, print, undo, redo,
    // find, display options, the level button, the contaminant simulations) and the level keys.
    virtual void RunCommand(int value) = 0;
    virtual void StepLevel(int step) = 0;
    // Whether a command's work is part of this program; a command that is not is refused with
    // a word to the user, never silently.
    virtual bool CommandAvailable(int value) const = 0;
    virtual void CommandUnavailable(int value) = 0;

    // The tools of other subsystems, at the press (draw and move) and at the release.
    virtual void ToolPress(const ToolEvent& event) = 0;
    virtual void ToolRelease(const ToolEvent& event) = 0;
    // The info pop-up of the information tool, shown while the right button is held.
    virtual void ShowPopup(std::int32_t row, float x, float y) = 0;
    virtual void HidePopup() = 0;
    // A modal dialog of a tool (coordinates, airway editor) is open: the mouse stays out.
    virtual bool CoordinateDialogOpen() const { return false; }
};

// The mouse state of the dispatcher.
struct ToolState {
    int Tool = tool::Zoom;
    int CommandValue = cmd::Zoom; // the last value that selected a tool
    int Button = 0;
    int ShiftState = 0;
    float CurX = 0, CurY = 0;
    float PressX = 0, PressY = 0;
    float DragX = 0, DragY = 0;
    bool MouseIsDown = false;
    bool ViewGesture = false;
    int PanState = 0; // 1 pressed, 2 a pan has begun
    bool RotateStarted = false;
    int PowerZoom = 0; // 5 while the power zoom runs
    bool Busy = false;
    bool CopyToDefaults = false; // value 91: the attribute tool copies to the defaults
    std::int16_t PinType = 1;

    // The press: its window and raw window coordinates, and the centre it started from.
    int PressWindow = -1;
    float PressWinX = 0, PressWinY = 0;
    float StartCentreX = 0, StartCentreY = 0;
    std::int32_t PressRL = 0;
    int LastMoveWindow = -1;
    bool RubberDrawn = false; // a rubber rectangle stands on the window
    bool RubberLineDrawn = false;
    bool PressOnSomething = false; // Move: the press picked a node, an airway or a text (a rubber line, not a fence)
    MouseRotation Rotation;
    // The cursor shown, so that it is loaded only when it changes.
    int CursorValue = -1, CursorButton = -1, CursorWindow = -2;
};

class ToolDispatcher {
public:
    ToolDispatcher(Model& model, display::DisplayState& ds, ui::UserInterface& ui, ToolHost& host);

    const ToolState& State() const { return s_; }
    int Tool() const { return s_.Tool; }

    // Every tool bar button, tool menu entry and function key comes here.
    void RunToolCommand(int value);
    // Window coordinates of the current window (before the axis signs); window is the number
    // of the view window the event came from.
    void OnMouseDown(int button, int shift, float x, float y, int window);
    void OnMouseMove(int buttons, int shift, float x, float y, int window);
    void OnMouseUp(int button, int shift, float x, float y, int window);
    // Key codes of tool_table.h; true when the key was taken.
    bool OnKeyDown(int keyCode);
    // One pass of the power zoom while its button is held.
    void PowerZoomTick();
    // The wheel over a view window: zoom about the window's middle, held within the limits.
    void OnWheel(bool positive);
    // Stops any tool in progress (before a window closes, or the program ends).
    void CancelGesture();
    // What the press of Draw or Move made of the press: the press point snapped onto what was
    // hit (cursor coordinates), so that the rubber line starts there; whether it hit something.
    void SnapPress(float x, float y, bool onSomething);
    // The press is dropped (a coordinate entry at the press was cancelled).
    void DropPress();

private:
    bool Frozen() const { return ds_.WindowFrozen; }
    void StoreCursor(int button, int window);
    void EraseRubber();
    void DrawRubberRectangle(float toX, float toY);
    void DrawRubberLine(float toX, float toY);
    void Pan(float x, float y);
    void Rotate(float x, float y);
    void BeginRotation();
    void EndPowerZoom();
    void LinesOnly();
    void ReleaseTool(const ToolEvent& event);

    Model& m_;
    display::DisplayState& ds_;
    ui::UserInterface& ui_;
    ToolHost& host_;
    ToolState s_;
};

} // namespace karvane::edit
