// The GUI tests, on the offscreen platform unless another is asked for.
#include <QApplication>
#include <QStandardPaths>
#include <QTest>

#include "shell_tests.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication app(argc, argv);
    int status = 0;
    {
        karvane::shell::testing::MainWindowTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    {
        karvane::shell::testing::ViewWindowTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    {
        karvane::shell::testing::SurfaceTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    {
        karvane::shell::testing::GridEditorTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    {
        karvane::shell::testing::AirwayDialogsTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    {
        karvane::shell::testing::PrintTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    {
        karvane::shell::testing::EditorDialogsTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    {
        karvane::shell::testing::SpreadSheetWindowTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    {
        karvane::shell::testing::StudyWindowTest test;
        status |= QTest::qExec(&test, argc, argv);
    }
    return status;
}
