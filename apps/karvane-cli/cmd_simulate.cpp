// simulate FILE [--out OUT] [--mode M] [--max-iter N] [--allow-err E] [--solver S] [--json]: an
// airflow run of a network file in batch, in the ordinary mode or one of the troubleshooting
// modes, by either balancing method, with the summary figures and the error list, and the
// network saved with its results on request.
#include <iostream>
#include <memory>

#include "commands.h"
#include "output.h"
#include "run_report.h"
#include "session.h"
#include "simulate/run.h"
#include "simulate/troubleshoot.h"

namespace karvane::cli {

namespace {

struct SimulateOptions {
    std::string Path;
    std::string Out;
    int Mode = 0;        // a RunMode by its number
    int MaxIter = 0;     // 0: the network's setting
    double AllowErr = 0; // 0: the network's setting
    std::string Solver;  // empty: the network's setting
    bool Json = false;
};

const char* ModeName(RunMode mode) {
    switch (mode) {
    case RunMode::FindBulkheads: return "find unnecessary bulkheads";
    case RunMode::RemoveBulkheads: return "remove unnecessary bulkheads";
    case RunMode::FindRestrictiveFans: return "find restrictive fans";
    case RunMode::FindDuplicates: return "find duplicate airways";
    case RunMode::FindNonConverging: return "non-converging airways";
    default: return "simulation";
    }
}

// The state of the results after a run, in a word.
const char* ResultName(const Model& m) {
    if (m.SimFail == RunResult::Failed) return "failed";
    if (m.SimFail == RunResult::Warnings) return "completed with warnings";
    return m.SimValid != Validity::NotValid ? "valid" : "completed";
}

int RunSimulate(const CommandLine& cl, const SimulateOptions& o) {
    const auto mode = static_cast<RunMode>(o.Mode);
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    // The question whether to keep on simulating carries the convergence reached, which
    // changes every time it is asked: in batch it is one question, answered Yes only a few
    // times, so that a network that will not settle still ends the command.
    s.ui().SameQuestionTitles.insert("Convergence Warning");
    const bool loaded = s.Load(o.Path);
    Model& m = s.model();
    bool ran = false, saved = true;
    if (loaded) {
        if (o.MaxIter > 0) m.Set.MaxIter = static_cast<std::int16_t>(o.MaxIter);
        if (o.AllowErr > 0) m.Set.AllowErr = static_cast<float>(o.AllowErr);
        ApplySolver(o.Solver, m);
        m.SimMode = mode;
        m.ShowProgress = 0;
        simulate::RunAirflow(m, s.ui());
        ran = m.AirwayCount >= 2;
        if (!o.Out.empty()) saved = s.Save(o.Out);
    }
    if (o.Json) {
        nlohmann::json j = NetworkResultJson(o.Path, loaded, m, s.ui());
        j["mode"] = o.Mode;
        if (loaded) j["solver"] = SolverName(m);
        if (loaded) j["airwaysTurned"] = m.AirwaysTurned;
        if (!o.Out.empty()) j["saved"] = loaded && saved;
        std::cout << j.dump(2) << '\n';
    } else if (loaded) {
        std::ostream& out = std::cout;
        out << "Run: " << ModeName(mode) << '\n';
        out << "Result: " << ResultName(m) << '\n';
        if (ran) PrintSummary(out, m);
        PrintErrorList(out, m);
        if (!o.Out.empty() && saved) out << "Saved: " << ToUtf8(o.Out) << '\n';
    }
    if (!loaded || !ran || !saved) return ExitFailure;
    // A troubleshooting run reports what it found; only an ordinary run that failed fails.
    if (mode == RunMode::Normal && m.SimFail == RunResult::Failed) return ExitFailure;
    return ExitOk;
}

} // namespace

void AddSimulateCommand(CommandLine& cl) {
    auto o = std::make_shared<SimulateOptions>();
    CLI::App* sub = cl.Add("simulate", "Airflow run of a network: summary figures and error list",
                           [&cl, o] { return RunSimulate(cl, *o); });
    sub->add_option("FILE", o->Path, "Network file (.sim or .smm)")->required();
    sub->add_option("--out", o->Out, "Save the network with its results under this name");
    sub->add_option("--mode", o->Mode,
                    "0 ordinary run (the default); troubleshooting: 1 find and 2 remove unnecessary bulkheads, "
                    "3 find restrictive fans, 4 find duplicate airways, -1 non-converging airways")
        ->check(CLI::IsMember({0, 1, 2, 3, 4, -1}));
    sub->add_option("--max-iter", o->MaxIter, "Passes before the convergence question (default: the network's)")
        ->check(CLI::Range(1, 32767));
    sub->add_option("--allow-err", o->AllowErr, "Allowed error of a mesh correction, m3/s (default: the network's)")
        ->check(CLI::PositiveNumber);
    AddSolverOption(sub, o->Solver);
    sub->add_flag("--json", o->Json, "Print one JSON object");
}

} // namespace karvane::cli
