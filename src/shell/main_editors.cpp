// The editors of the Tools menu: the fan database, the level list and the options. Each opens
// modally over the model and the main window follows what it changed.
#include "dialogs/fan_data_dialog.h"
#include "dialogs/level_list_dialog.h"
#include "dialogs/options_dialog.h"
#include "shell/main_window.h"

namespace karvane::shell {

void MainWindow::ShowFanData() {
    dialogs::FanDataDialog dialog(*model_, ui_, this);
    dialog.exec();
    RedrawAllWindows();
}

void MainWindow::ShowLevelList() {
    dialogs::LevelListDialog dialog(*model_, *ds_, ui_, this);
    dialog.exec();
    // The level list, the scroll bar and the view follow the saved levels.
    if (dialog.Form().Saved()) {
        lists_->FillLevelList();
        AfterLevelChange();
    }
    RedrawAllWindows();
}

void MainWindow::ShowOptions() {
    dialogs::OptionsDialog dialog(*model_, *ds_, ui_, this);
    // A unit switch and the font and icon boxes act at once: every view and label follows.
    dialog.MainRefresh = [this] {
        RefreshControls();
        RedrawAllWindows();
    };
    dialog.exec();
    if (dialog.Form().Applied()) {
        // The edit state of the main window is cleared; the timers, menus and views follow.
        dispatcher_->CancelGesture();
        ApplySettingsTimers();
        views_->SyncCurrent();
    }
    RefreshControls();
    RedrawAllWindows();
}

} // namespace karvane::shell
