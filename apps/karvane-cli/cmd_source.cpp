// source FILE [--solver S] [--json]: the contaminant sourcing from the report pins stored in a network,
// after an airflow run: every airway's pin and state (smoke, potential source, clear, unknown).
#include <iomanip>
#include <iostream>
#include <memory>

#include "commands.h"
#include "contaminant/sourcing.h"
#include "output.h"
#include "session.h"

namespace karvane::cli {

namespace {

struct SourceOptions {
    std::string Path;
    std::string Solver; // empty: the network's setting
    bool Json = false;
};

const char* PinName(std::int16_t pin) {
    switch (pin) {
    case contaminant::SmokePin: return "smoke";
    case contaminant::ClearPin: return "clear";
    default: return "-";
    }
}

const char* StateName(std::int16_t state) {
    switch (state) {
    case contaminant::SmokeState: return "smoke";
    case contaminant::PotentialSourceState: return "potential source";
    case contaminant::ClearState: return "clear";
    default: return "unknown";
    }
}

void PrintSourcing(const Model& m) {
    int pins[3] = {}, states[8] = {};
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        ++pins[m.Airways[r].Gas1 == contaminant::SmokePin ? 1 : m.Airways[r].Gas1 == contaminant::ClearPin ? 2 : 0];
        ++states[m.Airways[r].Gas2 & 7];
    }
    std::ostream& o = std::cout;
    o << "Report pins: " << pins[1] << " smoke, " << pins[2] << " clear\n";
    o << "Smoke: " << states[contaminant::SmokeState] << '\n';
    o << "Potential source: " << states[contaminant::PotentialSourceState] << '\n';
    o << "Clear: " << states[contaminant::ClearState] << '\n';
    o << "Unknown: " << states[contaminant::UnknownState] << '\n';
    o << std::setw(8) << "AirwayNo"
      << "  " << std::left << std::setw(6) << "Pin"
      << "State\n"
      << std::right;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& a = m.Airways[r];
        o << std::setw(8) << a.AirwayNo << "  " << std::left << std::setw(6) << PinName(a.Gas1) << StateName(a.Gas2)
          << '\n'
          << std::right;
    }
}

} // namespace

void AddSourceCommand(CommandLine& cl) {
    auto o = std::make_shared<SourceOptions>();
    CLI::App* sub = cl.Add("source", "Contaminant sourcing from the report pins stored in a network", [&cl, o] {
        Session s(cl);
        if (!s.ok()) return ExitUsage;
        const bool loaded = s.Load(o->Path);
        Model& m = s.model();
        if (loaded) {
            ApplySolver(o->Solver, m);
            contaminant::RunSourcing(m, s.ui());
        }
        const bool ran = loaded && m.GasActive == GasDisplay::Sourcing;
        if (o->Json) {
            std::cout << ContaminantResultJson(o->Path, loaded, m, s.ui()).dump(2) << '\n';
        } else if (ran) {
            PrintSourcing(m);
        }
        return ran ? ExitOk : ExitFailure;
    });
    sub->add_option("FILE", o->Path, "Network file (.sim or .smm)")->required();
    AddSolverOption(sub, o->Solver);
    sub->add_flag("--json", o->Json, "Print one JSON object");
}

} // namespace karvane::cli
