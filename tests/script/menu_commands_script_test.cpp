// Every main window command by its control name, run in a session where every question is
// declined: each one runs to its end or says that its window cannot be filled in by a script,
// and none of them changes the network without the user's yes.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "commands/menu_commands.h"
#include "script_support.h"

using namespace karvane;
using karvane::script::testing::ScriptRig;

namespace {

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
