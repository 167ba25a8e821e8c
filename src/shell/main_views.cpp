// The way from the dispatcher to the tools of the view windows: the presses and releases of
// the tools, the commands that are not part of this version, the information popup and the
// power zoom's timer.
#include <QCursor>
#include <QGuiApplication>
#include <QStatusBar>
#include <QTimer>

#include "commands/menu_commands.h"
#include "contaminant/sourcing.h"
#include "contaminant/spread.h"
#include "display/data_types.h"
#include "display/picking.h"
#include "edit/tool_table.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"
#include "shell/run_windows.h"

namespace karvane::shell {

void MainWindow::StartPowerZoomTimer(int intervalMs) {
    powerZoomTimer_->setInterval(intervalMs);
    powerZoomTimer_->start();
}

void MainWindow::StopPowerZoomTimer() { powerZoomTimer_->stop(); }

bool MainWindow::CommandAvailable(int value) const {
    // The tool commands of the core, and the print of the screen, which needs a printer.
    return value == edit::cmd::PrintScreen || commands::ToolCommandAvailable(value);
}

void MainWindow::CommandUnavailable(int value) {
    const edit::ToolCommand* c = edit::FindToolCommand(value);
    QString what = c && *c->Tip ? QString::fromLatin1(c->Tip) : QStringLiteral("This command");
    what = what.section(QStringLiteral("  ["), 0, 0).section(QStringLiteral(" ["), 0, 0);
    statusBar()->showMessage(what + QStringLiteral(": not yet available in this version of Karvane"), 5000);
}

void MainWindow::ToolPress(const edit::ToolEvent& event) {
    editTools_->Press(event, *dispatcher_);
    // A start typed into the coordinate entry at a right-button press: the button came up while
    // the entry was open, so the release that asks for the end is given here.
    if (event.Button != 2 || !editTools_->State().StartEntered || (QGuiApplication::mouseButtons() & Qt::RightButton))
        return;
    const int window = event.Window;
    QTimer::singleShot(0, this, [this, window] {
        ViewWindow* v = view(window);
        if (!v || !dispatcher_->State().MouseIsDown) return;
        const QPoint global = QCursor::pos();
        views_->ViewMouseUp(window, 2, 0, v->ToWindow(v->mapFromGlobal(global)), global);
    });
}

void MainWindow::ToolRelease(const edit::ToolEvent& event) {
    if (editTools_->Release(event)) return;
    if (edit::PickTools::Handles(event.Tool)) {
        pickTools_->Release(event, *dispatcher_);
        return;
    }
    switch (event.Tool) {
    case edit::tool::Contaminant: {
        const display::AirwayPick pick = display::FindAirway(*model_, *ds_, event.CurX, event.CurY);
        if (pick.Airway <= 0) return;
        if (contaminant::PlaceContaminant(*model_, ui_, pick.Airway, ds_->PickFraction, event.Button == 1))
            RedrawWindow();
        return;
    }
    case edit::tool::Pins: {
        const display::AirwayPick pick = display::FindAirway(*model_, *ds_, event.CurX, event.CurY);
        if (pick.Airway <= 0) return;
        model_->Smoke.PinType = dispatcher_->State().PinType;
        if (contaminant::PlaceReport(*model_, ui_, pick.Airway, ds_->PickFraction)) RedrawWindow();
        return;
    }
    case edit::tool::Info: {
        HidePopup();
        if (event.Button != 1) return;
        const display::AirwayPick pick = display::FindAirway(*model_, *ds_, event.CurX, event.CurY);
        if (pick.Airway > 0) ShowAirwayInfo(pick.Airway);
        return;
    }
    default: CommandUnavailable(dispatcher_->State().CommandValue); return;
    }
}

void MainWindow::ShowPopup(std::int32_t row, float, float) {
    const std::string text = display::InfoPopupText(*model_, *ds_, row);
    popup_->ShowAt(FromCp1252(text), QCursor::pos(), frameGeometry());
}

void MainWindow::HidePopup() {
    if (popup_) popup_->hide();
}

} // namespace karvane::shell
