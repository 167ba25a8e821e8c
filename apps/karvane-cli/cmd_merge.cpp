// merge BASE OTHER OUT: the Merge command of the File menu: the second network's airways, fans
// and levels behind the first, saved as a third file.
#include <memory>

#include "commands.h"
#include "files/network_load.h"
#include "session.h"

namespace karvane::cli {

void AddMergeCommand(CommandLine& cl) {
    auto base = std::make_shared<std::string>();
    auto other = std::make_shared<std::string>();
    auto out = std::make_shared<std::string>();
    CLI::App* sub =
        cl.Add("merge", "Merge a second network behind a first one and save the result", [&cl, base, other, out] {
            Session s(cl);
            if (!s.ok()) return ExitUsage;
            if (!s.Load(*base)) return ExitFailure;
            const std::int32_t before = s.model().AirwayCount;
            s.ui().FilePaths.push_back(*other);
            files::MergeNetwork(s.model(), s.ui());
            if (s.model().AirwayCount == before) {
                s.ui().Message("Nothing was merged from " + *other, "Merge", ui::Icon::Critical);
                return ExitFailure;
            }
            return s.Save(*out) ? ExitOk : ExitFailure;
        });
    sub->add_option("BASE", *base, "Network file to merge into")->required();
    sub->add_option("OTHER", *other, "Network file whose airways go behind")->required();
    sub->add_option("OUT", *out, "Network file to write")->required();
}

} // namespace karvane::cli
