// Which airways and floating texts take part in a view: by level, by layer and by flow. The
// display list is the one input of the renderer and of picking.
#pragma once

#include <cstdint>

#include "display/view_state.h"
#include "model/model.h"

namespace karvane::display {

// On/off masks of the layers: layer k is the value 2^k; secondary layers 25 to 48 go in the
// second secondary mask as 2^(k - 24).
struct LayerMasks {
    std::int64_t Primary = 0;
    std::int64_t Secondary1 = 0; // layers 1..24
    std::int64_t Secondary2 = 0; // layers 25..48
};

LayerMasks CurrentLayerMasks(const Model& model);
// Sets LayerOn of every layer from the masks; a primary mask of 0 means all primary layers on.
void SetLayersFromMasks(Model& model, const LayerMasks& masks);

// The flow of an airway lies outside the limits of "Show airways by flow".
bool OutsideFlowLimits(const Model& model, const Airway& airway);

// Rebuilds DisplayList and VisibleText for the level mode, the layers, the dim options and
// the flow limits of the view, and marks airways whose layers are both on (bit 256). Layer
// numbers of 0 are stored back as 1, secondary numbers above 48 as 48.
void BuildDisplayList(Model& model, DisplayState& ds);

} // namespace karvane::display
