// Taking airways out of the network: one row at a time into the undo log and out of the table,
// the table compacted once at the end, and a node removed by joining the two airways that
// meet at it. The delete tool, the fence delete and the spreadsheet's row delete all come here.
#pragma once

#include <cstdint>
#include <span>

#include "display/view_state.h"
#include "files/undo_log.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::edit {

// The action ends: CurrentStep + 1, so that one undo takes back everything logged under it.
void CloseUndoStep(files::UndoLog& undo);

// DeleteRow: the row goes to the undo log as it was (action 2), then it is cleared, so that it
// goes at the next compaction. The row numbers of the table do not change until AfterDelete.
void DeleteRow(Model& model, ui::UserInterface& ui, files::UndoLog& undo, std::int32_t row);

// AfterDelete: closes the undo step and compacts the table. With a display state the display
// list is rebuilt and the view reprojected about the centre it had (the rows have moved).
void AfterDelete(Model& model, files::UndoLog& undo, display::DisplayState* ds = nullptr);

// DeleteRow for each row (rows out of the table, or already cleared, are passed over) and then
// AfterDelete once: one undo step for all of them.
void DeleteRows(Model& model, ui::UserInterface& ui, files::UndoLog& undo, std::span<const std::int32_t> rows,
                display::DisplayState* ds = nullptr);

// The airways that continue an airway at one of its ends: for the To end (a negative signed
// row, as FindNode gives it) the others that begin at its exit node, for the From end the
// others that end at its entry node. Other is the last of them, 0 for none.
struct NodeNeighbours {
    std::int32_t Count = 0;
    std::int32_t Other = 0;
};
NodeNeighbours ContinuingAirways(const Model& model, std::int32_t signedRow);

// JoinAirways: a, which ends at the node, takes the exit key and the To point of b, which
// begins there, and b goes. Everything else of a stays, so that its size, wall and name now
// cover the whole length. One undo step (a before and after, b before); the table compacted,
// the display list rebuilt when a display state is given.
void JoinAirways(Model& model, ui::UserInterface& ui, files::UndoLog& undo, std::int32_t a, std::int32_t b,
                 display::DisplayState* ds = nullptr);

} // namespace karvane::edit
