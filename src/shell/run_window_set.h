// The windows a run shows, owned together: the progress window with its Cancel, the network
// error list with Goto, and the windows of the contaminant runs (the smoke simulation window,
// the spread's legend and the sourcing's trace). The Qt user interface reports a run's
// progress to them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "contaminant/spread.h"
#include "model/model.h"
#include "shell/qt_user_interface.h"
#include "ui/user_interface.h"

class QWidget;

namespace karvane::dialogs {
class SmokeWindow;
class SmokeLegendWindow;
class SmokeTraceWindow;
} // namespace karvane::dialogs

namespace karvane::shell {

class ErrorListWindow;
class SimulationWindow;

class RunWindowSet : public ProgressSink {
public:
    // What the windows' buttons need of the main window: its run guard, its redraws and lists
    // after a run, the search of an airway and the tool bar's commands.
    class Owner {
    public:
        virtual ~Owner() = default;
        virtual bool RunActive() const = 0;
        // While a run goes on no other command may change the network under it.
        virtual void SetRunActive(bool active) = 0;
        virtual void AfterRun() = 0;
        virtual void RedrawWindow() = 0;
        virtual void RedrawAllWindows() = 0;
        virtual void ShowSimIndicator() = 0;
        virtual void GotoAirway(std::int32_t airwayNo) = 0;
        virtual void RunToolCommand(int value) = 0;
        // The data types shown before a contaminant result took over the lists.
        virtual void RestoreDataTypes() = 0;
        // The undo log and redraws of runs and spreads.
        virtual contaminant::SpreadHooks* RunHooks() = 0;
    };

    // The windows stand over main.
    RunWindowSet(QWidget& main, Model& model, ui::UserInterface& ui, Owner& owner);

    SimulationWindow* Progress() const { return progress_; }
    ErrorListWindow* Errors() const { return errors_; }
    dialogs::SmokeWindow* Smoke() const { return smoke_; }
    dialogs::SmokeLegendWindow* Legend() const { return legend_; }
    dialogs::SmokeTraceWindow* Trace() const { return trace_; }

    // The error list of the last run, filled and shown at the right of the main window, or
    // hidden when the run left none.
    void ShowErrorList();
    void HideErrorList();
    // Run > Smoke Simulation: the smoke window, in the middle of the main window.
    void OpenSmoke();
    // After a sourcing run that shows its trace: the trace window at the bottom right.
    void ShowTrace();
    // The legends and the smoke window close; the data types come back when a legend stood.
    void CloseSmokeWindows();
    bool LegendOrTraceShown() const;
    // At the end of the program: the legends first, the progress windows once the end is sure.
    void HideLegends();
    void HideProgressWindows();

    // What a spread asks of its windows.
    void HideSmokeWindow();
    void ShowLegend();
    void LegendChanged();
    void CloseLegend();

    // ProgressSink
    void ProgressOpen() override;
    void ProgressClose() override;
    void ProgressCaption(const std::string& caption) override;
    void ProgressPercent(int percent) override;
    void ProgressAttempt(const std::string& text) override;
    void ProgressError(const std::string& text) override;
    void ProgressBox(const std::string& box, const std::string& text) override;

    // Called at each step of a run's progress bar (tests and the program's own screenshots).
    std::function<void(int)> ProgressObserver;

private:
    void ConnectSmoke();
    void ConnectTrace();

    QWidget& main_;
    Model& model_;
    ui::UserInterface& ui_;
    Owner& owner_;
    SimulationWindow* progress_;
    ErrorListWindow* errors_;
    dialogs::SmokeWindow* smoke_;
    dialogs::SmokeLegendWindow* legend_;
    dialogs::SmokeTraceWindow* trace_;
};

} // namespace karvane::shell
