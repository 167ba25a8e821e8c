// The program's own data files shipped in examples/: each is exactly what its writer makes, and
// loads back cleanly to the values it was made from. The disabled test rewrites them:
//   karvane_tests_files --gtest_also_run_disabled_tests --gtest_filter=ProgramData.DISABLED_Regenerate
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <tuple>

#include "app_folder.h"
#include "files/conversion_file.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "files/station_list.h"

using namespace karvane;
using namespace karvane::files;
using karvane::testing::AppFolder;
using karvane::testing::BuiltInModel;
using karvane::testing::SetUpBuiltIn;

namespace {

const std::string Examples = KARVANE_EXAMPLES;

const char* const ClassNames[UnitClassCount + 1] = {"",
                                                    "Length",
                                                    "Velocity",
                                                    "Area",
                                                    "Air Quantity",
                                                    "Resistance",
                                                    "Density",
                                                    "Power",
                                                    "Pressure",
                                                    "Mass",
                                                    "Friction Factor",
                                                    "Cost",
                                                    "Time",
                                                    "Barometric Pressure",
                                                    "Long Length",
                                                    "Percentage"};
const char* const Headings[6] = {"Unit Class", "Factor SI to British", "SI Unit", "British Unit",
                                 "SI Format",  "British Format"};

// One library fan: quantity range, static pressure at the two ends of the range, the shape of
// the fall (axial fans fall steeply at high flow, centrifugal fans hold a flat top), and the
// efficiency at its peak in mid-curve.
struct FanSpec {
    const char* Name;
    float Diameter;     // m
    double QLow, QHigh; // m3/s
    double PHigh, PLow; // Pa, static
    double Shape;       // exponent of the fall
    double PeakEff;     // percent
};

const FanSpec LibraryFans[] = {
    {"Main Axial 3.6 m", 3.6f, 150, 380, 3800, 800, 1.6, 86},
    {"Main Axial 2.8 m", 2.8f, 100, 260, 3000, 600, 1.6, 84},
    {"Main Centrifugal 4.0 m", 4.0f, 120, 400, 4000, 1500, 2.2, 87},
    {"Booster Axial 2.0 m", 2.0f, 30, 80, 1600, 300, 1.6, 82},
    {"Booster Axial 1.6 m", 1.6f, 20, 60, 1200, 200, 1.5, 80},
    {"Booster Centrifugal 1.8 m", 1.8f, 25, 75, 2000, 700, 2.2, 83},
    {"Auxiliary Axial 1.0 m", 1.0f, 5, 20, 2500, 300, 1.4, 78},
    {"Auxiliary Axial 0.8 m", 0.8f, 3, 12, 1800, 200, 1.4, 76},
    {"Auxiliary Axial 0.6 m", 0.6f, 2, 7, 1200, 150, 1.4, 72},
    {"Auxiliary Centrifugal 0.9 m", 0.9f, 4, 15, 3000, 1200, 2.0, 75},
};

void FillLibrary(Model& m) {
    int number = 1;
    for (const FanSpec& request : LibraryFans) {
        FanRecord& fan = m.Fans[static_cast<std::size_t>(number++)];
        fan.FanName = request.Name;
        fan.FanDiam = request.Diameter;
        const double area = 3.141592654 * request.Diameter * request.Diameter / 4.0;
        for (int p = 1; p <= 10; ++p) {
            const double x = (p - 1) / 9.0;
            const double q = std::round((request.QLow + (request.QHigh - request.QLow) * x) * 10.0) / 10.0;
            const double ps = std::round(request.PHigh - (request.PHigh - request.PLow) * std::pow(x, request.Shape));
            const double velocity = q / area;
            const double mid = (p - 5.5) / 4.5;
            fan.FanQ[p] = static_cast<float>(q);
            fan.FanPStatic[p] = static_cast<float>(ps);
            fan.FanPTotal[p] = static_cast<float>(ps + std::round(0.6 * velocity * velocity));
            fan.FanEff[p] = static_cast<std::int16_t>(std::lround(request.PeakEff - 22.0 * mid * mid));
        }
    }
}

// Writes the four files as the program's writers make them into `folder`. The shipped files are
// the golden copies of the built-in settings, presets, colours, fonts and unit table.
void WriteProgramData(const std::string& folder) {
    ui::ScriptedUserInterface ui;
    ui.App = folder;
    // A record that has been in use: the built-in values must replace every field, not only
    // fill the empty ones, so the files below come out the same whatever came before.
    Model m;
    m.Set.Density = 0.5f;
    m.Set.LastAirwayNo = 88;
    m.Set.IconSize[3] = 17;
    m.Set.FontName[2] = "Courier";
    m.Preset.WallNames[30] = "left over";
    m.Preset.ShockPreset[40] = 9.0f;
    m.Units.Rows[4].Label[2] = "stale";
    SetUpBuiltIn(m);
    for (int c = 1; c <= UnitClassCount; ++c) m.Units.Rows[c].ClassName = ClassNames[c];
    for (int i = 0; i < 6; ++i) m.Units.Headings[static_cast<std::size_t>(i)] = Headings[i];
    ASSERT_TRUE(SaveDefaultsFile(m, ui)); // Defaults.dat, Conversion.dat, Remotes.dat
    FillLibrary(m);
    m.FanStamp = 0;
    ASSERT_TRUE(SaveFanDatabase(m, ui));
    EXPECT_TRUE(ui.Transcript.empty());
}

} // namespace

TEST(ProgramData, ShippedFilesAreWhatTheWritersMake) {
    AppFolder dir;
    WriteProgramData(dir.Path.string());
    for (const char* name : {"Defaults.dat", "Conversion.dat", "Remotes.dat", "fansdata.dat"})
        EXPECT_EQ(AppFolder::ReadFile(Examples + "/" + name), dir.Read(name)) << name << " is out of date";
}

TEST(ProgramData, ShippedFilesLoadCleanly) {
    ui::ScriptedUserInterface ui;
    ui.App = Examples;
    Model m;
    LoadBuiltInSettings(m, ui);
    Model builtIn = BuiltInModel();
    ASSERT_TRUE(LoadConversions(m, ui));
    ASSERT_TRUE(LoadFanDatabase(m, ui));
    EXPECT_TRUE(ui.Transcript.empty());
    EXPECT_EQ(m.Set.MaxFans, builtIn.Set.MaxFans);
    EXPECT_EQ(m.Preset.WallPreset, builtIn.Preset.WallPreset);
    EXPECT_EQ(m.Stations.Stations[50].StationName, "");
    for (int c = 1; c <= UnitClassCount; ++c) {
        EXPECT_FALSE(m.Units.Rows[c].ClassName.empty());
        EXPECT_EQ(m.Units.Rows[c].Factor, builtIn.Units.Rows[c].Factor) << c;
        EXPECT_EQ(m.Units.Rows[c].Label, builtIn.Units.Rows[c].Label) << c;
        EXPECT_EQ(m.Units.Rows[c].Format, builtIn.Units.Rows[c].Format) << c;
    }

    // The library fans come back as they were made.
    Model library = BuiltInModel();
    FillLibrary(library);
    for (std::size_t n = 1; n < m.Fans.size(); ++n) {
        const FanRecord& fan = m.Fans[n];
        const FanRecord& made = library.Fans[n];
        EXPECT_EQ(std::tie(fan.FanName, fan.FanDiam, fan.FanPStatic, fan.FanPTotal, fan.FanQ, fan.FanEff),
                  std::tie(made.FanName, made.FanDiam, made.FanPStatic, made.FanPTotal, made.FanQ, made.FanEff))
            << n;
    }
}

TEST(ProgramData, DISABLED_Regenerate) { WriteProgramData(Examples); }
