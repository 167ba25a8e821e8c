// The desktop program on the generated mine of 30,000 airways, on the offscreen platform: the
// start from nothing to a drawn window with the mine named on the command line, one step of an
// interactive rotation by the rotation button (rotate, drawn list, lines, repaint of the
// window), one step of a pan, and a full redraw with annotation.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <memory>

#include "display/mapped_surface.h"
#include "display/renderer.h"
#include "edit/view_gestures.h"
#include "files/network_file.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/units.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

constexpr std::int32_t kAirways = 29998;

// The program's folder with its own files, and the generated mine saved as a network file.
struct Setting {
    QTemporaryDir App;
    std::string MineFile;
    ui::ScriptedUserInterface Ui;

    Setting() {
        for (const char* name : {"Defaults.dat", "Conversion.dat", "fansdata.dat", "Remotes.dat"})
            QFile::copy(QStringLiteral(KARVANE_EXAMPLES "/") + QLatin1String(name), App.filePath(QLatin1String(name)));
        Ui.App = shell::ToPath(App.path());
        Ui.Temp = shell::ToPath(App.path());
        auto model = std::make_unique<Model>();
        SetBuiltInUnits(model->Units);
        SetBuiltInSettings(*model);
        minegen::MineRequest request;
        request.Airways = kAirways;
        minegen::GenerateMine(*model, request);
        MineFile = shell::ToPath(App.filePath(QStringLiteral("mine30k.sim")));
        model->FileName = MineFile;
        files::SaveNetwork(*model, Ui, 0);
    }
};

Setting& Shared() {
    static Setting setting;
    return setting;
}

std::unique_ptr<shell::MainWindow> OpenWindow() {
    auto window = std::make_unique<shell::MainWindow>(Shared().Ui);
    window->resize(1600, 1000);
    window->show();
    window->StartUp(Shared().MineFile);
    QCoreApplication::processEvents();
    return window;
}

void StartUpToDrawnWindow(benchmark::State& state) {
    for (auto _ : state) {
        auto window = OpenWindow();
        benchmark::DoNotOptimize(window->display().Drawn.size());
        state.PauseTiming();
        window.reset();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(StartUpToDrawnWindow)->Unit(benchmark::kMillisecond)->Iterations(5);

// The iso view of all levels, as the rotation button turns it.
std::unique_ptr<shell::MainWindow> IsoWindow() {
    auto window = OpenWindow();
    window->Trigger(QStringLiteral("mnuLevels3"));
    window->Trigger(QStringLiteral("Tool24"));
    display::DisplayState& ds = window->display();
    ds.View.Tilt = 1.0f;
    ds.View.Spin = 5.892f;
    display::ApplyRotation(window->model(), ds);
    window->RedrawWindow();
    return window;
}

void RotationStep(benchmark::State& state) {
    auto window = IsoWindow();
    Model& m = window->model();
    display::DisplayState& ds = window->display();
    shell::ViewWindow* view = window->view(window->windowTable().CurWin);
    edit::BeginRotationButton(m, ds);
    for (auto _ : state) {
        edit::RotationButtonTick(m, ds, edit::RotationRestX - 8, edit::RotationRestY);
        display::RedrawLinesOnly(m, ds, view->Surface(), Shared().Ui);
        view->repaint();
    }
    state.counters["drawn"] = static_cast<double>(ds.Drawn.size());
}
BENCHMARK(RotationStep)->Unit(benchmark::kMillisecond);

void PanStep(benchmark::State& state) {
    auto window = OpenWindow();
    Model& m = window->model();
    display::DisplayState& ds = window->display();
    shell::ViewWindow* view = window->view(window->windowTable().CurWin);
    const float startX = ds.View.CentreX, startY = ds.View.CentreY;
    float x = 0;
    ds.Panning = true;
    for (auto _ : state) {
        x = x > 100 ? 0 : x + 3;
        edit::PanView(m, ds, startX, startY, 0, 0, x, x / 2);
        display::RedrawLinesOnly(m, ds, view->Surface(), Shared().Ui);
        view->repaint();
    }
    ds.Panning = false;
}
BENCHMARK(PanStep)->Unit(benchmark::kMillisecond);

// Full redraws with annotation: the first view of one level in plan, and all levels in the iso view.
void FullRedraw(benchmark::State& state) {
    auto window = state.range(0) == 0 ? OpenWindow() : IsoWindow();
    shell::ViewWindow* view = window->view(window->windowTable().CurWin);
    for (auto _ : state) {
        window->RedrawWindow();
        view->repaint();
    }
    state.counters["drawn"] = static_cast<double>(window->display().Drawn.size());
}
BENCHMARK(FullRedraw)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The annotation pass alone on the window's surface, and on a surface that draws nothing: the
// difference is the painter's own share.
void AnnotationPass(benchmark::State& state) {
    auto window = IsoWindow();
    Model& m = window->model();
    display::DisplayState& ds = window->display();
    shell::ViewWindow* view = window->view(window->windowTable().CurWin);
    display::NullSurface null(view->width(), view->height());
    const bool painted = state.range(0) != 0;
    display::Surface& surface = painted ? static_cast<display::Surface&>(view->Surface()) : null;
    display::PrepareSurface(m, ds, surface);
    for (auto _ : state) {
        display::DrawAnnotations(m, ds, surface);
        surface.Refresh();
    }
}
BENCHMARK(AnnotationPass)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
