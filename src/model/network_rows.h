// The row operations every editor, loader and simulator uses on the airway table: allocating
// and clearing the network, adding, clearing and compacting rows, and giving airways their
// lasting numbers.
#pragma once

#include <cstdint>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane {

// Allocates every table of the network at its full size, all values zero or empty: the airway
// table, the floating text slots (MaxText + 1) and the fan database (MaxFans + 1), and sets
// AirwayCount to 0. The level list, the layer lists and the saved views are not tables of the
// allocation: ClearNetwork and the loaders look after them.
void AllocateNetwork(Model& model);

// The same sizes, keeping all content: run after MaxFans or MaxText may have changed. Fan rows
// and text slots beyond a smaller size are dropped.
void ResizeNetwork(Model& model);

// Empties the network for a new file or a first load: every layer named blank and on, the user
// views 6 to 100 blanked (name, the first 16 parameters, all layer values), the tables
// reallocated, AirwayCount 0, FileComment blank and the bare program name in the title bar.
// This is the data part only: the caller resets the undo log and refreshes the display list
// after it.
void ClearNetwork(Model& model);

// Sets every stored field of the row to zero or blank, its keys and BranchCode included, so
// that the row goes at the next compaction. Rows outside the table are ignored.
void ClearAirwayRow(Model& model, std::int32_t row);

// Closes the gaps left by cleared rows (BranchCode 0); live rows keep their order and the rows
// freed at the end are cleared. The caller rebuilds the display list and redraws.
void CompactAirways(Model& model);

// Adds 1 to AirwayCount, clears that row and returns its number. The caller tests the capacity
// first (AirwayCapacityReached); when the table itself is full nothing is added and 0 returned.
std::int32_t NewAirwayRow(Model& model);

// Whether a new row would stand at or above the capacity. If so the user is told
// "Maximum Number of Airways Exceeded" / "Increase allowable number of branches in Defaults !".
bool AirwayCapacityReached(const Model& model, ui::UserInterface& ui);

// Gives AirwayNo to rows firstRow..AirwayCount in row order: each row takes the current
// LastAirwayNo, which then rises by 1. With restart, LastAirwayNo first becomes 1.
void NumberAirways(Model& model, std::int32_t firstRow, bool restart);

// The "Check numbering" command: looks for two rows sharing an AirwayNo, offers to renumber
// all airways when it finds one, and otherwise says that all numbers are unique.
void CheckAirwayNumbers(Model& model, ui::UserInterface& ui);

// The level list of a new network: "SURFACE" from 1000 to 1000 and "U/Ground" from 480 to 500,
// every other row blank.
void SetNewNetworkLevels(Model& model);

} // namespace karvane
