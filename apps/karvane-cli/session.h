// One network on the command line: the model, the console user interface, and the program's
// start (units, settings, fan database from the program folder) before a network is read.
#pragma once

#include <memory>
#include <string>

#include "command_line.h"
#include "model/model.h"
#include "ui/console_ui.h"

namespace karvane::cli {

// The --solver option of the commands that balance a network: "hardy-cross" or "newton". When
// given it replaces, for this command, the balancing method of the network's settings; the
// network is saved with it only by a command that saves.
void AddSolverOption(CLI::App* sub, std::string& solver);
void ApplySolver(const std::string& solver, Model& model);
// The name of a network's balancing method, as the option spells it.
const char* SolverName(const Model& model);

class Session {
public:
    // Nothing usable when the global options are bad (the reason has been printed): test ok().
    explicit Session(const CommandLine& cl);

    bool ok() const { return ui_ != nullptr; }
    Model& model() { return *model_; }
    ui::ConsoleUserInterface& ui() { return *ui_; }

    // The program's start as the desktop program makes it: the built-in unit table and
    // Conversion.dat, the built-in settings and Defaults.dat, then fansdata.dat.
    void StartProgram();

    // StartProgram, then reads the network at `path`. False when the file could not be read;
    // the load has said why.
    bool Load(const std::string& path);

    // Saves the network under `path` (a master file when it ends in .smm). False when it was
    // not written; the save has said why.
    bool Save(const std::string& path);

private:
    std::unique_ptr<Model> model_;
    std::unique_ptr<ui::ConsoleUserInterface> ui_;
};

} // namespace karvane::cli
