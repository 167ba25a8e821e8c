// The fan database, the level list and the options driven by the script of the user's actions.
#include <gtest/gtest.h>

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
    EXPECT_EQ(fan.FanName, "Fan #2");
    EXPECT_EQ(fan.FanPStatic[1], 1500);
    EXPECT_EQ(fan.FanQ[10], 20);
    EXPECT_EQ(m.FansSaved, No0);
    // A manufacturer's table pasted at point 1.
    EXPECT_EQ(r.Script("menu mnuFanData\nfield FanList 2\nfield Selection \"1 1 1 1\"\n"
                       "field Clipboard \"2000\\t2100\\t5.5\\t70\\r\\n1800\\t1950\\t11\\t78\\r\\n\"\nbutton Cancel\n"),
              "");
    EXPECT_EQ(fan.FanPTotal[2], 1950);
    EXPECT_EQ(fan.FanQ[1], 5.5f);
    EXPECT_EQ(fan.FanEff[2], 78);
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
    EXPECT_EQ(m.Set.PowerCost, before.PowerCost);
    EXPECT_FLOAT_EQ(m.Set.AirEfficiency, 0.7f);
    EXPECT_EQ(m.Set.DisplayOptions & 4, 0);
    // The unit switch stays when the dialog is cancelled afterwards; the other boxes do not.
    EXPECT_EQ(r.Script("menu mnuOptionShow\nfield OptUnitType(1) 1\nfield txtIt 77\nbutton cmdCancel\n"), "");
    EXPECT_EQ(m.Set.UnitSys, 2);
    EXPECT_EQ(m.Set.MaxIter, before.MaxIter);
    EXPECT_NE(r.Script("menu mnuOptionShow\nfield Optcurve(5) 1\n"), "");
}

} // namespace
