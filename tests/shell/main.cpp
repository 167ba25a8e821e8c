// The GUI tests, on the offscreen platform unless another is asked for.
#include <QApplication>
#include <QStandardPaths>
#include <QTest>

#include "shell_tests.h"

namespace {

template <class Test>
int Run(int argc, char** argv) {
    Test test;
    return QTest::qExec(&test, argc, argv);
}

// Every test class in turn; the status tells whether any failed.
template <class... Tests>
int RunAll(int argc, char** argv) {
    int status = 0;
    ((status |= Run<Tests>(argc, argv)), ...);
    return status;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication app(argc, argv);
    using namespace karvane::shell::testing;
    return RunAll<MainWindowTest, ViewWindowTest, SurfaceTest, GridEditorTest, AirwayDialogsTest, PrintTest,
                  EditorDialogsTest, SpreadSheetWindowTest, StudyWindowTest>(argc, argv);
}
