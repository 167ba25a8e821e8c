// Airway pressures and node pressures. The flood from the surface visits rows in the order in
// which repeated passes over the rows would reach them (pass by pass, row by row), kept in a
// priority queue, so that each junction takes the pressure of the same first inflow as a pass
// scan would give, at the cost of one visit per row instead of one pass per step of depth.
#include "simulate/pressures.h"

#include <algorithm>
#include <functional>

#include "files/duplicates.h"
#include "simulate/fan_model.h"
#include "simulate/validation.h"

namespace karvane::simulate {

namespace {

bool Reached(const Airway& a) { return a.ToNodeP != NodeNotReached; }

// Rows lo..hi - 1 whose EntryKey equals key, over rows sorted by descending EntryKey.
std::pair<std::int32_t, std::int32_t> EntryBlock(const Model& model, Fixed4 key) {
    std::int32_t lo = 1, hi = model.AirwayCount + 1;
    while (lo < hi) { // first row with EntryKey <= key
        const std::int32_t mid = lo + (hi - lo) / 2;
        if (model.Airways[mid].EntryKey > key) lo = mid + 1;
        else hi = mid;
    }
    std::int32_t end = lo;
    hi = model.AirwayCount + 1;
    while (end < hi) { // first row with EntryKey < key
        const std::int32_t mid = end + (hi - end) / 2;
        if (model.Airways[mid].EntryKey >= key) end = mid + 1;
        else hi = mid;
    }
    return {lo, end};
}

} // namespace

void StoreAirwayPressures(Model& model) {
    const RunState& run = model.Run;
    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) {
        Airway& a = model.Airways[i];
        const float link = run.SourcePressure()[i];
        if (a.FanNumber == 0)
            a.Pressure = static_cast<float>(-(static_cast<double>(a.Quantity) * a.Quantity) * a.Resistance);
        if (a.FanNumber > 0) a.Pressure = link;
        if (link != 0.0f) a.Pressure = link;
    }
}

float RowDrop(const Model& model, std::int32_t row) {
    const Airway& a = model.Airways[row];
    const bool fan = a.FanNumber > 0;
    const bool plain = a.FanNumber == 0 && !a.Has(bc::FixedFlow);
    float source = a.Pressure;
    if (fan && a.Pressure == StalledFanPressure) {
        const FanRecord* f = FanOf(model, a.FanNumber);
        const double first = f ? f->FanPStatic[1] : 0.0;
        const double count = a.Has(bc::FansInSeries) ? a.NoOfFans : 1;
        source = static_cast<float>(first * count);
    } else if (fan && a.Pressure == NegatedFanPressure) {
        source = 0.0f;
    }
    if (plain) return source;
    const float loss = static_cast<float>(static_cast<double>(a.Quantity) * a.Quantity * a.Resistance);
    return static_cast<float>(static_cast<double>(source) - loss);
}

void FloodNodePressures(Model& model, const float* drop) {
    RunState& run = model.Run;
    const std::int32_t n = model.AirwayCount;
    std::int32_t* blockDone = run.BlockDone(); // by the first row of a node's block
    std::fill(blockDone, blockDone + n + 2, 0);
    std::int64_t* heap = run.PressureQueue();
    std::int64_t size = 0;
    const std::int64_t stride = n + 1;
    const auto later = std::greater<std::int64_t>();

    // A reached row is next looked at when the scan comes to it: in this pass if it lies
    // after the row that reached it, else in the next pass.
    for (std::int32_t i = 1; i <= n; ++i)
        if (Reached(model.Airways[i])) {
            heap[size++] = stride + i;
            std::push_heap(heap, heap + size, later);
        }
    while (size > 0) {
        std::pop_heap(heap, heap + size, later);
        const std::int64_t key = heap[--size];
        const std::int64_t pass = key / stride;
        const auto i = static_cast<std::int32_t>(key % stride);
        const Airway& from = model.Airways[i];
        if (from.ExitKey == SurfaceKey) continue;
        const auto [lo, hi] = EntryBlock(model, from.ExitKey);
        if (lo >= hi || blockDone[lo]) continue;
        blockDone[lo] = 1;
        for (std::int32_t j = lo; j < hi; ++j) {
            Airway& to = model.Airways[j];
            if (Reached(to)) continue;
            to.ToNodeP = static_cast<float>(static_cast<double>(from.ToNodeP) + drop[j]);
            to.FromNodeP = from.ToNodeP;
            heap[size++] = (j > i ? pass : pass + 1) * stride + j;
            std::push_heap(heap, heap + size, later);
        }
    }
}

void ResolveNodePressures(Model& model, ui::UserInterface& ui, const std::function<void(int)>& show) {
    files::SortAirways(model, ui);
    const std::int32_t n = model.AirwayCount;
    float* drop = model.Run.PressureDrop();
    bool anySurface = false;
    for (std::int32_t i = 1; i <= n; ++i) {
        Airway& a = model.Airways[i];
        drop[i] = RowDrop(model, i);
        a.ToNodeP = NodeNotReached;
        a.FromNodeP = 0.0f;
    }
    for (std::int32_t i = 1; i <= n; ++i) {
        Airway& a = model.Airways[i];
        if (a.EntryKey == SurfaceKey) {
            a.ToNodeP = drop[i];
            anySurface = true;
        }
    }
    if (!anySurface)
        for (std::int32_t i = 1; i <= n; ++i) model.Airways[i].ToNodeP = 0.0f;
    if (show) show(95);
    FloodNodePressures(model, drop);
}

} // namespace karvane::simulate
