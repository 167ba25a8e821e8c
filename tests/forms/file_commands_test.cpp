// The File menu's commands: the command line, New, Open, the recent files, Save and Save As,
// the recovery offer, the questions at the end, and the title note.
#include <gtest/gtest.h>

#include <tuple>

#include <filesystem>

#include "files/network_file.h"
#include "forms/file_commands.h"
#include "forms_support.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

const std::string kDemo = std::string(KARVANE_EXAMPLES) + "/demo-mine.sim";

TEST(CommandLine, QuotesComeOffAndOnlyNetworkFilesAreTaken) {
    EXPECT_EQ(CommandLineFile("\"/mines/North Pit.sim\""), "/mines/North Pit.sim");
    EXPECT_EQ(CommandLineFile("/mines/north.SMM"), "/mines/north.SMM");
    EXPECT_EQ(CommandLineFile("/mines/north.Sim"), "/mines/north.Sim");
    EXPECT_EQ(CommandLineFile("\"/mines/north.dxf\""), "");
    EXPECT_EQ(CommandLineFile("/mines/north.sim.bak"), "");
    EXPECT_EQ(CommandLineFile(""), "");
    // A lone quote at one end only is part of the name, which then fails the extension test.
    EXPECT_EQ(CommandLineFile("\"/mines/north.sim"), "\"/mines/north.sim");
    EXPECT_EQ(CommandLineFile("/mines/north.sim\""), "");
}

TEST(SaveAs, CancelPutsTheNameBackAndAChoiceSavesUnderIt) {
    FormScene s;
    s.Add(0, 0, 500, 100, 0, 500);
    s.M.FileName = "/mines/north.SIM";
    s.Ui.FilePaths.push_back(std::nullopt);
    EXPECT_FALSE(SaveAsCommand(s.M, s.Ui, s.Host));
    EXPECT_EQ(s.M.FileName, "/mines/north.SIM");
    ASSERT_EQ(s.Ui.Transcript.size(), 1u);
    EXPECT_EQ(s.Ui.Transcript[0].Kind, "Save");

    const std::string target = s.Temp.File("saved.sim");
    s.Ui.FilePaths.push_back(target);
    EXPECT_TRUE(SaveAsCommand(s.M, s.Ui, s.Host));
    EXPECT_EQ(s.M.FileName, target);
    EXPECT_FALSE(s.M.MasterFile);
    EXPECT_TRUE(std::filesystem::exists(target));
    EXPECT_EQ(std::make_tuple(s.M.NetworkSaved, s.M.RecentFiles[1]), std::make_tuple(Yes255, target));
    EXPECT_TRUE(s.Host.Called("BeforeSave"));

    // An empty choice is refused with its message.
    s.Ui.FilePaths.push_back(std::string());
    EXPECT_FALSE(SaveAsCommand(s.M, s.Ui, s.Host));
    EXPECT_TRUE(s.Ui.Said("Error Save File - Check Name"));
    EXPECT_EQ(s.M.FileName, target);
}

TEST(Save, AMasterFileOrANetworkWithoutANameGoesBySaveAs) {
    FormScene s;
    s.Add(0, 0, 500, 100, 0, 500);
    s.Ui.FilePaths.push_back(std::nullopt);
    EXPECT_FALSE(SaveCommand(s.M, s.Ui, s.Host));
    EXPECT_EQ(s.Ui.Texts("Save").size(), 1u);

    s.M.FileName = s.Temp.File("master.smm");
    s.M.MasterFile = true;
    s.Ui.FilePaths.push_back(std::nullopt);
    EXPECT_FALSE(SaveCommand(s.M, s.Ui, s.Host));
    EXPECT_EQ(std::make_tuple(s.Ui.Texts("Save").size(), s.M.FileName), std::make_tuple(2u, s.Temp.File("master.smm")));

    s.M.FileName = s.Temp.File("plain.sim");
    s.M.MasterFile = false;
    EXPECT_TRUE(SaveCommand(s.M, s.Ui, s.Host));
    EXPECT_EQ(s.Ui.Texts("Save").size(), 2u);
    EXPECT_TRUE(std::filesystem::exists(s.Temp.File("plain.sim")));
}

TEST(NewNetwork, AsksOnlyWhenSomethingWouldBeLost) {
    FormScene s;
    EXPECT_TRUE(NewNetworkCommand(s.M, s.Ui, s.Host));
    EXPECT_TRUE(s.Ui.Texts("Ask").empty());
    EXPECT_TRUE(s.Host.Called("AfterNewNetwork"));

    s.Add(0, 0, 500, 100, 0, 500);
    s.M.FileName = "/mines/north.sim";
    s.Ui.Answers.push_back(ui::Answer::Cancel);
    EXPECT_FALSE(NewNetworkCommand(s.M, s.Ui, s.Host));
    EXPECT_EQ(s.M.AirwayCount, 1);
    ASSERT_EQ(s.Ui.Transcript.back().Title, "Data Exists");
    EXPECT_EQ(s.Ui.Transcript.back().Text, "Current Data will be lost ?");

    s.Ui.Answers.push_back(ui::Answer::OK);
    EXPECT_TRUE(NewNetworkCommand(s.M, s.Ui, s.Host));
    EXPECT_EQ(std::make_tuple(s.M.AirwayCount, s.M.FileName, s.M.Levels[1].RLName, s.M.Levels[2].RLName),
              std::make_tuple(0, "", "SURFACE", "U/Ground"));
}

TEST(Open, AnUnsavedNetworkIsOfferedForSavingFirst) {
    FormScene s;
    s.Add(0, 0, 500, 100, 0, 500);
    s.M.NetworkSaved = No0;
    s.Ui.Answers.push_back(ui::Answer::Cancel);
    EXPECT_FALSE(OpenCommand(s.M, s.Ui, s.Host));
    EXPECT_TRUE(s.Ui.Said("Network Data is not saved - Save it?"));
    EXPECT_TRUE(s.Ui.Texts("Open").empty()); // Cancel stops before the dialog
    EXPECT_EQ(s.M.AirwayCount, 1);

    s.Ui.Answers.push_back(ui::Answer::No);
    s.Ui.FilePaths.push_back(kDemo);
    EXPECT_TRUE(OpenCommand(s.M, s.Ui, s.Host));
    EXPECT_GT(s.M.AirwayCount, 100);
    EXPECT_EQ(std::make_tuple(s.M.FileName, s.M.RecentFiles[1]), std::make_tuple(kDemo, kDemo));
    EXPECT_TRUE(s.Host.Called("AfterLoad"));
    EXPECT_EQ(s.M.NetworkSaved, Yes255);
}

TEST(RecentFiles, AnEmptyEntryDoesNothingAndAnEntryLoads) {
    FormScene s;
    EXPECT_FALSE(RecentFileCommand(s.M, s.Ui, s.Host, 3));
    EXPECT_TRUE(s.Host.Calls.empty());
    s.M.RecentFiles[3] = kDemo;
    EXPECT_TRUE(RecentFileCommand(s.M, s.Ui, s.Host, 3));
    EXPECT_EQ(std::make_tuple(s.M.FileName, s.M.RecentFiles[1]), std::make_tuple(kDemo, kDemo));
}

TEST(Recovery, TheAutosaveCopyIsOfferedAndLoadsWithoutAName) {
    FormScene s;
    EXPECT_FALSE(OfferRecovery(s.M, s.Ui, s.Host));
    EXPECT_TRUE(s.Ui.Transcript.empty());

    std::filesystem::copy_file(kDemo, RecoveryFilePath(s.Ui));
    s.M.FileName = "/mines/north.sim";
    s.Ui.Answers.push_back(ui::Answer::No);
    EXPECT_FALSE(OfferRecovery(s.M, s.Ui, s.Host));
    EXPECT_EQ(
        std::make_tuple(s.Ui.Transcript.back().Title, s.Ui.Transcript.back().Text, s.M.AirwayCount),
        std::make_tuple("Auto save recovery", "An autosaved recovery file exists - do you wish to load this file", 0));

    s.Ui.Answers.push_back(ui::Answer::Yes);
    EXPECT_TRUE(OfferRecovery(s.M, s.Ui, s.Host));
    EXPECT_GT(s.M.AirwayCount, 100);
    EXPECT_EQ(s.M.FileName, ""); // saving asks for a name
    EXPECT_TRUE(std::filesystem::exists(RecoveryFilePath(s.Ui)));
}

TEST(End, CancelOnEitherQuestionKeepsTheProgramRunning) {
    FormScene s;
    s.Add(0, 0, 500, 100, 0, 500);
    EXPECT_TRUE(ConfirmEnd(s.M, s.Ui, s.Host));
    EXPECT_TRUE(s.Ui.Transcript.empty());

    s.M.NetworkSaved = No0;
    s.Ui.Answers.push_back(ui::Answer::Cancel);
    EXPECT_FALSE(ConfirmEnd(s.M, s.Ui, s.Host));
    EXPECT_EQ(s.Ui.Transcript.back().Text, "Karvane data is not saved - Save it?");

    // Yes on a network without a name asks for one; no name given, the program stays.
    s.Ui.Answers.push_back(ui::Answer::Yes);
    s.Ui.FilePaths.push_back(std::nullopt);
    EXPECT_FALSE(ConfirmEnd(s.M, s.Ui, s.Host));

    s.M.DefaultsSaved = No0;
    s.Ui.Answers = {ui::Answer::No, ui::Answer::Cancel};
    EXPECT_FALSE(ConfirmEnd(s.M, s.Ui, s.Host));
    EXPECT_EQ(s.Ui.Transcript.back().Text, "Karvane defaults are not saved - Save them?");
    s.Ui.Answers = {ui::Answer::No, ui::Answer::No};
    EXPECT_TRUE(ConfirmEnd(s.M, s.Ui, s.Host));

    // The clean end writes the recent files and takes the autosave copy away.
    std::filesystem::copy_file(kDemo, RecoveryFilePath(s.Ui));
    s.M.RecentFiles[1] = kDemo;
    FinishEnd(s.M, s.Ui);
    EXPECT_FALSE(std::filesystem::exists(RecoveryFilePath(s.Ui)));
    EXPECT_EQ(s.Ui.Store["Karvane/Files/Name1"], kDemo);
}

TEST(TitleNote, CommasAndQuotesAreRefused) {
    FormScene s;
    s.Ui.Inputs.push_back(std::string("North Decline, stage 2"));
    TitleNoteCommand(s.M, s.Ui, s.Host);
    EXPECT_TRUE(s.Ui.Said("Commas not allowed in comment !"));
    EXPECT_EQ(s.M.FileComment, "");
    s.Ui.Inputs.push_back(std::string("North \"Decline\""));
    TitleNoteCommand(s.M, s.Ui, s.Host);
    EXPECT_TRUE(s.Ui.Said("Invalid comment text"));
    EXPECT_EQ(s.M.FileComment, "");
    s.Ui.Inputs.push_back(std::string("North Decline"));
    TitleNoteCommand(s.M, s.Ui, s.Host);
    EXPECT_EQ(s.M.FileComment, "North Decline");
    // The box offers the note as it stands; Cancel blanks it.
    s.Ui.Inputs.push_back(std::nullopt);
    TitleNoteCommand(s.M, s.Ui, s.Host);
    EXPECT_EQ(s.M.FileComment, "");
}

} // namespace
} // namespace karvane::forms
