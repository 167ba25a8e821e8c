// The view windows of the main window: creating, switching, tiling, freezing and closing
// them, the redraw of one and of all, the rotation button, and the way of the mouse, the wheel
// and the keys from a view window to the dispatcher.
#include "shell/view_window_manager.h"

#include <QAction>
#include <QCloseEvent>
#include <QCursor>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTimer>

#include "display/data_types.h"
#include "display/display_list.h"
#include "display/drawn_list.h"
#include "display/renderer.h"
#include "display/saved_views.h"
#include "display/view_title.h"
#include "display/view_transform.h"
#include "edit/tool_table.h"
#include "edit/view_gestures.h"
#include "qt/icons.h"
#include "qt/qt_text.h"

namespace karvane::shell {

namespace {

// The frame of a view window in the work area; closing it asks the manager first.
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

std::size_t At(int window) { return static_cast<std::size_t>(window); }

} // namespace

ViewWindowManager::ViewWindowManager(QMainWindow& main, Model& model, display::DisplayState& ds, ui::UserInterface& ui,
                                     edit::ToolDispatcher& dispatcher, Owner& owner)
    : main_(main),
      model_(model),
      ds_(ds),
      ui_(ui),
      dispatcher_(dispatcher),
      owner_(owner) {
    mdi_ = new QMdiArea(&main);
    mdi_->setObjectName(QStringLiteral("WorkArea"));
    mdi_->setBackground(QColor(96, 104, 116));
    main.setCentralWidget(mdi_);
    connect(mdi_, &QMdiArea::subWindowActivated, this, &ViewWindowManager::OnSubWindowActivated);
    rotateTimer_ = new QTimer(&main);
    rotateTimer_->setObjectName(QStringLiteral("TimerRotate"));
    rotateTimer_->setInterval(40);
    connect(rotateTimer_, &QTimer::timeout, this, &ViewWindowManager::RotationTick);
}

// The work area activates other windows as its windows go; the manager is past hearing it.
ViewWindowManager::~ViewWindowManager() {
    if (mdi_) disconnect(mdi_, nullptr, this, nullptr);
}

ViewWindow* ViewWindowManager::View(int window) const {
    if (window < 0 || window >= edit::MaxViewWindows) return nullptr;
    return views_[At(window)];
}

display::Surface* ViewWindowManager::CurrentSurface() const {
    ViewWindow* v = View(windows_.CurWin);
    return v ? &v->Surface() : nullptr;
}

bool ViewWindowManager::CurrentLive() const { return CurrentOpen() && !ds_.WindowFrozen; }

void ViewWindowManager::SyncArea(int window) {
    ViewWindow* v = View(window);
    if (!v) return;
    v->Surface().Resize(v->width(), v->height());
    ds_.AreaWidth = std::max(1, v->width());
    ds_.AreaHeight = std::max(1, v->height());
    display::RefreshAspect(ds_);
}

int ViewWindowManager::NewWindow() {
    const int n = edit::NumberForNewWindow(windows_, ui_);
    if (n < 0) return -1;
    if (!resizeTimer_) {
        resizeTimer_ = new QTimer(this);
        resizeTimer_->setSingleShot(true);
        resizeTimer_->setInterval(40);
        connect(resizeTimer_, &QTimer::timeout, this, [this] { RedrawAll(); });
    }
    windows_.Switching = true;
    auto* v = new ViewWindow(n, *this);
    auto* sub = new ViewSubWindow([this, n] { return CloseRequested(n); }, mdi_);
    sub->setWidget(v);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    sub->setWindowIcon(ToolIcon(edit::cmd::Toggle3D));
    sub->setObjectName(QStringLiteral("ViewFrame%1").arg(n));
    mdi_->addSubWindow(sub);
    views_[At(n)] = v;
    subs_[At(n)] = sub;
    sub->resize(640, 480);
    sub->show();
    mdi_->setActiveSubWindow(sub);
    windows_.Switching = false;

    const bool first = edit::EnterNewWindow(model_, ds_, windows_, n);
    v->setCursor(ViewCursor(edit::CursorName(dispatcher_.State().CommandValue, 1)));
    Tile(1);
    if (first && !owner_.Loading()) {
        SyncArea(n);
        display::BuildDisplayList(model_, ds_);
        display::FitView(model_, ds_, ui_);
        display::ApplyRotation(model_, ds_);
    }
    windows_.Windows[At(n)].Caption = display::ViewWindowCaption(model_, ds_, n);
    UpdateWindowMenu();
    RedrawAll();
    return n;
}

void ViewWindowManager::RedrawCurrent() {
    if (owner_.Loading() || ds_.DrawingBusy || !CurrentOpen()) return;
    ViewWindow* v = View(windows_.CurWin);
    if (!v) return;
    SyncArea(windows_.CurWin);
    ds_.WindowCurrent = true;
    ds_.WindowFrozen = windows_.Windows[At(windows_.CurWin)].Frozen;
    ds_.MainMinimised = main_.isMinimized();
    ds_.StartingUp = false;
    v->Surface().SetBuffered(model_.Set.ScreenBuffer);
    display::RedrawWindow(model_, ds_, v->Surface(), ui_);
    owner_.ShowViewStatus();
    owner_.ShowSimIndicator();
}

void ViewWindowManager::DrawInPlace(int window, bool quick) {
    ViewWindow* v = View(window);
    if (!v || windows_.Windows[At(window)].Frozen) return;
    windows_.CurWin = window;
    SyncArea(window);
    if (windows_.Windows[At(window)].StateSaved) display::LoadViewFromSlot(model_, ds_, display::WindowSlot(window));
    ds_.WindowFrozen = false;
    ds_.WindowCurrent = true;
    if (!quick) {
        display::RedrawWindow(model_, ds_, v->Surface(), ui_);
        return;
    }
    display::BuildDrawnList(model_, ds_);
    display::PrepareSurface(model_, ds_, v->Surface());
    display::DrawLines(model_, ds_, v->Surface());
    display::DrawAnnotations(model_, ds_, v->Surface());
    v->Surface().Refresh();
}

void ViewWindowManager::RedrawAll() {
    if (owner_.Loading() || ds_.DrawingBusy || !CurrentOpen() || main_.isMinimized()) return;
    if (!windows_.Switching) edit::SaveCurrentWindowState(model_, ds_, windows_);
    const int current = windows_.CurWin;
    QMdiSubWindow* sub = subs_[At(current)];
    if (sub && sub->isMaximized()) {
        RedrawCurrent();
        return;
    }
    windows_.Switching = true;
    for (int n = 0; n < edit::MaxViewWindows; ++n)
        if (n != current && windows_.IsOpen(n)) DrawInPlace(n);
    windows_.CurWin = current;
    SyncArea(current);
    if (windows_.Windows[At(current)].StateSaved) display::LoadViewFromSlot(model_, ds_, display::WindowSlot(current));
    windows_.Switching = false;
    RedrawCurrent();
    owner_.ShowDataType();
    owner_.ShowLevel();
}

void ViewWindowManager::QuickUpdateAll() {
    if (owner_.Loading() || ds_.DrawingBusy || !CurrentOpen() || main_.isMinimized()) return;
    const int current = windows_.CurWin;
    QMdiSubWindow* sub = subs_[At(current)];
    const bool onlyCurrent = sub && sub->isMaximized();
    if (!windows_.Switching) edit::SaveCurrentWindowState(model_, ds_, windows_);
    windows_.Switching = true;
    if (!onlyCurrent)
        for (int n = 0; n < edit::MaxViewWindows; ++n)
            if (n != current && windows_.IsOpen(n)) DrawInPlace(n, true);
    DrawInPlace(current, true);
    windows_.CurWin = current;
    windows_.Switching = false;
    owner_.ShowViewStatus();
    owner_.ShowSimIndicator();
}

void ViewWindowManager::OnSubWindowActivated(QMdiSubWindow* sub) {
    if (!sub || windows_.Switching || pendingCurrent_ >= 0) return;
    int n = -1;
    for (int i = 0; i < edit::MaxViewWindows; ++i)
        if (subs_[At(i)] == sub) n = i;
    if (n < 0 || sub->isMinimized() || !views_[At(n)] || views_[At(n)]->Number() < 0) return;
    dispatcher_.CancelGesture();
    SyncArea(n);
    if (!edit::ActivateViewWindow(model_, ds_, windows_, n)) return;
    owner_.ShowDataType();
    owner_.ShowLevel();
    owner_.ShowViewStatus();
    owner_.UpdateMenuTicks();
}

// The work area's active window set by the program, not heard as the user's choice.
void ViewWindowManager::ActivateSub(int window) {
    windows_.Switching = true;
    if (QMdiSubWindow* sub = subs_[At(window)]) mdi_->setActiveSubWindow(sub);
    windows_.Switching = false;
}

void ViewWindowManager::MakeCurrent(int window) {
    if (!windows_.IsOpen(window) || window == windows_.CurWin) return;
    SyncArea(window);
    edit::ActivateViewWindow(model_, ds_, windows_, window);
    ActivateSub(window);
    owner_.ShowDataType();
    owner_.ShowLevel();
    RedrawCurrent();
}

void ViewWindowManager::ShowWindow(int window) {
    if (!windows_.IsOpen(window)) return;
    MakeCurrent(window);
    Focus(window);
}

bool ViewWindowManager::CloseRequested(int window) {
    if (owner_.Ending()) return true;
    if (windows_.OpenCount() <= 1) {
        // The last window stays: closing it clears the network instead.
        owner_.ClearNetworkInLastWindow();
        return false;
    }
    dispatcher_.CancelGesture();
    windows_.Switching = true;
    if (window != windows_.CurWin) edit::SaveCurrentWindowState(model_, ds_, windows_);
    const int next = edit::CloseViewWindow(model_, ds_, windows_, window);
    if (ViewWindow* v = View(window)) v->Untag();
    views_[At(window)] = nullptr;
    subs_[At(window)] = nullptr;
    windows_.Switching = false;
    UpdateWindowMenu();
    // The work area makes a window of its own choice active as the closed one goes; the highest
    // remaining window is the one to be current.
    pendingCurrent_ = next;
    QTimer::singleShot(0, this, [this, next] {
        pendingCurrent_ = -1;
        if (!windows_.IsOpen(next)) return;
        ActivateSub(next);
        if (windows_.CurWin != next) {
            SyncArea(next);
            edit::ActivateViewWindow(model_, ds_, windows_, next);
        }
        owner_.ShowDataType();
        owner_.ShowLevel();
        RedrawCurrent();
    });
    return true;
}

void ViewWindowManager::Tile(int how) {
    if (CurrentOpen() && !windows_.Switching) edit::SaveCurrentWindowState(model_, ds_, windows_);
    std::vector<QMdiSubWindow*> open;
    for (int n = 0; n < edit::MaxViewWindows; ++n)
        if (windows_.IsOpen(n) && subs_[At(n)]) open.push_back(subs_[At(n)]);
    if (open.empty()) return;
    windows_.Switching = true;
    if (how == 2) {
        mdi_->cascadeSubWindows();
    } else {
        const QRect area = mdi_->viewport()->rect();
        const int count = static_cast<int>(open.size());
        for (int i = 0; i < count; ++i) {
            open[At(i)]->showNormal();
            if (how == 1) {
                // Side by side.
                const int w = area.width() / count;
                open[At(i)]->setGeometry(i * w, 0, i == count - 1 ? area.width() - i * w : w, area.height());
            } else {
                // One above the other.
                const int h = area.height() / count;
                open[At(i)]->setGeometry(0, i * h, area.width(), i == count - 1 ? area.height() - i * h : h);
            }
        }
    }
    windows_.Switching = false;
    if (resizeTimer_) resizeTimer_->stop();
    RedrawAll();
}

void ViewWindowManager::ToggleFreeze() {
    const edit::FreezeChange change = edit::ToggleFreeze(model_, ds_, windows_, ui_);
    if (change.Window < 0) return;
    if (change.Frozen && windows_.IsOpen(change.NewCurrent)) {
        ActivateSub(change.NewCurrent);
        SyncArea(change.NewCurrent);
    }
    UpdateWindowMenu();
    RedrawAll();
}

void ViewWindowManager::SaveCurrentState() { edit::SaveCurrentWindowState(model_, ds_, windows_); }

void ViewWindowManager::Focus(int window) {
    if (ViewWindow* v = View(window)) v->setFocus();
}

void ViewWindowManager::SetCursor(const QCursor& cursor) {
    for (const QPointer<ViewWindow>& v : views_)
        if (v) v->setCursor(cursor);
}

void ViewWindowManager::RefreshCaption() {
    if (CurrentOpen())
        windows_.Windows[At(windows_.CurWin)].Caption = display::ViewWindowCaption(model_, ds_, windows_.CurWin);
}

void ViewWindowManager::RefreshCaptions() {
    for (int n = 0; n < edit::MaxViewWindows; ++n)
        if (windows_.IsOpen(n)) windows_.Windows[At(n)].Caption = display::ViewWindowCaption(model_, ds_, n);
}

std::array<QAction*, edit::MaxViewWindows> ViewWindowManager::AddMenuEntries(QMenu* menu) {
    for (int i = 0; i < edit::MaxViewWindows; ++i) {
        QAction* a = menu->addAction(QStringLiteral("View %1").arg(i + 1));
        a->setObjectName(QStringLiteral("mnuWindowView%1").arg(i));
        a->setVisible(false);
        entries_[At(i)] = a;
        connect(a, &QAction::triggered, this, [this, i] { ShowWindow(i); });
    }
    return entries_;
}

void ViewWindowManager::UpdateWindowMenu() {
    for (int i = 0; i < edit::MaxViewWindows; ++i) {
        QAction* a = entries_[At(i)];
        const bool open = windows_.IsOpen(i);
        if (a) a->setVisible(open);
        if (!open) continue;
        const QString caption = FromMessage(edit::ShownCaption(windows_, i));
        if (a) a->setText(caption);
        if (subs_[At(i)]) subs_[At(i)]->setWindowTitle(caption);
    }
}

void ViewWindowManager::ViewResized(int) {
    if (owner_.Loading() || windows_.Switching || !resizeTimer_) return;
    // A tiling or a drag of a frame resizes many times; the windows are drawn once it settles.
    resizeTimer_->start();
}

int ViewWindowManager::WindowAt(const QPoint& global) const {
    for (int n = 0; n < edit::MaxViewWindows; ++n) {
        ViewWindow* v = View(n);
        if (v && v->isVisible() && v->rect().contains(v->mapFromGlobal(global))) return n;
    }
    return -1;
}

void ViewWindowManager::ViewMouseDown(int window, int button, int shift, const QPointF& at) {
    if (owner_.RunActive()) return;
    QPointF p = at;
    if (window != windows_.CurWin) {
        MakeCurrent(window);
        if (ViewWindow* v = View(window)) p = v->ToWindow(v->mapFromGlobal(QCursor::pos()));
    }
    dispatcher_.OnMouseDown(button, shift, static_cast<float>(p.x()), static_cast<float>(p.y()), window);
}

void ViewWindowManager::ViewMouseMove(int window, int buttons, int shift, const QPointF& at, const QPoint& global) {
    if (owner_.RunActive()) return;
    if (window != windows_.CurWin && buttons == 0) return;
    int over = window;
    if (buttons != 0) {
        const int under = WindowAt(global);
        if (under >= 0) over = under;
    }
    dispatcher_.OnMouseMove(buttons, shift, static_cast<float>(at.x()), static_cast<float>(at.y()), over);
}

void ViewWindowManager::ViewMouseUp(int window, int button, int shift, const QPointF& at, const QPoint& global) {
    if (owner_.RunActive()) return;
    QPointF p = at;
    int target = window;
    const int under = WindowAt(global);
    if (under >= 0 && under != window) {
        // A release over another view window is given in that window's own box.
        target = under;
        ViewWindow* v = View(under);
        p = v->ToWindow(v->mapFromGlobal(global));
    }
    dispatcher_.OnMouseUp(button, shift, static_cast<float>(p.x()), static_cast<float>(p.y()), target);
}

void ViewWindowManager::ViewWheel(int window, bool positive) {
    if (owner_.RunActive()) return;
    if (window != windows_.CurWin) MakeCurrent(window);
    dispatcher_.OnWheel(positive);
}

bool ViewWindowManager::ViewKey(int, int key) {
    if (owner_.RunActive()) return false;
    return dispatcher_.OnKeyDown(key);
}

void ViewWindowManager::StopRotation() {
    if (!rotateTimer_->isActive()) return;
    rotateTimer_->stop();
    RedrawCurrent();
}

void ViewWindowManager::StopTimers() { rotateTimer_->stop(); }

void ViewWindowManager::RotationPress(int, QPointF at) {
    if (owner_.RunActive() || !CurrentOpen() || ds_.WindowFrozen) return;
    SyncCurrent();
    edit::BeginRotationButton(model_, ds_);
    rotationAt_ = at;
    rotateTimer_->start();
    RotationTick();
}

void ViewWindowManager::RotationMove(QPointF at) {
    if (rotateTimer_->isActive()) rotationAt_ = at;
}

void ViewWindowManager::RotationRelease(int button, QPointF at) {
    if (!rotateTimer_->isActive()) return;
    if (button == 1) {
        rotateTimer_->stop();
        RedrawCurrent();
        SaveCurrentState();
        owner_.UpdateMenuTicks();
        return;
    }
    // The right button leaves it turning about the vertical axis until the next press.
    rotationAt_ = QPointF(at.x(), edit::RotationRestY);
}

void ViewWindowManager::RotationTick() {
    if (rotationTicking_) return;
    if (!CurrentOpen() || ds_.WindowFrozen) {
        rotateTimer_->stop();
        return;
    }
    rotationTicking_ = true;
    if (edit::RotationButtonTick(model_, ds_, static_cast<float>(rotationAt_.x()),
                                 static_cast<float>(rotationAt_.y()))) {
        if (display::Surface* s = CurrentSurface()) display::RedrawLinesOnly(model_, ds_, *s, ui_);
        owner_.ShowViewStatus();
    }
    rotationTicking_ = false;
}

} // namespace karvane::shell
