// Settings of older files: Defaults.dat of versions 1.0 to 2.7 from small hand-made files, and
// the row and line forms of old network files.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app_folder.h"
#include "files/defaults_file.h"
#include "files/old_settings.h"
#include "files/text_file.h"

using namespace karvane;
using namespace karvane::files;
using karvane::testing::AppFolder;
using karvane::testing::CrLf;
using karvane::testing::SetUpBuiltIn;

namespace {

// Loads a fixture of tests/data as the Defaults.dat of a program folder.
bool LoadFixture(Model& m, AppFolder& dir, const std::string& name) {
    std::filesystem::copy_file(std::string(KARVANE_TEST_DATA) + "/" + name, dir.File("Defaults.dat"));
    return LoadDefaultsFile(m, dir.Ui);
}

} // namespace

TEST(OldDefaultsFile, Version23CommaFormWithExtraResistanceRows) {
    AppFolder dir;
    Model m;
    SetUpBuiltIn(m);
    ASSERT_TRUE(LoadFixture(m, dir, "defaults_v23.dat"));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    const Presets& p = m.Preset;
    const Settings& s = m.Set;

    // Friction values of the true density become values at 1.2, to 4 decimals.
    EXPECT_EQ(p.WallNames[0], "Smooth Pipes");
    EXPECT_FLOAT_EQ(p.WallPreset[0], 0.003f);
    EXPECT_FLOAT_EQ(p.WallPreset[5], 0.012f);
    EXPECT_FLOAT_EQ(p.WallPreset[7], 0.025f);
    EXPECT_FLOAT_EQ(p.WallPreset[10], 0.0583f);
    EXPECT_EQ(p.WallNames[10], "Old Workings");
    EXPECT_EQ(p.ResNames[1], "Bulkhead");
    EXPECT_EQ(p.ResPreset[1], 5000.0f);
    EXPECT_EQ(p.ResNames[11], "Reg 11");
    EXPECT_EQ(p.ResPreset[49], 49.5f);
    EXPECT_EQ(p.ShockNames[6], "Extreme");
    EXPECT_EQ(p.ShockPreset[6], 400.0f);

    // The first and last item of each group, the rules and the dropped items between.
    EXPECT_EQ(s.NodeDivisions, 7);
    EXPECT_EQ(s.GridSpacing, 75.5);
    EXPECT_EQ(s.DriveWallType, 5);
    EXPECT_EQ(s.RaiseDiameter, 2.1f);
    EXPECT_EQ(s.SurfaceName, "MY SURFACE");
    EXPECT_EQ(s.AllowErr, 0.01f);
    EXPECT_EQ(s.AirwayCapacity, 20000);
    EXPECT_EQ(s.RaiseWallType, 3);
    EXPECT_EQ(s.Density, 1.2f) << "0 reads 1.2";
    EXPECT_EQ(s.MaxFans, 300);
    EXPECT_EQ(s.DisplayOptions, 255);
    EXPECT_EQ(s.SurfaceBaro, 101.0f) << "0 reads 101";
    EXPECT_TRUE(s.ScreenBuffer);
    EXPECT_EQ(s.Colours[0], 65280);
    EXPECT_EQ(s.Colours[7], 32768);
    EXPECT_EQ(s.FontName[1], "Courier New");
    EXPECT_EQ(s.FontBold[1], 1);
    EXPECT_EQ(s.FontSize[3], 10);
    EXPECT_EQ(s.FontName[4], "Arial") << "the fourth font is not in these files";
    EXPECT_EQ(m.DefaultsSaved, No0) << "converted values are offered for saving";
    EXPECT_EQ(m.Fans.size(), 301u);
}

TEST(OldDefaultsFile, Version24CommaFormWithoutExtrasOrFonts) {
    AppFolder dir;
    Model m;
    SetUpBuiltIn(m);
    m.Preset.ResNames[11] = "kept";
    ASSERT_TRUE(LoadFixture(m, dir, "defaults_v24.dat"));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_FLOAT_EQ(m.Preset.WallPreset[5], 0.012f) << "2.4 is already at density 1.2";
    EXPECT_EQ(m.Preset.ResNames[10], "Custom");
    EXPECT_EQ(m.Preset.ResNames[11], "kept") << "no extra rows without KARVANE2";
    EXPECT_EQ(m.Set.Density, 1.1f);
    EXPECT_EQ(m.Set.SurfaceBaro, 95.0f);
    EXPECT_EQ(m.Set.MaxFans, 250) << "0 reads 250";
    EXPECT_FALSE(m.Set.ScreenBuffer);
    EXPECT_EQ(m.Set.Colours[7], 8);
    EXPECT_EQ(m.Set.FontName[1], "Arial");
    EXPECT_EQ(m.DefaultsSaved, Yes255);
}

TEST(OldDefaultsFile, Version26LineForm) {
    AppFolder dir;
    Model m;
    SetUpBuiltIn(m);
    ASSERT_TRUE(LoadFixture(m, dir, "defaults_v26.dat"));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    const Presets& p = m.Preset;
    const Settings& s = m.Set;
    EXPECT_EQ(p.WallNames[10], "Wall 10");
    EXPECT_FLOAT_EQ(p.WallPreset[3], 0.04f);
    // Rows 0 to 10 of the resistances are not in this form, and the bulkhead is the blocked value.
    EXPECT_EQ(p.ResNames[2], "Steel Door");
    EXPECT_EQ(p.ResPreset[1], 1e9f);
    EXPECT_EQ(p.ResNames[11], "Reg 11");
    EXPECT_EQ(p.ResNames[12], "undefined");
    EXPECT_EQ(p.ResPreset[49], 49.0f);
    EXPECT_EQ(p.ResNames[50], "Custom Res");
    EXPECT_EQ(p.ShockNames[6], "Shock 6");
    EXPECT_EQ(p.ShockPreset[6], 60.0f);

    EXPECT_EQ(s.NodeDivisions, 8);
    EXPECT_EQ(s.PickDivisions, 30);
    EXPECT_EQ(s.DriveWallType, 6);
    EXPECT_EQ(s.RaiseDiameter, 3.0f);
    EXPECT_EQ(s.SurfaceName, "TOP");
    EXPECT_EQ(s.AllowErr, 0.02f);
    EXPECT_EQ(s.AirwayCapacity, 30000);
    EXPECT_EQ(s.PowerCost, 0.1f);
    EXPECT_EQ(s.Density, 1.2f);
    EXPECT_EQ(s.MaxFans, 400);
    EXPECT_EQ(s.TiltSpeed, 0.0f) << "the start-up step, not the reader, puts 2 in place of 0";
    EXPECT_EQ(s.DisplayOptions, 127);
    EXPECT_EQ(s.SurfaceBaro, 98.5f);
    EXPECT_TRUE(s.ScreenBuffer);
    EXPECT_EQ(s.ViewBoxWidth, 500.0f) << "not in this form";
}

TEST(OldDefaultsFile, VersionBelowOneReadsNothingAndTruncatedFilesSaySo) {
    AppFolder dir;
    Model m;
    SetUpBuiltIn(m);
    ASSERT_TRUE(LoadFixture(m, dir, "defaults_v09.dat"));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_EQ(m.Preset.WallPreset[0], 0.003f);

    // A 2.3 file that ends inside the settings items: what came before stands.
    std::string text = AppFolder::ReadFile(std::string(KARVANE_TEST_DATA) + "/defaults_v23.dat");
    text.resize(text.find("\"MY SURFACE\""));
    dir.Write("Defaults.dat", text);
    Model n;
    SetUpBuiltIn(n);
    EXPECT_FALSE(LoadDefaultsFile(n, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"Error re-loading defaults"});
    EXPECT_EQ(n.Preset.ShockNames[6], "Extreme");
    EXPECT_EQ(n.Set.RaiseDiameter, 2.1f);
    EXPECT_EQ(n.Set.SurfaceName, "SURFACE");
}

TEST(OldNetworkSettings, RowFormOfVersions15To20) {
    std::string text;
    for (int i = 0; i <= 10; ++i) text += std::to_string(i) + ",\"Wall " + std::to_string(i) + "\",0.012\r\n";
    for (int i = 0; i <= 10; ++i)
        text += std::to_string(i) + ",\"Res " + std::to_string(i) + "\"," + std::to_string(i) + "\r\n";
    for (int i = 0; i <= 6; ++i) text += std::to_string(i) + ",\"Shock " + std::to_string(i) + "\",5\r\n";
    text += "Saved Views\r\n";

    Model m;
    SetUpBuiltIn(m);
    m.Preset.ResNames[30] = "Old";
    m.Preset.ResPreset[30] = 30;
    TextFileReader in;
    in.OpenText(text);
    ASSERT_EQ(ReadNetworkSettingsRowForm(in, m, 2.0, '.'), 0);
    EXPECT_EQ(m.Preset.WallNames[4], "Wall 4");
    EXPECT_FLOAT_EQ(m.Preset.WallPreset[4], 0.01f);
    EXPECT_EQ(m.Preset.ResNames[9], "Res 9");
    EXPECT_EQ(m.Preset.ResPreset[9], 9.0f);
    EXPECT_EQ(m.Preset.ResNames[10], "undefined");
    EXPECT_EQ(m.Preset.ResPreset[10], 0.0f);
    EXPECT_EQ(m.Preset.ResNames[30], "undefined");
    EXPECT_EQ(m.Preset.ResPreset[30], 0.0f);
    EXPECT_EQ(m.Preset.ShockNames[6], "Shock 6");
    std::string next;
    ASSERT_TRUE(in.ReadLine(next));
    EXPECT_EQ(next, "Saved Views");

    TextFileReader cut;
    cut.OpenText(text.substr(0, text.find("Res 3")));
    EXPECT_EQ(ReadNetworkSettingsRowForm(cut, m, 2.0, '.'), err::PastEndOfFile);
}

TEST(OldNetworkSettings, LineFormOfVersions21To27) {
    auto settingsLine = [](char fieldSep) {
        std::string fields[49];
        fields[2] = "0.15";
        fields[4] = "0"; // 0 leaves AirEfficiency as it is
        fields[6] = "1.1";
        fields[7] = "9";
        fields[8] = "4";
        fields[13] = ""; // empty DisplayOptions reads 511
        fields[14] = "Courier";
        fields[20] = "9";
        fields[23] = "1050";
        fields[29] = "2";
        fields[30] = "1";
        fields[31] = "7";
        fields[32] = "12345"; // a font name written as a number: not a font
        fields[34] = "True";
        fields[38] = "11"; // the later size of font 4 wins
        fields[39] = "2";
        fields[40] = "3";
        fields[46] = "8";
        fields[48] = "-1";
        std::string line;
        for (int i = 1; i <= 48; ++i) line += (i > 1 ? std::string(1, fieldSep) : "") + fields[i];
        return line;
    };
    for (double version : {2.3, 2.6}) {
        const char fs = version > 2.4 ? '\t' : ',';
        auto join = [fs](const std::string& stem, int count, const std::string& value) {
            std::string line;
            for (int i = 0; i < count; ++i)
                line += (i ? std::string(1, fs) : "") + (value.empty() ? stem + std::to_string(i) : value);
            return line;
        };
        std::string res = join("Res ", 50, "");
        res.replace(res.find("Res 12"), 6, ""); // an empty name reads "undefined"
        const std::string text =
            CrLf({join("Wall ", 11, ""), join("", 11, "0.012"), res, join("", 50, "2.5"), join("Shock ", 7, ""),
                  join("", 7, "20"), settingsLine(fs), "**End of Network Defaults**", "Saved Views"});
        Model m;
        SetUpBuiltIn(m);
        m.Set.DisplayOptions = 3;
        TextFileReader in;
        in.OpenText(text);
        ASSERT_EQ(ReadNetworkSettingsLineForm(in, m, version, '.'), 0) << version;
        const Settings& s = m.Set;
        EXPECT_FLOAT_EQ(m.Preset.WallPreset[2], version < 2.4 ? 0.01f : 0.012f) << version;
        EXPECT_EQ(m.Preset.ResNames[49], "Res 49");
        EXPECT_EQ(m.Preset.ResNames[12], "undefined");
        EXPECT_EQ(m.Preset.ResPreset[1], 2.5f) << "the loader, not this reader, fixes the bulkhead";
        EXPECT_EQ(m.Preset.ShockPreset[6], 20.0f);
        EXPECT_EQ(s.PowerCost, 0.15f);
        EXPECT_EQ(s.AirEfficiency, 0.8f);
        EXPECT_EQ(s.Density, 1.1f);
        EXPECT_EQ(s.DimOptions, 9);
        EXPECT_EQ(s.SpinSpeed, 4.0f);
        EXPECT_EQ(s.TiltSpeed, 2.0f);
        EXPECT_EQ(s.DisplayOptions, 511);
        EXPECT_EQ(s.FontName[1], "Courier");
        EXPECT_EQ(s.FontName[2], "Arial");
        EXPECT_EQ(s.FontName[4], "Arial");
        EXPECT_EQ(s.FontSize[1], 9);
        EXPECT_EQ(s.SurfaceRL, 1050.0f);
        EXPECT_EQ(s.DataFilter, 2);
        EXPECT_EQ(s.FontBold[4], 1);
        EXPECT_EQ(s.FontSize[4], 11);
        EXPECT_TRUE(s.ScreenBuffer);
        EXPECT_EQ(s.ScaleFonts, 2);
        EXPECT_EQ(s.IconSize[0], 3);
        EXPECT_EQ(s.IconSize[6], 8);
        EXPECT_FALSE(s.NoPropertyInherit);
        EXPECT_TRUE(s.AutoInfo);
        std::string next;
        ASSERT_TRUE(in.ReadLine(next));
        EXPECT_EQ(next, "Saved Views");
    }
}
