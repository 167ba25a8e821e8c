// karvane-cli as a user meets it: exit codes, results on standard output, every message of the
// program on standard error as one "title: text" line, and files that read back as written.
#include "cli_support.h"
#include "support/golden.h"

using namespace karvane::cli_testing;
using Cli = CliTest;

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

TEST_F(Cli, InfoOnTheDemoMineAndAConvertThatCannotRead) {
    // The demo mine loads without a single message; its counts and settings as stored.
    Result r = Run("info " + Demo);
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    ASSERT_EQ(r.out.rfind("File: " + Demo + "\n", 0), 0u) << r.out;
    karvane::testing::ExpectGolden("info_demo_mine.txt", r.out.substr(r.out.find('\n') + 1));
    r = Run("info --json " + Demo);
    ASSERT_EQ(r.code, 0) << r.err;
    json j = r.Json();
    EXPECT_TRUE(j["loaded"].get<bool>());
    EXPECT_TRUE(j["messages"].empty());
    j.erase("file");
    karvane::testing::ExpectGolden("info_demo_mine.json", j.dump(2) + "\n");

    // A convert that cannot read writes nothing.
    r = Run("convert " + Q(dir_ / "none.sim") + " " + Q(dir_ / "out.sim"));
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.err.find(": ERROR 53: That file doesn't exist.\n"), std::string::npos) << r.err;
    EXPECT_FALSE(fs::exists(dir_ / "out.sim"));
}

TEST_F(Cli, ConvertWritesTheSameFileAgain) {
    fs::path a = dir_ / "a.sim", b = dir_ / "b.sim";
    Result r = Run(Clock + "convert " + Demo + " " + Q(a));
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    r = Run(Clock + "convert " + Q(a) + " " + Q(b));
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
    r = Run("convert " + Q(a) + " " + Q(dir_ / "no" / "such" / "c.sim"));
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.err.find("ERROR 76: That path doesn't exist."), std::string::npos) << r.err;
    EXPECT_EQ(ReadAll(a), ta);
}

TEST_F(Cli, GenerateIsReproducibleAndReadsBack) {
    fs::path a = dir_ / "a.sim", b = dir_ / "b.sim", c = dir_ / "c.sim";
    for (const auto& [file, seed] : {std::pair{a, "5"}, {b, "5"}, {c, "6"}})
        ASSERT_EQ(Run(Clock + "generate " + Q(file) + " --airways 777 --levels 3 --seed " + seed).code, 0);
    EXPECT_EQ(ReadAll(a), ReadAll(b));
    EXPECT_NE(ReadAll(a), ReadAll(c));

    Result r = Run("info --json " + Q(a));
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    auto j = json::parse(r.out);
    EXPECT_EQ(j["airways"].get<int>(), 777);
    EXPECT_EQ(j["levels"].get<int>(), 4);
    EXPECT_EQ(j["fans"].get<int>(), 1);
}

TEST_F(Cli, EditRunsAScriptOfTheUsersActions) {
    const fs::path script = dir_ / "names.txt", out = dir_ / "out.sim";
    std::ofstream(script) << "# lengths fixed, then the nodes named\n"
                             "answer yes\nmenu mnuFixL\nanswer ok\nanswer \"Q\"\nmenu mnuAutoNodes\n";
    Result r = Run(Clock + "edit " + Demo + " " + Q(out) + " --script " + Q(script));
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
    r = Run("--answer no edit " + Demo + " " + Q(out) + " --script " + Q(script));
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
        r = Run("edit " + Demo + " " + Q(out) + " --script " + Q(script));
        EXPECT_EQ(r.code, 2) << text;
        EXPECT_EQ(Lines(r.err).back(), error);
        EXPECT_FALSE(fs::exists(out));
        EXPECT_FALSE(fs::exists(dir_ / "early.sim"));
    }
    r = Run("edit " + Demo + " " + Q(out) + " --script " + Q(dir_ / "none.txt"));
    EXPECT_EQ(r.code, 1);
}

TEST_F(Cli, EditPrintsWhereEachFindTookTheView) {
    const fs::path script = dir_ / "find.txt", out = dir_ / "out.sim";
    std::ofstream(script) << "answer \"1\"\nmenu mnuFinder(3)\ntool find-next\n";
    const Result r = Run("edit " + Demo + " " + Q(out) + " --script " + Q(script));
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
    r = Run("merge " + Demo + " " + Demo + " " + Q(twice));
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(json::parse(Run("info --json " + Q(twice)).out)["airways"].get<int>(), 640);
    r = Run("check " + Q(twice));
    EXPECT_EQ(r.code, 1);
    const std::vector<std::string> lines = Lines(r.out);
    ASSERT_FALSE(lines.empty());
    for (const std::string& line : lines) EXPECT_NE(line.find("\tDuplicate "), std::string::npos) << line;
    r = Run("check --json " + Q(twice));
    EXPECT_EQ(r.code, 1);
    auto j = json::parse(r.out);
    EXPECT_TRUE(j["faults"].get<bool>());
    EXPECT_EQ(j["errors"].size(), lines.size());
    EXPECT_EQ(j["errors"][0]["airwayNo"].get<int>(), std::stoi(lines[0]));
    // A second file that cannot be read merges nothing, and nothing is saved.
    r = Run("merge " + Demo + " " + Q(dir_ / "none.sim") + " " + Q(dir_ / "m.sim"));
    EXPECT_EQ(r.code, 1);
    EXPECT_FALSE(fs::exists(dir_ / "m.sim"));
}
