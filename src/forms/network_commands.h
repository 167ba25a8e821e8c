// The commands of the main window that change all airways at once: fixing lengths, naming
// airways and nodes, renumbering, the coordinate swaps, the common sense of all airways, and
// the flow labels. None of them goes to the undo log. Each asks its question, changes the
// network and says whether it did; the caller redraws.
#pragma once

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// "Fix All" / "Unfix All": bit 128 of every airway.
bool FixAllLengths(Model& model, ui::UserInterface& ui);
bool UnfixAllLengths(Model& model, ui::UserInterface& ui);
// "Auto Name Airway": every airway without a name gets the prefix and the next number.
bool AutoNameAirways(Model& model, ui::UserInterface& ui);
// "Auto Name Nodes": every unnamed exit end gets the prefix and the next number, and the name
// goes to the other unnamed ends of the same node.
bool AutoNameNodes(Model& model, ui::UserInterface& ui);
// "Renumber Airways": numbers 1 up in row order.
void RenumberAirways(Model& model, ui::UserInterface& ui);
// "Swap XY Axis": X and Y of every end exchanged, and the two axis signs with them. The
// angles of the permanent views follow the new vertical sign.
bool SwapXYAxis(Model& model, ui::UserInterface& ui);
// "Reverse coordinate axis": X and Y of every end exchanged, and both axis signs reversed.
bool ReverseCoordinateAxis(Model& model, ui::UserInterface& ui);
// "Remove duplicates": every airway turned so that its ends run up in X, then in Y, then in Z,
// which lets the check of a run see airways drawn both ways between the same nodes.
void GiveAirwaysOneSense(Model& model);
// "Preserve": the flow, as "(12.3)", into every name that is blank or is such a label.
bool PreserveFlowLabels(Model& model, ui::UserInterface& ui, char decimalSep);
// "Remove": the flow labels taken out of the names again.
void RemoveFlowLabels(Model& model);

// The permanent views' tilts, which follow the vertical axis sign.
void SetPermanentViewTilts(Model& model);

} // namespace karvane::forms
