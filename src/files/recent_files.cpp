// The recent file list: the settings store, the one-time migration of Karvane.old, and the
// captions of the File menu.
#include "files/recent_files.h"

#include <filesystem>
#include <utility>

#include "files/app_files.h"
#include "files/text_file.h"

namespace karvane::files {
namespace {

std::string KeyOf(int i) { return "Name" + std::to_string(i); }

void EnsureRows(Model& model) {
    if (model.RecentFiles.size() < RecentFileCount + 1) model.RecentFiles.resize(RecentFileCount + 1);
}

} // namespace

void LoadRecentFiles(Model& model, ui::UserInterface& ui) {
    EnsureRows(model);
    const std::string oldList = AppFile(ui, OldRecentFileName);
    std::error_code ec;
    if (std::filesystem::exists(oldList, ec)) {
        TextFileReader in;
        if (in.Open(oldList) != err::None) {
            ui.Message("Error loading old file locations", ProgramName, ui::Icon::Exclamation);
            return;
        }
        std::string line;
        for (int i = 1; i <= 4 && in.ReadLine(line); ++i) model.RecentFiles[i] = TrimText(line);
        std::filesystem::remove(oldList, ec);
        SaveRecentFiles(model, ui); // the old file is gone: keep its list in the store at once
        return;
    }
    for (int i = 1; i <= RecentFileCount; ++i)
        model.RecentFiles[i] = ui.GetSetting(StoreApp, FilesSection, KeyOf(i), "");
}

void SaveRecentFiles(const Model& model, ui::UserInterface& ui) {
    for (int i = 1; i <= RecentFileCount; ++i) {
        const std::string value = i < static_cast<int>(model.RecentFiles.size()) ? model.RecentFiles[i] : "";
        ui.SaveSetting(StoreApp, FilesSection, KeyOf(i), value);
    }
}

void TouchRecentFile(Model& model, ui::UserInterface& ui, const std::string& path, bool search) {
    EnsureRows(model);
    auto& list = model.RecentFiles;
    int found = 0;
    if (search)
        for (int i = 1; i <= RecentFileCount && found == 0; ++i)
            if (list[i] == path) found = i;
    if (found > 0) {
        for (int i = found; i > 1; --i) list[i] = list[i - 1];
    } else if (path != list[1]) {
        for (int i = RecentFileCount; i > 1; --i) list[i] = list[i - 1]; // the oldest falls off
    }
    list[1] = path;
    SaveRecentFiles(model, ui);
}

std::string ShortenedPath(const std::string& path) {
    if (path.size() <= 19) return path;
    std::size_t slash = path.find_last_of("\\/");
    if (slash == std::string::npos) return path;
    return path.substr(0, 11) + ".." + path.substr(slash);
}

std::array<RecentMenuEntry, RecentFileCount + 1> BuildRecentMenu(const Model& model) {
    std::array<RecentMenuEntry, RecentFileCount + 1> menu{};
    for (int i = 1; i <= RecentFileCount; ++i) {
        const std::string path = i < static_cast<int>(model.RecentFiles.size()) ? model.RecentFiles[i] : "";
        std::string caption = "&";
        caption += std::to_string(i);
        caption += ' ';
        caption += ShortenedPath(path);
        menu[i].Caption = std::move(caption);
        menu[i].Visible = !path.empty();
    }
    return menu;
}

} // namespace karvane::files
