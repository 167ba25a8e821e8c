// The view state of a window in its stored form: the slots of the saved view table. Slot 0 is
// the view a file starts with, 1 to 5 the permanent views (angles only), 6 to 100 the user's
// named views, and 100 + n keeps window n's state while another window is current.
#pragma once

#include "display/view_state.h"
#include "model/model.h"

namespace karvane::display {

inline constexpr int StartupViewSlot = 0;
inline constexpr int FirstNamedSlot = 6;
inline constexpr int LastNamedSlot = 100;
inline constexpr int WindowSlot(int windowNumber) { return 100 + windowNumber; }

// Writes the live view into a slot (its name is left alone).
void SaveViewToSlot(Model& model, const DisplayState& ds, int slot);

enum class ViewLoad {
    NotLoaded,  // the main window is minimised, or no such slot
    AnglesOnly, // the slot holds angles only: the caller fits the view
    Loaded,
};

// Makes a slot the live view: angles, box, levels, options, layers and data type; then the
// display list is rebuilt and the view reprojected. Slot 1 always ends as a plan view.
ViewLoad LoadViewFromSlot(Model& model, DisplayState& ds, int slot);

// Copies the stored view (not its name) from one slot to another.
void CopyViewSlot(Model& model, int from, int to);

} // namespace karvane::display
