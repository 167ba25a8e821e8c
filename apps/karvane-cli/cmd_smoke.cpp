// smoke FILE [--cumulative] [--solver S] [--json]: the contaminant spread from the sources stored in a
// network (source bit and level), after an airflow run: every contaminated airway with its
// level and the time the contaminant reaches it, and the legend.
#include <iomanip>
#include <iostream>
#include <memory>

#include "commands.h"
#include "contaminant/colours.h"
#include "contaminant/spread.h"
#include "output.h"
#include "session.h"

namespace karvane::cli {

namespace {

struct SmokeOptions {
    std::string Path;
    bool Cumulative = false;
    std::string Solver; // empty: the network's setting
    bool Json = false;
};

const char* ModeName(const Model& m) { return m.Set.SmokeCumulative == 1 ? "Cummulative" : "Fixed Injection"; }

int CountSources(const Model& m) {
    int sources = 0;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r)
        if (m.Airways[r].Has(bc::ContaminantSource)) ++sources;
    return sources;
}

void PrintSpread(const Model& m) {
    std::ostream& o = std::cout;
    int contaminated = 0;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r)
        if (m.Airways[r].Gas2 != 0) ++contaminated;
    o << "Mode: " << ModeName(m) << '\n';
    o << "Sources: " << CountSources(m) << '\n';
    o << "Contaminated airways: " << contaminated << '\n';
    if (m.GasActive != GasDisplay::Spread) return; // no source with a flow: nothing to show
    o << "Legend:";
    for (const float t : m.Smoke.ContaminantThreshold) o << ' ' << contaminant::ThresholdText(t);
    o << '\n';
    o << "Slider end: " << contaminant::SpreadTimeText(m.Smoke.SpreadMax) << " (" << m.Smoke.SpreadMax << " s)\n";
    o << std::setw(8) << "AirwayNo" << std::setw(7) << "Level"
      << "  Arrival\n";
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& a = m.Airways[r];
        if (a.Gas2 == 0) continue;
        const float t = m.Smoke.SpreadTime[r];
        o << std::setw(8) << a.AirwayNo << std::setw(7) << a.Gas2 << "  "
          << (t == NeverReached ? std::string("-") : contaminant::SpreadTimeText(t)) << '\n';
    }
}

} // namespace

void AddSmokeCommand(CommandLine& cl) {
    auto o = std::make_shared<SmokeOptions>();
    CLI::App* sub = cl.Add("smoke", "Contaminant spread from the sources stored in a network", [&cl, o] {
        Session s(cl);
        if (!s.ok()) return ExitUsage;
        const bool loaded = s.Load(o->Path);
        Model& m = s.model();
        if (loaded) {
            if (o->Cumulative) m.Set.SmokeCumulative = 1;
            ApplySolver(o->Solver, m);
            contaminant::RunContaminantSpread(m, s.ui());
        }
        const bool ran = loaded && m.SimValid != Validity::NotValid && m.AirwayCount > 1;
        if (o->Json) {
            nlohmann::json j = ContaminantResultJson(o->Path, loaded, m, s.ui());
            if (loaded) j["mode"] = m.Set.SmokeCumulative == 1 ? "cumulative" : "fixed";
            std::cout << j.dump(2) << '\n';
        } else if (ran) {
            PrintSpread(m);
        }
        return ran ? ExitOk : ExitFailure;
    });
    sub->add_option("FILE", o->Path, "Network file (.sim or .smm)")->required();
    sub->add_flag("--cumulative", o->Cumulative,
                  "Sources add their level to what flows into them (default: the network's setting)");
    AddSolverOption(sub, o->Solver);
    sub->add_flag("--json", o->Json, "Print one JSON object");
}

} // namespace karvane::cli
