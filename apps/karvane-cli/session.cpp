// The road of a network into and out of a command: program start, load, save.
#include "session.h"

#include <algorithm>
#include <cctype>

#include "files/conversion_file.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "files/network_file.h"
#include "files/network_load.h"
#include "model/units.h"

namespace karvane::cli {

namespace {

bool EndsWithNoCase(const std::string& text, const std::string& tail) {
    if (text.size() < tail.size()) return false;
    return std::equal(tail.rbegin(), tail.rend(), text.rbegin(), [](char a, char b) {
        return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
    });
}

} // namespace

void AddSolverOption(CLI::App* sub, std::string& solver) {
    sub->add_option("--solver", solver, "Balancing method: hardy-cross or newton (default: the network's setting)")
        ->check(CLI::IsMember({"hardy-cross", "newton"}));
}

void ApplySolver(const std::string& solver, Model& model) {
    if (solver == "newton") model.Set.Solver = SolverNewton;
    else if (solver == "hardy-cross") model.Set.Solver = SolverHardyCross;
}

const char* SolverName(const Model& model) { return model.Set.Solver == SolverNewton ? "newton" : "hardy-cross"; }

Session::Session(const CommandLine& cl) : model_(std::make_unique<Model>()), ui_(cl.MakeConsole()) {}

void Session::StartProgram() {
    Model& m = *model_;
    SetBuiltInUnits(m.Units);
    files::LoadConversions(m, *ui_);
    files::LoadBuiltInSettings(m, *ui_);
    files::LoadFanDatabase(m, *ui_);
    m.NetworkSaved = Yes255;
}

bool Session::Load(const std::string& path) {
    StartProgram();
    model_->MasterFile = EndsWithNoCase(path, "SMM");
    return files::LoadNetwork(*model_, path, *ui_);
}

bool Session::Save(const std::string& path) {
    model_->FileName = path;
    model_->MasterFile = EndsWithNoCase(path, "SMM");
    model_->ViewWindowOpen = true;
    return files::SaveNetwork(*model_, *ui_, 0);
}

} // namespace karvane::cli
