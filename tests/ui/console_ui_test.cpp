// The batch user interface: one line per message, answers by policy and by kind of question,
// the cap on repeated yes answers, and the in-memory settings store.
#include <gtest/gtest.h>

#include <sstream>

#include "ui/console_ui.h"

using namespace karvane::ui;

TEST(ConsoleUi, EveryMessageIsOneLineWithItsTitle) {
    std::ostringstream err;
    ConsoleUserInterface ui(err, "/opt/karvane/");
    ui.Message("Error occured loading file\r\nDo you wish to continue loading?", "Error", Icon::Critical);
    ui.Message("Maximum Number of Airways Exceeded\nIncrease allowable number of branches in Defaults !", "",
               Icon::None);
    ui.Notice("Layer pasted", 400);
    EXPECT_EQ(err.str(), "Error: Error occured loading file Do you wish to continue loading?\n"
                         "Karvane: Maximum Number of Airways Exceeded Increase allowable number of branches in "
                         "Defaults !\n"
                         "Karvane Messenger: Layer pasted\n");
    // The transcript keeps the texts as they were given.
    ASSERT_EQ(ui.Transcript.size(), 3u);
    EXPECT_EQ(ui.Transcript[0].Text, "Error occured loading file\r\nDo you wish to continue loading?");
    EXPECT_EQ(ui.Warnings, 1);
    EXPECT_EQ(ui.AppPath(), "/opt/karvane");
    EXPECT_EQ(ui.DecimalSeparator(), '.');
    EXPECT_FALSE(ui.TempPath().empty());
    EXPECT_NE(ui.TempPath().back(), '/');
}

TEST(ConsoleUi, QuestionsFollowThePolicyByKind) {
    std::ostringstream err;
    ConsoleUserInterface ui(err, "/x");
    // The cautious answers by default.
    EXPECT_EQ(ui.Ask("Duplicate branches exist - delete them ?", "Duplicate branches", Buttons::YesNo, Icon::Question),
              Answer::No);
    EXPECT_EQ(ui.Ask("Current defaults will be lost!", "Reload Defaults", Buttons::OKCancel, Icon::Question),
              Answer::Cancel);
    EXPECT_EQ(ui.Ask("Done", "Note", Buttons::OK, Icon::None), Answer::OK);
    EXPECT_EQ(ui.Input("Enter the orifice area in m2", "Orifice resistance wizard", "1.5"), std::nullopt);
    EXPECT_EQ(ui.OpenFileDialog({"Open", "Karvane Data (*.sim)", "sim", "", ""}), std::nullopt);
    EXPECT_EQ(err.str(), "Duplicate branches: Duplicate branches exist - delete them ? -> No\n"
                         "Reload Defaults: Current defaults will be lost! -> Cancel\n"
                         "Note: Done -> OK\n"
                         "Orifice resistance wizard: Enter the orifice area in m2 -> Cancel\n"
                         "Open: Karvane Data (*.sim) -> Cancel\n");
    ASSERT_EQ(ui.Transcript.size(), 5u);
    EXPECT_EQ(ui.Transcript[0].Answer, "No");
    EXPECT_EQ(ui.Transcript[1].Answer, "Cancel");

    ui.Policy = AnswerPolicy::Yes;
    EXPECT_EQ(ui.Ask("Karvane data is not saved - Save it?", "Karvane", Buttons::YesNoCancel, Icon::Question),
              Answer::Yes);
    EXPECT_EQ(ui.Ask("Current defaults will be lost!", "Reload Defaults", Buttons::OKCancel, Icon::Question),
              Answer::OK);
    EXPECT_EQ(ui.Input("Enter the orifice area in m2", "Orifice resistance wizard", "1.5"), "1.5");
    ui.FilePaths.push_back("/data/mine.sim");
    EXPECT_EQ(ui.SaveFileDialog({"Save", "Karvane Data (*.sim)", "sim", "", ""}), "/data/mine.sim");
    EXPECT_EQ(ui.SaveFileDialog({"Save", "Karvane Data (*.sim)", "sim", "", ""}), std::nullopt);
}

TEST(ConsoleUi, AQuestionThatKeepsComingBackIsAnsweredYesOnlyAFewTimes) {
    std::ostringstream err;
    ConsoleUserInterface ui(err, "/x");
    ui.Policy = AnswerPolicy::Yes;
    const std::string retry = "Error occured loading file\r\nDo you wish to continue loading?";
    for (int i = 0; i < ui.MaxRepeatYes; ++i)
        EXPECT_EQ(ui.Ask(retry, "Error", Buttons::YesNo, Icon::Question), Answer::Yes);
    EXPECT_EQ(ui.Ask(retry, "Error", Buttons::YesNo, Icon::Question), Answer::No);
    EXPECT_EQ(ui.Ask(retry, "Error", Buttons::YesNo, Icon::Question), Answer::No);
    // Another question in between starts the count again.
    EXPECT_EQ(ui.Ask("Allow Karvane to estimate fan diameters?", "Total Pressures", Buttons::YesNo, Icon::Question),
              Answer::Yes);
    EXPECT_EQ(ui.Ask(retry, "Error", Buttons::YesNo, Icon::Question), Answer::Yes);
}

TEST(ConsoleUi, SettingsLiveInMemoryAndTheClockCanBeFixed) {
    std::ostringstream err;
    ConsoleUserInterface a(err, "/x"), b(err, "/x");
    EXPECT_EQ(a.GetSetting("Karvane", "Files", "DefaultDir", "none"), "none");
    a.SaveSetting("Karvane", "Files", "DefaultDir", "/mines");
    EXPECT_EQ(a.GetSetting("Karvane", "Files", "DefaultDir", "none"), "/mines");
    EXPECT_EQ(a.GetSetting("Karvane", "Other", "DefaultDir", "none"), "none");
    EXPECT_EQ(b.GetSetting("Karvane", "Files", "DefaultDir", "none"), "none");

    DateTime now = a.Now();
    EXPECT_GE(now.Year, 2024);
    EXPECT_TRUE(now.Month >= 1 && now.Month <= 12 && now.WeekDay >= 0 && now.WeekDay <= 6);
    a.FixedClock = DateTime{2026, 3, 4, 5, 6, 7, 3};
    EXPECT_EQ(a.Now().Day, 4);
    EXPECT_EQ(a.Now().Second, 7);
}
