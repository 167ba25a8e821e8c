// karvane-cli fans: the fan database of the program folder as a list and as JSON, and the
// picture of one fan's curves.
#include "cli_support.h"

using namespace karvane::cli_testing;
using FansCli = CliTest;

TEST_F(FansCli, ListsTheDatabaseAndDrawsOneFan) {
    const std::string fans = "fans --app-path '" + std::string(KARVANE_EXAMPLES) + "' ";
    Result r = Run(fans + "--json");
    ASSERT_EQ(r.code, 0) << r.err;
    const json j = r.Json();
    ASSERT_FALSE(j["fans"].empty());
    const auto& first = j["fans"][0];
    EXPECT_EQ(first["number"], 1);
    EXPECT_EQ(first["points"].size(), 10u);
    // Pressures fall along the curve as the editor sorts them.
    EXPECT_GE(first["points"][0]["static"].get<double>(), first["points"][9]["static"].get<double>());

    r = Run(fans);
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out.rfind("1\t", 0), 0u) << r.out;

    r = Run(fans + "--curve 1 " + Q(dir_ / "fan.svg"));
    EXPECT_EQ(r.code, 0) << r.err;
    const std::string svg = ReadAll(dir_ / "fan.svg");
    EXPECT_NE(svg.find("<svg"), std::string::npos);
    EXPECT_NE(svg.find("100%"), std::string::npos);

    r = Run(fans + "--curve 9999 " + Q(dir_ / "none.svg"));
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.err.find("No fan number 9999 in the fan database"), std::string::npos) << r.err;
}
