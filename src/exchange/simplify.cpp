// The simplification filter. One pass over the rows with the neighbour lists built once: a
// merged row takes over the downstream range of the row it swallowed, so that a chain grows
// from its first row without any list being rebuilt.
#include "exchange/simplify.h"

#include <cmath>
#include <span>
#include <vector>

#include "engineering/resistance.h"
#include "files/duplicates.h"
#include "files/number_text.h"
#include "model/network_rows.h"
#include "model/node_keys.h"
#include "model/number_format.h"
#include "simulate/run.h"

namespace karvane::exchange {

namespace {

struct Direction {
    double Length = 0;
    double X = 0, Y = 0, Z = 0; // unit vector; all 0 for a zero length
};

Direction DirectionOf(const Airway& a) {
    const double dx = static_cast<double>(a.X2) - a.X1, dy = static_cast<double>(a.Y2) - a.Y1,
                 dz = static_cast<double>(a.Z2) - a.Z1;
    Direction d;
    d.Length = std::sqrt(dx * dx + dy * dy + dz * dz);
    if (d.Length != 0) d.X = dx / d.Length, d.Y = dy / d.Length, d.Z = dz / d.Length;
    return d;
}

bool Refused(const Airway& a, const Airway& b, const Direction& da, const Direction& db, double maxLength,
             double maxAngle, const SimplifyFields& f) {
    const double angle = MergeAngle(da.X * db.X + da.Y * db.Y + da.Z * db.Z);
    if (angle > maxAngle || da.Length > maxLength) return true;
    if (a.FanNumber != 0 || b.FanNumber != 0) return true;
    for (Fixed4 key : {a.EntryKey, a.ExitKey, b.EntryKey, b.ExitKey})
        if (key == SurfaceKey) return true;
    if (f.CheckR && b.ResType != 0) return true;
    if (a.Has(bc::FixedFlow)) return true;
    if (f.CheckK && a.WallType != b.WallType) return true;
    if (f.CheckS && (a.Height != b.Height || a.Width != b.Width)) return true;
    return false;
}

} // namespace

SimplifyFields FillSimplify() {
    SimplifyFields f;
    SliderMoved(f);
    return f;
}

void SliderMoved(SimplifyFields& f) {
    f.TxtL = std::to_string(f.HSL);
    f.TxtA = std::to_string(f.HSA);
}

double MergeAngle(double c) {
    if (std::fabs(c) >= 1) return 0;
    const double quarter = std::atan(1.0);
    return (std::atan(-c / std::sqrt(1 - c * c)) + 2 * quarter) * 180 / (4 * quarter);
}

std::int32_t CmdSimp(Model& model, ui::UserInterface& ui, files::UndoLog& undo, const SimplifyFields& f) {
    ui.SetBusy(true);
    // With fewer than two airways there is nothing to sort and nothing to merge; the sort's own
    // "No Data to sort" box would only puzzle here.
    if (CheckedAirwayCount(model) >= 2) files::SortAirways(model, ui);
    BuildNodeKeys(model, ui);
    simulate::BuildNeighbourLists(model);

    const double maxLength = files::ToInt32(ParseLeadingNumber(f.TxtL));
    const double maxAngle = files::ToSingle(ParseLeadingNumber(f.TxtA));
    const std::int16_t step = undo.CurrentStep;
    const std::int32_t n = CheckedAirwayCount(model);
    auto row = [&model](std::int32_t r) -> Airway& { return model.Airways[static_cast<std::size_t>(r)]; };

    // Each row's downstream range; a merged row takes over that of the row it swallowed.
    std::vector<std::span<const std::int16_t>> downstream(static_cast<std::size_t>(n) + 1);
    for (std::int32_t r = 1; r <= n; ++r) downstream[static_cast<std::size_t>(r)] = simulate::Downstream(model, r);

    std::int32_t count = 0;
    for (std::int32_t i = 1; i <= n; ++i) {
        Airway& a = row(i);
        if (a.BranchCode == 0) continue; // swallowed already
        if (f.CheckR && a.ResType != 0) continue;
        if (f.CheckSel && !a.Has(bc::Selected)) continue;
        for (;;) {
            const std::span<const std::int16_t> next = downstream[static_cast<std::size_t>(i)];
            if (next.size() != 1) break;
            const std::int32_t j = next[0];
            if (simulate::Upstream(model, j).size() != 1) break;
            Airway& b = row(j);
            if (row(i).Length == 0 || b.Length == 0) break;
            if (Refused(row(i), b, DirectionOf(row(i)), DirectionOf(b), maxLength, maxAngle, f)) break;

            ++count;
            Airway& grown = row(i);
            if (grown.EntryKey != ChangedMark) {
                undo.LogAirway(model, ui, i, files::undo::Before, step);
                grown.EntryKey = ChangedMark;
            }
            grown.ExitKey = b.ExitKey;
            grown.X2 = b.X2, grown.Y2 = b.Y2, grown.Z2 = b.Z2;
            downstream[static_cast<std::size_t>(i)] = downstream[static_cast<std::size_t>(j)];
            if (f.ChkCombine) {
                grown.Length = files::ToSingle(static_cast<double>(grown.Length) + b.Length);
                grown.ShockFactor = files::ToSingle(static_cast<double>(grown.ShockFactor) + b.ShockFactor);
                if (grown.ShockFactor > 0) grown.ShockType = CustomPreset;
                grown.BranchCode |= bc::FixedLength;
            }
            if (b.EntryKey != ChangedMark) undo.LogAirway(model, ui, j, files::undo::Before, step);
            // A loop of two airways swallows itself: j is i, and the row goes.
            ClearAirwayRow(model, j);
        }
    }

    if (f.ChkZero) {
        for (std::int32_t r = 1; r <= n; ++r) {
            Airway& a = row(r);
            if (a.BranchCode == 0 || a.Quantity != 0) continue;
            if (f.CheckSel && !a.Has(bc::Selected)) continue;
            if (a.EntryKey != ChangedMark) undo.LogAirway(model, ui, r, files::undo::Before, step);
            ClearAirwayRow(model, r);
            ++count;
        }
    }

    // The changed rows as they are now, with their real From key and a resistance to match
    // their new length.
    for (std::int32_t r = 1; r <= n; ++r) {
        Airway& a = row(r);
        if (a.EntryKey != ChangedMark) continue;
        a.EntryKey = EndKey(model, a.X1, a.Y1, a.Z1, a.Has(bc::EntryAtSurface));
        RecalcAirway(model, r);
        undo.LogAirway(model, ui, r, files::undo::After, step);
    }

    if (count > 0) {
        if (undo.CurrentStep < INT16_MAX) ++undo.CurrentStep;
        model.NetworkSaved = No0;
        model.SimValid = Validity::NotValid;
    }
    CompactAirways(model);
    model.Run.NeighboursValid = false;
    ui.SetBusy(false);
    ui.Message("The network size was reduced by " + std::to_string(count) + " airways", ProgramName, ui::Icon::None);
    return count;
}

} // namespace karvane::exchange
