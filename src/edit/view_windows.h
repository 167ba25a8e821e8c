// The table of view windows: up to five windows, numbered 0 to 4, of which one is current.
// Only the current window's view is live in the display state; each other window keeps its
// view in its own slot of the saved view table (100 + its number), and a switch saves the old
// window's view there and loads the new one's.
#pragma once

#include <array>
#include <string>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::edit {

inline constexpr int MaxViewWindows = 5;

struct ViewWindowEntry {
    bool Open = false;
    bool Frozen = false;     // skipped by all redraws and tools
    bool StateSaved = false; // the window's view stands in its own slot
    std::string Caption;     // "View n : level value", without the frozen mark
};

struct ViewWindowTable {
    std::array<ViewWindowEntry, MaxViewWindows> Windows;
    int CurWin = -1;        // -1 while no window is open
    bool Switching = false; // a tiling, a switch or a redraw of all windows is running

    int OpenCount() const;
    int FirstFree() const;                // -1 when all five are open
    int HighestOpen() const;              // -1 when none is open
    int FirstOtherOpen(int window) const; // -1 when no other is open
    int FirstFrozen() const;              // -1 when none is frozen
    bool IsOpen(int window) const;
};

// The caption of a window as its frame and the Window menu show it: "FROZEN " in front while
// frozen.
std::string ShownCaption(const ViewWindowTable& table, int window);

// Saves the current window's view in its slot and marks it saved.
void SaveCurrentWindowState(Model& model, const display::DisplayState& ds, ViewWindowTable& table);

// A view window became active. When it is not the current one (and no switch is running),
// the old window's view is saved and the new one's loaded from its slot. Returns whether the
// current window changed.
bool ActivateViewWindow(Model& model, display::DisplayState& ds, ViewWindowTable& table, int window);

// The number a new window takes, or -1 with the message "Too many windows" when five are open.
int NumberForNewWindow(const ViewWindowTable& table, ui::UserInterface& ui);
// Enters a new window that the front end has created: the current view is saved and copied
// into the new window's slot, which it then loads. Returns true for the first window, which
// has no view to copy: the front end fits it once it knows the window's size.
bool EnterNewWindow(Model& model, display::DisplayState& ds, ViewWindowTable& table, int window);

// A new network: every other open window starts from the current window's view.
void ShareCurrentView(Model& model, const display::DisplayState& ds, ViewWindowTable& table);

// A window closed: its entry is cleared and the highest remaining window becomes current,
// its view loaded. Returns the new current window, -1 when none is left.
int CloseViewWindow(Model& model, display::DisplayState& ds, ViewWindowTable& table, int window);

// The Freeze command. When a window is frozen the first of them is released; otherwise the
// current window is frozen and the first other open window becomes current. Returns the
// window whose state changed, or -1 with the message when only one window is open.
struct FreezeChange {
    int Window = -1; // the window frozen or released
    bool Frozen = false;
    int NewCurrent = -1;
};
FreezeChange ToggleFreeze(Model& model, display::DisplayState& ds, ViewWindowTable& table, ui::UserInterface& ui);

} // namespace karvane::edit
