// fans [--json] [--curve N OUT.svg]: the fan database of the program folder, one line per fan
// with its name, exit diameter and curve points, and the graph of one fan's curves as the fan
// database editor draws it.
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <vector>

#include "commands.h"
#include "display/svg_surface.h"
#include "files/number_text.h"
#include "forms/fan_data_form.h"
#include "session.h"

namespace karvane::cli {
namespace {

struct FansOptions {
    bool Json = false;
    std::vector<std::string> Curve; // N OUT.svg
};

// A Single as the shortest decimal that reads back to it.
double Short(float v) { return files::ParseNumber(files::PlainSingle(v, '.')); }

int Fans(const CommandLine& cl, const FansOptions& o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    s.StartProgram();
    Model& m = s.model();
    const int slots = forms::FanSlotCount(m);
    if (!o.Curve.empty()) {
        const int n = std::atoi(o.Curve[0].c_str());
        if (n < 1 || n > slots) {
            s.ui().Message("No fan number " + o.Curve[0] + " in the fan database", "Fans", ui::Icon::Critical);
            return ExitFailure;
        }
        display::SvgSurface svg(600, 600);
        forms::DrawFanGraph(m, m.Fans[static_cast<std::size_t>(n)], svg, '.');
        std::ofstream out(o.Curve[1], std::ios::binary | std::ios::trunc);
        out << svg.Document();
        out.close();
        if (!out) {
            s.ui().Message("Cannot write the picture " + o.Curve[1], "Fans", ui::Icon::Critical);
            return ExitFailure;
        }
        return ExitOk;
    }
    nlohmann::json fans = nlohmann::json::array();
    for (int n = 1; n <= slots; ++n) {
        const FanRecord& f = m.Fans[static_cast<std::size_t>(n)];
        if (f.IsFree() && f.FanName.empty()) continue;
        if (o.Json) {
            nlohmann::json points = nlohmann::json::array();
            for (int p = 1; p <= forms::FanTablePoints; ++p)
                points.push_back({{"static", Short(f.FanPStatic[p])},
                                  {"total", Short(f.FanPTotal[p])},
                                  {"flow", Short(f.FanQ[p])},
                                  {"efficiency", f.FanEff[p]}});
            fans.push_back({{"number", n}, {"name", f.FanName}, {"diameter", Short(f.FanDiam)}, {"points", points}});
        } else {
            std::cout << n << '\t' << f.FanName << "\tdiameter " << f.FanDiam << " m\n";
            for (int p = 1; p <= forms::FanTablePoints; ++p)
                std::cout << "  " << p << "\tPs " << f.FanPStatic[p] << " Pa\tPt " << f.FanPTotal[p] << " Pa\tQ "
                          << f.FanQ[p] << " m3/s\tEff " << f.FanEff[p] << " %\n";
        }
    }
    if (o.Json) std::cout << nlohmann::json{{"maxFans", slots}, {"stamp", m.FanStamp}, {"fans", fans}}.dump(2) << '\n';
    return ExitOk;
}

} // namespace

void AddFansCommand(CommandLine& cl) {
    auto o = std::make_shared<FansOptions>();
    CLI::App* sub =
        cl.Add("fans", "List the fan database, or draw one fan's curves", [&cl, o] { return Fans(cl, *o); });
    sub->add_flag("--json", o->Json, "Print one JSON object");
    sub->add_option("--curve", o->Curve, "Draw fan N's curves into an SVG picture: N OUT.svg")->expected(2);
}

} // namespace karvane::cli
