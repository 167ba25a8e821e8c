// The frame of karvane-cli: global options, the list of subcommands and the exit codes. Each
// subcommand lives in its own file (cmd_*.cpp) and adds itself through one Add... function
// declared in commands.h and called from main.cpp.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/console_ui.h"

namespace karvane::cli {

// Exit codes of every subcommand.
inline constexpr int ExitOk = 0;
inline constexpr int ExitFailure = 1; // the reason has been printed
inline constexpr int ExitUsage = 2;

// Options that every subcommand takes, before or after its name.
struct GlobalOptions {
    std::string Answer = "no"; // answer to questions: yes or no
    std::string AppPath;       // folder of Defaults.dat, Conversion.dat, fansdata.dat
    std::string Clock;         // "YYYY-MM-DD hh:mm:ss": a fixed clock for reproducible files
    bool Progress = false;     // print the captions of long runs
};

class CommandLine {
public:
    CommandLine();

    CLI::App App;
    GlobalOptions Global;

    // Adds a subcommand. `run` is called when the user chose it, after the whole command line
    // was read, and returns the exit code. The caller adds the subcommand's own options.
    CLI::App* Add(const std::string& name, const std::string& description, std::function<int()> run);

    // Reads the arguments and runs the chosen subcommand.
    int Run(int argc, char** argv);

    // The console user interface for a subcommand, set up from the global options. Usage
    // errors in the global options (a bad clock) are reported here and give nothing.
    std::unique_ptr<ui::ConsoleUserInterface> MakeConsole() const;

private:
    std::vector<std::pair<CLI::App*, std::function<int()>>> commands_;
};

// A clock text "YYYY-MM-DD hh:mm:ss" (or "YYYY-MM-DD") as a date and time with its weekday;
// nothing when the text is not a valid date.
std::optional<ui::DateTime> ParseClock(const std::string& text);

} // namespace karvane::cli
