// The construction tools in the main window: the dialogs a tool opens in the middle of its
// action, the quick drawing of a new airway into every window, and the "Layer Inheritance"
// switch of the Window menu.
#include <QMdiSubWindow>
#include <QStatusBar>

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

void MainWindow::QuickUpdateAllWindows() {
    // The new airway is drawn over the standing pictures: lines and annotation, no clearing.
    if (mainLoading_ || ds_->DrawingBusy || !windows_.IsOpen(windows_.CurWin) || isMinimized()) return;
    const int current = windows_.CurWin;
    QMdiSubWindow* sub = subs_[static_cast<std::size_t>(current)];
    const bool onlyCurrent = sub && sub->isMaximized();
    if (!windows_.Switching) edit::SaveCurrentWindowState(*model_, *ds_, windows_);
    windows_.Switching = true;
    if (!onlyCurrent)
        for (int n = 0; n < edit::MaxViewWindows; ++n)
            if (n != current && windows_.IsOpen(n)) DrawWindowInPlace(n, true);
    DrawWindowInPlace(current, true);
    windows_.CurWin = current;
    windows_.Switching = false;
    ShowViewStatus();
    ShowSimIndicator();
}

} // namespace karvane::shell
