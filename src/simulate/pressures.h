// The "Resolving Pressures" stage: each airway's pressure change from the balanced flows and
// the operating pressures, and the pressure at each airway end, worked outwards from the
// surface, which is 0.
#pragma once

#include <functional>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// Pressure of every airway from the flows and the FanLink values that CloseBalance left: a
// plain airway -Resistance x Quantity^2, a fan its operating pressure (-9999 stalled, 9999
// negated), a fixed flow or blocked chord its closing pressure, a fixed pressure airway its own.
void StoreAirwayPressures(Model& model);

// The pressure an airway contributes on the way from its From end to its To end: a plain
// airway its Pressure (which holds its loss), any other its source less its loss. A stalled
// fan sources the static pressure of its first curve point (times the fans in series), a
// negated one nothing.
float RowDrop(const Model& model, std::int32_t row);

// Sorts the rows again (reversals changed keys), then gives FromNodeP and ToNodeP to every row
// that a path from the surface reaches; the first path to reach a junction sets it. Rows that
// no path reaches keep ToNodeP -9999999. `show` is the progress step of the run (95).
void ResolveNodePressures(Model& model, ui::UserInterface& ui, const std::function<void(int)>& show = {});

// The flood alone, over rows already sorted by key, with RowDrop of each row in `drop`
// (indexed by row). Used by ResolveNodePressures.
void FloodNodePressures(Model& model, const float* drop);

} // namespace karvane::simulate
