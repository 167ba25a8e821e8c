// Settings of older files: Defaults.dat of versions 1.0 to 2.7 from small hand-made files, and
// the row and line forms of old network files.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "files/defaults_file.h"
#include "files/old_settings.h"
#include "files/text_file.h"
#include "network_fixture.h"
#include "support/golden.h"

using namespace karvane;
using namespace karvane::files;
using namespace karvane::testing;

namespace {

// Loads a fixture of tests/data as the Defaults.dat of a program folder.
bool LoadFixture(Model& m, AppFolder& dir, const std::string& name) {
    std::filesystem::copy_file(std::string(KARVANE_TEST_DATA) + "/" + name, dir.File("Defaults.dat"));
    return LoadDefaultsFile(m, dir.Ui);
}

} // namespace

// Each old form read over the built-in values and written again in the current form: the golden
// block holds every preset and setting where the reader put it (friction of the true density
// brought to 1.2 at 4 decimals before 2.4, the extra resistance rows of KARVANE2 files, the zero
// rules, the rows and items each form lacks left as they were). Below 1.0 nothing is read.
TEST(OldDefaultsFile, EveryVersionAsWrittenNow) {
    struct Case {
        const char* File;
        bool Saved;
        std::size_t Fans;
    };
    for (const Case& c : {Case{"defaults_v09.dat", true, 251}, Case{"defaults_v23.dat", false, 301},
                          Case{"defaults_v24.dat", true, 251}, Case{"defaults_v26.dat", true, 401}}) {
        AppFolder dir;
        Model m = BuiltInModel();
        m.Preset.ResNames[11] = "kept";
        m.DefaultsSaved = Yes255;
        ASSERT_TRUE(LoadFixture(m, dir, c.File)) << c.File;
        EXPECT_TRUE(dir.Ui.Transcript.empty()) << c.File;
        EXPECT_EQ(m.DefaultsSaved, c.Saved ? Yes255 : No0) << c.File << ": converted values are offered for saving";
        EXPECT_EQ(m.Fans.size(), c.Fans) << c.File;
        ExpectGolden(std::string("loaded_") + c.File, DefaultsText(m));
    }
}

TEST(OldDefaultsFile, TruncatedFileSaysSoAndKeepsWhatWasRead) {
    // A 2.3 file that ends inside the settings items: what came before stands.
    AppFolder dir;
    std::string text = AppFolder::ReadFile(std::string(KARVANE_TEST_DATA) + "/defaults_v23.dat");
    text.resize(text.find("\"MY SURFACE\""));
    dir.Write("Defaults.dat", text);
    Model n = BuiltInModel();
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

    Model m = BuiltInModel();
    m.Preset.ResNames[30] = "Old";
    m.Preset.ResPreset[30] = 30;
    TextFileReader in;
    in.OpenText(text);
    ASSERT_EQ(ReadNetworkSettingsRowForm(in, m, 2.0, '.'), 0);
    // Friction brought to density 1.2, the resistance rows from 10 on reset to "undefined".
    ExpectGolden("row_form_settings.txt", DefaultsText(m));
    std::string next;
    ASSERT_TRUE(in.ReadLine(next));
    EXPECT_EQ(next, "Saved Views");

    TextFileReader cut;
    cut.OpenText(text.substr(0, text.find("Res 3")));
    EXPECT_EQ(ReadNetworkSettingsRowForm(cut, m, 2.0, '.'), err::PastEndOfFile);
}

TEST(OldNetworkSettings, LineFormOfVersions21To27) {
    // The 48 settings items: 0 leaves AirEfficiency (4) as it is, an empty DisplayOptions (13)
    // reads 511, a font name written as a number (32) is not a font, the later size of font 4 (38)
    // wins.
    auto settingsLine = [](char fieldSep) {
        std::string line = ",0.15,,0,,1.1,9,4,,,,,,Courier,,,,,,9,,,1050,,,,,,2,1,7,12345,,True,,,,11,2,3,,,,,,8,,-1";
        std::replace(line.begin(), line.end(), ',', fieldSep);
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
        Model m = BuiltInModel();
        m.Set.DisplayOptions = 3;
        TextFileReader in;
        in.OpenText(text);
        ASSERT_EQ(ReadNetworkSettingsLineForm(in, m, version, '.'), 0) << version;
        // Friction converted below 2.4 only; the bulkhead as read (the loader, not this reader,
        // fixes it); 0 leaves AirEfficiency alone, an empty DisplayOptions reads 511.
        ExpectGolden("line_form_settings_v" + std::to_string(static_cast<int>(version * 10)) + ".txt", DefaultsText(m));
        std::string next;
        ASSERT_TRUE(in.ReadLine(next));
        EXPECT_EQ(next, "Saved Views");
    }
}
