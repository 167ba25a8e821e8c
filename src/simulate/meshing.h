// The "Meshing airways" stage: a spanning forest of the nodes built from the lightest airways
// first, so that fans, fixed flows, blocked and heavy airways stay out of the tree, and one
// mesh for each airway left outside it (its chord): the chord plus the tree path between its
// two nodes. The same forest is the troubleshooting tool that finds bulkheads and fans which
// no loop can use.
#pragma once

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// Weight of whatever must not be in the tree: fans, fixed pressures, fixed flows, blocked airways.
inline constexpr float FullWeight = 100000000.0f;
// A tree airway at or above this weight is a restriction.
inline constexpr float RestrictionWeight = 999997.0f;

// Fills Work with each airway's weight (its resistance, or FullWeight) and SortOrder with the
// rows by descending weight, a later row before an earlier one of equal weight. A blocked
// airway's Quantity becomes 0.
void PrepareMeshOrder(Model& model);

// Builds the forest, runs the tree checks of the present SimMode, and in SimMode Normal and
// FindNonConverging builds the mesh lists. Faults go to the error list and SimFail. Needs the node numbers of
// the checking stage and PrepareMeshOrder.
void BuildMeshes(Model& model, ui::UserInterface& ui);

// The two parts of BuildMeshes, for callers that want one of them.
void BuildForest(Model& model);
// Returns false when the mesh store is full (the user has been told and the run fails).
bool BuildMeshLists(Model& model, ui::UserInterface& ui);

} // namespace karvane::simulate
