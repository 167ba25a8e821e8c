// frmListAirNames and frmListAirNodes, the list finders of "Find by List" (mnuFBName,
// mnuFNName): every non-blank branch or node name of the network once, in the order of a
// sorted list, narrowed by what the user types; a click on a name searches for it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "display/view_state.h"
#include "edit/find.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// The names of the list: branch names, or the names at both ends of every airway; trimmed,
// each once, sorted without regard to case.
std::vector<std::string> ListedNames(const Model& model, bool nodes);

// The names that hold the filter text, in any case; all of them for an empty filter.
std::vector<std::string> FilterNames(const std::vector<std::string>& names, std::string_view filter);

// A click on a name: FindKind 4 (branch names) or 5 (node names), FindText the name, and
// FindNext from the first row. Returns the row shown, 0 for none.
std::int32_t ChooseListedName(Model& model, display::DisplayState& ds, ui::UserInterface& ui, edit::FinderHost& host,
                              bool nodes, const std::string& name);

} // namespace karvane::forms
