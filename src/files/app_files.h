// The program's own files: where they live (the program folder that the user interface names)
// and how their lines are cut.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "files/number_text.h"
#include "ui/user_interface.h"

namespace karvane::files {

// The full path of one of the program's files (Defaults.dat, fansdata.dat, ...).
inline std::string AppFile(ui::UserInterface& ui, std::string_view name) {
    std::string folder = ui.AppPath();
    if (folder.empty()) return std::string(name);
    return (std::filesystem::path(folder) / std::filesystem::path(name)).string();
}

// The program's own files (conversion table, station list) are cut at tabs alone, every byte
// of a text kept; numbers read under either decimal separator anyway.
inline void SplitTabs(std::string_view line, Fields& fields) { SplitFields(3.1, line, fields); }

} // namespace karvane::files
