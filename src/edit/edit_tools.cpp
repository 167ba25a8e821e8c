// The press of Draw and Move, the road of each release to its tool, the Draw tool's
// construction and the split of an airway.
#include "edit/edit_tools.h"

#include <cmath>
#include <cstdlib>

#include "display/display_list.h"
#include "display/picking.h"
#include "engineering/resistance.h"
#include "files/number_text.h"
#include "model/network_rows.h"
#include "model/node_keys.h"

namespace karvane::edit {

namespace {

bool SamePoint(const display::WorldPoint& a, const display::WorldPoint& b) {
    return a.X == b.X && a.Y == b.Y && a.Z == b.Z;
}

// The integer part of the distance between two points.
float WholeLength(const display::WorldPoint& a, const display::WorldPoint& b) {
    const double dx = static_cast<double>(b.X) - a.X;
    const double dy = static_cast<double>(b.Y) - a.Y;
    const double dz = static_cast<double>(b.Z) - a.Z;
    return static_cast<float>(std::trunc(std::sqrt(dx * dx + dy * dy + dz * dz)));
}

// The BranchCode bits a new airway takes from the airway it grows out of: the shape bits,
// services, and the bits 256, 512, 1024, 2048.
constexpr std::int32_t kInheritedBits = 0x10F13;

template <typename T>
T PresetValue(const std::array<T, PresetRows + 1>& table, int index) {
    return index >= 0 && index <= PresetRows ? table[static_cast<std::size_t>(index)] : T{};
}

} // namespace

EditTools::EditTools(Model& model, display::DisplayState& ds, ui::UserInterface& ui, files::UndoLog& undo,
                     EditHost& host)
    : m_(model),
      ds_(ds),
      ui_(ui),
      undo_(undo),
      host_(host) {}

bool EditTools::Handles(int t) {
    return t == tool::Draw || t == tool::Move || t == tool::Reverse || t == tool::Fan || t == tool::Names ||
           t == tool::Edit || t == tool::Insert;
}

void EditTools::Log(std::int32_t row, int action) { undo_.LogAirway(m_, ui_, row, action, undo_.CurrentStep); }

void EditTools::CloseStep() {
    if (undo_.CurrentStep < INT16_MAX) ++undo_.CurrentStep;
}

std::optional<CoordsResult> EditTools::Coords(const CoordsRequest& request) {
    coordsOpen_ = true;
    std::optional<CoordsResult> result = host_.ShowCoords(request);
    coordsOpen_ = false;
    return result;
}

bool EditTools::LevelShownChanged() const {
    const display::ViewState& v = ds_.View;
    return v.LevelMode != c_.PressLevelMode || v.CurrentLevel != c_.PressCurrentLevel ||
           v.CurrentRLMin != c_.PressRLMin || v.CurrentRLMax != c_.PressRLMax;
}

void EditTools::TellNetworkFull() {
    ui_.Message("Maximum Number of Airways Exceeded\nIncrease allowable number of branches in Defaults !", ProgramName,
                ui::Icon::Exclamation);
}

void EditTools::Rebuild(bool keepCentre) {
    display::BuildDisplayList(m_, ds_);
    if (ds_.View.Is3D != 0) {
        const bool kept = ds_.KeepCentre;
        ds_.KeepCentre = keepCentre;
        display::ApplyRotation(m_, ds_);
        ds_.KeepCentre = kept;
    }
}

void EditTools::Press(const ToolEvent& e, ToolDispatcher& dispatcher) {
    if (e.Tool != tool::Draw && e.Tool != tool::Move) return;
    PressDrawOrMove(e, dispatcher);
}

void EditTools::PressDrawOrMove(const ToolEvent& e, ToolDispatcher& dispatcher) {
    c_ = Construction{};
    c_.Active = true;
    const display::ViewState& v = ds_.View;
    c_.PressLevel = v.CurRL;
    c_.PressLevelMode = v.LevelMode;
    c_.PressCurrentLevel = v.CurrentLevel;
    c_.PressRLMin = v.CurrentRLMin;
    c_.PressRLMax = v.CurrentRLMax;
    c_.PressCurX = e.CurX;
    c_.PressCurY = e.CurY;
    c_.PressWindow = e.Window;
    c_.PressButton = e.Button;
    const bool move = e.Tool == tool::Move;

    if (std::optional<display::NodePick> node = display::FindNode(m_, ds_, e.CurX, e.CurY)) {
        c_.PressHit = true;
        c_.StartPoint = node->Point;
        c_.StartNamed = true;
        c_.StartNodeName = node->Name;
        c_.StartAirway = c_.PressAirway = std::abs(node->Airway);
    } else {
        const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
        if (pick.Airway > 0) {
            c_.PressHit = true;
            if (!move) {
                c_.SplitAtStart = pick.Airway;
                c_.StartPoint = pick.Point;
                c_.StartFraction = ds_.PickFraction;
            } else {
                c_.PressAirway = pick.Airway;
                const Airway& a = Row(pick.Airway);
                if (a.Has(bc::Selected)) {
                    c_.StartPoint = pick.Point;
                } else if (ds_.PickFraction >= 0.5f) {
                    c_.MoveEnd = pick.Airway;
                    c_.StartPoint = {a.X2, a.Y2, a.Z2};
                } else {
                    c_.MoveEnd = -pick.Airway;
                    c_.StartPoint = {a.X1, a.Y1, a.Z1};
                }
            }
        }
    }
    if (!c_.PressHit && move && e.Button == button::Left) {
        if (std::optional<display::TextPick> text = display::FindFloatingText(m_, ds_, e.CurX, e.CurY)) {
            c_.PressHit = true;
            c_.DragText = true;
            c_.TextSlot = text->Slot;
            c_.StartPoint = text->Point;
        } else {
            c_.FenceDrag = true;
        }
    }

    if (c_.PressHit) {
        c_.StartZ = c_.StartPoint.Z;
    } else if (e.Button == button::Left) {
        // A free start: the point under the cursor at the level of the view.
        c_.StartPoint = display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, ds_.View.CurRL);
        c_.StartZ = c_.StartPoint.Z;
    } else {
        CoordsRequest request;
        const display::WorldPoint w = display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, ds_.View.CurRL);
        request.X = w.X;
        request.Y = w.Y;
        request.Z = w.Z;
        request.DuringPress = true;
        const std::optional<CoordsResult> entered = Coords(request);
        if (!entered || (entered->X == 0 && entered->Y == 0)) {
            c_ = Construction{};
            dispatcher.DropPress();
            host_.RedrawWindow();
            return;
        }
        c_.StartPoint = {entered->X, entered->Y, entered->Z};
        c_.StartZ = entered->Z;
        c_.StartEntered = true;
        c_.PressHit = move;
        ds_.View.CurRL = entered->Level != 0 ? entered->Level : entered->Z;
    }
    if (c_.PressHit || c_.StartEntered) {
        // The rubber line starts on what was hit.
        const display::ViewPoint p = display::ProjectPoint(ds_, c_.StartPoint.X, c_.StartPoint.Y, c_.StartPoint.Z);
        dispatcher.SnapPress(p.X, p.Y, true);
        ds_.Gesture.PressX = p.X;
        ds_.Gesture.PressY = p.Y;
        ds_.Gesture.PressPoint = {c_.StartPoint.X, c_.StartPoint.Y, c_.StartPoint.Z};
    }
}

bool EditTools::Release(const ToolEvent& e) {
    if (!Handles(e.Tool)) return false;
    switch (e.Tool) {
    case tool::Draw:
        if (c_.Active) ConstructAirway(e);
        break;
    case tool::Move:
        if (!c_.Active) break;
        if (c_.FenceDrag) {
            FenceMove(e);
        } else if (c_.PressHit) {
            MoveAirwayEnd(e);
        } else {
            host_.RedrawWindow();
        }
        break;
    case tool::Reverse: ReverseTool(e); break;
    case tool::Fan: FanTool(e); break;
    case tool::Names: NameTool(e); break;
    case tool::Edit: EditTool(e); break;
    case tool::Insert: InsertNode(e); break;
    default: break;
    }
    c_ = Construction{};
    return true;
}

void EditTools::ConstructAirway(const ToolEvent& e) {
    // A plain click makes nothing.
    if (!c_.StartEntered && e.CurX == c_.PressCurX && e.CurY == c_.PressCurY && !LevelShownChanged()) return;
    const bool otherWindow = e.Window != c_.PressWindow;

    // The end: a node, an airway to split, or a free point.
    display::WorldPoint end;
    bool endNamed = false;
    std::int32_t splitAtEnd = 0;
    float endFraction = 0;
    if (std::optional<display::NodePick> node = display::FindNode(m_, ds_, e.CurX, e.CurY)) {
        end = node->Point;
        endNamed = true;
        c_.EndNodeName = node->Name;
    } else {
        const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
        if (pick.Airway > 0) {
            end = pick.Point;
            splitAtEnd = pick.Airway;
            endFraction = ds_.PickFraction;
        }
    }
    if (!endNamed && splitAtEnd == 0) {
        const display::ViewState& v = ds_.View;
        if (v.Is3D != 0) {
            const std::int32_t level = otherWindow ? v.CurRL : c_.PressLevel;
            if (display::ViewKind(v) == 2 || (e.Shift & 1) != 0) {
                double x = c_.StartPoint.X, y = c_.StartPoint.Y, z = c_.StartPoint.Z;
                display::SectionMove(ds_, e.PressX, e.PressY, e.CurX, e.CurY, x, y, z);
                end = {files::ToInt32(x), files::ToInt32(y), files::ToInt32(z)};
            } else {
                end = display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, level);
            }
        } else {
            // Level with the start, unless the user went to another level during the drag.
            end = display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, v.CurRL);
            end.Z = LevelShownChanged() ? v.CurRL : c_.StartZ;
        }
    }
    if (e.Button == button::Right) {
        CoordsRequest request;
        request.X = end.X;
        request.Y = end.Y;
        request.Z = end.Z;
        const std::optional<CoordsResult> entered = Coords(request);
        if (!entered) {
            host_.RedrawWindow();
            return;
        }
        const display::WorldPoint typed{entered->X, entered->Y, entered->Z};
        if (!SamePoint(typed, end)) {
            endNamed = false;
            c_.EndNodeName.clear();
        }
        end = typed;
        c_.EndEntered = true;
        splitAtEnd = 0;
    }
    c_.EndZ = end.Z;
    if (SamePoint(end, c_.StartPoint)) return;

    // Room for the new airway and the halves of the split ones.
    if (AirwayCapacityReached(m_, ui_)) return;
    const int splits = (c_.SplitAtStart > 0 ? 1 : 0) + (splitAtEnd > 0 ? 1 : 0);
    if (splits > 0 && m_.AirwayCount + 1 + splits > MaxAirways) {
        ui_.Message("Network size has exceeded maximum airways - increase airways in default settings", ProgramName,
                    ui::Icon::Exclamation);
        host_.RedrawWindow();
        return;
    }

    // Layers: the airway it grows out of (when layers are inherited) or the draw layers; an
    // airway split at the start gives its own.
    std::int16_t primary = m_.DrawPrimaryLayer, secondary = m_.DrawSecondaryLayer;
    if (c_.StartAirway > 0 && m_.Set.LayerInherit) {
        primary = Row(c_.StartAirway).PrimaryLayer;
        secondary = Row(c_.StartAirway).SecondLayer;
    }
    if (c_.SplitAtStart > 0) {
        primary = Row(c_.SplitAtStart).PrimaryLayer;
        secondary = Row(c_.SplitAtStart).SecondLayer;
    }
    auto layerOff = [](const std::vector<LayerRecord>& layers, std::int16_t k) {
        return k > 0 && static_cast<std::size_t>(k) < layers.size() && layers[static_cast<std::size_t>(k)].LayerOn == 0;
    };
    if (layerOff(m_.PrimaryLayers, primary))
        ui_.Message("Primary layer is set to invisible - drawn airway may be invisible", ProgramName,
                    ui::Icon::Exclamation);
    if (layerOff(m_.SecondaryLayers, secondary))
        ui_.Message("Secondary layer is set to invisible - drawn airway may be invisible", ProgramName,
                    ui::Icon::Exclamation);

    // A level airway at or above the surface is refused before anything changes.
    if (c_.StartPoint.Z == end.Z && end.Z >= SurfaceLevel(m_)) {
        std::string text = "Cannot construct an airway within the surface RL.";
        if (m_.Levels.size() > 2 && TrimText(m_.Levels[2].RLName).empty() && m_.Levels[2].RLMax == 0)
            text += "\nYou will need to construct an RL database first!";
        ui_.Message(text, ProgramName, ui::Icon::Exclamation);
        host_.RedrawWindow();
        return;
    }

    const std::int32_t row = NewAirwayRow(m_);
    if (row == 0) return;
    {
        Airway& a = Row(row);
        a.X1 = c_.StartPoint.X;
        a.Y1 = c_.StartPoint.Y;
        a.Z1 = c_.StartPoint.Z;
        a.EntryNode = c_.StartNamed ? c_.StartNodeName : std::string();
    }
    std::int32_t startHalf = 0;
    if (c_.SplitAtStart > 0)
        startHalf = SplitAirway(c_.StartPoint.X, c_.StartPoint.Y, c_.StartPoint.Z, c_.SplitAtStart);
    if (splitAtEnd > 0) {
        // When both ends lie on one airway, the end lies on the half beyond the start or before it.
        std::int32_t target = splitAtEnd;
        if (target == c_.SplitAtStart && startHalf > 0 && endFraction > c_.StartFraction) target = startHalf;
        SplitAirway(end.X, end.Y, end.Z, target);
    }

    Airway& a = Row(row);
    a.X2 = end.X;
    a.Y2 = end.Y;
    a.Z2 = end.Z;
    a.ExitNode = endNamed ? c_.EndNodeName : std::string();
    a.Length = WholeLength(c_.StartPoint, end);

    const Settings& set = m_.Set;
    if (c_.StartAirway > 0 && !set.NoPropertyInherit) {
        const Airway& from = Row(c_.StartAirway);
        a.Height = from.Height;
        a.Width = from.Width;
        a.WallType = from.WallType;
        a.WallFactor = from.WallFactor;
        a.ShockType = from.ShockType;
        a.ShockFactor = from.ShockFactor;
        a.BranchCode = from.BranchCode & kInheritedBits;
    } else {
        if (set.UseArea != 0) {
            a.Width = set.DefaultArea;
            a.Height = set.DefaultPerimeter;
            a.BranchCode = bc::AreaEntry;
            a.WallType = set.DriveWallType;
        } else if (2.0 * std::fabs(static_cast<double>(end.Z) - c_.StartPoint.Z) > a.Length) {
            a.Height = 0;
            a.Width = set.RaiseDiameter;
            a.WallType = set.RaiseWallType;
            a.BranchCode = bc::Circular;
        } else {
            a.Height = set.DriveHeight;
            a.Width = set.DriveWidth;
            a.WallType = set.DriveWallType;
            a.BranchCode = bc::Rectangular;
        }
        a.ShockType = static_cast<std::int16_t>(set.DefaultShock);
        a.ShockFactor = PresetValue(m_.Preset.ShockPreset, a.ShockType);
        a.WallFactor = PresetValue(m_.Preset.WallPreset, a.WallType);
    }
    a.PrimaryLayer = primary;
    a.SecondLayer = secondary;

    // The keys of its ends, as the next refresh would give them: the display list shows keyed rows.
    a.EntryKey = EndKey(m_, a.X1, a.Y1, a.Z1, false);
    a.ExitKey = EndKey(m_, a.X2, a.Y2, a.Z2, false);
    RecalcAirway(m_, row);
    if (m_.Set.LastAirwayNo < INT32_MAX) ++m_.Set.LastAirwayNo;
    a.AirwayNo = m_.Set.LastAirwayNo;
    a.BranchName.clear();
    Log(row, files::undo::After);
    CloseStep();
    m_.NetworkSaved = No0;

    if (splits > 0) BuildNodeKeys(m_, ui_);
    Rebuild(false);
    if (splits == 0 && !c_.EndEntered && !otherWindow) {
        host_.QuickUpdateAllWindows();
    } else {
        host_.RedrawAllWindows();
    }
}

std::int32_t EditTools::SplitAirway(std::int32_t x, std::int32_t y, std::int32_t z, std::int32_t row) {
    if (row <= 0 || row > m_.AirwayCount) return 0;
    if (m_.AirwayCount + 1 > MaxAirways) {
        ui_.Message("Network size has exceeded maximum airways - increase airways in default settings", ProgramName,
                    ui::Icon::Exclamation);
        host_.RedrawWindow();
        return 0;
    }
    Log(row, files::undo::Before);
    const std::int32_t n = NewAirwayRow(m_);
    if (n == 0) return 0;
    Airway& a = Row(row);
    Airway& b = Row(n);
    b.X1 = x;
    b.Y1 = y;
    b.Z1 = z;
    b.X2 = a.X2;
    b.Y2 = a.Y2;
    b.Z2 = a.Z2;
    a.X2 = x;
    a.Y2 = y;
    a.Z2 = z;
    b.Height = a.Height;
    b.Width = a.Width;
    b.Quantity = a.Quantity;
    b.WallType = a.WallType;
    b.BranchCode = a.BranchCode & ~bc::EntryAtSurface;
    a.BranchCode &= ~bc::ExitAtSurface;
    b.ShockType = a.ShockType;
    b.ShockFactor = a.ShockFactor;
    b.WallFactor = a.WallFactor;
    b.PrimaryLayer = a.PrimaryLayer;
    b.SecondLayer = a.SecondLayer;
    b.BranchName = a.BranchName;
    b.ExitNode = a.ExitNode;
    b.ExitKey = a.ExitKey;
    a.ExitNode.clear();
    a.ExitKey = b.EntryKey = EndKey(m_, x, y, z, false);
    b.EntryNode.clear();
    RecalcAirway(m_, row);
    RecalcAirway(m_, n);
    if (m_.Set.LastAirwayNo < INT32_MAX) ++m_.Set.LastAirwayNo;
    b.AirwayNo = m_.Set.LastAirwayNo;
    Log(row, files::undo::After);
    Log(n, files::undo::After);
    return n;
}

} // namespace karvane::edit
