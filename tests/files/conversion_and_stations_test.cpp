// Conversion.dat and Remotes.dat: their exact text, round trips under either decimal
// separator, the format correction, short and damaged files, and the messages.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "app_folder.h"
#include "files/conversion_file.h"
#include "files/station_list.h"
#include "files/text_file.h"
#include "support/golden.h"

using namespace karvane;
using namespace karvane::files;
using namespace karvane::testing;

namespace {

void NameTheClasses(UnitTable& units) {
    for (int c = 1; c <= UnitClassCount; ++c) units.Rows[c].ClassName = "Class " + std::to_string(c);
    for (std::size_t i = 0; i < units.Headings.size(); ++i) units.Headings[i] = "Heading " + std::to_string(i + 1);
}

} // namespace

TEST(ConversionFile, TextAndRoundTrip) {
    for (char sep : {'.', ','}) {
        AppFolder dir;
        dir.Ui.Separator = sep;
        Model m = BuiltInModel();
        NameTheClasses(m.Units);
        ASSERT_TRUE(SaveConversions(m, dir.Ui));
        // The stored text is the format; read back on a machine of full stops over a table of
        // other values and written again, the same text.
        const std::string text = dir.Read("Conversion.dat");
        ExpectGolden(sep == '.' ? "conversion_point.dat" : "conversion_comma.dat", text);
        AppFolder reader;
        reader.Write("Conversion.dat", text);
        Model n = BuiltInModel();
        n.Units.Rows[4].Factor[2] = 99;
        n.Units.Rows[4].Factor[1] = 7;
        ASSERT_TRUE(LoadConversions(n, reader.Ui));
        EXPECT_TRUE(reader.Ui.Transcript.empty());
        EXPECT_EQ(n.Units.Rows[4].Factor[1], 1.0f);
        ASSERT_TRUE(SaveConversions(n, dir.Ui));
        EXPECT_EQ(dir.Read("Conversion.dat"), text);
    }
}

TEST(ConversionFile, FormatCorrection) {
    // A comma before decimals becomes a full stop; "0,000" is thousands, not three decimals.
    const std::pair<const char*, const char*> cases[] = {
        {"0,0", "0.0"},     {"0,00000", "0.00000"}, {"0.00", "0.00"},         {"0", "0"}, {",", ","},
        {"0,000", "0,000"}, {"#,##0", "#,##0"},     {"hh:mm:ss", "hh:mm:ss"}, {"", ""}};
    for (auto [written, corrected] : cases) EXPECT_EQ(CorrectedFormat(written), corrected) << written;

    AppFolder dir;
    std::string text = "Conversion Table : SI Units to British Units\r\na\tb\tc\td\te\tf\t\r\n";
    text += "Length\t 3,28084 \tm\tft\t0,0\t0\r\n";
    dir.Write("Conversion.dat", text);
    Model m = BuiltInModel();
    EXPECT_FALSE(LoadConversions(m, dir.Ui)) << "the file ends after class 1";
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"Error loading conversion values"});
    EXPECT_EQ(m.Units.Rows[1].Format[1], "0.0");
    EXPECT_EQ(m.Units.Rows[1].Format[2], "0");
    EXPECT_EQ(m.Units.Rows[1].Factor[2], 3.28084f);
    EXPECT_EQ(m.Units.Rows[1].ClassName, "Length");
    EXPECT_EQ(m.Units.Headings[5], "f");
    // The built-in table stands where the file did not reach.
    EXPECT_EQ(m.Units.Rows[2].Label[2], "ft/min");
    EXPECT_EQ(m.Units.Rows[2].ClassName, "");
}

TEST(ConversionFile, MissingFileAndFailedSave) {
    AppFolder dir;
    Model m = BuiltInModel();
    Model builtIn = BuiltInModel();
    EXPECT_FALSE(LoadConversions(m, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"Error loading conversion values"});
    for (int c = 1; c <= UnitClassCount; ++c) {
        EXPECT_EQ(m.Units.Rows[c].Format, builtIn.Units.Rows[c].Format);
        EXPECT_EQ(m.Units.Rows[c].ClassName, "");
    }

    ui::ScriptedUserInterface nowhere;
    nowhere.App = dir.File("missing");
    EXPECT_FALSE(SaveConversions(m, nowhere));
    EXPECT_EQ(nowhere.Texts("Message"), std::vector<std::string>{"Error savings conversion values"});
}

TEST(StationFile, FiftyLinesOfThirtyNineFieldsAndRoundTrip) {
    AppFolder dir;
    dir.Ui.Separator = ',';
    Model m;
    StationTable& t = m.Stations;
    Station& s = t.Stations[2];
    s.ChannelName[1] = "Quantity";
    s.ChannelAbbrev[1] = "Q";
    s.ChannelUnits[1] = "m3/s";
    s.ChannelFactor[1] = 0.1f;
    s.AlarmLow[1] = 20;
    s.AlarmHigh[5] = 95.5f;
    s.ChannelName[5] = "CO ppm";
    s.StationName = "Main fan, No. 1";
    s.UpdateFlow = -1;
    t.InputFile = "/data/logger.rem";
    t.Resimulate = 1;
    t.InputSeconds = 30;
    t.AlarmsOn = -1;
    t.OutputFile = "/data/out.txt";
    t.OutputSeconds = 12.5;
    ASSERT_EQ(SaveStations(m, dir.Ui), 0);

    // Fifty lines of 39 fields, the table's values on each, the last field without a tab behind
    // it; read back on a machine of full stops and written again, the same text.
    const std::string text = dir.Read("Remotes.dat");
    ExpectGolden("remotes_comma.dat", text);
    dir.Ui.Separator = '.';
    Model n;
    ASSERT_EQ(LoadStations(n, dir.Ui), 0);
    EXPECT_EQ(n.Stations.Stations[2].StationName, "Main fan, No. 1") << "texts keep their bytes";
    dir.Ui.Separator = ',';
    ASSERT_EQ(SaveStations(n, dir.Ui), 0);
    EXPECT_EQ(dir.Read("Remotes.dat"), text);
    EXPECT_EQ(StationTimerIntervalMs(n.Stations.InputSeconds), 30000);
    EXPECT_EQ(StationTimerIntervalMs(600), 65535) << "the longest period the platform's timer takes";
}

TEST(StationFile, BlankLineEndsTheListAndShortLinesLeaveFieldsBlank) {
    AppFolder dir;
    Model m;
    m.Stations.Stations[1].StationName = "First";
    m.Stations.Stations[3].StationName = "Third";
    ASSERT_EQ(SaveStations(m, dir.Ui), 0);
    std::string text = dir.Read("Remotes.dat");
    // Line 2 becomes empty; line 1 is cut after its channel names.
    const std::size_t second = text.find("\r\n") + 2;
    text = text.substr(0, second) + text.substr(text.find("\r\n", second));
    text = "A\tB\tC" + text.substr(text.find("\r\n"));
    dir.Write("Remotes.dat", text);

    Model n;
    n.Stations.Stations[1].StationName = "was here";
    n.Stations.Stations[1].ChannelFactor[1] = 4;
    n.Stations.Stations[3].StationName = "untouched";
    n.Stations.InputSeconds = 7;
    ASSERT_EQ(LoadStations(n, dir.Ui), 0);
    EXPECT_EQ(n.Stations.Stations[1].ChannelName[3], "C");
    EXPECT_EQ(n.Stations.Stations[1].StationName, "");
    EXPECT_EQ(n.Stations.Stations[1].ChannelFactor[1], 0.0f);
    EXPECT_EQ(n.Stations.Stations[3].StationName, "untouched");
    EXPECT_EQ(n.Stations.InputSeconds, 0.0) << "the values of all stations come from the last line read";

    AppFolder empty;
    EXPECT_EQ(LoadStations(n, empty.Ui), err::FileNotFound);
}

TEST(StationFile, ArbitraryBytesNeverBreakTheReaders) {
    AppFolder dir;
    Model good = BuiltInModel();
    good.Stations.Stations[1].StationName = "A";
    ASSERT_TRUE(SaveConversions(good, dir.Ui));
    ASSERT_EQ(SaveStations(good, dir.Ui), 0);
    const std::string stations = dir.Read("Remotes.dat"), units = dir.Read("Conversion.dat");
    std::mt19937 rng(5);
    for (int round = 0; round < 100; ++round) {
        dir.Write("Remotes.dat", karvane::testing::Mangled(stations, rng));
        dir.Write("Conversion.dat", karvane::testing::Mangled(units, rng));
        Model m = BuiltInModel();
        LoadStations(m, dir.Ui);
        LoadConversions(m, dir.Ui);
        EXPECT_EQ(m.Stations.Stations.size(), 51u);
    }
}
