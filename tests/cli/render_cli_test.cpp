// karvane-cli render: the demo mine as an SVG picture in its views and data types, and the
// messages of a bad size, data type, view or level.
#include "cli_support.h"

using namespace karvane::cli_testing;

class RenderCommand : public CliTest {
protected:
    Result Render(const std::string& options) const {
        return Run("render " + Demo + " " + Q(dir_ / "view.svg") + " " + options);
    }
    std::string Svg() const { return ReadAll(dir_ / "view.svg"); }
};

TEST_F(RenderCommand, DrawsTheDemoMineInItsViews) {
    Result r = Render("");
    ASSERT_EQ(r.code, 0) << r.err;
    std::string svg = Svg();
    EXPECT_NE(svg.find("width=\"1200\" height=\"900\""), std::string::npos);
    EXPECT_NE(svg.find("<path"), std::string::npos);
    EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");

    r = Render("--view 5 --all-levels --size 640x480 --data Velocity --simulate");
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_NE(Svg().find("width=\"640\" height=\"480\""), std::string::npos);
    EXPECT_EQ(Render("--view 3 --data 37").code, 0);
}

TEST_F(RenderCommand, RefusesWhatItCannotDraw) {
    const struct {
        const char* Options;
        int Code;
        const char* Message;
    } cases[] = {{"--size 12x12", 2, "Size must be WIDTHxHEIGHT in pixels"},
                 {"--data Colour", 2, "Unknown data type: Colour"},
                 {"--view 60", 1, "Error - could not load view"},
                 {"--level Nowhere", 1, "No level of that name: Nowhere"},
                 {"--level X --all-levels", 2, ""}};
    for (const auto& c : cases) {
        const Result r = Render(c.Options);
        EXPECT_EQ(r.code, c.Code) << c.Options;
        EXPECT_NE(r.err.find(c.Message), std::string::npos) << c.Options << ": " << r.err;
    }
}
