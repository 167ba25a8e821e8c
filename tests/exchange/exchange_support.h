// Shared pieces of the exchange tests: a model with the built-in settings in a folder of its own,
// airways added by their ends, and the independent DXF reader
// (python3-ezdxf) that the interoperability tests call when it is installed.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "display/view_state.h"
#include "engineering/resistance.h"
#include "files/network_file.h"
#include "files/network_fixture.h"
#include "model/network_rows.h"
#include "model/node_keys.h"

namespace karvane::testing {

// A model as the program has it after start-up, with the levels of a new network, in a folder of
// its own; the display state of one plan view.
struct ExchangeBench {
    AppFolder Dir;
    std::unique_ptr<Model> M = std::make_unique<Model>();
    std::unique_ptr<display::DisplayState> Ds = std::make_unique<display::DisplayState>();

    ExchangeBench() {
        SetUpBuiltIn(*M);
        SetNewNetworkLevels(*M);
    }
    Model& m() { return *M; }
    ui::ScriptedUserInterface& ui() { return Dir.Ui; }

    // Appends a finished rectangular airway (4 x 4, friction preset 4) from one end to the other.
    Airway& Add(std::int32_t x1, std::int32_t y1, std::int32_t z1, std::int32_t x2, std::int32_t y2, std::int32_t z2) {
        const std::int32_t row = NewAirwayRow(*M);
        Airway& a = M->Airways[static_cast<std::size_t>(row)];
        a.X1 = x1, a.Y1 = y1, a.Z1 = z1, a.X2 = x2, a.Y2 = y2, a.Z2 = z2;
        a.BranchCode = bc::Rectangular;
        a.Height = 4;
        a.Width = 4;
        a.WallType = 4;
        a.PrimaryLayer = 1;
        a.SecondLayer = 1;
        a.NoAirways = 1;
        a.AirwayNo = row;
        return a;
    }
    // Keys and resistances as after a load.
    void Settle() {
        BuildNodeKeys(*M, Dir.Ui);
        RecalcAllAirways(*M);
    }
};

// The six coordinates of an airway, and those of every row of a network.
using Ends = std::array<std::int32_t, 6>;
inline Ends EndsOf(const Airway& a) { return {a.X1, a.Y1, a.Z1, a.X2, a.Y2, a.Z2}; }
inline std::vector<Ends> AllEnds(const Model& m) {
    std::vector<Ends> out;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) out.push_back(EndsOf(m.Airways[static_cast<std::size_t>(r)]));
    return out;
}

// The rows of a network as the network file writes them, one a line.
inline std::string RowsText(Model& m) {
    std::string out;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) out += files::AirwayRowText(m, r, '.') + "\r\n";
    return out;
}

// The python that has ezdxf, or empty when none has: the interoperability tests skip then.
inline std::string EzdxfPython() {
    for (const char* python : {"/usr/bin/python3", "python3"}) {
        const std::string probe = std::string(python) + " -c \"import ezdxf\" >/dev/null 2>&1";
        if (std::system(probe.c_str()) == 0) return python;
    }
    return {};
}

// Runs a python script over arguments; returns its standard output, or nothing when it failed.
inline std::optional<std::string> RunPython(const std::string& python, const AppFolder& dir, const std::string& script,
                                            const std::string& args) {
    dir.Write("script.py", script);
    const std::string out = dir.File("script.out");
    const std::string command = python + " " + dir.File("script.py") + " " + args + " > " + out + " 2>&1";
    const int status = std::system(command.c_str());
    const std::string text = AppFolder::ReadFile(out);
    if (status != 0) {
        ADD_FAILURE() << "python failed:\n" << text;
        return std::nullopt;
    }
    return text;
}

} // namespace karvane::testing
