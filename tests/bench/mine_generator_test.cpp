// The synthetic mine: exact size, a level list the loader accepts, a second mine in place of the
// first, and a network the validation stage passes (connected, every junction with air in and
// out, no duplicates).
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <numeric>
#include <set>
#include <tuple>

#include "generate/mine_generator.h"
#include "model/builtin_settings.h"

using namespace karvane;
using namespace karvane::minegen;

namespace {

using Point = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

// Nodes of a network as the validation stage sees them: equal coordinates are one node, and
// every end at or above the surface level is the one surface node.
struct Nodes {
    std::map<Point, int> ids;
    int surface = 0;
    std::int32_t surfaceLevel;
    explicit Nodes(std::int32_t level) : surfaceLevel(level) {}
    int Of(std::int32_t x, std::int32_t y, std::int32_t z) {
        if (z >= surfaceLevel) return surface;
        auto [it, added] = ids.emplace(Point{x, y, z}, static_cast<int>(ids.size()) + 1);
        return it->second;
    }
    int Count() const { return static_cast<int>(ids.size()) + 1; }
};

struct UnionFind {
    std::vector<int> parent;
    explicit UnionFind(int n) : parent(static_cast<std::size_t>(n)) { std::iota(parent.begin(), parent.end(), 0); }
    int Find(int a) {
        while (parent[a] != a) a = parent[a] = parent[parent[a]];
        return a;
    }
    void Join(int a, int b) { parent[Find(a)] = Find(b); }
};

struct Mine {
    std::unique_ptr<Model> model = std::make_unique<Model>();
    MineLayout layout;
};

Mine Generate(std::int32_t airways, std::uint64_t seed, int levels = 0) {
    Mine mine;
    MineRequest request;
    request.Airways = airways;
    request.Seed = seed;
    request.Levels = levels;
    request.Boosters = 1;
    mine.layout = GenerateMine(*mine.model, request);
    return mine;
}

// Checks everything the validation stage and the loader would object to.
void ExpectSound(const Model& m, const MineLayout& lay) {
    SCOPED_TRACE("airways " + std::to_string(m.AirwayCount));
    // Levels: surface first, ordered by descending upper bound, ended by an empty row.
    ASSERT_EQ(TrimText(m.Levels[1].RLName), "SURFACE");
    EXPECT_EQ(m.Levels[1].RLMin, lay.SurfaceRL);
    int rows = 1;
    while (rows + 1 < static_cast<int>(m.Levels.size()) && !m.Levels[rows + 1].RLName.empty()) ++rows;
    EXPECT_EQ(rows, static_cast<int>(lay.LevelRL.size()) + 1);
    for (int r = 2; r <= rows; ++r) {
        EXPECT_LT(m.Levels[r].RLMax, m.Levels[r - 1].RLMax);
        EXPECT_LE(m.Levels[r].RLMin, m.Levels[r].RLMax);
    }
    for (std::size_t k = 1; k < lay.LevelRL.size(); ++k) {
        int gap = lay.LevelRL[k - 1] - lay.LevelRL[k];
        EXPECT_GE(gap, 60);
        EXPECT_LE(gap, 100);
    }
    EXPECT_GT(lay.LevelRL.back(), 0);

    Nodes nodes(m.Levels[1].RLMin);
    std::vector<std::pair<int, int>> ends;
    std::set<std::pair<int, int>> seen;
    int intakesAtSurface = 0, fansAtSurface = 0;
    for (int r = 1; r <= m.AirwayCount; ++r) {
        const Airway& w = m.Airways[r];
        ASSERT_TRUE(w.Has(bc::Rectangular) || w.Has(bc::Circular)) << "row " << r;
        EXPECT_EQ(w.AirwayNo, r);
        EXPECT_GT(w.Length, 0.0f) << "row " << r;
        EXPECT_GT(w.Resistance, 0.0f) << "row " << r;
        EXPECT_FALSE(w.BranchName.empty());
        int a = nodes.Of(w.X1, w.Y1, w.Z1), b = nodes.Of(w.X2, w.Y2, w.Z2);
        ASSERT_FALSE(a == 0 && b == 0) << "both ends on surface, row " << r;
        ASSERT_NE(a, b) << "no length, row " << r;
        EXPECT_TRUE(seen.emplace(a, b).second) << "duplicate, row " << r;
        ends.emplace_back(a, b);
        if (a == 0 && w.Has(bc::FreshAir)) ++intakesAtSurface;
        if (b == 0 && w.FanNumber == MainFanRow) ++fansAtSurface;
        EXPECT_TRUE(w.FanNumber == 0 || !m.Fans[w.FanNumber].IsFree());
    }
    EXPECT_EQ(intakesAtSurface, lay.IntakeShafts);
    EXPECT_EQ(fansAtSurface, lay.ExhaustShafts);
    EXPECT_EQ(static_cast<int>(lay.FanRows.size()), lay.ExhaustShafts);

    // One piece, and air into and out of every junction below the surface.
    UnionFind uf(nodes.Count());
    std::vector<int> in(static_cast<std::size_t>(nodes.Count())), out(in.size());
    for (auto [a, b] : ends) {
        uf.Join(a, b);
        ++out[a];
        ++in[b];
    }
    int root = uf.Find(0);
    for (int n = 1; n < nodes.Count(); ++n) {
        ASSERT_EQ(uf.Find(n), root) << "node " << n << " is cut off";
        ASSERT_GT(in[n], 0) << "no entry into node " << n;
        ASSERT_GT(out[n], 0) << "no exit from node " << n;
    }
}

} // namespace

TEST(MineGenerator, ReachesTheAskedSizeAndIsSound) {
    for (std::int32_t size : {20, 57, 150, 400, 1000, 10000, 30000}) {
        Mine mine = Generate(size, 7);
        EXPECT_EQ(mine.model->AirwayCount, size);
        EXPECT_EQ(mine.model->Set.LastAirwayNo, size);
        ExpectSound(*mine.model, mine.layout);
    }
    // Out of range sizes are held to what the tables allow.
    EXPECT_EQ(Generate(3, 1).model->AirwayCount, MinAirways);
    EXPECT_EQ(Generate(MaxAirways + 500, 1).model->AirwayCount, MaxAirways);
}

TEST(MineGenerator, LevelsDoorsAndShaftsAsAsked) {
    auto m = std::make_unique<Model>();
    SetBuiltInSettings(*m);
    MineRequest request;
    request.Airways = 300;
    request.Levels = 4;
    request.ExhaustShafts = 2;
    request.Doors = 3;
    MineLayout lay = GenerateMine(*m, request);
    EXPECT_EQ(lay.LevelRL.size(), 4u);
    EXPECT_EQ(lay.ExhaustShafts, 2);
    EXPECT_EQ(lay.DoorRows.size(), 3u);
    EXPECT_EQ(m->AirwayCount, 300);
    ExpectSound(*m, lay);
    // Doors and regulators carry their resistance on top of the friction of the airway.
    for (std::int32_t r : lay.DoorRows) {
        const Airway& w = m->Airways[r];
        ASSERT_TRUE(w.ResType == 2 || w.ResType == 3);
        EXPECT_GT(w.Resistance, m->Preset.ResPreset[w.ResType]);
        EXPECT_LT(w.Resistance, m->Preset.ResPreset[w.ResType] + 0.01f);
    }
    EXPECT_FALSE(lay.RegulatorRows.empty());
    for (std::int32_t r : lay.RegulatorRows) {
        EXPECT_GE(m->Airways[r].Resistance, 0.05f);
        EXPECT_LE(m->Airways[r].Resistance, 0.6f);
    }
    // A drive of 5 m by 5 m with the friction of an average blasted airway.
    int first = 1;
    while (m->Airways[first].BranchName.find(" Drive ") == std::string::npos) ++first;
    const Airway& drive = m->Airways[first];
    EXPECT_EQ(drive.WallType, 5);
    EXPECT_FLOAT_EQ(drive.WallFactor, 0.012f);
    EXPECT_NEAR(drive.Resistance, 0.012 * 20 * drive.Length / (25.0 * 25 * 25), 1e-6);
    // The main fan's curve falls from shut-off to free delivery.
    const FanRecord& fan = m->Fans[MainFanRow];
    EXPECT_EQ(fan.FanPStatic[1], 3000.0f);
    for (int p = 2; p <= 10; ++p) {
        EXPECT_GT(fan.FanQ[p], fan.FanQ[p - 1]);
        EXPECT_LT(fan.FanPStatic[p], fan.FanPStatic[p - 1]);
        EXPECT_GT(fan.FanPTotal[p], fan.FanPStatic[p]);
    }
}

// A second mine in the same model replaces the first entirely (the same seed giving the same
// file is checked on the command line's generate).
TEST(MineGenerator, ASecondMineReplacesTheFirst) {
    Mine mine = Generate(2000, 42);
    MineRequest small;
    small.Airways = 100;
    GenerateMine(*mine.model, small);
    EXPECT_EQ(mine.model->AirwayCount, 100);
    EXPECT_EQ(mine.model->Airways[101].BranchCode, 0);
    EXPECT_EQ(mine.model->Airways[2000].BranchCode, 0);
}
