// export-text FILE OUT.txt: writes the airways of a network as tab-separated text, in the unit
// system of the network's settings, as the text import reads it back.
#include <memory>

#include "commands.h"
#include "exchange/text_export.h"
#include "session.h"

namespace karvane::cli {

void AddExportTextCommand(CommandLine& cl) {
    auto in = std::make_shared<std::string>();
    auto out = std::make_shared<std::string>();
    CLI::App* sub = cl.Add("export-text", "Write the airways of a network as tab-separated text", [&cl, in, out] {
        Session s(cl);
        if (!s.ok()) return ExitUsage;
        if (!s.Load(*in)) return ExitFailure;
        return exchange::ExportText(s.model(), *out, s.ui()) ? ExitOk : ExitFailure;
    });
    sub->add_option("FILE", *in, "Network file (.sim or .smm)")->required();
    sub->add_option("OUT", *out, "Text file to write")->required();
}

} // namespace karvane::cli
