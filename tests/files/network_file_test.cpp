// The network file of the current version: its exact text, the round trip of every field
// under both decimal separators, the save steps with their messages, and the row text.
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "files/network_load.h"
#include "files/number_text.h"
#include "network_fixture.h"
#include "support/golden.h"

using namespace karvane;
using namespace karvane::files;
using namespace karvane::testing;

namespace {

// Loads a text as a network file in a folder of its own; returns the loaded model's text.
bool LoadText(Model& model, AppFolder& dir, const std::string& text, const std::string& name = "in.sim") {
    dir.Write(name, text);
    return LoadNetwork(model, dir.File(name), dir.Ui);
}

std::vector<std::string> Tabs(const std::string& line) { return SplitText(line, "\t"); }

} // namespace

// Written under either decimal separator and read on a machine of the other: the same bytes
// when written again.
TEST(NetworkFile, WriteReadWriteGivesTheSameBytes) {
    for (char sep : {'.', ','}) {
        AppFolder dir;
        Model model;
        BuildFullNetwork(model, dir.Ui);
        const std::string first = NetworkText(model, sep);
        EXPECT_TRUE(first.starts_with(sep == '.' ? "3.1 KARVANE3\t" : "3,1 KARVANE3\t"));

        Model loaded = BuiltInModel();
        loaded.FanStamp = model.FanStamp; // the stamp is the program's fan file's, not the network's
        dir.Ui.Separator = sep == '.' ? ',' : '.';
        dir.Write("in.sim", first);
        LoadReport report;
        LoadOptions options;
        options.Report = &report;
        ASSERT_TRUE(LoadNetwork(loaded, dir.File("in.sim"), dir.Ui, options)) << sep;
        EXPECT_EQ(report.FileSeparator, sep);
        EXPECT_DOUBLE_EQ(report.FileVersion, 3.1);
        EXPECT_EQ(NetworkText(loaded, sep), first) << "separator " << sep;

        // Spot checks that the fields came to their places, not only their text through.
        EXPECT_EQ(loaded.FileNote, "First line\r\nSecond\tline\r\n");
        EXPECT_EQ(loaded.Airways[2].Comment, "Reg. 1,2");
        EXPECT_EQ(loaded.Airways[3].Resistance, 1000000000.0f);
        EXPECT_TRUE(loaded.Fans[2].IsFree());
        EXPECT_EQ(loaded.SavedViews[7].ViewName, "Ninth");         // named views close up from slot 6
        EXPECT_EQ(loaded.FloatingTexts[2].TextValue, "Fan house"); // text slots in use too
        EXPECT_EQ(loaded.NetworkSaved, Yes255);
    }
}

// Every section of the current version, written from a network with every kind of field: the
// stored text is the format, byte for byte.
TEST(NetworkFile, ExactSections) {
    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);
    ExpectGolden("full_network.sim", NetworkText(model, '.'));
}

TEST(NetworkFile, EmptyNetworkHasOneBlankAirwayLine) {
    AppFolder dir;
    Model model = BuiltInModel();
    SetNewNetworkLevels(model);
    SettleAsLoaded(model, dir.Ui);
    model.Airways[1].BranchName = "left over"; // not a row of the network
    const std::string text = NetworkText(model, '.');
    const std::vector<std::string> lines = FileLines(text);
    ASSERT_GE(lines.size(), 2u);
    EXPECT_TRUE(lines[lines.size() - 2].starts_with("Entry Node\t"));
    EXPECT_EQ(lines.back(),
              "\t\t\t\t\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0"
              "\t0\t0\t0\t0");

    Model loaded = BuiltInModel();
    loaded.AirwayCount = 3;
    EXPECT_TRUE(LoadText(loaded, dir, text));
    EXPECT_EQ(loaded.AirwayCount, 0);
    EXPECT_EQ(NetworkText(loaded, '.'), text);
}

TEST(NetworkFile, SaveStepsAndStamp) {
    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);
    model.FileNote = "note";
    model.FileName = dir.File("mine.sim");
    model.NetworkSaved = No0;
    dir.Ui.Clock = {2025, 1, 1, 0, 0, 1, 3};

    ASSERT_TRUE(SaveNetwork(model, dir.Ui, 0));
    EXPECT_EQ(model.FileNote, "note\r*** File Saved 00:00:01   Wed, 1 Jan 2025 ***\r");
    EXPECT_EQ(model.NetworkSaved, Yes255);
    EXPECT_EQ(model.RecentFiles[1], dir.File("mine.sim"));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    const std::string saved = dir.Read("mine.sim");
    EXPECT_NE(saved.find("note\x1e*** File Saved 00:00:01   Wed, 1 Jan 2025 ***\x1e\t"), std::string::npos);

    // A master file is saved only after the question; No writes nothing.
    model.MasterFile = true;
    dir.Ui.Answers = {ui::Answer::No};
    model.NetworkSaved = No0;
    EXPECT_FALSE(SaveNetwork(model, dir.Ui, 0));
    EXPECT_EQ(dir.Ui.Transcript.back().Title, "Master File");
    EXPECT_EQ(dir.Ui.Transcript.back().Text, "You are about to save as a Master file - are you sure ?");
    EXPECT_EQ(dir.Read("mine.sim"), saved);
    EXPECT_EQ(model.NetworkSaved, No0);
    model.MasterFile = false;

    // A contaminant simulation on show must be cleared first.
    model.GasActive = GasDisplay::Spread;
    EXPECT_FALSE(SaveNetwork(model, dir.Ui, 0));
    EXPECT_EQ(dir.Ui.Texts("Message").back(), "Clear gas simulation first !");
    EXPECT_EQ(dir.Read("mine.sim"), saved);
    model.GasActive = GasDisplay::None;

    // No view window, or no name: nothing is written and nothing said.
    const std::size_t said = dir.Ui.Transcript.size();
    model.ViewWindowOpen = false;
    EXPECT_FALSE(SaveNetwork(model, dir.Ui, 0));
    model.ViewWindowOpen = true;
    model.FileName.clear();
    EXPECT_FALSE(SaveNetwork(model, dir.Ui, 0));
    EXPECT_EQ(dir.Ui.Transcript.size(), said);
    EXPECT_EQ(dir.EntryCount(), 1u);
}

TEST(NetworkFile, AutosaveLeavesNameAndRecentFilesAlone) {
    AppFolder dir;
    AppFolder temp;
    dir.Ui.Temp = temp.Path.string();
    Model model;
    BuildFullNetwork(model, dir.Ui);
    model.FileName.clear();
    model.MasterFile = true; // the autosave never asks
    model.NetworkSaved = No0;
    model.GasActive = GasDisplay::Sourcing;

    ASSERT_TRUE(SaveNetwork(model, dir.Ui, AutosaveMode));
    EXPECT_TRUE(temp.Exists("tempsim.sim"));
    EXPECT_EQ(model.FileName, "");
    EXPECT_EQ(model.RecentFiles[1], "");
    EXPECT_EQ(model.NetworkSaved, Yes255);
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_TRUE(model.FileNote.ends_with(" ***\r"));
    EXPECT_EQ(temp.EntryCount(), 1u);

    model.FileName = dir.File("named.sim");
    ASSERT_TRUE(SaveNetwork(model, dir.Ui, AutosaveMode));
    EXPECT_EQ(model.FileName, dir.File("named.sim"));
    EXPECT_FALSE(dir.Exists("named.sim"));
}

TEST(NetworkFile, FailedSaveKeepsTheOldFileAndBlanksTheName) {
    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);

    model.FileName = (dir.Path / "no such folder" / "mine.sim").string();
    model.NetworkSaved = No0;
    EXPECT_FALSE(SaveNetwork(model, dir.Ui, 0));
    EXPECT_EQ(dir.Ui.Texts("Message").back(), "ERROR 76: That path doesn't exist.");
    EXPECT_EQ(model.FileName, "");
    EXPECT_EQ(model.NetworkSaved, No0);

    // A folder where the file should be: the error by its code, and the folder untouched.
    std::filesystem::create_directory(dir.Path / "taken.sim");
    model.FileName = dir.File("taken.sim");
    EXPECT_FALSE(SaveNetwork(model, dir.Ui, 0));
    EXPECT_EQ(dir.Ui.Texts("Message").back(), "ERROR 75 occurred saving file");
    EXPECT_TRUE(std::filesystem::is_directory(dir.Path / "taken.sim"));

    // An autosave that fails keeps the network's name.
    dir.Ui.Temp = (dir.Path / "gone").string();
    model.FileName = dir.File("keep.sim");
    EXPECT_FALSE(SaveNetwork(model, dir.Ui, AutosaveMode));
    EXPECT_EQ(model.FileName, dir.File("keep.sim"));
}

TEST(NetworkFile, RowTextAndParse) {
    ui::ScriptedUserInterface ui;
    Model model = BuiltInModel();
    model.AirwayCount = 1;
    Airway& a = model.Airways[1];
    a = MakeAirway("  A  ", "B\tC", " Name ", 1, 2, 3, 4, 5, 6);
    const std::string text = AirwayRowText(model, 1, '.');
    EXPECT_EQ(a.EntryNode, "A"); // trimmed and stored back
    EXPECT_EQ(a.BranchName, "Name");
    EXPECT_TRUE(text.starts_with("A\tB C\tName\t\t\t1\t2\t3\t4\t5\t6\t4.5\t5\t1\t"));
    EXPECT_EQ(Tabs(text).size(), 39u);

    // A short row leaves the missing fields empty: numbers read 0, and fields 26 to 31 keep
    // what the row held.
    a.Pressure = 7;
    a.Contaminant = 8;
    a.PrimaryLayer = 3;
    a.SecondLayer = 4;
    a.FromNodeP = 9;
    a.ToNodeP = 10;
    a.AirwayNo = 55;
    ParseAirwayRow(model, ui, "P\tQ\tR\t\t\t10\t20\t30\t40\t50\t60\t2\t3\t2\t1\t2\t3\t0,01\t5\tnote", 1, 3.1, '.');
    EXPECT_EQ(AirwayRowText(model, 1, '.'),
              "P\tQ\tR\t\t\t10\t20\t30\t40\t50\t60\t2\t3\t2\t1\t2\t3\t0.01\t5\tnote\t0\t0\t0\t0\t0\t7\t8\t3\t"
              "4\t9\t10\t0\t0\t0\t0\t0\t0\t0\t0");

    // Names and comments are cut at their widths, keys read as fixed point, numbers beyond their
    // types held at the ends of the type.
    ParseAirwayRow(model, ui,
                   std::string(50, 'n') + "\t\t\t12.5\tx\t99999999999\t0\t0\t0\t0\t0\t1E+99\t0\t0\t70000\t\t\t\t\t" +
                       std::string(20, 'c'),
                   1, 3.1, '.');
    EXPECT_EQ(AirwayRowText(model, 1, '.'),
              std::string(40, 'n') +
                  "\t\t\t\t\t2147483647\t0\t0\t0\t0\t0\t3.402823E+38\t0\t0\t32767\t0\t0\t0\t0\tcccccccccccc\t0\t0\t"
                  "0\t0\t0\t7\t8\t3\t4\t9\t10\t0\t0\t0\t0\t0\t0\t0\t0");
    EXPECT_EQ(a.EntryKey, 125000);
    EXPECT_EQ(a.ExitKey, 0);
}

TEST(NetworkFile, OldPresetIndicesBecomeCustom) {
    ui::ScriptedUserInterface ui;
    Model model = BuiltInModel();
    auto types = [&](double version) {
        ParseAirwayRow(model, ui, "a\tb\tc\t\t\t0\t0\t0\t1\t1\t1\t1\t1\t1\t10\t6\t10", 1, version, '.');
        const Airway& a = model.Airways[1];
        return std::vector<int>{a.ResType, a.ShockType, a.WallType};
    };
    EXPECT_EQ(types(3.1), (std::vector<int>{10, 6, 10}));
    EXPECT_EQ(types(2.9), (std::vector<int>{10, 6, 10}));
    EXPECT_EQ(types(2.8), (std::vector<int>{10, 50, 50}));
    EXPECT_EQ(types(2.5), (std::vector<int>{10, 50, 50}));
    ParseAirwayRow(model, ui, "a,b,c,,,0,0,0,1,1,1,1,1,1,10,6,10", 1, 2.4, '.');
    EXPECT_EQ(model.Airways[1].ResType, 10);
    ParseAirwayRow(model, ui, "a,b,c,,,0,0,0,1,1,1,1,1,1,10,6,10", 1, 2.0, '.');
    EXPECT_EQ(model.Airways[1].ResType, 50);
    EXPECT_EQ(model.Airways[1].WallType, 50);
}

TEST(NetworkFile, RowBeyondTheTable) {
    ui::ScriptedUserInterface ui;
    Model model = BuiltInModel();
    model.AirwayCount = 10;
    ParseAirwayRow(model, ui, "a\tb", MaxAirways + 1, 3.1, '.');
    EXPECT_EQ(
        ui.Texts("Message"),
        std::vector<std::string>{"Insufficient memory for undo function - please increase file size in defaults"});
    EXPECT_EQ(model.AirwayCount, MaxAirways);
}
