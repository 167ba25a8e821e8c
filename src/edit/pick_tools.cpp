// Delete, Select, attribute and layer paste, and Follow, at the release of the mouse.
#include "edit/pick_tools.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include "display/display_list.h"
#include "display/view_transform.h"
#include "edit/attribute_paste.h"
#include "edit/delete_rows.h"
#include "edit/show_airway.h"

namespace karvane::edit {

namespace {

// The short confirmations of a paste close by themselves after this many milliseconds.
constexpr int kConfirmationMs = 400;

// The wait pointer while a tool works.
class BusyPointer {
public:
    explicit BusyPointer(ui::UserInterface& ui) : ui_(ui) { ui_.SetBusy(true); }
    ~BusyPointer() { ui_.SetBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    ui::UserInterface& ui_;
};

std::string LayerLine(const char* what, const std::vector<LayerRecord>& layers, std::int16_t n) {
    const std::string name =
        n >= 0 && static_cast<std::size_t>(n) < layers.size() ? TrimText(layers[static_cast<std::size_t>(n)].Name) : "";
    return std::string(what) + std::to_string(n) + " : " + name;
}

} // namespace

PickTools::PickTools(Model& model, display::DisplayState& ds, ui::UserInterface& ui, files::UndoLog& undo,
                     EditHost& host, FinderHost& finder)
    : m_(model),
      ds_(ds),
      ui_(ui),
      undo_(undo),
      host_(host),
      finder_(finder) {}

bool PickTools::Handles(int t) {
    return t == tool::Delete || t == tool::Select || t == tool::Attributes || t == tool::Layers || t == tool::Follow;
}

bool PickTools::Release(const ToolEvent& event, ToolDispatcher& dispatcher) {
    switch (event.Tool) {
    case tool::Delete: DeleteTool(event); return true;
    case tool::Select: SelectTool(event); return true;
    case tool::Attributes:
        if (AttributeTool(event, dispatcher.State().CopyToDefaults)) dispatcher.RunToolCommand(cmd::Attributes);
        return true;
    case tool::Layers: LayerTool(event); return true;
    case tool::Follow: FollowTool(event); return true;
    default: return false;
    }
}

bool PickTools::IsFence(const ToolEvent& e) const {
    if (e.Fence) return true;
    const double near = static_cast<double>(ds_.View.ScaleWidth) / 50;
    return std::fabs(static_cast<double>(e.CurX) - e.PressX) > near ||
           std::fabs(static_cast<double>(e.CurY) - e.PressY) > near;
}

display::FenceRect PickTools::Fence(const ToolEvent& e) const {
    return display::MakeFence(m_, e.PressX, e.PressY, e.CurX, e.CurY);
}

std::vector<std::int32_t> PickTools::FenceRows(const ToolEvent& e) {
    std::vector<std::int32_t> rows = display::RowsInFence(m_, ds_, Fence(e));
    if (rows.empty()) host_.RedrawWindow();
    return rows;
}

void PickTools::Log(std::int32_t row, int action) { undo_.LogAirway(m_, ui_, row, action, undo_.CurrentStep); }

void PickTools::Rebuild() {
    display::BuildDisplayList(m_, ds_);
    display::ApplyRotation(m_, ds_);
}

void PickTools::DeleteSelection() {
    std::vector<std::int32_t> rows;
    for (std::int32_t row = 1; row <= m_.AirwayCount; ++row)
        if (Row(row).Has(bc::Selected)) rows.push_back(row);
    DeleteRows(m_, ui_, undo_, rows, &ds_);
    host_.RedrawAllWindows();
}

void PickTools::DeleteTool(const ToolEvent& e) {
    if (e.Button != button::Left) return;
    BusyPointer busy(ui_);
    if (IsFence(e)) {
        const display::FenceRect fence = Fence(e);
        if (!display::FenceHit(ds_, fence)) {
            host_.RedrawWindow();
            return;
        }
        if (ui_.Ask("Are you sure you want to delete all airways within the fence?", "Fence Delete", ui::Buttons::YesNo,
                    ui::Icon::Question) != ui::Answer::Yes) {
            host_.RedrawWindow();
            return;
        }
        const std::vector<std::int32_t> rows = display::RowsInFence(m_, ds_, fence);
        DeleteRows(m_, ui_, undo_, rows, &ds_);
        host_.RedrawAllWindows();
        return;
    }

    // A node: removed by joining the airway that ends there to the one that begins there.
    if (const auto node = display::FindNode(m_, ds_, e.CurX, e.CurY)) {
        const std::int32_t row = std::abs(node->Airway);
        if (Row(row).Has(bc::Selected)) {
            DeleteSelection();
            return;
        }
        const NodeNeighbours next = ContinuingAirways(m_, node->Airway);
        if (next.Count > 1) {
            ui_.Message("Too many attached branches to delete node", ProgramName, ui::Icon::Exclamation);
            return;
        }
        if (next.Count == 1) {
            const bool toEnd = node->Airway < 0;
            JoinAirways(m_, ui_, undo_, toEnd ? row : next.Other, toEnd ? next.Other : row, &ds_);
            host_.RedrawAllWindows();
            return;
        }
    }

    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    if (pick.Airway > 0) {
        if (Row(pick.Airway).Has(bc::Selected)) {
            DeleteSelection();
            return;
        }
        const std::int32_t row = pick.Airway;
        DeleteRows(m_, ui_, undo_, std::span(&row, 1), &ds_);
        host_.RedrawWindow();
        return;
    }

    if (const auto text = display::FindFloatingText(m_, ds_, e.CurX, e.CurY)) {
        m_.FloatingTexts[static_cast<std::size_t>(text->Slot)].TextOn = false;
        display::BuildDisplayList(m_, ds_);
        host_.RedrawWindow();
    }
}

void PickTools::SelectTool(const ToolEvent& e) {
    BusyPointer busy(ui_);
    if (IsFence(e)) {
        const std::vector<std::int32_t> rows = FenceRows(e);
        if (rows.empty()) return;
        for (std::int32_t row : rows) Row(row).BranchCode |= bc::Selected;
        host_.RedrawAllWindows();
        return;
    }
    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    if (pick.Airway > 0) {
        if (e.Button == button::Left) {
            Row(pick.Airway).BranchCode |= bc::Selected;
        } else {
            Row(pick.Airway).BranchCode &= ~bc::Selected;
        }
    }
    host_.RedrawAllWindows();
}

bool PickTools::AttributeTool(const ToolEvent& e, bool copyToDefaults) {
    if (NothingCarried(m_.Set.AttributeMask)) {
        ui_.Message("No copy/paste attributes have been selected !", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    const char sep = ui_.DecimalSeparator();
    if (IsFence(e)) {
        if (m_.Paste.PasteBranchCode == 0) {
            ui_.Message("Use the right mouse button to copy attributes from an airway first !", ProgramName,
                        ui::Icon::Exclamation);
            return false;
        }
        const std::vector<std::int32_t> rows = FenceRows(e);
        if (rows.empty()) return false;
        if (ui_.Ask("Are you sure you want to paste the copied attributes to all airways within the fence?",
                    "Fence Paste", ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes) {
            host_.RedrawWindow();
            return false;
        }
        BusyPointer busy(ui_);
        for (std::int32_t row : rows) {
            Log(row, files::undo::Before);
            PasteToRow(m_, row);
            Log(row, files::undo::After);
        }
        CloseUndoStep(undo_);
        Rebuild();
        host_.RedrawAllWindows();
        return false;
    }

    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    const std::int32_t row = pick.Airway;
    if (row <= 0) return false;
    if (copyToDefaults) {
        CopyToDefaults(m_, row);
        ui_.Message(AttributeMessage(m_, row, Wording::Defaults, sep), ProgramName, ui::Icon::Information);
        return true;
    }
    if (e.Button != button::Left) {
        CopyToPasteStore(m_, row);
        ui_.Message(AttributeMessage(m_, row, Wording::Copy, sep), ProgramName, ui::Icon::Information);
        return false;
    }
    if (m_.Paste.PasteBranchCode == 0) {
        ui_.Message("Paste attributes must first be copied from an existing branch by using the right mouse button",
                    ProgramName, ui::Icon::Exclamation);
        return false;
    }
    Log(row, files::undo::Before);
    PasteToRow(m_, row);
    Log(row, files::undo::After);
    CloseUndoStep(undo_);
    ui_.Notice(AttributeMessage(m_, row, Wording::Paste, sep), kConfirmationMs);
    Rebuild();
    host_.RedrawWindow();
    return false;
}

void PickTools::LayerTool(const ToolEvent& e) {
    if (IsFence(e)) {
        const std::vector<std::int32_t> rows = FenceRows(e);
        if (rows.empty()) return;
        if (ui_.Ask("Are you sure you want to change all airway view layers within the fence ?", "Fence Tag",
                    ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes) {
            host_.RedrawWindow();
            return;
        }
        BusyPointer busy(ui_);
        for (std::int32_t row : rows) {
            Log(row, files::undo::Before);
            Row(row).PrimaryLayer = m_.DrawPrimaryLayer;
            Row(row).SecondLayer = m_.DrawSecondaryLayer;
            Log(row, files::undo::After);
        }
        CloseUndoStep(undo_);
        Rebuild();
        host_.RedrawWindow();
        return;
    }

    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    const std::int32_t row = pick.Airway;
    if (row <= 0) return;
    if (e.Button != button::Left) {
        m_.DrawPrimaryLayer = Row(row).PrimaryLayer;
        m_.DrawSecondaryLayer = Row(row).SecondLayer;
        ui_.Message(LayerLine("Primary Layer Default = ", m_.PrimaryLayers, m_.DrawPrimaryLayer) + "\n" +
                        LayerLine("Secondary Layer Default = ", m_.SecondaryLayers, m_.DrawSecondaryLayer),
                    ProgramName, ui::Icon::Information);
        return;
    }
    Log(row, files::undo::Before);
    Row(row).PrimaryLayer = m_.DrawPrimaryLayer;
    Row(row).SecondLayer = m_.DrawSecondaryLayer;
    Log(row, files::undo::After);
    CloseUndoStep(undo_);
    ui_.Notice("Layers pasted to branch " + std::to_string(row), kConfirmationMs);
    Rebuild();
    host_.RedrawWindow();
}

void PickTools::FollowTool(const ToolEvent& e) {
    if (IsFence(e)) return;
    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    if (pick.Airway <= 0) return;
    finder_.ShowAirwayRow(pick.Airway, ds_.PickFraction);
}

} // namespace karvane::edit
