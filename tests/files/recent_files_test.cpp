// The recent file list: its order, its captions, the store keys, the one-time migration of
// Karvane.old, and the autosave tick rule.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app_folder.h"
#include "files/recent_files.h"

using namespace karvane;
using namespace karvane::files;
using karvane::testing::AppFolder;

namespace {

std::vector<std::string> List(const Model& m) { return {m.RecentFiles.begin() + 1, m.RecentFiles.end()}; }

std::string Key(int i) { return "Karvane/Files/Name" + std::to_string(i); }

} // namespace

TEST(RecentFiles, OrderOfTheList) {
    AppFolder dir;
    Model m;
    for (int i = 9; i >= 1; --i) TouchRecentFile(m, dir.Ui, "f" + std::to_string(i));
    EXPECT_EQ(List(m), (std::vector<std::string>{"f1", "f2", "f3", "f4", "f5", "f6", "f7", "f8", "f9"}));

    // A file at position 5 comes to the front; the rest keep their order.
    TouchRecentFile(m, dir.Ui, "f5");
    EXPECT_EQ(List(m), (std::vector<std::string>{"f5", "f1", "f2", "f3", "f4", "f6", "f7", "f8", "f9"}));
    // A tenth file drops the oldest.
    TouchRecentFile(m, dir.Ui, "new");
    EXPECT_EQ(List(m), (std::vector<std::string>{"new", "f5", "f1", "f2", "f3", "f4", "f6", "f7", "f8"}));
    // The first again: nothing moves.
    TouchRecentFile(m, dir.Ui, "new");
    EXPECT_EQ(List(m), (std::vector<std::string>{"new", "f5", "f1", "f2", "f3", "f4", "f6", "f7", "f8"}));
    // The recovery file is put in front without a search for it.
    TouchRecentFile(m, dir.Ui, "f2", false);
    EXPECT_EQ(List(m), (std::vector<std::string>{"f2", "new", "f5", "f1", "f2", "f3", "f4", "f6", "f7"}));

    // Every change is in the store at once.
    for (int i = 1; i <= 9; ++i) EXPECT_EQ(dir.Ui.Store[Key(i)], m.RecentFiles[i]) << i;
    Model n;
    LoadRecentFiles(n, dir.Ui);
    EXPECT_EQ(List(n), List(m));
}

TEST(RecentFiles, CaptionsOfTheMenu) {
    EXPECT_EQ(ShortenedPath("C:\\Mines\\north.sim"), "C:\\Mines\\north.sim");
    const std::string nineteen = "C:\\Mine\\abcdefg.sim";
    ASSERT_EQ(nineteen.size(), 19u);
    EXPECT_EQ(ShortenedPath(nineteen), nineteen);
    EXPECT_EQ(ShortenedPath("C:\\Mine\\abcdefgh.sim"), "C:\\Mine\\abc..\\abcdefgh.sim");
    EXPECT_EQ(ShortenedPath("/home/eng/projects/mine/north.sim"), "/home/eng/p../north.sim");
    EXPECT_EQ(ShortenedPath("a-very-long-name-without-folders.sim"), "a-very-long-name-without-folders.sim");

    Model m;
    m.RecentFiles[1] = "/home/eng/projects/mine/north.sim";
    m.RecentFiles[3] = "south.sim";
    const auto menu = BuildRecentMenu(m);
    EXPECT_EQ(menu[1].Caption, "&1 /home/eng/p../north.sim");
    EXPECT_TRUE(menu[1].Visible);
    EXPECT_EQ(menu[2].Caption, "&2 ");
    EXPECT_FALSE(menu[2].Visible) << "empty entries are hidden but keep their numbers";
    EXPECT_EQ(menu[3].Caption, "&3 south.sim");
    EXPECT_TRUE(menu[3].Visible);
    EXPECT_FALSE(menu[9].Visible);
}

TEST(RecentFiles, OldListIsTakenOverOnce) {
    AppFolder dir;
    dir.Ui.Store[Key(1)] = "from the store";
    dir.Write("Karvane.old", "C:\\a.sim\r\nC:\\b.sim\r\nC:\\c.sim\r\nC:\\d.sim\r\nC:\\e.sim\r\n");
    Model m;
    LoadRecentFiles(m, dir.Ui);
    EXPECT_EQ(List(m),
              (std::vector<std::string>{"C:\\a.sim", "C:\\b.sim", "C:\\c.sim", "C:\\d.sim", "", "", "", "", ""}));
    EXPECT_FALSE(dir.Exists("Karvane.old"));
    EXPECT_EQ(dir.Ui.Store[Key(1)], "C:\\a.sim");
    EXPECT_TRUE(dir.Ui.Transcript.empty());

    // A short old list fills what it has.
    dir.Write("Karvane.old", "only.sim\r\n");
    Model n;
    LoadRecentFiles(n, dir.Ui);
    EXPECT_EQ(n.RecentFiles[1], "only.sim");
    EXPECT_EQ(n.RecentFiles[2], "");

    // Without the old list the store is read, missing keys as empty.
    ui::ScriptedUserInterface fresh;
    fresh.App = dir.Path.string();
    fresh.Store[Key(2)] = "second.sim";
    Model o;
    LoadRecentFiles(o, fresh);
    EXPECT_EQ(List(o), (std::vector<std::string>{"", "second.sim", "", "", "", "", "", "", ""}));

    // An old list that cannot be read says so.
    std::filesystem::create_directory(dir.Path / "Karvane.old");
    LoadRecentFiles(o, dir.Ui);
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"Error loading old file locations"});
}

TEST(Autosave, EveryEleventhTickWrites) {
    AutosaveTicker ticker;
    std::vector<int> writes;
    for (int tick = 1; tick <= 33; ++tick)
        if (ticker.Tick()) writes.push_back(tick);
    EXPECT_EQ(writes, (std::vector<int>{11, 22, 33}));
    ticker.Tick();
    EXPECT_EQ(ticker.Ticks(), 1);
    ticker.Reset();
    EXPECT_EQ(ticker.Ticks(), 0);
}
