// karvane-cli render: the demo mine as an SVG picture in its views and data types, and the
// messages of a bad size, data type, view or level.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace fs = std::filesystem;

namespace {

struct Rendered {
    int Code = -1;
    std::string Svg, Err;
};

std::string Slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

// Renders the demo mine with the given options into a folder of its own.
Rendered Render(const std::string& options) {
    const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    const fs::path dir = fs::temp_directory_path() / ("karvane_render_" + std::to_string(::getpid()) + "_" + test +
                                                      "_" + std::to_string(std::hash<std::string>{}(options)));
    fs::create_directories(dir);
    const fs::path svg = dir / "view.svg", err = dir / "err.txt";
    const std::string cmd = std::string("'") + KARVANE_CLI + "' render '" + KARVANE_EXAMPLES + "/demo-mine.sim' '" +
                            svg.string() + "' " + options + " 2>'" + err.string() + "' >/dev/null";
    const int status = std::system(cmd.c_str());
    Rendered r;
    r.Code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    r.Svg = Slurp(svg);
    r.Err = Slurp(err);
    fs::remove_all(dir);
    return r;
}

TEST(RenderCommand, DrawsTheDemoMineInItsViews) {
    Rendered r = Render("");
    ASSERT_EQ(r.Code, 0) << r.Err;
    EXPECT_NE(r.Svg.find("width=\"1200\" height=\"900\""), std::string::npos);
    EXPECT_NE(r.Svg.find("<path"), std::string::npos);
    EXPECT_EQ(r.Svg.substr(r.Svg.size() - 7), "</svg>\n");

    r = Render("--view 5 --all-levels --size 640x480 --data Velocity --simulate");
    ASSERT_EQ(r.Code, 0) << r.Err;
    EXPECT_NE(r.Svg.find("width=\"640\" height=\"480\""), std::string::npos);

    r = Render("--view 3 --data 37");
    EXPECT_EQ(r.Code, 0) << r.Err;
}

TEST(RenderCommand, RefusesWhatItCannotDraw) {
    Rendered r = Render("--size 12x12");
    EXPECT_EQ(r.Code, 2);
    EXPECT_NE(r.Err.find("Size must be WIDTHxHEIGHT in pixels"), std::string::npos);
    r = Render("--data Colour");
    EXPECT_EQ(r.Code, 2);
    EXPECT_NE(r.Err.find("Unknown data type: Colour"), std::string::npos);
    r = Render("--view 60");
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find("Error - could not load view"), std::string::npos);
    r = Render("--level Nowhere");
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find("No level of that name: Nowhere"), std::string::npos);
    r = Render("--level X --all-levels");
    EXPECT_EQ(r.Code, 2);
}

} // namespace
