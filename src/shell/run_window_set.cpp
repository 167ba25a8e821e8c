// The windows of the runs and what their buttons do: Cancel asks the run to stop, Goto finds
// the airway of an error, the smoke window and the legend run and show a spread, the trace
// window shows a sourcing and places its pins.
#include "shell/run_window_set.h"

#include <QPushButton>
#include <QWidget>

#include "contaminant/colours.h"
#include "contaminant/sourcing.h"
#include "dialogs/smoke_windows.h"
#include "edit/tool_table.h"
#include "shell/run_windows.h"
#include "simulate/run.h"

namespace karvane::shell {

RunWindowSet::RunWindowSet(QWidget& main, Model& model, ui::UserInterface& ui, Owner& owner)
    : main_(main),
      model_(model),
      ui_(ui),
      owner_(owner),
      progress_(new SimulationWindow(&main)),
      errors_(new ErrorListWindow(&main)),
      smoke_(new dialogs::SmokeWindow(&main)),
      legend_(new dialogs::SmokeLegendWindow(ui.DecimalSeparator(), &main)),
      trace_(new dialogs::SmokeTraceWindow(&main)) {
    progress_->OnCancel = [this] {
        // The run sees the request at its next test; the views come back at once.
        model_.StopFlag = StopRequest::Stop;
        owner_.RedrawWindow();
    };
    errors_->OnGoto = [this](std::int32_t n) { owner_.GotoAirway(n); };
    errors_->OnCancel = [this] {
        model_.StopFlag = StopRequest::Stop;
        progress_->hide();
        owner_.RedrawWindow();
    };
    ConnectSmoke();
    ConnectTrace();
}

void RunWindowSet::ShowErrorList() {
    if (!model_.Run.ErrorListOpen) {
        errors_->hide();
        return;
    }
    errors_->Fill(model_.ErrorList, model_.Run.ErrorListCaption.empty() ? std::string(simulate::ErrorListTitle)
                                                                        : model_.Run.ErrorListCaption);
    if (!errors_->isVisible()) {
        const QRect frame = main_.frameGeometry();
        errors_->move(frame.right() - errors_->width() - 24, frame.top() + 120);
    }
    errors_->show();
    errors_->raise();
}

void RunWindowSet::HideErrorList() { errors_->hide(); }

void RunWindowSet::OpenSmoke() {
    if (model_.GasActive == GasDisplay::Spread) {
        ui_.Message("Contaminant must be cleared before simulating", ProgramName, ui::Icon::Exclamation);
        return;
    }
    ui_.SetBusy(true);
    smoke_->ClearBoxes();
    if (!smoke_->isVisible()) {
        const QRect frame = main_.frameGeometry();
        smoke_->adjustSize();
        smoke_->move(frame.center() - QPoint(smoke_->width() / 2, smoke_->height() / 2));
    }
    smoke_->show();
    smoke_->raise();
    ui_.SetBusy(false);
}

void RunWindowSet::ConnectSmoke() {
    smoke_->OnSimulate = [this](bool retain) {
        if (owner_.RunActive()) return;
        owner_.SetRunActive(true);
        contaminant::RunContaminantSpread(model_, ui_, owner_.RunHooks(), retain);
        owner_.SetRunActive(false);
        smoke_->hide();
        owner_.AfterRun();
    };
    smoke_->OnCancel = [this] {
        contaminant::CancelSpread(model_, owner_.RunHooks());
        owner_.RedrawAllWindows();
    };
    legend_->OnThresholds = [this](const std::array<std::string, ThresholdCount>& texts) {
        contaminant::ReadThresholds(model_, texts);
        owner_.RedrawWindow();
    };
    legend_->OnSliderRest = [this](int value) {
        contaminant::SetSpreadLimit(model_, value);
        owner_.RedrawWindow();
    };
    legend_->OnToggleSmoke = [this] {
        if (model_.GasActive != GasDisplay::None) {
            model_.GasActive = GasDisplay::None;
            legend_->SetSmokeShown(false);
        } else {
            model_.GasActive = GasDisplay::Spread;
            legend_->SetSmokeShown(true);
            smoke_->show();
            ui_.SetBusy(true);
            owner_.SetRunActive(true);
            contaminant::RunContaminantSpread(model_, ui_, owner_.RunHooks(), smoke_->RetainLegend());
            owner_.SetRunActive(false);
            ui_.SetBusy(false);
            smoke_->hide();
        }
        owner_.RedrawAllWindows();
        owner_.ShowSimIndicator();
    };
    legend_->OnClearSources = [this] {
        if (contaminant::ClearSources(model_, ui_)) owner_.RedrawWindow();
    };
    auto exit = [this] {
        model_.Smoke.SpreadLimit = 0;
        model_.GasActive = GasDisplay::None;
        legend_->hide();
        owner_.RestoreDataTypes();
        owner_.RedrawAllWindows();
    };
    legend_->OnExit = exit;
    legend_->OnClosed = exit;
}

void RunWindowSet::ShowTrace() {
    legend_->hide();
    trace_->SimButton()->setText(QStringLiteral("Clear Trace"));
    dialogs::PlaceAtBottomRight(trace_, &main_);
    trace_->show();
    trace_->raise();
}

void RunWindowSet::ConnectTrace() {
    trace_->OnClearPins = [this] {
        if (contaminant::ClearPins(model_, ui_)) owner_.RedrawAllWindows();
    };
    trace_->OnExit = [this] {
        model_.GasActive = GasDisplay::None;
        trace_->hide();
        owner_.RedrawAllWindows();
    };
    trace_->OnToggleTrace = [this] {
        if (model_.GasActive != GasDisplay::None) {
            model_.GasActive = GasDisplay::None;
            trace_->SetTraceShown(false);
        } else {
            model_.GasActive = GasDisplay::Sourcing;
            trace_->SetTraceShown(true);
        }
        owner_.RedrawAllWindows();
    };
    trace_->OnPinTool = [this](int pin) {
        model_.Smoke.PinType = static_cast<std::int16_t>(pin);
        owner_.RunToolCommand(edit::cmd::Pins);
    };
}

void RunWindowSet::CloseSmokeWindows() {
    const bool legend = legend_->isVisible();
    legend_->hide();
    trace_->hide();
    smoke_->hide();
    if (legend) owner_.RestoreDataTypes();
}

bool RunWindowSet::LegendOrTraceShown() const { return legend_->isVisible() || trace_->isVisible(); }

void RunWindowSet::HideLegends() {
    legend_->hide();
    trace_->hide();
}

void RunWindowSet::HideProgressWindows() {
    progress_->hide();
    errors_->hide();
    smoke_->hide();
}

void RunWindowSet::HideSmokeWindow() { smoke_->hide(); }

void RunWindowSet::ShowLegend() {
    trace_->hide();
    dialogs::PlaceAtBottomRight(legend_, &main_);
    legend_->show();
    legend_->raise();
}

void RunWindowSet::LegendChanged() { legend_->ShowLegend(model_.Smoke.ContaminantThreshold, model_.Smoke.SpreadMax); }

void RunWindowSet::CloseLegend() { legend_->hide(); }

void RunWindowSet::ProgressOpen() { progress_->Open(); }
void RunWindowSet::ProgressClose() { progress_->hide(); }
void RunWindowSet::ProgressCaption(const std::string& caption) { progress_->SetCaption(caption); }
void RunWindowSet::ProgressPercent(int percent) {
    progress_->SetPercent(percent);
    if (ProgressObserver) ProgressObserver(percent);
}
void RunWindowSet::ProgressAttempt(const std::string& text) { progress_->SetAttempt(text); }
void RunWindowSet::ProgressError(const std::string& text) { progress_->SetError(text); }
void RunWindowSet::ProgressBox(const std::string& box, const std::string& text) { smoke_->SetBox(box, text); }

} // namespace karvane::shell
