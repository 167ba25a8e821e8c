// render FILE OUT.svg|OUT.png [--view N] [--data TYPE] [--size WxH] [--level NAME|--all-levels]
// [--simulate]: draws a network as the program's first view window shows it, optionally after
// an airflow run, into an SVG picture, or a PNG picture drawn as the window draws it.
#include <fstream>
#include <memory>

#include "commands.h"
#include "display/renderer.h"
#include "display/svg_surface.h"
#include "gui_output.h"
#include "session.h"
#include "view_setup.h"

namespace karvane::cli {

namespace {

struct RenderOptions {
    ViewRequest View;
    std::string Out;
    std::string Size = "1200x900";
};

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

int Render(const CommandLine& cl, RenderOptions o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    ui::ConsoleUserInterface& ui = s.ui();
    if (!ParseSize(o.Size, o.View.Width, o.View.Height)) {
        ui.Message("Size must be WIDTHxHEIGHT in pixels, 16 to 20000 each: " + o.Size, "Render", ui::Icon::Critical);
        return ExitUsage;
    }
    const int dataType = ParseDataType(o.View.Data, ui, "Render");
    if (dataType < 0) return ExitUsage;
    const bool png = HasExtension(o.Out, ".png");
    if (png && !GuiOutputAvailable()) {
        ui.Message("PNG pictures need Qt's GUI module, which this build lacks: write an .svg picture", "Render",
                   ui::Icon::Critical);
        return ExitUsage;
    }
    o.View.Progress = cl.Global.Progress;
    auto ds = SetUpView(s, o.View, dataType, "Render");
    if (!ds) return ExitFailure;
    Model& m = s.model();
    if (png) {
        std::string error;
        if (!WritePngPicture(m, *ds, ui, o.Out, error)) {
            ui.Message(error, "Render", ui::Icon::Critical);
            return ExitFailure;
        }
        return ExitOk;
    }
    display::SvgSurface svg(o.View.Width, o.View.Height);
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
    CLI::App* sub = cl.Add("render", "Draw a network as its first view window shows it, as an SVG or PNG picture",
                           [&cl, o] { return Render(cl, *o); });
    sub->add_option("FILE", o->View.File, "Network file (.sim or .smm)")->required();
    sub->add_option("OUT", o->Out, "Picture to write: .svg, or .png as the window draws it")->required();
    sub->add_option("--view", o->View.View,
                    "Saved view to show: 0 the start-up view, 1 to 5 the permanent views, "
                    "6 to 100 the named views (default: view 0, else fitted)")
        ->check(CLI::Range(0, SavedViewSlots - 1));
    sub->add_option("--data", o->View.Data, "Data type on the airways, by number (12) or name (\"Velocity\")");
    sub->add_option("--size", o->Size, "Picture size in pixels, WIDTHxHEIGHT (default 1200x900)");
    auto* level = sub->add_option("--level", o->View.Level, "Show this level alone, by its name");
    auto* all = sub->add_flag("--all-levels", o->View.AllLevels, "Show all levels");
    level->excludes(all);
    sub->add_flag("--simulate", o->View.Simulate, "Balance the network first and show the results");
}

} // namespace karvane::cli
