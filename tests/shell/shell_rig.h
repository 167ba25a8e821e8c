// The main window of the program on the offscreen platform, with a program folder of its own
// (copies of the program's files, or none), a temporary folder of its own, and the scripted
// user interface answering every question.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <memory>
#include <string>

#include "shell/main_window.h"
#include "ui/scripted_ui.h"

namespace karvane::shell::testing {

inline const std::string DemoMine = std::string(KARVANE_EXAMPLES) + "/demo-mine.sim";

struct ShellRig {
    QTemporaryDir App;
    QTemporaryDir Temp;
    ui::ScriptedUserInterface Ui;
    std::unique_ptr<MainWindow> Window;

    // withFiles: the program's own files (defaults, conversions, fans, stations) beside it.
    explicit ShellRig(bool withFiles = true, const std::string& commandFile = {}, bool start = true);
    ~ShellRig();

    void Start(const std::string& commandFile = {});
    MainWindow& W() { return *Window; }
    Model& M() { return Window->model(); }
    display::DisplayState& Ds() { return Window->display(); }
    ViewWindow* View(int n = -1) { return Window->view(n < 0 ? Window->windowTable().CurWin : n); }
    // Opens the demo mine by the Open command.
    void OpenDemo();

    // Mouse events on a window at a pixel, as the platform sends them.
    void Press(QWidget* v, Qt::MouseButton b, QPointF at, Qt::KeyboardModifiers m = Qt::NoModifier);
    void Move(QWidget* v, Qt::MouseButtons held, QPointF at, Qt::KeyboardModifiers m = Qt::NoModifier);
    void Release(QWidget* v, Qt::MouseButton b, QPointF at, Qt::KeyboardModifiers m = Qt::NoModifier);
    void Click(QWidget* v, Qt::MouseButton b, QPointF at, Qt::KeyboardModifiers m = Qt::NoModifier);
    void Wheel(ViewWindow* v, int notches);
    void Key(QWidget* w, Qt::Key key);
    // The cursor coordinates of a pixel of the current view (window coordinates times the signs).
    QPointF CursorAt(ViewWindow* v, QPointF pixel);
};

} // namespace karvane::shell::testing
