// check FILE [--json]: loads a network as the program does and runs the checking stage of a
// run (node keys, sort with the duplicate check, connections); prints the error list, one
// line per fault: the airway number, a tab, the text. Exit 1 when a fault was found.
#include <iostream>
#include <memory>

#include "commands.h"
#include "files/duplicates.h"
#include "model/node_keys.h"
#include "output.h"
#include "session.h"
#include "simulate/validation.h"

namespace karvane::cli {

void AddCheckCommand(CommandLine& cl) {
    auto path = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    CLI::App* sub = cl.Add("check", "Check a network as a run does and print its faults", [&cl, path, json] {
        Session s(cl);
        if (!s.ok()) return ExitUsage;
        const bool loaded = s.Load(*path);
        Model& m = s.model();
        if (loaded) {
            m.SimFail = RunResult::Good;
            m.ErrorList.clear();
            BuildNodeKeys(m, s.ui());
            files::SortAirways(m, s.ui());
            simulate::CheckConnections(m);
        }
        const bool faults = !m.ErrorList.empty();
        if (*json) {
            nlohmann::json j;
            j["file"] = ToUtf8(*path);
            j["loaded"] = loaded;
            if (loaded) {
                j["airways"] = m.AirwayCount;
                j["faults"] = faults;
                j["errors"] = ErrorListJson(m);
            }
            j["messages"] = MessagesJson(s.ui());
            std::cout << j.dump(2) << '\n';
        } else if (loaded) {
            for (const NetworkError& e : m.ErrorList) std::cout << ToUtf8(simulate::ErrorListLine(e)) << '\n';
        }
        return loaded && !faults ? ExitOk : ExitFailure;
    });
    sub->add_option("FILE", *path, "Network file (.sim or .smm)")->required();
    sub->add_flag("--json", *json, "Print one JSON object");
}

} // namespace karvane::cli
