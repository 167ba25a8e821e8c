// import IN.dxf|IN.txt OUT.sim [--merge BASE.sim] [--levels] [--offset X,Y,Z] [--negate xyz]
// [--retain-drive] [--retain-raise] [--common-size]: makes a network of the centre lines of a
// drawing or of the rows of a text export, alone or merged behind a network, and saves it.
#include <memory>
#include <sstream>

#include "commands.h"
#include "exchange/import.h"
#include "model/network_rows.h"
#include "session.h"

namespace karvane::cli {

namespace {

struct ImportOptions {
    std::string In, Out, Merge, Offset, Negate;
    exchange::ImportFields Fields;
};

bool SplitOffset(const std::string& text, exchange::ImportFields& f) {
    std::stringstream in(text);
    std::string* boxes[3] = {&f.TxtXOffset, &f.TxtYOffset, &f.TxtZOffset};
    for (std::string* box : boxes)
        if (!std::getline(in, *box, ',')) return false;
    std::string rest;
    return !std::getline(in, rest);
}

bool ReadNegate(const std::string& axes, exchange::ImportFields& f) {
    for (char c : axes) {
        if (c == 'x' || c == 'X') f.NegX = true;
        else if (c == 'y' || c == 'Y') f.NegY = true;
        else if (c == 'z' || c == 'Z') f.NegZ = true;
        else return false;
    }
    return true;
}

int Import(const CommandLine& cl, ImportOptions& o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    ui::ConsoleUserInterface& ui = s.ui();
    if (!o.Offset.empty() && !SplitOffset(o.Offset, o.Fields)) {
        ui.Message("Offset must be three numbers X,Y,Z: " + o.Offset, "Import", ui::Icon::Critical);
        return ExitUsage;
    }
    if (!ReadNegate(o.Negate, o.Fields)) {
        ui.Message("Axes to negate must be letters of xyz: " + o.Negate, "Import", ui::Icon::Critical);
        return ExitUsage;
    }
    o.Fields.ChkMerge = !o.Merge.empty();
    if (o.Fields.ChkMerge) {
        if (!s.Load(o.Merge)) return ExitFailure;
    } else {
        s.StartProgram();
        ClearNetwork(s.model());
        SetNewNetworkLevels(s.model());
    }
    if (!exchange::ImportFile(s.model(), ui, o.In, o.Fields)) return ExitFailure;
    return s.Save(o.Out) ? ExitOk : ExitFailure;
}

} // namespace

void AddImportCommand(CommandLine& cl) {
    auto o = std::make_shared<ImportOptions>();
    CLI::App* sub = cl.Add("import", "Make a network of a DXF drawing or a text export, and save it",
                           [&cl, o] { return Import(cl, *o); });
    sub->add_option("IN", o->In, "Drawing (.dxf) or text export (.txt) to read")->required();
    sub->add_option("OUT", o->Out, "Network file to write")->required();
    sub->add_option("--merge", o->Merge, "Network to merge the airways behind");
    sub->add_flag("--levels", o->Fields.ChkRL, "A level for every distinct height (asks where the surface goes)");
    sub->add_option("--offset", o->Offset, "Added to every coordinate, X,Y,Z in the length unit");
    sub->add_option("--negate", o->Negate, "Axes negated after the offset, e.g. xz");
    sub->add_flag("--retain-drive", o->Fields.ChkRDrive, "Drives keep the resistance of the file");
    sub->add_flag("--retain-raise", o->Fields.ChkRRaise, "Raises keep the resistance of the file");
    sub->add_flag("--common-size", o->Fields.ChkSize, "Every airway takes the drive size, none the raise size");
}

} // namespace karvane::cli
