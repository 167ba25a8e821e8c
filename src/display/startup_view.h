// How the first view window shows a network that has just been read: the level the load
// chose, then the file's start-up view, or a fit of the whole network when the file has none
// or its view shows nothing of it.
#pragma once

#include <cstdint>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::display {

struct LoadedLevel {
    std::int16_t CurrentLevel = 1; // row of the level list the load chose
    std::int32_t CurRL = 0;
};

// Takes the display options from the network's settings and the level from the load, then
// applies view 0 when the file brought one, and fits the view when it did not or when that
// view shows none of the airways. The caller redraws.
void ShowLoadedNetwork(Model& model, DisplayState& ds, ui::UserInterface& ui, bool startupViewRead,
                       const LoadedLevel& level);

} // namespace karvane::display
