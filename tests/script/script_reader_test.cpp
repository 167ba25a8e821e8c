// The reader of the script of the user's actions: every line form read into its parts, and
// the table of lines it refuses with their exact reasons.
#include <gtest/gtest.h>

#include <tuple>

#include "commands/menu_commands.h"
#include "script/script_reader.h"

using namespace karvane;
using namespace karvane::script;

namespace {

TEST(ScriptReader, ReadsEveryLineForm) {
    const ReadResult r = ReadScript("# a comment\r\n"
                                    "window 640 480\n"
                                    "view 3d 30 45\n"
                                    "box 0,0 1000,500\n"
                                    "level \"U/Ground\"\n"
                                    "level 490\n"
                                    "tool insert-node\n"
                                    "tool 6\n"
                                    "press 10,20 right shift\n"
                                    "move 15.5,-20\n"
                                    "release 20,20,480 right\n"
                                    "drag 1,2 3,4 right\n"
                                    "key F5\n"
                                    "menu mnuUndo\n"
                                    "answer \"B 7\"\n"
                                    "coords 100,200,480 copy 5,0,0\n"
                                    "field TxtFlow 12,5\n"
                                    "cell 2 3 \"a b\"\n"
                                    "button cmdOK\n"
                                    "simulate\n"
                                    "save \"out dir/a.sim\"\n");
    ASSERT_EQ(r.Error, "");
    const auto& l = r.Script.Lines;
    ASSERT_EQ(l.size(), 20u);
    EXPECT_EQ(std::make_tuple(l[0].Line, l[0].Width, l[1].View), std::make_tuple(2, 640, ViewKind::ThreeD));
    EXPECT_DOUBLE_EQ(l[1].Angle2, 45);
    EXPECT_DOUBLE_EQ(l[2].Points[1].X, 1000);
    EXPECT_FALSE(l[3].LevelByRL);
    EXPECT_EQ(l[3].Text, "U/Ground");
    EXPECT_TRUE(l[4].LevelByRL);
    EXPECT_EQ(std::make_tuple(l[4].RL, l[5].Value, l[6].Value, l[7].Button, l[7].Shift),
              std::make_tuple(490, 15, 6, 2, 1));
    EXPECT_DOUBLE_EQ(l[8].Points[0].X, 15.5);
    EXPECT_TRUE(l[9].Points[0].HasZ);
    EXPECT_EQ(std::make_tuple(l[10].Points.size(), l[11].Value, l[13].Answer, l[13].Text),
              std::make_tuple(2u, 116, AnswerKind::Text, "B 7"));
    EXPECT_TRUE(l[14].Copy);
    EXPECT_DOUBLE_EQ(l[14].Points[1].X, 5);
    EXPECT_EQ(std::make_tuple(l[15].Value2, l[16].Value2, l[19].Text), std::make_tuple("12,5", "a b", "out dir/a.sim"));
}

TEST(ScriptReader, RefusesWithTheLineAndTheReason) {
    const struct {
        const char* Text;
        const char* Error;
    } cases[] = {
        {"window 800 600\nfly 1,2\n", "line 2: unknown command \"fly\""},
        {"press 1O0,5\n", "line 1: \"1O0\" is not a number"},
        {"press 100\n", "line 1: \"100\" is not a point X,Y or X,Y,Z"},
        {"press 1,2,3,4\n", "line 1: \"1,2,3,4\" is not a point X,Y or X,Y,Z"},
        {"press 1,nan\n", "line 1: \"nan\" is not a number"},
        {"press 1,1e300\n", "line 1: \"1e300\" is out of range"},
        {"press 1,2 left\n", "line 1: unexpected \"left\" after press"},
        {"release 1,2 shift\n", "line 1: unexpected \"shift\" after release"},
        {"menu mnuFly\n", "line 1: unknown menu name \"mnuFly\""},
        {"menu\n", "line 1: menu needs more values"},
        {"tool hammer\n", "line 1: unknown tool \"hammer\""},
        {"tool 40\n", "line 1: unknown tool \"40\""},
        {"key F13\n", "line 1: unknown key \"F13\""},
        {"view side\n", "line 1: unknown view \"side\" (plan, section or 3d)"},
        {"view 3d 30\n", "line 1: view 3d takes 2 angle(s)"},
        {"window 10 600\n", "line 1: \"10\" is not a whole number from 50 to 20000"},
        {"answer maybe\n", "line 1: unknown answer \"maybe\" (yes, no, ok, cancel or a \"text\")"},
        {"answer \"open\n", "line 1: a quoted text has no closing quote"},
        {"coords 1,2\n", "line 1: coords needs X,Y,Z"},
        {"coords 20000000,0,0\n", "line 1: Coordinates exceed allowed values"},
        {"coords 0,0,9999000 0,0,1000\n", "line 1: Coordinates exceed allowed values"},
        {"level 12.5\n", "line 1: \"12.5\" is no elevation in whole metres"},
        {"simulate now\n", "line 1: unexpected \"now\" after simulate"},
        {"\n\n# fine\n  box 0,0\n", "line 4: box needs more values"},
    };
    for (const auto& c : cases) EXPECT_EQ(ReadScript(c.Text, commands::IsMenuCommand).Error, c.Error) << c.Text;
}

} // namespace
