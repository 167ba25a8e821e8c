// Bringing one airway into view: a level in which it is seen, its layers on, the view centred
// on it, and a mark round it. The Goto of the network error list and the finders end here.
#pragma once

#include <cstdint>

#include "display/surface.h"
#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::edit {

struct ShownAirway {
    bool Shown = false;
    bool LevelAdded = false; // "Global Level" was added to the level list
    bool LevelChanged = false;
};

// Picks the level by the From end (pickFraction at most 0.5) or the To end, adding a level
// "Global Level" over the whole network when no level holds it; switches the airway's layers
// on; centres the view on its midpoint, which becomes the rotation centre. The caller redraws
// and then marks the airway.
ShownAirway ShowAirway(Model& model, display::DisplayState& ds, ui::UserInterface& ui, std::int32_t row,
                       float pickFraction);

// The mark at the window's middle: a black and a white circle.
void MarkShownAirway(const display::DisplayState& ds, display::Surface& surface);

// The row of the airway with a lasting number; 0 for none.
std::int32_t RowOfAirwayNo(const Model& model, std::int32_t airwayNo);

} // namespace karvane::edit
