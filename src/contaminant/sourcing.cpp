// The three walks of the sourcing and the report pins. Each walk marks the closure of its pins
// under one neighbour rule; the marks only ever grow within a walk, so a queue of the rows
// newly marked reaches the same rows as repeated passes over the table until nothing changes.
#include "contaminant/sourcing.h"

#include <cmath>

#include "model/node_keys.h"

namespace karvane::contaminant {

namespace {

// One walk: every row with `pin` takes `state`, and so does every row reached from a row in
// that state through `next` (the row's neighbours, or none where the walk stops) that `takes`.
template <typename Next, typename Takes>
void Walk(Model& model, std::int16_t pin, std::int16_t state, Next next, Takes takes) {
    Airway* rows = model.Airways.data();
    const std::int32_t n = CheckedAirwayCount(model);
    std::vector<std::int32_t>& queue = model.Smoke.Pending;
    queue.clear();
    for (std::int32_t i = 1; i <= n; ++i) {
        if (rows[i].Gas1 == pin) rows[i].Gas2 = state;
        if (rows[i].Gas2 == state) queue.push_back(i);
    }
    for (std::size_t q = 0; q < queue.size(); ++q) {
        for (const std::int16_t j : next(queue[q])) {
            if (!takes(rows[j])) continue;
            rows[j].Gas2 = state;
            queue.push_back(j);
        }
    }
}

} // namespace

void RunSourcing(Model& model, ui::UserInterface& ui, simulate::RunHooks* hooks) {
    if (model.SimValid == Validity::NotValid) {
        model.SimMode = RunMode::Normal;
        model.ShowProgress = 1;
        simulate::RunAirflow(model, ui, hooks);
        if (hooks) hooks->Redraw();
        if (model.SimValid == Validity::NotValid) {
            ui.Message("Network must be successfully balanced before smoke sourcing simulation can work", ProgramName,
                       ui::Icon::None);
            return;
        }
    }
    // A valid result whose lists were dropped by a run stopped later: build them again.
    if (!model.Run.NeighboursValid) simulate::BuildNeighbourLists(model);
    model.GasActive = GasDisplay::Sourcing;
    const std::int32_t n = CheckedAirwayCount(model);
    for (std::int32_t i = 1; i <= n; ++i) model.Airways[i].Gas2 = UnknownState;

    const Airway* rows = model.Airways.data();
    const float threshold = SourcingFlowThreshold;
    // The upstream walks stop at a row that starts at the surface: the atmosphere is upstream
    // of every intake and says nothing about where the smoke came from.
    auto upstream = [&model, rows](std::int32_t i) -> std::span<const std::int16_t> {
        if (rows[i].EntryKey == SurfaceKey || rows[i].Has(bc::EntryAtSurface)) return {};
        return simulate::Upstream(model, i);
    };
    auto downstream = [&model, rows](std::int32_t i) -> std::span<const std::int16_t> {
        if (rows[i].ExitKey == SurfaceKey || rows[i].Has(bc::ExitAtSurface)) return {};
        return simulate::Downstream(model, i);
    };

    ui.PumpEvents();
    Walk(model, SmokePin, PotentialSourceState, upstream, [threshold](const Airway& b) {
        return b.Gas1 == NoPin && b.Gas2 != PotentialSourceState && std::fabs(b.Quantity) > threshold;
    });
    ui.PumpEvents();
    Walk(model, ClearPin, ClearState, upstream, [threshold](const Airway& b) {
        return b.Gas1 == NoPin && b.Gas2 != ClearState && b.Gas2 != SmokeState && std::fabs(b.Quantity) > threshold;
    });
    ui.PumpEvents();
    Walk(model, SmokePin, SmokeState, downstream,
         [](const Airway& b) { return b.Gas2 != SmokeState && b.Quantity != 0.0f; });
    if (hooks) hooks->Redraw();
}

bool PlaceReport(Model& model, ui::UserInterface& ui, std::int32_t row, float fraction) {
    if (row < 1 || row > CheckedAirwayCount(model)) return false;
    Airway& a = model.Airways[row];
    const std::int16_t pin = model.Smoke.PinType;
    if (a.Gas2 == ClearState && pin == SmokePin &&
        ui.Ask("You are about to place a smoke report in a defined clear airway - is this correct",
               "Conflicting Report", ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::No)
        return false;
    if (a.Gas2 == SmokeState && pin == ClearPin &&
        ui.Ask("You are about to place a 'clear' report in a defined smoked airway - is this correct",
               "Conflicting Report", ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::No)
        return false;
    if (a.Gas1 == pin) {
        a.Gas1 = NoPin;
    } else {
        a.Gas1 = pin;
        a.IconLoc = fraction - 0.3f;
    }
    return true;
}

void ClearSourcing(Model& model) {
    const std::int32_t n = CheckedAirwayCount(model);
    for (std::int32_t i = 1; i <= n; ++i) {
        model.Airways[i].Gas1 = NoPin;
        model.Airways[i].Gas2 = UnknownState;
    }
}

bool ClearPins(Model& model, ui::UserInterface& ui) {
    if (ui.Ask("Confirm deletion of all report pins", "Delete smoke reports", ui::Buttons::YesNo, ui::Icon::Question) !=
        ui::Answer::Yes)
        return false;
    ClearSourcing(model);
    model.GasActive = GasDisplay::None;
    return true;
}

} // namespace karvane::contaminant
