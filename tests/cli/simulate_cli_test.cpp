// karvane-cli simulate and summary: a clean run of the demo mine and its JSON (totals that agree
// with the printed rows), a saved result that reads back to the same summary, a missing file,
// the troubleshooting modes through their option, and the convergence question answered Yes
// only a few times in batch.
#include <cmath>

#include "cli_support.h"
#include "files/number_text.h"

namespace karvane {
namespace {

using namespace cli_testing;

using SimulateCli = CliTest;

TEST_F(SimulateCli, TheDemoMineRunsCleanlyAndItsJsonHoldsTogether) {
    const Result r = Run("simulate " + Demo + " --json");
    ASSERT_EQ(r.code, 0) << r.err;
    const json doc = r.Json();
    EXPECT_EQ(doc["simFail"], 0);
    EXPECT_EQ(doc["simValid"], true);
    EXPECT_EQ(doc["mode"], 0);
    EXPECT_TRUE(doc["errors"].empty()) << doc["errors"].dump();
    for (const auto& m : doc["messages"]) EXPECT_NE(m["kind"], "Ask") << m.dump();

    const json& totals = doc["totals"];
    const json& airways = doc["airways"];
    ASSERT_GT(airways.size(), 100u);
    EXPECT_EQ(totals["numberOfAirways"].get<std::size_t>(), airways.size());

    // The totals are sums over the printed rows.
    const std::string surface = files::PlainFixed(SurfaceKey, '.');
    double intake = 0, length = 0, airPower = 0;
    for (const auto& a : airways) {
        const double q = a["quantity"].get<double>();
        if (a["entryKey"] == surface) intake += q;
        length += a["length"].get<double>();
        airPower += a["resistance"].get<double>() * q * q * q;
    }
    ASSERT_GT(intake, 10.0);
    EXPECT_NEAR(totals["totalFlow"].get<double>(), intake, 1e-4 * intake);
    EXPECT_EQ(totals["totalAirflow"].get<double>(), std::trunc(totals["totalFlow"].get<double>()));
    EXPECT_NEAR(totals["lengthOfAirways"].get<double>(), length, 1e-4 * length);
    EXPECT_NEAR(totals["airPowerKW"].get<double>(), std::trunc(airPower / 1000.0), 1.0 + 1e-3 * airPower / 1000.0);
    EXPECT_GT(totals["numberOfFans"].get<int>(), 0);
    const double efficiency = totals["efficiency"].get<double>();
    EXPECT_GT(efficiency, 0.0);
    EXPECT_LE(efficiency, 1.0);
    EXPECT_NEAR(totals["mineResistance"].get<double>(),
                totals["airPowerKW"].get<double>() * 1000.0 / std::pow(totals["totalFlow"].get<double>(), 3.0),
                0.01 * totals["mineResistance"].get<double>());

    // The same run as text: the result, the summary figures and an empty error list.
    const Result t = Run("simulate " + Demo);
    ASSERT_EQ(t.code, 0) << t.err;
    EXPECT_NE(t.out.find("Run: simulation\nResult: valid\nTotal Airflow: " +
                         std::to_string(totals["totalAirflow"].get<long long>()) + " m3/s\n"),
              std::string::npos)
        << t.out;
    EXPECT_NE(t.out.find("\nErrors: 0\n"), std::string::npos) << t.out;
}

TEST_F(SimulateCli, ASavedResultReadsBackToTheSameSummary) {
    const fs::path out = dir_ / "balanced.sim";
    const Result r = Run(Clock + "simulate " + Demo + " --out " + Q(out) + " --json");
    ASSERT_EQ(r.code, 0) << r.err;
    ASSERT_TRUE(fs::exists(out));
    const json run = r.Json();
    EXPECT_EQ(run["saved"], true);

    const Result s = Run("summary " + Q(out) + " --json");
    ASSERT_EQ(s.code, 0) << s.err;
    const json sum = s.Json();
    EXPECT_TRUE(sum["loaded"].get<bool>());
    // Every total within a thousandth (whole kilowatts within one more), the counts exactly.
    const json &a = run["totals"], &b = sum["totals"];
    for (const auto& [key, value] : a.items()) {
        const double x = value.get<double>(), kw = key.ends_with("KW") ? 1.0 : 0.0;
        EXPECT_NEAR(x, b[key].get<double>(), kw + 1e-3 * std::fabs(x)) << key;
    }
    EXPECT_EQ(run["airways"].size(), sum["airways"].size());

    // The summary as text: the figures as the report labels them, and nothing asked.
    const Result t = Run("summary " + Q(out));
    ASSERT_EQ(t.code, 0) << t.err;
    EXPECT_EQ(t.out.rfind("Total Airflow: " + std::to_string(b["totalAirflow"].get<long long>()) + " m3/s\n", 0), 0u)
        << t.out;
    EXPECT_EQ(t.err, "");
}

TEST_F(SimulateCli, AMissingFileFailsWithItsMessage) {
    const fs::path missing = dir_ / "no-such-mine.sim";
    for (const char* command : {"info", "simulate", "summary"}) {
        Result r = Run(std::string(command) + " " + Q(missing));
        EXPECT_EQ(r.code, 1) << command;
        EXPECT_TRUE(r.out.empty()) << r.out;
        EXPECT_NE(r.err.find(": ERROR 53: That file doesn't exist.\n"), std::string::npos) << r.err;

        r = Run(std::string(command) + " " + Q(missing) + " --json");
        EXPECT_EQ(r.code, 1);
        const json doc = r.Json();
        EXPECT_FALSE(doc["loaded"].get<bool>());
        EXPECT_FALSE(doc.contains("airways"));
        EXPECT_TRUE(HasMessage(doc, "ERROR 53: That file doesn't exist.")) << r.out;
    }
    // Nothing is written for a file that was never read.
    EXPECT_EQ(Run("simulate " + Q(missing) + " --out " + Q(dir_ / "out.sim")).code, 1);
    EXPECT_FALSE(fs::exists(dir_ / "out.sim"));
    // Options out of range are usage errors.
    for (const char* bad : {" --mode 5", " --max-iter 0", " --allow-err -1"})
        EXPECT_EQ(Run("simulate " + Demo + bad).code, 2) << bad;
}

TEST_F(SimulateCli, TroubleshootingModesSayWhatTheyFind) {
    // On the clean demo mine: nothing to find.
    struct Clean {
        const char* mode;
        const char* text;
    };
    for (const Clean& c :
         {Clean{"1", "There are NO unnecessary bulkheads."}, Clean{"2", "There were NO unnecessary bulkheads removed."},
          Clean{"3", "There are NO fans that are being restricted by other fans."},
          Clean{"-1", "There are NO major convergence problems"}}) {
        const Result r = Run("simulate " + Demo + " --mode " + c.mode + " --json");
        ASSERT_EQ(r.code, 0) << c.mode << r.err;
        const json doc = r.Json();
        EXPECT_EQ(doc["mode"], std::stoi(c.mode));
        EXPECT_EQ(doc["simFail"], 0) << c.mode;
        EXPECT_TRUE(HasMessage(doc, c.text)) << c.mode << r.out.substr(0, 2000);
    }
    // Mode 4 on a clean network ends silently.
    Result r = Run("simulate " + Demo + " --mode 4 --json");
    ASSERT_EQ(r.code, 0);
    EXPECT_TRUE(r.Json()["messages"].empty()) << r.out.substr(0, 2000);

    // Mode 4 lists the duplicates of the demo mine merged behind itself without asking; an
    // ordinary run asks, and fails on No.
    const std::string dup = Q(dir_ / "twice.sim");
    ASSERT_EQ(Run("merge " + Demo + " " + Demo + " " + dup).code, 0);
    const json doc = Run("simulate " + dup + " --mode 4 --json").Json();
    EXPECT_EQ(doc["simFail"], 1);
    for (const auto& msg : doc["messages"]) EXPECT_NE(msg["kind"], "Ask") << msg.dump();
    ASSERT_FALSE(doc["errors"].empty());
    EXPECT_EQ(doc["errors"][0]["text"], "Duplicate airway");
    r = Run("simulate " + dup + " --json");
    EXPECT_EQ(r.code, 1);
    EXPECT_EQ(TextsTitled(r.Json(), "Duplicate branches"),
              std::vector<std::string>{"Duplicate branches exist - delete them ?"});
    // Yes deletes them and the run goes on.
    r = Run("--answer yes simulate " + dup + " --json");
    EXPECT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.Json()["messages"][0]["answer"], "Yes");
}

TEST_F(SimulateCli, TheConvergenceQuestionIsAnsweredYesOnlyAFewTimes) {
    // A generated mine in still air, one pass at a time: the question comes back after every
    // pass for as long as the user goes on.
    const fs::path still = dir_ / "still.sim";
    ASSERT_EQ(Run("generate " + Q(still) + " --airways 300 --seed 3").code, 0);
    Result r = Run("--answer yes simulate " + Q(still) + " --max-iter 1 --json");
    json doc = r.Json();
    std::vector<std::string> answers;
    for (const auto& m : doc["messages"])
        if (m["title"] == "Convergence Warning") answers.push_back(m["answer"]);
    EXPECT_EQ(answers, (std::vector<std::string>{"Yes", "Yes", "Yes", "No"})) << r.err;
    for (const std::string& text : TextsTitled(doc, "Convergence Warning"))
        EXPECT_NE(text.find("\nDo you wish to keep on simulating ?"), std::string::npos);

    // Mode -1 marks the airways that still move in the last pass.
    r = Run("simulate " + Q(still) + " --mode -1 --max-iter 1 --json");
    ASSERT_EQ(r.code, 0) << r.err;
    doc = r.Json();
    EXPECT_EQ(doc["simFail"], 1);
    ASSERT_FALSE(doc["errors"].empty());
    EXPECT_EQ(doc["errors"][0]["text"], "Converge Error");
    int marked = 0;
    for (const auto& a : doc["airways"]) marked += a["comment"].get<std::string>().rfind("Converge ", 0) == 0;
    EXPECT_EQ(static_cast<std::size_t>(marked), doc["errors"].size());
}

TEST_F(SimulateCli, TheSolverIsChosenByOptionOrByTheFile) {
    EXPECT_EQ(Run("simulate " + Demo + " --json").Json()["solver"], "hardy-cross");
    const fs::path saved = dir_ / "newton.sim";
    const Result n = Run("simulate " + Demo + " --solver newton --out " + Q(saved) + " --json");
    ASSERT_EQ(n.code, 0) << n.err;
    EXPECT_EQ(n.Json()["solver"], "newton");
    // The saved network balances by Newton's method again without being told; the option
    // overrides the file, and takes only the two names.
    EXPECT_EQ(Run("simulate " + Q(saved) + " --json").Json()["solver"], "newton");
    EXPECT_EQ(Run("simulate " + Q(saved) + " --solver hardy-cross --json").Json()["solver"], "hardy-cross");
    EXPECT_EQ(Run("simulate " + Demo + " --solver gauss").code, 2);
    EXPECT_EQ(Run("smoke " + Q(saved) + " --solver gauss").code, 2);
}

} // namespace
} // namespace karvane
