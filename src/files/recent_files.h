// What lies round a network file: the list of the last nine files in the per-user settings
// store, their captions in the File menu, and the tick rule of the autosave timer.
#pragma once

#include <array>
#include <string>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

// The per-user settings store: application "Karvane", section "Files".
inline constexpr const char* StoreApp = "Karvane";
inline constexpr const char* FilesSection = "Files";
// An older list kept in the program folder, taken over once and then deleted.
inline constexpr const char* OldRecentFileName = "Karvane.old";

// Fills model.RecentFiles: from Karvane.old when it exists (its first 4 lines, then the file is
// deleted and the list goes to the store), else from the keys "Name1" to "Name9".
void LoadRecentFiles(Model& model, ui::UserInterface& ui);
// Writes the nine keys. The front end rebuilds the menu from BuildRecentMenu afterwards.
void SaveRecentFiles(const Model& model, ui::UserInterface& ui);
// Moves `path` to the front of the list and saves the list. With `search` false (the recovery
// file) an existing entry is not looked for.
void TouchRecentFile(Model& model, ui::UserInterface& ui, const std::string& path, bool search = true);

// One entry of the File menu's list: "&", the number, a blank and the shown text; hidden when
// the entry is empty, while keeping its number.
struct RecentMenuEntry {
    std::string Caption;
    bool Visible = false;
};
// The text shown for a path: whole up to 19 characters, else its first 11 characters, ".." and
// the rest from the last folder separator on.
std::string ShortenedPath(const std::string& path);
// Entries 1..9; [0] unused.
std::array<RecentMenuEntry, RecentFileCount + 1> BuildRecentMenu(const Model& model);

// The autosave timer ticks every AutosaveMinutes x 6000 ms; every 11th tick writes the copy, so
// a copy is made about every 1.1 x AutosaveMinutes minutes.
class AutosaveTicker {
public:
    // Counts one tick; true when this tick is the one that writes the autosave copy.
    bool Tick() {
        if (++ticks_ > 10) {
            ticks_ = 0;
            return true;
        }
        return false;
    }
    int Ticks() const { return ticks_; }
    void Reset() { ticks_ = 0; }

private:
    int ticks_ = 0;
};

} // namespace karvane::files
