// convert IN OUT: reads a network of any version and writes it in the current one.
#include <memory>

#include "commands.h"
#include "session.h"

namespace karvane::cli {

void AddConvertCommand(CommandLine& cl) {
    auto in = std::make_shared<std::string>();
    auto out = std::make_shared<std::string>();
    CLI::App* sub = cl.Add("convert", "Read a network of any version, write it in the current one", [&cl, in, out] {
        Session s(cl);
        if (!s.ok()) return ExitUsage;
        if (!s.Load(*in)) return ExitFailure;
        return s.Save(*out) ? ExitOk : ExitFailure;
    });
    sub->add_option("IN", *in, "Network file to read")->required();
    sub->add_option("OUT", *out, "Network file to write (.sim; .smm writes a master file)")->required();
}

} // namespace karvane::cli
