// The checking stage of an airflow run: node numbers and the connection checks over the rows
// sorted by key. Lookups go by binary search over the sorted entry keys and by a sorted list
// of end points, so a 30,000-airway mine is checked in n log n. Marks and lists live in the
// scratch columns of the run state: the stage allocates nothing.
#include "simulate/validation.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "engineering/resistance.h"
#include "files/duplicates.h"

namespace karvane::simulate {

namespace {

// The first row of 1..n whose EntryKey is not above key (EntryKey descends down the rows),
// or n + 1.
std::int32_t FirstEntryAtOrBelow(const Model& model, std::int32_t n, Fixed4 key) {
    std::int32_t lo = 1, hi = n + 1;
    while (lo < hi) {
        const std::int32_t mid = lo + (hi - lo) / 2;
        if (model.Airways[mid].EntryKey > key) {
            lo = mid + 1;
        } else {
            hi = mid;
        }
    }
    return lo;
}

// Every airway end by its coordinates, to find the other airways that touch a point: the rows
// ordered by their From points and, apart, by their To points (two scratch columns).
class EndPoints {
public:
    using Point = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

    EndPoints(Model& model, std::int32_t n)
        : rows_(model.Airways),
          n_(n),
          byFrom_(model.Run.RowsByFrom()),
          byTo_(model.Run.RowsByTo()) {
        for (std::int32_t row = 1; row <= n; ++row) byFrom_[row - 1] = byTo_[row - 1] = row;
        std::sort(byFrom_, byFrom_ + n, [this](std::int32_t a, std::int32_t b) { return From(a) < From(b); });
        std::sort(byTo_, byTo_ + n, [this](std::int32_t a, std::int32_t b) { return To(a) < To(b); });
    }

    // Whether an end of any row but this one stands at the point.
    bool OtherRowAt(std::int32_t x, std::int32_t y, std::int32_t z, std::int32_t row) const {
        const Point p{x, y, z};
        return OtherIn(byFrom_, p, row, &EndPoints::From) || OtherIn(byTo_, p, row, &EndPoints::To);
    }

private:
    Point From(std::int32_t r) const { return {rows_[r].X1, rows_[r].Y1, rows_[r].Z1}; }
    Point To(std::int32_t r) const { return {rows_[r].X2, rows_[r].Y2, rows_[r].Z2}; }

    // Whether a row other than `row` has this end at the point. Each row has one end in a
    // list, so more than one row there means another one.
    bool OtherIn(const std::int32_t* list, const Point& p, std::int32_t row,
                 Point (EndPoints::*end)(std::int32_t) const) const {
        const std::int32_t* first =
            std::lower_bound(list, list + n_, p, [&](std::int32_t r, const Point& q) { return (this->*end)(r) < q; });
        const std::int32_t* last =
            std::upper_bound(first, list + n_, p, [&](const Point& q, std::int32_t r) { return q < (this->*end)(r); });
        return last - first > 1 || (last - first == 1 && *first != row);
    }

    const std::vector<Airway>& rows_;
    std::int32_t n_;
    std::int32_t* byFrom_;
    std::int32_t* byTo_;
};

void Fault(Model& model, std::int32_t row, const char* line, const char* comment) {
    ReportAirwayFault(model, row, line, comment);
    model.SimFail = RunResult::Failed;
}

} // namespace

void CheckConnections(Model& model) {
    const std::int32_t n = CheckedAirwayCount(model);
    auto& rows = model.Airways;
    RunState& run = model.Run;

    for (std::int32_t row = 1; row <= n; ++row) {
        rows[row].Comment.clear();
        rows[row].BranchCode &= ~bc::ErrorMark;
    }
    if (n == 0) {
        run.NumNodes = 0;
        return;
    }

    // Node numbers: the rows are in EntryKey order, so each new key is the next node.
    run.EntryNodeNo[1] = 1;
    for (std::int32_t row = 2; row <= n; ++row) {
        const bool newNode = rows[row].EntryKey != rows[row - 1].EntryKey;
        run.EntryNodeNo[row] = static_cast<std::int16_t>(run.EntryNodeNo[row - 1] + (newNode ? 1 : 0));
    }
    run.NumNodes = run.EntryNodeNo[n];

    // Exits: every airway must lead to a node that some airway leaves. A node reached this
    // way has an inflow; any row found gives the same node number.
    std::int32_t* inflow = run.NodeInflow();
    std::fill_n(inflow, run.NumNodes + 1, 0);
    for (std::int32_t row = 1; row <= n; ++row) {
        const Fixed4 key = rows[row].ExitKey;
        const std::int32_t m = FirstEntryAtOrBelow(model, n, key);
        if (m <= n && rows[m].EntryKey == key) {
            run.ExitNodeNo[row] = run.EntryNodeNo[m];
            inflow[run.EntryNodeNo[m]] = 1;
        } else {
            run.ExitNodeNo[row] = 0;
            Fault(model, row, "No exit from branch", "No Exit");
        }
    }

    // Entries: an airway must come from a node that some airway reaches.
    for (std::int32_t row = 1; row <= n; ++row) {
        if (!inflow[run.EntryNodeNo[row]]) Fault(model, row, "No entry into branch", "No Entry");
    }

    // A forced surface end must be free: joined to another airway it would lift a junction to
    // the surface node.
    bool anyForced = false;
    for (std::int32_t row = 1; row <= n && !anyForced; ++row) {
        anyForced = rows[row].Has(bc::EntryAtSurface) || rows[row].Has(bc::ExitAtSurface);
    }
    if (anyForced) {
        const EndPoints ends(model, n);
        for (std::int32_t row = 1; row <= n; ++row) {
            const Airway& a = rows[row];
            if (a.Has(bc::EntryAtSurface) && ends.OtherRowAt(a.X1, a.Y1, a.Z1, row)) {
                Fault(model, row, "Airway into surface entry", "Bad Entry");
            }
        }
        for (std::int32_t row = 1; row <= n; ++row) {
            const Airway& a = rows[row];
            if (a.Has(bc::ExitAtSurface) && ends.OtherRowAt(a.X2, a.Y2, a.Z2, row)) {
                Fault(model, row, "Airway into surface exit", "Bad Exit");
            }
        }
    }

    // Meshing starts from clean work columns; sentinel flows never seed the solver.
    const std::size_t nodeSlots = std::min(run.NodeParent.size(), static_cast<std::size_t>(n) + 2);
    std::fill_n(run.NodeParent.begin(), nodeSlots, std::int16_t{0});
    std::fill_n(run.NodeComp.begin(), std::min(run.NodeComp.size(), nodeSlots), std::int16_t{0});
    for (std::int32_t row = 1; row <= n; ++row) {
        run.MeshWeight()[row] = 0;
        run.SortOrder[row] = 0;
        Airway& a = rows[row];
        if (std::fabs(a.Quantity) > NoFlowQuantity) a.Quantity = 0;
        if (row > 1 && a.EntryKey == rows[row - 1].EntryKey && a.ExitKey == rows[row - 1].ExitKey) {
            Fault(model, row, "Duplicate branch", "Error-Duplicate");
        }
    }
}

bool CheckNetwork(Model& model, ui::UserInterface& ui, const std::function<void(int percent)>& show) {
    BuildNodeKeys(model, ui);
    if (show) show(10);
    files::SortAirways(model, ui);
    if (show) show(20);
    CheckConnections(model);
    if (show) show(30);
    return model.SimFail != RunResult::Failed;
}

std::string ErrorListLine(const NetworkError& error) { return std::to_string(error.AirwayNo) + "\t" + error.Text; }

} // namespace karvane::simulate
