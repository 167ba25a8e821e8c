// karvane-cli as a user meets it: exit codes, results on standard output, every message of the
// program on standard error as one "title: text" line, and files that read back as written.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Result {
    int code = -1;
    std::string out, err;
};

std::string ReadAll(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::string Quote(const fs::path& p) { return "'" + p.string() + "'"; }

const std::string Demo = std::string(KARVANE_EXAMPLES) + "/demo-mine.sim";
const std::string Clock = "--clock '2026-05-04 10:20:30' ";

class Cli : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("karvane_cli_" + std::to_string(::getpid()) + "_" +
                                            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    Result Run(const std::string& args) {
        Result r;
        fs::path out = dir_ / "stdout.txt", err = dir_ / "stderr.txt";
        std::string cmd = std::string("'") + KARVANE_CLI + "' " + args + " >" + Quote(out) + " 2>" + Quote(err);
        int status = std::system(cmd.c_str());
        r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        r.out = ReadAll(out);
        r.err = ReadAll(err);
        return r;
    }
    fs::path dir_;
};

} // namespace

TEST_F(Cli, VersionAndUsage) {
    Result r = Run("--version");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out.rfind("karvane-cli ", 0), 0u) << r.out;

    for (const char* bad : {"", "frobnicate", "info", "info a.sim b.sim", "--answer maybe info a.sim",
                            "convert only-one.sim", "generate x.sim --airways 5", "--no-such-option info a.sim"}) {
        r = Run(bad);
        EXPECT_EQ(r.code, 2) << bad;
        EXPECT_FALSE(r.err.empty()) << bad;
        EXPECT_TRUE(r.out.empty() || r.out.find("Usage") != std::string::npos) << bad;
    }
    r = Run("--clock 2026-02-30 info " + Demo);
    EXPECT_EQ(r.code, 2);
    EXPECT_NE(r.err.find("--clock"), std::string::npos);
}

TEST_F(Cli, AMissingFileIsOneMessageAndAFailure) {
    fs::path missing = dir_ / "no-such-mine.sim";
    Result r = Run("info " + Quote(missing));
    EXPECT_EQ(r.code, 1);
    EXPECT_TRUE(r.out.empty());
    bool found = false;
    for (const std::string& line : Lines(r.err)) {
        const std::string text = ": ERROR 53: That file doesn't exist.";
        if (line.size() > text.size() && line.compare(line.size() - text.size(), text.size(), text) == 0) found = true;
    }
    EXPECT_TRUE(found) << r.err;

    r = Run("info --json " + Quote(missing));
    EXPECT_EQ(r.code, 1);
    auto j = nlohmann::json::parse(r.out);
    EXPECT_FALSE(j["loaded"].get<bool>());
    bool inJson = false;
    for (const auto& m : j["messages"]) inJson = inJson || m["text"] == "ERROR 53: That file doesn't exist.";
    EXPECT_TRUE(inJson) << r.out;

    // A convert that cannot read writes nothing.
    r = Run("convert " + Quote(missing) + " " + Quote(dir_ / "out.sim"));
    EXPECT_EQ(r.code, 1);
    EXPECT_FALSE(fs::exists(dir_ / "out.sim"));
}

TEST_F(Cli, InfoOnTheDemoMine) {
    Result r = Run("info " + Demo);
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, ""); // the demo mine loads without a single message
    for (const char* key : {"File: ", "Comment: ", "Airways: ", "Fans: ", "Levels: 5\n",
                            "Layers: ", "Saved views: ", "Floating text: ", "Density: 1.2 kg/m3\n",
                            "MaxIter: ", "AllowErr: ", "SurfaceRL: ", "SurfaceBaro: ", "UnitSys: 1 (SI)\n",
                            "Airway capacity: ", "MaxFans: "})
        EXPECT_NE(r.out.find(key), std::string::npos) << key << "\n" << r.out;

    r = Run("info --json " + Demo);
    ASSERT_EQ(r.code, 0) << r.err;
    auto j = nlohmann::json::parse(r.out);
    EXPECT_TRUE(j["loaded"].get<bool>());
    int airways = j["airways"];
    EXPECT_GE(airways, 150);
    EXPECT_LE(airways, 400);
    EXPECT_GE(j["fans"].get<int>(), 1);
    EXPECT_EQ(j["levels"].get<int>(), 5);
    EXPECT_GE(j["views"].get<int>(), 2);
    EXPECT_GE(j["floatingText"].get<int>(), 3);
    EXPECT_GE(j["layers"]["primary"].get<int>(), 2);
    EXPECT_FALSE(j["comment"].get<std::string>().empty());
    EXPECT_EQ(j["settings"]["density"].get<double>(), 1.2);
    EXPECT_EQ(j["settings"]["unitSys"].get<int>(), 1);
    EXPECT_TRUE(j["messages"].empty());
}

TEST_F(Cli, ConvertWritesTheSameFileAgain) {
    fs::path a = dir_ / "a.sim", b = dir_ / "b.sim";
    Result r = Run(Clock + "convert " + Demo + " " + Quote(a));
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    r = Run(Clock + "convert " + Quote(a) + " " + Quote(b));
    ASSERT_EQ(r.code, 0) << r.err;
    // Each save adds its stamp to the note on the header line; everything else is the same bytes.
    std::string ta = ReadAll(a), tb = ReadAll(b);
    auto headerEnd = [](const std::string& t) { return t.find("\r\n"); };
    ASSERT_NE(headerEnd(ta), std::string::npos);
    EXPECT_EQ(ta.substr(headerEnd(ta)), tb.substr(headerEnd(tb)));
    std::string ha = ta.substr(0, headerEnd(ta)), hb = tb.substr(0, headerEnd(tb));
    EXPECT_NE(ha, hb);
    EXPECT_NE(hb.find("*** File Saved 10:20:30"), std::string::npos);
    // The stamp goes into the note, the fifth field; the fan stamp stays behind it.
    EXPECT_EQ(ha.substr(ha.rfind('\t')), hb.substr(hb.rfind('\t')));

    // A folder that does not exist: the save's message, and nothing is written.
    r = Run("convert " + Quote(a) + " " + Quote(dir_ / "no" / "such" / "c.sim"));
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.err.find("ERROR 76: That path doesn't exist."), std::string::npos) << r.err;
    EXPECT_EQ(ReadAll(a), ta);
}

TEST_F(Cli, GenerateIsReproducibleAndReadsBack) {
    fs::path a = dir_ / "a.sim", b = dir_ / "b.sim", c = dir_ / "c.sim";
    ASSERT_EQ(Run(Clock + "generate " + Quote(a) + " --airways 777 --seed 5 --levels 3").code, 0);
    ASSERT_EQ(Run(Clock + "generate " + Quote(b) + " --airways 777 --seed 5 --levels 3").code, 0);
    ASSERT_EQ(Run(Clock + "generate " + Quote(c) + " --airways 777 --seed 6 --levels 3").code, 0);
    EXPECT_EQ(ReadAll(a), ReadAll(b));
    EXPECT_NE(ReadAll(a), ReadAll(c));

    Result r = Run("info --json " + Quote(a));
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["airways"].get<int>(), 777);
    EXPECT_EQ(j["levels"].get<int>(), 4);
    EXPECT_EQ(j["fans"].get<int>(), 1);
}

TEST_F(Cli, EditRunsAScriptOfTheUsersActions) {
    const fs::path script = dir_ / "names.txt", out = dir_ / "out.sim";
    std::ofstream(script) << "# lengths fixed, then the nodes named\n"
                             "answer yes\nmenu mnuFixL\nanswer ok\nanswer \"Q\"\nmenu mnuAutoNodes\n";
    Result r = Run(Clock + "edit " + Demo + " " + Quote(out) + " --script " + Quote(script));
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(Lines(r.err), (std::vector<std::string>{
                                "Fix all lengths: All lengths will be fixed - Are you sure? -> Yes",
                                "Karvane: All lengths are now fixed",
                                "Auto name: This routine automatically names all nodes that do not have an existing "
                                "name - Are you sure you want to procede (this cannot be undone) ? -> OK",
                                "Input Node Prefix: Enter a prefix (if any) you would like to appear in front of "
                                "the auto number (eg 'N') -> \"Q\""}));
    EXPECT_NE(ReadAll(out).find("\tQ1\t"), std::string::npos);

    // A question with no queued answer takes the --answer policy.
    std::ofstream(script) << "menu mnuFixL\n";
    r = Run("--answer no edit " + Demo + " " + Quote(out) + " --script " + Quote(script));
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(Lines(r.err),
              (std::vector<std::string>{"Fix all lengths: All lengths will be fixed - Are you sure? -> No"}));

    // A line that cannot be read or carried out stops the script: exit 2, nothing saved.
    fs::remove(out);
    const std::vector<std::pair<std::string, std::string>> bad{
        {"menu mnuFixL\nanswer yes\ntool hammer\n", "line 3: unknown tool \"hammer\""},
        {"save " + (dir_ / "early.sim").string() + "\nlevel Attic\n", "line 2: no level is named \"Attic\""}};
    for (const auto& [text, error] : bad) {
        std::ofstream(script) << text;
        r = Run("edit " + Demo + " " + Quote(out) + " --script " + Quote(script));
        EXPECT_EQ(r.code, 2) << text;
        EXPECT_EQ(Lines(r.err).back(), error);
        EXPECT_FALSE(fs::exists(out));
        EXPECT_FALSE(fs::exists(dir_ / "early.sim"));
    }
    r = Run("edit " + Demo + " " + Quote(out) + " --script " + Quote(dir_ / "none.txt"));
    EXPECT_EQ(r.code, 1);
}

TEST_F(Cli, EditPrintsWhereEachFindTookTheView) {
    const fs::path script = dir_ / "find.txt", out = dir_ / "out.sim";
    std::ofstream(script) << "answer \"1\"\nmenu mnuFinder(3)\ntool find-next\n";
    const Result r = Run("edit " + Demo + " " + Quote(out) + " --script " + Quote(script));
    ASSERT_EQ(r.code, 0) << r.err;
    const std::vector<std::string> lines = Lines(r.out);
    ASSERT_EQ(lines.size(), 2u) << r.out;
    EXPECT_EQ(lines[0].rfind("shown: airway 1 (row ", 0), 0u) << lines[0];
    EXPECT_NE(lines[0].find(", level \""), std::string::npos) << lines[0];
    EXPECT_EQ(lines[1], lines[0]);
}

TEST_F(Cli, CheckAndMerge) {
    Result r = Run("check " + Demo);
    EXPECT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.out, "");
    // The demo mine merged behind itself: every airway has a duplicate.
    const fs::path twice = dir_ / "twice.sim";
    r = Run("merge " + Demo + " " + Demo + " " + Quote(twice));
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(nlohmann::json::parse(Run("info --json " + Quote(twice)).out)["airways"].get<int>(), 640);
    r = Run("check " + Quote(twice));
    EXPECT_EQ(r.code, 1);
    const std::vector<std::string> lines = Lines(r.out);
    ASSERT_FALSE(lines.empty());
    for (const std::string& line : lines) EXPECT_NE(line.find("\tDuplicate "), std::string::npos) << line;
    r = Run("check --json " + Quote(twice));
    EXPECT_EQ(r.code, 1);
    auto j = nlohmann::json::parse(r.out);
    EXPECT_TRUE(j["faults"].get<bool>());
    EXPECT_EQ(j["errors"].size(), lines.size());
    EXPECT_EQ(j["errors"][0]["airwayNo"].get<int>(), std::stoi(lines[0]));
    // A second file that cannot be read merges nothing, and nothing is saved.
    r = Run("merge " + Demo + " " + Quote(dir_ / "none.sim") + " " + Quote(dir_ / "m.sim"));
    EXPECT_EQ(r.code, 1);
    EXPECT_FALSE(fs::exists(dir_ / "m.sim"));
}
