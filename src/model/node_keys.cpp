// Node keys from coordinates and the sort of the airway table by keys. The sort works on an
// index of keys and then moves each row once, so a network of 30,000 airways sorts in n log n
// with no copy of the table. Marks and orders live in the scratch columns of the run state,
// allocated once, so that a run allocates nothing.
#include "model/node_keys.h"

#include <algorithm>

namespace karvane {

namespace {

// One term of the packing: the shifted value of a negative coordinate, its absolute value,
// modulo the term's period.
std::int64_t Wrapped(std::int32_t value, std::int64_t shift, std::int64_t period) {
    std::int64_t v = value;
    if (v < 0) v += shift;
    if (v < 0) v = -v;
    return v % period;
}

} // namespace

std::int32_t CheckedAirwayCount(const Model& model) {
    const auto rows = static_cast<std::int32_t>(model.Airways.size()) - 1;
    return std::clamp<std::int32_t>(model.AirwayCount, 0, std::min(rows, MaxAirways));
}

std::int32_t* ClearRowMarks(Model& model, std::int32_t n) {
    std::int32_t* marks = model.Run.RowMarks();
    std::fill_n(marks, n + 1, 0);
    return marks;
}

void RemoveMarkedRows(Model& model, const std::int32_t* marked) {
    const std::int32_t n = CheckedAirwayCount(model);
    std::int32_t write = 0;
    for (std::int32_t read = 1; read <= n; ++read) {
        if (marked[read]) continue;
        ++write;
        if (write != read) model.Airways[write] = std::move(model.Airways[read]);
    }
    for (std::int32_t row = write + 1; row <= n; ++row) model.Airways[row] = Airway{};
    model.AirwayCount = write;
}

Fixed4 NodeKey(std::int32_t x, std::int32_t y, std::int32_t z) {
    // Level part times 10^10, Y part times 10^4, X part over 100; in units of 0.0001.
    const Fixed4 level = Wrapped(z, 9999, 10000) * 100000000000000LL;
    const Fixed4 north = Wrapped(y, 99999, 1000000) * 100000000LL;
    const Fixed4 east = Wrapped(x, 9999, 1000000) * 100LL;
    return level + north + east;
}

std::int32_t SurfaceLevel(const Model& model) { return model.Levels.size() > 1 ? model.Levels[1].RLMin : 0; }

Fixed4 EndKey(const Model& model, std::int32_t x, std::int32_t y, std::int32_t z, bool forcedToSurface) {
    if (forcedToSurface || z >= SurfaceLevel(model)) return SurfaceKey;
    const Fixed4 key = NodeKey(x, y, z);
    return key == 0 ? OriginKey : key;
}

void ReportAirwayFault(Model& model, std::int32_t row, const char* line, const char* comment) {
    Airway& a = model.Airways[row];
    model.ErrorList.push_back({a.AirwayNo, line});
    a.Comment = FitText(comment, CommentWidth);
    a.BranchCode |= bc::ErrorMark;
}

void BuildNodeKeys(Model& model, ui::UserInterface& ui) {
    const std::int32_t n = CheckedAirwayCount(model);
    const std::int32_t surface = SurfaceLevel(model);
    std::int32_t* blank = ClearRowMarks(model, n);
    bool anyBlank = false;
    bool bothOnSurface = false;

    for (std::int32_t row = 1; row <= n; ++row) {
        Airway& a = model.Airways[row];
        a.EntryKey = NodeKey(a.X1, a.Y1, a.Z1);
        a.ExitKey = NodeKey(a.X2, a.Y2, a.Z2);
        if (a.BranchCode == 0 && a.EntryKey == 0 && a.ExitKey == 0) {
            // A cleared row goes whatever the surface level, never reported as a surface
            // airway when the surface lies at or below the origin.
            blank[row] = 1;
            anyBlank = true;
            continue;
        }
        if (a.Z1 >= surface || a.Has(bc::EntryAtSurface)) a.EntryKey = SurfaceKey;
        if (a.Z2 >= surface || a.Has(bc::ExitAtSurface)) a.ExitKey = SurfaceKey;

        if (a.EntryKey == 0 || a.ExitKey == 0) {
            // A key of 0 marks an empty row. A live airway (one with a shape, so BranchCode
            // is never 0) standing at a point that packs to 0 keeps its place under OriginKey.
            if (a.BranchCode == 0) {
                blank[row] = 1;
                anyBlank = true;
                continue;
            }
            if (a.EntryKey == 0) a.EntryKey = OriginKey;
            if (a.ExitKey == 0) a.ExitKey = OriginKey;
        }

        if (static_cast<double>(a.Resistance) >= static_cast<double>(model.Set.BlockedRes)) a.Quantity = 0;

        if (a.AirwayNo == 0) {
            ++model.Set.LastAirwayNo;
            a.AirwayNo = model.Set.LastAirwayNo;
        }

        // Reported once the row has its number, so that the list line leads to the airway.
        if (a.EntryKey == SurfaceKey && a.ExitKey == SurfaceKey) {
            ReportAirwayFault(model, row, "both ends on surface", "ends on surface");
            model.SimFail = RunResult::Failed;
            bothOnSurface = true;
        }
    }

    if (anyBlank) RemoveMarkedRows(model, blank);

    if (bothOnSurface) {
        ui.Message("Karvane has detected that one or more of your airways has both ends on or above the surface\n\n"
                   "Please check your surface RL values or the airway data as the network will not simulate "
                   "properly with the current settings.",
                   ProgramName, ui::Icon::None);
    }
}

void SortAirwayRows(Model& model) {
    const std::int32_t n = CheckedAirwayCount(model);
    if (n < 2) return;
    auto& rows = model.Airways;
    const auto before = [](const Airway& a, const Airway& b) {
        if (a.EntryKey != b.EntryKey) return a.EntryKey > b.EntryKey;
        return a.ExitKey > b.ExitKey;
    };
    if (std::is_sorted(rows.begin() + 1, rows.begin() + n + 1, before)) return;

    // The rows by descending keys, equal keys in row order (the order of a stable sort, which
    // would want a buffer of its own). Entry keys are copied beside the order, so that most
    // comparisons stay out of the table; exit keys are read only where entries tie.
    RunState& run = model.Run;
    std::int32_t* order = run.KeyOrder();
    Fixed4* entry = run.KeyCopy();
    for (std::int32_t row = 1; row <= n; ++row) {
        order[row - 1] = row;
        entry[row] = rows[row].EntryKey;
    }
    std::sort(order, order + n, [&rows, entry](std::int32_t a, std::int32_t b) {
        if (entry[a] != entry[b]) return entry[a] > entry[b];
        if (rows[a].ExitKey != rows[b].ExitKey) return rows[a].ExitKey > rows[b].ExitKey;
        return a < b;
    });

    // Position p takes the row that stood at order[p - 1]. Follow each cycle of the
    // permutation, so that every row is moved once.
    std::int32_t* placed = ClearRowMarks(model, n);
    for (std::int32_t start = 1; start <= n; ++start) {
        if (placed[start]) continue;
        if (order[start - 1] == start) {
            placed[start] = 1;
            continue;
        }
        Airway held = std::move(rows[start]);
        std::int32_t to = start;
        for (;;) {
            placed[to] = 1;
            const std::int32_t from = order[to - 1];
            if (from == start) {
                rows[to] = std::move(held);
                break;
            }
            rows[to] = std::move(rows[from]);
            to = from;
        }
    }
}

} // namespace karvane
