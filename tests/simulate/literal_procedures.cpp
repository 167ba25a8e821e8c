// The slow procedures, step by step.
#include "literal_procedures.h"

#include <algorithm>
#include <cstdlib>

namespace karvane::oracle {

std::vector<std::int16_t> SortOrder(const Model& model) {
    const std::int32_t n = model.AirwayCount;
    std::vector<std::int16_t> order(static_cast<std::size_t>(n) + 2, 0);
    const auto& work = model.Run.Work;
    std::int32_t count = 0;
    for (std::int32_t i = 1; i <= n; ++i) {
        std::int32_t j = count;
        while (j >= 1 && !(work[order[j]] > work[i])) {
            order[j + 1] = order[j];
            --j;
        }
        order[j + 1] = static_cast<std::int16_t>(i);
        ++count;
    }
    return order;
}

ForestResult Forest(const Model& model, const std::vector<std::int16_t>& sortOrder) {
    const RunState& run = model.Run;
    const std::int32_t n = model.AirwayCount;
    const std::int32_t nodes = run.NumNodes;
    ForestResult f;
    f.NodeParent.assign(static_cast<std::size_t>(nodes) + 1, 0);
    f.NodeComp.assign(static_cast<std::size_t>(nodes) + 1, 0);
    f.EntryNodeNo.assign(run.EntryNodeNo.begin(), run.EntryNodeNo.begin() + n + 1);
    f.ExitNodeNo.assign(run.ExitNodeNo.begin(), run.ExitNodeNo.begin() + n + 1);
    auto& comp = f.NodeComp;
    auto& parent = f.NodeParent;
    auto& entry = f.EntryNodeNo;
    auto& exit = f.ExitNodeNo;
    comp[entry[1]] = 1;
    std::int16_t trees = 1;
    for (std::int32_t p = n; p >= 1; --p) {
        const std::int16_t a = sortOrder[p];
        const std::int16_t e = entry[a], x = exit[a];
        const std::int16_t te = comp[e], tx = comp[x];
        if (te == 0 && tx == 0) {
            ++trees;
            comp[e] = comp[x] = trees;
            parent[e] = a;
        } else if (te == 0) {
            comp[e] = tx;
            parent[e] = a;
        } else if (tx == 0) {
            comp[x] = te;
            parent[x] = static_cast<std::int16_t>(-a);
        } else if (te == tx) {
            entry[a] = static_cast<std::int16_t>(-e);
            const Airway& w = model.Airways[a];
            if (w.Has(bc::FixedFlow) || static_cast<double>(w.Resistance) >= model.Set.BlockedRes)
                exit[a] = static_cast<std::int16_t>(-x);
        } else {
            const std::int16_t low = std::min(te, tx), high = std::max(te, tx);
            std::int16_t c = a;
            for (;;) {
                const std::int16_t ce = entry[c], cx = exit[c];
                const std::int16_t node = comp[ce] > comp[cx] ? ce : cx;
                const std::int16_t old = static_cast<std::int16_t>(std::abs(parent[node]));
                parent[node] = node == cx ? static_cast<std::int16_t>(-c) : c;
                comp[node] = low;
                if (old == 0) break;
                c = old;
            }
            for (std::int32_t k = 1; k <= nodes; ++k)
                if (comp[k] == high) comp[k] = low;
        }
    }
    return f;
}

MeshResult Meshes(const ForestResult& forest, std::int32_t airwayCount) {
    MeshResult m;
    m.MeshStart.assign(1, 0);
    m.MeshList.assign(1, 0);
    const auto& entry = forest.EntryNodeNo;
    const auto& exit = forest.ExitNodeNo;
    const auto& parent = forest.NodeParent;
    auto stepOn = [&](std::int32_t c) {
        const std::int32_t node = c > 0 ? std::abs(exit[c]) : std::abs(entry[-c]);
        return static_cast<std::int32_t>(parent[node]);
    };
    for (std::int32_t a = 1; a <= airwayCount; ++a) {
        if (entry[a] > 0) continue;
        const std::int32_t start = static_cast<std::int32_t>(m.MeshList.size());
        m.MeshStart.push_back(start);
        std::int32_t c = a;
        do {
            m.MeshList.push_back(static_cast<std::int16_t>(c));
            c = stepOn(c);
        } while (c != 0);
        if (exit[a] < 0) m.MeshList[start] = static_cast<std::int16_t>(-m.MeshList[start]);
        std::vector<std::int32_t> path(1, 0);
        c = parent[std::abs(entry[a])];
        while (c != 0) {
            path.push_back(c);
            bool met = false;
            for (std::size_t q = start; q < m.MeshList.size(); ++q)
                if (m.MeshList[q] == c) {
                    m.MeshList.resize(q);
                    met = true;
                    break;
                }
            if (met) break;
            c = stepOn(c);
        }
        // path holds MeshPath(1..k); the walk wrote k - 1 of them when it met, all when not.
        std::size_t k = path.size() - 1;
        if (c == 0) k = path.size();
        for (std::size_t j = k - 1; j >= 1; --j) m.MeshList.push_back(static_cast<std::int16_t>(-path[j]));
    }
    m.MeshStart.push_back(static_cast<std::int32_t>(m.MeshList.size()));
    return m;
}

NodePressures Flood(const Model& model, const std::vector<float>& drop) {
    const std::int32_t n = model.AirwayCount;
    NodePressures p;
    p.From.assign(static_cast<std::size_t>(n) + 1, 0.0f);
    p.To.assign(static_cast<std::size_t>(n) + 1, NodeNotReached);
    bool any = false;
    for (std::int32_t i = 1; i <= n; ++i)
        if (model.Airways[i].EntryKey == SurfaceKey) {
            p.To[i] = drop[i];
            any = true;
        }
    if (!any) {
        for (std::int32_t i = 1; i <= n; ++i) p.To[i] = 0.0f;
    }
    bool changed = true;
    while (changed) {
        changed = false;
        for (std::int32_t i = 1; i <= n; ++i) {
            if (p.To[i] == NodeNotReached || model.Airways[i].ExitKey == SurfaceKey) continue;
            for (std::int32_t j = 1; j <= n; ++j) {
                if (model.Airways[j].EntryKey != model.Airways[i].ExitKey || p.To[j] != NodeNotReached) continue;
                p.To[j] = static_cast<float>(static_cast<double>(p.To[i]) + drop[j]);
                p.From[j] = p.To[i];
                changed = true;
            }
        }
    }
    return p;
}

Neighbours NeighbourLists(const Model& model) {
    const std::int32_t n = model.AirwayCount;
    Neighbours nb;
    nb.Up.resize(static_cast<std::size_t>(n) + 1);
    nb.Down.resize(static_cast<std::size_t>(n) + 1);
    for (std::int32_t i = 1; i <= n; ++i)
        for (std::int32_t j = 1; j <= n; ++j)
            if (j != i && model.Airways[j].ExitKey == model.Airways[i].EntryKey)
                nb.Up[i].push_back(static_cast<std::int16_t>(j));
    for (std::int32_t i = 1; i <= n; ++i)
        for (std::int32_t j = 1; j <= n; ++j)
            if (j != i && model.Airways[j].EntryKey == model.Airways[i].ExitKey)
                nb.Down[i].push_back(static_cast<std::int16_t>(j));
    return nb;
}

} // namespace karvane::oracle
