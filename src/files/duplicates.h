// The duplicate and zero-length checks that follow the sort of the airway table by keys, and
// the sort of the checking stage that brings them together. Used by the run, by the merge of a
// network and by the tools that sort the table.
#pragma once

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

// The duplicate and zero-length checks over rows sorted by SortAirwayRows (model/node_keys.h).
//  1. Rows i and i + 1 (i from 1 to N - 1) with equal EntryKey and ExitKey: at the first such
//     pair the user is asked "Duplicate branches exist - delete them ?" ("Duplicate branches",
//     Yes/No). On Yes every row i of such a pair is deleted; on anything else SimFail becomes Failed
//     and every row i gets the line "Duplicate airway", Comment "Duplicate br" and bit 64.
//  2. Rows whose EntryKey equals their ExitKey, neither being the surface key or 0: at the
//     first one "Branches with identical start/end points detected - delete them ?" ("Zero
//     length branches", Yes/No). On Yes they are deleted; otherwise SimFail becomes Failed and
//     each gets the line "Same start/end", Comment "Same start/e" and bit 64.
//  3. RecalcAllAirways, so that what follows works with resistances fresh from the present
//     dimensions.
// In SimMode FindDuplicates neither question is asked: both act as if answered No.
// Deleted rows are removed after their pass; the rest keep their order.
void CheckDuplicates(Model& model, ui::UserInterface& ui);

// The sort of the checking stage: with fewer than 2 airways the information box "No Data to
// sort" and nothing else; otherwise SortAirwayRows, CheckDuplicates, and the sort again. Rows
// must have fresh keys (BuildNodeKeys). The caller redraws afterwards.
void SortAirways(Model& model, ui::UserInterface& ui);

} // namespace karvane::files
