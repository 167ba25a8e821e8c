// karvane-cli simulate and summary: a clean run of the demo mine and its JSON (Kirchhoff's first
// law read back from the printed airways, totals that agree with the rows), a saved result
// that reads back to the same summary, a missing file, the troubleshooting modes with their
// messages, and the convergence question answered Yes only a few times in batch.
#include <cmath>
#include <map>

#include "cli_support.h"
#include "engineering/resistance.h"
#include "files/number_text.h"

namespace karvane {
namespace {

using namespace cli_testing;

class SimulateCli : public CliTest {
protected:
    // Appends an airway between two points, numbered after the last one.
    static std::int32_t AddAirway(Model& m, const Airway& like, std::int32_t x1, std::int32_t y1, std::int32_t z1,
                                  std::int32_t x2, std::int32_t y2, std::int32_t z2) {
        const std::int32_t row = ++m.AirwayCount;
        Airway& a = m.Airways[row];
        a = like;
        a.X1 = x1, a.Y1 = y1, a.Z1 = z1, a.X2 = x2, a.Y2 = y2, a.Z2 = z2;
        a.AirwayNo = ++m.Set.LastAirwayNo;
        a.ResType = 0;
        a.FanNumber = 0;
        a.NoOfFans = 0;
        a.Comment.clear();
        return row;
    }

    // The demo mine with two detours beside drives, each through a new point south of the
    // drive: a bulkhead then a booster fan, and a fan then a bulkhead. Bulkheads and fans are
    // equally heavy, so the airway of each detour that meets the forest first joins it and
    // the other closes the loop: the first detour keeps its bulkhead in the forest, the
    // second its fan.
    std::string DemoWithRestrictions() {
        ui::ScriptedUserInterface ui;
        auto m = LoadDemo(ui);
        std::vector<std::int32_t> drives;
        std::int16_t fanNumber = 0;
        for (std::int32_t r = 1; r <= m->AirwayCount; ++r) {
            const Airway& a = m->Airways[r];
            if (a.FanNumber == 0 && a.ResType == 0 && a.Z1 == a.Z2 && a.Y1 == a.Y2 && a.X1 < a.X2 &&
                a.EntryKey != SurfaceKey && a.ExitKey != SurfaceKey)
                drives.push_back(r);
            if (fanNumber == 0 && a.FanNumber > 0) fanNumber = a.FanNumber;
        }
        EXPECT_GE(drives.size(), 10u);
        EXPECT_GT(fanNumber, 0);
        auto detour = [&](std::int32_t row, bool bulkheadFirst) {
            const Airway d = m->Airways[row];
            const std::int32_t mx = (d.X1 + d.X2) / 2, my = d.Y1 - 9;
            const std::int32_t first = AddAirway(*m, d, d.X1, d.Y1, d.Z1, mx, my, d.Z1);
            const std::int32_t second = AddAirway(*m, d, mx, my, d.Z1, d.X2, d.Y2, d.Z2);
            Airway& bulkhead = m->Airways[bulkheadFirst ? first : second];
            bulkhead.ResType = 1;
            bulkhead.BranchName = FitText("Test Bulkhead", NameWidth);
            Airway& fan = m->Airways[bulkheadFirst ? second : first];
            fan.FanNumber = fanNumber;
            fan.NoOfFans = 1;
            fan.BranchName = FitText("Test Fan", NameWidth);
        };
        detour(drives.front(), true);
        detour(drives[drives.size() / 2], false);
        RecalcAllAirways(*m);
        return SaveVariant(*m, ui, "restricted.sim");
    }
};

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

    // Rows in row order, every field present; flow continuity at every node below the surface
    // from the printed keys and quantities; the totals are sums over the same rows.
    const std::string surface = files::PlainFixed(SurfaceKey, '.');
    std::map<std::string, double> balance;
    std::map<std::string, int> ends;
    double intake = 0, length = 0, airPower = 0;
    std::int64_t lastNo = 0;
    for (const auto& a : airways) {
        EXPECT_NE(a["airwayNo"].get<std::int64_t>(), lastNo);
        lastNo = a["airwayNo"].get<std::int64_t>();
        const std::string from = a["entryKey"], to = a["exitKey"];
        EXPECT_EQ(from.find_first_not_of("0123456789."), std::string::npos) << from;
        const double q = a["quantity"].get<double>();
        balance[to] += q;
        balance[from] -= q;
        ++ends[to], ++ends[from];
        if (from == surface) intake += q;
        length += a["length"].get<double>();
        airPower += a["resistance"].get<double>() * q * q * q;
    }
    ASSERT_GT(intake, 10.0);
    int junctions = 0;
    for (const auto& [key, net] : balance) {
        if (key == surface) continue;
        EXPECT_NEAR(net, 0.0, 1e-4 * intake) << key;
        if (ends[key] >= 3) ++junctions;
    }
    EXPECT_GT(junctions, 20);
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
    ASSERT_EQ(run["airways"].size(), sum["airways"].size());
    for (std::size_t i = 0; i < run["airways"].size(); ++i) {
        const json &x = run["airways"][i], &y = sum["airways"][i];
        EXPECT_EQ(x["airwayNo"], y["airwayNo"]);
        EXPECT_EQ(x["entryKey"], y["entryKey"]);
        EXPECT_NEAR(x["quantity"].get<double>(), y["quantity"].get<double>(), 0.01);
    }

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

    // A bulkhead and a fan that no loop can use.
    const std::string restricted = DemoWithRestrictions();
    r = Run("simulate '" + restricted + "' --mode 1 --json");
    ASSERT_EQ(r.code, 0) << r.err;
    json doc = r.Json();
    EXPECT_EQ(doc["simFail"], 1);
    EXPECT_EQ(TextsTitled(doc, "Possible meshing problems"),
              std::vector<std::string>{"CAUTION - Bulkheads are present which MAY restrict meshes formation."});
    bool badBulkhead = false;
    for (const auto& a : doc["airways"]) badBulkhead = badBulkhead || a["comment"] == "Bad BBH";
    EXPECT_TRUE(badBulkhead);
    EXPECT_FALSE(doc["errors"].empty());

    r = Run("simulate '" + restricted + "' --mode 3 --json");
    doc = r.Json();
    EXPECT_EQ(doc["simFail"], 1);
    EXPECT_EQ(TextsTitled(doc, "Possible meshing problems"),
              std::vector<std::string>{"WARNING - Fans are present which restrict other fans."});

    // Mode 2 asks; No keeps the bulkheads, Yes removes them and says how many, and the saved
    // network has them no more.
    r = Run("simulate '" + restricted + "' --mode 2 --json");
    doc = r.Json();
    EXPECT_EQ(doc["simFail"], 1);
    ASSERT_EQ(TextsTitled(doc, "Remove redundant bulkheads").size(), 1u);
    EXPECT_EQ(doc["messages"].back()["answer"], "No");
    const fs::path cleared = dir_ / "cleared.sim";
    r = Run("--answer yes simulate '" + restricted + "' --mode 2 --out " + Q(cleared) + " --json");
    ASSERT_EQ(r.code, 0) << r.err;
    doc = r.Json();
    EXPECT_TRUE(HasMessage(doc, "There were 1 unnecessary bulkheads removed from the network"))
        << r.out.substr(0, 3000);
    const Result again = Run("simulate " + Q(cleared) + " --mode 1 --json");
    EXPECT_TRUE(HasMessage(again.Json(), "There are NO unnecessary bulkheads.")) << again.out.substr(0, 3000);

    // Mode 4 lists the duplicates of the demo mine merged behind itself without asking; an
    // ordinary run asks, and fails on No.
    const std::string dup = Q(dir_ / "twice.sim");
    ASSERT_EQ(Run("merge " + Demo + " " + Demo + " " + dup).code, 0);
    doc = Run("simulate " + dup + " --mode 4 --json").Json();
    EXPECT_EQ(doc["simFail"], 1);
    for (const auto& msg : doc["messages"]) EXPECT_NE(msg["kind"], "Ask") << msg.dump();
    ASSERT_FALSE(doc["errors"].empty());
    EXPECT_EQ(doc["errors"][0]["text"], "Duplicate airway");
    r = Run("simulate " + dup + " --json");
    EXPECT_EQ(r.code, 1);
    EXPECT_EQ(TextsTitled(r.Json(), "Duplicate branches"),
              std::vector<std::string>{"Duplicate branches exist - delete them ?"});
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

TEST_F(SimulateCli, NewtonGivesTheSameTotalsAndTheFileCarriesTheChoice) {
    const Result h = Run("simulate " + Demo + " --json");
    const fs::path saved = dir_ / "newton.sim";
    const Result n = Run("simulate " + Demo + " --solver newton --out " + Q(saved) + " --json");
    ASSERT_EQ(n.code, 0) << n.err;
    const json hd = h.Json(), nd = n.Json();
    EXPECT_EQ(hd["solver"], "hardy-cross");
    EXPECT_EQ(nd["solver"], "newton");
    EXPECT_EQ(nd["simFail"], 0);
    EXPECT_EQ(nd["errors"], hd["errors"]);
    EXPECT_EQ(nd["messages"], hd["messages"]);
    const double flow = hd["totals"]["totalAirflow"].get<double>();
    EXPECT_NEAR(nd["totals"]["totalAirflow"].get<double>(), flow, 1e-3 * flow);

    // The saved network balances by Newton's method again without being told; the option
    // overrides the file, and takes only the two names.
    EXPECT_EQ(Run("simulate " + Q(saved) + " --json").Json()["solver"], "newton");
    EXPECT_EQ(Run("simulate " + Q(saved) + " --solver hardy-cross --json").Json()["solver"], "hardy-cross");
    EXPECT_EQ(Run("simulate " + Demo + " --solver gauss").code, 2);
    EXPECT_EQ(Run("smoke " + Q(saved) + " --solver gauss").code, 2);
}

} // namespace
} // namespace karvane
