// The Move tool: an airway end or a node dragged to a new point (joined to a node, splitting
// an airway, or free), a floating text dragged, a fence of airways moved or copied by a
// relative move, and the selected airways moved or copied.
#include <cstdlib>
#include <vector>

#include "display/display_list.h"
#include "display/picking.h"
#include "edit/edit_tools.h"
#include "engineering/resistance.h"
#include "model/network_rows.h"
#include "model/node_keys.h"

namespace karvane::edit {

namespace {

bool EndAt(const Airway& a, const display::WorldPoint& p, bool from) {
    return from ? a.X1 == p.X && a.Y1 == p.Y && a.Z1 == p.Z : a.X2 == p.X && a.Y2 == p.Y && a.Z2 == p.Z;
}

bool HasEndAt(const Airway& a, const display::WorldPoint& p) { return EndAt(a, p, true) || EndAt(a, p, false); }

void ShiftEnd(Airway& a, bool from, std::int32_t dx, std::int32_t dy, std::int32_t dz) {
    if (from) {
        a.X1 += dx;
        a.Y1 += dy;
        a.Z1 += dz;
    } else {
        a.X2 += dx;
        a.Y2 += dy;
        a.Z2 += dz;
    }
}

} // namespace

void EditTools::FinishMove() {
    CloseStep();
    m_.NetworkSaved = No0;
    BuildNodeKeys(m_, ui_);
    RecalcAllAirways(m_);
    Rebuild(true);
    host_.RedrawAllWindows();
}

void EditTools::MoveAirwayEnd(const ToolEvent& e) {
    if (c_.DragText) {
        if (c_.TextSlot > 0 && static_cast<std::size_t>(c_.TextSlot) < m_.FloatingTexts.size()) {
            FloatingText& text = m_.FloatingTexts[static_cast<std::size_t>(c_.TextSlot)];
            const display::WorldPoint to = display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, text.TextZ);
            text.TextX = to.X;
            text.TextY = to.Y;
            text.TextZ = to.Z;
            m_.NetworkSaved = No0;
        }
        Rebuild(true);
        host_.RedrawAllWindows();
        return;
    }
    // A click without a drag moves nothing.
    if (!c_.StartEntered && e.CurX == c_.PressCurX && e.CurY == c_.PressCurY && !LevelShownChanged()) {
        host_.RedrawWindow();
        return;
    }
    const bool selected =
        c_.PressAirway > 0 && c_.PressAirway <= m_.AirwayCount && Row(c_.PressAirway).Has(bc::Selected);
    const display::WorldPoint start = c_.StartPoint;
    auto moveSelection = [&](const display::WorldPoint& to, bool copy) {
        MoveSelected(to.X - start.X, to.Y - start.Y, to.Z - start.Z, copy);
    };

    display::WorldPoint to;
    bool free = false;
    if (e.Button == button::Right) {
        const display::WorldPoint w = display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, ds_.View.CurRL);
        CoordsRequest request;
        request.X = w.X;
        request.Y = w.Y;
        request.Z = w.Z;
        request.OfferCopy = selected;
        const std::optional<CoordsResult> entered = Coords(request);
        if (!entered) {
            host_.RedrawWindow();
            return;
        }
        to = {entered->X, entered->Y, entered->Z};
        if (selected) {
            moveSelection(to, entered->Copy);
            return;
        }
    } else if (std::optional<display::NodePick> node = display::FindNode(m_, ds_, e.CurX, e.CurY)) {
        if (selected) {
            moveSelection(node->Point, false);
            return;
        }
        // A node of an airway that has the start at its other end would collapse that airway.
        if (HasEndAt(Row(std::abs(node->Airway)), start)) {
            free = true;
        } else if (ui_.Ask("Are you sure you want to join to this node?", "Join Nodes", ui::Buttons::YesNo) ==
                   ui::Answer::Yes) {
            to = node->Point;
        } else {
            free = true;
        }
    } else {
        const display::AirwayPick pick = display::FindAirway(m_, ds_, e.CurX, e.CurY);
        if (selected) {
            to = pick.Airway > 0 ? pick.Point : display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, ds_.View.CurRL);
            moveSelection(to, false);
            return;
        }
        if (pick.Airway > 0 && !HasEndAt(Row(pick.Airway), start)) {
            if (SplitAirway(pick.Point.X, pick.Point.Y, pick.Point.Z, pick.Airway) == 0) return;
            to = pick.Point;
        } else {
            free = true;
        }
    }
    if (free) to = display::UnprojectPoint(m_, ds_, e.CurX, e.CurY, ds_.View.CurRL);
    MoveEnds(start, to, c_.MoveEnd);
    FinishMove();
}

void EditTools::MoveEnds(const display::WorldPoint& from, const display::WorldPoint& to, std::int32_t moveEnd) {
    const std::int32_t dx = to.X - from.X, dy = to.Y - from.Y, dz = to.Z - from.Z;
    if (moveEnd != 0) {
        const std::int32_t row = std::abs(moveEnd);
        if (row > m_.AirwayCount) return;
        Log(row, files::undo::Before);
        ShiftEnd(Row(row), moveEnd < 0, dx, dy, dz);
        RecalcAirway(m_, row);
        Log(row, files::undo::After);
        return;
    }
    for (std::int32_t row = 1; row <= m_.AirwayCount; ++row) {
        Airway& a = Row(row);
        const bool first = EndAt(a, from, true), second = EndAt(a, from, false);
        if (!first && !second) continue;
        Log(row, files::undo::Before);
        if (first) ShiftEnd(a, true, dx, dy, dz);
        if (second) ShiftEnd(a, false, dx, dy, dz);
        RecalcAirway(m_, row);
        Log(row, files::undo::After);
    }
}

void EditTools::FenceMove(const ToolEvent& e) {
    const display::FenceRect fence = display::MakeFence(m_, e.PressX, e.PressY, e.CurX, e.CurY);
    if (!display::FenceHit(ds_, fence)) {
        host_.RedrawWindow();
        return;
    }
    CoordsRequest request;
    request.Absolute = false;
    request.OfferCopy = true;
    const std::optional<CoordsResult> entered = Coords(request);
    if (!entered) {
        host_.RedrawWindow();
        return;
    }
    const std::int32_t dx = entered->dX, dy = entered->dY, dz = entered->dZ;
    const bool copy = entered->Copy;

    // Which ends of which airways lie strictly inside the fence, in the window.
    struct Hit {
        std::int32_t Row;
        bool First, Second;
    };
    std::vector<Hit> hits;
    auto inside = [&fence](float x, float y) {
        return x > fence.Left && x < fence.Right && y > fence.Top && y < fence.Bottom;
    };
    for (const display::DrawnAirway& d : ds_.Drawn) {
        if (d.Airway == 0) break;
        if (d.Airway > m_.AirwayCount) continue;
        const bool first = inside(d.X1, d.Y1), second = inside(d.X2, d.Y2);
        if (first || second) hits.push_back({d.Airway, first, second});
    }
    if (copy && m_.AirwayCount + static_cast<std::int32_t>(hits.size()) >= MaxAirways) {
        TellNetworkFull();
        host_.RedrawWindow();
        return;
    }
    for (const Hit& h : hits) {
        std::int32_t row = h.Row;
        if (copy) {
            const std::int32_t n = NewAirwayRow(m_);
            if (n == 0) break;
            Row(n) = Row(h.Row);
            Airway& a = Row(n);
            if (m_.Set.LastAirwayNo < INT32_MAX) ++m_.Set.LastAirwayNo;
            a.AirwayNo = m_.Set.LastAirwayNo;
            a.BranchName.clear();
            a.BranchCode &= ~bc::Selected;
            a.UndoNo = 0;
            row = n;
        } else {
            Log(row, files::undo::Before);
        }
        Airway& a = Row(row);
        if (h.First) ShiftEnd(a, true, dx, dy, dz);
        if (h.Second) ShiftEnd(a, false, dx, dy, dz);
        RecalcAirway(m_, row);
        Log(row, files::undo::After);
    }
    FinishMove();
}

void EditTools::MoveSelected(std::int32_t dx, std::int32_t dy, std::int32_t dz, bool copy) {
    if (dx == 0 && dy == 0 && dz == 0) return;
    const std::int32_t count = m_.AirwayCount;
    std::int32_t selected = 0;
    for (std::int32_t row = 1; row <= count; ++row) selected += Row(row).Has(bc::Selected) ? 1 : 0;
    if (copy && count + selected >= MaxAirways) {
        TellNetworkFull();
        host_.RedrawWindow();
        return;
    }
    for (std::int32_t row = 1; row <= count; ++row) {
        if (!Row(row).Has(bc::Selected)) continue;
        std::int32_t target = row;
        if (copy) {
            const std::int32_t n = NewAirwayRow(m_);
            if (n == 0) break;
            Row(n) = Row(row);
            Airway& a = Row(n);
            if (m_.Set.LastAirwayNo < INT32_MAX) ++m_.Set.LastAirwayNo;
            a.AirwayNo = m_.Set.LastAirwayNo;
            a.BranchCode &= ~bc::Selected;
            a.UndoNo = 0;
            target = n;
        } else {
            Log(row, files::undo::Before);
        }
        Airway& a = Row(target);
        ShiftEnd(a, true, dx, dy, dz);
        ShiftEnd(a, false, dx, dy, dz);
        RecalcAirway(m_, target);
        Log(target, files::undo::After);
    }
    CloseStep();
    m_.NetworkSaved = No0;
    BuildNodeKeys(m_, ui_);
    Rebuild(false);
    host_.RedrawAllWindows();
}

} // namespace karvane::edit
