// A view window (frmWindow): a widget in the main window's work area that shows its off-screen
// picture and hands its mouse, wheel and key events, in window coordinates of its own view
// box, to the main window.
#pragma once

#include <QWidget>

#include "qt/qt_surface.h"

namespace karvane::shell {

// Where a view window's events go.
class ViewWindowEvents {
public:
    virtual ~ViewWindowEvents() = default;
    // Buttons: 1 left, 2 right, 3 both, 4 middle; shift 1 with Shift held. A press and a
    // release give the button that changed, a move the buttons held.
    virtual void ViewMouseDown(int window, int button, int shift, const QPointF& at) = 0;
    virtual void ViewMouseMove(int window, int buttons, int shift, const QPointF& at, const QPoint& global) = 0;
    virtual void ViewMouseUp(int window, int button, int shift, const QPointF& at, const QPoint& global) = 0;
    virtual void ViewWheel(int window, bool positive) = 0;
    // A key of the view; true when it was taken.
    virtual bool ViewKey(int window, int key) = 0;
    virtual void ViewResized(int window) = 0;
};

class ViewWindow : public QWidget {
    Q_OBJECT
public:
    ViewWindow(int number, ViewWindowEvents& events, QWidget* parent = nullptr);

    // The window's number, 0 to 4; -1 once the window is no view window any more.
    int Number() const { return number_; }
    void Untag() { number_ = -1; }
    QtSurface& Surface() { return surface_; }
    // Window coordinates of a pixel of this window, by the box it was last drawn with.
    QPointF ToWindow(const QPointF& pixel) const { return surface_.ToWindow(pixel); }

    // The key code of the tool table for a Qt key; 0 for a key the views do not use.
    static int KeyCode(int qtKey);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    int number_;
    ViewWindowEvents& events_;
    QtSurface surface_;
    int wheelRest_ = 0;
};

} // namespace karvane::shell
