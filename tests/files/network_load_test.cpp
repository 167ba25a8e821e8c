// Loading network files of every version, the messages of a refused or broken file, files cut
// short or full of noise, the capacity of the airway table, the open dialog and the merge.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <random>
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

const std::string LoadQuestion = "Error occured loading file\nDo you wish to continue loading?";
const std::string TotalPressureQuestion = "Karvane now has a 'TOTAL PRESSURE' estimating function for fan power "
                                          "calculation\n\nAllow Karvane to estimate fan diameters and use this "
                                          "function?  ";
const std::string TooBig = "File too big for current Karvane Settings - Increase Default Size";

std::string Fixture(const std::string& name) { return std::string(KARVANE_TEST_DATA) + "/" + name; }

struct Loaded {
    Model model;
    AppFolder dir;
    LoadReport report;
    bool ok = false;
};

// Loads a file into a model that starts from the built-in values.
void LoadFile(Loaded& l, const std::string& path, std::deque<ui::Answer> answers = {}) {
    SetUpBuiltIn(l.model);
    SetNewNetworkLevels(l.model);
    l.dir.Ui.Answers = std::move(answers);
    l.dir.Ui.DefaultAnswer = ui::Answer::No;
    LoadOptions options;
    options.Report = &l.report;
    l.ok = LoadNetwork(l.model, path, l.dir.Ui, options);
}

std::size_t CountAsked(const ui::ScriptedUserInterface& ui, const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(ui.Transcript.begin(), ui.Transcript.end(),
                      [&](const ui::TranscriptEntry& e) { return e.Kind == "Ask" && e.Text == text; }));
}

const Airway* FindByName(const Model& model, const std::string& name) {
    for (std::int32_t row = 1; row <= model.AirwayCount; ++row)
        if (model.Airways[static_cast<std::size_t>(row)].BranchName == name)
            return &model.Airways[static_cast<std::size_t>(row)];
    return nullptr;
}

} // namespace

// Every version's fixture loaded and written again in the current form: the golden text holds
// every field where the loader put it (old custom indices, friction of the true density brought
// to 1.2, a blocked resistance of 2.7 read as 10000, views following the axis, layers switched
// on, fonts kept from 2.8, floating text from 2.6, fan diameters estimated on request).
TEST(NetworkLoad, EveryVersionAsWrittenNow) {
    struct Case {
        const char* File;
        std::deque<ui::Answer> Answers;
        double Version;
        char Separator; // the decimal separator of the file where it is not this machine's
        bool Asked, Estimate, StartupView;
    };
    const std::vector<Case> cases{
        {"network_v10.sim", {}, 1.0, 0, false, false, false},
        {"network_v15.sim", {ui::Answer::Yes}, 1.5, 0, true, true, false},
        {"network_v20.sim", {ui::Answer::No}, 2.0, 0, true, false, true},
        {"network_v24.sim", {}, 2.4, 0, false, false, true},
        {"network_v25.sim", {}, 2.5, 0, false, false, true},
        {"network_v27.sim", {}, 2.7, ',', false, false, true},
        {"network_v29.sim", {}, 2.9, 0, false, false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.File);
        Loaded l;
        LoadFile(l, Fixture(c.File), c.Answers);
        ASSERT_TRUE(l.ok);
        EXPECT_DOUBLE_EQ(l.report.FileVersion, c.Version);
        EXPECT_EQ(l.report.FileSeparator, c.Separator);
        EXPECT_EQ(l.dir.Ui.Texts("Ask").size(), c.Asked ? 1u : 0u);
        EXPECT_EQ(l.report.EstimateDiameters, c.Estimate);
        EXPECT_EQ(l.report.StartupViewRead, c.StartupView);
        EXPECT_EQ(l.report.CurrentLevel, 2);
        EXPECT_EQ(l.report.CurRL, 500);
        EXPECT_EQ(l.model.CurrentRLMin, 480);
        EXPECT_EQ(l.model.CurrentRLMax, 520);
        EXPECT_EQ(l.model.NetworkSaved, Yes255);
        EXPECT_EQ(l.model.SimValid, Validity::NotValid);
        EXPECT_EQ(l.model.Airways[1].EntryKey, SurfaceKey); // keys rebuilt: the shaft top is at the surface
        ExpectGolden(std::string("loaded_") + c.File, NetworkText(l.model, '.'));
    }
}

// The smallest file of a version: the header, for 1.5 and later a settings section that is
// absent and an empty fan list, then two levels and no airway. Version 1.0 has its own layout:
// 99 levels of three items and airway items after them.
std::string SmallestFile(double version) {
    char number[8];
    std::snprintf(number, sizeof number, "%.1f", version);
    if (version == 1.0) {
        std::string text =
            std::string(number) + " KARVANE,\"Mine\",0,0\r\n\"SURFACE\",1000,1000\r\n\"Main\",520,480\r\n";
        for (int i = 3; i <= 99; ++i) text += "\"\",0,0\r\n";
        return text;
    }
    const std::string s = version > 2.4 ? "\t" : ",";
    std::string text = std::string(number) + " KARVANE" + s + "Mine" + s + "0" + s + "0" + s + "Note" + s + "0\r\n";
    if (version >= 1.5) text += "Defaults List absent\r\n**End of Fans\r\n";
    return text + "Level" + s + "Max" + s + "Min\r\nSURFACE" + s + "1000" + s + "1000\r\nMain" + s + "520" + s +
           "480\r\n**END OF RL\r\n";
}

TEST(NetworkLoad, TotalPressureQuestionOfEveryVersion) {
    AppFolder dir;
    for (int tenths = 10; tenths <= 31; ++tenths) {
        const double version = tenths / 10.0;
        SCOPED_TRACE(version);
        const std::string path = dir.File("v" + std::to_string(tenths) + ".sim");
        dir.Write("v" + std::to_string(tenths) + ".sim", SmallestFile(version));
        const bool asks = version >= 1.1 && version < 2.4;
        for (ui::Answer answer : {ui::Answer::Yes, ui::Answer::No}) {
            Loaded l;
            LoadFile(l, path, {answer});
            ASSERT_TRUE(l.ok);
            EXPECT_EQ(l.model.Levels[2].RLName, "Main");
            EXPECT_EQ(CountAsked(l.dir.Ui, TotalPressureQuestion), asks ? 1u : 0u);
            EXPECT_EQ(l.report.EstimateDiameters, asks && answer == ui::Answer::Yes);
        }
    }
}

TEST(NetworkLoad, RefusedFilesLeaveTheNetworkAlone) {
    struct Case {
        std::string bytes;
        std::string message;
    };
    const std::vector<Case> cases = {
        {"0.9 KARVANE\tOld\r\n", "Cannot read file format"},
        {"1.2 KARVAN\tx\r\n", "Not a KARVANE File - Action Aborted"},
        {"PK\x03\x04 binary", "Not a KARVANE File - Action Aborted"},
        {"3.1 karvane3\tlower case\r\n", "Not a KARVANE File - Action Aborted"},
    };
    for (const Case& c : cases) {
        AppFolder dir;
        Model model;
        BuildFullNetwork(model, dir.Ui);
        const std::string before = NetworkText(model, '.');
        dir.Write("bad.sim", c.bytes);
        EXPECT_FALSE(LoadNetwork(model, dir.File("bad.sim"), dir.Ui));
        EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{c.message}) << c.bytes;
        EXPECT_EQ(model.FileName, "");
        EXPECT_EQ(NetworkText(model, '.'), before);
    }

    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);
    EXPECT_FALSE(LoadNetwork(model, dir.File("missing.sim"), dir.Ui));
    EXPECT_FALSE(LoadNetwork(model, (dir.Path / "no folder" / "x.sim").string(), dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"),
              (std::vector<std::string>{"ERROR 53: That file doesn't exist.", "ERROR 76: That path doesn't exist."}));
    EXPECT_EQ(model.AirwayCount, 5);
}

TEST(NetworkLoad, MasterFileCautionAndRecentFiles) {
    AppFolder dir;
    Model source;
    BuildFullNetwork(source, dir.Ui);
    dir.Write("Master.SmM", NetworkText(source, '.'));
    Model model = BuiltInModel();
    model.MasterFile = true;
    EXPECT_TRUE(LoadNetwork(model, dir.File("Master.SmM"), dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"),
              std::vector<std::string>{"Caution - a MASTER SMM file is being loaded - this file will only be saved as "
                                       "a normal SIM file unless otherwise specified in the SAVE dialog box"});
    EXPECT_FALSE(model.MasterFile);
    EXPECT_EQ(model.RecentFiles[1], dir.File("Master.SmM"));

    // The recovery file goes to the front without the list being searched for it.
    model.RecentFiles[3] = dir.File("Master.SmM");
    model.RecentFiles[1] = "a.sim";
    LoadOptions recovery;
    recovery.Recovery = true;
    EXPECT_TRUE(LoadNetwork(model, dir.File("Master.SmM"), dir.Ui, recovery));
    EXPECT_EQ(model.RecentFiles[1], dir.File("Master.SmM"));
    EXPECT_EQ(model.RecentFiles[2], "a.sim");
    EXPECT_EQ(model.RecentFiles[4], dir.File("Master.SmM"));
}

// A file cut after every one of its lines: the load never breaks, what was read stays, and a
// file that stops inside a section brings the question once (answered No).
TEST(NetworkLoad, FileCutAtEveryLine) {
    AppFolder src;
    Model source;
    BuildFullNetwork(source, src.Ui);
    const std::vector<std::string> lines = FileLines(NetworkText(source, '.'));
    ASSERT_EQ(lines.size(), 59u);
    const std::size_t airwayHeading = 53, levelsEnd = 49;

    for (std::size_t keep = 0; keep <= lines.size(); ++keep) {
        AppFolder dir;
        dir.Ui.DefaultAnswer = ui::Answer::No;
        Model model;
        BuildFullNetwork(model, dir.Ui);
        model.Airways[1].BranchName = "old";
        dir.Write("cut.sim", JoinLines(lines, keep));
        const bool ok = LoadNetwork(model, dir.File("cut.sim"), dir.Ui);

        const bool ends = keep == levelsEnd + 1 || keep > airwayHeading;
        EXPECT_EQ(ok, ends) << keep;
        EXPECT_EQ(CountAsked(dir.Ui, LoadQuestion), ends ? 0u : 1u) << keep;
        if (keep == 0) {
            EXPECT_EQ(model.AirwayCount, 5); // nothing was read: the network stands
            EXPECT_EQ(model.Airways[1].BranchName, "old");
            continue;
        }
        const std::int32_t rows = keep > airwayHeading + 1 ? static_cast<std::int32_t>(keep - airwayHeading - 1) : 0;
        EXPECT_EQ(model.AirwayCount, rows) << keep;
        EXPECT_EQ(model.FileComment, "Test mine, east. No.2") << keep;
        EXPECT_EQ(model.FileName.empty(), !ends) << keep;
        EXPECT_EQ(model.NetworkSaved, ends ? Yes255 : No0) << keep;
        if (keep > levelsEnd) {
            EXPECT_EQ(model.Levels[3].RLName, "Level 2, east.") << keep;
        }
        if (keep > 21) {
            EXPECT_EQ(model.PrimaryLayers[1].Name, "Main, fresh.") << keep;
        }
    }
}

// The network's name after a load is the file's when the load reads to its end, none when it
// fails; a merge, whatever its outcome, keeps the name the network had.
TEST(NetworkLoad, NameAfterALoadOrAMerge) {
    AppFolder src;
    Model source;
    BuildFullNetwork(source, src.Ui);
    const std::string full = NetworkText(source, '.');
    struct Case {
        const char* Name;
        bool Merge;
        std::string Bytes; // empty: no file at all
        bool Read;
        bool KeepsName;
    };
    const Case cases[] = {
        {"whole file", false, full, true, false},
        {"not a network file", false, "PK\x03\x04", false, false},
        {"missing file", false, "", false, false},
        {"cut short", false, JoinLines(FileLines(full), 10), false, false},
        {"merged whole", true, full, true, true},
        {"merging not a network file", true, "PK\x03\x04", false, true},
        {"merging a missing file", true, "", false, true},
        {"merging a file cut short", true, JoinLines(FileLines(full), 30), false, true},
    };
    for (const Case& c : cases) {
        AppFolder dir;
        dir.Ui.DefaultAnswer = ui::Answer::No;
        Model model;
        BuildFullNetwork(model, dir.Ui);
        model.FileName = dir.File("own.sim");
        if (!c.Bytes.empty()) dir.Write("in.sim", c.Bytes);
        LoadOptions options;
        if (c.Merge) options.FirstLoadRow = model.AirwayCount + 1;
        EXPECT_EQ(LoadNetwork(model, dir.File("in.sim"), dir.Ui, options), c.Read) << c.Name;
        const std::string name = c.KeepsName ? dir.File("own.sim") : c.Read ? dir.File("in.sim") : "";
        EXPECT_EQ(model.FileName, name) << c.Name;
    }

    // The network's own name as the path: the file is read again under the same name.
    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);
    dir.Write("own.sim", full);
    model.FileName = dir.File("own.sim");
    EXPECT_TRUE(LoadNetwork(model, model.FileName, dir.Ui));
    EXPECT_EQ(model.FileName, dir.File("own.sim"));
    EXPECT_EQ(model.RecentFiles[1], dir.File("own.sim"));
}

TEST(NetworkLoad, CutInsideLinesAndNoiseNeverBreakTheLoad) {
    AppFolder src;
    Model source;
    BuildFullNetwork(source, src.Ui);
    const std::string full = NetworkText(source, '.');
    const std::string v24 = AppFolder::ReadFile(Fixture("network_v24.sim"));

    AppFolder dir;
    dir.Ui.DefaultAnswer = ui::Answer::No;
    auto loadBytes = [&](const std::string& bytes) {
        Model model = BuiltInModel();
        dir.Write("x.sim", bytes);
        LoadNetwork(model, dir.File("x.sim"), dir.Ui);
        EXPECT_GE(model.AirwayCount, 0);
        EXPECT_LE(model.AirwayCount, MaxAirways);
    };
    for (std::size_t cut = 0; cut < full.size(); cut += 53) loadBytes(full.substr(0, cut));
    for (std::size_t cut = 0; cut < v24.size(); cut += 41) loadBytes(v24.substr(0, cut));

    std::mt19937 rng(42);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> len(0, 600);
    const std::vector<std::string> heads = {
        "", "3.1 KARVANE3\t", "2.4 KARVANE,", "1.0 KARVANE,", "1.5 KARVANE,", "2,7 KARVANE2\t"};
    for (int i = 0; i < 300; ++i) {
        std::string bytes = heads[static_cast<std::size_t>(i) % heads.size()];
        const int n = len(rng);
        for (int k = 0; k < n; ++k) {
            const int b = byte(rng);
            // Plenty of line ends and field separators, so that the noise reaches every section.
            bytes += static_cast<char>(b < 20 ? '\n' : b < 40 ? '\t' : b < 50 ? ',' : b);
        }
        loadBytes(bytes);
    }
    // Section lines in any order, with noise between them.
    const std::vector<std::string> markers = {
        "Defaults List for Network", "3.1\tKARVANE3",      "Saved Views",
        "End of saved views",        "Tag List",           "End of Tag List",
        "**End of Fan Database**",   "**END OF RL LIST**", "**End Of Floating Text",
        "startupview\t1\t2",         "-999999\tx\t1",      "x\t1\t99999",
        " 99999 \tfan\t 99999 "};
    for (int i = 0; i < 200; ++i) {
        std::string bytes = "3.1 KARVANE3\tc\t 0 \t 0 \tn\t 1 \r\n";
        for (int k = 0; k < 30; ++k) bytes += markers[rng() % markers.size()] + "\r\n";
        loadBytes(bytes);
    }
}

TEST(NetworkLoad, ErrorQuestionTriesTheStepAgain) {
    AppFolder src;
    Model source;
    BuildFullNetwork(source, src.Ui);
    const std::vector<std::string> lines = FileLines(NetworkText(source, '.'));
    const std::string cut = JoinLines(lines, 30); // inside the fan section

    for (int retries : {0, 3, 10}) {
        AppFolder dir;
        dir.Ui.DefaultAnswer = ui::Answer::Yes;
        dir.Write("cut.sim", cut);
        Model model = BuiltInModel();
        LoadOptions options;
        options.MaxRetries = retries;
        EXPECT_FALSE(LoadNetwork(model, dir.File("cut.sim"), dir.Ui, options));
        EXPECT_EQ(CountAsked(dir.Ui, LoadQuestion), static_cast<std::size_t>(retries));
        for (const auto& e : dir.Ui.Transcript) {
            if (e.Kind == "Ask") {
                EXPECT_EQ(e.Title, "Error");
            }
        }
        // The fans read before the fault stand, however often the step was tried.
        EXPECT_EQ(model.Fans[1].FanName, "Main fan, No.1");
        EXPECT_EQ(model.FileName, "");
    }
}

TEST(NetworkLoad, CapacityOfTheAirwayTable) {
    AppFolder dir;
    Model big = BuiltInModel();
    SetNewNetworkLevels(big);
    const std::int32_t rows = MaxAirways - 1; // 29999: one more than a load takes
    for (std::int32_t i = 1; i <= rows; ++i) {
        Airway a =
            MakeAirway("", "", "", (i % 500) * 20, (i / 500) * 20, 400, (i % 500) * 20 + 10, (i / 500) * 20, 400);
        a.AirwayNo = i;
        big.Airways[static_cast<std::size_t>(i)] = a;
    }
    big.Airways[static_cast<std::size_t>(rows - 1)].BranchName = "last that fits";
    big.AirwayCount = rows;
    const std::string text = NetworkText(big, '.');

    // 29998 rows read whole, without a word.
    const std::size_t lastLine = text.rfind("\r\n", text.size() - 3);
    dir.Write("fits.sim", text.substr(0, lastLine + 2));
    Model fits = BuiltInModel();
    EXPECT_TRUE(LoadNetwork(fits, dir.File("fits.sim"), dir.Ui));
    EXPECT_EQ(fits.AirwayCount, MaxAirways - 2);
    EXPECT_TRUE(dir.Ui.Transcript.empty());

    // One row more: the message, and the rows read so far stay.
    dir.Write("big.sim", text);
    Model model = BuiltInModel();
    LoadReport report;
    LoadOptions options;
    options.Report = &report;
    EXPECT_TRUE(LoadNetwork(model, dir.File("big.sim"), dir.Ui, options));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{TooBig});
    EXPECT_TRUE(report.AirwaysCut);
    EXPECT_EQ(model.AirwayCount, MaxAirways - 2);
    EXPECT_EQ(model.Airways[static_cast<std::size_t>(MaxAirways - 2)].BranchName, "last that fits");
}

TEST(NetworkLoad, OpenDialog) {
    AppFolder dir;
    Model source;
    BuildFullNetwork(source, dir.Ui);
    dir.Write("good.sim", NetworkText(source, '.'));
    dir.Write("bad.sim", "not a network\r\n");

    Model model = BuiltInModel();
    model.FileName = dir.File("mine.sim");
    EXPECT_FALSE(OpenNetworkDialog(model, dir.Ui)); // cancelled
    EXPECT_EQ(model.FileName, dir.File("mine.sim"));
    ASSERT_EQ(dir.Ui.Transcript.size(), 1u);
    EXPECT_EQ(dir.Ui.Transcript[0].Kind, "Open");
    EXPECT_EQ(dir.Ui.Transcript[0].Text, "Karvane Data (*.sim)|*.sim|Master Files (*.smm)|*.smm|All Files (*.*)|*.*");

    // A file that is no network leaves the one in memory with its name.
    dir.Ui.FilePaths = {dir.File("bad.sim")};
    EXPECT_FALSE(OpenNetworkDialog(model, dir.Ui));
    EXPECT_EQ(model.FileName, dir.File("mine.sim"));
    EXPECT_EQ(dir.Ui.Texts("Message").back(), "Not a KARVANE File - Action Aborted");

    dir.Ui.FilePaths = {dir.File("good.sim")};
    EXPECT_TRUE(OpenNetworkDialog(model, dir.Ui));
    EXPECT_EQ(model.FileName, dir.File("good.sim"));
    EXPECT_EQ(model.AirwayCount, 5);
    EXPECT_EQ(dir.Ui.Store.at("Karvane/Files/DefaultDir"), dir.Path.string());
}

namespace {

// A second network to merge: one level in common with the first, its own fan, a fan airway
// and a fixed pressure airway, and header, settings, views and layers of its own.
std::string SecondNetwork(AppFolder& dir) {
    Model b = BuiltInModel();
    SetNewNetworkLevels(b);
    b.Levels[3] = {"B level", 200, 180};
    b.FileComment = "B comment";
    b.FileNote = "B note";
    b.Set.Density = 1.25f;
    b.SavedViews[6].ViewName = "B view";
    b.PrimaryLayers[2] = {"B layer", -1};
    b.Fans[1].FanName = "B fan";
    b.Fans[1].FanPStatic[1] = 500;
    b.FloatingTexts[1] = {true, "B text", 1, 2, 3};
    Airway fan = MakeAirway("B1", "B2", "B fan drive", 5000, 5000, 490, 5300, 5000, 490);
    fan.FanNumber = 1;
    fan.NoOfFans = 1;
    Airway pressure = MakeAirway("B2", "B3", "B fixed pressure", 5300, 5000, 490, 5300, 5200, 490);
    pressure.FanNumber = -1;
    pressure.Pressure = 300;
    b.Airways[1] = fan;
    b.Airways[2] = pressure;
    b.AirwayCount = 2;
    SettleAsLoaded(b, dir.Ui);
    dir.Write("b.sim", NetworkText(b, '.'));
    return dir.File("b.sim");
}

} // namespace

TEST(NetworkLoad, MergeAddsFansBehindTheExistingOnes) {
    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);
    model.FileName = dir.File("a.sim");
    model.FileNote = "A note";
    const std::int32_t lastNo = model.Set.LastAirwayNo;
    dir.Ui.FilePaths = {SecondNetwork(dir)};
    dir.Ui.Answers = {ui::Answer::No};

    MergeNetwork(model, dir.Ui);

    ASSERT_EQ(model.AirwayCount, 7);
    EXPECT_EQ(dir.Ui.Transcript[1].Title, "Merge fan database");
    EXPECT_EQ(dir.Ui.Transcript[1].Text, "Do you want the new data to use the original fan database (YES) or add the "
                                         "merged fan database to the existing fan list (NO)");
    EXPECT_EQ(model.FileName, dir.File("a.sim"));
    EXPECT_EQ(model.NetworkSaved, No0);
    EXPECT_EQ(model.Set.LastAirwayNo, lastNo + 2);
    // The network keeps its own header, settings, views and layers; the merged fan 1 becomes fan
    // 2, the one free row behind the named fan; the new rows are numbered behind the old ones;
    // the common level is kept once; the merged floating text joins behind the text in use; the
    // rows end sorted by key.
    ExpectGolden("merged_network.sim", NetworkText(model, '.'));
}

TEST(NetworkLoad, MergeKeepingTheOriginalFans) {
    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);
    dir.Ui.FilePaths = {SecondNetwork(dir)};
    dir.Ui.Answers = {ui::Answer::Yes};
    MergeNetwork(model, dir.Ui);
    ASSERT_EQ(model.AirwayCount, 7);
    EXPECT_TRUE(model.Fans[2].IsFree());
    EXPECT_EQ(FindByName(model, "B fan drive")->FanNumber, 1);
    EXPECT_EQ(FindByName(model, "B fixed pressure")->FanNumber, -1);

    // Cancelling the dialog changes nothing.
    const std::string before = NetworkText(model, '.');
    MergeNetwork(model, dir.Ui);
    EXPECT_EQ(NetworkText(model, '.'), before);
}

TEST(NetworkLoad, MergedFansBeyondTheDatabaseSize) {
    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);
    model.Set.MaxFans = 1; // fan 1 is named, so the merged fan 1 would become fan 2
    dir.Ui.FilePaths = {SecondNetwork(dir)};
    dir.Ui.Answers = {ui::Answer::No};
    MergeNetwork(model, dir.Ui);

    const std::vector<std::string> said = dir.Ui.Texts("Message");
    ASSERT_EQ(said.size(), 1u);
    EXPECT_EQ(said[0], "Fan database default size is smaller than the file size !\nAny fans above fan 1 will be "
                       "deleted");
    // The fans are passed over to their closing line; the rest of the file still joins.
    EXPECT_EQ(model.AirwayCount, 7);
    EXPECT_EQ(model.Fans[1].FanName, "Main fan, No.1");
    ASSERT_NE(FindByName(model, "B fixed pressure"), nullptr);
}
