// The view windows of the main window: creating, switching, tiling, freezing and closing
// them, the redraw of one and of all, the rotation button, and the way of the mouse, the wheel
// and the keys from a view window to the dispatcher and from the dispatcher to the tools.
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <QTimer>

#include "commands/menu_commands.h"
#include "contaminant/sourcing.h"
#include "contaminant/spread.h"
#include "display/data_types.h"
#include "display/display_list.h"
#include "display/drawn_list.h"
#include "display/picking.h"
#include "display/renderer.h"
#include "display/saved_views.h"
#include "display/view_transform.h"
#include "edit/tool_table.h"
#include "qt/icons.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"
#include "shell/run_windows.h"

namespace karvane::shell {

namespace {

// The frame of a view window in the work area; closing it asks the main window first.
class ViewSubWindow : public QMdiSubWindow {
public:
    ViewSubWindow(std::function<bool()> mayClose, QWidget* parent)
        : QMdiSubWindow(parent),
          mayClose_(std::move(mayClose)) {}

protected:
    void closeEvent(QCloseEvent* event) override {
        if (mayClose_ && !mayClose_()) {
            event->ignore();
            return;
        }
        QMdiSubWindow::closeEvent(event);
    }

private:
    std::function<bool()> mayClose_;
};

} // namespace

ViewWindow* MainWindow::view(int window) const {
    if (window < 0 || window >= edit::MaxViewWindows) return nullptr;
    return views_[static_cast<std::size_t>(window)];
}

void MainWindow::SyncArea(int window) {
    ViewWindow* v = view(window);
    if (!v) return;
    v->Surface().Resize(v->width(), v->height());
    ds_->AreaWidth = std::max(1, v->width());
    ds_->AreaHeight = std::max(1, v->height());
    display::RefreshAspect(*ds_);
}

int MainWindow::NewViewWindow() {
    const int n = edit::NumberForNewWindow(windows_, ui_);
    if (n < 0) return -1;
    if (!resizeTimer_) {
        resizeTimer_ = new QTimer(this);
        resizeTimer_->setSingleShot(true);
        resizeTimer_->setInterval(40);
        connect(resizeTimer_, &QTimer::timeout, this, [this] { RedrawAllWindows(); });
    }
    windows_.Switching = true;
    auto* v = new ViewWindow(n, *this);
    auto* sub = new ViewSubWindow([this, n] { return CloseViewWindowRequested(n); }, mdi_);
    sub->setWidget(v);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    sub->setWindowIcon(ToolIcon(edit::cmd::Toggle3D));
    sub->setObjectName(QStringLiteral("ViewFrame%1").arg(n));
    mdi_->addSubWindow(sub);
    views_[static_cast<std::size_t>(n)] = v;
    subs_[static_cast<std::size_t>(n)] = sub;
    sub->resize(640, 480);
    sub->show();
    mdi_->setActiveSubWindow(sub);
    windows_.Switching = false;

    const bool first = edit::EnterNewWindow(*model_, *ds_, windows_, n);
    v->setCursor(ViewCursor(edit::CursorName(dispatcher_->State().CommandValue, 1)));
    TileWindows(1);
    if (first && !mainLoading_) {
        SyncArea(n);
        display::BuildDisplayList(*model_, *ds_);
        display::FitView(*model_, *ds_, ui_);
        display::ApplyRotation(*model_, *ds_);
    }
    windows_.Windows[static_cast<std::size_t>(n)].Caption = display::ViewWindowCaption(*model_, *ds_, n);
    UpdateWindowMenu();
    RedrawAllWindows();
    return n;
}

void MainWindow::RedrawWindow() {
    if (mainLoading_ || ds_->DrawingBusy || !windows_.IsOpen(windows_.CurWin)) return;
    ViewWindow* v = view(windows_.CurWin);
    if (!v) return;
    SyncArea(windows_.CurWin);
    ds_->WindowCurrent = true;
    ds_->WindowFrozen = windows_.Windows[static_cast<std::size_t>(windows_.CurWin)].Frozen;
    ds_->MainMinimised = isMinimized();
    ds_->StartingUp = false;
    v->Surface().SetBuffered(model_->Set.ScreenBuffer);
    display::RedrawWindow(*model_, *ds_, v->Surface(), ui_);
    ShowViewStatus();
    ShowSimIndicator();
}

void MainWindow::DrawWindowInPlace(int window, bool quick) {
    ViewWindow* v = view(window);
    if (!v || windows_.Windows[static_cast<std::size_t>(window)].Frozen) return;
    windows_.CurWin = window;
    SyncArea(window);
    if (windows_.Windows[static_cast<std::size_t>(window)].StateSaved)
        display::LoadViewFromSlot(*model_, *ds_, display::WindowSlot(window));
    ds_->WindowFrozen = false;
    ds_->WindowCurrent = true;
    if (!quick) {
        display::RedrawWindow(*model_, *ds_, v->Surface(), ui_);
        return;
    }
    display::BuildDrawnList(*model_, *ds_);
    display::PrepareSurface(*model_, *ds_, v->Surface());
    display::DrawLines(*model_, *ds_, v->Surface());
    display::DrawAnnotations(*model_, *ds_, v->Surface());
    v->Surface().Refresh();
}

void MainWindow::RedrawAllWindows() {
    if (mainLoading_ || ds_->DrawingBusy || !windows_.IsOpen(windows_.CurWin) || isMinimized()) return;
    if (!windows_.Switching) edit::SaveCurrentWindowState(*model_, *ds_, windows_);
    const int current = windows_.CurWin;
    QMdiSubWindow* sub = subs_[static_cast<std::size_t>(current)];
    if (sub && sub->isMaximized()) {
        RedrawWindow();
        return;
    }
    windows_.Switching = true;
    for (int n = 0; n < edit::MaxViewWindows; ++n)
        if (n != current && windows_.IsOpen(n)) DrawWindowInPlace(n);
    windows_.CurWin = current;
    SyncArea(current);
    if (windows_.Windows[static_cast<std::size_t>(current)].StateSaved)
        display::LoadViewFromSlot(*model_, *ds_, display::WindowSlot(current));
    windows_.Switching = false;
    RedrawWindow();
    ShowDataType();
    ShowLevel();
}

void MainWindow::OnSubWindowActivated(QMdiSubWindow* sub) {
    if (!sub || windows_.Switching || pendingCurrent_ >= 0) return;
    int n = -1;
    for (int i = 0; i < edit::MaxViewWindows; ++i)
        if (subs_[static_cast<std::size_t>(i)] == sub) n = i;
    if (n < 0 || sub->isMinimized() || !views_[static_cast<std::size_t>(n)] ||
        views_[static_cast<std::size_t>(n)]->Number() < 0)
        return;
    dispatcher_->CancelGesture();
    SyncArea(n);
    if (!edit::ActivateViewWindow(*model_, *ds_, windows_, n)) return;
    ShowDataType();
    ShowLevel();
    ShowViewStatus();
    UpdateMenuTicks();
}

void MainWindow::MakeWindowCurrent(int window) {
    if (!windows_.IsOpen(window) || window == windows_.CurWin) return;
    QMdiSubWindow* sub = subs_[static_cast<std::size_t>(window)];
    SyncArea(window);
    edit::ActivateViewWindow(*model_, *ds_, windows_, window);
    windows_.Switching = true;
    if (sub) mdi_->setActiveSubWindow(sub);
    windows_.Switching = false;
    ShowDataType();
    ShowLevel();
    RedrawWindow();
}

void MainWindow::ShowWindow(int window) {
    if (!windows_.IsOpen(window)) return;
    MakeWindowCurrent(window);
    if (ViewWindow* v = view(window)) v->setFocus();
}

bool MainWindow::CloseViewWindowRequested(int window) {
    if (ending_) return true;
    if (windows_.OpenCount() <= 1) {
        // The last window stays: closing it clears the network instead.
        ClearNetworkInLastWindow();
        return false;
    }
    dispatcher_->CancelGesture();
    windows_.Switching = true;
    if (window != windows_.CurWin) edit::SaveCurrentWindowState(*model_, *ds_, windows_);
    const int next = edit::CloseViewWindow(*model_, *ds_, windows_, window);
    if (ViewWindow* v = view(window)) v->Untag();
    views_[static_cast<std::size_t>(window)] = nullptr;
    subs_[static_cast<std::size_t>(window)] = nullptr;
    windows_.Switching = false;
    UpdateWindowMenu();
    // The work area makes a window of its own choice active as the closed one goes; the highest
    // remaining window is the one to be current.
    pendingCurrent_ = next;
    QTimer::singleShot(0, this, [this, next] {
        pendingCurrent_ = -1;
        if (!windows_.IsOpen(next)) return;
        windows_.Switching = true;
        if (QMdiSubWindow* sub = subs_[static_cast<std::size_t>(next)]) mdi_->setActiveSubWindow(sub);
        windows_.Switching = false;
        if (windows_.CurWin != next) {
            SyncArea(next);
            edit::ActivateViewWindow(*model_, *ds_, windows_, next);
        }
        ShowDataType();
        ShowLevel();
        RedrawWindow();
    });
    return true;
}

void MainWindow::TileWindows(int how) {
    if (windows_.IsOpen(windows_.CurWin) && !windows_.Switching) edit::SaveCurrentWindowState(*model_, *ds_, windows_);
    std::vector<QMdiSubWindow*> open;
    for (int n = 0; n < edit::MaxViewWindows; ++n)
        if (windows_.IsOpen(n) && subs_[static_cast<std::size_t>(n)])
            open.push_back(subs_[static_cast<std::size_t>(n)]);
    if (open.empty()) return;
    windows_.Switching = true;
    if (how == 2) {
        mdi_->cascadeSubWindows();
    } else {
        const QRect area = mdi_->viewport()->rect();
        const int count = static_cast<int>(open.size());
        for (int i = 0; i < count; ++i) {
            open[static_cast<std::size_t>(i)]->showNormal();
            if (how == 1) {
                // Side by side.
                const int w = area.width() / count;
                open[static_cast<std::size_t>(i)]->setGeometry(i * w, 0, i == count - 1 ? area.width() - i * w : w,
                                                               area.height());
            } else {
                // One above the other.
                const int h = area.height() / count;
                open[static_cast<std::size_t>(i)]->setGeometry(0, i * h, area.width(),
                                                               i == count - 1 ? area.height() - i * h : h);
            }
        }
    }
    windows_.Switching = false;
    if (resizeTimer_) resizeTimer_->stop();
    RedrawAllWindows();
}

void MainWindow::ToggleFreeze() {
    const edit::FreezeChange change = edit::ToggleFreeze(*model_, *ds_, windows_, ui_);
    if (change.Window < 0) return;
    if (change.Frozen && windows_.IsOpen(change.NewCurrent)) {
        windows_.Switching = true;
        if (QMdiSubWindow* sub = subs_[static_cast<std::size_t>(change.NewCurrent)]) mdi_->setActiveSubWindow(sub);
        windows_.Switching = false;
        SyncArea(change.NewCurrent);
    }
    UpdateWindowMenu();
    RedrawAllWindows();
}

void MainWindow::ViewResized(int window) {
    if (mainLoading_ || windows_.Switching || !resizeTimer_) return;
    (void)window;
    // A tiling or a drag of a frame resizes many times; the windows are drawn once it settles.
    resizeTimer_->start();
}

int MainWindow::ViewWindowAt(const QPoint& global) const {
    for (int n = 0; n < edit::MaxViewWindows; ++n) {
        ViewWindow* v = view(n);
        if (v && v->isVisible() && v->rect().contains(v->mapFromGlobal(global))) return n;
    }
    return -1;
}

display::Surface* MainWindow::CurrentSurface() {
    ViewWindow* v = view(windows_.CurWin);
    return v ? &v->Surface() : nullptr;
}

void MainWindow::SaveWindowState() { edit::SaveCurrentWindowState(*model_, *ds_, windows_); }

void MainWindow::FocusWindow(int window) {
    if (ViewWindow* v = view(window)) v->setFocus();
}

void MainWindow::ViewMouseDown(int window, int button, int shift, const QPointF& at) {
    if (runActive_) return;
    QPointF p = at;
    if (window != windows_.CurWin) {
        MakeWindowCurrent(window);
        if (ViewWindow* v = view(window)) p = v->ToWindow(v->mapFromGlobal(QCursor::pos()));
    }
    pressWindow_ = window;
    dispatcher_->OnMouseDown(button, shift, static_cast<float>(p.x()), static_cast<float>(p.y()), window);
}

void MainWindow::ViewMouseMove(int window, int buttons, int shift, const QPointF& at, const QPoint& global) {
    if (runActive_) return;
    if (window != windows_.CurWin && buttons == 0) return;
    int over = window;
    if (buttons != 0) {
        const int under = ViewWindowAt(global);
        if (under >= 0) over = under;
    }
    dispatcher_->OnMouseMove(buttons, shift, static_cast<float>(at.x()), static_cast<float>(at.y()), over);
}

void MainWindow::ViewMouseUp(int window, int button, int shift, const QPointF& at, const QPoint& global) {
    if (runActive_) return;
    QPointF p = at;
    int target = window;
    const int under = ViewWindowAt(global);
    if (under >= 0 && under != window) {
        // A release over another view window is given in that window's own box.
        target = under;
        ViewWindow* v = view(under);
        p = v->ToWindow(v->mapFromGlobal(global));
    }
    dispatcher_->OnMouseUp(button, shift, static_cast<float>(p.x()), static_cast<float>(p.y()), target);
    pressWindow_ = -1;
}

void MainWindow::ViewWheel(int window, bool positive) {
    if (runActive_) return;
    if (window != windows_.CurWin) MakeWindowCurrent(window);
    dispatcher_->OnWheel(positive);
}

bool MainWindow::ViewKey(int, int key) {
    if (runActive_) return false;
    return dispatcher_->OnKeyDown(key);
}

void MainWindow::StartPowerZoomTimer(int intervalMs) {
    powerZoomTimer_->setInterval(intervalMs);
    powerZoomTimer_->start();
}

void MainWindow::StopPowerZoomTimer() { powerZoomTimer_->stop(); }

void MainWindow::StopRotationTimer() {
    if (!rotateTimer_->isActive()) return;
    rotateTimer_->stop();
    RedrawWindow();
}

void MainWindow::OnRotationPress(int, QPointF at) {
    if (runActive_ || !windows_.IsOpen(windows_.CurWin) || ds_->WindowFrozen) return;
    SyncArea(windows_.CurWin);
    edit::BeginRotationButton(*model_, *ds_);
    rotationAt_ = at;
    rotateTimer_->start();
    OnRotationTick();
}

void MainWindow::OnRotationMove(QPointF at) {
    if (rotateTimer_->isActive()) rotationAt_ = at;
}

void MainWindow::OnRotationRelease(int button, QPointF at) {
    if (!rotateTimer_->isActive()) return;
    if (button == 1) {
        rotateTimer_->stop();
        RedrawWindow();
        SaveWindowState();
        UpdateMenuTicks();
        return;
    }
    // The right button leaves it turning about the vertical axis until the next press.
    rotationAt_ = QPointF(at.x(), edit::RotationRestY);
}

void MainWindow::OnRotationTick() {
    if (rotationTicking_) return;
    if (!windows_.IsOpen(windows_.CurWin) || ds_->WindowFrozen) {
        rotateTimer_->stop();
        return;
    }
    rotationTicking_ = true;
    if (edit::RotationButtonTick(*model_, *ds_, static_cast<float>(rotationAt_.x()),
                                 static_cast<float>(rotationAt_.y()))) {
        if (display::Surface* s = CurrentSurface()) display::RedrawLinesOnly(*model_, *ds_, *s, ui_);
        ShowViewStatus();
    }
    rotationTicking_ = false;
}

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
        ViewMouseUp(window, 2, 0, v->ToWindow(v->mapFromGlobal(global)), global);
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
