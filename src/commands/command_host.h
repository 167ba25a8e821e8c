// What the main window commands need of the program around them: the view windows' redraws,
// the lists, labels and ticks of the main window, the forms that commands open, the tool bar
// commands and the runs with their windows. The desktop program and the script of the user's
// actions both implement it, so that a command acts the same with and without a window.
#pragma once

#include <cstdint>
#include <string>

#include "contaminant/spread.h"
#include "display/view_state.h"
#include "edit/find.h"
#include "files/undo_log.h"
#include "forms/file_commands.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::commands {

class CommandHost : public forms::FileCommandHost {
public:
    // A current view window is open and not frozen: the commands on the view act on it.
    virtual bool ViewWindowOpen() const = 0;
    // The current window's drawing area into the display state, before its view is rebuilt.
    virtual void PrepareCurrentView() {}
    virtual void RedrawWindow() = 0;
    virtual void RedrawAllWindows() = 0;
    // The current window's view kept in its slot.
    virtual void SaveWindowState() {}
    // The lists and labels of the tool bar, the title and the menu ticks, from the model.
    virtual void RefreshControls() {}
    virtual void RefreshMenuTicks() {}
    // The saved view list (CmbView) after the views changed.
    virtual void RefreshViewList() {}
    // After the level selection changed: the level list, the display list and a redraw.
    virtual void AfterLevelChange() = 0;
    // The settings changed (defaults reloaded): timers and ticks follow them.
    virtual void SettingsChanged() {}
    // A tool bar command value (RunToolCommand): the menu entries of the tools, Fit, Grid,
    // Deselect, the runs of the tool bar.
    virtual void RunToolCommand(int value) = 0;
    // An airflow run in a troubleshooting mode, with its progress and error windows.
    virtual void Troubleshoot(RunMode mode) = 0;
    // Opens the form of a menu entry (mnuFanData, mnuSummary, ...). False when this host has no
    // such form; the command then tells the user.
    virtual bool OpenForm(const std::string& menuName) = 0;
};

// The hooks of runs and spreads that log to the undo log: the rows a run turns round are one
// undo step. Hosts add their redraws and windows.
class UndoLogHooks : public contaminant::SpreadHooks {
public:
    UndoLogHooks(files::UndoLog& undo, ui::UserInterface& ui) : undo_(undo), ui_(ui) {}
    void LogAirway(Model& model, std::int32_t row, int action) override {
        undo_.LogAirway(model, ui_, row, action, undo_.CurrentStep);
    }
    void EndUndoStep() override {
        if (undo_.CurrentStep < UndoCapacity) ++undo_.CurrentStep;
    }

private:
    files::UndoLog& undo_;
    ui::UserInterface& ui_;
};

// Everything a command works on.
struct CommandContext {
    Model& M;
    display::DisplayState& Ds;
    ui::UserInterface& Ui;
    files::UndoLog& Undo;
    CommandHost& Host;
    contaminant::SpreadHooks* Hooks = nullptr; // the undo log and redraws of runs and spreads
    edit::FinderHost* Finder = nullptr;        // where the finds show the airway they found
};

} // namespace karvane::commands
