// karvane-cli airway: the information card of a fan airway of the demo mine after a run, its
// curve as SVG with the operating point the run stored, and the messages of bad requests.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

namespace fs = std::filesystem;

namespace {

struct Shown {
    int Code = -1;
    std::string Out, Err, Svg;
};

std::string Slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

Shown Airway(const std::string& args) {
    const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    const fs::path dir = fs::temp_directory_path() / ("karvane_airway_" + std::to_string(::getpid()) + "_" + test +
                                                      "_" + std::to_string(std::hash<std::string>{}(args)));
    fs::create_directories(dir);
    const fs::path out = dir / "out.txt", err = dir / "err.txt", svg = dir / "curve.svg";
    std::string line = args;
    const auto at = line.find("CURVE");
    if (at != std::string::npos) line.replace(at, 5, "'" + svg.string() + "'");
    const std::string cmd = std::string("'") + KARVANE_CLI + "' airway '" + KARVANE_EXAMPLES + "/demo-mine.sim' " +
                            line + " >'" + out.string() + "' 2>'" + err.string() + "'";
    const int status = std::system(cmd.c_str());
    Shown r;
    r.Code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    r.Out = Slurp(out);
    r.Err = Slurp(err);
    r.Svg = Slurp(svg);
    fs::remove_all(dir);
    return r;
}

} // namespace

TEST(AirwayCli, FanCardAndCurveAfterARun) {
    const Shown r = Airway("284 --simulate --json --curve CURVE");
    ASSERT_EQ(r.Code, 0) << r.Err;
    const auto j = nlohmann::json::parse(r.Out);
    EXPECT_TRUE(j["found"].get<bool>());
    const auto& card = j["card"];
    EXPECT_EQ(card["title"], "Fan Airway 284");
    ASSERT_EQ(card["rows"].size(), 16u);
    EXPECT_EQ(card["rows"][0]["caption"], "Branch name");
    EXPECT_EQ(card["rows"][0]["value"], "Main Exhaust Shaft");
    EXPECT_EQ(card["rows"][13]["caption"], "Fan Pressures");
    EXPECT_EQ(card["rows"][15]["caption"], "Fan Efficiency");
    EXPECT_TRUE(card["fan"]["graph"].get<bool>());
    EXPECT_TRUE(j["curveWritten"].get<bool>());
    // The picture: the curve, the efficiency line, the red cross of the operating point.
    EXPECT_NE(r.Svg.find("<svg"), std::string::npos);
    EXPECT_NE(r.Svg.find("#ff0000"), std::string::npos);
    EXPECT_NE(r.Svg.find("#0000ff"), std::string::npos);
    EXPECT_NE(r.Svg.find("100%"), std::string::npos);
}

TEST(AirwayCli, PlainTextCardAndBadRequests) {
    Shown r = Airway("2");
    ASSERT_EQ(r.Code, 0) << r.Err;
    EXPECT_EQ(r.Out.rfind("Passive Airway 2\n", 0), 0u) << r.Out;
    EXPECT_NE(r.Out.find("\nBranch name: L1 Intake Access\n"), std::string::npos);
    EXPECT_NE(r.Out.find("\nPressure Load: "), std::string::npos);

    r = Airway("99999");
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find("No airway numbered 99999"), std::string::npos);
    r = Airway("2 --curve CURVE");
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find("has no fan curve to draw"), std::string::npos);
    EXPECT_TRUE(r.Svg.empty());
    r = Airway("abc");
    EXPECT_EQ(r.Code, 2);
}
