// The forms driven by the script of the user's actions: the fan database, the level list, the
// options, the network spreadsheet, and every main window command by its control name with every
// question declined, which runs to its end or says that its window cannot be filled in by a script.
#include <gtest/gtest.h>

#include <tuple>

#include <filesystem>
#include <random>

#include "commands/menu_commands.h"
#include "script_support.h"

using namespace karvane;
using karvane::script::testing::ScriptRig;

namespace {

TEST(EditorsScript, AFanCurveTypedAndPastedReachesTheDatabase) {
    ScriptRig r;
    Model& m = r.S.M;
    ASSERT_GE(m.Fans.size(), 3u);
    m.Fans[2] = FanRecord{};
    EXPECT_EQ(r.Script("menu mnuFanData\nfield FanList 2\ncell 1 1 900\ncell 1 3 20\ncell 2 1 1500\ncell 2 3 10\n"
                       "button ExitFan\n"),
              "");
    const FanRecord& fan = m.Fans[2];
    EXPECT_EQ(std::make_tuple(fan.FanName, fan.FanPStatic[1], fan.FanQ[10], m.FansSaved),
              std::make_tuple("Fan #2", 1500, 20, No0));
    // A manufacturer's table pasted at point 1.
    EXPECT_EQ(r.Script("menu mnuFanData\nfield FanList 2\nfield Selection \"1 1 1 1\"\n"
                       "field Clipboard \"2000\\t2100\\t5.5\\t70\\r\\n1800\\t1950\\t11\\t78\\r\\n\"\nbutton Cancel\n"),
              "");
    EXPECT_EQ(std::make_tuple(fan.FanPTotal[2], fan.FanQ[1], fan.FanEff[2]), std::make_tuple(1950, 5.5f, 78));
    EXPECT_NE(r.Script("menu mnuFanData\ncell 11 1 5\n"), "");
    EXPECT_NE(r.Script("menu mnuFanData\nfield ChkStatic maybe\n"), "");
}

TEST(EditorsScript, LevelsEditedByScriptFilterTheViews) {
    ScriptRig r;
    Model& m = r.S.M;
    m.Levels.assign(LevelRows + 1, LevelRecord{});
    // Level 1 the surface band; level 2 the band of the square at 500; level 3 the raise's foot.
    EXPECT_EQ(r.Script("menu mnuRLBase\ncell 1 1 SURFACE\ncell 1 2 1000\ncell 1 3 900\ncell 2 1 Main\n"
                       "cell 2 2 550\ncell 2 3 450\ncell 3 1 Low\ncell 3 2 350\ncell 3 3 250\nbutton RLOK\n"),
              "");
    EXPECT_EQ(m.Levels[2].RLName, "Main");
    EXPECT_EQ(m.Levels[3].RLMin, 250);
    EXPECT_EQ(r.Script("level Low\n"), "");
    // Only the raise reaches down to level 3.
    EXPECT_EQ(r.Run->display().DisplayList, (std::vector<std::int32_t>{5}));
    // Deleting row 2 whole moves "Low" up.
    EXPECT_EQ(r.Script("menu mnuRLBase\nfield Selection \"2 1 2 3\"\nbutton Delete\nbutton RLOK\n"), "");
    EXPECT_EQ(m.Levels[2].RLName, "Low");
}

TEST(EditorsScript, OptionsApplyOnOkAndTheUnitSwitchActsAtOnce) {
    ScriptRig r;
    Model& m = r.S.M;
    const Settings before = m.Set;
    EXPECT_EQ(r.Script("menu mnuOptionShow\nfield TxtCost 0\nfield TxtEff 70\nfield ChkViewer(2) 0\nbutton cmdOK\n"),
              "");
    EXPECT_TRUE(r.S.Ui.Said("Limits of Allowable Cost Exceeded"));
    EXPECT_EQ(std::make_tuple(m.Set.PowerCost, m.Set.AirEfficiency, m.Set.DisplayOptions & 4),
              std::make_tuple(before.PowerCost, 0.7f, 0));
    // The unit switch stays when the dialog is cancelled afterwards; the other boxes do not.
    EXPECT_EQ(r.Script("menu mnuOptionShow\nfield OptUnitType(1) 1\nfield txtIt 77\nbutton cmdCancel\n"), "");
    EXPECT_EQ(m.Set.UnitSys, 2);
    EXPECT_EQ(m.Set.MaxIter, before.MaxIter);
    EXPECT_NE(r.Script("menu mnuOptionShow\nfield Optcurve(5) 1\n"), "");
}

TEST(SpreadSheetScript, BadLinesAreReportedAndARefusedSaveChangesNothing) {
    ScriptRig r;
    const Airway before = r.Row(1);
    EXPECT_EQ(r.Script("menu mnuPower\ncell 1 17 abc\nbutton SaveGrid\nanswer no\nclose\n"), "");
    EXPECT_EQ(r.Row(1), before);
    EXPECT_NE(r.Script("menu mnuPower\ncell 1 1 5\n"), "");     // "No." is not editable
    EXPECT_NE(r.Script("menu mnuPower\ncell 99 2 x\n"), "");    // no such row
    EXPECT_NE(r.Script("menu mnuPower\nbutton cmdNone\n"), ""); // no such button
    EXPECT_EQ(r.Script("menu mnuPower\nfield Row 1\nfield Col 14\nfield Clipboard \"3\\t3\"\nbutton SaveGrid\n"), "");
    EXPECT_FLOAT_EQ(r.Row(1).Height, 3.0f);
    EXPECT_FLOAT_EQ(r.Row(1).Width, 3.0f);
}

TEST(MenuCommands, EveryNameRunsAndADeclinedQuestionChangesNothing) {
    const std::filesystem::path app =
        std::filesystem::temp_directory_path() / ("karvane-menu-commands-" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(app);
    for (std::string_view name : commands::MenuCommandNames()) {
        ScriptRig r;
        r.S.Ui.App = app.string();
        r.S.Ui.DefaultAnswer = ui::Answer::No;
        const std::string error = r.Script("menu " + std::string(name) + "\n");
        EXPECT_TRUE(error.empty() ||
                    error == "line 1: " + std::string(name) + " opens a window that a script cannot fill in yet")
            << name << ": " << error;
        EXPECT_EQ(r.S.M.AirwayCount, 5) << name;
        // The commands that ask first change nothing after a no.
        for (std::string_view asking : {"mnuNewFile", "mnuFixL", "mnuUnFixL", "mnuAutoName", "mnuAutoNodes",
                                        "mnuRevCoord", "mnuReverse", "mnuPres"})
            if (name == asking) {
                EXPECT_EQ(r.S.M.NetworkSaved, Yes255) << name;
            }
    }
    std::filesystem::remove_all(app);
}

} // namespace
