// The network spreadsheet from the main window (Tools, "Spreadsheet"): opened modally over the
// network, with the airway cards, the airflow run and the redraws of the main window behind it.
// The column widths the user leaves are kept for the next opening.
#include <QCoreApplication>
#include <QPointer>
#include <QStatusBar>

#include "dialogs/air_edit_dialog.h"
#include "dialogs/air_info_dialog.h"
#include "dialogs/airway_dialogs.h"
#include "dialogs/spreadsheet_window.h"
#include "shell/main_window.h"
#include "simulate/run.h"

namespace karvane::shell {

namespace {

// The spreadsheet is modal, so a card it opens must be modal too, or the spreadsheet would keep
// the mouse from it; the spreadsheet goes on (and refills the row) once the card has closed.
void WaitModal(QDialog* dialog) {
    if (!dialog || !dialog->isVisible()) return;
    QPointer<QDialog> card(dialog);
    card->hide();
    card->setWindowModality(Qt::ApplicationModal);
    card->show();
    while (card && card->isVisible()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (card) card->setWindowModality(Qt::NonModal);
}

} // namespace

void MainWindow::ShowSpreadSheet() {
    if (runActive_) return;
    if (!sheetWidths_) sheetWidths_ = std::make_unique<forms::SheetWidths>();
    // The grid lists the airways of the current view's filter.
    RebuildCurrentView();
    dialogs::SpreadSheetWindow::Hooks hooks;
    hooks.EditAirway = [this](std::int32_t row) {
        ShowAirwayEditor(row, 1);
        WaitModal(airwayDialogs().editor());
    };
    hooks.AirwayInfo = [this](std::int32_t row) {
        ShowAirwayInfo(row);
        WaitModal(airwayDialogs().info());
    };
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
