// The airway dialogs of the main window: the editor, the information card and the fan dialog,
// made on first use, redrawing the views after each closing.
#include "dialogs/airway_dialogs.h"
#include "shell/main_window.h"

namespace karvane::shell {

dialogs::AirwayDialogs& MainWindow::airwayDialogs() {
    if (!airwayDialogs_) {
        dialogs::AirwayDialogs::Hooks hooks;
        hooks.RedrawAll = [this] {
            RebuildCurrentView();
            RedrawAllWindows();
        };
        hooks.EditFinished = [this] { lists_->ShowSimIndicator(); };
        hooks.PickFraction = [this] { return ds_->PickFraction; };
        airwayDialogs_ = new dialogs::AirwayDialogs(*model_, ui_, undo_, ui_.DecimalSeparator(), this, hooks);
    }
    return *airwayDialogs_;
}

} // namespace karvane::shell
