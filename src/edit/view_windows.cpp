// The view window table and the moves of the view between the live state and the slots.
#include "edit/view_windows.h"

#include "display/drawn_list.h"
#include "display/saved_views.h"

namespace karvane::edit {

int ViewWindowTable::OpenCount() const {
    int n = 0;
    for (const ViewWindowEntry& w : Windows) n += w.Open ? 1 : 0;
    return n;
}

int ViewWindowTable::FirstFree() const {
    for (int i = 0; i < MaxViewWindows; ++i)
        if (!Windows[static_cast<std::size_t>(i)].Open) return i;
    return -1;
}

int ViewWindowTable::HighestOpen() const {
    for (int i = MaxViewWindows - 1; i >= 0; --i)
        if (Windows[static_cast<std::size_t>(i)].Open) return i;
    return -1;
}

int ViewWindowTable::FirstOtherOpen(int window) const {
    for (int i = 0; i < MaxViewWindows; ++i)
        if (i != window && Windows[static_cast<std::size_t>(i)].Open) return i;
    return -1;
}

int ViewWindowTable::FirstFrozen() const {
    for (int i = 0; i < MaxViewWindows; ++i) {
        const ViewWindowEntry& w = Windows[static_cast<std::size_t>(i)];
        if (w.Open && w.Frozen) return i;
    }
    return -1;
}

bool ViewWindowTable::IsOpen(int window) const {
    return window >= 0 && window < MaxViewWindows && Windows[static_cast<std::size_t>(window)].Open;
}

std::string ShownCaption(const ViewWindowTable& table, int window) {
    if (window < 0 || window >= MaxViewWindows) return {};
    const ViewWindowEntry& w = table.Windows[static_cast<std::size_t>(window)];
    const std::string caption = w.Caption.empty() ? "View " + std::to_string(window + 1) : w.Caption;
    return w.Frozen ? "FROZEN " + caption : caption;
}

namespace {

ViewWindowEntry& Entry(ViewWindowTable& table, int window) { return table.Windows[static_cast<std::size_t>(window)]; }

// Makes a window current with its own view; the drawn list follows its box.
void LoadWindow(Model& model, display::DisplayState& ds, ViewWindowTable& table, int window) {
    table.CurWin = window;
    ds.WindowCurrent = true;
    ds.WindowFrozen = Entry(table, window).Frozen;
    if (Entry(table, window).StateSaved) {
        display::LoadViewFromSlot(model, ds, display::WindowSlot(window));
        display::BuildDrawnList(model, ds);
    }
}

} // namespace

void SaveCurrentWindowState(Model& model, const display::DisplayState& ds, ViewWindowTable& table) {
    if (!table.IsOpen(table.CurWin)) return;
    display::SaveViewToSlot(model, ds, display::WindowSlot(table.CurWin));
    Entry(table, table.CurWin).StateSaved = true;
}

bool ActivateViewWindow(Model& model, display::DisplayState& ds, ViewWindowTable& table, int window) {
    if (!table.IsOpen(window) || window == table.CurWin || table.Switching) return false;
    SaveCurrentWindowState(model, ds, table);
    LoadWindow(model, ds, table, window);
    return true;
}

int NumberForNewWindow(const ViewWindowTable& table, ui::UserInterface& ui) {
    const int n = table.FirstFree();
    if (n < 0) ui.Message("Too many windows", ProgramName, ui::Icon::Exclamation);
    return n;
}

bool EnterNewWindow(Model& model, display::DisplayState& ds, ViewWindowTable& table, int window) {
    if (window < 0 || window >= MaxViewWindows) return false;
    const int old = table.CurWin;
    ViewWindowEntry& entry = Entry(table, window);
    entry = ViewWindowEntry{};
    entry.Open = true;
    if (!table.IsOpen(old)) {
        table.CurWin = window;
        ds.WindowCurrent = true;
        ds.WindowFrozen = false;
        return true;
    }
    SaveCurrentWindowState(model, ds, table);
    display::CopyViewSlot(model, display::WindowSlot(old), display::WindowSlot(window));
    entry.StateSaved = true;
    entry.Caption = Entry(table, old).Caption;
    LoadWindow(model, ds, table, window);
    return false;
}

void ShareCurrentView(Model& model, const display::DisplayState& ds, ViewWindowTable& table) {
    if (!table.IsOpen(table.CurWin)) return;
    SaveCurrentWindowState(model, ds, table);
    for (int n = 0; n < MaxViewWindows; ++n) {
        if (n == table.CurWin || !table.IsOpen(n)) continue;
        display::CopyViewSlot(model, display::WindowSlot(table.CurWin), display::WindowSlot(n));
        Entry(table, n).StateSaved = true;
    }
}

int CloseViewWindow(Model& model, display::DisplayState& ds, ViewWindowTable& table, int window) {
    if (!table.IsOpen(window)) return table.CurWin;
    const bool wasCurrent = window == table.CurWin;
    Entry(table, window) = ViewWindowEntry{};
    if (!wasCurrent && table.IsOpen(table.CurWin)) return table.CurWin;
    const int next = table.HighestOpen();
    table.CurWin = -1;
    if (next < 0) {
        ds.WindowCurrent = false;
        return -1;
    }
    LoadWindow(model, ds, table, next);
    return next;
}

FreezeChange ToggleFreeze(Model& model, display::DisplayState& ds, ViewWindowTable& table, ui::UserInterface& ui) {
    FreezeChange change;
    const int frozen = table.FirstFrozen();
    if (frozen >= 0) {
        Entry(table, frozen).Frozen = false;
        if (frozen == table.CurWin) ds.WindowFrozen = false;
        change.Window = frozen;
        change.Frozen = false;
        change.NewCurrent = table.CurWin;
        return change;
    }
    const int other = table.FirstOtherOpen(table.CurWin);
    if (!table.IsOpen(table.CurWin) || other < 0) {
        ui.Message("Cannot freeze when only one window is present !", "Freeze error", ui::Icon::Exclamation);
        return change;
    }
    const int window = table.CurWin;
    SaveCurrentWindowState(model, ds, table);
    Entry(table, window).Frozen = true;
    LoadWindow(model, ds, table, other);
    change.Window = window;
    change.Frozen = true;
    change.NewCurrent = other;
    return change;
}

} // namespace karvane::edit
