// The "Checking airways" stage of an airflow run: node keys, the sort of the rows with the
// duplicate and zero-length checks, node numbers and the connection checks. Every fault found
// goes to the network error list (model.ErrorList), most also to the airway's Comment and
// BranchCode bit 64, and sets SimFail to Failed; all checks run so that one run lists every fault.
#pragma once

#include <functional>
#include <string>

#include "model/model.h"
#include "model/node_keys.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// Node numbers and connection checks over rows sorted by files::SortAirways. In order:
//  1. every Comment blanked and every bit 64 cleared (marks of earlier checks go; their list
//     lines stay);
//  2. Run.EntryNodeNo: 1 for row 1, rising by 1 at each new EntryKey; Run.NumNodes the last;
//  3. Run.ExitNodeNo: the node of the rows that start where the row ends, or 0 and the fault
//     "No exit from branch" / Comment "No Exit" when no row starts there;
//  4. "No entry into branch" / "No Entry" for a row where no row ends;
//  5. "Airway into surface entry" / "Bad Entry" for a row with bit 4096 whose From point is an
//     end (either end) of any other row;
//  6. "Airway into surface exit" / "Bad Exit" likewise for bit 8192 and the To point;
//  7. per row: the meshing work columns (Run.NodeParent, Run.NodeComp, Run.Work,
//     Run.SortOrder) cleared, a Quantity beyond 9994 either way set to 0, and a row with the
//     same keys as the row before reported as "Duplicate branch" / "Error-Duplic".
// Lines come step by step, rows in order within a step; a later fault's Comment replaces an
// earlier one. Each fault sets SimFail to Failed. Nothing is asked or shown.
void CheckConnections(Model& model);

// The whole checking stage for the run driver: BuildNodeKeys, show(10), files::SortAirways,
// show(20), CheckConnections, show(30). The caller has set SimFail to Good, emptied ErrorList and
// set the caption "Checking airways" first; show may be empty. Returns false when the stage
// failed (SimFail Failed): the driver then ends the run with the error list on show. A stop
// request is the driver's to test afterwards. Rows are left sorted by key, resistances
// recalculated and node numbers set for the meshing stage.
bool CheckNetwork(Model& model, ui::UserInterface& ui, const std::function<void(int percent)>& show = {});

// One line of the error list as the error window shows it: the AirwayNo as a plain number,
// a tab, the fault's text. The window's "Goto" reads the number back from the line's start.
std::string ErrorListLine(const NetworkError& error);

} // namespace karvane::simulate
