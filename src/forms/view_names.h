// The list of named views of the tool bar: the five permanent views and the user's own, saved
// under a name, chosen from the list and deleted from it.
#pragma once

#include <string>
#include <vector>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// The user's views take the free slots from 6 on; slot 100 is also the place where view
// window 0 keeps its view, so a name is never given to it.
inline constexpr int FirstUserViewSlot = 6;
inline constexpr int LastUserViewSlot = 99;
// Positions below this in the list are the permanent views.
inline constexpr int PermanentViewCount = 5;

// The names of the list: slots 1 to 100 that have one, in slot order.
std::vector<std::string> NamedViewList(const Model& model);
// The slot of a name (1 to 100); 0 when no slot has it.
int SlotOfViewName(const Model& model, const std::string& name);

// "Save View": asks for the name and saves the current view under it. Returns the name saved
// under, empty when nothing was saved.
std::string SaveNamedView(Model& model, const display::DisplayState& ds, ui::UserInterface& ui);

// "Delete View" of the entry at `position` of the list, named `name`. Returns whether the view
// was deleted.
bool DeleteNamedView(Model& model, ui::UserInterface& ui, int position, const std::string& name);

// The view of a name made current. A view of angles only is fitted. Returns false, with the
// message, when no slot has the name.
bool ChooseNamedView(Model& model, display::DisplayState& ds, ui::UserInterface& ui, const std::string& name);

} // namespace karvane::forms
