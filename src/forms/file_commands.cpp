// The File menu's commands round a network file.
#include "forms/file_commands.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "files/network_file.h"
#include "files/recent_files.h"
#include "model/network_rows.h"
#include "simulate/run.h"

namespace karvane::forms {

namespace {

bool EndsWithNoCase(const std::string& text, const std::string& tail) {
    if (text.size() < tail.size()) return false;
    return std::equal(tail.rbegin(), tail.rend(), text.rbegin(), [](char a, char b) {
        return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
    });
}

bool Load(Model& model, ui::UserInterface& ui, FileCommandHost& host, const std::string& path, bool recovery) {
    host.BeforeLoad();
    ui.SetBusy(true);
    model.MasterFile = IsMasterFileName(path);
    files::LoadReport report;
    files::LoadOptions options;
    options.Recovery = recovery;
    options.Report = &report;
    const bool read = files::LoadNetwork(model, path, ui, options);
    ui.SetBusy(false);
    host.RecentFilesChanged();
    host.AfterLoad(report);
    host.TitleChanged();
    return read;
}

} // namespace

bool IsNetworkFileName(const std::string& path) { return EndsWithNoCase(path, ".SIM") || IsMasterFileName(path); }

bool IsMasterFileName(const std::string& path) { return EndsWithNoCase(path, ".SMM"); }

std::string CommandLineFile(std::string argument) {
    if (argument.size() > 3 && argument.front() == '"' && argument.back() == '"')
        argument = argument.substr(1, argument.size() - 2);
    return IsNetworkFileName(argument) ? argument : std::string();
}

bool AskToKeepChanges(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    if (model.NetworkSaved != No0) return true;
    const ui::Answer answer =
        ui.Ask("Network Data is not saved - Save it?", ProgramName, ui::Buttons::YesNoCancel, ui::Icon::Question);
    if (answer == ui::Answer::Cancel) return false;
    if (answer == ui::Answer::Yes) SaveAsCommand(model, ui, host);
    return true;
}

bool NewNetworkCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    if (!TrimText(model.FileName).empty() || model.AirwayCount != 0) {
        if (ui.Ask("Current Data will be lost ?", "Data Exists", ui::Buttons::OKCancel, ui::Icon::Question) !=
            ui::Answer::OK)
            return false;
    }
    host.BeforeLoad();
    model.FileName.clear();
    model.MasterFile = false;
    ClearNetwork(model);
    SetNewNetworkLevels(model);
    model.FileNote.clear();
    model.AirwayCount = 0;
    model.NetworkSaved = Yes255;
    simulate::InvalidateSimulation(model);
    files::LoadFanDatabase(model, ui);
    host.AfterNewNetwork();
    host.TitleChanged();
    return true;
}

bool OpenCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    if (!AskToKeepChanges(model, ui, host)) return false;
    files::LoadReport report;
    files::LoadOptions options;
    options.Report = &report;
    host.BeforeLoad();
    const bool read = files::OpenNetworkDialog(model, ui, options);
    if (report.NetworkChanged) {
        model.MasterFile = IsMasterFileName(model.FileName);
        host.RecentFilesChanged();
        host.AfterLoad(report);
        host.TitleChanged();
    }
    return read;
}

bool RecentFileCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host, int entry) {
    if (entry < 1 || entry > RecentFileCount) return false;
    const std::string path = model.RecentFiles[static_cast<std::size_t>(entry)];
    if (TrimText(path).empty()) return false;
    if (!AskToKeepChanges(model, ui, host)) return false;
    return Load(model, ui, host, path, false);
}

bool LoadNamedFile(Model& model, ui::UserInterface& ui, FileCommandHost& host, const std::string& path) {
    if (path.empty()) return false;
    return Load(model, ui, host, path, false);
}

namespace {

// The save of a network under the name it has, with the windows told before and after.
bool SaveUnderItsName(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    host.BeforeSave();
    const bool saved = files::SaveNetwork(model, ui, 0);
    host.AfterSave();
    host.RecentFilesChanged();
    host.TitleChanged();
    return saved;
}

} // namespace

bool SaveCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    if (TrimText(model.FileName).empty() || IsMasterFileName(model.FileName)) return SaveAsCommand(model, ui, host);
    return SaveUnderItsName(model, ui, host);
}

bool SaveAsCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    std::string stem = model.FileName;
    std::string extension;
    if (IsNetworkFileName(stem)) {
        extension = stem.substr(stem.size() - 4);
        stem.resize(stem.size() - 4);
    }
    ui::FileDialogRequest request;
    request.Title = "Save As";
    request.Filter = SaveAsFilter;
    request.DefaultExtension = "sim";
    request.FileName = stem;
    const std::optional<std::string> choice = ui.SaveFileDialog(request);
    if (!choice) {
        model.FileName = stem + extension;
        return false;
    }
    if (TrimText(*choice).empty()) {
        ui.Message("Error Save File - Check Name", ProgramName, ui::Icon::Exclamation);
        model.FileName = stem + extension;
        return false;
    }
    model.FileName = *choice;
    model.MasterFile = IsMasterFileName(*choice);
    host.TitleChanged();
    return SaveUnderItsName(model, ui, host);
}

void MergeCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    const std::int32_t before = model.AirwayCount;
    const std::string name = model.FileName;
    files::MergeNetwork(model, ui);
    host.RecentFilesChanged();
    if (model.AirwayCount != before || model.FileName != name) host.AfterMerge();
    host.TitleChanged();
}

std::string RecoveryFilePath(ui::UserInterface& ui) {
    return (std::filesystem::path(ui.TempPath()) / files::AutosaveFileName).string();
}

bool OfferRecovery(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    const std::string path = RecoveryFilePath(ui);
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) return false;
    if (ui.Ask("An autosaved recovery file exists - do you wish to load this file", "Auto save recovery",
               ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes)
        return false;
    Load(model, ui, host, path, true);
    // The recovered network has no name: a save asks for one.
    model.FileName.clear();
    model.MasterFile = false;
    host.TitleChanged();
    return true;
}

bool ConfirmEnd(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    if (model.NetworkSaved == No0) {
        const ui::Answer answer =
            ui.Ask("Karvane data is not saved - Save it?", ProgramName, ui::Buttons::YesNoCancel, ui::Icon::Question);
        if (answer == ui::Answer::Cancel) return false;
        if (answer == ui::Answer::Yes && !SaveCommand(model, ui, host)) return false;
    }
    if (model.DefaultsSaved == No0) {
        const ui::Answer answer = ui.Ask("Karvane defaults are not saved - Save them?", ProgramName,
                                         ui::Buttons::YesNoCancel, ui::Icon::Question);
        if (answer == ui::Answer::Cancel) return false;
        if (answer == ui::Answer::Yes) {
            if (!files::SaveDefaultsFile(model, ui)) return false;
            model.DefaultsSaved = Yes255;
        }
    }
    return true;
}

void FinishEnd(Model& model, ui::UserInterface& ui) {
    files::SaveRecentFiles(model, ui);
    std::error_code ec;
    std::filesystem::remove(RecoveryFilePath(ui), ec);
}

void TitleNoteCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host) {
    const std::string offered = TrimText(model.FileComment).empty() ? std::string("Karvane File") : model.FileComment;
    const std::optional<std::string> answer = ui.Input("Enter Note for Title Bar", "File Comment", offered);
    model.FileComment = answer.value_or(std::string());
    if (model.FileComment.find('"') != std::string::npos) {
        ui.Message("Invalid comment text", ProgramName, ui::Icon::Exclamation);
        model.FileComment.clear();
    } else if (model.FileComment.find(',') != std::string::npos) {
        ui.Message("Commas not allowed in comment !", ProgramName, ui::Icon::Exclamation);
        model.FileComment.clear();
    }
    host.TitleChanged();
}

} // namespace karvane::forms
