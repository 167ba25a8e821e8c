// Run > Study...: a study file read against a copy of the network on screen and run in its own
// window in the background; a double click there opens a scenario's balanced network by the
// road of Open.
#include <fstream>
#include <iterator>
#include <memory>

#include "dialogs/study_window.h"
#include "forms/file_commands.h"
#include "shell/main_window.h"

namespace karvane::shell {

void MainWindow::ShowStudy() {
    ui::FileDialogRequest request;
    request.Title = "Open Study";
    request.Filter = "Study files (*.txt);;All files (*)";
    request.DefaultExtension = "txt";
    const std::optional<std::string> path = ui_.OpenFileDialog(request);
    if (!path || path->empty()) return;
    std::ifstream in(*path, std::ios::binary);
    if (!in) {
        ui_.Message("Cannot read the study " + *path, "Study", ui::Icon::Critical);
        return;
    }
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // The scenarios start from a copy: the network on screen stays free to edit meanwhile.
    auto base = std::make_shared<const Model>(*model_);
    script::Study study;
    if (const std::string fault = script::ReadStudy(text, *base, study); !fault.empty()) {
        ui_.Message(*path + ": " + fault, "Study", ui::Icon::Critical);
        return;
    }
    script::StudyOptions options;
    options.TempPath = ui_.TempPath();
    options.AppPath = ui_.AppPath();
    options.Clock = ui_.Now();
    auto* window = new dialogs::StudyWindow(std::move(base), std::move(study), std::move(options),
                                            QString::fromStdString(*path), this);
    connect(window, &dialogs::StudyWindow::OpenNetwork, this, [this](const QString& saved) {
        if (!forms::AskToKeepChanges(*model_, ui_, *this)) return;
        if (!forms::LoadNamedFile(*model_, ui_, *this, saved.toStdString())) return;
        // The balanced copy lives in the study's temporary folder, which goes with its window:
        // the network opened has no name, so a save asks for one.
        model_->FileName.clear();
        model_->MasterFile = false;
        TitleChanged();
    });
    window->show();
    window->Start();
}

} // namespace karvane::shell
