// A headless session of the program: one network, one view window of a fixed size, the tool
// dispatcher, the undo log, and the hosts that the tools, the editing tools and the main
// window commands need, without a screen. It runs a script of the user's actions through the
// same entry points as the desktop program: RunToolCommand, OnMouseDown/Move/Up, OnKeyDown,
// the menu commands by name, and the forms by their controls.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "commands/command_host.h"
#include "display/mapped_surface.h"
#include "display/startup_view.h"
#include "edit/edit_host.h"
#include "edit/edit_tools.h"
#include "edit/find.h"
#include "edit/pick_tools.h"
#include "edit/tool_dispatch.h"
#include "edit/view_windows.h"
#include "files/network_load.h"
#include "files/undo_log.h"
#include "forms/scriptable_form.h"
#include "script/script_reader.h"
#include "script/script_ui.h"

namespace karvane::script {

inline constexpr int DefaultWindowWidth = 800;
inline constexpr int DefaultWindowHeight = 600;

class Session : public edit::ToolHost, public edit::EditHost, public commands::CommandHost, public edit::FinderHost {
public:
    // A session over the model as it stands (a network loaded, or none). Every message goes to
    // `ui`; questions take the script's queued answers first. The undo log opens in the
    // temporary folder ("Error loading UNDO file" when it cannot, and the session goes on).
    Session(Model& model, ui::UserInterface& ui);
    ~Session() override;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // The view window shows the network as the desktop program shows one just loaded: the
    // start-up view of the file, or the whole network fitted.
    void ShowNetwork(const files::LoadReport& report);
    // Loads a network file as File Open does, and shows it. False when nothing was read.
    bool LoadFile(const std::string& path);

    // Runs the lines in order. A line that cannot be carried out stops the script; the result
    // is then "line N: " and the reason, and no `save` line has written its file. Empty when
    // every line ran and every save was written.
    std::string Run(const ScriptText& script);
    // Reads and runs a script text.
    std::string RunText(std::string_view text);

    Model& model() { return m_; }
    display::DisplayState& display() { return *ds_; }
    edit::ToolDispatcher& dispatcher() { return *dispatcher_; }
    files::UndoLog& undo() { return undo_; }
    ui::UserInterface& userInterface() { return ui_; }
    commands::CommandContext& commandContext() { return context_; }
    // Where a find or the follow tool took the view: the airway ShowAirway centred and the
    // level it chose. OnShown, when set, hears of each as it happens.
    struct ShownAirway {
        std::int32_t Row = 0, AirwayNo = 0;
        std::string Level; // the name of the level shown, empty when no single level is shown
        bool LevelAdded = false;
    };
    const std::vector<ShownAirway>& Shown() const { return shown_; }
    std::function<void(const ShownAirway&)> OnShown;
    // The line a command-line run prints for it.
    static std::string ShownLine(const ShownAirway& shown);

    // The window point of a world point in the current view (axis signs applied).
    std::pair<float, float> WindowPoint(const ScriptPoint& p);

    // edit::ToolHost
    display::Surface* CurrentSurface() override { return surface_.get(); }
    void Redraw() override { RedrawWindow(); }
    void RedrawAll() override { RedrawAllWindows(); }
    void ShowViewStatus() override {}
    void ShowToolState(int) override {}
    void SetViewCursor(const std::string&) override {}
    void StartPowerZoomTimer(int) override { powerZoom_ = true; }
    void StopPowerZoomTimer() override { powerZoom_ = false; }
    void StopRotationTimer() override {}
    void SaveWindowState() override;
    void MakeWindowCurrent(int) override {}
    void FocusWindow(int) override {}
    void RunCommand(int value) override;
    void StepLevel(int step) override;
    bool CommandAvailable(int value) const override;
    void CommandUnavailable(int value) override;
    void ToolPress(const edit::ToolEvent& event) override;
    void ToolRelease(const edit::ToolEvent& event) override;
    void ShowPopup(std::int32_t, float, float) override {}
    void HidePopup() override {}
    bool CoordinateDialogOpen() const override { return editTools_ && editTools_->CoordinateDialogOpen(); }

    // edit::EditHost
    std::optional<edit::CoordsResult> ShowCoords(const edit::CoordsRequest& request) override;
    void ShowAirwayEditor(std::int32_t row, int mode) override;
    bool ShowFanDialog(std::int32_t row) override;
    void ShowAirwayInfo(std::int32_t row) override;
    void QuickUpdateAllWindows() override { RedrawWindow(); }
    void RedrawWindow() override;
    void RedrawAllWindows() override { RedrawWindow(); }

    // edit::FinderHost
    void ShowAirwayRow(std::int32_t row, float pickFraction) override;

    // commands::CommandHost
    bool ViewWindowOpen() const override { return !ds_->WindowFrozen; }
    void AfterLevelChange() override;
    void RunToolCommand(int value) override { dispatcher_->RunToolCommand(value); }
    void Troubleshoot(RunMode mode) override;
    bool OpenForm(const std::string& menuName) override;
    void AfterLoad(const files::LoadReport& report) override;
    void AfterMerge() override;
    void AfterNewNetwork() override;
    void BeforeSave() override;

private:
    class Hooks;

    void Execute(const ScriptLine& line);
    void Fail(const std::string& reason);
    bool Failed() const { return !error_.empty(); }
    void SetWindow(int width, int height);
    void SetView(const ScriptLine& line);
    void SetBox(const ScriptLine& line);
    void SetLevel(const ScriptLine& line);
    void Mouse(const ScriptLine& line);
    void FormLine(const ScriptLine& line);
    void AirwayLine(const ScriptLine& line); // set and select
    void Save(const std::string& path);
    void AfterRun();
    // Runs a form modally: the script lines that follow and act on a form go to it until it
    // closes; any other line closes it by its frame's close box.
    bool RunForm(std::unique_ptr<forms::ScriptableForm> form);
    bool OpenNamedForm(const std::string& name, std::int32_t row = 0, int mode = 0);
    void FinishSaves(bool commit);

    Model& m_;
    ScriptUserInterface ui_;
    std::unique_ptr<display::DisplayState> ds_;
    std::unique_ptr<display::NullSurface> surface_;
    edit::ViewWindowTable windows_;
    files::UndoLog undo_;
    std::unique_ptr<Hooks> hooks_;
    std::unique_ptr<edit::ToolDispatcher> dispatcher_;
    std::unique_ptr<edit::PickTools> pickTools_;
    std::unique_ptr<edit::EditTools> editTools_;
    std::vector<ShownAirway> shown_;
    commands::CommandContext context_;

    // The script in progress.
    const ScriptText* script_ = nullptr;
    std::size_t next_ = 0;
    const ScriptLine* current_ = nullptr;
    std::string error_;
    std::deque<ScriptLine> coords_;
    forms::ScriptableForm* form_ = nullptr; // the form open in RunForm
    int held_ = 0;                          // the button held since the press
    bool powerZoom_ = false;
    struct PendingSave {
        std::string Path, Temp;
    };
    std::vector<PendingSave> saves_;
};

} // namespace karvane::script
