// PNG pictures through Qt's GUI module on the offscreen platform, when the build has it.
#include "gui_output.h"

#include <cctype>

#ifdef KARVANE_CLI_QT
#include <QGuiApplication>
#include <QImageWriter>
#include <cstdio>
#include <memory>

#include "display/renderer.h"
#include "qt/qt_surface.h"
#include "qt/qt_text.h"
#endif

namespace karvane::cli {

bool HasExtension(const std::string& path, std::string_view extension) {
    if (path.size() < extension.size()) return false;
    const std::string_view tail = std::string_view(path).substr(path.size() - extension.size());
    for (std::size_t i = 0; i < tail.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(tail[i])) != std::tolower(static_cast<unsigned char>(extension[i])))
            return false;
    }
    return true;
}

#ifdef KARVANE_CLI_QT

bool GuiOutputAvailable() { return true; }

void StartGuiOutput() {
    if (QGuiApplication::instance()) return;
    // No screen is needed: pictures and pages are drawn off screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "karvane-cli";
    static char* argv[] = {name, nullptr};
    // Qt's own notes (a missing runtime folder, font substitutions) are no messages of the program.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "Qt: %s\n", qPrintable(text));
    });
    static std::unique_ptr<QGuiApplication> app = std::make_unique<QGuiApplication>(argc, argv);
}

bool WritePngPicture(const Model& model, display::DisplayState& ds, ui::UserInterface& ui, const std::string& path,
                     std::string& error) {
    StartGuiOutput();
    shell::QtSurface surface(ds.AreaWidth, ds.AreaHeight);
    surface.SetPixelsPerPoint(96.0 / 72.0);
    display::RedrawWindow(model, ds, surface, ui);
    QImageWriter writer(shell::FromPath(path), "png");
    if (!writer.write(surface.Picture())) {
        error = "Cannot write the picture " + path + ": " + writer.errorString().toStdString();
        return false;
    }
    return true;
}

#else

bool GuiOutputAvailable() { return false; }
void StartGuiOutput() {}
bool WritePngPicture(Model&, display::DisplayState&, ui::UserInterface&, const std::string&, std::string& error) {
    error = "PNG pictures need Qt's GUI module";
    return false;
}

#endif

} // namespace karvane::cli
