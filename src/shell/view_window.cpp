// View windows.
#include "shell/view_window.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "edit/tool_table.h"

namespace karvane::shell {

namespace {

int ButtonOf(Qt::MouseButton b) {
    switch (b) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

int ButtonsHeld(Qt::MouseButtons b) {
    if (b & Qt::MiddleButton) return 4;
    return ((b & Qt::LeftButton) ? 1 : 0) | ((b & Qt::RightButton) ? 2 : 0);
}

int ShiftOf(Qt::KeyboardModifiers m) { return (m & Qt::ShiftModifier) ? 1 : 0; }

} // namespace

ViewWindow::ViewWindow(int number, ViewWindowEvents& events, QWidget* parent)
    : QWidget(parent),
      number_(number),
      events_(events),
      surface_(400, 300) {
    setObjectName(QStringLiteral("frmWindow%1").arg(number));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(120, 90);
    surface_.SetRefreshHandler([this] { update(); });
    surface_.SetPixelsPerPoint(logicalDpiY() / 72.0);
}

int ViewWindow::KeyCode(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Backspace: return edit::key::Backspace;
    case Qt::Key_Tab: return edit::key::Tab;
    case Qt::Key_Escape: return edit::key::Escape;
    case Qt::Key_Home: return edit::key::Home;
    case Qt::Key_Up: return edit::key::Up;
    case Qt::Key_Down: return edit::key::Down;
    default: break;
    }
    if (qtKey >= Qt::Key_F2 && qtKey <= Qt::Key_F12) return edit::key::F2 + (qtKey - Qt::Key_F2);
    return 0;
}

void ViewWindow::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QImage& picture = surface_.Picture();
    p.drawImage(0, 0, picture);
    // Until the next redraw a grown window shows its background beyond the old picture.
    if (picture.width() < width()) p.fillRect(picture.width(), 0, width() - picture.width(), height(), Qt::black);
    if (picture.height() < height()) p.fillRect(0, picture.height(), width(), height() - picture.height(), Qt::black);
}

void ViewWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    surface_.Resize(width(), height());
    if (number_ >= 0) events_.ViewResized(number_);
}

void ViewWindow::mousePressEvent(QMouseEvent* event) {
    if (number_ < 0) return;
    setFocus(Qt::MouseFocusReason);
    const int b = ButtonOf(event->button());
    if (b == 0) return;
    events_.ViewMouseDown(number_, b, ShiftOf(event->modifiers()), ToWindow(event->position()));
}

void ViewWindow::mouseMoveEvent(QMouseEvent* event) {
    if (number_ < 0) return;
    events_.ViewMouseMove(number_, ButtonsHeld(event->buttons()), ShiftOf(event->modifiers()),
                          ToWindow(event->position()), event->globalPosition().toPoint());
}

void ViewWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (number_ < 0) return;
    const int b = ButtonOf(event->button());
    if (b == 0) return;
    events_.ViewMouseUp(number_, b, ShiftOf(event->modifiers()), ToWindow(event->position()),
                        event->globalPosition().toPoint());
}

void ViewWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    // A double click is two clicks to the tools.
    mousePressEvent(event);
}

void ViewWindow::wheelEvent(QWheelEvent* event) {
    if (number_ < 0) return;
    // One notch of a wheel is 120; a touch pad gives parts of it, gathered here.
    wheelRest_ += event->angleDelta().y();
    while (wheelRest_ >= 120) {
        wheelRest_ -= 120;
        events_.ViewWheel(number_, true);
    }
    while (wheelRest_ <= -120) {
        wheelRest_ += 120;
        events_.ViewWheel(number_, false);
    }
    event->accept();
}

void ViewWindow::keyPressEvent(QKeyEvent* event) {
    const int code = KeyCode(event->key());
    if (number_ >= 0 && code != 0 && events_.ViewKey(number_, code)) {
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

bool ViewWindow::focusNextPrevChild(bool) {
    // Tab is the Redo key of the views, not a move of the focus.
    return false;
}

} // namespace karvane::shell
