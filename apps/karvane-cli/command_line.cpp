// Global options, subcommand dispatch and exit codes of karvane-cli.
#include "command_line.h"

#include <cstdio>
#include <iostream>

namespace karvane::cli {

CommandLine::CommandLine() : App("Karvane - mine ventilation networks on the command line", "karvane-cli") {
    App.set_version_flag("--version", std::string("karvane-cli ") + KARVANE_VERSION);
    App.require_subcommand(1);
    App.fallthrough();
    App.add_option("--answer", Global.Answer,
                   "Answer to every question the program asks: no (the default) or yes. A question that "
                   "keeps coming back is answered yes at most three times in a row.")
        ->check(CLI::IsMember({"yes", "no"}, CLI::ignore_case));
    App.add_option("--app-path", Global.AppPath,
                   "Folder of Defaults.dat, Conversion.dat and fansdata.dat (default: the program's folder)");
    App.add_option("--clock", Global.Clock,
                   "Fixed date and time \"YYYY-MM-DD hh:mm:ss\" for the stamps of saved files");
    App.add_flag("--progress", Global.Progress, "Print the stages of long runs");
}

CLI::App* CommandLine::Add(const std::string& name, const std::string& description, std::function<int()> run) {
    CLI::App* sub = App.add_subcommand(name, description);
    commands_.emplace_back(sub, std::move(run));
    return sub;
}

int CommandLine::Run(int argc, char** argv) {
    try {
        App.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        int code = App.exit(e);
        return code == 0 ? ExitOk : ExitUsage;
    }
    for (auto& [sub, run] : commands_)
        if (sub->parsed()) return run();
    return ExitUsage;
}

std::optional<ui::DateTime> ParseClock(const std::string& text) {
    ui::DateTime t;
    char tail = 0;
    int n = std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d%c", &t.Year, &t.Month, &t.Day, &t.Hour, &t.Minute, &t.Second,
                        &tail);
    if (n != 3 && n != 6) return std::nullopt;
    static constexpr int days[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (t.Year < 1 || t.Year > 9999 || t.Month < 1 || t.Month > 12 || t.Day < 1 || t.Day > days[t.Month - 1])
        return std::nullopt;
    bool leap = (t.Year % 4 == 0 && t.Year % 100 != 0) || t.Year % 400 == 0;
    if (t.Month == 2 && t.Day == 29 && !leap) return std::nullopt;
    if (t.Hour < 0 || t.Hour > 23 || t.Minute < 0 || t.Minute > 59 || t.Second < 0 || t.Second > 59)
        return std::nullopt;
    // Weekday by Sakamoto's method: 0 Sunday.
    static constexpr int offset[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    int y = t.Year - (t.Month < 3 ? 1 : 0);
    t.WeekDay = (y + y / 4 - y / 100 + y / 400 + offset[t.Month - 1] + t.Day) % 7;
    return t;
}

std::unique_ptr<ui::ConsoleUserInterface> CommandLine::MakeConsole() const {
    auto console = std::make_unique<ui::ConsoleUserInterface>(std::cerr, Global.AppPath);
    console->Policy = (Global.Answer == "yes" || Global.Answer == "YES" || Global.Answer == "Yes")
                          ? ui::AnswerPolicy::Yes
                          : ui::AnswerPolicy::No;
    console->ShowProgress = Global.Progress;
    if (!Global.Clock.empty()) {
        auto clock = ParseClock(Global.Clock);
        if (!clock) {
            std::cerr << "karvane-cli: --clock wants a date and time as \"YYYY-MM-DD hh:mm:ss\", not \"" << Global.Clock
                      << "\"\n";
            return nullptr;
        }
        console->FixedClock = clock;
    }
    return console;
}

} // namespace karvane::cli
