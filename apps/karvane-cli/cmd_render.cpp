// render FILE OUT.svg [--view N] [--data TYPE] [--size WxH] [--level NAME|--all-levels]
// [--simulate]: draws a network as the program's first view window shows it, optionally after
// an airflow run, into an SVG picture.
#include <cctype>
#include <fstream>
#include <memory>

#include "commands.h"
#include "display/data_types.h"
#include "display/display_list.h"
#include "display/level_selector.h"
#include "display/renderer.h"
#include "display/saved_views.h"
#include "display/startup_view.h"
#include "display/svg_surface.h"
#include "display/view_transform.h"
#include "files/network_load.h"
#include "session.h"
#include "simulate/run.h"

namespace karvane::cli {

namespace {

struct RenderOptions {
    std::string File;
    std::string Out;
    int View = -1;
    std::string Data;
    std::string Size = "1200x900";
    std::string Level;
    bool AllLevels = false;
    bool Simulate = false;
};

bool SameName(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

// "1200x900" as a width and a height within what a picture can sensibly be.
bool ParseSize(const std::string& text, int& width, int& height) {
    const auto x = text.find_first_of("xX");
    if (x == std::string::npos) return false;
    try {
        std::size_t used = 0;
        width = std::stoi(text.substr(0, x), &used);
        if (used != x) return false;
        const std::string rest = text.substr(x + 1);
        height = std::stoi(rest, &used);
        if (used != rest.size()) return false;
    } catch (...) {
        return false;
    }
    return width >= 16 && height >= 16 && width <= 20000 && height <= 20000;
}

int Render(const CommandLine& cl, const RenderOptions& o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    ui::ConsoleUserInterface& ui = s.ui();
    int width = 0, height = 0;
    if (!ParseSize(o.Size, width, height)) {
        ui.Message("Size must be WIDTHxHEIGHT in pixels, 16 to 20000 each: " + o.Size, "Render", ui::Icon::Critical);
        return ExitUsage;
    }
    int dataType = 0;
    if (!o.Data.empty()) {
        dataType = std::isdigit(static_cast<unsigned char>(o.Data[0])) ? std::atoi(o.Data.c_str())
                                                                       : display::DataTypeByName(o.Data);
        if (!display::IsDataType(dataType)) {
            ui.Message("Unknown data type: " + o.Data, "Render", ui::Icon::Critical);
            return ExitUsage;
        }
    }

    s.StartProgram();
    Model& m = s.model();
    m.FileName = o.File;
    files::LoadReport report;
    files::LoadOptions options;
    options.Report = &report;
    files::LoadNetwork(m, ui, options);
    if (!report.NetworkChanged) return ExitFailure;

    if (o.Simulate) {
        m.SimMode = 0;
        m.ShowProgress = cl.Global.Progress ? 1 : 0;
        simulate::RunAirflow(m, ui);
    }

    auto ds = std::make_unique<display::DisplayState>();
    ds->AreaWidth = width;
    ds->AreaHeight = height;
    ds->DecimalSeparator = ui.DecimalSeparator();
    // The program's first window stands in Single mode at the level the load chose, until a
    // start-up view of the file says otherwise.
    ds->View.LevelMode = display::lm::Single;
    display::ShowLoadedNetwork(m, *ds, ui, report.StartupViewRead, {report.CurrentLevel, report.CurRL});

    if (o.View >= 0) {
        const bool named = o.View < static_cast<int>(m.SavedViews.size()) &&
                           (!TrimText(m.SavedViews[static_cast<std::size_t>(o.View)].ViewName).empty() ||
                            m.SavedViews[static_cast<std::size_t>(o.View)].ViewParam[5] != 0);
        const auto load = named ? display::LoadViewFromSlot(m, *ds, o.View) : display::ViewLoad::NotLoaded;
        if (load == display::ViewLoad::NotLoaded) {
            ui.Message("Error - could not load view", ProgramName, ui::Icon::Exclamation);
            return ExitFailure;
        }
        if (load == display::ViewLoad::AnglesOnly) {
            display::BuildDisplayList(m, *ds);
            display::FitView(m, *ds, ui);
            display::ApplyRotation(m, *ds);
        }
    }
    if (!o.Level.empty()) {
        int row = 0;
        for (int r = 1; r <= display::LevelListCount(m); ++r) {
            if (SameName(TrimText(m.Levels[static_cast<std::size_t>(r)].RLName), TrimText(o.Level))) row = r;
        }
        if (row == 0) {
            ui.Message("No level of that name: " + o.Level, "Render", ui::Icon::Critical);
            return ExitFailure;
        }
        display::ChooseLevelRow(m, *ds, row);
    } else if (o.AllLevels) {
        display::SelectAllLevels(m, *ds);
    }
    if (dataType != 0) display::ChooseDataType(m, *ds, dataType);

    display::SvgSurface svg(width, height);
    display::RedrawWindow(m, *ds, svg, ui);
    std::ofstream out(o.Out, std::ios::binary | std::ios::trunc);
    out << svg.Document();
    out.close();
    if (!out) {
        ui.Message("Cannot write the picture " + o.Out, "Render", ui::Icon::Critical);
        return ExitFailure;
    }
    return ExitOk;
}

} // namespace

void AddRenderCommand(CommandLine& cl) {
    auto o = std::make_shared<RenderOptions>();
    CLI::App* sub = cl.Add("render", "Draw a network as its first view window shows it, as an SVG picture",
                           [&cl, o] { return Render(cl, *o); });
    sub->add_option("FILE", o->File, "Network file (.sim or .smm)")->required();
    sub->add_option("OUT", o->Out, "SVG picture to write")->required();
    sub->add_option("--view", o->View,
                    "Saved view to show: 0 the start-up view, 1 to 5 the permanent views, "
                    "6 to 100 the named views (default: view 0, else fitted)")
        ->check(CLI::Range(0, SavedViewSlots - 1));
    sub->add_option("--data", o->Data, "Data type on the airways, by number (12) or name (\"Velocity\")");
    sub->add_option("--size", o->Size, "Picture size in pixels, WIDTHxHEIGHT (default 1200x900)");
    auto* level = sub->add_option("--level", o->Level, "Show this level alone, by its name");
    auto* all = sub->add_flag("--all-levels", o->AllLevels, "Show all levels");
    level->excludes(all);
    sub->add_flag("--simulate", o->Simulate, "Balance the network first and show the results");
}

} // namespace karvane::cli
