// generate OUT [--airways N] [--seed S] [--levels L] ...: writes a synthetic mine, the same
// for the same seed and size, for trials, benchmarks and demonstrations.
#include <iostream>
#include <memory>

#include "commands.h"
#include "generate/mine_generator.h"
#include "session.h"
#include "simulate/run.h"

namespace karvane::cli {

namespace {

struct GenerateOptions {
    std::string Out;
    minegen::MineRequest Request;
    std::string Comment;
    bool Balance = false;
    int BalanceIterations = 2000;
};

// Balances the new mine once, so that the file holds its flows and pressures and the next run
// starts from them. A grid of drives settles slowly from still air, hence the wider limit of
// passes for this one run; the network keeps its own MaxIter.
bool BalanceMine(Model& m, ui::ConsoleUserInterface& ui, int iterations, bool progress) {
    const std::int16_t maxIter = m.Set.MaxIter;
    m.Set.MaxIter = static_cast<std::int16_t>(iterations);
    m.ShowProgress = progress ? 1 : 0;
    simulate::RunAirflow(m, ui);
    m.Set.MaxIter = maxIter;
    for (const NetworkError& e : m.ErrorList)
        std::cerr << ui::ConsoleUserInterface::OneLine("Sim Fail Error List",
                                                       std::to_string(e.AirwayNo) + "\t" + e.Text)
                  << '\n';
    return m.SimFail == RunResult::Good;
}

} // namespace

void AddGenerateCommand(CommandLine& cl) {
    auto o = std::make_shared<GenerateOptions>();
    CLI::App* sub = cl.Add("generate", "Write a synthetic mine (the same one for the same seed and size)", [&cl, o] {
        Session s(cl);
        if (!s.ok()) return ExitUsage;
        s.StartProgram();
        minegen::GenerateMine(s.model(), o->Request);
        if (!o->Comment.empty()) s.model().FileComment = o->Comment;
        if (o->Balance && !BalanceMine(s.model(), s.ui(), o->BalanceIterations, cl.Global.Progress)) return ExitFailure;
        return s.Save(o->Out) ? ExitOk : ExitFailure;
    });
    sub->add_option("OUT", o->Out, "Network file to write")->required();
    // A file of more rows than MaxAirways - 2 could not be read back whole.
    sub->add_option("--airways", o->Request.Airways, "Number of airways (20 to 29998, default 1000)")
        ->check(CLI::Range(minegen::MinAirways, MaxAirways - 2));
    sub->add_option("--seed", o->Request.Seed, "Seed of the layout (default 1)");
    sub->add_option("--levels", o->Request.Levels, "Levels below the surface (default: by size)")
        ->check(CLI::Range(1, 40));
    sub->add_option("--intake-shafts", o->Request.IntakeShafts, "Intake shafts (default: by size)")
        ->check(CLI::Range(1, 6));
    sub->add_option("--exhaust-shafts", o->Request.ExhaustShafts,
                    "Exhaust shafts, each with a main fan (default: by size)")
        ->check(CLI::Range(1, 8));
    sub->add_option("--boosters", o->Request.Boosters, "Booster fans in the deepest exhaust accesses (default 0)")
        ->check(CLI::Range(0, 40));
    sub->add_option("--doors", o->Request.Doors, "Doors in crosscuts (default: about one crosscut in 200)")
        ->check(CLI::NonNegativeNumber);
    sub->add_option("--fixed-flows", o->Request.FixedFlows,
                    "Crosscuts held at a fixed flow (default: none below 1000 airways, else one and one more "
                    "for every 10000)")
        ->check(CLI::NonNegativeNumber);
    sub->add_option("--comment", o->Comment, "Comment of the file (default: a description of the mine)");
    sub->add_flag("--balance", o->Balance, "Balance the mine once and keep its flows and pressures in the file");
    sub->add_option("--balance-iterations", o->BalanceIterations, "Limit of passes of that run (default 2000)")
        ->check(CLI::Range(1, 32767));
}

} // namespace karvane::cli
