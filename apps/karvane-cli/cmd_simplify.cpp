// simplify FILE OUT [--max-length L] [--max-angle A] [--no-presets] [--same-wall] [--same-size]
// [--selected] [--combine] [--remove-zero-flow]: merges chains of airways into single airways
// and saves the smaller network.
#include <memory>

#include "commands.h"
#include "exchange/simplify.h"
#include "files/undo_log.h"
#include "session.h"

namespace karvane::cli {

namespace {

struct SimplifyOptions {
    std::string File, Out;
    exchange::SimplifyFields Fields = exchange::FillSimplify();
};

int Simplify(const CommandLine& cl, SimplifyOptions& o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    if (!s.Load(o.File)) return ExitFailure;
    files::UndoLog undo;
    undo.Open(s.ui());
    exchange::SliderMoved(o.Fields);
    exchange::CmdSimp(s.model(), s.ui(), undo, o.Fields);
    return s.Save(o.Out) ? ExitOk : ExitFailure;
}

} // namespace

void AddSimplifyCommand(CommandLine& cl) {
    auto o = std::make_shared<SimplifyOptions>();
    CLI::App* sub = cl.Add("simplify", "Merge chains of airways into single airways and save the network",
                           [&cl, o] { return Simplify(cl, *o); });
    sub->add_option("FILE", o->File, "Network file (.sim or .smm)")->required();
    sub->add_option("OUT", o->Out, "Network file to write")->required();
    sub->add_option("--max-length", o->Fields.HSL, "Longest airway a merge may start from, m (default 100)")
        ->check(CLI::Range(exchange::MaxLengthSliderMin, exchange::MaxLengthSliderMax));
    sub->add_option("--max-angle", o->Fields.HSA, "Largest angle between two airways that merge, degrees (default 10)")
        ->check(CLI::Range(exchange::MaxAngleSliderMin, exchange::MaxAngleSliderMax));
    sub->add_flag("--no-presets", o->Fields.CheckR, "Airways with a preset resistance are left alone");
    sub->add_flag("--same-wall", o->Fields.CheckK, "Only airways of the same wall type merge");
    sub->add_flag("--same-size", o->Fields.CheckS, "Only airways of the same size merge");
    sub->add_flag("--selected", o->Fields.CheckSel, "Only selected airways start a merge");
    sub->add_flag("--combine", o->Fields.ChkCombine, "The merged airway keeps the sum of the lengths and shock losses");
    sub->add_flag("--remove-zero-flow", o->Fields.ChkZero, "Also delete airways that carry no flow");
}

} // namespace karvane::cli
