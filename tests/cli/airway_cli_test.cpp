// karvane-cli airway: the information card of a fan airway of the demo mine after a run, its
// curve as SVG with the operating point the run stored, and the messages of bad requests.
#include "cli_support.h"

using namespace karvane::cli_testing;

class AirwayCli : public CliTest {
protected:
    Result Airway(const std::string& args) const { return Run("airway " + Demo + " " + args); }
    std::string Curve() const { return Q(dir_ / "curve.svg"); }
    std::string Svg() const { return ReadAll(dir_ / "curve.svg"); }
};

TEST_F(AirwayCli, FanCardAndCurveAfterARun) {
    const Result r = Airway("284 --simulate --json --curve " + Curve());
    ASSERT_EQ(r.code, 0) << r.err;
    const json j = r.Json();
    EXPECT_TRUE(j["found"].get<bool>());
    const auto& card = j["card"];
    EXPECT_EQ(card["title"], "Fan Airway 284");
    ASSERT_EQ(card["rows"].size(), 16u);
    EXPECT_EQ(card["rows"][0]["value"], "Main Exhaust Shaft");
    EXPECT_EQ(card["rows"][13]["caption"], "Fan Pressures");
    EXPECT_TRUE(card["fan"]["graph"].get<bool>());
    EXPECT_TRUE(j["curveWritten"].get<bool>());
    // The picture: the curve, the efficiency line, the red cross of the operating point.
    const std::string svg = Svg();
    for (const char* part : {"<svg", "#ff0000", "#0000ff", "100%"}) EXPECT_NE(svg.find(part), std::string::npos);
}

TEST_F(AirwayCli, PlainTextCardAndBadRequests) {
    Result r = Airway("2");
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.out.rfind("Passive Airway 2\n", 0), 0u) << r.out;
    EXPECT_NE(r.out.find("\nBranch name: L1 Intake Access\n"), std::string::npos);

    const struct {
        std::string Args;
        int Code;
        const char* Message;
    } bad[] = {{"99999", 1, "No airway numbered 99999"},
               {"2 --curve " + Curve(), 1, "has no fan curve to draw"},
               {"abc", 2, ""}};
    for (const auto& c : bad) {
        r = Airway(c.Args);
        EXPECT_EQ(r.code, c.Code) << c.Args;
        EXPECT_NE(r.err.find(c.Message), std::string::npos) << r.err;
    }
    EXPECT_FALSE(fs::exists(dir_ / "curve.svg"));
}
