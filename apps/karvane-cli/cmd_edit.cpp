// edit IN OUT --script FILE: loads a network, runs a script of the user's actions over it in
// a view window without a screen, and saves the result. A line the script cannot carry out
// stops it with "line N: " and the reason (exit 2); nothing is saved then.
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "commands.h"
#include "files/network_load.h"
#include "script/session.h"
#include "session.h"

namespace karvane::cli {

namespace {

struct EditOptions {
    std::string In, Out, Script;
};

int Edit(CommandLine& cl, const EditOptions& o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    std::ifstream file(o.Script, std::ios::binary);
    if (!file) {
        s.ui().Message("Cannot read the script " + o.Script, "Edit", ui::Icon::Critical);
        return ExitFailure;
    }
    std::stringstream text;
    text << file.rdbuf();

    s.StartProgram();
    Model& m = s.model();
    files::LoadReport report;
    files::LoadOptions options;
    options.Report = &report;
    if (!files::LoadNetwork(m, o.In, s.ui(), options)) return ExitFailure;

    script::Session session(m, s.ui());
    session.ShowNetwork(report);
    // Where each find took the view: the airway ShowAirway centred and the level it chose.
    session.OnShown = [](const script::Session::ShownAirway& shown) {
        std::cout << script::Session::ShownLine(shown) << '\n';
    };
    const std::string error = session.RunText(text.str());
    if (!error.empty()) {
        std::cerr << error << '\n';
        return ExitUsage;
    }
    session.BeforeSave();
    return s.Save(o.Out) ? ExitOk : ExitFailure;
}

} // namespace

void AddEditCommand(CommandLine& cl) {
    auto o = std::make_shared<EditOptions>();
    CLI::App* sub = cl.Add("edit", "Run a script of the user's actions over a network and save the result",
                           [&cl, o] { return Edit(cl, *o); });
    sub->add_option("IN", o->In, "Network file to read (.sim or .smm)")->required();
    sub->add_option("OUT", o->Out, "Network file to write")->required();
    sub->add_option("--script", o->Script, "The script: one action per line (see README)")->required();
}

} // namespace karvane::cli
