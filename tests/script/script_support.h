// A session over a small network for the tests of the script: the square of the dispatcher's
// tests (four airways on level 500 and a raise down to 300) in an 800 x 600 window.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "display/display_support.h"
#include "files/network_load.h"
#include "script/session.h"

namespace karvane::script::testing {

struct ScriptRig {
    display::testing::Scene S;
    std::unique_ptr<Session> Run;

    explicit ScriptRig(bool withAirways = true) {
        S.Ui.Temp = std::filesystem::temp_directory_path().string();
        if (withAirways) {
            S.Add(0, 0, 500, 1000, 0, 500);
            S.Add(1000, 0, 500, 1000, 1000, 500);
            S.Add(1000, 1000, 500, 0, 1000, 500);
            S.Add(0, 1000, 500, 0, 0, 500);
            S.Add(1000, 1000, 500, 1000, 1000, 300);
            S.M.Set.LastAirwayNo = S.M.AirwayCount;
        }
        Run = std::make_unique<Session>(S.M, S.Ui);
        Run->ShowNetwork(files::LoadReport{});
        Run->RunText("menu mnuLevels3\n");
    }
    std::string Script(const std::string& text) { return Run->RunText(text); }
    Airway& Row(std::int32_t row) { return S.Row(row); }
};

} // namespace karvane::script::testing
