// Small networks for the engine's tests, built straight into a model: airways with a custom
// resistance between points of their own, the surface at 1000, a straight-line fan, and the
// hooks and user interfaces that let a test watch a run.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/model.h"
#include "model/node_keys.h"
#include "simulate/run.h"
#include "ui/scripted_ui.h"

namespace karvane::simtest {

inline constexpr std::int32_t SurfaceZ = 1000;
inline constexpr std::int32_t LevelZ = 500;

struct Point {
    std::int32_t X = 0, Y = 0, Z = LevelZ;
};
inline Point Surface(std::int32_t x) { return {x, 0, SurfaceZ}; }
inline Point Underground(std::int32_t x, std::int32_t y = 0) { return {x, y, LevelZ}; }

inline std::unique_ptr<Model> NewModel() {
    auto model = std::make_unique<Model>();
    SetBuiltInSettings(*model);
    model->Levels[1] = {"SURFACE", 1000, 1000};
    model->Levels[2] = {"U/Ground", 500, 480};
    model->Set.AllowErr = 0.0001f;
    model->Set.MaxIter = 500;
    model->StopFlag = StopRequest::Go; // as inside a run, for the tests that call one stage
    return model;
}

// An airway with a custom resistance (kept as it is by the resistance refresh of a run).
inline std::int32_t AddAirway(Model& model, Point from, Point to, float resistance, std::int32_t bits = 0) {
    const std::int32_t row = ++model.AirwayCount;
    Airway& a = model.Airways[row];
    a = Airway{};
    a.X1 = from.X, a.Y1 = from.Y, a.Z1 = from.Z;
    a.X2 = to.X, a.Y2 = to.Y, a.Z2 = to.Z;
    a.BranchCode = bc::Rectangular | bits;
    a.Height = 4;
    a.Width = 4;
    a.WallType = 4;
    a.ResType = CustomPreset;
    a.Resistance = resistance;
    a.NoAirways = 1;
    a.AirwayNo = row;
    model.Set.LastAirwayNo = row;
    return row;
}

inline std::int32_t AddFixedFlow(Model& model, Point from, Point to, float resistance, float flow) {
    const std::int32_t row = AddAirway(model, from, to, resistance, bc::FixedFlow);
    model.Airways[row].Quantity = flow;
    return row;
}

inline std::int32_t AddBulkhead(Model& model, Point from, Point to) {
    const std::int32_t row = AddAirway(model, from, to, 0);
    model.Airways[row].ResType = 1;
    return row;
}

inline std::int32_t AddFan(Model& model, Point from, Point to, float resistance, std::int16_t fan,
                           std::int16_t count = 1, bool series = false) {
    const std::int32_t row = AddAirway(model, from, to, resistance, series ? bc::FansInSeries : 0);
    model.Airways[row].FanNumber = fan;
    model.Airways[row].NoOfFans = count;
    return row;
}

// A fan whose curve is the straight line P = p0 - slope x Q at flows q0, q0 + step, ...
// (ten points), with the total pressure `velocity` above the static.
inline void SetStraightFan(Model& model, std::int16_t fan, float p0, float slope, float q0, float step,
                           float velocity = 0, float diameter = 0) {
    FanRecord& f = model.Fans[fan];
    f = FanRecord{};
    f.FanName = "Fan " + std::to_string(fan);
    f.FanDiam = diameter;
    for (int p = 1; p <= 10; ++p) {
        const float q = q0 + step * static_cast<float>(p - 1);
        f.FanQ[p] = q;
        f.FanPStatic[p] = p0 - slope * q;
        f.FanPTotal[p] = p0 - slope * q + velocity;
    }
}

// The row that carries a lasting airway number (rows move in a run).
inline std::int32_t RowOf(const Model& model, std::int32_t airwayNo) {
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r)
        if (model.Airways[r].AirwayNo == airwayNo) return r;
    return 0;
}
inline const Airway& AirwayNo(const Model& model, std::int32_t airwayNo) {
    return model.Airways[RowOf(model, airwayNo)];
}

inline std::vector<std::string> ErrorLines(const Model& model) {
    std::vector<std::string> lines;
    for (const auto& e : model.ErrorList) lines.push_back(std::to_string(e.AirwayNo) + "\t" + e.Text);
    return lines;
}

// A scripted user interface that also records the progress labels and can press the stop
// button at a given step of the event loop.
class WatchingUi : public ui::ScriptedUserInterface {
public:
    Model* StopModel = nullptr;
    int StopAtPump = 0; // 0: never
    std::vector<std::string> Attempts, Errors;
    int Opened = 0, Closed = 0;

    void ProgressOpen() override { ++Opened; }
    void ProgressClose() override { ++Closed; }
    void ProgressAttempt(const std::string& text) override { Attempts.push_back(text); }
    void ProgressError(const std::string& text) override { Errors.push_back(text); }
    void PumpEvents() override {
        ui::ScriptedUserInterface::PumpEvents();
        if (StopModel && StopAtPump != 0 && PumpCount == StopAtPump) StopModel->StopFlag = StopRequest::Stop;
    }
};

// Hooks that record what the run asked of the application.
struct RecordingHooks : simulate::RunHooks {
    std::vector<std::pair<std::int32_t, int>> Logged; // (AirwayNo, action)
    int UndoSteps = 0, Redraws = 0;
    void Redraw() override { ++Redraws; }
    void LogAirway(Model& model, std::int32_t row, int action) override {
        Logged.emplace_back(model.Airways[row].AirwayNo, action);
    }
    void EndUndoStep() override { ++UndoSteps; }
};

// What a run left, as text for golden files: what the user was told and asked, the progress,
// the run's state and error list, and every row with its lasting number, ends, flow, pressure,
// preset, code bits and comment.
inline std::string RunRecord(const Model& m, const WatchingUi& ui) {
    std::string out;
    for (const auto& t : ui.Transcript) out += t.Kind + " [" + t.Title + "] " + t.Text + "\n";
    out += "progress";
    for (const int p : ui.ProgressPercents) out += " " + std::to_string(p);
    for (const auto& c : ui.ProgressCaptions) out += " | " + c;
    out += "\npasses " + std::to_string(ui.Attempts.size()) + " windows " + std::to_string(ui.Opened) + "/" +
           std::to_string(ui.Closed) + "\n";
    char buf[240];
    const auto tidy = [](float v, double least) { return std::fabs(v) < least ? 0.0 : static_cast<double>(v); };
    std::snprintf(buf, sizeof buf, "fail %d valid %d mode %d stop %d turned %d list %d %s\n",
                  static_cast<int>(m.SimFail), static_cast<int>(m.SimValid), static_cast<int>(m.SimMode),
                  static_cast<int>(m.StopFlag), m.AirwaysTurned ? 1 : 0, m.Run.ErrorListOpen ? 1 : 0,
                  m.Run.ErrorListCaption.c_str());
    out += buf;
    for (const auto& line : ErrorLines(m)) out += "error " + line + "\n";
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& a = m.Airways[r];
        std::snprintf(buf, sizeof buf, "%d: %d,%d,%d > %d,%d,%d Q %.3f P %.2f res %d code %x %s\n", a.AirwayNo, a.X1,
                      a.Y1, a.Z1, a.X2, a.Y2, a.Z2, tidy(a.Quantity, 5e-4), tidy(a.Pressure, 5e-3), a.ResType,
                      static_cast<unsigned>(a.BranchCode), a.Comment.c_str());
        out += buf;
    }
    return out;
}

// A generated mine of the given size and seed, to be run silently from still air to a fine
// allowed error.
inline std::unique_ptr<Model> GeneratedMine(std::int32_t airways, std::uint64_t seed, int boosters = 1,
                                            int fixedFlows = -1) {
    auto m = std::make_unique<Model>();
    SetBuiltInSettings(*m);
    minegen::MineRequest plan;
    plan.Airways = airways;
    plan.Seed = seed;
    plan.Boosters = boosters;
    plan.FixedFlows = fixedFlows;
    minegen::GenerateMine(*m, plan);
    m->ShowProgress = 0;
    m->Set.MaxIter = 5000;
    m->Set.AllowErr = 0.0001f;
    return m;
}

// Kirchhoff's laws after a run of a mine whose every airway the surface reaches. Continuity: at
// every node but the surface, what comes in goes out, to the rounding of single-precision flows
// corrected many times. Pressures: every inflow of a junction arrives at the pressure with which
// the airways leaving it start, so the drops round every loop sum to zero; the surface is 0.
inline void ExpectKirchhoff(const Model& m) {
    std::map<Fixed4, double> balance;
    double intake = 0;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& a = m.Airways[r];
        balance[a.ExitKey] += a.Quantity;
        balance[a.EntryKey] -= a.Quantity;
        if (a.EntryKey == SurfaceKey) intake += a.Quantity;
    }
    ASSERT_GT(intake, 100.0);
    for (const auto& [key, net] : balance) EXPECT_NEAR(net, 0.0, 1e-5 * intake) << key;

    std::map<Fixed4, float> start;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& a = m.Airways[r];
        ASSERT_NE(a.ToNodeP, NodeNotReached) << r;
        if (a.EntryKey != SurfaceKey) start[a.EntryKey] = a.FromNodeP;
    }
    double worst = 0;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& a = m.Airways[r];
        const double there = a.ExitKey == SurfaceKey ? 0.0 : start[a.ExitKey];
        worst = std::max(worst, std::fabs(a.ToNodeP - there));
    }
    EXPECT_LT(worst, 1.0) << "Pa off round a loop";
}

} // namespace karvane::simtest
