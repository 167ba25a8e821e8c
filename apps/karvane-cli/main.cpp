// karvane-cli: the batch command line of Karvane.
#include <CLI/CLI.hpp>
#include <iostream>

int main(int argc, char** argv) {
    CLI::App app{"Karvane - mine ventilation network simulation, command line"};
    app.set_version_flag("--version", std::string("karvane-cli ") + KARVANE_VERSION);
    CLI11_PARSE(app, argc, argv);
    return 0;
}
