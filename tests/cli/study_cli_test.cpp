// karvane-cli study and study-merge over the demo mine: the same report bytes for one and two
// workers, shards merged into the single run's report byte for byte, exit status 1 when a
// scenario failed, and parts of different studies refused.
#include "cli_support.h"

using namespace karvane::cli_testing;
using StudyCli = CliTest;

TEST_F(StudyCli, ReportIsTheSameForAnyWorkersAndForMergedShards) {
    const std::string study = Write("study.txt", "each-fan-off\neach-airway-blocked 1 2 3\n");
    const Result one = Run("study " + Demo + " " + study + " --json --jobs 1 --watch 1 2 --max-velocity 6");
    ASSERT_EQ(one.code, 0) << one.err;
    const Result two = Run("study " + Demo + " " + study + " --json --jobs 2 --watch 1 2 --max-velocity 6");
    EXPECT_EQ(two.code, 0) << two.err;
    EXPECT_EQ(one.out, two.out);
    const json report = json::parse(one.out);
    EXPECT_EQ(report["failed"], 0);
    ASSERT_GE(report["scenarios"].size(), 4u);

    std::string parts;
    for (int k = 0; k < 2; ++k) {
        const Result part = Run("study " + Demo + " " + study +
                                " --json --jobs 2 --watch 1 2 --max-velocity 6 --shard " + std::to_string(k) + "/2");
        ASSERT_EQ(part.code, 0) << part.err;
        parts += " " + Write("part-" + std::to_string(k) + ".json", part.out);
    }
    const Result merged = Run("study-merge " + Q(dir_ / "all.json") + parts);
    ASSERT_EQ(merged.code, 0) << merged.err;
    EXPECT_EQ(ReadAll(dir_ / "all.json"), one.out);

    // A part of another study is refused.
    const std::string other = Write("other.txt", "each-airway-blocked 1\n");
    const Result stray = Run("study " + Demo + " " + other + " --json --jobs 1");
    ASSERT_EQ(stray.code, 0) << stray.err;
    const Result mixed = Run("study-merge " + Q(dir_ / "mixed.json") + " " + Q(dir_ / "part-0.json") + " " +
                             Write("stray.json", stray.out));
    EXPECT_EQ(mixed.code, 1);
    EXPECT_NE(mixed.err.find("is a part of another study than"), std::string::npos) << mixed.err;
}

TEST_F(StudyCli, TheSolverIsSetOnTheBaseNetwork) {
    const std::string study = Write("study.txt", "each-fan-off\n");
    const Result hc = Run("study " + Demo + " " + study + " --json --jobs 2 --watch 12 --solver hardy-cross");
    const Result nt = Run("study " + Demo + " " + study + " --json --jobs 2 --watch 12 --solver newton");
    ASSERT_EQ(hc.code, 0) << hc.err;
    ASSERT_EQ(nt.code, 0) << nt.err;
    const json a = json::parse(hc.out), b = json::parse(nt.out);
    EXPECT_EQ(a["study"]["solver"], "hardy-cross");
    EXPECT_EQ(b["study"]["solver"], "newton");
    EXPECT_NE(a["study"]["id"], b["study"]["id"]);
    // Newton's runs take fewer passes.
    EXPECT_LE(b["scenarios"][0]["passes"].get<int>(), a["scenarios"][0]["passes"].get<int>());
    EXPECT_EQ(Run("study " + Demo + " " + study + " --solver gauss").code, 2);
}

TEST_F(StudyCli, AFailedScenarioGivesExitStatusOne) {
    const std::string study = Write("study.txt", "scenario \"good\"\n\nscenario \"bad\"\nset 999999 TxtWidth=5\n");
    const Result r = Run("study " + Demo + " " + study + " --json --jobs 2");
    EXPECT_EQ(r.code, 1) << r.err;
    const json report = json::parse(r.out);
    EXPECT_EQ(report["failed"], 1);
    ASSERT_EQ(report["scenarios"].size(), 2u);
    EXPECT_TRUE(report["scenarios"][0]["ran"].get<bool>());
    EXPECT_FALSE(report["scenarios"][1]["ran"].get<bool>());
    EXPECT_EQ(report["scenarios"][1]["failure"], "line 4: no airway numbered 999999");
}
