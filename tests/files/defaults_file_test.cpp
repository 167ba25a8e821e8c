// The defaults block and Defaults.dat: the exact text, the round trip of every field, the zero
// rules, the other machine's decimal separator, the start-up step and its messages.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "files/defaults_file.h"
#include "files/number_text.h"
#include "files/station_list.h"
#include "files/text_file.h"
#include "network_fixture.h"
#include "support/golden.h"

using namespace karvane;
using namespace karvane::files;
using namespace karvane::testing;

namespace {

std::vector<std::string> Tabs(const std::string& line) { return SplitText(line, "\t"); }
std::string Join(const std::vector<std::string>& lines) { return JoinLines(lines, lines.size()); }

int ReadBlockText(Model& model, const std::string& text, char sep = '.') {
    TextFileReader in;
    in.OpenText(text);
    std::string first;
    in.ReadLine(first);
    return ReadDefaultsBlock(in, model, first, sep);
}

// A settings line with every value away from its built-in one, in its written form. The icon
// pairs stand in the order 0, 1, 4, 3, 2, 6, 5 (IconSize(k) = 10 + k, IconScaled(k) = k mod 2).
const std::string EverySetting =
    " 7 \t 62.5 \t 30 \t 6 \t 3 \t 4.5 \t 5.25 \t 3.1 \tPORTAL\t 75 \t 0.01 \t 30000 \t 0.11 \t 0.72 \t 1.15 \t 12 \t"
    " 3.5 \t 1.5 \t-1 \t 1 \t 5 \t 300 \t 1020.5 \t 2 \t 3 \t 4 \t 5 \t 6 \t 2 \t 7 \tTrue\t 0 \tTrue\t"
    "Font 1\t 1 \t 7 \tFont 2\t 0 \t 8 \tFont 3\t 1 \t 9 \tFont 4\t 0 \t 10 \t"
    " 10 \t 0 \t 11 \t 1 \t 14 \t 0 \t 13 \t 1 \t 12 \t 0 \t 16 \t 0 \t 15 \t 1 \t"
    " 1000 \t 1001 \t 1002 \t 1003 \t 1004 \t 1005 \t 1006 \t 1007 \t"
    " 6 \t 320 \t 1 \t 1 \t 2 \t 2500 \tTrue\t 14 \t 12.5 \t 1 \t 40 \t 1 \t 4321 \tTrue\t 1 \t 5 \t 1 \t 1 \t"
    " 750 \t 2500 \t-300 \t 5 \t 400 ";

// The whole block with every preset named and valued and EverySetting as its settings line.
std::string EveryFieldBlock() {
    std::string names[3], values[3];
    const char* stems[3] = {"Wall ", "Res ", "Shock "};
    for (int i = 0; i < PresetRows; ++i) {
        for (int t = 0; t < 3; ++t) names[t] += stems[t] + std::to_string(i) + '\t';
        values[0] += PaddedSingle(0.001f * static_cast<float>(i + 1), '.') + '\t';
        values[1] += PaddedSingle(i == 1 ? 1e9f : 1.5f * static_cast<float>(i), '.') + '\t';
        values[2] += PaddedSingle(static_cast<float>(10 * i), '.') + '\t';
    }
    return Join({"3.1\tKARVANE3", names[0], values[0], names[1], values[1], names[2], values[2], EverySetting,
                 "**End of Network Defaults**"});
}

// The built-in values, then every field of the settings and presets away from them.
void SetEveryField(Model& m) {
    SetUpBuiltIn(m);
    ASSERT_EQ(ReadBlockText(m, EveryFieldBlock()), 0);
}

} // namespace

TEST(DefaultsBlock, LayoutOfTheLines) {
    Model m;
    SetEveryField(m);
    const std::string text = DefaultsText(m, '.');
    EXPECT_EQ(text, EveryFieldBlock());
    const auto lines = FileLines(text);
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(Tabs(lines[1]).size(), 51u) << "every name followed by a tab";
    EXPECT_EQ(Tabs(lines[7]).size(), 90u) << "no tab behind the last value";

    // The values reached their fields: the first, the icons out of order, the last.
    EXPECT_EQ(m.Set.GridSpacing, 62.5);
    for (int k = 0; k < IconCount; ++k) {
        EXPECT_EQ(m.Set.IconSize[k], 10 + k) << k;
        EXPECT_EQ(m.Set.IconScaled[k], k % 2) << k;
    }
    EXPECT_EQ(m.Set.FlowMax, 400.0f);

    const auto comma = FileLines(DefaultsText(m, ','));
    EXPECT_EQ(comma[0], "3,1\tKARVANE3");
    EXPECT_EQ(Tabs(comma[7])[1], " 62,5 ");
}

TEST(DefaultsBlock, RoundTripUnderEitherSeparator) {
    Model a;
    SetEveryField(a);
    a.Preset.ResNames[20] = ""; // an empty resistance name comes back as "undefined"
    Model b = BuiltInModel();
    ASSERT_EQ(ReadBlockText(b, DefaultsText(a, '.')), 0);
    EXPECT_EQ(b.Preset.ResNames[20], "undefined");
    EXPECT_EQ(b.Preset.ResNames[CustomPreset], "Fix Res") << "row 50 is not in the file";
    a.Preset.ResNames[20] = "undefined";
    EXPECT_EQ(DefaultsText(b, '.'), DefaultsText(a, '.'));

    // Written under a decimal comma, read on a machine of full stops, and the other way round.
    Model c = BuiltInModel();
    ASSERT_EQ(ReadBlockText(c, DefaultsText(a, ','), '.'), 0);
    EXPECT_EQ(DefaultsText(c, '.'), DefaultsText(a, '.'));
    Model d = BuiltInModel();
    ASSERT_EQ(ReadBlockText(d, DefaultsText(a, '.'), ','), 0);
    EXPECT_EQ(DefaultsText(d, ','), DefaultsText(a, ','));
}

TEST(DefaultsBlock, TheBalancingMethodRidesBehindTheNinetyValuesOnlyWhenItIsNewton) {
    Model hardy;
    SetEveryField(hardy);
    ASSERT_EQ(hardy.Set.Solver, SolverHardyCross);
    const std::string plain = DefaultsText(hardy, '.');
    EXPECT_EQ(plain, EveryFieldBlock()) << "a block that does not use it is unchanged";

    Model newton;
    SetEveryField(newton);
    newton.Set.Solver = SolverNewton;
    const std::string text = DefaultsText(newton, '.');
    const auto lines = FileLines(text);
    ASSERT_EQ(Tabs(lines[7]).size(), 91u);
    EXPECT_EQ(Tabs(lines[7])[90], " 1 ");
    EXPECT_EQ(lines[7].substr(0, FileLines(plain)[7].size()), FileLines(plain)[7]) << "the 90 values stand as before";

    // Read back, and read by a reader that takes 90 values: the same settings either way.
    Model back = BuiltInModel();
    ASSERT_EQ(ReadBlockText(back, text), 0);
    EXPECT_EQ(back.Set.Solver, SolverNewton);
    EXPECT_EQ(DefaultsText(back, '.'), text);
    back.Set.Solver = SolverHardyCross;
    EXPECT_EQ(DefaultsText(back, '.'), plain);

    // A block without it, or with a value this program does not know, reads as Hardy Cross.
    Model old = BuiltInModel();
    old.Set.Solver = SolverNewton;
    ASSERT_EQ(ReadBlockText(old, plain), 0);
    EXPECT_EQ(old.Set.Solver, SolverHardyCross);
    std::string unknown = text;
    unknown.replace(unknown.find(" 1 \r\n**End"), 3, " 7 ");
    old.Set.Solver = SolverNewton;
    ASSERT_EQ(ReadBlockText(old, unknown), 0);
    EXPECT_EQ(old.Set.Solver, SolverHardyCross);
}

TEST(DefaultsBlock, ZeroRulesOfAShortSettingsLine) {
    Model source;
    SetEveryField(source);
    auto lines = FileLines(DefaultsText(source, '.'));
    auto f = Tabs(lines[7]);
    std::string shortLine;
    for (int i = 0; i < 20; ++i) shortLine += (i ? "\t" : "") + f[static_cast<std::size_t>(i)];
    lines[7] = shortLine;

    Model m;
    SetEveryField(m);
    ASSERT_EQ(ReadBlockText(m, Join(lines)), 0);
    // Field 20 still on the line; behind it 0, or for the values that 0 cannot mean their
    // built-in value.
    ExpectGolden("short_settings_line.txt", DefaultsText(m, '.'));

    // The capacity is held between 50 and 30000, an empty value counting as 50.
    for (auto [text, held] : {std::pair{"", 50}, {" 12 ", 50}, {" 99999 ", 30000}, {" 20000 ", 20000}}) {
        auto g = f;
        g[11] = text;
        std::string line;
        for (std::size_t i = 0; i < g.size(); ++i) line += (i ? "\t" : "") + g[i];
        lines[7] = line;
        ASSERT_EQ(ReadBlockText(m, Join(lines)), 0);
        EXPECT_EQ(m.Set.AirwayCapacity, held) << "'" << text << "'";
    }
}

TEST(DefaultsBlock, DensityZeroAndBulkheadRules) {
    Model source = BuiltInModel();
    source.Set.Density = 0;
    source.Preset.ResPreset[1] = 250000;
    auto lines = FileLines(DefaultsText(source, '.'));

    Model m = BuiltInModel();
    ASSERT_EQ(ReadBlockText(m, Join(lines)), 0);
    EXPECT_EQ(m.Set.Density, 0.0f) << "a density of 0 is kept from version 2.8";
    EXPECT_EQ(m.Preset.ResPreset[1], 1e9f);

    lines[0] = "2.8\tKARVANE3";
    ASSERT_EQ(ReadBlockText(m, Join(lines)), 0);
    EXPECT_EQ(m.Set.Density, 0.0f);
    lines[0] = "2.7\tKARVANE3";
    ASSERT_EQ(ReadBlockText(m, Join(lines)), 0);
    EXPECT_EQ(m.Set.Density, 1.2f);

    source.Preset.ResPreset[1] = 99999;
    ASSERT_EQ(ReadBlockText(m, DefaultsText(source, '.')), 0);
    EXPECT_EQ(m.Preset.ResPreset[1], 99999.0f);
}

TEST(DefaultsBlock, EndOfTextInsideTheBlockKeepsWhatWasRead) {
    Model source;
    SetEveryField(source);
    auto lines = FileLines(DefaultsText(source, '.'));

    Model m = BuiltInModel();
    lines.resize(5); // up to the resistance values
    EXPECT_EQ(ReadBlockText(m, Join(lines)), err::PastEndOfFile);
    EXPECT_EQ(m.Preset.WallNames[3], "Wall 3");
    EXPECT_EQ(m.Preset.ResPreset[4], 6.0f);
    EXPECT_EQ(m.Preset.ShockNames[1], "Slight") << "not reached";
    EXPECT_EQ(m.Set.NodeDivisions, 5) << "not reached";

    // The closing line may be missing at the very end; behind it, the reader stops.
    auto whole = FileLines(DefaultsText(source, '.'));
    auto noEnd = whole;
    noEnd.pop_back();
    EXPECT_EQ(ReadBlockText(m, Join(noEnd)), 0);
    TextFileReader in;
    in.OpenText(Join(whole) + "Saved Views\r\n");
    std::string line;
    in.ReadLine(line);
    ASSERT_EQ(ReadDefaultsBlock(in, m, line, '.'), 0);
    ASSERT_TRUE(in.ReadLine(line));
    EXPECT_EQ(line, "Saved Views");
}

TEST(DefaultsFile, MissingOrBrokenFileSaysSoAndKeepsTheValues) {
    AppFolder dir;
    Model m;
    SetEveryField(m);
    const std::string before = DefaultsText(m, '.');
    EXPECT_FALSE(LoadDefaultsFile(m, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"Error re-loading defaults"});
    EXPECT_EQ(DefaultsText(m, '.'), before);

    dir.Write("Defaults.dat", "");
    dir.Ui.Transcript.clear();
    EXPECT_FALSE(LoadDefaultsFile(m, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"Error re-loading defaults"});

    // Older than any known form: nothing is read and nothing is said.
    dir.Write("Defaults.dat", "0.9 KARVANE\r\n\"Smooth Pipes\",0.5\r\n");
    dir.Ui.Transcript.clear();
    EXPECT_TRUE(LoadDefaultsFile(m, dir.Ui));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_EQ(DefaultsText(m, '.'), before);
}

TEST(DefaultsFile, ArbitraryBytesNeverBreakTheReader) {
    const std::string valid = EveryFieldBlock();
    const std::string old = AppFolder::ReadFile(std::string(KARVANE_TEST_DATA) + "/defaults_v23.dat");
    std::mt19937 rng(7);
    AppFolder dir;
    for (int round = 0; round < 300; ++round) {
        dir.Write("Defaults.dat", karvane::testing::Mangled(round % 2 ? valid : old, rng));
        Model m = BuiltInModel();
        LoadDefaultsFile(m, dir.Ui);
        EXPECT_GE(m.Fans.size(), static_cast<std::size_t>(m.Set.MaxFans) + 1);
        EXPECT_GE(m.Set.MaxFans, 1);
        EXPECT_TRUE(m.Set.UnitSys == 1 || m.Set.UnitSys == 2);
        EXPECT_TRUE(m.Set.DriveWallType >= 0 && m.Set.DriveWallType <= CustomPreset);
    }
}

TEST(DefaultsFile, SaveWritesTheThreeFilesAndAFailedSaveKeepsTheOldOnes) {
    AppFolder dir;
    Model m;
    SetEveryField(m);
    ASSERT_TRUE(SaveDefaultsFile(m, dir.Ui));
    EXPECT_EQ(dir.Read("Defaults.dat"), DefaultsText(m, '.'));
    EXPECT_TRUE(dir.Exists("Conversion.dat"));
    EXPECT_TRUE(dir.Exists("Remotes.dat"));
    EXPECT_EQ(dir.EntryCount(), 3u) << "no temporary file left behind";

    // A folder that does not exist.
    const std::string old = dir.Read("Defaults.dat");
    ui::ScriptedUserInterface elsewhere;
    elsewhere.App = dir.File("no such folder");
    Model changed = BuiltInModel();
    EXPECT_FALSE(SaveDefaultsFile(changed, elsewhere));
    EXPECT_EQ(elsewhere.Texts("Message"), std::vector<std::string>{"ERROR 76: That path doesn't exist."});
    EXPECT_EQ(dir.Read("Defaults.dat"), old);

    // The station list cannot be written: the message by its code.
    dir.Write("Defaults.dat", "old");
    std::filesystem::remove(dir.Path / "Remotes.dat");
    std::filesystem::create_directory(dir.Path / "Remotes.dat");
    EXPECT_FALSE(SaveDefaultsFile(m, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"ERROR 75 occurred saving defaults."});
}

TEST(DefaultsFile, CommandsAskAndMarkTheDefaults) {
    AppFolder dir;
    Model m;
    SetEveryField(m);
    ASSERT_TRUE(SaveDefaultsFile(m, dir.Ui));

    Model n = BuiltInModel();
    n.DefaultsSaved = No0;
    dir.Ui.Answers = {ui::Answer::Cancel};
    ReloadDefaultsCommand(n, dir.Ui);
    EXPECT_EQ(n.Set.NodeDivisions, 5);
    EXPECT_EQ(n.DefaultsSaved, No0);
    ReloadDefaultsCommand(n, dir.Ui);
    EXPECT_EQ(n.Set.NodeDivisions, 7);
    EXPECT_EQ(n.DefaultsSaved, Yes255);
    EXPECT_EQ(n.Fans.size(), 321u) << "the fan table follows MaxFans at once";
    ASSERT_EQ(dir.Ui.Transcript.size(), 2u);
    EXPECT_EQ(dir.Ui.Transcript[0].Title, "Reload Defaults");
    EXPECT_EQ(dir.Ui.Transcript[0].Text, "Current defaults will be lost!");

    n.DefaultsSaved = No0;
    SaveDefaultsCommand(n, dir.Ui);
    EXPECT_EQ(n.DefaultsSaved, Yes255);
    ui::ScriptedUserInterface nowhere;
    nowhere.App = dir.File("missing");
    n.DefaultsSaved = No0;
    SaveDefaultsCommand(n, nowhere);
    EXPECT_EQ(n.DefaultsSaved, No0) << "a failed save keeps the changes on offer";
}

TEST(BuiltInSettings, StartWithoutFilesGivesTheBuiltInValues) {
    Model fresh = BuiltInModel();

    AppFolder dir;
    Model m;
    SetEveryField(m);
    LoadBuiltInSettings(m, dir.Ui);
    EXPECT_EQ(dir.Ui.Texts("Message"),
              (std::vector<std::string>{"Error re-loading defaults", "Cannot find DEFAULTS File"}));
    EXPECT_EQ(DefaultsText(m, '.'), DefaultsText(fresh, '.'));
    EXPECT_EQ(m.DefaultsSaved, Yes255);
    EXPECT_EQ(m.Fans.size(), 251u);
    EXPECT_EQ(m.AirwayCount, 0);

    // With the station list in place, the missing defaults are the one message.
    AppFolder withStations;
    ASSERT_EQ(SaveStations(fresh, withStations.Ui), 0);
    Model n;
    LoadBuiltInSettings(n, withStations.Ui);
    EXPECT_EQ(withStations.Ui.Texts("Message"), std::vector<std::string>{"Error re-loading defaults"});
}

TEST(BuiltInSettings, DefaultsFileOverBuiltInValuesWithTheFixUps) {
    AppFolder dir;
    Model saved;
    SetEveryField(saved);
    saved.Set.SpinSpeed = 0;
    saved.Set.TiltSpeed = 0;
    saved.Stations.Stations[3].StationName = "Fan house";
    ASSERT_TRUE(SaveDefaultsFile(saved, dir.Ui));

    Model m;
    LoadBuiltInSettings(m, dir.Ui);
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_EQ(m.Set.SpinSpeed, 2.0f);
    EXPECT_EQ(m.Set.TiltSpeed, 2.0f);
    EXPECT_EQ(m.Set.NodeDivisions, 7);
    EXPECT_EQ(m.Set.MaxFans, 320);
    EXPECT_EQ(m.Fans.size(), 321u);
    EXPECT_EQ(m.Stations.Stations[3].StationName, "Fan house");
    EXPECT_EQ(AutosaveIntervalMs(m.Set), 30000);
    EXPECT_TRUE(RealTimeMenusVisible(m.Set));

    // A version line in the other machine's separator reads the same.
    std::string text = dir.Read("Defaults.dat");
    text[1] = ',';
    dir.Write("Defaults.dat", text);
    Model n;
    LoadBuiltInSettings(n, dir.Ui);
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_EQ(n.Set.NodeDivisions, 7);
}
