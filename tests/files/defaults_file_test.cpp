// The defaults block and Defaults.dat: the exact text, the round trip of every field, the zero
// rules, the other machine's decimal separator, the start-up step and its messages.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "app_folder.h"
#include "files/defaults_file.h"
#include "files/number_text.h"
#include "files/station_list.h"
#include "files/text_file.h"

using namespace karvane;
using namespace karvane::files;
using karvane::testing::AppFolder;
using karvane::testing::SetUpBuiltIn;

namespace {

std::string BlockText(const Model& model, char sep) {
    AppFolder dir;
    TextFileWriter out;
    EXPECT_EQ(out.Open(dir.File("block.txt")), 0);
    WriteDefaultsBlock(out, model, sep);
    EXPECT_EQ(out.Commit(), 0);
    return dir.Read("block.txt");
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0, end;
    while ((end = text.find("\r\n", start)) != std::string::npos) {
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    if (start < text.size()) lines.push_back(text.substr(start));
    return lines;
}

std::vector<std::string> Tabs(const std::string& line) {
    std::vector<std::string> out(1);
    for (char c : line) {
        if (c == '\t') out.emplace_back();
        else out.back() += c;
    }
    return out;
}

std::string Join(const std::vector<std::string>& lines) {
    std::string out;
    for (const auto& l : lines) out += l + "\r\n";
    return out;
}

int ReadBlockText(Model& model, const std::string& text, char sep = '.') {
    TextFileReader in;
    in.OpenText(text);
    std::string first;
    in.ReadLine(first);
    return ReadDefaultsBlock(in, model, first, sep);
}

// Every field of the settings and presets away from its built-in value.
void SetEveryField(Model& m) {
    Settings& s = m.Set;
    s.NodeDivisions = 7;
    s.GridSpacing = 62.5;
    s.PickDivisions = 30;
    s.DriveWallType = 6;
    s.DefaultShock = 3;
    s.DriveHeight = 4.5f;
    s.DriveWidth = 5.25f;
    s.RaiseDiameter = 3.1f;
    s.SurfaceName = "PORTAL";
    s.MaxIter = 75;
    s.AllowErr = 0.01f;
    s.AirwayCapacity = 12000;
    s.PowerCost = 0.11f;
    s.AirEfficiency = 0.72f;
    s.Density = 1.15f;
    s.DimOptions = 12;
    s.SpinSpeed = 3.5f;
    s.TiltSpeed = 1.5f;
    s.FullRotation = -1;
    s.FreshExhaust = 1;
    s.AttributeMask = 5;
    s.DisplayOptions = 300;
    s.SurfaceRL = 1020.5f;
    s.DxfNodeCircle = 2;
    s.DxfArrow = 3;
    s.DxfData = 4;
    s.DxfAirway = 5;
    s.DxfNode = 6;
    s.DataFilter = 2;
    s.DxfFloat = 7;
    s.ScreenBuffer = true;
    s.ScaleFonts = 0;
    s.NoPropertyInherit = true;
    for (int k = 1; k <= FontCount; ++k) {
        s.FontName[k] = "Font " + std::to_string(k);
        s.FontBold[k] = static_cast<std::int16_t>(k % 2);
        s.FontSize[k] = static_cast<std::int16_t>(6 + k);
    }
    for (int k = 0; k < IconCount; ++k) {
        s.IconSize[k] = static_cast<std::int16_t>(10 + k);
        s.IconScaled[k] = static_cast<std::int16_t>(k % 2);
    }
    for (int k = 0; k < ColourCount; ++k) s.Colours[k] = 1000 + k;
    s.PowerZoom = 6;
    s.MaxFans = 320;
    s.PresetResOverride = 1;
    s.UnlimitedSpeed = 1;
    s.UnitSys = 2;
    s.PerspectiveDistance = 2500;
    s.LayerInherit = true;
    s.DefaultPerimeter = 14;
    s.DefaultArea = 12.5f;
    s.UseArea = 1;
    s.DefaultCurvePct = 40;
    s.RealTimeOn = 1;
    s.LastAirwayNo = 4321;
    s.AutoInfo = true;
    s.ScrollZoomOff = 1;
    s.AutosaveMinutes = 5;
    s.SmokeCumulative = 1;
    s.EditNoRightClick = 1;
    s.ViewBoxWidth = 750;
    s.ViewBoxX = 2500;
    s.ViewBoxY = -300;
    s.FlowMin = 5;
    s.FlowMax = 400;
    Presets& p = m.Preset;
    for (int i = 0; i < PresetRows; ++i) {
        p.WallNames[i] = "Wall " + std::to_string(i);
        p.WallPreset[i] = 0.001f * static_cast<float>(i + 1);
        p.ResNames[i] = "Res " + std::to_string(i);
        p.ResPreset[i] = 1.5f * static_cast<float>(i);
        p.ShockNames[i] = "Shock " + std::to_string(i);
        p.ShockPreset[i] = static_cast<float>(10 * i);
    }
    p.ResPreset[1] = static_cast<float>(BlockedResValue);
}

} // namespace

TEST(DefaultsBlock, SameBytesInNetworkFileAndDefaultsDat) {
    for (char sep : {'.', ','}) {
        AppFolder dir;
        dir.Ui.Separator = sep;
        Model m;
        SetUpBuiltIn(m);
        SetEveryField(m);
        ASSERT_TRUE(SaveDefaultsFile(m, dir.Ui));
        const std::string defaults = dir.Read("Defaults.dat");

        // The block as the network file embeds it, behind its own line and before the views.
        TextFileWriter out;
        ASSERT_EQ(out.Open(dir.File("net.sim")), 0);
        out.WriteLine("Defaults List for Network");
        WriteDefaultsBlock(out, m, sep);
        out.WriteLine("Saved Views");
        ASSERT_EQ(out.Commit(), 0);
        EXPECT_EQ(dir.Read("net.sim"), "Defaults List for Network\r\n" + defaults + "Saved Views\r\n");
        EXPECT_TRUE(dir.Ui.Transcript.empty());
    }
}

TEST(DefaultsBlock, LayoutOfTheLines) {
    Model m;
    SetUpBuiltIn(m);
    SetEveryField(m);
    const auto lines = Lines(BlockText(m, '.'));
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[0], "3.1\tKARVANE3");
    EXPECT_EQ(lines[8], "**End of Network Defaults**");
    for (int i = 1; i <= 6; ++i) {
        auto f = Tabs(lines[static_cast<std::size_t>(i)]);
        ASSERT_EQ(f.size(), 51u) << "line " << i + 1;
        EXPECT_EQ(f[50], "") << "every item followed by a tab";
    }
    EXPECT_EQ(Tabs(lines[1])[3], "Wall 3");
    EXPECT_EQ(Tabs(lines[2])[1], " 0.002 ");
    EXPECT_EQ(Tabs(lines[4])[1], " 1E+09 ");

    // The settings line: 90 values in their order, no tab behind the last.
    auto f = Tabs(lines[7]);
    ASSERT_EQ(f.size(), 90u);
    auto field = [&](int n) { return f[static_cast<std::size_t>(n - 1)]; };
    EXPECT_EQ(field(1), " 7 ");
    EXPECT_EQ(field(2), " 62.5 ");
    EXPECT_EQ(field(5), " 3 ");
    EXPECT_EQ(field(9), "PORTAL");
    EXPECT_EQ(field(12), " 30000 ") << "the capacity of the writing program, not the field";
    EXPECT_EQ(field(15), " 1.15 ");
    EXPECT_EQ(field(19), "-1 ");
    EXPECT_EQ(field(31), "True");
    EXPECT_EQ(field(33), "True");
    EXPECT_EQ(field(34), "Font 1");
    EXPECT_EQ(field(35), " 1 ");
    EXPECT_EQ(field(36), " 7 ");
    EXPECT_EQ(field(43), "Font 4");
    // Icons in the order 0, 1, 4, 3, 2, 6, 5, size then scaled.
    const int order[] = {0, 1, 4, 3, 2, 6, 5};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(field(46 + 2 * i), " " + std::to_string(10 + order[i]) + " ");
        EXPECT_EQ(field(47 + 2 * i), " " + std::to_string(order[i] % 2) + " ");
    }
    EXPECT_EQ(field(60), " 1000 ");
    EXPECT_EQ(field(67), " 1007 ");
    EXPECT_EQ(field(68), " 6 ");
    EXPECT_EQ(field(69), " 320 ");
    EXPECT_EQ(field(70), " 1 ");
    EXPECT_EQ(field(72), " 2 ");
    EXPECT_EQ(field(74), "True");
    EXPECT_EQ(field(80), " 4321 ");
    EXPECT_EQ(field(83), " 5 ");
    EXPECT_EQ(field(88), "-300 ");
    EXPECT_EQ(field(90), " 400 ");

    const auto comma = Lines(BlockText(m, ','));
    EXPECT_EQ(comma[0], "3,1\tKARVANE3");
    EXPECT_EQ(Tabs(comma[7])[1], " 62,5 ");
}

TEST(DefaultsBlock, RoundTripRestoresEveryField) {
    Model a;
    SetUpBuiltIn(a);
    SetEveryField(a);
    a.Preset.ResNames[20] = ""; // an empty resistance name comes back as "undefined"
    const std::string text = BlockText(a, '.');

    Model b;
    SetUpBuiltIn(b);
    ASSERT_EQ(ReadBlockText(b, text), 0);
    EXPECT_EQ(b.Preset.ResNames[20], "undefined");
    EXPECT_EQ(b.Set.AirwayCapacity, 30000);
    EXPECT_EQ(b.Set.GridSpacing, 62.5);
    EXPECT_EQ(b.Set.IconSize[4], 14);
    EXPECT_EQ(b.Set.FontName[3], "Font 3");
    EXPECT_EQ(b.Set.UnitSys, 2);
    EXPECT_TRUE(b.Set.LayerInherit);
    EXPECT_EQ(b.Preset.ResPreset[1], 1e9f);
    EXPECT_EQ(b.Preset.ResNames[CustomPreset], "Fix Res") << "row 50 is not in the file";

    a.Preset.ResNames[20] = "undefined";
    a.Set.AirwayCapacity = 30000;
    EXPECT_EQ(BlockText(b, '.'), BlockText(a, '.'));

    // Written under a decimal comma, read on a machine of full stops, and the other way round.
    Model c;
    SetUpBuiltIn(c);
    ASSERT_EQ(ReadBlockText(c, BlockText(a, ','), '.'), 0);
    EXPECT_EQ(BlockText(c, '.'), BlockText(a, '.'));
    Model d;
    SetUpBuiltIn(d);
    ASSERT_EQ(ReadBlockText(d, BlockText(a, '.'), ','), 0);
    EXPECT_EQ(BlockText(d, ','), BlockText(a, ','));
}

TEST(DefaultsBlock, ZeroRulesOfAShortSettingsLine) {
    Model source;
    SetUpBuiltIn(source);
    SetEveryField(source);
    auto lines = Lines(BlockText(source, '.'));
    auto f = Tabs(lines[7]);
    std::string shortLine;
    for (int i = 0; i < 20; ++i) shortLine += (i ? "\t" : "") + f[static_cast<std::size_t>(i)];
    lines[7] = shortLine;

    Model m;
    SetUpBuiltIn(m);
    SetEveryField(m);
    ASSERT_EQ(ReadBlockText(m, Join(lines)), 0);
    const Settings& s = m.Set;
    EXPECT_EQ(s.FreshExhaust, 1) << "field 20 is still on the line";
    EXPECT_EQ(s.AttributeMask, 0);
    EXPECT_EQ(s.DisplayOptions, 0);
    EXPECT_EQ(s.FontName[1], "");
    EXPECT_FALSE(s.ScreenBuffer);
    EXPECT_EQ(s.Colours[0], 0);
    EXPECT_EQ(s.LastAirwayNo, 0);
    EXPECT_EQ(s.AutosaveMinutes, 0);
    EXPECT_EQ(s.FlowMin, 0.0f);
    // The values that 0 cannot mean.
    EXPECT_EQ(s.MaxFans, 250);
    EXPECT_EQ(s.UnitSys, 1);
    EXPECT_EQ(s.PerspectiveDistance, 1500.0f);
    EXPECT_EQ(s.DefaultPerimeter, 20.0f);
    EXPECT_EQ(s.DefaultArea, 25.0f);
    EXPECT_EQ(s.ViewBoxWidth, 500.0f);
    EXPECT_EQ(s.ViewBoxX, 1000.0f);
    EXPECT_EQ(s.ViewBoxY, 1000.0f);
    EXPECT_EQ(s.FlowMax, 1000.0f);

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
    Model source;
    SetUpBuiltIn(source);
    source.Set.Density = 0;
    source.Preset.ResPreset[1] = 250000;
    auto lines = Lines(BlockText(source, '.'));

    Model m;
    SetUpBuiltIn(m);
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
    ASSERT_EQ(ReadBlockText(m, BlockText(source, '.')), 0);
    EXPECT_EQ(m.Preset.ResPreset[1], 99999.0f);
}

TEST(DefaultsBlock, EndOfTextInsideTheBlockKeepsWhatWasRead) {
    Model source;
    SetUpBuiltIn(source);
    SetEveryField(source);
    auto lines = Lines(BlockText(source, '.'));

    Model m;
    SetUpBuiltIn(m);
    lines.resize(5); // up to the resistance values
    EXPECT_EQ(ReadBlockText(m, Join(lines)), err::PastEndOfFile);
    EXPECT_EQ(m.Preset.WallNames[3], "Wall 3");
    EXPECT_EQ(m.Preset.ResPreset[4], 6.0f);
    EXPECT_EQ(m.Preset.ShockNames[1], "Slight") << "not reached";
    EXPECT_EQ(m.Set.NodeDivisions, 5) << "not reached";

    // The closing line may be missing at the very end; behind it, the reader stops.
    auto whole = Lines(BlockText(source, '.'));
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

TEST(DefaultsFile, VersionOfTheFirstLine) {
    EXPECT_EQ(FirstLineVersion("3.1\tKARVANE3"), 3.1);
    EXPECT_EQ(FirstLineVersion("3,1\tKARVANE3"), 3.1);
    EXPECT_EQ(FirstLineVersion("2.6 KARVANE"), 2.6);
    EXPECT_EQ(FirstLineVersion(""), 0.0);
    EXPECT_EQ(FirstLineVersion("KARVANE"), 0.0);
}

TEST(DefaultsFile, MissingOrBrokenFileSaysSoAndKeepsTheValues) {
    AppFolder dir;
    Model m;
    SetUpBuiltIn(m);
    SetEveryField(m);
    const std::string before = BlockText(m, '.');
    EXPECT_FALSE(LoadDefaultsFile(m, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"Error re-loading defaults"});
    EXPECT_EQ(BlockText(m, '.'), before);

    dir.Write("Defaults.dat", "");
    dir.Ui.Transcript.clear();
    EXPECT_FALSE(LoadDefaultsFile(m, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"Error re-loading defaults"});

    // Older than any known form: nothing is read and nothing is said.
    dir.Write("Defaults.dat", "0.9 KARVANE\r\n\"Smooth Pipes\",0.5\r\n");
    dir.Ui.Transcript.clear();
    EXPECT_TRUE(LoadDefaultsFile(m, dir.Ui));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_EQ(BlockText(m, '.'), before);
}

TEST(DefaultsFile, ArbitraryBytesNeverBreakTheReader) {
    Model good;
    SetUpBuiltIn(good);
    SetEveryField(good);
    const auto lines = Lines(BlockText(good, '.'));
    std::mt19937 rng(7);
    AppFolder dir;
    for (int round = 0; round < 300; ++round) {
        std::string text;
        const int count = static_cast<int>(rng() % 12);
        for (int i = 0; i < count; ++i) {
            if (rng() % 3 == 0) {
                std::string noise(rng() % 400, '\0');
                for (char& c : noise) c = static_cast<char>(rng() % 256);
                text += noise;
            } else {
                std::string line = lines[rng() % lines.size()];
                if (!line.empty() && rng() % 2) line.resize(rng() % line.size());
                text += line;
            }
            text += (rng() % 4 == 0) ? "\n" : "\r\n";
        }
        if (round % 3 == 0) text = lines[0] + "\r\n" + text;
        if (round % 5 == 0) text = "2." + std::to_string(rng() % 10) + " KARVANE2\r\n" + text;
        dir.Write("Defaults.dat", text);
        Model m;
        SetUpBuiltIn(m);
        LoadDefaultsFile(m, dir.Ui);
        EXPECT_GE(m.Set.MaxFans, 1);
        EXPECT_GE(m.Fans.size(), static_cast<std::size_t>(m.Set.MaxFans) + 1);
        EXPECT_TRUE(m.Set.UnitSys == 1 || m.Set.UnitSys == 2);
        EXPECT_GE(m.Set.DriveWallType, 0);
        EXPECT_LE(m.Set.DriveWallType, CustomPreset);
    }
}

TEST(DefaultsFile, SaveWritesTheThreeFilesAndAFailedSaveKeepsTheOldOnes) {
    AppFolder dir;
    Model m;
    SetUpBuiltIn(m);
    SetEveryField(m);
    ASSERT_TRUE(SaveDefaultsFile(m, dir.Ui));
    EXPECT_EQ(dir.Read("Defaults.dat"), BlockText(m, '.'));
    EXPECT_TRUE(dir.Exists("Conversion.dat"));
    EXPECT_TRUE(dir.Exists("Remotes.dat"));
    EXPECT_EQ(dir.EntryCount(), 3u) << "no temporary file left behind";

    // A folder that does not exist.
    const std::string old = dir.Read("Defaults.dat");
    ui::ScriptedUserInterface elsewhere;
    elsewhere.App = dir.File("no such folder");
    Model changed;
    SetUpBuiltIn(changed);
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
    SetUpBuiltIn(m);
    SetEveryField(m);
    ASSERT_TRUE(SaveDefaultsFile(m, dir.Ui));

    Model n;
    SetUpBuiltIn(n);
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
    Model fresh;
    SetUpBuiltIn(fresh);

    AppFolder dir;
    Model m;
    SetEveryField(m);
    LoadBuiltInSettings(m, dir.Ui);
    EXPECT_EQ(dir.Ui.Texts("Message"),
              (std::vector<std::string>{"Error re-loading defaults", "Cannot find DEFAULTS File"}));
    EXPECT_EQ(BlockText(m, '.'), BlockText(fresh, '.'));
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
    SetUpBuiltIn(saved);
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
    EXPECT_EQ(m.SavedViews[2].ViewName, " 2. Plan View 3D");
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

TEST(BuiltInSettings, AutosaveInterval) {
    Settings s;
    EXPECT_EQ(AutosaveIntervalMs(s), 0);
    EXPECT_FALSE(AutosaveEnabled(s));
    s.AutosaveMinutes = 10;
    EXPECT_EQ(AutosaveIntervalMs(s), 60000);
    s.AutosaveMinutes = -3;
    EXPECT_EQ(AutosaveIntervalMs(s), 0);
    s.AutosaveMinutes = 2000000000;
    EXPECT_EQ(AutosaveIntervalMs(s), 2147483647);
}
