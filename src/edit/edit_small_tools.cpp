// The one-click tools: Reverse, Insert Node, the Fan tool, the Edit tool and Names, and the
// "Layer Inheritance" switch of the Window menu.
#include <cstdlib>
#include <utility>
#include <vector>

#include "display/display_list.h"
#include "display/picking.h"
#include "edit/edit_tools.h"
#include "engineering/resistance.h"
#include "model/node_keys.h"
#include "simulate/run.h"

namespace karvane::edit {

namespace {

bool HasComma(const std::string& text) { return text.find(',') != std::string::npos; }

// The rows a one-click tool acts on: all selected airways when the picked one is selected.
std::vector<std::int32_t> RowsOfPick(const Model& m, std::int32_t row) {
    if (!m.Airways[static_cast<std::size_t>(row)].Has(bc::Selected)) return {row};
    std::vector<std::int32_t> rows;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r)
        if (m.Airways[static_cast<std::size_t>(r)].Has(bc::Selected)) rows.push_back(r);
    return rows;
}

} // namespace

void EditTools::ReverseAirway(std::int32_t row) {
    if (row <= 0 || row > m_.AirwayCount) return;
    for (std::int32_t r : RowsOfPick(m_, row)) {
        Log(r, files::undo::Before);
        // The turn of the run, with the fan symbol left where it stands and the node pressures
        // going with their nodes.
        simulate::ReverseAirway(m_, r);
        Airway& a = Row(r);
        a.IconLoc = -a.IconLoc;
        std::swap(a.FromNodeP, a.ToNodeP);
        Log(r, files::undo::After);
    }
    CloseStep();
    Rebuild(false);
    host_.RedrawAllWindows();
}

void EditTools::ReverseTool(const ToolEvent& e) {
    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    if (pick.Airway > 0) ReverseAirway(pick.Airway);
}

void EditTools::InsertNode(const ToolEvent& e) {
    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    if (pick.Airway <= 0) return;
    if (SplitAirway(pick.Point.X, pick.Point.Y, pick.Point.Z, pick.Airway) == 0) return;
    CloseStep();
    m_.NetworkSaved = No0;
    BuildNodeKeys(m_, ui_);
    Rebuild(false);
    host_.RedrawAllWindows();
}

void EditTools::FanTool(const ToolEvent& e) {
    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    const std::int32_t row = pick.Airway;
    if (row <= 0) return;
    if (Row(row).FanNumber == -1) {
        ui_.Message("Fan not allowed with fixed pressure airway", ProgramName, ui::Icon::Exclamation);
        return;
    }
    if (Row(row).Has(bc::FixedFlow)) {
        ui_.Message("Fan not allowed with fixed quantity airway", ProgramName, ui::Icon::Exclamation);
        return;
    }
    Log(row, files::undo::Before);
    if (e.Button == button::Right) {
        Airway& a = Row(row);
        a.FanNumber = 0;
        a.NoOfFans = 0;
        a.BranchCode &= ~bc::FixedDirection;
        Log(row, files::undo::After);
        CloseStep();
        host_.RedrawAllWindows();
        return;
    }
    // A new fan's symbol stands where the user clicked; it stays where it was when the dialog
    // is left without a fan.
    const float iconLoc = Row(row).IconLoc;
    if (Row(row).FanNumber == 0) Row(row).IconLoc = ds_.PickFraction - 0.3f;
    if (!host_.ShowFanDialog(row) && row <= m_.AirwayCount) Row(row).IconLoc = iconLoc;
    if (row <= m_.AirwayCount) Log(row, files::undo::After);
    CloseStep();
    host_.RedrawAllWindows();
}

void EditTools::EditTool(const ToolEvent& e) {
    const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
    const std::int32_t row = pick.Airway;
    if (row <= 0) return;
    if (Row(row).Has(bc::Selected)) {
        host_.ShowAirwayEditor(row, 3);
        Rebuild(false);
        host_.RedrawAllWindows();
        return;
    }
    if (e.Button == button::Left || m_.Set.EditNoRightClick != 0) {
        host_.ShowAirwayEditor(row, 1);
        return;
    }
    // The quick bulkhead toggle of the right button.
    Log(row, files::undo::Before);
    Airway& a = Row(row);
    if (a.ResType >= 1) {
        a.ResType = 0;
    } else {
        a.ResType = 1;
        a.Resistance = m_.Preset.ResPreset[1];
        a.IconLoc = ds_.PickFraction - 0.3f;
    }
    RecalcAirway(m_, row);
    Log(row, files::undo::After);
    CloseStep();
    host_.RedrawAllWindows();
}

void EditTools::NameTool(const ToolEvent& e) {
    auto refused = [this](const std::string& text) {
        if (!HasComma(text)) return false;
        ui_.Message("Commas are not allowed!", ProgramName, ui::Icon::Exclamation);
        return true;
    };
    const bool left = e.Button == button::Left;

    if (std::optional<display::NodePick> node = display::FindNode(m_, ds_, e.CurX, e.CurY)) {
        std::string name;
        if (left) {
            const std::optional<std::string> answer = ui_.Input("Enter Name of Node", "Node Name", node->Name);
            if (!answer || answer->empty() || refused(*answer)) return;
            name = FitText(*answer, NameWidth);
        }
        // Every end of the same node takes the name.
        const Airway& picked = Row(std::abs(node->Airway));
        const bool from = node->Airway > 0;
        const Fixed4 key = from ? EndKey(m_, picked.X1, picked.Y1, picked.Z1, picked.Has(bc::EntryAtSurface))
                                : EndKey(m_, picked.X2, picked.Y2, picked.Z2, picked.Has(bc::ExitAtSurface));
        for (std::int32_t r = 1; r <= m_.AirwayCount; ++r) {
            const Airway& a = Row(r);
            const bool entry = EndKey(m_, a.X1, a.Y1, a.Z1, a.Has(bc::EntryAtSurface)) == key;
            const bool exit = EndKey(m_, a.X2, a.Y2, a.Z2, a.Has(bc::ExitAtSurface)) == key;
            if (!entry && !exit) continue;
            Log(r, files::undo::Before);
            if (entry) Row(r).EntryNode = name;
            if (exit) Row(r).ExitNode = name;
            Log(r, files::undo::After);
        }
        CloseStep();
    } else if (const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY); pick.Airway > 0) {
        const bool selected = Row(pick.Airway).Has(bc::Selected);
        std::string name;
        if (left) {
            const std::optional<std::string> answer =
                ui_.Input(selected ? "Enter Name of Selected Branch(s) " : "Enter Name of Branch ", "Input Branch Name",
                          TrimText(Row(pick.Airway).BranchName));
            if (!answer || refused(*answer)) return;
            name = FitText(*answer, NameWidth);
        }
        for (std::int32_t r : RowsOfPick(m_, pick.Airway)) {
            Log(r, files::undo::Before);
            Row(r).BranchName = name;
            Log(r, files::undo::After);
        }
        CloseStep();
    } else if (std::optional<display::TextPick> text = display::FindFloatingText(m_, ds_, e.CurX, e.CurY)) {
        FloatingText& t = m_.FloatingTexts[static_cast<std::size_t>(text->Slot)];
        if (left) {
            const std::optional<std::string> answer = ui_.Input("Enter Text", "Floating Text", t.TextValue);
            if (!answer || answer->empty() || refused(*answer)) return;
            t.TextValue = *answer;
        } else {
            t.TextOn = false;
        }
    } else {
        const std::optional<std::string> answer = ui_.Input("Enter Floating Text", "Floating Text", "");
        if (!answer || answer->empty() || refused(*answer)) return;
        std::size_t slot = 1;
        while (slot < m_.FloatingTexts.size() && m_.FloatingTexts[slot].TextOn) ++slot;
        if (slot >= m_.FloatingTexts.size()) {
            ui_.Message("Exceeded " + std::to_string(m_.FloatingTexts.size() > 0 ? m_.FloatingTexts.size() - 1 : 0) +
                            " text boxes - increase number in defaults",
                        ProgramName, ui::Icon::Exclamation);
            return;
        }
        const display::WorldPoint at = display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, ds_.View.CurRL);
        FloatingText& t = m_.FloatingTexts[slot];
        t.TextOn = true;
        t.TextValue = *answer;
        t.TextX = at.X;
        t.TextY = at.Y;
        t.TextZ = ds_.View.CurRL;
    }
    Rebuild(false);
    host_.RedrawAllWindows();
}

void ToggleLayerInheritance(Model& model, ui::UserInterface& ui) {
    model.Set.LayerInherit = !model.Set.LayerInherit;
    model.DefaultsSaved = No0;
    ui.Message(model.Set.LayerInherit ? "New airways WILL inherit view layer settings from connected airways."
                                      : "New airways WILL NOT inherit view layer settings from connected airways.",
               ProgramName, ui::Icon::Information);
}

} // namespace karvane::edit
