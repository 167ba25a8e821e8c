// The construction tools in the main window: the dialogs a tool opens in the middle of its
// action.
#include "dialogs/airway_dialogs.h"
#include "dialogs/coords_dialog.h"
#include "shell/main_window.h"

namespace karvane::shell {

std::optional<edit::CoordsResult> MainWindow::ShowCoords(const edit::CoordsRequest& request) {
    return dialogs::RunCoordsDialog(*model_, ui_, request, ui_.DecimalSeparator(), this);
}

bool MainWindow::CoordinateDialogOpen() const { return editTools_ && editTools_->CoordinateDialogOpen(); }

void MainWindow::ShowAirwayEditor(std::int32_t row, int mode) { airwayDialogs().ShowAirwayEditor(row, mode); }

bool MainWindow::ShowFanDialog(std::int32_t row) { return airwayDialogs().ShowFanDialog(row); }

void MainWindow::ShowAirwayInfo(std::int32_t row) { airwayDialogs().ShowAirwayInfo(row); }

} // namespace karvane::shell
