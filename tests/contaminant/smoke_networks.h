// Small networks for the contaminant tests, with flows the test sets itself: airways between
// points of their own with a fixed length, the surface at 1000, and a user interface and hooks
// that record what the spread showed and asked of the windows.
#pragma once

#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "contaminant/spread.h"
#include "model/builtin_settings.h"
#include "model/model.h"
#include "model/node_keys.h"
#include "ui/scripted_ui.h"

namespace karvane::smoketest {

struct Point {
    std::int32_t X = 0, Y = 0, Z = 500;
};
inline Point Surface(std::int32_t x) { return {x, 0, 1000}; }
inline Point Under(std::int32_t x, std::int32_t y = 0) { return {x, y, 500}; }

inline std::unique_ptr<Model> NewModel() {
    auto model = std::make_unique<Model>();
    SetBuiltInSettings(*model);
    model->Levels[1] = {"SURFACE", 1000, 1000};
    model->Levels[2] = {"U/Ground", 500, 480};
    model->Set.AllowErr = 0.0001f;
    return model;
}

// An airway carrying `flow`, 4 m x 4 m unless the test changes its shape, with a fixed length
// so that travel times are the test's own, and a custom resistance that a refresh keeps.
inline std::int32_t Add(Model& model, Point from, Point to, float flow, float length = 100) {
    const std::int32_t row = ++model.AirwayCount;
    Airway& a = model.Airways[row];
    a = Airway{};
    a.X1 = from.X, a.Y1 = from.Y, a.Z1 = from.Z;
    a.X2 = to.X, a.Y2 = to.Y, a.Z2 = to.Z;
    a.BranchCode = bc::Rectangular | bc::FixedLength;
    a.Height = 4;
    a.Width = 4;
    a.WallType = 4;
    a.ResType = CustomPreset;
    a.Resistance = 0.01f;
    a.NoAirways = 1;
    a.Quantity = flow;
    a.Length = length;
    a.AirwayNo = row;
    model.Set.LastAirwayNo = row;
    return row;
}

inline void MakeSource(Model& model, std::int32_t row, float level) {
    model.Airways[row].BranchCode |= bc::ContaminantSource;
    model.Airways[row].Contaminant = level;
}

// The flows stand as the test set them and count as a balanced result: node keys built, the
// result valid, so that a contaminant run reads them without an airflow run of its own.
inline void Balanced(Model& model, ui::UserInterface& ui) {
    BuildNodeKeys(model, ui);
    model.SimValid = Validity::Valid;
}

// The row of a lasting airway number (a spread sorts the rows).
inline std::int32_t RowOf(const Model& model, std::int32_t airwayNo) {
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r)
        if (model.Airways[r].AirwayNo == airwayNo) return r;
    return 0;
}
inline std::int16_t Level(const Model& model, std::int32_t airwayNo) {
    return model.Airways[RowOf(model, airwayNo)].Gas2;
}
inline std::vector<int> Levels(const Model& model, std::initializer_list<std::int32_t> airwayNos) {
    std::vector<int> out;
    for (const std::int32_t no : airwayNos) out.push_back(Level(model, no));
    return out;
}
inline float TimeOf(const Model& model, std::int32_t airwayNo) {
    return model.Smoke.SpreadTime[RowOf(model, airwayNo)];
}

// Records the progress boxes of the smoke window and the offers of input boxes, and presses Cancel at a given step of
// the event loop.
class SmokeUi : public ui::ScriptedUserInterface {
public:
    std::vector<std::pair<std::string, std::string>> Boxes;
    std::vector<std::string> Defaults; // the text each input box offered
    Model* CancelModel = nullptr;
    contaminant::SpreadHooks* CancelHooks = nullptr;
    int CancelAtPump = 0; // 0: never

    void ProgressBox(const std::string& box, const std::string& text) override { Boxes.emplace_back(box, text); }
    std::optional<std::string> Input(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) override {
        Defaults.push_back(defaultText);
        return ui::ScriptedUserInterface::Input(prompt, title, defaultText);
    }
    void PumpEvents() override {
        ui::ScriptedUserInterface::PumpEvents();
        if (CancelModel && PumpCount == CancelAtPump) contaminant::CancelSpread(*CancelModel, CancelHooks);
    }
    std::vector<std::string> BoxTexts(const std::string& box) const {
        std::vector<std::string> out;
        for (const auto& [name, text] : Boxes)
            if (name == box) out.push_back(text);
        return out;
    }
};

// What a spread left, as text for golden files: what the user was told and asked, the last text
// of each progress box and how often it changed, the run's figures and legend, and every row with
// its lasting number, flow, source, level and arrival time.
inline std::string SpreadRecord(const Model& m, const SmokeUi& ui) {
    std::string out;
    for (const auto& t : ui.Transcript) out += t.Kind + " [" + t.Title + "] " + t.Text + "\n";
    for (const char* box : {"TxtItt", "TxtErr", "TxtRate", "TxtSpread"}) {
        const auto texts = ui.BoxTexts(box);
        if (!texts.empty()) out += std::string(box) + " x" + std::to_string(texts.size()) + " " + texts.back() + "\n";
    }
    char buf[200];
    std::snprintf(buf, sizeof buf, "gas %d stop %d settled %d slider %d/%d top %d legend",
                  static_cast<int>(m.GasActive), static_cast<int>(m.StopFlag), m.Smoke.SpreadCount, m.Smoke.SpreadLimit,
                  m.Smoke.SpreadMax, m.Smoke.MaxLevel);
    out += buf;
    for (const float t : m.Smoke.ContaminantThreshold) out += " " + std::to_string(static_cast<int>(t));
    out += "\n";
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& a = m.Airways[r];
        std::snprintf(buf, sizeof buf, "%d: Q %.2f source %d %.1f level %d time %.1f\n", a.AirwayNo,
                      static_cast<double>(a.Quantity), a.Has(bc::ContaminantSource) ? 1 : 0,
                      static_cast<double>(a.Contaminant), a.Gas2, static_cast<double>(m.Smoke.SpreadTime[r]));
        out += buf;
    }
    return out;
}

// Records what the spread asked of the windows around it, in order.
struct WindowHooks : contaminant::SpreadHooks {
    std::vector<std::string> Calls;
    void Redraw() override { Calls.emplace_back("Redraw"); }
    void RememberDataTypes() override { Calls.emplace_back("RememberDataTypes"); }
    void ShowContaminantDataTypes() override { Calls.emplace_back("ShowContaminantDataTypes"); }
    void RestoreDataTypes() override { Calls.emplace_back("RestoreDataTypes"); }
    void CloseSmokeWindow() override { Calls.emplace_back("CloseSmokeWindow"); }
    void ShowLegend() override { Calls.emplace_back("ShowLegend"); }
    void LegendChanged() override { Calls.emplace_back("LegendChanged"); }
    void CloseLegend() override { Calls.emplace_back("CloseLegend"); }
};

} // namespace karvane::smoketest
