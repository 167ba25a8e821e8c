// karvane-cli fans: the fan database of the program folder as a list and as JSON, and the
// picture of one fan's curves.
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

struct FansRun {
    int Code = -1;
    std::string Out, Err;
};

std::string Slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

FansRun Fans(const fs::path& dir, const std::string& options) {
    fs::create_directories(dir);
    const fs::path out = dir / "out.txt", err = dir / "err.txt";
    const std::string cmd = std::string("'") + KARVANE_CLI + "' fans --app-path '" + KARVANE_EXAMPLES + "' " + options +
                            " >'" + out.string() + "' 2>'" + err.string() + "'";
    const int status = std::system(cmd.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Slurp(out), Slurp(err)};
}

TEST(FansCli, ListsTheDatabaseAndDrawsOneFan) {
    const fs::path dir = fs::temp_directory_path() / ("karvane_fans_" + std::to_string(::getpid()));
    FansRun r = Fans(dir, "--json");
    ASSERT_EQ(r.Code, 0) << r.Err;
    const nlohmann::json j = nlohmann::json::parse(r.Out);
    ASSERT_FALSE(j["fans"].empty());
    const auto& first = j["fans"][0];
    EXPECT_EQ(first["number"], 1);
    EXPECT_EQ(first["points"].size(), 10u);
    // Pressures fall along the curve as the editor sorts them.
    EXPECT_GE(first["points"][0]["static"].get<double>(), first["points"][9]["static"].get<double>());

    r = Fans(dir, "");
    EXPECT_EQ(r.Code, 0);
    EXPECT_EQ(r.Out.rfind("1\t", 0), 0u) << r.Out;

    r = Fans(dir, "--curve 1 '" + (dir / "fan.svg").string() + "'");
    EXPECT_EQ(r.Code, 0) << r.Err;
    const std::string svg = Slurp(dir / "fan.svg");
    EXPECT_NE(svg.find("<svg"), std::string::npos);
    EXPECT_NE(svg.find("100%"), std::string::npos);

    r = Fans(dir, "--curve 9999 '" + (dir / "none.svg").string() + "'");
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find("No fan number 9999 in the fan database"), std::string::npos) << r.Err;
    fs::remove_all(dir);
}

} // namespace
