// export-dxf FILE OUT.dxf [--screen] [--arrow S] [--node-circle S] [--text-sizes D,N,A]
// [--visible-only]: writes a network as a DXF drawing, in world coordinates (the true form) or
// as its first view window shows it (the screen form).
#include <memory>
#include <sstream>

#include "commands.h"
#include "display/drawn_list.h"
#include "display/startup_view.h"
#include "exchange/dxf_export.h"
#include "files/network_load.h"
#include "session.h"

namespace karvane::cli {

namespace {

struct ExportDxfOptions {
    std::string File, Out;
    bool Screen = false;
    std::string Arrow, NodeCircle, TextSizes;
    bool VisibleOnly = false;
};

// "D,N,A": the sizes of data text, node names and airway names.
bool SplitSizes(const std::string& text, std::string& d, std::string& n, std::string& a) {
    std::stringstream in(text);
    std::string parts[3];
    for (std::string& part : parts)
        if (!std::getline(in, part, ',')) return false;
    std::string rest;
    if (std::getline(in, rest)) return false;
    d = parts[0], n = parts[1], a = parts[2];
    return true;
}

int ExportDxf(const CommandLine& cl, const ExportDxfOptions& o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    ui::ConsoleUserInterface& ui = s.ui();
    s.StartProgram();
    Model& m = s.model();
    files::LoadReport report;
    files::LoadOptions options;
    options.Report = &report;
    files::LoadNetwork(m, o.File, ui, options);
    if (!report.NetworkChanged) return ExitFailure;

    exchange::ExportFields fields = exchange::FillExport(m);
    if (!o.Arrow.empty()) fields.TxtArrow = o.Arrow;
    if (!o.NodeCircle.empty()) fields.TxtNodeCircle = o.NodeCircle;
    if (!o.TextSizes.empty() && !SplitSizes(o.TextSizes, fields.TxtData, fields.TxtNode, fields.TxtAirway)) {
        ui.Message("Text sizes must be three numbers D,N,A: " + o.TextSizes, "Export", ui::Icon::Critical);
        return ExitUsage;
    }
    if (o.VisibleOnly) fields.ChkVisible = true;
    exchange::ApplyExport(m, fields);

    auto ds = std::make_unique<display::DisplayState>();
    ds->DecimalSeparator = ui.DecimalSeparator();
    display::ShowLoadedNetwork(m, *ds, ui, report.StartupViewRead, {report.CurrentLevel, report.CurRL});
    bool written = false;
    if (o.Screen) {
        display::BuildDrawnList(m, *ds);
        written = exchange::ExportDxfScreen(m, *ds, o.Out, ui);
    } else {
        written = exchange::ExportDxfTrue(m, *ds, o.Out, ui);
    }
    return written ? ExitOk : ExitFailure;
}

} // namespace

void AddExportDxfCommand(CommandLine& cl) {
    auto o = std::make_shared<ExportDxfOptions>();
    CLI::App* sub = cl.Add("export-dxf", "Write a network as a DXF drawing", [&cl, o] { return ExportDxf(cl, *o); });
    sub->add_option("FILE", o->File, "Network file (.sim or .smm)")->required();
    sub->add_option("OUT", o->Out, "DXF file to write")->required();
    sub->add_flag("--screen", o->Screen, "Write what the first view window shows, flat, in window coordinates");
    sub->add_option("--arrow", o->Arrow, "Size of the direction arrows (0: none in the true form)");
    sub->add_option("--node-circle", o->NodeCircle, "Radius of the circles at airway ends (0: none)");
    sub->add_option("--text-sizes", o->TextSizes, "Heights of data text, node names and airway names, D,N,A");
    sub->add_flag("--visible-only", o->VisibleOnly, "Only the airways the first view shows (true form)");
}

} // namespace karvane::cli
