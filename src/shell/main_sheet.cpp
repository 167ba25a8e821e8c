// The network spreadsheet from the main window (Tools, "Spreadsheet"): opened modally over the
// network, with the airway cards, the airflow run and the redraws of the main window behind it.
// The column widths the user leaves are kept for the next opening.
#include <QStatusBar>

#include "dialogs/spreadsheet_window.h"
#include "shell/main_window.h"
#include "simulate/run.h"

namespace karvane::shell {

void MainWindow::ShowSpreadSheet() {
    if (runActive_) return;
    if (!sheetWidths_) sheetWidths_ = std::make_unique<forms::SheetWidths>();
    // The grid lists the airways of the current view's filter.
    RebuildCurrentView();
    dialogs::SpreadSheetWindow::Hooks hooks;
    hooks.EditAirway = [this](std::int32_t row) { ShowAirwayEditor(row, 1); };
    hooks.AirwayInfo = [this](std::int32_t row) { ShowAirwayInfo(row); };
    // The run keeps the mode of the last command, as the spreadsheet's Simulate asks.
    hooks.Simulate = [this] {
        if (runActive_) return;
        model_->ShowProgress = 1;
        SetRunActive(true);
        simulate::RunAirflow(*model_, ui_, hooks_.get());
        SetRunActive(false);
        AfterRun();
    };
    hooks.RefreshViews = [this] {
        RebuildCurrentView();
        RedrawAllWindows();
        RefreshControls();
    };
    dialogs::SpreadSheetWindow window(*model_, *ds_, undo_, ui_, *sheetWidths_, std::move(hooks), this);
    window.exec();
}

} // namespace karvane::shell
