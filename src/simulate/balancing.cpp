// Hardy Cross balancing over the mesh lists. The inner loop runs over flat copies of the flow,
// resistance and pressure columns; intermediate products are worked in double precision and
// every stored value (flows, the sums H and D, the correction) is rounded to single precision
// at each store, as the results have always been.
#include "simulate/balancing.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "simulate/fan_model.h"
#include "simulate/run_modes.h"

namespace karvane::simulate {

namespace {

struct MeshSums {
    float H = 0; // pressure left over round the loop
    float D = 0; // its derivative with respect to the loop flow
};

// The flat columns the passes work on: flows, applied pressures and working curve slots.
struct Columns {
    float* Q;
    const float* P;
    const float* FanLink;
};

// H and D of the mesh held in list[first .. last - 1]; the first entry (the chord) counts as
// running along its airway whatever its sign. `resistance` is the resistance column to use.
inline MeshSums SumMesh(const Model& model, const std::int16_t* list, std::int32_t first, std::int32_t last,
                        const Columns& c, const float* resistance) {
    double h = 0, d = 0;
    float H = 0, D = 0;
    for (std::int32_t pos = first; pos < last; ++pos) {
        const std::int32_t e = list[pos];
        const std::int32_t a = e < 0 ? -e : e;
        const float s = (e > 0 || pos == first) ? 1.0f : -1.0f;
        const float q = s * c.Q[a];
        const float r = std::fabs(q * resistance[a]);
        if (c.FanLink[a] == 0.0f) {
            H = static_cast<float>(h + static_cast<double>(q) * r);
            D = static_cast<float>(d + 2.0 * r);
        } else {
            const FanReading f = ReadFanCurve(model, static_cast<std::int32_t>(c.FanLink[a]), c.Q[a], a, c.P[a]);
            H = static_cast<float>(h + static_cast<double>(q) * r - static_cast<double>(s) * f.FanPressure);
            D = static_cast<float>(d + 2.0 * r - f.FanSlope);
        }
        h = H;
        d = D;
    }
    return {H, D};
}

} // namespace

void CopyColumnsIn(Model& model) {
    RunState& run = model.Run;
    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) {
        const Airway& a = model.Airways[i];
        run.FlatQ[i] = a.Quantity;
        run.FlatR[i] = a.Resistance;
        run.FlatP[i] = a.Pressure;
    }
}

void CopyFlowsOut(Model& model) {
    const RunState& run = model.Run;
    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) model.Airways[i].Quantity = run.FlatQ[i];
}

void SeedFlows(Model& model) {
    RunState& run = model.Run;
    float* Q = run.FlatQ.data();
    const std::int16_t* list = run.MeshList.data();
    for (std::int32_t m = 1; m <= run.NumMeshes; ++m) run.ChordFlow[m] = Q[std::abs(list[run.MeshStart[m]])];
    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) Q[i] = 0.0f;
    for (std::int32_t m = 1; m <= run.NumMeshes; ++m) {
        const float cf = run.ChordFlow[m];
        const std::int32_t first = run.MeshStart[m], last = run.MeshStart[m + 1];
        for (std::int32_t pos = first; pos < last; ++pos) {
            const std::int32_t e = list[pos];
            if (e > 0 || pos == first) Q[std::abs(e)] += cf;
            else Q[-e] -= cf;
        }
    }
}

std::int32_t ConvergencePercent(std::int32_t meshes, std::int32_t open) {
    if (meshes <= 0) return 100;
    return static_cast<std::int32_t>(static_cast<std::int64_t>(meshes - open) * 100 / meshes);
}

std::string ConvergenceQuestion(std::int32_t percent) {
    return "Your Network only has a convergence of " + std::to_string(percent) +
           "%\nDo you wish to keep on simulating ?";
}

std::string WorstCorrectionText(float worst, char decimalSeparator) {
    const float scaled = worst * 100.0f; // the hundredths as the figure shows them
    char buffer[64];
    if (scaled >= 0.0f && scaled < 9.0e15f) {
        const auto hundredths = static_cast<long long>(std::floor(scaled));
        std::snprintf(buffer, sizeof buffer, "%lld%c%02lld m3/s", hundredths / 100, decimalSeparator, hundredths % 100);
    } else {
        std::snprintf(buffer, sizeof buffer, "%.2f m3/s", static_cast<double>(worst));
    }
    return buffer;
}

AfterPass EndPass(Model& model, ui::UserInterface& ui, std::int32_t& it, std::int32_t open, float worst) {
    ++it;
    if (open > 0) {
        ui.ProgressAttempt(std::to_string(it));
        ui.ProgressError(WorstCorrectionText(worst, ui.DecimalSeparator()));
        ui.PumpEvents();
        if (model.StopFlag == StopRequest::Stop) {
            model.SimFail = RunResult::Failed;
            return AfterPass::Stopped;
        }
        if (it < model.Set.MaxIter) return AfterPass::Next;
    }
    const std::int32_t percent = ConvergencePercent(model.Run.NumMeshes, open);
    if (percent >= 100) return AfterPass::Finished;
    const ui::Answer answer =
        ui.Ask(ConvergenceQuestion(percent), "Convergence Warning", ui::Buttons::YesNo, ui::Icon::Exclamation);
    if (answer != ui::Answer::Yes) return AfterPass::Finished; // the user accepts the flows as they stand
    it = 0;
    return AfterPass::Next;
}

void BeginBalance(Model& model, ui::UserInterface& ui) {
    ui.ProgressAttempt("");
    ui.ProgressError("");
    CopyColumnsIn(model);
    SeedFlows(model);
}

void BalanceFlows(Model& model, ui::UserInterface& ui) {
    RunState& run = model.Run;
    BeginBalance(model, ui);

    const Columns cols{run.FlatQ.data(), run.FlatP.data(), run.FanSlot()};
    const float* resistance = run.FlatR.data();
    const std::int16_t* list = run.MeshList.data();
    const std::int32_t meshes = run.NumMeshes;
    const float allowErr = model.Set.AllowErr;
    const char sep = ui.DecimalSeparator();

    std::int32_t it = 0;
    for (;;) {
        // One pass over the meshes; each correction acts at once on the meshes after it.
        std::int32_t open = 0;
        float worst = 0.0f;
        const bool markPass = model.SimMode == RunMode::FindNonConverging && it == model.Set.MaxIter - 1;
        for (std::int32_t m = 1; m <= meshes; ++m) {
            if (model.StopFlag == StopRequest::Stop) {
                CopyFlowsOut(model);
                return;
            }
            const std::int32_t first = run.MeshStart[m], last = run.MeshStart[m + 1];
            if (list[first] < 0) continue; // a fixed mesh is held
            const MeshSums sums = SumMesh(model, list, first, last, cols, resistance);
            if (sums.D == 0.0f) continue;
            const float dq = -sums.H / sums.D;
            const float size = std::fabs(dq);
            if (size > allowErr) {
                ++open;
                if (size > worst) worst = size;
            }
            for (std::int32_t pos = first; pos < last; ++pos) {
                const std::int32_t e = list[pos];
                if (e > 0 || pos == first) cols.Q[std::abs(e)] += dq;
                else cols.Q[-e] -= dq;
            }
            if (markPass && size > allowErr) {
                for (std::int32_t pos = first; pos < last; ++pos)
                    MarkNonConverging(model, std::abs(static_cast<std::int32_t>(list[pos])), size, sep);
            }
        }
        const AfterPass next = EndPass(model, ui, it, open, worst);
        if (next == AfterPass::Stopped) {
            CopyFlowsOut(model);
            return;
        }
        if (next == AfterPass::Finished) break;
    }
    CopyFlowsOut(model);
}

void CloseBalance(Model& model) {
    RunState& run = model.Run;
    const std::int32_t n = model.AirwayCount;
    CopyColumnsIn(model);
    float* resistance = run.ClosingResistance();
    for (std::int32_t i = 1; i <= n; ++i) resistance[i] = model.Airways[i].Resistance;

    // The pressure each fixed chord must supply to hold its flow. A chord belongs to its own
    // mesh alone, so the values stored on the way never enter another mesh's sum.
    const Columns cols{run.FlatQ.data(), run.FlatP.data(), run.FanSlot()};
    const std::int16_t* list = run.MeshList.data();
    float* closing = run.FlatR.data(); // free in this step: holds each fixed chord's value
    for (std::int32_t i = 1; i <= n; ++i) closing[i] = 0.0f;
    for (std::int32_t m = 1; m <= run.NumMeshes; ++m) {
        if (model.StopFlag == StopRequest::Stop) return;
        const std::int32_t first = run.MeshStart[m], last = run.MeshStart[m + 1];
        if (list[first] >= 0) continue;
        const MeshSums sums = SumMesh(model, list, first, last, cols, resistance);
        closing[std::abs(static_cast<std::int32_t>(list[first]))] = sums.H;
    }
    float* chord = run.ChordPressure();
    for (std::int32_t i = 1; i <= n; ++i) chord[i] = closing[i];

    // Each working curve slot becomes what its source delivers at the final flow.
    const float* slot = run.FanSlot();
    float* source = run.SourcePressure();
    for (std::int32_t i = 1; i <= n; ++i) {
        if (slot[i] == 0.0f) continue;
        const Airway& a = model.Airways[i];
        const FanReading f = ReadFanCurve(model, static_cast<std::int32_t>(slot[i]), a.Quantity, i, a.Pressure);
        source[i] = f.FanRange == FanOnCurve ? f.FanPressure : 9999.0f * f.FanRange;
    }
    for (std::int32_t i = 1; i <= n; ++i)
        if (chord[i] != 0.0f) source[i] = chord[i];
}

} // namespace karvane::simulate
