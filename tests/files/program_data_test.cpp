// The program's own data files shipped in examples/: Defaults.dat and Remotes.dat are exactly what
// the writers make of the built-in values, Conversion.dat holds the built-in unit table, and the
// files load cleanly and the others are written again byte for byte. After a deliberate change of a format the
// disabled test writes them again through the program:
//   karvane_tests_files --gtest_also_run_disabled_tests --gtest_filter=ProgramData.DISABLED_Regenerate
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "app_folder.h"
#include "files/conversion_file.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "files/station_list.h"
#include "network_fixture.h"

using namespace karvane;
using namespace karvane::files;
using namespace karvane::testing;

namespace {

const std::string Examples = KARVANE_EXAMPLES;

// The shipped files loaded as the program starts with them.
Model Shipped() {
    ui::ScriptedUserInterface ui;
    ui.App = Examples;
    Model m;
    LoadBuiltInSettings(m, ui);
    EXPECT_TRUE(LoadConversions(m, ui));
    EXPECT_TRUE(LoadFanDatabase(m, ui));
    EXPECT_TRUE(ui.Transcript.empty());
    return m;
}

// Writes the four files of a model into a folder, the fan database under the stamp it was read with.
void WriteProgramData(Model& m, const std::string& folder) {
    ui::ScriptedUserInterface ui;
    ui.App = folder;
    ASSERT_TRUE(SaveDefaultsFile(m, ui)); // Defaults.dat, Conversion.dat, Remotes.dat
    --m.FanStamp;
    ASSERT_TRUE(SaveFanDatabase(m, ui));
    EXPECT_TRUE(ui.Transcript.empty());
}

} // namespace

TEST(ProgramData, ShippedFilesLoadAndAreWrittenAgainByteForByte) {
    Model m = Shipped();
    AppFolder dir;
    WriteProgramData(m, dir.Path.string());
    // Defaults.dat is not among them: its empty resistance names read back as "undefined".
    for (const char* name : {"Conversion.dat", "Remotes.dat", "fansdata.dat"})
        EXPECT_EQ(AppFolder::ReadFile(Examples + "/" + name), dir.Read(name)) << name << " is out of date";
}

TEST(ProgramData, ShippedDefaultsAndUnitsAreTheBuiltInValues) {
    // A record that has been in use: the built-in values must replace every field, not only fill
    // the empty ones.
    Model m;
    m.Set.Density = 0.5f;
    m.Set.LastAirwayNo = 88;
    m.Set.IconSize[3] = 17;
    m.Set.FontName[2] = "Courier";
    m.Preset.WallNames[30] = "left over";
    m.Preset.ShockPreset[40] = 9.0f;
    m.Units.Rows[4].Label[2] = "stale";
    SetUpBuiltIn(m);
    EXPECT_EQ(DefaultsText(m), AppFolder::ReadFile(Examples + "/Defaults.dat"));
    AppFolder dir;
    ASSERT_EQ(SaveStations(m, dir.Ui), 0);
    EXPECT_EQ(dir.Read("Remotes.dat"), AppFolder::ReadFile(Examples + "/Remotes.dat"));

    const Model shipped = Shipped();
    EXPECT_EQ(shipped.Set.MaxFans, m.Set.MaxFans);
    for (int c = 1; c <= UnitClassCount; ++c) {
        EXPECT_FALSE(shipped.Units.Rows[c].ClassName.empty());
        EXPECT_EQ(shipped.Units.Rows[c].Factor, m.Units.Rows[c].Factor) << c;
        EXPECT_EQ(shipped.Units.Rows[c].Label, m.Units.Rows[c].Label) << c;
        EXPECT_EQ(shipped.Units.Rows[c].Format, m.Units.Rows[c].Format) << c;
    }
}

TEST(ProgramData, DISABLED_Regenerate) {
    Model m = Shipped();
    WriteProgramData(m, Examples);
    std::ofstream(Examples + "/Defaults.dat", std::ios::binary) << DefaultsText(BuiltInModel());
}
