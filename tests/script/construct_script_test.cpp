// The construction tools driven by scripts over small networks, compared with what an engineer
// would draw by hand; and a hundred random edit scripts on a generated mine, each taken back by
// as many undos, giving the original network again once saved.
#include <gtest/gtest.h>

#include <tuple>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "files/network_file.h"
#include "generate/mine_generator.h"
#include "model/node_keys.h"
#include "script_support.h"

using namespace karvane;
using karvane::script::testing::ScriptRig;

namespace {

// The rows whose ends are these two points, in either direction.
std::vector<std::int32_t> RowsBetween(Model& m, std::array<std::int32_t, 3> a, std::array<std::int32_t, 3> b) {
    std::vector<std::int32_t> rows;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& w = m.Airways[static_cast<std::size_t>(r)];
        const std::array<std::int32_t, 3> p{w.X1, w.Y1, w.Z1}, q{w.X2, w.Y2, w.Z2};
        if ((p == a && q == b) || (p == b && q == a)) rows.push_back(r);
    }
    return rows;
}

TEST(ConstructScript, ARaiseTakesTheRaiseDefaults) {
    ScriptRig r;
    // From free space on U/Ground, the level stepped down to Deep during the drag.
    ASSERT_EQ(
        r.Script(
            "box -1500,-1500 4500,4500\nlevel U/Ground\ntool draw\npress 3000,3000\nkey Down\nrelease 3000,3010\n"),
        "");
    ASSERT_EQ(r.S.M.AirwayCount, 6);
    const Airway& a = r.Row(6);
    EXPECT_GT(a.Z1, a.Z2);
    EXPECT_GT(2.0 * (a.Z1 - a.Z2), a.Length);
    EXPECT_FLOAT_EQ(a.Height, 0);
    EXPECT_FLOAT_EQ(a.Width, r.S.M.Set.RaiseDiameter);
    EXPECT_EQ(a.WallType, r.S.M.Set.RaiseWallType);
    EXPECT_TRUE(a.Has(bc::Circular));
}

TEST(ConstructScript, MovingASharedNodeMovesBothEndsAndOneUndoRestoresThem) {
    ScriptRig r;
    ASSERT_EQ(r.Script("box -1500,-1500 4500,4500\nlevel U/Ground\ntool move\ndrag 1000,0 1100,-100\n"), "");
    EXPECT_EQ(RowsBetween(r.S.M, {0, 0, 500}, {1100, -100, 500}).size(), 1u);
    EXPECT_EQ(RowsBetween(r.S.M, {1100, -100, 500}, {1000, 1000, 500}).size(), 1u);
    ASSERT_EQ(r.Script("key Backspace\n"), "");
    EXPECT_EQ(RowsBetween(r.S.M, {0, 0, 500}, {1000, 0, 500}).size(), 1u);
    EXPECT_EQ(RowsBetween(r.S.M, {1000, 0, 500}, {1000, 1000, 500}).size(), 1u);
}

TEST(ConstructScript, TheCoordinateEntryTakesTheQueuedPoint) {
    ScriptRig r;
    // A right-button release opens the entry for the end; a cancelled entry draws nothing.
    ASSERT_EQ(r.Script("box -1500,-1500 4500,4500\nlevel U/Ground\ntool draw\n"
                       "coords 0,-700,420\ndrag 0,0 0,-300 right\n"
                       "drag 0,0 0,-300 right\n"),
              "");
    ASSERT_EQ(r.S.M.AirwayCount, 6);
    const Airway& a = r.Row(6);
    EXPECT_EQ((std::array{a.X1, a.Y1, a.Z1, a.X2, a.Y2, a.Z2}), (std::array{0, 0, 500, 0, -700, 420}));
}

// The network file's text with the airway rows in a fixed order and without the numbers a
// log gives them: what a load of the file would make of the network.
std::string SavedText(script::Session& s, Model& m, const std::filesystem::path& path, std::int32_t lastAirwayNo,
                      const display::ViewState& view) {
    s.display().View = view; // the view the file starts with: the tools note the level at the cursor
    SortAirwayRows(m);
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) m.Airways[static_cast<std::size_t>(r)].UndoNo = 0;
    const std::int32_t last = m.Set.LastAirwayNo;
    m.Set.LastAirwayNo = lastAirwayNo;   // numbers given out stay given out
    const std::string note = m.FileNote; // each save stamps the note
    EXPECT_EQ(s.RunText("save " + path.string() + "\n"), "");
    m.Set.LastAirwayNo = last;
    m.FileNote = note;
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(ConstructScript, RandomEditScriptsOnAGeneratedMineUndoToTheSameFile) {
    display::testing::Scene scene;
    scene.Ui.Temp = std::filesystem::temp_directory_path().string();
    minegen::MineRequest request;
    request.Airways = 400;
    request.Seed = 3;
    minegen::GenerateMine(scene.M, request);
    BuildNodeKeys(scene.M, scene.Ui);
    script::Session s(scene.M, scene.Ui);
    s.ShowNetwork(files::LoadReport{});
    ASSERT_EQ(s.RunText("menu mnuLevels3\nmenu mnuFit\n"), "");
    const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("karvane-random-edits-" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(dir);
    const std::int32_t lastAirwayNo = scene.M.Set.LastAirwayNo;
    const display::ViewState view = s.display().View;
    const std::string original = SavedText(s, scene.M, dir / "original.sim", lastAirwayNo, view);

    int steps = 0; // the edits that changed the network, so that the test is seen to edit
    std::mt19937 rng(11);
    auto node = [&]() {
        const Airway& a = scene.M.Airways[1 + rng() % static_cast<unsigned>(scene.M.AirwayCount)];
        return rng() % 2 ? std::to_string(a.X1) + "," + std::to_string(a.Y1)
                         : std::to_string(a.X2) + "," + std::to_string(a.Y2);
    };
    auto middle = [&]() {
        const Airway& a = scene.M.Airways[1 + rng() % static_cast<unsigned>(scene.M.AirwayCount)];
        return std::to_string((a.X1 + a.X2) / 2) + "," + std::to_string((a.Y1 + a.Y2) / 2);
    };
    auto free = [&]() {
        const Airway& a = scene.M.Airways[1 + rng() % static_cast<unsigned>(scene.M.AirwayCount)];
        return std::to_string(a.X1 + 7 + static_cast<int>(rng() % 40)) + "," +
               std::to_string(a.Y1 + 9 + static_cast<int>(rng() % 40));
    };
    for (int round = 0; round < 100; ++round) {
        std::string text;
        const int edits = 1 + static_cast<int>(rng() % 5);
        for (int e = 0; e < edits; ++e) {
            switch (rng() % 6) {
            case 0: text += "tool draw\ndrag " + node() + " " + free() + "\n"; break;
            case 1: text += "tool draw\ndrag " + middle() + " " + middle() + "\n"; break;
            case 2: text += "tool move\ndrag " + node() + " " + free() + "\n"; break;
            case 3: text += "tool reverse\nclick " + middle() + "\n"; break;
            case 4: text += "tool insert-node\nclick " + middle() + "\n"; break;
            default: text += "tool move\ndrag " + middle() + " " + free() + "\n"; break;
            }
        }
        const std::int16_t before = s.undo().CurrentStep;
        ASSERT_EQ(s.RunText(text), "") << text;
        steps += s.undo().CurrentStep - before;
        std::string undos;
        for (int e = 0; e < edits; ++e) undos += "key Backspace\n";
        ASSERT_EQ(s.RunText(undos), "") << text;
        const std::string undone = SavedText(s, scene.M, dir / "undone.sim", lastAirwayNo, view);
        if (undone != original) {
            std::size_t at = 0;
            while (at < undone.size() && at < original.size() && undone[at] == original[at]) ++at;
            const std::size_t from = at < 150 ? 0 : at - 150;
            FAIL() << "round " << round << "\n"
                   << text << "\nfirst difference at " << at << ":\n"
                   << original.substr(from, 300) << "\n----\n"
                   << undone.substr(from, 300);
        }
    }
    EXPECT_GT(steps, 150);
    std::filesystem::remove_all(dir);
}

} // namespace
