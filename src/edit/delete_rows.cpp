// Row deletion with its undo records, compaction and the join of two airways at a node.
#include "edit/delete_rows.h"

#include <cstdlib>

#include "display/display_list.h"
#include "display/view_transform.h"
#include "engineering/resistance.h"
#include "model/network_rows.h"

namespace karvane::edit {

namespace {

bool LiveRow(const Model& model, std::int32_t row) {
    return row >= 1 && row <= model.AirwayCount && static_cast<std::size_t>(row) < model.Airways.size() &&
           model.Airways[static_cast<std::size_t>(row)].BranchCode != 0;
}

} // namespace

void CloseUndoStep(files::UndoLog& undo) {
    if (undo.CurrentStep < UndoCapacity) ++undo.CurrentStep;
}

void DeleteRow(Model& model, ui::UserInterface& ui, files::UndoLog& undo, std::int32_t row) {
    if (!LiveRow(model, row)) return;
    undo.LogAirway(model, ui, row, files::undo::Before, undo.CurrentStep);
    ClearAirwayRow(model, row);
}

void AfterDelete(Model& model, files::UndoLog& undo, display::DisplayState* ds) {
    CloseUndoStep(undo);
    CompactAirways(model);
    if (ds == nullptr) return;
    display::BuildDisplayList(model, *ds);
    ds->KeepCentre = true;
    display::ApplyRotation(model, *ds);
}

void DeleteRows(Model& model, ui::UserInterface& ui, files::UndoLog& undo, std::span<const std::int32_t> rows,
                display::DisplayState* ds) {
    for (std::int32_t row : rows) DeleteRow(model, ui, undo, row);
    AfterDelete(model, undo, ds);
}

NodeNeighbours ContinuingAirways(const Model& model, std::int32_t signedRow) {
    NodeNeighbours n;
    const std::int32_t row = std::abs(signedRow);
    if (!LiveRow(model, row)) return n;
    const Airway& picked = model.Airways[static_cast<std::size_t>(row)];
    const bool toEnd = signedRow < 0;
    const Fixed4 key = toEnd ? picked.ExitKey : picked.EntryKey;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) {
        if (r == row) continue;
        const Airway& other = model.Airways[static_cast<std::size_t>(r)];
        if ((toEnd ? other.EntryKey : other.ExitKey) != key) continue;
        ++n.Count;
        n.Other = r;
    }
    return n;
}

void JoinAirways(Model& model, ui::UserInterface& ui, files::UndoLog& undo, std::int32_t a, std::int32_t b,
                 display::DisplayState* ds) {
    if (!LiveRow(model, a) || !LiveRow(model, b) || a == b) return;
    undo.LogAirway(model, ui, a, files::undo::Before, undo.CurrentStep);
    undo.LogAirway(model, ui, b, files::undo::Before, undo.CurrentStep);
    Airway& first = model.Airways[static_cast<std::size_t>(a)];
    const Airway& second = model.Airways[static_cast<std::size_t>(b)];
    first.ExitKey = second.ExitKey;
    first.X2 = second.X2;
    first.Y2 = second.Y2;
    first.Z2 = second.Z2;
    RecalcAirway(model, a);
    // The joined airway is logged as it now stands, so that an undo takes it out before it
    // puts the two back.
    undo.LogAirway(model, ui, a, files::undo::After, undo.CurrentStep);
    ClearAirwayRow(model, b);
    AfterDelete(model, undo, ds);
}

} // namespace karvane::edit
