// The drawn list: where each airway of the display list stands in the window and in which
// colour and width its line is drawn. Computed once per redraw; both drawing passes, the
// picks and the fences read it.
#pragma once

#include "display/view_state.h"
#include "model/model.h"

namespace karvane::display {

// Fills the drawn list from the display list. Airways whose midpoint lies outside the view
// box and whose ends both lie beyond the same side are left out, unless clip is off (a fit).
void BuildDrawnList(const Model& model, DisplayState& ds, bool clip = true);

// The line colour of an airway by the colour rules, in their order: level or fresh/exhaust
// scheme, contaminant result, off its layers and dimmed, outside the flow limits and dimmed,
// error mark. Selection is applied by the drawn list itself.
Colour AirwayLineColour(const Model& model, const DisplayState& ds, const Airway& airway, std::int32_t row,
                        bool planSingleLevel);

} // namespace karvane::display
