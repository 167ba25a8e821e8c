// The headless session driven by scripts: world points reach the tools at the right places,
// questions take the queued answers, menu commands and forms act by their names, undo and
// redo by key, menu and tool bar, a script that stops writes nothing, and the airway lines: set
// through the airway editor's controls with its limits and messages, select for a whole selection.
#include <gtest/gtest.h>

#include <tuple>

#include <filesystem>
#include <fstream>
#include <random>

#include "script_support.h"

using namespace karvane;
using karvane::script::testing::ScriptRig;

namespace {

TEST(ScriptSession, WorldPointsReachTheToolAtTheirPlace) {
    ScriptRig r;
    EXPECT_EQ(r.Script("box -100,-100 1100,1100\n"
                       "tool contaminant\n"
                       "click 500,0\n"
                       "answer \"42\"\n"
                       "click 1000,250 right\n"),
              "");
    EXPECT_TRUE(r.Row(1).Has(bc::ContaminantSource));
    EXPECT_NEAR(r.Row(1).IconLoc, 0.2f, 0.01f);
    EXPECT_FLOAT_EQ(r.Row(2).Contaminant, 42);
    EXPECT_FALSE(r.Row(3).Has(bc::ContaminantSource));
    // The same points after a different box and window size, and with the Y axis reversed.
    ScriptRig s;
    s.S.M.SgnY = -1;
    EXPECT_EQ(s.Script("window 300 900\nbox 400,-50 600,50\ntool contaminant\nclick 450,0\n"), "");
    EXPECT_TRUE(s.Row(1).Has(bc::ContaminantSource));
    EXPECT_NEAR(s.Row(1).IconLoc, 0.15f, 0.01f);
}

TEST(ScriptSession, MenuCommandsTakeTheQueuedAnswers) {
    ScriptRig r;
    r.Row(2).BranchName = "Main";
    EXPECT_EQ(r.Script("answer yes\nmenu mnuFixL\nanswer ok\nanswer \"B\"\nmenu mnuAutoName\n"), "");
    for (std::int32_t row = 1; row <= 5; ++row) EXPECT_TRUE(r.Row(row).Has(bc::FixedLength));
    EXPECT_EQ(std::make_tuple(r.Row(1).BranchName, r.Row(2).BranchName, r.Row(3).BranchName),
              std::make_tuple("B1", "Main", "B2"));
    EXPECT_TRUE(r.S.Ui.Said("All lengths are now fixed"));
    EXPECT_EQ(r.S.M.NetworkSaved, No0);
    // A question without a queued answer goes to the user interface underneath.
    r.S.Ui.DefaultAnswer = ui::Answer::No;
    EXPECT_EQ(r.Script("menu mnuUnFixL\n"), "");
    EXPECT_TRUE(r.Row(1).Has(bc::FixedLength));
}

TEST(ScriptSession, FormsActByTheirControls) {
    ScriptRig r;
    ASSERT_TRUE(r.Run->display().View.DisplayOptions & 1);
    EXPECT_EQ(r.Script("menu mnuViewData\nfield ChkViewer(0) 0\nfield OptType(1) 1\nfield TxtSig 500\nbutton cmdOK\n"),
              "");
    EXPECT_TRUE(r.S.Ui.Transcript.empty());
    EXPECT_FALSE(r.Run->display().View.DisplayOptions & 1);
    // A refused flow limit keeps the form open; the next line that is no form line closes it.
    EXPECT_EQ(r.Script("menu mnuViewData\nfield TxtSig 20000\nbutton cmdOK\nmenu mnuRedraw\n"), "");
    EXPECT_TRUE(r.S.Ui.Said("Limits of Allowable Significant Flows"));
    // The tool bar's display options open the same form.
    EXPECT_EQ(r.Script("tool display-options\nfield ChkViewer(0) 1\nbutton cmdOK\n"), "");
    EXPECT_TRUE(r.Run->display().View.DisplayOptions & 1);
}

TEST(ScriptSession, UndoAndRedoByKeyMenuAndToolBar) {
    ScriptRig r;
    files::UndoLog& log = r.Run->undo();
    Model& m = r.S.M;
    // Two edits as the tools log them: a moved end, then a moved row.
    for (int k = 0; k < 2; ++k) {
        log.LogAirway(m, r.Run->userInterface(), 1 + k, files::undo::Before, log.CurrentStep);
        r.Row(1 + k).X1 += 50;
        log.LogAirway(m, r.Run->userInterface(), 1 + k, files::undo::After, log.CurrentStep);
        ++log.CurrentStep;
    }
    EXPECT_EQ(r.Script("key Backspace\nmenu mnuUndo\n"), "");
    EXPECT_EQ(log.CurrentStep, 1);
    std::int32_t x1sum = 0;
    for (std::int32_t row = 1; row <= m.AirwayCount; ++row) x1sum += r.Row(row).X1;
    EXPECT_EQ(x1sum, 0 + 1000 + 1000 + 0 + 1000);
    // The views show the rows as they now stand: every row is in the display list again.
    EXPECT_EQ(std::count_if(r.Run->display().DisplayList.begin(), r.Run->display().DisplayList.end(),
                            [](std::int32_t v) { return v != 0; }),
              5);
    EXPECT_EQ(r.Script("key Tab\ntool redo\nmenu mnuRedo\ntool undo\n"), "");
    EXPECT_EQ(r.S.Ui.Texts("Message"), (std::vector<std::string>{"No more actions available to redo"}));
    // The redo that found nothing still raised the step; the undo after it skips that empty
    // step and takes back the second edit.
    EXPECT_EQ(log.CurrentStep, 2);
    EXPECT_EQ(r.Row(m.AirwayCount).X1 + r.Row(m.AirwayCount - 1).X1, 50 + 1000);
    EXPECT_EQ(r.Script("key Backspace\nkey Backspace\nkey Backspace\n"), "");
    EXPECT_TRUE(r.S.Ui.Said("No more actions to undo"));
}

TEST(ScriptSession, ALineThatCannotBeCarriedOutStopsTheScript) {
    const struct {
        bool Airways;
        const char* Text;
        const char* Error;
    } cases[] = {
        {false, "tool info\nclick 10,10\n", "line 2: the network is empty: nothing for the info tool"},
        {true, "field TxtFlow 3\n", "line 1: no form is open"},
        {true, "menu mnuViewData\nfield TxtSpeed 3\n", "line 2: frmViewer has no control TxtSpeed"},
        {true, "menu mnuViewData\nbutton cmdApply\n", "line 2: frmViewer has no button cmdApply"},
        {true, "menu mnuAbout\n", "line 1: mnuAbout opens a window that a script cannot fill in yet"},
        {true, "level Nowhere\n", "line 1: no level is named \"Nowhere\""},
        {true, "level 700\n", "line 1: no level holds the elevation 700"},
        {true, "box 0,0 0,100\n", "line 1: the box has no width or no height"},
        {true, "answer yes\nmenu mnuRedraw\n", "line 1: no question took this answer"},
        {true, "coords 1,2,3\n", "line 1: no coordinate entry took these coordinates"},
        {true, "answer \"x\"\nmenu mnuFixL\n",
         "line 1: the question \"All lengths will be fixed - Are you sure?\" "
         "takes yes, no, ok or cancel"},
        {true, "key Space\n", "line 1: the key Space does nothing in a view window"},
        {true, "tool print-screen\n", "line 1: the print-screen command is not available in this version"},
    };
    for (const auto& c : cases) {
        ScriptRig r(c.Airways);
        EXPECT_EQ(r.Script(c.Text), c.Error) << c.Text;
    }
}

TEST(ScriptSession, SavesAreWrittenOnlyWhenTheWholeScriptRan) {
    ScriptRig r;
    const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("karvane-script-save-" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(dir);
    const std::string path = (dir / "out.sim").string();
    std::filesystem::remove(path);
    EXPECT_EQ(r.Script("save " + path + "\nmenu mnuNowhere\n"), "line 2: unknown menu name \"mnuNowhere\"");
    EXPECT_EQ(r.Script("save " + path + "\nlevel Nowhere\n"), "line 2: no level is named \"Nowhere\"");
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), std::filesystem::directory_iterator()), 0);
    EXPECT_EQ(r.Script("save " + path + "\n"), "");
    EXPECT_TRUE(std::filesystem::exists(path));
    std::filesystem::remove_all(dir);
}

TEST(ScriptAirwayLines, SetGoesThroughTheEditorInDisplayUnits) {
    ScriptRig r;
    const std::int32_t no = r.Row(2).AirwayNo;
    EXPECT_EQ(
        r.Script("set " + std::to_string(no) +
                 " TxtWidth=6 txtHeight=5 CheckFix=1 TxtFlow=25 CmbWall=\"Timbered Airway\" \"TxtName=Main drive\"\n"),
        "");
    const Airway& a = r.Row(2);
    EXPECT_EQ(std::make_tuple(a.Width, a.Height), std::make_tuple(6.0f, 5.0f));
    EXPECT_TRUE(a.Has(bc::FixedFlow));
    EXPECT_EQ(std::make_tuple(a.Quantity, a.WallType, a.BranchName, r.Run->undo().CurrentStep),
              std::make_tuple(25.0f, 8, "Main drive", 2));
    // In British units the boxes are in feet and cubic feet a minute.
    r.S.M.Set.UnitSys = 2;
    EXPECT_EQ(r.Script("set " + std::to_string(no) + " TxtWidth=32.8084\n"), "");
    EXPECT_NEAR(r.Row(2).Width, 10.0f, 1e-5);
    // The undo takes the last set back.
    EXPECT_EQ(r.Script("menu mnuUndo\n"), "");
    bool found = false;
    for (std::int32_t row = 1; row <= r.S.M.AirwayCount; ++row) {
        if (r.Row(row).AirwayNo != no) continue;
        found = true;
        EXPECT_EQ(r.Row(row).Width, 6.0f);
    }
    EXPECT_TRUE(found);
}

TEST(ScriptAirwayLines, LimitsMessagesAndRefusals) {
    ScriptRig r;
    const std::string no = std::to_string(r.Row(1).AirwayNo);
    EXPECT_EQ(r.Script("set " + no + " TxtWidth=0 ChkFixRes=1 TxtFixRes=0\n"), "");
    EXPECT_FLOAT_EQ(r.Row(1).Width, 0.01f);
    EXPECT_EQ(r.Row(1).ResType, CustomPreset);
    EXPECT_EQ(r.Script("set " + no + " TxtMultiAir=2 FanCombo2=None\n"), "");
    EXPECT_EQ(r.Row(1).NoAirways, 2);
    // A refused control stops the script and applies nothing.
    const float width = r.Row(1).Width;
    EXPECT_EQ(r.Script("set " + no + " TxtWidth=9 TxtFlow=3\n"),
              "line 1: TxtFlow is read-only unless CheckFix is ticked");
    EXPECT_EQ(r.Row(1).Width, width);
    EXPECT_EQ(r.Script("set " + no + " Nothing=1\n"), "line 1: frmAirEdit has no control Nothing");
    EXPECT_EQ(r.Script("set 999 TxtWidth=3\n"), "line 1: no airway numbered 999");
    EXPECT_EQ(r.Script("set " + no + " TxtWidth\n"), "line 1: expected NAME=VALUE, not \"TxtWidth\"");
    EXPECT_EQ(r.Script("set " + no + " ResCombo=\"No such\"\n"), "line 1: no row \"No such\" in ResCombo");
}

TEST(ScriptAirwayLines, SelectThenSetEditsOnlyTheTouchedGroups) {
    ScriptRig r;
    r.Row(3).BranchCode = bc::Circular;
    r.Row(3).Width = 3;
    const auto no = [&](std::int32_t row) { return std::to_string(r.Row(row).AirwayNo); };
    EXPECT_EQ(r.Script("select " + no(1) + " " + no(3) + "\nset " + no(1) + " ChkFixK=1 TxtWall=0.02\n"), "");
    for (std::int32_t row : {1, 3}) {
        EXPECT_EQ(std::make_tuple(r.Row(row).WallType, r.Row(row).WallFactor), std::make_tuple(CustomPreset, 0.02f));
    }
    EXPECT_EQ(r.Row(3).Width, 3.0f);
    EXPECT_TRUE(r.Row(3).Has(bc::Circular));
    EXPECT_NE(r.Row(2).WallType, CustomPreset);
    EXPECT_EQ(r.Script("set " + no(1) + " TxtName=X\n"), "line 1: TxtName is not available in a multiple selection");
    EXPECT_EQ(r.Script("set " + no(1) + " TxtFlow=3\n"), "line 1: TxtFlow is not available in a multiple selection");
    EXPECT_EQ(r.Script("select\n"), "");
    EXPECT_FALSE(r.Row(1).Has(bc::Selected));
}

} // namespace
