// Power, cost and node pressure figures for the reports.
#include "simulate/energy.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "simulate/fan_model.h"

namespace karvane::simulate {

namespace {

// Adds a term to a single-precision sum; a term that is not a number, or a sum that would
// leave the range of a Single, leaves the sum unchanged.
void AddTo(float& sum, double term) {
    const double next = static_cast<double>(sum) + term;
    if (std::isfinite(next) && std::fabs(next) <= FLT_MAX) sum = static_cast<float>(next);
}

bool FanAirway(const Airway& a) { return a.FanNumber > 0; }

// Efficiency as a fraction, or nothing when it is 0 (no power can be worked out).
std::optional<double> EfficiencyFraction(const Model& model, std::int32_t row) {
    const double eff = FanEfficiencyAt(model, row) / 100.0;
    if (eff == 0.0 || !std::isfinite(eff)) return std::nullopt;
    return eff;
}

bool HasInputPower(const Airway& a) { return a.FanNumber != 0 || (a.Has(bc::FixedFlow) && a.Pressure > 0.0f); }

std::optional<double> Finite(double v) {
    if (!std::isfinite(v)) return std::nullopt;
    return v;
}

} // namespace

double WorkingPressure(const Model& model, std::int32_t row) {
    const Airway& a = model.Airways[row];
    if (a.Pressure == StalledFanPressure) {
        const FanRecord* f = FanAirway(a) ? FanOf(model, a.FanNumber) : nullptr;
        return f ? f->FanPStatic[1] : 0.0;
    }
    if (a.Pressure == NegatedFanPressure) return 0.0;
    return a.Pressure;
}

double AirPower(const Model& model, std::int32_t row) {
    const Airway& a = model.Airways[row];
    const double q = a.Quantity;
    return q * q * q * a.Resistance / 1000.0;
}

double FanVelocityPressure(const Model& model, std::int32_t row) {
    const Airway& a = model.Airways[row];
    if (!FanAirway(a) || std::fabs(a.Pressure) == NegatedFanPressure) return 0.0;
    const FanRecord* f = FanOf(model, a.FanNumber);
    const double diam = f ? f->FanDiam : 0.0;
    const double area = diam * diam * FanPi / 4.0 * a.NoOfFans;
    if (area == 0.0) return 0.0;
    const double v = a.Quantity / area;
    return v * v * model.Set.Density / 2.0;
}

std::optional<double> InputPower(const Model& model, std::int32_t row) {
    const Airway& a = model.Airways[row];
    if (!HasInputPower(a)) return std::nullopt;
    const auto eff = EfficiencyFraction(model, row);
    if (!eff) return std::nullopt;
    const double p = WorkingPressure(model, row) + (1.0 - a.CurveFraction / 100.0) * FanVelocityPressure(model, row);
    return Finite(p * a.Quantity / 1000.0 / *eff);
}

std::optional<double> AirCost(const Model& model, std::int32_t row) {
    if (model.Set.AirEfficiency == 0.0f) return std::nullopt;
    return Finite(AirPower(model, row) * model.Set.PowerCost * HoursPerYear / model.Set.AirEfficiency);
}

std::optional<double> InputCost(const Model& model, std::int32_t row) {
    const auto power = InputPower(model, row);
    if (!power) return std::nullopt;
    return Finite(*power * model.Set.PowerCost * HoursPerYear);
}

double NodeAbsPressure(const Model& model, double p) { return p / 1000.0 + model.Set.SurfaceBaro; }

double NodeBarPressure(const Model& model, double p, std::int32_t z) {
    double surfaceRL = model.Set.SurfaceRL;
    if (model.Set.SurfaceRL == 99999.0f) surfaceRL = model.AirwayCount >= 1 ? model.Airways[1].Z1 : 0;
    return NodeAbsPressure(model, p) + (surfaceRL - z) * model.Set.Density * Gravity / 1000.0;
}

NetworkFigures NetworkTotals(const Model& model) {
    NetworkFigures t;
    const std::int32_t n = std::min<std::int32_t>(model.AirwayCount, MaxAirways);
    t.AirwayCount = model.AirwayCount;
    for (std::int32_t i = 1; i <= n; ++i) {
        const Airway& a = model.Airways[i];
        const double q = a.Quantity;
        if (a.EntryKey == SurfaceKey) AddTo(t.TotalFlow, q);
        // The cube keeps the sign of a flow against the airway's direction.
        AddTo(t.AirPower, a.Resistance * q * q * q);
        const bool fixedFlow = a.Has(bc::FixedFlow);
        if (a.FanNumber != 0 || fixedFlow) {
            const double p = WorkingPressure(model, i);
            if (a.FanNumber != 0) {
                const double eff = FanEfficiencyAt(model, i) / 100.0;
                const double pv = FanVelocityPressure(model, i);
                if (eff != 0.0) AddTo(t.InputPower, q * (p + (1.0 - a.CurveFraction / 100.0) * pv) / eff);
            } else if (p > 0.0 && model.Set.AirEfficiency != 0.0f) {
                // A fixed flow that takes pressure out of the network costs nothing.
                AddTo(t.InputPower, p * q / model.Set.AirEfficiency);
            }
        }
        AddTo(t.TotalLength, a.Length);
        if (a.FanNumber > 0) t.FanCount += a.NoOfFans;
    }
    return t;
}

} // namespace karvane::simulate
