// The set of view windows in the main window's work area: creating, switching, tiling,
// freezing and closing them, the redraw of one and of all, the Window menu's entries of the
// open views, the rotation button's turning of the current view, and the way of the mouse, the
// wheel and the keys from a view window to the dispatcher.
#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <array>

#include "display/view_state.h"
#include "edit/tool_dispatch.h"
#include "edit/view_windows.h"
#include "model/model.h"
#include "shell/view_window.h"
#include "ui/user_interface.h"

class QAction;
class QCursor;
class QMainWindow;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QTimer;

namespace karvane::shell {

class ViewWindowManager : public QObject, public ViewWindowEvents {
    Q_OBJECT
public:
    // What the windows need of the main window around them: whether it is starting up, running
    // or ending, and its lists, labels and ticks after a window became current or was drawn.
    class Owner {
    public:
        virtual ~Owner() = default;
        virtual bool Loading() const = 0;
        // A run goes on: the views take no mouse, wheel or keys.
        virtual bool RunActive() const = 0;
        // The program is closing: a view window closes without a question.
        virtual bool Ending() const = 0;
        // The coordinate labels and the title, and the simulation light, after a redraw.
        virtual void ShowViewStatus() = 0;
        virtual void ShowSimIndicator() = 0;
        // The data type and level lists after another window became current.
        virtual void ShowDataType() = 0;
        virtual void ShowLevel() = 0;
        virtual void UpdateMenuTicks() = 0;
        // The last window is being closed: it stays, and the network is cleared instead.
        virtual void ClearNetworkInLastWindow() = 0;
    };

    // The work area is made as the main window's central widget.
    ViewWindowManager(QMainWindow& main, Model& model, display::DisplayState& ds, ui::UserInterface& ui,
                      edit::ToolDispatcher& dispatcher, Owner& owner);
    ~ViewWindowManager() override;

    QMdiArea* WorkArea() const { return mdi_; }
    edit::ViewWindowTable& Table() { return windows_; }
    const edit::ViewWindowTable& Table() const { return windows_; }
    ViewWindow* View(int window) const;
    display::Surface* CurrentSurface() const;
    // The current window is open; and open and not frozen, so that the commands on it may act.
    bool CurrentOpen() const { return windows_.IsOpen(windows_.CurWin); }
    bool CurrentLive() const;

    // A new view window (mnuNewWindow); -1 when five are open.
    int NewWindow();
    // The redraw of the current window, and of every open window in turn.
    void RedrawCurrent();
    void RedrawAll();
    // A new airway drawn over the standing pictures of every window: lines and annotation.
    void QuickUpdateAll();
    void MakeCurrent(int window);
    // The Window menu's entry of a view: the window current and focused.
    void ShowWindow(int window);
    // 0 one above the other, 1 side by side, 2 cascaded.
    void Tile(int how);
    void ToggleFreeze();
    // A window's drawing area into the display state, before its view is built or drawn.
    void SyncArea(int window);
    void SyncCurrent() { SyncArea(windows_.CurWin); }
    // The current window's view kept in its slot.
    void SaveCurrentState();
    void Focus(int window);
    void SetCursor(const QCursor& cursor);
    // The caption of the current window, or of every open window, from its view.
    void RefreshCaption();
    void RefreshCaptions();
    // The Window menu's entries of the open views and the frames' titles, from the captions.
    void UpdateWindowMenu();
    // The entries of the five views at the end of the Window menu, hidden until opened.
    std::array<QAction*, edit::MaxViewWindows> AddMenuEntries(QMenu* menu);
    // The view window under a point of the screen; -1 when none.
    int WindowAt(const QPoint& global) const;

    // The rotation button: press (1 left, 2 right), move and release in face units; the timer
    // turns the current view while it is held, and the right button leaves it turning.
    void RotationPress(int button, QPointF at);
    void RotationMove(QPointF at);
    void RotationRelease(int button, QPointF at);
    void StopRotation();
    // At the end of the program: the rotation stops without a redraw.
    void StopTimers();

    // ViewWindowEvents
    void ViewMouseDown(int window, int button, int shift, const QPointF& at) override;
    void ViewMouseMove(int window, int buttons, int shift, const QPointF& at, const QPoint& global) override;
    void ViewMouseUp(int window, int button, int shift, const QPointF& at, const QPoint& global) override;
    void ViewWheel(int window, bool positive) override;
    bool ViewKey(int window, int key) override;
    void ViewResized(int window) override;

private:
    // quick: the lines and annotation drawn over the standing picture, without clearing it.
    void DrawInPlace(int window, bool quick = false);
    void OnSubWindowActivated(QMdiSubWindow* sub);
    bool CloseRequested(int window);
    void RotationTick();
    void ActivateSub(int window);

    QMainWindow& main_;
    Model& model_;
    display::DisplayState& ds_;
    ui::UserInterface& ui_;
    edit::ToolDispatcher& dispatcher_;
    Owner& owner_;

    QMdiArea* mdi_ = nullptr;
    edit::ViewWindowTable windows_;
    std::array<QPointer<ViewWindow>, edit::MaxViewWindows> views_{};
    std::array<QPointer<QMdiSubWindow>, edit::MaxViewWindows> subs_{};
    std::array<QAction*, edit::MaxViewWindows> entries_{};
    int pendingCurrent_ = -1; // the window to become current once a closed one has gone
    QTimer* resizeTimer_ = nullptr;
    QTimer* rotateTimer_ = nullptr;
    QPointF rotationAt_;
    bool rotationTicking_ = false;
};

} // namespace karvane::shell
