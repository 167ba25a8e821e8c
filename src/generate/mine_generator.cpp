// The synthetic mine. Air enters by the intake shafts, runs along each level's grid from its
// south-west corner towards its north-east corner and leaves by the exhaust shafts, whose main
// fans draw it up to the surface. Every airway is laid in the direction the air is expected to
// take, so that every junction below the surface has an airway into it and one out of it.
#include "generate/mine_generator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "engineering/resistance.h"

namespace karvane::minegen {

namespace {

// A small portable generator (splitmix64): the same seed gives the same mine on every
// compiler, which the standard distributions do not promise.
class Rng {
public:
    explicit Rng(std::uint64_t seed) : state_(seed) {}
    std::uint64_t Next() {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    // A whole number from lo to hi inclusive.
    int Range(int lo, int hi) {
        if (hi <= lo) return lo;
        return lo + static_cast<int>(Next() % static_cast<std::uint64_t>(hi - lo + 1));
    }
    bool Chance(double p) { return static_cast<double>(Next() >> 11) * 0x1.0p-53 < p; }

private:
    std::uint64_t state_;
};

struct Pt {
    std::int32_t x = 0, y = 0, z = 0;
};

// Preset rows by kind of airway.
namespace wall {
constexpr std::int16_t ConcreteLined = 2, Raisebored = 3, SmoothBlasted = 4, AverageBlasted = 5, RoughBlasted = 6;
}
namespace shock {
constexpr std::int16_t None = 0, Slight = 1, Low = 2;
}
namespace res {
constexpr std::int16_t Bulkhead = 1, SteelDoor = 2, WoodDoor = 3, AirCurtain = 9, Custom = 50;
}

struct Shape {
    std::int32_t code;   // bc::Rectangular or bc::Circular
    float height, width; // width is the diameter of a circular airway
    std::int16_t wallType, shockType, layer;
};

constexpr int kRampSegments = 6;
constexpr int kRaisesPerPair = 2;

// Joins texts and whole numbers into one name.
std::string Piece(std::string_view v) { return std::string(v); }
std::string Piece(long long v) { return std::to_string(v); }
template <class... T>
std::string Cat(const T&... parts) {
    std::string s;
    ((s += Piece(parts)), ...);
    return s;
}

std::string LevelTag(int k) { return Cat("L", k); }

class Builder {
public:
    Builder(Model& model, const MineRequest& request) : m_(model), rng_(request.Seed ^ 0x4B617276616E65ULL) {}

    Model& m_;
    Rng rng_;
    MineLayout layout_;

    std::int32_t Add(Pt a, Pt b, const Shape& s, const std::string& name, int secondLayer) {
        std::int32_t row = ++m_.AirwayCount;
        Airway& w = m_.Airways[row];
        w = Airway{};
        w.BranchName = FitText(name, NameWidth);
        w.X1 = a.x, w.Y1 = a.y, w.Z1 = a.z;
        w.X2 = b.x, w.Y2 = b.y, w.Z2 = b.z;
        w.BranchCode = s.code;
        w.Height = s.code == bc::Circular ? 0.0f : s.height;
        w.Width = s.width;
        w.WallType = s.wallType;
        w.ShockType = s.shockType;
        w.NoAirways = 1;
        w.PrimaryLayer = s.layer;
        w.SecondLayer = static_cast<std::int16_t>(std::clamp(secondLayer, 1, SecondLayerCount));
        w.AirwayNo = row;
        w.IconLoc = 0.2f;
        return row;
    }
};

void ClearNetworkTables(Model& m) {
    for (std::int32_t r = 1; r <= m.AirwayCount && r < static_cast<std::int32_t>(m.Airways.size()); ++r)
        m.Airways[r] = Airway{};
    m.AirwayCount = 0;
    for (auto& l : m.Levels) l = LevelRecord{};
    for (auto& l : m.PrimaryLayers) l = LayerRecord{};
    for (auto& l : m.SecondaryLayers) l = LayerRecord{};
    for (auto& t : m.FloatingTexts) t = FloatingText{};
    for (int v = 6; v <= 100 && v < static_cast<int>(m.SavedViews.size()); ++v) m.SavedViews[v] = SavedView{};
    for (auto& f : m.Fans) f = FanRecord{};
    m.ErrorList.clear();
}

// A fan curve falling from `shutOff` Pa at no flow to nothing at `freeFlow` m3/s, ten points
// up to 90 % of the free flow; total pressure adds the velocity pressure at the fan outlet.
FanRecord MakeFan(const std::string& name, float diameter, float shutOff, float freeFlow) {
    FanRecord f;
    f.FanName = name;
    f.FanDiam = diameter;
    double area = diameter * diameter * 3.1415926 / 4.0;
    for (int p = 1; p <= 10; ++p) {
        double q = freeFlow * 0.1 * (p - 1);
        double x = q / freeFlow;
        double ps = std::round(shutOff * (1.0 - x * x));
        double v = q / area;
        f.FanQ[p] = static_cast<float>(q);
        f.FanPStatic[p] = static_cast<float>(ps);
        f.FanPTotal[p] = static_cast<float>(std::round(ps + 0.6 * v * v));
        double e = 85.0 * (1.0 - ((x - 0.55) / 0.55) * ((x - 0.55) / 0.55));
        f.FanEff[p] = static_cast<std::int16_t>(std::max(0L, std::lround(e)));
    }
    return f;
}

std::int64_t Fixed(double v) { return static_cast<std::int64_t>(std::llround(v * kFixedScale)); }

void SavePlanView(Model& m, int slot, const std::string& name, double minX, double maxX, double minY, double maxY,
                  int levelMode, int levelRow) {
    if (slot >= static_cast<int>(m.SavedViews.size())) return;
    SavedView& v = m.SavedViews[slot];
    v = SavedView{};
    v.ViewName = name;
    double w = std::max(100.0, (maxX - minX) * 1.15), h = std::max(75.0, (maxY - minY) * 1.15);
    w = std::max(w, h * 4.0 / 3.0);
    h = w * 0.75;
    auto& p = v.ViewParam;
    p[3] = static_cast<float>(-w / 2), p[4] = static_cast<float>(-h / 2);
    p[5] = static_cast<float>(w), p[6] = static_cast<float>(h);
    p[9] = static_cast<float>(m.Set.DimOptions);
    p[10] = static_cast<float>(levelMode);
    p[11] = static_cast<float>(m.Levels[levelRow].RLMin), p[12] = static_cast<float>(m.Levels[levelRow].RLMax);
    p[13] = static_cast<float>(levelRow);
    p[14] = 0;
    p[15] = static_cast<float>((minX + maxX) / 2), p[16] = static_cast<float>((minY + maxY) / 2);
    p[23] = p[15], p[24] = p[16];
    p[25] = static_cast<float>((m.Levels[levelRow].RLMin + m.Levels[levelRow].RLMax) / 2);
    p[26] = 1;
    v.ViewValue[1] = Fixed((1 << 25) - 2); // secondary layers 1..24 on
    v.ViewValue[2] = Fixed((1 << 17) - 2); // primary layers 1..16 on
    v.ViewValue[3] = Fixed((1 << 25) - 2); // secondary layers 25..48 on
    v.ViewValue[4] = Fixed(m.Set.DisplayOptions);
    v.ViewValue[5] = Fixed(m.Set.FreshExhaust);
}

} // namespace

MineLayout GenerateMine(Model& model, const MineRequest& request) {
    Builder b(model, request);
    Model& m = model;
    Rng& rng = b.rng_;
    MineLayout& lay = b.layout_;
    ClearNetworkTables(m);

    const int target = std::clamp<std::int32_t>(request.Airways, MinAirways, MaxAirways);
    // Beyond 10,000 airways the mine grows downwards by a level per 1,000 airways rather than
    // in width, so that its levels stay a few dozen drives wide: a loop through a level's
    // grid then stays short, and the meshes of 30,000 airways fit the mesh store with room.
    int levels = request.Levels > 0 ? std::min(request.Levels, 40)
                 : target <= 10000  ? std::clamp(3 + (target + 1500) / 2500, 2, 24)
                                    : std::min(7 + (target - 10000) / 1000, 40);
    int nIn = request.IntakeShafts > 0 ? std::min(request.IntakeShafts, 6) : 1 + target / 12000;
    int nOut = request.ExhaustShafts > 0 ? std::min(request.ExhaustShafts, 8) : 1 + target / 9000;

    // Rows that do not depend on the grid: shafts and their accesses, declines and raises.
    auto fixedRows = [&](int l) { return 2 * l * (nIn + nOut) + (l - 1) * (kRampSegments + kRaisesPerPair); };
    auto gridRows = [](int nx, int ny) { return 2 * nx * ny - nx - ny; };
    auto rowsOf = [](int n) { return std::max(3, (2 * n + 1) / 3); };
    while (levels > 1 && fixedRows(levels) + levels * gridRows(3, 3) > target) --levels;
    if (fixedRows(levels) + levels * gridRows(3, 3) > target) nIn = nOut = 1;
    const int budget = std::max(0, target - fixedRows(levels));
    int n = 3;
    while (levels * gridRows(n + 1, rowsOf(n + 1)) <= budget) ++n;
    const int nx = n, ny = rowsOf(n);
    int extra = budget - levels * gridRows(nx, ny); // filled with diagonal crosscuts
    lay.GridColumns = nx, lay.GridRows = ny;
    lay.IntakeShafts = nIn, lay.ExhaustShafts = nOut;

    // Levels: the first 120 to 180 m below the collar, then every 60 to 100 m.
    std::vector<int> depth(static_cast<std::size_t>(levels));
    for (int k = 0; k < levels; ++k) depth[k] = k == 0 ? rng.Range(120, 180) : depth[k - 1] + rng.Range(60, 100);
    const std::int32_t surface = std::max(1000, (depth.back() + 199) / 100 * 100);
    lay.SurfaceRL = surface;
    for (int k = 0; k < levels; ++k) lay.LevelRL.push_back(surface - depth[k]);

    m.Levels[1] = {FitText(m.Set.SurfaceName.empty() ? "SURFACE" : m.Set.SurfaceName, NameWidth), surface, surface};
    for (int k = 1; k <= levels; ++k) {
        std::int32_t z = lay.LevelRL[k - 1];
        m.Levels[k + 1] = {Cat("Level ", k), z + 20, z - 20};
    }
    m.CurrentRLMin = m.Levels[levels > 0 ? 2 : 1].RLMin;
    m.CurrentRLMax = m.Levels[levels > 0 ? 2 : 1].RLMax;

    // Plan geometry, shared by all levels so that raises stand vertically between them.
    const std::int32_t x0 = 20000 + rng.Range(0, 500), y0 = 50000 + rng.Range(0, 500);
    const std::int32_t dx = rng.Range(35, 50), dy = rng.Range(25, 40);
    auto node = [&](int i, int j, int k) { return Pt{x0 + i * dx, y0 + j * dy, lay.LevelRL[k - 1]}; };
    const std::int32_t east = x0 + (nx - 1) * dx, north = y0 + (ny - 1) * dy;
    std::vector<int> inRow(nIn), outRow(nOut);
    for (int s = 0; s < nIn; ++s) inRow[s] = s * (ny - 1) / nIn;
    for (int s = 0; s < nOut; ++s) outRow[s] = (ny - 1) - s * (ny - 1) / nOut;
    auto inShaft = [&](int s, std::int32_t z) { return Pt{x0 - 150 - 60 * s, y0 + inRow[s] * dy, z}; };
    auto outShaft = [&](int s, std::int32_t z) { return Pt{east + 150 + 60 * s, y0 + outRow[s] * dy, z}; };
    auto shaftName = [](const char* kind, int s, int count) {
        return count == 1 ? Cat("Main ", kind, " Shaft") : Cat("No.", s + 1, " ", kind, " Shaft");
    };

    const Shape intakeShaft{bc::Circular, 0, 5.0f, 9, shock::None, layer::Intake};
    const Shape exhaustShaft{bc::Circular, 0, 4.0f, wall::Raisebored, shock::None, layer::Return};
    const Shape access{bc::Rectangular, 5.5f, 5.5f, wall::SmoothBlasted, shock::Low, layer::Intake};
    const Shape drive{bc::Rectangular, 5.0f, 5.0f, wall::AverageBlasted, shock::None, layer::Workings};
    const Shape crosscut{bc::Rectangular, 4.0f, 4.0f, wall::RoughBlasted, shock::Low, layer::Workings};
    // A wide level has a main crosscut across its middle, as large as a drive: the easiest way
    // between its drives, so that the spanning forest crosses the level there and a loop
    // through a panel crosscut runs back to the middle rather than to the grid's western edge.
    const Shape mainCrosscut{bc::Rectangular, 5.0f, 5.0f, wall::SmoothBlasted, shock::None, layer::Workings};
    constexpr int kMainCrosscutColumns = 16; // grids at least this wide have one
    const int mainColumn = nx >= kMainCrosscutColumns ? nx / 2 : -1;
    lay.MainCrosscutColumn = mainColumn;
    const Shape diagonal{bc::Rectangular, 4.0f, 4.0f, wall::RoughBlasted, shock::Slight, layer::Workings};
    const Shape ramp{bc::Rectangular, 5.5f, 6.0f, wall::SmoothBlasted, shock::None, layer::RampsRaises};
    const Shape raise{bc::Circular, 0, 3.0f, wall::Raisebored, shock::Slight, layer::RampsRaises};

    // Intake shafts: collar down through every level, each station feeding its level's grid.
    for (int s = 0; s < nIn; ++s) {
        std::string name = shaftName("Intake", s, nIn);
        Pt top = inShaft(s, surface);
        for (int k = 1; k <= levels; ++k) {
            Pt station = inShaft(s, lay.LevelRL[k - 1]);
            std::int32_t r =
                b.Add(top, station, intakeShaft, k == 1 ? name : name + " " + LevelTag(k - 1) + "-" + LevelTag(k), k);
            m.Airways[r].BranchCode |= bc::FreshAir;
            m.Airways[r].ExitNode = LevelTag(k) + " Intake Station";
            if (k > 1) m.Airways[r].EntryNode = LevelTag(k - 1) + " Intake Station";
            r = b.Add(station, node(0, inRow[s], k), access,
                      Cat(LevelTag(k), " Intake Access", nIn > 1 ? Cat(" ", s + 1) : ""), k);
            m.Airways[r].BranchCode |= bc::FreshAir;
            m.Airways[r].EntryNode = LevelTag(k) + " Intake Station";
            top = station;
        }
    }

    // The grid of every level: drives east along the rows, crosscuts north along the columns.
    std::vector<std::int32_t> interiorCrosscuts, interiorDrives;
    for (int k = 1; k <= levels; ++k) {
        for (int j = 0; j < ny; ++j) {
            std::string row = j == 0              ? "South"
                              : j == ny - 1       ? "North"
                              : j == (ny - 1) / 2 ? "Central"
                                                  : std::to_string(j);
            for (int i = 0; i + 1 < nx; ++i) {
                std::int32_t r = b.Add(node(i, j, k), node(i + 1, j, k), drive, LevelTag(k) + " Drive " + row, k);
                if (i > 0 && i + 2 < nx) interiorDrives.push_back(r);
            }
        }
        for (int i = 0; i < nx; ++i)
            for (int j = 0; j + 1 < ny; ++j) {
                if (i == mainColumn) {
                    b.Add(node(i, j, k), node(i, j + 1, k), mainCrosscut, LevelTag(k) + " Main XC", k);
                    continue;
                }
                std::int32_t r = b.Add(node(i, j, k), node(i, j + 1, k), crosscut, Cat(LevelTag(k), " XC ", i + 1), k);
                if (i > 0 && i + 1 < nx) interiorCrosscuts.push_back(r);
            }
    }

    // Exhaust shafts: each level's grid into its station, then up the shaft to the main fan.
    for (int s = 0; s < nOut; ++s) {
        std::string name = shaftName("Exhaust", s, nOut);
        for (int k = levels; k >= 1; --k) {
            Pt station = outShaft(s, lay.LevelRL[k - 1]);
            Shape a = access;
            a.layer = layer::Return;
            std::string accessName = Cat(LevelTag(k), " Exhaust Access", nOut > 1 ? Cat(" ", s + 1) : "");
            std::int32_t r = b.Add(node(nx - 1, outRow[s], k), station, a, accessName, k);
            Airway& w = m.Airways[r];
            w.BranchCode |= bc::ExhaustAir;
            w.ExitNode = LevelTag(k) + " Exhaust Station";
            if (static_cast<int>(lay.BoosterRows.size()) < request.Boosters && k >= levels - request.Boosters + 1 &&
                s == 0) {
                // The booster stands in a bulkhead across the access; its opening is the
                // custom resistance of the airway.
                w.FanNumber = BoosterFanRow;
                w.NoOfFans = 1;
                w.ResType = res::Custom;
                w.Resistance = 0.15f;
                w.BranchName = FitText(LevelTag(k) + " Booster Fan", NameWidth);
                w.PrimaryLayer = layer::Controls;
                lay.BoosterRows.push_back(r);
            } else if (k < levels && rng.Chance(0.6)) {
                // Regulators hold back the shallow levels so that the deep ones get their share.
                if (rng.Chance(0.5)) {
                    w.ResType = res::AirCurtain;
                } else {
                    w.ResType = res::Custom;
                    w.Resistance = static_cast<float>(rng.Range(5, 50)) / 100.0f;
                }
                w.BranchName = FitText(LevelTag(k) + " Regulator", NameWidth);
                w.PrimaryLayer = layer::Controls;
                lay.RegulatorRows.push_back(r);
            }
        }
        for (int k = levels; k >= 1; --k) {
            Pt from = outShaft(s, lay.LevelRL[k - 1]);
            Pt to = k == 1 ? outShaft(s, surface) : outShaft(s, lay.LevelRL[k - 2]);
            std::string segment = k == 1 ? name : name + " " + LevelTag(k) + "-" + LevelTag(k - 1);
            std::int32_t r = b.Add(from, to, exhaustShaft, segment, k);
            Airway& w = m.Airways[r];
            w.BranchCode |= bc::ExhaustAir;
            w.EntryNode = LevelTag(k) + " Exhaust Station";
            if (k > 1) w.ExitNode = LevelTag(k - 1) + " Exhaust Station";
            if (k == 1) {
                w.FanNumber = MainFanRow;
                w.NoOfFans = 1;
                w.ExitNode = name + " Collar";
                lay.FanRows.push_back(r);
            }
        }
    }

    // Declines from each level to the next, spiralling south of the grid, and return raises.
    const int im = nx / 2;
    for (int k = 1; k < levels; ++k) {
        Pt start = node(im, 0, k), end = node(im, 0, k + 1);
        const std::array<std::pair<int, int>, kRampSegments + 1> plan{
            {{0, 0}, {0, -60}, {90, -60}, {90, -140}, {0, -140}, {-40, -60}, {0, 0}}};
        Pt prev = start;
        for (int i = 1; i <= kRampSegments; ++i) {
            std::int32_t z = start.z - static_cast<std::int32_t>(
                                           std::lround(static_cast<double>(start.z - end.z) * i / kRampSegments));
            Pt p{start.x + plan[i].first, start.y + plan[i].second, z};
            if (i == kRampSegments) p = end;
            b.Add(prev, p, ramp, "Decline " + LevelTag(k) + "-" + LevelTag(k + 1), k + 1);
            prev = p;
        }
        int firstI = -1, firstJ = -1;
        for (int r = 0; r < kRaisesPerPair; ++r) {
            int i, j;
            do {
                i = rng.Range(1, nx - 2), j = rng.Range(1, ny - 1);
            } while (i == firstI && j == firstJ);
            firstI = i, firstJ = j;
            b.Add(node(i, j, k + 1), node(i, j, k), raise, "Return Raise " + LevelTag(k + 1) + "-" + LevelTag(k),
                  k + 1);
        }
    }

    // Diagonal crosscuts make up the exact count, spread over the levels.
    {
        const int cells = (nx - 1) * (ny - 1);
        std::vector<std::vector<int>> order(static_cast<std::size_t>(levels));
        for (auto& o : order) {
            o.resize(static_cast<std::size_t>(cells));
            for (int c = 0; c < cells; ++c) o[c] = c;
            for (int c = cells - 1; c > 0; --c) std::swap(o[c], o[rng.Range(0, c)]);
        }
        for (int t = 0; extra > 0 && t < 2 * cells * levels; ++t, --extra) {
            int k = t % levels + 1, pass = t / levels;
            int c = order[k - 1][pass % cells];
            int i = c % (nx - 1), j = c / (nx - 1);
            if (pass < cells) b.Add(node(i, j, k), node(i + 1, j + 1, k), diagonal, LevelTag(k) + " Diagonal", k);
            else b.Add(node(i, j + 1, k), node(i + 1, j, k), diagonal, LevelTag(k) + " Diagonal", k);
        }
    }

    // Doors in some crosscuts and bulkheads in some drives, away from the grid's edges.
    auto pick = [&](std::vector<std::int32_t>& rows, int count) {
        std::vector<std::int32_t> chosen;
        for (int c = 0; c < count && !rows.empty(); ++c) {
            int at = rng.Range(0, static_cast<int>(rows.size()) - 1);
            chosen.push_back(rows[at]);
            rows[at] = rows.back();
            rows.pop_back();
        }
        return chosen;
    };
    int doors = request.Doors >= 0 ? request.Doors : std::max(1, static_cast<int>(interiorCrosscuts.size()) / 200);
    for (std::int32_t r : pick(interiorCrosscuts, doors)) {
        Airway& w = m.Airways[r];
        bool steel = rng.Chance(0.5);
        w.ResType = steel ? res::SteelDoor : res::WoodDoor;
        w.BranchName = FitText(TrimText(w.BranchName) + (steel ? " Steel Door" : " Wood Door"), NameWidth);
        w.PrimaryLayer = layer::Controls;
        lay.DoorRows.push_back(r);
    }
    // Fixed flows: crosscuts of the workings held at a set quantity (a pump station or a
    // workshop that must have its air).
    const int fixedFlows = request.FixedFlows >= 0 ? request.FixedFlows : target < 1000 ? 0 : 1 + target / 10000;
    for (std::int32_t r : pick(interiorCrosscuts, fixedFlows)) {
        Airway& w = m.Airways[r];
        w.BranchCode |= bc::FixedFlow;
        w.Quantity = static_cast<float>(rng.Range(4, 8));
        w.BranchName = FitText(TrimText(w.BranchName) + " Fixed Flow", NameWidth);
        w.PrimaryLayer = layer::Controls;
        lay.FixedFlowRows.push_back(r);
    }
    int bulkheads = request.Bulkheads >= 0 ? request.Bulkheads : static_cast<int>(interiorDrives.size()) / 500;
    for (std::int32_t r : pick(interiorDrives, bulkheads)) {
        Airway& w = m.Airways[r];
        w.ResType = res::Bulkhead;
        w.BranchName = FitText(TrimText(w.BranchName) + " Bulkhead", NameWidth);
        w.PrimaryLayer = layer::Controls;
    }

    // Fans, layers, floating text and saved views.
    m.Fans[MainFanRow] = MakeFan("Main Surface Fan 4.0m", 4.0f, 3000, 400);
    if (!lay.BoosterRows.empty()) m.Fans[BoosterFanRow] = MakeFan("Booster Fan 2.2m", 2.2f, 2000, 100);
    const std::array<const char*, 6> primary{"", "Workings", "Intake", "Return", "Ramps and Raises", "Controls"};
    for (int l = 1; l <= PrimaryLayerCount; ++l) {
        if (l < static_cast<int>(primary.size())) m.PrimaryLayers[l].Name = primary[l];
        m.PrimaryLayers[l].LayerOn = -1;
    }
    for (int l = 1; l <= SecondLayerCount; ++l) {
        if (l <= levels) m.SecondaryLayers[l].Name = Cat("Level ", l);
        m.SecondaryLayers[l].LayerOn = -1;
    }
    int slot = 0;
    const int slots = std::min<int>(m.Set.MaxText, static_cast<int>(m.FloatingTexts.size()) - 1);
    auto text = [&](const std::string& words, Pt at) {
        if (++slot > slots) return;
        m.FloatingTexts[slot] = FloatingText{true, words, at.x, at.y, at.z};
    };
    for (int k = 1; k <= levels; ++k)
        text(Cat("LEVEL ", k, "  RL ", lay.LevelRL[k - 1]), Pt{x0 - 40, north + 40, lay.LevelRL[k - 1]});
    for (int s = 0; s < nIn; ++s) text(shaftName("Intake", s, nIn), inShaft(s, surface));
    for (int s = 0; s < nOut; ++s) text(shaftName("Exhaust", s, nOut) + " - Main Fan", outShaft(s, surface));

    double minX = x0 - 150 - 60 * nIn, maxX = east + 150 + 60 * nOut, minY = y0 - 140, maxY = north + 40;
    SavePlanView(m, 6, "Mine Plan", minX, maxX, minY, maxY, 4, 2);
    SavePlanView(m, 7, "Level 1 Plan", minX, maxX, minY, maxY, 1, 2);

    RecalcAllAirways(m);
    m.Set.LastAirwayNo = m.AirwayCount;
    m.FileComment = Cat("Generated mine: ", m.AirwayCount, " airways, ", levels, " levels, seed ",
                        static_cast<long long>(request.Seed));
    m.FileNote.clear();
    m.NetworkSaved = No0;
    m.SimValid = Validity::NotValid;
    m.SimFail = RunResult::Good;
    m.GasActive = GasDisplay::None;
    return lay;
}

} // namespace karvane::minegen
