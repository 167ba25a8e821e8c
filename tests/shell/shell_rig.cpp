// The main window rig of the GUI tests.
#include "shell_rig.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include "qt/qt_text.h"

namespace karvane::shell::testing {

ShellRig::ShellRig(bool withFiles, const std::string& commandFile, bool start) {
    if (withFiles) {
        for (const char* name : {"Defaults.dat", "Conversion.dat", "fansdata.dat", "Remotes.dat"})
            QFile::copy(QStringLiteral(KARVANE_EXAMPLES "/") + QLatin1String(name), App.filePath(QLatin1String(name)));
    }
    Ui.App = ToPath(App.path());
    Ui.Temp = ToPath(Temp.path());
    Window = std::make_unique<MainWindow>(Ui);
    Window->resize(1200, 800);
    Window->show();
    QCoreApplication::processEvents();
    if (start) Start(commandFile);
}

ShellRig::~ShellRig() {
    // No questions at the end of a test: the window goes without its closing list.
    Window.reset();
    QCoreApplication::processEvents();
}

void ShellRig::Start(const std::string& commandFile) {
    Window->StartUp(commandFile);
    QCoreApplication::processEvents();
}

void ShellRig::OpenDemo() {
    Ui.FilePaths.push_back(DemoMine);
    Window->Trigger(QStringLiteral("mnuOpenFile"));
    QCoreApplication::processEvents();
}

namespace {
void Send(QWidget* w, QEvent::Type type, Qt::MouseButton b, Qt::MouseButtons held, QPointF at,
          Qt::KeyboardModifiers m) {
    QMouseEvent event(type, at, w->mapToGlobal(at), b, held, m);
    QApplication::sendEvent(w, &event);
}
} // namespace

void ShellRig::Press(QWidget* v, Qt::MouseButton b, QPointF at, Qt::KeyboardModifiers m) {
    Send(v, QEvent::MouseButtonPress, b, b, at, m);
}

void ShellRig::Move(QWidget* v, Qt::MouseButtons held, QPointF at, Qt::KeyboardModifiers m) {
    Send(v, QEvent::MouseMove, Qt::NoButton, held, at, m);
}

void ShellRig::Release(QWidget* v, Qt::MouseButton b, QPointF at, Qt::KeyboardModifiers m) {
    Send(v, QEvent::MouseButtonRelease, b, Qt::NoButton, at, m);
}

void ShellRig::Click(QWidget* v, Qt::MouseButton b, QPointF at, Qt::KeyboardModifiers m) {
    Press(v, b, at, m);
    Release(v, b, at, m);
}

void ShellRig::Wheel(ViewWindow* v, int notches) {
    const QPointF at(v->width() / 2.0, v->height() / 2.0);
    QWheelEvent event(at, v->mapToGlobal(at), QPoint(), QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(v, &event);
}

void ShellRig::Key(QWidget* w, Qt::Key key) { QTest::keyClick(w, key); }

QPointF ShellRig::CursorAt(ViewWindow* v, QPointF pixel) {
    const QPointF w = v->ToWindow(pixel);
    return {w.x() * M().SgnX, w.y() * M().SgnY};
}

} // namespace karvane::shell::testing
