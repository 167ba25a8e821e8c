// fansdata.dat: the exact text, the round trip with its free rows, the stamp, the first
// version, and the messages of a damaged or missing file.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "app_folder.h"
#include "files/fan_file.h"
#include "support/golden.h"

using namespace karvane;
using namespace karvane::files;
using namespace karvane::testing;

namespace {

void SetCurve(FanRecord& fan, const char* name, float diameter, float p0, float q0) {
    fan.FanName = name;
    fan.FanDiam = diameter;
    for (int p = 1; p <= 10; ++p) {
        fan.FanQ[p] = q0 * static_cast<float>(p);
        fan.FanPStatic[p] = p0 - 100.0f * static_cast<float>(p);
        fan.FanPTotal[p] = fan.FanPStatic[p] + 50.0f;
        fan.FanEff[p] = static_cast<std::int16_t>(50 + 3 * p);
    }
}

const std::string Headings = "Fan Number\tFan Name\tFan Effective Diameter\r\n"
                             "Point\tStatic Pressure (Pa)\tQuantity (m3/s)\tEfficiency (%)\tTotal Pressure (Pa)\r\n";

} // namespace

TEST(FanFile, RoundTripKeepsNumbersFreeRowsAndTotalOnlyFans) {
    AppFolder dir;
    Model m = BuiltInModel();
    m.FanStamp = 7;
    SetCurve(m.Fans[1], "Main surface fan", 3.2f, 3000, 25);
    SetCurve(m.Fans[3], "Booster, No. 2", 1.6f, 1500, 6.5f);
    // Total pressure only at point 1: not a free row.
    m.Fans[5].FanName = "Total only";
    m.Fans[5].FanPTotal[1] = 800;
    m.Fans[5].FanQ[1] = 10;
    m.Fans[250].FanName = "Last";
    m.Fans[250].FanPStatic[1] = 1;
    ASSERT_TRUE(SaveFanDatabase(m, dir.Ui));
    EXPECT_EQ(m.FanStamp, 8);

    // The stored text is the format; read back over other fans and saved again, the same text
    // but for a stamp one higher: every field came to its place, the free rows stayed free.
    const std::string text = dir.Read("fansdata.dat");
    ExpectGolden("fansdata.dat", text);
    Model n = BuiltInModel();
    n.Fans[2].FanName = "to be blanked";
    n.Fans[2].FanPStatic[1] = 99;
    n.FansSaved = No0;
    ASSERT_TRUE(LoadFanDatabase(n, dir.Ui));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_EQ(n.FanStamp, 8);
    EXPECT_EQ(n.FansSaved, Yes255);
    EXPECT_EQ(n.Fans[2].FanName, "");
    ASSERT_TRUE(SaveFanDatabase(n, dir.Ui));
    const std::string again = dir.Read("fansdata.dat");
    EXPECT_EQ(again.substr(0, again.find("\r\n")), "2.6 KARVANE\t 9 ");
    EXPECT_EQ(again.substr(again.find("\r\n")), text.substr(text.find("\r\n")));

    // Written where "," is the decimal separator, read where it is ".".
    dir.Ui.Separator = ',';
    ASSERT_TRUE(SaveFanDatabase(n, dir.Ui));
    EXPECT_NE(dir.Read("fansdata.dat").find("\tBooster, No. 2\t 1,6 \r\n"), std::string::npos);
    dir.Ui.Separator = '.';
    Model o = BuiltInModel();
    ASSERT_TRUE(LoadFanDatabase(o, dir.Ui));
    EXPECT_EQ(o.Fans[3].FanDiam, 1.6f);
    EXPECT_EQ(o.Fans[3].FanQ[3], m.Fans[3].FanQ[3]);
    EXPECT_EQ(o.FanStamp, 10);
}

TEST(FanFile, FirstVersionHasStaticPressureOnly) {
    AppFolder dir;
    std::string text = "1.0 KARVANE\r\n\"Axial 1\"\r\n";
    for (int p = 1; p <= 10; ++p) text += std::to_string(2000 - 100 * p) + "," + std::to_string(10 * p) + ".5\r\n";
    text += "Second\r\n";
    for (int p = 1; p <= 10; ++p) text += "500,1\r\n";
    dir.Write("fansdata.dat", text);
    Model m = BuiltInModel();
    SetCurve(m.Fans[3], "stays", 1, 1000, 5);
    m.FanStamp = 4;
    ASSERT_TRUE(LoadFanDatabase(m, dir.Ui));
    EXPECT_TRUE(dir.Ui.Transcript.empty());
    EXPECT_EQ(m.FanStamp, 4) << "no stamp in this version";
    EXPECT_EQ(m.Fans[1].FanName, "Axial 1");
    EXPECT_EQ(m.Fans[1].FanPStatic[4], 1600.0f);
    EXPECT_EQ(m.Fans[1].FanPTotal[4], 1600.0f);
    EXPECT_EQ(m.Fans[1].FanQ[4], 40.5f);
    EXPECT_EQ(m.Fans[2].FanName, "Second");
    EXPECT_EQ(m.Fans[3].FanName, "stays") << "this version blanks nothing";

    // A fan cut short inside its points.
    dir.Write("fansdata.dat", text.substr(0, text.find("Second")) + "Third\r\n500,1\r\n");
    m.FileName = "/mine/north.sim";
    EXPECT_FALSE(LoadFanDatabase(m, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"ERROR 62 occurred while loading fans."});
    EXPECT_EQ(m.Fans[2].FanName, "Third");
}

TEST(FanFile, FanNumbersOutsideTheTableEndTheLoad) {
    AppFolder dir;
    auto fan = [](const std::string& number) {
        std::string out = number + "\tFan " + number + "\t 1 \r\n";
        for (int p = 1; p <= 10; ++p) out += " " + std::to_string(p) + " \t 100 \t 1 \t 50 \t 120 \r\n";
        return out;
    };
    for (const std::string bad : {" 251 ", " 0 ", "-3 ", "abc", " 1E+12 "}) {
        dir.Write("fansdata.dat", "2.6 KARVANE\t 3 \r\n" + Headings + fan(" 2 ") + fan(bad) + fan(" 4 "));
        dir.Ui.Transcript.clear();
        Model m = BuiltInModel();
        m.FileName = "/mine/north.sim";
        EXPECT_FALSE(LoadFanDatabase(m, dir.Ui)) << bad;
        EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"ERROR 9 occurred while loading fans."});
        EXPECT_EQ(m.Fans[2].FanName, "Fan  2") << "fans read before stay";
        EXPECT_TRUE(m.Fans[4].IsFree());
        EXPECT_EQ(m.FileName, "");
    }

    // A larger table announced on the heading line makes room first.
    std::string wide = "2.6 KARVANE\t 3 \r\nFan Number\tFan Name\tFan Effective Diameter\t 300 \r\n" +
                       Headings.substr(Headings.find("Point")) + fan(" 280 ");
    dir.Write("fansdata.dat", wide);
    Model m = BuiltInModel();
    ASSERT_TRUE(LoadFanDatabase(m, dir.Ui));
    EXPECT_EQ(m.Set.MaxFans, 300);
    EXPECT_EQ(m.Fans[280].FanPTotal[10], 120.0f);
}

TEST(FanFile, MissingFileAndFailedSave) {
    AppFolder dir;
    Model m = BuiltInModel();
    m.FileName = "/mine/north.sim";
    EXPECT_FALSE(LoadFanDatabase(m, dir.Ui));
    EXPECT_EQ(dir.Ui.Texts("Message"), std::vector<std::string>{"ERROR 53: That file doesn't exist."});
    EXPECT_EQ(m.FileName, "");

    SetCurve(m.Fans[1], "A", 1, 1000, 5);
    ASSERT_TRUE(SaveFanDatabase(m, dir.Ui));
    const std::string old = dir.Read("fansdata.dat");
    ui::ScriptedUserInterface nowhere;
    nowhere.App = dir.File("missing");
    m.FansSaved = No0;
    EXPECT_FALSE(SaveFanDatabase(m, nowhere));
    EXPECT_EQ(nowhere.Texts("Message"), std::vector<std::string>{"ERROR 76: That path doesn't exist."});
    EXPECT_EQ(m.FansSaved, No0);
    EXPECT_EQ(m.FanStamp, 1) << "the stamp rises only with a written file";
    EXPECT_EQ(dir.Read("fansdata.dat"), old);

    // A folder named like the file cannot be written over.
    AppFolder blocked;
    std::filesystem::create_directory(blocked.Path / "fansdata.dat");
    EXPECT_FALSE(SaveFanDatabase(m, blocked.Ui));
    EXPECT_EQ(blocked.Ui.Texts("Message"), std::vector<std::string>{"ERROR 75 occurred saving fan database."});
}

TEST(FanFile, ReloadAsksFirst) {
    AppFolder dir;
    Model m = BuiltInModel();
    SetCurve(m.Fans[1], "A", 1, 1000, 5);
    ASSERT_TRUE(SaveFanDatabase(m, dir.Ui));
    m.Fans[1].FanName = "edited";
    m.FansSaved = No0;
    dir.Ui.Answers = {ui::Answer::Cancel, ui::Answer::OK};
    ReloadFanDatabaseCommand(m, dir.Ui);
    EXPECT_EQ(m.Fans[1].FanName, "edited");
    EXPECT_EQ(m.FansSaved, No0);
    ReloadFanDatabaseCommand(m, dir.Ui);
    EXPECT_EQ(m.Fans[1].FanName, "A");
    EXPECT_EQ(m.FansSaved, Yes255);
    EXPECT_EQ(dir.Ui.Transcript[0].Title, "Reload Default Fan Database");
    EXPECT_EQ(dir.Ui.Transcript[0].Text, "Current fan database will be lost!");
}

TEST(FanFile, ArbitraryBytesNeverBreakTheReader) {
    AppFolder dir;
    Model good = BuiltInModel();
    SetCurve(good.Fans[1], "A", 1, 1000, 5);
    SetCurve(good.Fans[9], "B", 2, 2000, 8);
    ASSERT_TRUE(SaveFanDatabase(good, dir.Ui));
    const std::string valid = dir.Read("fansdata.dat");
    std::mt19937 rng(11);
    for (int round = 0; round < 300; ++round) {
        std::string text = karvane::testing::Mangled(valid, rng);
        if (round % 7 == 0 && !text.empty()) text[0] = "01"[rng() % 2];
        dir.Write("fansdata.dat", text);
        Model m = BuiltInModel();
        LoadFanDatabase(m, dir.Ui);
        EXPECT_GE(m.Fans.size(), static_cast<std::size_t>(m.Set.MaxFans) + 1);
    }
}
