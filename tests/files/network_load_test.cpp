// Loading network files of every version, the messages of a refused or broken file, files cut
// short or full of noise, the capacity of the airway table, the open dialog and the merge.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "files/network_load.h"
#include "files/number_text.h"
#include "network_fixture.h"

using namespace karvane;
using namespace karvane::files;
using namespace karvane::testing;

namespace {

const std::string LoadQuestion = "Error occured loading file\nDo you wish to continue loading?";
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
    l.model.FileName = path;
    LoadOptions options;
    options.Report = &l.report;
    l.ok = LoadNetwork(l.model, l.dir.Ui, options);
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

// What every fixture holds in its airways, levels and current level.
void ExpectCommonNetwork(const Loaded& l) {
    const Model& m = l.model;
    ASSERT_EQ(m.AirwayCount, 3);
    EXPECT_EQ(m.Airways[1].BranchName, "Main Shaft, No.1");
    EXPECT_EQ(m.Airways[1].EntryNode, "Portal");
    EXPECT_EQ(m.Airways[2].ExitNode, "Raise Top");
    EXPECT_EQ(m.Airways[2].Comment, "Reg.");
    EXPECT_EQ(m.Airways[2].FanNumber, 1);
    EXPECT_EQ(m.Airways[2].X2, 300);
    EXPECT_EQ(m.Airways[3].FanNumber, -1);
    EXPECT_EQ(m.Airways[3].Pressure, 150.0f);
    EXPECT_EQ(m.Airways[1].EntryKey, SurfaceKey); // keys rebuilt: the shaft top is at the surface
    EXPECT_NE(m.Airways[2].EntryKey, 0);
    for (std::int32_t row = 1; row <= 3; ++row) {
        EXPECT_EQ(m.Airways[static_cast<std::size_t>(row)].UndoNo, 0);
        EXPECT_NE(m.Airways[static_cast<std::size_t>(row)].AirwayNo, 0);
    }
    EXPECT_EQ(m.Levels[1].RLName, "SURFACE");
    EXPECT_EQ(m.Levels[2].RLName, "Main Level");
    EXPECT_EQ(m.CurrentRLMin, 480);
    EXPECT_EQ(m.CurrentRLMax, 520);
    EXPECT_EQ(l.report.CurrentLevel, 2);
    EXPECT_EQ(l.report.CurRL, 500);
    EXPECT_EQ(m.NetworkSaved, Yes255);
    EXPECT_EQ(m.SimValid, 0);
    EXPECT_TRUE(l.ok);
}

// The old custom indices: ResType 10 up to 2.0, WallType 10 and ShockType 6 below 2.9.
void ExpectPresetIndices(const Model& m, int res, int shock, int wall) {
    EXPECT_EQ(m.Airways[2].ResType, res);
    EXPECT_EQ(m.Airways[2].ShockType, shock);
    EXPECT_EQ(m.Airways[2].WallType, wall);
}

} // namespace

TEST(NetworkLoad, Version10) {
    Loaded l;
    LoadFile(l, Fixture("network_v10.sim"));
    ExpectCommonNetwork(l);
    const Model& m = l.model;
    EXPECT_EQ(m.FileComment, "Old workings");
    EXPECT_EQ(m.Levels[3].RLName, "");
    ExpectPresetIndices(m, 50, 50, 50);
    EXPECT_EQ(m.Airways[2].Resistance, 2.5f); // a custom resistance stands as read
    EXPECT_TRUE(m.Fans[1].IsFree());
    EXPECT_TRUE(l.dir.Ui.Transcript.empty());
    EXPECT_DOUBLE_EQ(l.report.FileVersion, 1.0);
}

TEST(NetworkLoad, Version15RowFormAndDiameterEstimate) {
    Loaded l;
    LoadFile(l, Fixture("network_v15.sim"), {ui::Answer::Yes});
    ExpectCommonNetwork(l);
    const Model& m = l.model;
    ASSERT_FALSE(l.dir.Ui.Transcript.empty());
    EXPECT_EQ(l.dir.Ui.Transcript[0].Title, "Total Pressures");
    EXPECT_EQ(l.dir.Ui.Transcript[0].Text, "Karvane now has a 'TOTAL PRESSURE' estimating function for fan power "
                                           "calculation\n\nAllow Karvane to estimate fan diameters and use this "
                                           "function?  ");
    EXPECT_TRUE(l.report.EstimateDiameters);
    EXPECT_FLOAT_EQ(m.Fans[1].FanDiam, 3.02f); // 2 x sqrt(150 / (21 pi))
    EXPECT_FLOAT_EQ(m.Fans[3].FanDiam, 1.1f);
    EXPECT_EQ(m.Fans[1].FanPStatic[2], 2450.0f);
    EXPECT_EQ(m.Fans[1].FanQ[10], 150.0f);
    EXPECT_EQ(m.Fans[1].FanEff[6], 75);
    EXPECT_EQ(m.Fans[1].FanPTotal[2], 0.0f);
    EXPECT_TRUE(m.Fans[2].IsFree());
    // Friction of these files is at the true density: divided by 1.2 on the way in.
    EXPECT_FLOAT_EQ(m.Preset.WallPreset[0], 0.003f);
    EXPECT_FLOAT_EQ(m.Preset.WallPreset[4], 0.01f);
    EXPECT_EQ(m.Preset.ResPreset[1], 10000.0f);
    EXPECT_EQ(m.Preset.ResNames[10], "undefined");
    EXPECT_EQ(m.Preset.ShockNames[5], "Very High");
    EXPECT_EQ(m.Set.FontName[2], "Arial");
    EXPECT_EQ(m.Set.DisplayOptions & 1, 1);
    EXPECT_FALSE(l.report.StartupViewRead);
    EXPECT_EQ(m.FileComment, "Fifteen mine");
    EXPECT_EQ(m.FileNote, "Note of 1.5");
    ExpectPresetIndices(m, 50, 50, 50);

    Loaded no;
    LoadFile(no, Fixture("network_v15.sim"), {ui::Answer::No});
    EXPECT_FALSE(no.report.EstimateDiameters);
    EXPECT_EQ(no.model.Fans[1].FanDiam, 0.0f);
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
            const auto asked = std::count_if(l.dir.Ui.Transcript.begin(), l.dir.Ui.Transcript.end(),
                                             [](const ui::TranscriptEntry& e) { return e.Title == "Total Pressures"; });
            EXPECT_EQ(asked, asks ? 1 : 0);
            EXPECT_EQ(l.report.EstimateDiameters, asks && answer == ui::Answer::Yes);
        }
    }
}

TEST(NetworkLoad, Version20ViewsAndLayers) {
    Loaded l;
    LoadFile(l, Fixture("network_v20.sim"), {ui::Answer::No});
    ExpectCommonNetwork(l);
    const Model& m = l.model;
    EXPECT_EQ(m.SgnY, -1);
    EXPECT_EQ(m.SgnX, 1);
    EXPECT_TRUE(l.report.StartupViewRead);
    EXPECT_EQ(m.SavedViews[0].ViewName, "startupview");
    EXPECT_EQ(m.SavedViews[0].ViewParam[5], 1200.0f);
    EXPECT_EQ(m.SavedViews[0].ViewParam[27], 500.0f);
    EXPECT_EQ(m.SavedViews[0].ViewValue[2], 131070 * kFixedScale);
    EXPECT_EQ(m.SavedViews[6].ViewName, "Stope View");
    EXPECT_EQ(m.SavedViews[6].ViewParam[1], 0.5f);
    EXPECT_EQ(m.SavedViews[6].ViewParam[26], 999.0f);
    EXPECT_EQ(m.SavedViews[7].ViewName, "");
    // The built-in views follow the axis direction of the file.
    EXPECT_FLOAT_EQ(m.SavedViews[3].ViewParam[1], static_cast<float>(-3.141592654 / 2));
    EXPECT_FLOAT_EQ(m.SavedViews[5].ViewParam[1], -1.0f);
    EXPECT_EQ(m.PrimaryLayers[1].Name, "Main Layer");
    EXPECT_EQ(m.PrimaryLayers[9].Name, "Ninth Layer");
    EXPECT_EQ(m.PrimaryLayers[9].LayerOn, 0); // primary 9 to 16 keep their state
    EXPECT_EQ(m.SecondaryLayers[2].Name, "Second Layer");
    EXPECT_EQ(m.SecondaryLayers[2].LayerOn, -1); // every secondary layer comes on
    ExpectPresetIndices(m, 50, 50, 50);
}

TEST(NetworkLoad, Version24CommaFields) {
    Loaded l;
    LoadFile(l, Fixture("network_v24.sim"));
    ExpectCommonNetwork(l);
    const Model& m = l.model;
    EXPECT_TRUE(l.dir.Ui.Transcript.empty()); // no total pressure question from 2.4 on
    EXPECT_EQ(m.FileComment, "Mine, 2.4");
    EXPECT_EQ(m.SgnX, -1);
    EXPECT_EQ(m.Fans[1].FanDiam, 2.8f);
    EXPECT_EQ(m.Fans[1].FanPTotal[10], 380.0f);
    EXPECT_EQ(m.Fans[3].FanName, "Aux Fan");
    EXPECT_FLOAT_EQ(m.Preset.WallPreset[10], 0.02f); // no conversion from 2.4 on
    EXPECT_EQ(m.Preset.ResNames[10], "Regulator");
    EXPECT_EQ(m.Preset.ResPreset[1], 10000.0f);
    EXPECT_FLOAT_EQ(m.Set.Density, 1.15f);
    EXPECT_FLOAT_EQ(m.Set.PowerCost, 0.11f);
    EXPECT_EQ(m.Set.DisplayOptions, 255);
    EXPECT_EQ(m.Set.FontName[1], "Arial");
    EXPECT_EQ(m.Levels[3].RLName, "Deep, No.2");
    EXPECT_EQ(m.Airways[2].SecondLayer, 2);
    EXPECT_EQ(m.Airways[2].Gas2, 0); // the row of 2.4 ends before the report pins
    ExpectPresetIndices(m, 10, 50, 50);
}

TEST(NetworkLoad, Version25Tabs) {
    Loaded l;
    LoadFile(l, Fixture("network_v25.sim"));
    ExpectCommonNetwork(l);
    const Model& m = l.model;
    EXPECT_EQ(m.FileNote, "Line one\rLine two");
    EXPECT_FLOAT_EQ(m.Set.SurfaceRL, 1050.0f);
    EXPECT_EQ(m.Airways[2].FromNodeP, -120.0f);
    EXPECT_EQ(m.Airways[2].PrimaryLayer, 9);
    EXPECT_EQ(m.Airways[2].CurveFraction, 50);
    EXPECT_EQ(m.Airways[2].AirwayNo, 2);
    EXPECT_EQ(m.FloatingTexts[1].TextOn, false); // floating text only from 2.6
    ExpectPresetIndices(m, 10, 50, 50);
}

TEST(NetworkLoad, Version27WrittenWithDecimalComma) {
    Loaded l;
    LoadFile(l, Fixture("network_v27.sim"));
    ExpectCommonNetwork(l);
    const Model& m = l.model;
    EXPECT_EQ(l.report.FileSeparator, ',');
    EXPECT_DOUBLE_EQ(l.report.FileVersion, 2.7);
    EXPECT_FLOAT_EQ(m.Preset.WallPreset[1], 0.0035f);
    EXPECT_EQ(m.Preset.ResPreset[1], 10000.0f); // a blocked 1E+09 of 2.7 reads as 10000
    EXPECT_EQ(m.Fans[1].FanDiam, 2.8f);
    EXPECT_EQ(m.Set.FontName[4], "Arial");
    EXPECT_EQ(m.SavedViews[6].ViewParam[2], 1.2f);
    EXPECT_TRUE(m.FloatingTexts[1].TextOn);
    EXPECT_EQ(m.FloatingTexts[1].TextValue, "Portal sign");
    EXPECT_FALSE(m.FloatingTexts[2].TextOn);
    EXPECT_EQ(m.FloatingTexts[3].TextValue, "Shaft, No.1");
    EXPECT_EQ(m.FloatingTexts[3].TextZ, 500);
    EXPECT_EQ(m.Airways[1].WallFactor, 0.004f);
    ExpectPresetIndices(m, 10, 50, 50);
}

TEST(NetworkLoad, Version29WithOldMagicWord) {
    Loaded l;
    LoadFile(l, Fixture("network_v29.sim"));
    ExpectCommonNetwork(l);
    const Model& m = l.model;
    EXPECT_DOUBLE_EQ(l.report.FileVersion, 2.9);
    EXPECT_EQ(m.Set.FontName[1], "Courier New"); // fonts stay from 2.8 on
    EXPECT_EQ(m.Set.FontName[4], "Times");
    EXPECT_EQ(m.Set.DisplayOptions, 510);
    EXPECT_EQ(m.Preset.ResPreset[1], 1000000000.0f);
    EXPECT_FLOAT_EQ(m.Set.Density, 1.18f);
    EXPECT_EQ(m.Set.LastAirwayNo, 12);
    EXPECT_FLOAT_EQ(m.Set.SurfaceRL, 1100.0f);
    ExpectPresetIndices(m, 10, 6, 10);
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
        model.FileName = dir.File("bad.sim");
        EXPECT_FALSE(LoadNetwork(model, dir.Ui));
        EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{c.message}) << c.bytes;
        EXPECT_EQ(model.FileName, "");
        EXPECT_EQ(NetworkText(model, '.'), before);
    }

    AppFolder dir;
    Model model;
    BuildFullNetwork(model, dir.Ui);
    model.FileName = dir.File("missing.sim");
    EXPECT_FALSE(LoadNetwork(model, dir.Ui));
    model.FileName = (dir.Path / "no folder" / "x.sim").string();
    EXPECT_FALSE(LoadNetwork(model, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"),
              (std::vector<std::string>{"ERROR 53: That file doesn't exist.", "ERROR 76: That path doesn't exist."}));
    EXPECT_EQ(model.AirwayCount, 5);
}

TEST(NetworkLoad, MasterFileCautionAndRecentFiles) {
    AppFolder dir;
    Model source;
    BuildFullNetwork(source, dir.Ui);
    dir.Write("Master.SmM", NetworkText(source, '.'));
    Model model;
    SetUpBuiltIn(model);
    model.MasterFile = true;
    model.FileName = dir.File("Master.SmM");
    EXPECT_TRUE(LoadNetwork(model, dir.Ui));
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
    EXPECT_TRUE(LoadNetwork(model, dir.Ui, recovery));
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
        model.FileName = dir.File("cut.sim");
        const bool ok = LoadNetwork(model, dir.Ui);

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

TEST(NetworkLoad, CutInsideLinesAndNoiseNeverBreakTheLoad) {
    AppFolder src;
    Model source;
    BuildFullNetwork(source, src.Ui);
    const std::string full = NetworkText(source, '.');
    const std::string v24 = AppFolder::ReadFile(Fixture("network_v24.sim"));

    AppFolder dir;
    dir.Ui.DefaultAnswer = ui::Answer::No;
    auto loadBytes = [&](const std::string& bytes) {
        Model model;
        SetUpBuiltIn(model);
        dir.Write("x.sim", bytes);
        model.FileName = dir.File("x.sim");
        LoadNetwork(model, dir.Ui);
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
        Model model;
        SetUpBuiltIn(model);
        model.FileName = dir.File("cut.sim");
        LoadOptions options;
        options.MaxRetries = retries;
        EXPECT_FALSE(LoadNetwork(model, dir.Ui, options));
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
    Model big;
    SetUpBuiltIn(big);
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
    Model fits;
    SetUpBuiltIn(fits);
    fits.FileName = dir.File("fits.sim");
    EXPECT_TRUE(LoadNetwork(fits, dir.Ui));
    EXPECT_EQ(fits.AirwayCount, MaxAirways - 2);
    EXPECT_TRUE(dir.Ui.Transcript.empty());

    // One row more: the message, and the rows read so far stay.
    dir.Write("big.sim", text);
    Model model;
    SetUpBuiltIn(model);
    model.FileName = dir.File("big.sim");
    LoadReport report;
    LoadOptions options;
    options.Report = &report;
    EXPECT_TRUE(LoadNetwork(model, dir.Ui, options));
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

    Model model;
    SetUpBuiltIn(model);
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
    Model b;
    SetUpBuiltIn(b);
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
    // The network keeps its own header, settings, views and layers, and its name.
    EXPECT_EQ(model.FileComment, "Test mine, east. No.2");
    EXPECT_EQ(model.FileNote, "A note");
    EXPECT_FLOAT_EQ(model.Set.Density, 1.18f);
    EXPECT_EQ(model.SavedViews[6].ViewName, "Stope view, No.3");
    EXPECT_EQ(model.PrimaryLayers[2].Name, "");
    EXPECT_EQ(model.FileName, dir.File("a.sim"));
    EXPECT_EQ(model.NetworkSaved, No0);
    EXPECT_EQ(model.FirstLoadRow, 1);

    // One named fan stood before the first free row: the merged fan 1 becomes fan 2.
    EXPECT_EQ(model.Fans[1].FanName, "Main fan, No.1");
    EXPECT_EQ(model.Fans[2].FanName, "B fan");
    EXPECT_EQ(model.Fans[3].FanName, "Booster");
    const Airway* fan = FindByName(model, "B fan drive");
    const Airway* pressure = FindByName(model, "B fixed pressure");
    ASSERT_TRUE(fan && pressure);
    EXPECT_EQ(fan->FanNumber, 2);
    EXPECT_EQ(pressure->FanNumber, -1);
    EXPECT_EQ(pressure->Pressure, 300.0f);

    // New numbers behind the existing ones, none twice.
    std::set<std::int32_t> numbers;
    for (std::int32_t row = 1; row <= model.AirwayCount; ++row)
        numbers.insert(model.Airways[static_cast<std::size_t>(row)].AirwayNo);
    EXPECT_EQ(numbers.size(), 7u);
    EXPECT_GT(std::min(fan->AirwayNo, pressure->AirwayNo), lastNo);
    EXPECT_EQ(model.Set.LastAirwayNo, lastNo + 2);

    // The common level is kept once; the second network's own level joins the list.
    std::vector<std::string> levels;
    for (int i = 1; i <= LevelRows && !model.Levels[static_cast<std::size_t>(i)].RLName.empty(); ++i)
        levels.push_back(model.Levels[static_cast<std::size_t>(i)].RLName);
    EXPECT_EQ(levels, (std::vector<std::string>{"SURFACE", "U/Ground", "Level 2, east.", "B level"}));

    // The merged floating text joins behind the text in use; rows end sorted by key.
    EXPECT_EQ(model.FloatingTexts[5].TextValue, "B text");
    EXPECT_EQ(model.FloatingTexts[1].TextValue, "Portal, No.1");
    for (std::int32_t row = 1; row < model.AirwayCount; ++row)
        EXPECT_GE(model.Airways[static_cast<std::size_t>(row)].EntryKey,
                  model.Airways[static_cast<std::size_t>(row + 1)].EntryKey);
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
    EXPECT_EQ(model.FirstLoadRow, 1);
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
