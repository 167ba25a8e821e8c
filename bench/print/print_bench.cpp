// The print of a whole generated mine (1,000 to 30,000 airways) on A0 with values on: the
// print layout alone on a null page, the page as SVG, and the page through Qt's PDF output to
// a file, with the file's size as a counter.
#include <benchmark/benchmark.h>

#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <memory>

#include "display/display_list.h"
#include "display/drawn_list.h"
#include "display/mapped_surface.h"
#include "display/print_network.h"
#include "display/svg_surface.h"
#include "display/view_title.h"
#include "display/view_transform.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/node_keys.h"
#include "model/units.h"
#include "qt/page_job.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;
using namespace karvane::display;

constexpr double kA0Width = 841, kA0Height = 1189;

// The mine in a plan view of all levels, fitted, with every kind of value and name on.
struct Mine {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    std::unique_ptr<DisplayState> Ds = std::make_unique<DisplayState>();
    ui::ScriptedUserInterface Ui;
    PrintSettings Print;

    explicit Mine(std::int32_t airways) {
        SetBuiltInUnits(M->Units);
        SetBuiltInSettings(*M);
        minegen::MineRequest request;
        request.Airways = airways;
        minegen::GenerateMine(*M, request);
        BuildNodeKeys(*M, Ui);
        ResetViewOptions(*M, *Ds);
        Ds->AreaWidth = 1600;
        Ds->AreaHeight = 1000;
        Ds->View.LevelMode = lm::All;
        Ds->View.DataType = 12;
        Ds->View.DisplayOptions = 511;
        BuildDisplayList(*M, *Ds);
        FitView(*M, *Ds, Ui);
        ApplyRotation(*M, *Ds);
        BuildDrawnList(*M, *Ds);
        Print.PrintInColour = 1;
        Print.PrintTitle = "Generated mine";
    }
    bool PrintOn(Surface& page) {
        Ds->ScaleFigure = 0;
        return PrintNetwork(*M, *Ds, page, Print, Ui);
    }
};

void PrintLayoutNullPage(benchmark::State& state) {
    Mine mine(static_cast<std::int32_t>(state.range(0)));
    for (auto _ : state) {
        NullSurface page(1, 1);
        page.SetPage(kA0Width, kA0Height, shell::PdfDotsPerInch);
        if (!mine.PrintOn(page)) state.SkipWithError("print failed");
    }
    state.counters["drawn"] = static_cast<double>(mine.Ds->Drawn.size());
}

void PrintSvgPage(benchmark::State& state) {
    Mine mine(static_cast<std::int32_t>(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state) {
        SvgSurface page(1, 1);
        page.SetPage(kA0Width, kA0Height, shell::PdfDotsPerInch);
        if (!mine.PrintOn(page)) state.SkipWithError("print failed");
        bytes = page.Document().size();
    }
    state.counters["MB"] = static_cast<double>(bytes) / 1e6;
}

void PrintPdfFile(benchmark::State& state) {
    Mine mine(static_cast<std::int32_t>(state.range(0)));
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("mine.pdf"));
    for (auto _ : state) {
        QString error;
        if (!shell::WritePdf(
                path, QPageSize(QPageSize::A0), QPageLayout::Portrait, QStringLiteral("Generated mine"),
                [&](Surface& page) { return mine.PrintOn(page); }, &error))
            state.SkipWithError("PDF not written");
    }
    state.counters["MB"] = static_cast<double>(QFileInfo(path).size()) / 1e6;
}

BENCHMARK(PrintLayoutNullPage)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(PrintSvgPage)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(PrintPdfFile)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
