// Meshing: the weight order, the spanning forest with its tree checks, and the mesh lists.
// The forest keeps its trees in a disjoint-set structure, so that joining two trees costs the
// length of the relinked path and not a scan of every node; the mesh walks find their meeting
// point through marks on the airways instead of searching the mesh written so far.
#include "simulate/meshing.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "model/node_keys.h"
#include "simulate/run_modes.h"

namespace karvane::simulate {

namespace {

bool Blocked(const Model& model, const Airway& a) {
    return static_cast<double>(a.Resistance) >= static_cast<double>(model.Set.BlockedRes);
}

// The order key of a weight: a weight that is not a number sorts as the heaviest.
float OrderKey(float w) { return std::isnan(w) ? INFINITY : w; }

// Trees of the forest as disjoint sets over the nodes. A node outside every tree has link 0;
// the root of a set holds the tree's number (its NodeComp) in Label.
struct Forest {
    std::int32_t* Link;
    std::int32_t* Label;
    std::int32_t* Size;

    std::int32_t Root(std::int32_t n) const {
        std::int32_t r = n;
        while (Link[r] != r) r = Link[r];
        while (Link[n] != r) { // path compression
            const std::int32_t next = Link[n];
            Link[n] = r;
            n = next;
        }
        return r;
    }
    std::int32_t Comp(std::int32_t n) const { return Link[n] == 0 ? 0 : Label[Root(n)]; }
    void Start(std::int32_t n, std::int32_t tree) {
        Link[n] = n;
        Label[n] = tree;
        Size[n] = 1;
    }
    void Add(std::int32_t n, std::int32_t member) {
        const std::int32_t r = Root(member);
        Link[n] = r;
        ++Size[r];
    }
    // Joins the trees of nodes p and q; the joined tree carries the number `tree`.
    void Join(std::int32_t p, std::int32_t q, std::int32_t tree) {
        std::int32_t rp = Root(p), rq = Root(q);
        if (Size[rp] < Size[rq]) std::swap(rp, rq);
        Link[rq] = rp;
        Size[rp] += Size[rq];
        Label[rp] = tree;
    }
};

void TreeChecks(Model& model, std::int32_t a) {
    Airway& w = model.Airways[a];
    const bool fixedFlow = w.Has(bc::FixedFlow);
    if (!fixedFlow && !(model.Run.MeshWeight()[a] >= RestrictionWeight)) return;
    if (fixedFlow) {
        // A fixed flow that no loop can carry, in every mode. Listed and noted, but not marked
        // as an error of the drawing: the airway keeps its own look.
        model.ErrorList.push_back({w.AirwayNo, "FIX restricting flow"});
        w.Comment = FitText("Bad Fix", CommentWidth);
        model.SimFail = RunResult::Failed;
    }
    if ((model.SimMode == RunMode::FindBulkheads || model.SimMode == RunMode::RemoveBulkheads) && w.ResType == 1) {
        ReportAirwayFault(model, a, "BBH not required", "Bad BBH");
        model.SimFail = RunResult::Failed;
        model.RestrictionFlag = true;
    }
    if (model.SimMode == RunMode::FindRestrictiveFans && w.FanNumber != 0) {
        ReportAirwayFault(model, a, "Fan restricted", "Bad Fan");
        model.SimFail = RunResult::Failed;
        model.RestrictionFlag = true;
    }
}

void MeshStoreFull(Model& model, ui::UserInterface& ui) {
    ui.Message("Number of meshes exceed reserved memory setting - please increase the allowable branch numbers "
               "in the defaults settings !",
               "meshes Error", ui::Icon::Exclamation);
    model.SimFail = RunResult::Failed;
}

} // namespace

void PrepareMeshOrder(Model& model) {
    RunState& run = model.Run;
    const std::int32_t n = model.AirwayCount;
    float* weight = run.MeshWeight();
    for (std::int32_t i = 1; i <= n; ++i) {
        Airway& a = model.Airways[i];
        weight[i] = a.Resistance;
        if (Blocked(model, a)) {
            weight[i] = FullWeight;
            a.Quantity = 0.0f;
        }
        if (a.Has(bc::FixedFlow)) weight[i] = FullWeight;
        if (a.FanNumber != 0) weight[i] = FullWeight;
    }
    // Ascending weight, lower row first among equals; SortOrder holds the reverse, so that
    // its last position is the lightest airway.
    std::int32_t* order = run.WeightOrder();
    for (std::int32_t i = 0; i < n; ++i) order[i] = i + 1;
    std::sort(order, order + n, [weight](std::int32_t p, std::int32_t q) {
        const float kp = OrderKey(weight[p]), kq = OrderKey(weight[q]);
        return kp < kq || (kp == kq && p < q);
    });
    for (std::int32_t i = 0; i < n; ++i) run.SortOrder[n - i] = static_cast<std::int16_t>(order[i]);
}

void BuildForest(Model& model) {
    RunState& run = model.Run;
    const std::int32_t n = model.AirwayCount;
    const std::int32_t nodes = run.NumNodes;
    for (std::int32_t k = 0; k <= nodes; ++k) {
        run.NodeComp[k] = 0;
        run.NodeParent[k] = 0;
        run.ForestLink()[k] = 0;
    }
    Forest forest{run.ForestLink(), run.ForestLabel(), run.ForestSize()};
    if (n < 1) return;
    std::int32_t trees = 1;
    forest.Start(run.EntryNodeNo[1], 1);

    auto entryOf = [&run](std::int32_t a) { return static_cast<std::int32_t>(run.EntryNodeNo[a]); };
    auto exitOf = [&run](std::int32_t a) { return static_cast<std::int32_t>(run.ExitNodeNo[a]); };

    for (std::int32_t p = n; p >= 1; --p) {
        if (model.StopFlag == StopRequest::Stop) break;
        const std::int32_t a = run.SortOrder[p];
        const std::int32_t e = entryOf(a), x = exitOf(a);
        const std::int32_t te = forest.Comp(e), tx = forest.Comp(x);
        if (e == x || (te != 0 && te == tx)) {
            // The airway would close a loop: a chord. A fixed or blocked chord marks its exit too.
            run.EntryNodeNo[a] = static_cast<std::int16_t>(-e);
            const Airway& w = model.Airways[a];
            if (w.Has(bc::FixedFlow) || Blocked(model, w)) run.ExitNodeNo[a] = static_cast<std::int16_t>(-x);
            continue;
        }
        if (te == 0 && tx == 0) {
            ++trees;
            forest.Start(x, trees);
            forest.Add(e, x);
            run.NodeParent[e] = static_cast<std::int16_t>(a);
        } else if (te == 0) {
            forest.Add(e, x);
            run.NodeParent[e] = static_cast<std::int16_t>(a);
        } else if (tx == 0) {
            forest.Add(x, e);
            run.NodeParent[x] = static_cast<std::int16_t>(-a);
        } else {
            // Two trees: the higher-numbered one is turned round along the path from the
            // airway's end in it to its old root, and joins the lower one through the airway.
            const std::int32_t low = std::min(te, tx), high = std::max(te, tx);
            std::int32_t c = a;
            std::int32_t node = te == high ? e : x;
            for (;;) {
                const std::int32_t old = std::abs(static_cast<std::int32_t>(run.NodeParent[node]));
                run.NodeParent[node] = static_cast<std::int16_t>(node == exitOf(c) ? -c : c);
                if (old == 0) break;
                // The next node up is the end of the old parent airway that is not yet relinked.
                const std::int32_t up = entryOf(old) == node ? exitOf(old) : entryOf(old);
                c = old;
                node = up;
            }
            forest.Join(e, x, low);
        }
        TreeChecks(model, a);
    }
    for (std::int32_t k = 1; k <= nodes; ++k) run.NodeComp[k] = static_cast<std::int16_t>(forest.Comp(k));
}

bool BuildMeshLists(Model& model, ui::UserInterface& ui) {
    RunState& run = model.Run;
    const std::int32_t n = model.AirwayCount;
    // Marks: the mesh that last wrote an airway, and where.
    std::int32_t* markMesh = run.MarkMesh();
    std::int32_t* markPos = run.MarkPos();
    std::int32_t* path = run.MeshPath();
    std::fill(markMesh, markMesh + n + 1, 0);

    std::int16_t* list = run.MeshList.data();
    std::int32_t pos = 1;
    std::int32_t meshes = 0;

    // One step towards the root from signed airway c: the node reached, then its parent airway.
    auto stepOn = [&run](std::int32_t c) {
        const std::int32_t node = c > 0 ? std::abs(static_cast<std::int32_t>(run.ExitNodeNo[c]))
                                        : std::abs(static_cast<std::int32_t>(run.EntryNodeNo[-c]));
        return static_cast<std::int32_t>(run.NodeParent[node]);
    };

    for (std::int32_t a = 1; a <= n; ++a) {
        if (run.EntryNodeNo[a] > 0) continue;
        ++meshes;
        const std::int32_t start = pos;
        run.MeshStart[meshes] = start;

        // Exit walk: from the chord's exit up to the root of the tree.
        std::int32_t c = a;
        do {
            list[pos] = static_cast<std::int16_t>(c);
            markMesh[std::abs(c)] = meshes;
            markPos[std::abs(c)] = pos;
            ++pos;
            if (pos > MeshListCapacity) {
                MeshStoreFull(model, ui);
                run.NumMeshes = static_cast<std::int16_t>(meshes);
                return false;
            }
            c = stepOn(c);
        } while (c != 0);
        if (run.ExitNodeNo[a] < 0) list[start] = static_cast<std::int16_t>(-list[start]);

        // Entry walk: from the chord's entry up until it meets the exit walk; the common way
        // to the root is dropped.
        c = run.NodeParent[std::abs(static_cast<std::int32_t>(run.EntryNodeNo[a]))];
        std::int32_t k = 0;
        while (c != 0) {
            const std::int32_t r = std::abs(c);
            if (markMesh[r] == meshes && list[markPos[r]] == c) {
                pos = markPos[r];
                break;
            }
            path[++k] = c;
            c = stepOn(c);
        }
        // The entry walk goes in backwards with its signs turned, closing the loop at the entry.
        for (; k >= 1; --k) {
            list[pos++] = static_cast<std::int16_t>(-path[k]);
            if (pos > MeshListCapacity) {
                MeshStoreFull(model, ui);
                run.NumMeshes = static_cast<std::int16_t>(meshes);
                return false;
            }
        }
    }
    run.NumMeshes = static_cast<std::int16_t>(meshes);
    run.MeshStart[meshes + 1] = pos;
    return true;
}

void BuildMeshes(Model& model, ui::UserInterface& ui) {
    BuildForest(model);
    if (model.StopFlag == StopRequest::Stop) return;
    if (model.SimMode >= RunMode::FindBulkheads && model.SimMode <= RunMode::FindDuplicates) {
        // The troubleshooting modes end with the forest: they build no meshes.
        AfterForestChecks(model, ui);
        return;
    }
    BuildMeshLists(model, ui);
}

} // namespace karvane::simulate
