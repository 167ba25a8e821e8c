// summary FILE [--json]: the network summary of a file as it stands (no run): intake flow,
// air and input power, efficiency, mine resistance, yearly cost, airways, length, fans.
#include <iostream>
#include <memory>

#include "commands.h"
#include "run_report.h"
#include "session.h"

namespace karvane::cli {

void AddSummaryCommand(CommandLine& cl) {
    auto path = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    CLI::App* sub = cl.Add("summary", "Network summary of a file as it stands", [&cl, path, json] {
        Session s(cl);
        if (!s.ok()) return ExitUsage;
        const bool loaded = s.Load(*path);
        if (*json) {
            std::cout << NetworkResultJson(*path, loaded, s.model(), s.ui()).dump(2) << '\n';
        } else if (loaded) {
            PrintSummary(std::cout, s.model());
            PrintErrorList(std::cout, s.model());
        }
        return loaded ? ExitOk : ExitFailure;
    });
    sub->add_option("FILE", *path, "Network file (.sim or .smm)")->required();
    sub->add_flag("--json", *json, "Print one JSON object");
}

} // namespace karvane::cli
