// karvane-cli print: the printed page read back by an independent PDF reader (poppler's
// pdftocairo and pdftotext) — the scale on paper of a known airway, the title line, black lines
// in monochrome, the SVG page agreeing with the PDF — and the refusals of bad input, which
// never leave a file behind. Also render's PNG output.
#include <algorithm>
#include <cmath>
#include <regex>

#include "cli_support.h"

using namespace karvane::cli_testing;

namespace {

const std::string Network = std::string(KARVANE_TEST_DATA) + "/network_v29.sim";

bool HavePoppler() { return std::system("pdftocairo -v >/dev/null 2>&1") == 0; }

// One stroked straight segment of a page, in millimetres from the page's top left corner.
struct Segment {
    double X1, Y1, X2, Y2;
    double Width; // in the drawing's own units
    std::string Stroke;
    double Length() const { return std::hypot(X2 - X1, Y2 - Y1); }
};

// The straight segments of the stroked paths of an SVG drawing, with `scale` millimetres per
// unit after each path's transform.
std::vector<Segment> Segments(const std::string& svg, double mmPerUnit) {
    std::vector<Segment> out;
    static const std::regex pathRe(R"(<path([^>]*)/>)");
    static const std::regex widthRe(R"(stroke-width[:=]"?([0-9.]+))");
    static const std::regex strokeRe(R"(stroke[:=]"?(#[0-9a-f]{6}|rgb\([^)]*\)))");
    static const std::regex dRe(R"( d="([^"]*)\")");
    static const std::regex matrixRe(
        R"(matrix\(([-0-9.e]+),([-0-9.e]+),([-0-9.e]+),([-0-9.e]+),([-0-9.e]+),([-0-9.e]+)\))");
    for (auto it = std::sregex_iterator(svg.begin(), svg.end(), pathRe); it != std::sregex_iterator(); ++it) {
        const std::string attrs = (*it)[1];
        std::smatch w, st, d, mx;
        if (!std::regex_search(attrs, w, widthRe) || !std::regex_search(attrs, st, strokeRe) ||
            !std::regex_search(attrs, d, dRe))
            continue;
        if (attrs.find("stroke:none") != std::string::npos) continue;
        double a = 1, dd = 1, e = 0, f = 0;
        if (std::regex_search(attrs, mx, matrixRe)) {
            a = std::stod(mx[1]);
            dd = std::stod(mx[4]);
            e = std::stod(mx[5]);
            f = std::stod(mx[6]);
        }
        // "M x y L x y ..." with or without blanks after the letters; curves are symbols.
        std::string path = d[1], ops;
        for (char& c : path) {
            if (c == 'M' || c == 'L' || c == 'C' || c == 'Z') ops += c;
            if (c == 'M' || c == 'L') c = ' ';
        }
        if (ops.find('C') != std::string::npos) continue;
        std::istringstream in(path);
        std::vector<std::pair<double, double>> points;
        for (double x, y; in >> x >> y;) points.emplace_back((a * x + e) * mmPerUnit, (dd * y + f) * mmPerUnit);
        for (std::size_t i = 1; i < points.size() && i < ops.size(); ++i) {
            if (ops[i] != 'L') continue;
            out.push_back({points[i - 1].first, points[i - 1].second, points[i].first, points[i].second,
                           std::stod(w[1]) * a, st[1]});
        }
    }
    return out;
}

class PrintCli : public CliTest {
protected:
    void SetUp() override {
        CliTest::SetUp();
        // A build without Qt's GUI module has no print command and no PNG output.
        if (Run("print --help").code != 0) GTEST_SKIP() << "karvane-cli was built without Qt's GUI module";
    }

    // The exit status of one command; its messages are kept in err_.
    int Cli(const std::string& args) {
        const Result r = Run(args);
        err_ = r.err;
        return r.code;
    }
    int Print(const std::string& out, const std::string& options) {
        return Cli("print '" + Network + "' '" + (dir_ / out).string() + "' " + options);
    }
    // The page as SVG by poppler, its stroked segments in millimetres (PDF points are 1/72 inch).
    std::vector<Segment> PdfSegments(const std::string& pdf) {
        const fs::path svg = dir_ / (pdf + ".svg");
        const std::string cmd = "pdftocairo -svg '" + (dir_ / pdf).string() + "' '" + svg.string() + "'";
        EXPECT_EQ(std::system(cmd.c_str()), 0);
        return Segments(ReadAll(svg), 25.4 / 72);
    }
    std::string PdfText(const std::string& pdf) {
        const fs::path txt = dir_ / (pdf + ".txt");
        const std::string cmd = "pdftotext -raw '" + (dir_ / pdf).string() + "' '" + txt.string() + "'";
        EXPECT_EQ(std::system(cmd.c_str()), 0);
        return ReadAll(txt);
    }

    std::string err_;
};

// The airway lines of a print: 3 dots wide at least (the frame is 5, the grid 1).
std::vector<Segment> AirwayLines(const std::vector<Segment>& all, double dotsToUnits) {
    std::vector<Segment> out;
    for (const Segment& s : all) {
        if (std::fabs(s.Width - 3 * dotsToUnits) < 1e-6) out.push_back(s);
    }
    return out;
}

const Segment& Longest(const std::vector<Segment>& lines) {
    return *std::max_element(lines.begin(), lines.end(),
                             [](const Segment& a, const Segment& b) { return a.Length() < b.Length(); });
}

TEST_F(PrintCli, KnownAirwayMeasuresTheScaleOnPaper) {
    if (!HavePoppler()) GTEST_SKIP() << "poppler-utils missing";
    // "Drive 1" is 300 m long and level: the longest line of "Main Level" in plan.
    for (const int figure : {10000, 25000}) {
        const std::string pdf = "scale" + std::to_string(figure) + ".pdf";
        ASSERT_EQ(Print(pdf, "--level 'Main Level' --scale " + std::to_string(figure)), 0) << err_;
        const auto lines = AirwayLines(PdfSegments(pdf), 72.0 / 600);
        ASSERT_FALSE(lines.empty());
        const Segment& drive = Longest(lines);
        EXPECT_NEAR(drive.Y1, drive.Y2, 1e-3) << "level in plan";
        const double wanted = 300.0 * 1000 / figure;
        // Within the half percent of the printable width's margin and the whole figure.
        EXPECT_NEAR(drive.Length(), wanted, wanted * 0.01) << figure;
    }
}

TEST_F(PrintCli, TitleLineMonochromeAndTheSvgPageAgree) {
    if (!HavePoppler()) GTEST_SKIP() << "poppler-utils missing";
    ASSERT_EQ(Print("plan.pdf", "--level 'Main Level' --scale 10000 --paper A3 --landscape --mono --title 'Plan été'"),
              0)
        << err_;
    const std::string text = PdfText("plan.pdf");
    EXPECT_NE(text.find("Plan été"), std::string::npos) << text;
    EXPECT_NE(text.find("Scale 1:10000RL Name Main Level"), std::string::npos) << text;
    EXPECT_NE(text.find("AirFlow Simulation"), std::string::npos);
    EXPECT_NE(text.find("Quantity"), std::string::npos); // "Airflow" may come back as a ligature

    const auto pdfLines = PdfSegments("plan.pdf");
    // Monochrome: the airway lines and the frame are black.
    int black = 0;
    for (const Segment& s : pdfLines) {
        if (s.Width > 2.5 * 72 / 600) {
            EXPECT_EQ(s.Stroke, "rgb(0%,0%,0%)");
            ++black;
        }
    }
    EXPECT_GT(black, 4);

    // The same print as an SVG page draws the same airway lines at the same places.
    ASSERT_EQ(Print("plan.svg", "--level 'Main Level' --scale 10000 --paper A3 --landscape --mono --title 'Plan été'"),
              0)
        << err_;
    const std::string svg = ReadAll(dir_ / "plan.svg");
    EXPECT_NE(svg.find("width=\"420mm\" height=\"297mm\""), std::string::npos);
    const auto svgLines = AirwayLines(Segments(svg, 25.4 / 600), 1);
    const auto pdfAirways = AirwayLines(pdfLines, 72.0 / 600);
    ASSERT_EQ(svgLines.size(), pdfAirways.size());
    for (std::size_t i = 0; i < svgLines.size(); ++i) {
        EXPECT_NEAR(svgLines[i].X1, pdfAirways[i].X1, 0.2);
        EXPECT_NEAR(svgLines[i].Y1, pdfAirways[i].Y1, 0.2);
        EXPECT_NEAR(svgLines[i].X2, pdfAirways[i].X2, 0.2);
        EXPECT_NEAR(svgLines[i].Y2, pdfAirways[i].Y2, 0.2);
    }

    // In colour the lines take the network's colours.
    ASSERT_EQ(Print("colour.pdf", "--level 'Main Level'"), 0) << err_;
    const auto colour = AirwayLines(PdfSegments("colour.pdf"), 72.0 / 600);
    EXPECT_TRUE(
        std::any_of(colour.begin(), colour.end(), [](const Segment& s) { return s.Stroke != "rgb(0%,0%,0%)"; }));
}

TEST_F(PrintCli, RefusesBadInputAndLeavesNoFile) {
    struct Case {
        std::string Options;
        int Code;
        std::string Message;
    };
    const Case cases[] = {
        {"--scale 0", 2, "The print scale must be a number from 1 to 10000000: 0"},
        {"--scale -500", 2, "The print scale must be a number from 1 to 10000000: -500"},
        {"--scale 1e12", 2, "The print scale must be a number from 1 to 10000000: 1e12"},
        {"--scale 12abc", 2, "The print scale must be a number from 1 to 10000000: 12abc"},
        {"--scale 100", 1, "Print: Scale exceeds paper size !"},
        {"--paper A9", 2, "Unknown paper: A9"},
        {"--title 'Ω plan'", 2, "The title holds characters that cannot be printed"},
        {"--level 'Deep, No.2'", 1, "No airway is in view: there is nothing to print"},
        {"--level Nowhere", 1, "No level of that name: Nowhere"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Print("bad.pdf", c.Options), c.Code) << c.Options;
        EXPECT_NE(err_.find(c.Message), std::string::npos) << c.Options << ": " << err_;
        EXPECT_FALSE(fs::exists(dir_ / "bad.pdf")) << c.Options;
    }
    // A folder that does not exist, and a target that is a folder.
    EXPECT_EQ(Cli("print '" + Network + "' '" + (dir_ / "no" / "where.pdf").string() + "'"), 1);
    EXPECT_NE(err_.find("That path doesn't exist"), std::string::npos) << err_;
    fs::create_directories(dir_ / "folder.pdf");
    EXPECT_EQ(Print("folder.pdf", ""), 1);
    // A print that fails keeps the file that was there, and no temporary file stays.
    {
        std::ofstream keep(dir_ / "kept.pdf");
        keep << "earlier print";
    }
    EXPECT_EQ(Print("kept.pdf", "--scale 100"), 1);
    EXPECT_EQ(ReadAll(dir_ / "kept.pdf"), "earlier print");
    ASSERT_EQ(Print("kept.pdf", ""), 0) << err_;
    EXPECT_EQ(ReadAll(dir_ / "kept.pdf").substr(0, 5), "%PDF-");
    for (const auto& entry : fs::directory_iterator(dir_))
        EXPECT_EQ(entry.path().filename().string().find(".kept.pdf"), std::string::npos) << entry.path();
}

TEST_F(PrintCli, RenderWritesPngByItsExtension) {
    ASSERT_EQ(Cli("render '" + Network + "' '" + (dir_ / "view.png").string() + "' --size 320x240"), 0) << err_;
    const std::string png = ReadAll(dir_ / "view.png");
    ASSERT_GT(png.size(), 100U);
    EXPECT_EQ(png.substr(1, 3), "PNG");
    // Width and height stand in the header, big-endian.
    auto word = [&](std::size_t at) {
        return (static_cast<unsigned char>(png[at]) << 24) | (static_cast<unsigned char>(png[at + 1]) << 16) |
               (static_cast<unsigned char>(png[at + 2]) << 8) | static_cast<unsigned char>(png[at + 3]);
    };
    EXPECT_EQ(word(16), 320);
    EXPECT_EQ(word(20), 240);
}

} // namespace
