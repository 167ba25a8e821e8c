// Fan curves in a run: the free delivery point, the working table, the straight-line reading
// and the efficiency. Every value that is kept is rounded to single precision when stored.
#include "simulate/fan_model.h"

#include <algorithm>
#include <array>
#include <string>

namespace karvane::simulate {

namespace {

// Flow and pressure multipliers carried by a fan code; a multiplier of 0 counts as 1.
struct Multipliers {
    std::int32_t Flow = 1;
    std::int32_t Pressure = 1;
};

Multipliers MultipliersOf(std::int32_t code) {
    Multipliers m;
    m.Flow = code / 100;
    m.Pressure = code - 100 * m.Flow;
    if (m.Flow == 0) m.Flow = 1;
    if (m.Pressure == 0) m.Pressure = 1;
    return m;
}

std::int32_t FanCount(const Airway& a) { return a.NoOfFans < 1 ? 1 : a.NoOfFans; }

float Mix(float staticP, float totalP, std::int16_t curveFraction) {
    return static_cast<float>(static_cast<double>(staticP) +
                              curveFraction * (static_cast<double>(totalP) - staticP) / 100.0);
}

// Whether a fan slot is unused: its name is blank (looked at in place, so that the check of
// every run copies no name).
bool Unused(const FanRecord& fan) { return fan.FanName.find_first_not_of(" \t") == std::string::npos; }

// Number of fan rows in the database (MaxFans); rows are numbered from 1.
std::int32_t FanRows(const Model& model) { return static_cast<std::int32_t>(model.Fans.size()) - 1; }

} // namespace

const FanRecord* FanOf(const Model& model, std::int32_t fan) {
    if (fan < 1 || fan > FanRows(model)) return nullptr;
    return &model.Fans[fan];
}

void CheckFanCurves(Model& model, ui::UserInterface& ui) {
    for (std::int32_t f = 1; f <= FanRows(model); ++f) {
        FanRecord& fan = model.Fans[f];
        if (Unused(fan)) continue;
        fan.FanPStatic[11] = 0;
        fan.FanPTotal[11] = 0;

        // The last point before point 10 with another flow: repeated flows at the end of a
        // curve must not make the last stretch vertical.
        int k = 0;
        for (int p = 9; p >= 1; --p) {
            if (fan.FanQ[p] != fan.FanQ[10]) {
                k = p;
                break;
            }
        }
        // The column that the extension follows: static, or total where the static is flat.
        const std::array<float, FanPoints + 1>* column = nullptr;
        if (k != 0) {
            for (int p = 1; p <= 9 && column == nullptr; ++p)
                if (fan.FanPStatic[p] != fan.FanPStatic[10]) column = &fan.FanPStatic;
            for (int p = 1; p <= 9 && column == nullptr; ++p)
                if (fan.FanPTotal[p] != fan.FanPTotal[10]) column = &fan.FanPTotal;
        }
        if (k == 0 || column == nullptr) {
            ui.Message("Invalid Fan Curve : Fan curve # " + std::to_string(f), ProgramName, ui::Icon::None);
            return;
        }
        const auto& P = *column;
        const float s = static_cast<float>(-(static_cast<double>(P[10]) - P[k]) /
                                           (static_cast<double>(fan.FanQ[10]) - fan.FanQ[k]));
        if (s != 0.0f) fan.FanQ[11] = static_cast<float>(static_cast<double>(P[10]) / s + fan.FanQ[10]);
        fan.FanPStatic[11] = -fan.FanPTotal[10];
    }
}

std::int32_t FanCode(const Airway& airway) {
    const std::int32_t n = FanCount(airway);
    return airway.Has(bc::FansInSeries) ? 100 + n : 100 * n + 1;
}

bool BuildWorkingCurves(Model& model, ui::UserInterface& ui) {
    RunState& run = model.Run;
    run.WorkFanCount = 0;
    const std::int32_t slotLimit = std::min(FanRows(model), FanSlotCapacity);

    // Slots of one fan number are chained, so that finding a fan's slot looks only at the
    // codes of that fan and not at every slot made so far.
    std::array<std::int16_t, FanSlotCapacity + 1> firstSlot{};
    std::array<std::int16_t, FanSlotCapacity + 1> nextSlot{};
    std::array<std::int16_t, FanSlotCapacity + 1> tailFans{}; // slots of fans outside the database
    std::int32_t outsideCount = 0;

    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) {
        const Airway& a = model.Airways[i];
        if (a.FanNumber <= 0) {
            run.FanSlot()[i] = a.FanNumber < 0 ? static_cast<float>(FixedPressureSlot) : 0.0f;
            continue;
        }
        const std::int32_t code = FanCode(a);
        const bool inDatabase = a.FanNumber <= FanSlotCapacity;
        std::int32_t slot = 0;
        if (inDatabase) {
            for (std::int32_t s = firstSlot[a.FanNumber]; s != 0; s = nextSlot[s])
                if (run.WorkFans[s].Code == code) {
                    slot = s;
                    break;
                }
        } else {
            for (std::int32_t t = 0; t < outsideCount && slot == 0; ++t)
                if (run.WorkFans[tailFans[t]].FanNumber == a.FanNumber && run.WorkFans[tailFans[t]].Code == code)
                    slot = tailFans[t];
        }
        if (slot == 0) {
            if (run.WorkFanCount >= slotLimit) {
                ui.Message("The network uses more fans and fan groupings than the fan database has rows (" +
                               std::to_string(slotLimit) +
                               ") - please increase the Max Number of Fan Types in the defaults settings !",
                           "Fans Error", ui::Icon::Exclamation);
                model.SimFail = RunResult::Failed;
                return false;
            }
            slot = ++run.WorkFanCount;
            WorkFanCurve& w = run.WorkFans[slot];
            w.FanNumber = a.FanNumber;
            w.Code = code;
            if (inDatabase) {
                nextSlot[slot] = firstSlot[a.FanNumber];
                firstSlot[a.FanNumber] = static_cast<std::int16_t>(slot);
            } else {
                tailFans[outsideCount++] = static_cast<std::int16_t>(slot);
            }
        }
        run.FanSlot()[i] = static_cast<float>(slot);
    }

    // Parallel fans stretch the curve along the flow axis, series fans along the pressure axis.
    for (std::int32_t s = 1; s <= run.WorkFanCount; ++s) {
        WorkFanCurve& w = run.WorkFans[s];
        const Multipliers m = MultipliersOf(w.Code);
        const FanRecord* fan = FanOf(model, w.FanNumber);
        for (int p = 1; p <= FanPoints; ++p) {
            const double q = fan ? fan->FanQ[p] : 0.0;
            const double ps = fan ? fan->FanPStatic[p] : 0.0;
            const double pt = fan ? fan->FanPTotal[p] : 0.0;
            w.Q[p] = static_cast<float>(m.Flow * q);
            w.PStatic[p] = static_cast<float>(m.Pressure * ps);
            w.PTotal[p] = static_cast<float>(m.Pressure * pt);
        }
    }
    return true;
}

float CurvePressure(const Model& model, std::int32_t point, std::int32_t slot, std::int32_t airway) {
    const WorkFanCurve& w = model.Run.WorkFans[slot];
    return Mix(w.PStatic[point], w.PTotal[point], model.Airways[airway].CurveFraction);
}

float DatabaseCurvePressure(const Model& model, std::int32_t point, std::int32_t fan, std::int32_t airway) {
    const FanRecord* f = FanOf(model, fan);
    if (f == nullptr || point < 1 || point > FanPoints) return 0.0f;
    return Mix(f->FanPStatic[point], f->FanPTotal[point], model.Airways[airway].CurveFraction);
}

FanReading ReadFanCurve(const Model& model, std::int32_t slot, float flow, std::int32_t airway, float presetPressure) {
    FanReading r;
    r.FanPressure = presetPressure;
    if (slot == FixedPressureSlot) {
        r.FanSlope = FixedPressureSlope;
        return r;
    }
    if (slot < 1 || slot > model.Run.WorkFanCount) return r;
    const WorkFanCurve& w = model.Run.WorkFans[slot];
    if (flow < w.Q[1]) {
        // A flow against the fan, or below its first point: the fan stalls.
        r.FanRange = FanStall;
        r.FanPressure = CurvePressure(model, 1, slot, airway);
        r.FanSlope = OffCurveSlope;
        return r;
    }
    if (flow >= w.Q[11]) {
        r.FanRange = FanNegate;
        r.FanPressure = 0.0f;
        r.FanSlope = OffCurveSlope;
        return r;
    }
    int k = 11;
    for (int p = 2; p <= 10; ++p)
        if (flow < w.Q[p]) {
            k = p;
            break;
        }
    const float pk = CurvePressure(model, k, slot, airway);
    const float pj = CurvePressure(model, k - 1, slot, airway);
    r.FanSlope = static_cast<float>((static_cast<double>(pj) - pk) / (static_cast<double>(w.Q[k - 1]) - w.Q[k]));
    r.FanPressure = static_cast<float>(pk + (static_cast<double>(flow) - w.Q[k]) * r.FanSlope);
    return r;
}

float FanEfficiencyAt(const Model& model, std::int32_t airway) {
    const Airway& a = model.Airways[airway];
    const float fallback = static_cast<float>(static_cast<double>(model.Set.AirEfficiency) * 100.0);
    const FanRecord* fan = a.FanNumber > 0 ? FanOf(model, a.FanNumber) : nullptr;
    if (fan == nullptr) return fallback;
    std::int32_t sum = 0;
    for (int p = 1; p <= 10; ++p) sum += fan->FanEff[p];
    if (sum == 0) return fallback;

    const float q =
        a.Has(bc::FansInSeries) ? a.Quantity : static_cast<float>(static_cast<double>(a.Quantity) / FanCount(a));
    const auto& Q = fan->FanQ;
    const auto& E = fan->FanEff;
    if (q > Q[10]) return E[10];
    if (q < Q[1]) return E[1];
    int k = 10;
    for (int p = 2; p <= 10; ++p)
        if (q < Q[p]) {
            k = p;
            break;
        }
    // Two points of one flow (a flow exactly at point 10 after a repeated point) read the point.
    if (Q[k - 1] == Q[k]) return E[k];
    return static_cast<float>(E[k] + (static_cast<double>(q) - Q[k]) * (E[k - 1] - E[k]) /
                                         (static_cast<double>(Q[k - 1]) - Q[k]));
}

} // namespace karvane::simulate
