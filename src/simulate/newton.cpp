// Newton's method on the mesh flows. Unknowns are the flows of the open meshes (fixed meshes are
// held); the residual of mesh m is its loop pressure H(m) = sum of s x (R Q|Q| - Pf) over its
// entries, as Hardy Cross works it out, and the Jacobian is J = C G C^T with G the diagonal of
// 2R|Q| - dPf/dQ per airway. The Newton equation J dx = -H is solved exactly, but through the
// node form of the same system: the step dQ = C^T dx is the flow change round the open loops
// that minimises dQ^T G dQ / 2 + h^T dQ (h the airway residuals), which gives node pressures p
// from the weighted node matrix (A G^-1 A^T) p = A G^-1 h and dQ = G^-1 (A^T p - h), A being the
// node-airway incidence without the fixed chords and with the root of each tree of the forest
// held at 0. A chord lies in its own mesh alone, so the mesh step is the chord's dQ. J itself
// has as many rows as meshes and a row for every pair of meshes that share an airway (about 40
// a row on a 30,000-airway mine), the node matrix one row per node and one entry per airway:
// the same step at a tenth of the factorisation cost.
//
// The node matrix is factorised by Eigen's SimplicialLDLT in an AMD order worked out once per
// network shape. This file is the only place the core uses anything beyond the standard
// library. The flows are held in double precision during the iteration; the corrections are
// applied round the meshes, so continuity holds at every node by construction, and the flows
// are rounded to single precision when they are stored.
//
// Steps are kept downhill on the network's content F = sum of (R|Q|^3 / 3 - integral of Pf dQ),
// whose gradient in the mesh flows is H and whose Hessian is J: a backtracking line search
// (Armijo's rule, with quadratic interpolation) on F along the step, so that the iteration
// converges from still air, from stored flows and through the flat stretches of stalled fans.
// G is held above a floor (2R x AllowErr, and a thousandth of the smallest entry of the
// network), which keeps the matrix positive definite where flows are zero, resistances are
// zero or a fan curve rises. A mesh counts as open while its Newton step or the correction
// Hardy Cross would give it on its own is above AllowErr.

// The work arrays of the factorisation live on the stack up to this size (a node vector of the
// largest network), so that a factorisation allocates nothing.
#define EIGEN_STACK_ALLOCATION_LIMIT (256 * 1024)

#include "simulate/newton.h"

#include <Eigen/OrderingMethods>
#include <Eigen/SparseCholesky>
#include <Eigen/SparseCore>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "simulate/balancing.h"
#include "simulate/fan_model.h"
#include "simulate/run_modes.h"

namespace karvane {

namespace {

using NodeMatrix = Eigen::SparseMatrix<double, Eigen::ColMajor, int>;

// LDL^T of a matrix that already stands in its fill-reducing order, upper triangle stored: no
// copy of the matrix is made when it is factorised again with new values.
class PreorderedLdlt : public Eigen::SimplicialLDLT<NodeMatrix, Eigen::Upper, Eigen::NaturalOrdering<int>> {
public:
    void Analyse(const NodeMatrix& a) { analyzePattern_preordered(a, true); }
    bool Factorise(const NodeMatrix& a) {
        factorize_preordered<true>(a);
        return info() == Eigen::Success;
    }
};

} // namespace

struct NewtonWork {
    // Per airway, rows 1..MaxAirways.
    std::vector<double> Q;                  // flow during the iteration
    std::vector<double> Step;               // flow change of the present step
    std::vector<double> G;                  // Jacobian diagonal, held above its floor
    std::vector<double> H;                  // R Q|Q| - Pf
    std::vector<double> D;                  // 2R|Q| - dPf/dQ as it stands, for the mesh's own correction
    std::vector<double> Fan;                // Pf at Q, for airways with a pressure source
    std::vector<int> From, To;              // place of the entry and exit node in the solve order; -1 held at 0
    std::vector<int> DiagFrom, DiagTo, Off; // places of the airway's entries in the matrix; -1 none
    std::vector<std::uint8_t> InMatrix;     // the airway takes part in the node matrix

    // Per node: whether it is held at 0 (the lowest node of its tree), and its place in the
    // solve order of the last analysis (-1 held). Per tree: whether a node of it was seen.
    std::vector<std::uint8_t> Held, TreeSeen;
    std::vector<int> Place;
    std::int32_t PlacedNodes = -1; // nodes of the last analysis; -1 none yet
    // Per entry of the matrix: the last check that found an airway on it.
    std::vector<std::uint32_t> Used;
    std::uint32_t Check = 0;

    std::vector<double> Dx;   // per mesh: the Newton step of its flow
    std::vector<double> Size; // per mesh: the larger of |Dx| and its own correction |H / D|

    NodeMatrix Matrix; // node matrix in solve order, upper triangle
    PreorderedLdlt Ldlt;
    Eigen::VectorXd Rhs, P;
    std::int32_t Unknowns = 0;

    NewtonWork()
        : Q(MaxAirways + 1),
          Step(MaxAirways + 1),
          G(MaxAirways + 1),
          H(MaxAirways + 1),
          D(MaxAirways + 1),
          Fan(MaxAirways + 1),
          From(MaxAirways + 1),
          To(MaxAirways + 1),
          DiagFrom(MaxAirways + 1),
          DiagTo(MaxAirways + 1),
          Off(MaxAirways + 1),
          InMatrix(MaxAirways + 1),
          Held(MaxAirways + 2),
          TreeSeen(MaxAirways + 2),
          Place(MaxAirways + 2),
          Dx(MeshCapacity + 2),
          Size(MeshCapacity + 2) {}
};

namespace simulate {

namespace {

// The smallest flow at which an airway's square-law slope 2R|Q| is taken, as a share of the
// allowed error, and the smallest Jacobian entry as a share of the smallest positive one (an
// airway without resistance or fan then acts as a near short circuit).
constexpr double FloorFlowShare = 1.0;
constexpr double FloorRelative = 1e-3;
// Armijo's sufficient decrease, and the most backtracks of one line search.
constexpr double Armijo = 1e-4;
constexpr int MaxBacktracks = 40;

// The pieces of one run: the model, its run state, the work store and the open meshes.
struct Newton {
    Model& M;
    RunState& Run;
    NewtonWork& W;
    std::int32_t N;
    std::int32_t Meshes;
    const std::int16_t* List;

    Newton(Model& model, NewtonWork& work)
        : M(model),
          Run(model.Run),
          W(work),
          N(model.AirwayCount),
          Meshes(model.Run.NumMeshes),
          List(model.Run.MeshList.data()) {}

    bool FixedMesh(std::int32_t m) const { return List[Run.MeshStart[m]] < 0; }
    std::int32_t Chord(std::int32_t m) const { return std::abs(static_cast<std::int32_t>(List[Run.MeshStart[m]])); }

    void Hold();
    bool Locate();
    void Analyse();
    void Evaluate();
    bool Solve();
    void MeshSteps();
    double LineSearch();
};

// Which airways take part in the node matrix (all but the fixed chords and the loops on one
// node), and which node of each tree is held at 0: the lowest-numbered one, so that the choice
// depends on the network alone and not on the row order of this run.
void Newton::Hold() {
    for (std::int32_t a = 1; a <= N; ++a)
        W.InMatrix[a] = Run.ExitNodeNo[a] >= 0 && std::abs(Run.EntryNodeNo[a]) != std::abs(Run.ExitNodeNo[a]);
    const std::int32_t nodes = Run.NumNodes;
    for (std::int32_t k = 1; k <= nodes; ++k) W.TreeSeen[Run.NodeComp[k]] = 0;
    for (std::int32_t k = 1; k <= nodes; ++k) {
        const std::int32_t tree = Run.NodeComp[k];
        W.Held[k] = tree == 0 || !W.TreeSeen[tree]; // a node in no tree has no airway to others
        W.TreeSeen[tree] = 1;
    }
}

// Finds the places of every airway's entries in the pattern of the last analysis. False when
// the pattern does not fit this network: other nodes held, an airway between nodes that the
// pattern does not join, or a joined pair that no airway uses any more.
bool Newton::Locate() {
    const std::int32_t nodes = Run.NumNodes;
    if (W.PlacedNodes != nodes) return false;
    for (std::int32_t k = 1; k <= nodes; ++k)
        if (W.Held[k] != (W.Place[k] < 0)) return false;
    const int* outer = W.Matrix.outerIndexPtr();
    const int* inner = W.Matrix.innerIndexPtr();
    auto at = [outer, inner](int row, int col) {
        const int* last = inner + outer[col + 1];
        const int* p = std::lower_bound(inner + outer[col], last, row);
        return p != last && *p == row ? static_cast<int>(p - inner) : -1;
    };
    ++W.Check;
    std::int64_t used = W.Unknowns; // the diagonal is always used
    for (std::int32_t a = 1; a <= N; ++a) {
        const int u = W.Place[std::abs(Run.EntryNodeNo[a])], v = W.Place[std::abs(Run.ExitNodeNo[a])];
        W.From[a] = u;
        W.To[a] = v;
        W.DiagFrom[a] = W.DiagTo[a] = W.Off[a] = -1;
        if (!W.InMatrix[a]) continue;
        if (u >= 0) W.DiagFrom[a] = at(u, u);
        if (v >= 0) W.DiagTo[a] = at(v, v);
        if (u < 0 || v < 0) continue;
        const int off = at(std::min(u, v), std::max(u, v));
        if (off < 0) return false;
        W.Off[a] = off;
        if (W.Used[off] != W.Check) {
            W.Used[off] = W.Check;
            ++used;
        }
    }
    return used == W.Matrix.nonZeros();
}

// Works out the solve order (AMD on the node graph), the pattern of the node matrix and the
// symbolic factorisation. Runs only when the network's shape differs from the last analysed
// one: this is where the work store allocates.
void Newton::Analyse() {
    const std::int32_t nodes = Run.NumNodes;
    // Nodes in the natural order of the unknowns: every node but the held ones.
    std::vector<int> natural(static_cast<std::size_t>(nodes) + 1, -1);
    int n = 0;
    for (std::int32_t k = 1; k <= nodes; ++k)
        if (!W.Held[k]) natural[k] = n++;
    W.Unknowns = n;

    // The fill-reducing order, from the whole symmetric pattern.
    std::vector<Eigen::Triplet<double, int>> pattern;
    pattern.reserve(static_cast<std::size_t>(n) + 2 * static_cast<std::size_t>(N));
    for (int i = 0; i < n; ++i) pattern.emplace_back(i, i, 1.0);
    for (std::int32_t a = 1; a <= N; ++a) {
        if (!W.InMatrix[a]) continue;
        const int u = natural[std::abs(Run.EntryNodeNo[a])], v = natural[std::abs(Run.ExitNodeNo[a])];
        if (u < 0 || v < 0) continue;
        pattern.emplace_back(u, v, 1.0);
        pattern.emplace_back(v, u, 1.0);
    }
    NodeMatrix full(n, n);
    full.setFromTriplets(pattern.begin(), pattern.end());
    Eigen::PermutationMatrix<Eigen::Dynamic, Eigen::Dynamic, int> inverse;
    Eigen::AMDOrdering<int>()(full, inverse);
    const Eigen::PermutationMatrix<Eigen::Dynamic, Eigen::Dynamic, int> order = inverse.inverse();
    W.PlacedNodes = nodes;
    for (std::int32_t k = 1; k <= nodes; ++k) W.Place[k] = natural[k] >= 0 ? order.indices()[natural[k]] : -1;

    // The upper triangle in the solve order.
    std::vector<Eigen::Triplet<double, int>> upper;
    upper.reserve(static_cast<std::size_t>(n) + static_cast<std::size_t>(N));
    for (int i = 0; i < n; ++i) upper.emplace_back(i, i, 0.0);
    for (std::int32_t a = 1; a <= N; ++a) {
        const int u = W.Place[std::abs(Run.EntryNodeNo[a])], v = W.Place[std::abs(Run.ExitNodeNo[a])];
        if (W.InMatrix[a] && u >= 0 && v >= 0) upper.emplace_back(std::min(u, v), std::max(u, v), 0.0);
    }
    W.Matrix.resize(n, n);
    W.Matrix.setFromTriplets(upper.begin(), upper.end());
    W.Matrix.makeCompressed();
    W.Used.assign(static_cast<std::size_t>(W.Matrix.nonZeros()), 0);
    W.Ldlt.Analyse(W.Matrix);
    W.Rhs.resize(n);
    W.P.resize(n);
}

// Per airway at the present flows: the residual R Q|Q| - Pf, the pressure source Pf and the
// Jacobian entry 2R|Q| - dPf/dQ held above its floor.
void Newton::Evaluate() {
    const float* R = Run.FlatR.data();
    const float* P = Run.FlatP.data();
    const float* link = Run.FanSlot();
    const double floorFlow = FloorFlowShare * static_cast<double>(M.Set.AllowErr);
    double smallest = INFINITY;
    for (std::int32_t a = 1; a <= N; ++a) {
        const double q = W.Q[a], r = std::fabs(static_cast<double>(R[a]));
        double h = r * q * std::fabs(q), g = 2.0 * r * std::fabs(q), d = g, pf = 0;
        if (link[a] != 0.0f) {
            const FanReading f = ReadFanCurve(M, static_cast<std::int32_t>(link[a]), static_cast<float>(q), a, P[a]);
            pf = f.FanPressure;
            h -= pf;
            d -= f.FanSlope;
            // Off its curve a fan's pressure is held at its end value: the slope there is a
            // damping for Hardy Cross, and the true derivative is 0.
            if (f.FanRange == FanOnCurve) g -= f.FanSlope;
        }
        W.D[a] = d;
        g = std::max(g, 2.0 * r * floorFlow);
        W.H[a] = h;
        W.G[a] = g;
        W.Fan[a] = pf;
        if (g > 0 && g < smallest) smallest = g;
    }
    const double least = std::isfinite(smallest) ? FloorRelative * smallest : 1.0;
    for (std::int32_t a = 1; a <= N; ++a)
        if (!(W.G[a] >= least)) W.G[a] = least;
}

// Assembles the node matrix and its right-hand side, factorises and solves. False when the
// factorisation or the solution is not usable.
bool Newton::Solve() {
    if (W.Unknowns == 0) return true;
    double* values = W.Matrix.valuePtr();
    std::fill(values, values + W.Matrix.nonZeros(), 0.0);
    W.Rhs.setZero();
    for (std::int32_t a = 1; a <= N; ++a) {
        const double w = 1.0 / W.G[a];
        const double t = W.H[a] * w;
        if (W.DiagFrom[a] >= 0) values[W.DiagFrom[a]] += w;
        if (W.DiagTo[a] >= 0) values[W.DiagTo[a]] += w;
        if (W.Off[a] >= 0) values[W.Off[a]] -= w;
        if (W.InMatrix[a]) {
            if (W.To[a] >= 0) W.Rhs[W.To[a]] += t;
            if (W.From[a] >= 0) W.Rhs[W.From[a]] -= t;
        }
    }
    if (!W.Ldlt.Factorise(W.Matrix)) return false;
    W.P = W.Ldlt.solve(W.Rhs);
    return W.Ldlt.info() == Eigen::Success;
}

// The step of each open mesh (its chord's flow change), the flow change of every airway round
// the open meshes, and the size of each mesh's correction: the larger of its Newton step and
// the correction Hardy Cross would give it on its own, -H / D over the mesh. A mesh whose flows
// are near zero moves little under Newton's step while its own correction may still be large,
// so both must be within the allowed error before the network counts as balanced.
void Newton::MeshSteps() {
    auto pressure = [this](int place) { return place >= 0 ? W.P[place] : 0.0; };
    for (std::int32_t a = 1; a <= N; ++a) W.Step[a] = 0.0;
    for (std::int32_t m = 1; m <= Meshes; ++m) {
        W.Dx[m] = 0.0;
        W.Size[m] = 0.0;
        if (FixedMesh(m)) continue;
        const std::int32_t c = Chord(m);
        const double dx = (pressure(W.To[c]) - pressure(W.From[c]) - W.H[c]) / W.G[c];
        const std::int32_t first = Run.MeshStart[m], last = Run.MeshStart[m + 1];
        double h = W.H[c], d = W.D[c];
        W.Step[c] += dx;
        for (std::int32_t pos = first + 1; pos < last; ++pos) {
            const std::int32_t e = List[pos];
            if (e > 0) {
                W.Step[e] += dx;
                h += W.H[e];
                d += W.D[e];
            } else {
                W.Step[-e] -= dx;
                h -= W.H[-e];
                d += W.D[-e];
            }
        }
        W.Dx[m] = dx;
        W.Size[m] = std::max(std::fabs(dx), d == 0.0 ? 0.0 : std::fabs(h / d));
    }
}

// The share of the step to take: 1 when the full step lowers the content enough, else a
// shorter one found by backtracking.
double Newton::LineSearch() {
    const float* R = Run.FlatR.data();
    const float* P = Run.FlatP.data();
    const float* link = Run.FanSlot();
    double slope = 0; // dF/dalpha at 0
    for (std::int32_t a = 1; a <= N; ++a) slope += W.H[a] * W.Step[a];
    if (!(slope < 0)) return 1.0;

    // The change of the content at alpha, airway by airway, each worked without cancelling
    // two large sums: the pressure source by the trapezoid between the two flows.
    auto change = [&](double alpha) {
        double sum = 0;
        for (std::int32_t a = 1; a <= N; ++a) {
            const double d = alpha * W.Step[a];
            if (d == 0.0) continue;
            const double q = W.Q[a], q2 = q + d;
            const double r = std::fabs(static_cast<double>(R[a]));
            double cubes;
            if ((q >= 0) == (q2 >= 0)) {
                const double x = std::fabs(q), y = std::fabs(q2);
                cubes = (q >= 0 ? d : -d) * (x * x + x * y + y * y);
            } else {
                cubes = std::fabs(q2) * q2 * q2 - std::fabs(q) * q * q;
            }
            sum += r * cubes / 3.0;
            if (link[a] != 0.0f) {
                const FanReading f =
                    ReadFanCurve(M, static_cast<std::int32_t>(link[a]), static_cast<float>(q2), a, P[a]);
                sum -= 0.5 * (W.Fan[a] + f.FanPressure) * d;
            }
        }
        return sum;
    };

    double alpha = 1.0;
    for (int k = 0; k < MaxBacktracks; ++k) {
        const double f = change(alpha);
        if (f <= Armijo * alpha * slope) return alpha;
        // The minimum of the quadratic through F(0), F'(0) and F(alpha), kept within a tenth
        // and a half of alpha.
        double next = 0.5 * alpha;
        const double curve = f - slope * alpha;
        if (std::isfinite(f) && curve > 0) next = -slope * alpha * alpha / (2.0 * curve);
        alpha = std::clamp(next, 0.1 * alpha, 0.5 * alpha);
    }
    return alpha;
}

} // namespace

void BalanceFlowsNewton(Model& model, ui::UserInterface& ui) {
    RunState& run = model.Run;
    BeginBalance(model, ui);
    if (!run.Newton) run.Newton = std::make_shared<NewtonWork>();
    Newton nt(model, *run.Newton);
    NewtonWork& w = *run.Newton;
    const std::int32_t n = nt.N;
    for (std::int32_t a = 1; a <= n; ++a) w.Q[a] = run.FlatQ[a];
    auto store = [&] {
        for (std::int32_t a = 1; a <= n; ++a) {
            const auto q = static_cast<float>(w.Q[a]);
            if (std::isfinite(q)) run.FlatQ[a] = q;
        }
        CopyFlowsOut(model);
    };

    std::int32_t openMeshes = 0;
    for (std::int32_t m = 1; m <= nt.Meshes; ++m)
        if (!nt.FixedMesh(m)) ++openMeshes;
    if (openMeshes > 0) {
        nt.Hold();
        if (!nt.Locate()) {
            nt.Analyse();
            nt.Locate();
        }
    }

    const float allowErr = model.Set.AllowErr;
    const char sep = ui.DecimalSeparator();
    std::int32_t it = 0;
    for (;;) {
        if (model.StopFlag == StopRequest::Stop) return store();
        std::int32_t open = 0;
        float worst = 0.0f;
        bool solved = true;
        if (openMeshes > 0) {
            nt.Evaluate();
            solved = nt.Solve();
            if (solved) nt.MeshSteps();
            for (std::int32_t m = 1; solved && m <= nt.Meshes; ++m)
                if (!std::isfinite(w.Dx[m]) || !std::isfinite(w.Size[m])) solved = false;
        }
        if (!solved) {
            // No usable step: the network is as open as it stands, and the question follows.
            open = openMeshes;
            it = std::max<std::int32_t>(it, model.Set.MaxIter - 1);
        } else {
            for (std::int32_t m = 1; m <= nt.Meshes; ++m) {
                const auto size = static_cast<float>(w.Size[m]);
                if (size > allowErr) {
                    ++open;
                    if (size > worst) worst = size;
                }
            }
            if (model.SimMode == RunMode::FindNonConverging && it == model.Set.MaxIter - 1) {
                for (std::int32_t m = 1; m <= nt.Meshes; ++m) {
                    const auto size = static_cast<float>(w.Size[m]);
                    if (nt.FixedMesh(m) || !(size > allowErr)) continue;
                    for (std::int32_t pos = run.MeshStart[m]; pos < run.MeshStart[m + 1]; ++pos)
                        MarkNonConverging(model, std::abs(static_cast<std::int32_t>(nt.List[pos])), size, sep);
                }
            }
            const double alpha = open > 0 ? nt.LineSearch() : 1.0;
            for (std::int32_t a = 1; a <= n; ++a) w.Q[a] += alpha * w.Step[a];
        }
        const AfterPass next = EndPass(model, ui, it, open, worst);
        if (next == AfterPass::Stopped) return store();
        if (next == AfterPass::Finished) break;
    }
    store();
}

} // namespace simulate
} // namespace karvane
