// Scenario studies over the demo mine: the study file's faults with their line numbers, the
// scenarios the generators write, results that do not depend on the number of workers or on
// sharding, a failing scenario that fails alone, and every result against the oracle of the
// same lines run through a session and then balanced on a copy of the base network.
#include <gtest/gtest.h>

#include <tuple>

#include <filesystem>
#include <memory>

#include "files/conversion_file.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "files/network_load.h"
#include "model/units.h"
#include "script/session.h"
#include "script/study.h"
#include "simulate/run.h"

using namespace karvane;

namespace {

std::unique_ptr<Model> LoadDemo() {
    ui::ScriptedUserInterface ui;
    ui.App = KARVANE_EXAMPLES;
    ui.Temp = std::filesystem::temp_directory_path().string();
    auto m = std::make_unique<Model>();
    SetBuiltInUnits(m->Units);
    files::LoadConversions(*m, ui);
    files::LoadBuiltInSettings(*m, ui);
    files::LoadFanDatabase(*m, ui);
    EXPECT_TRUE(files::LoadNetwork(*m, std::string(KARVANE_EXAMPLES) + "/demo-mine.sim", ui));
    return m;
}

const Model& Demo() {
    static const std::unique_ptr<Model> demo = LoadDemo();
    return *demo;
}

std::vector<std::int32_t> FanAirways(const Model& m) {
    std::vector<std::int32_t> fans;
    for (std::int32_t row = 1; row <= m.AirwayCount; ++row)
        if (m.Airways[static_cast<std::size_t>(row)].FanNumber > 0)
            fans.push_back(m.Airways[static_cast<std::size_t>(row)].AirwayNo);
    std::sort(fans.begin(), fans.end());
    return fans;
}

script::Study Read(const std::string& text, const Model& base = Demo()) {
    script::Study study;
    EXPECT_EQ(script::ReadStudy(text, base, study), "");
    return study;
}

script::StudyOptions Options(int jobs) {
    script::StudyOptions o;
    o.Jobs = jobs;
    o.AppPath = KARVANE_EXAMPLES;
    o.TempPath = std::filesystem::temp_directory_path().string();
    o.MinVelocity = 0.5;
    o.MaxVelocity = 6;
    for (std::int32_t row = 1; row <= Demo().AirwayCount; row += 3)
        o.Watch.push_back(Demo().Airways[static_cast<std::size_t>(row)].AirwayNo);
    return o;
}

// Every figure of a result, so that two results compare as wholes.
void ExpectSame(const script::ScenarioResult& a, const script::ScenarioResult& b) {
    const auto key = [](const script::ScenarioResult& r) {
        return std::tie(r.Index, r.Name, r.Ran, r.Failure, r.SimValid, r.SimFail, r.Passes, r.Totals.TotalAirflow,
                        r.Totals.AirPowerKW, r.Totals.InputPowerKW, r.Totals.Efficiency, r.Totals.MineResistance,
                        r.Totals.AnnualCost, r.Watched, r.Errors);
    };
    EXPECT_TRUE(key(a) == key(b)) << a.Name;
    ASSERT_EQ(a.Fans.size(), b.Fans.size());
    for (std::size_t k = 0; k < a.Fans.size(); ++k) {
        const auto fan = [k](const script::ScenarioResult& r) {
            const script::FanDuty& f = r.Fans[k];
            return std::tie(f.AirwayNo, f.Quantity, f.Pressure, f.Efficiency, f.InputPowerKW, f.Stalled);
        };
        EXPECT_TRUE(fan(a) == fan(b)) << a.Name << " fan " << k;
    }
    ASSERT_EQ(a.OutsideVelocity.size(), b.OutsideVelocity.size());
    for (std::size_t k = 0; k < a.OutsideVelocity.size(); ++k)
        EXPECT_EQ(std::tie(a.OutsideVelocity[k].AirwayNo, a.OutsideVelocity[k].Velocity),
                  std::tie(b.OutsideVelocity[k].AirwayNo, b.OutsideVelocity[k].Velocity));
    ASSERT_EQ(a.Messages.size(), b.Messages.size());
    for (std::size_t k = 0; k < a.Messages.size(); ++k) EXPECT_EQ(a.Messages[k].Text, b.Messages[k].Text);
}

TEST(Study, FaultsOfTheFileNameTheirLine) {
    Model noFans = Demo();
    for (std::int32_t row = 1; row <= noFans.AirwayCount; ++row)
        noFans.Airways[static_cast<std::size_t>(row)].FanNumber = 0;
    const std::string vary = "vary AIRWAYNO FIELD FROM TO STEPS: an airway number, a control name, two numbers and "
                             "from 1 to 10000 steps";
    const struct {
        const char* text;
        const Model* base;
        std::string fault;
    } cases[] = {
        {"# sweep\nscenario \"\"\n", &Demo(), "line 2: a scenario needs a name: scenario \"NAME\""},
        {"scenario\n", &Demo(), "line 1: a scenario needs a name: scenario \"NAME\""},
        {"scenario \"a\"\nset 1 Length=5\n\nscenario \"a\"\n", &Demo(),
         "line 4: a scenario named \"a\" is already in the study"},
        {"vary 1 Length 10 20\n", &Demo(), "line 1: " + vary},
        {"\nvary 1 Length ten 20 3\n", &Demo(), "line 2: " + vary},
        {"vary 1 Length 10 20 0\n", &Demo(), "line 1: " + vary},
        {"vary 1 Length 10 20 10001\n", &Demo(), "line 1: " + vary},
        {"vary 999999 Length 10 20 3\n", &Demo(), "line 1: vary: no airway numbered 999999"},
        {"each-fan-off\n", &noFans, "line 1: each-fan-off: the network has no airway with a fan"},
        {"each-fan-off 3\n", &Demo(), "line 1: each-fan-off takes nothing after it"},
        {"each-airway-blocked\n", &Demo(),
         "line 1: each-airway-blocked: name the airways, e.g. each-airway-blocked 12 40 41"},
        {"each-airway-blocked 1 x\n", &Demo(), "line 1: each-airway-blocked: \"x\" is no airway number"},
        {"each-fan-off\nset 1 Length=5\n", &Demo(),
         "line 2: this line belongs to no scenario: lines for every scenario come before the first, and a "
         "scenario's own lines after its scenario \"NAME\""},
        {"each-fan-off\neach-fan-off\n", &Demo(),
         "line 2: a scenario named \"fan off in airway " + std::to_string(FanAirways(Demo()).front()) +
             "\" is already in the study"},
        {"", &Demo(), "the study names no scenario: begin one with scenario \"NAME\""},
        {"# only common lines\nset 1 Length=5\n", &Demo(),
         "the study names no scenario: begin one with scenario \"NAME\""},
    };
    for (const auto& c : cases) {
        script::Study study;
        EXPECT_EQ(script::ReadStudy(c.text, *c.base, study), c.fault) << c.text;
    }
}

TEST(Study, GeneratorsWriteOneScenarioPerCase) {
    const std::vector<std::int32_t> fans = FanAirways(Demo());
    ASSERT_FALSE(fans.empty());
    const std::int32_t a = Demo().Airways[1].AirwayNo, b = Demo().Airways[2].AirwayNo;
    const std::string sa = std::to_string(a), sb = std::to_string(b);
    const script::Study study = Read("menu mnuFixL\n"
                                     "scenario \"own\"\n"
                                     "set " +
                                     sa +
                                     " Length=5\n"
                                     "each-fan-off\n"
                                     "vary " +
                                     sa +
                                     " Length 10 20 3\n"
                                     "each-airway-blocked " +
                                     sa + ", " + sb +
                                     "\n"
                                     "scenario \"last\"\n");
    std::vector<std::tuple<std::string, std::string, std::vector<std::int32_t>>> expected;
    expected.emplace_back("own", "menu mnuFixL\nset " + sa + " Length=5\n", std::vector<std::int32_t>{1, 3});
    for (std::int32_t no : fans)
        expected.emplace_back("fan off in airway " + std::to_string(no),
                              "menu mnuFixL\nset " + std::to_string(no) + " FanCombo2=None\n",
                              std::vector<std::int32_t>{1, 4});
    for (const char* v : {"10", "15", "20"})
        expected.emplace_back(sa + " Length=" + v, "menu mnuFixL\nset " + sa + " Length=" + v + "\n",
                              std::vector<std::int32_t>{1, 5});
    for (const std::string& no : {sa, sb})
        expected.emplace_back("airway " + no + " blocked", "menu mnuFixL\nset " + no + " ResCombo=1\n",
                              std::vector<std::int32_t>{1, 6});
    expected.emplace_back("last", "menu mnuFixL\n", std::vector<std::int32_t>{1});
    ASSERT_EQ(study.Scenarios.size(), expected.size());
    for (std::size_t k = 0; k < expected.size(); ++k) {
        EXPECT_EQ(study.Scenarios[k].Name, std::get<0>(expected[k]));
        EXPECT_EQ(study.Scenarios[k].Text, std::get<1>(expected[k]));
        EXPECT_EQ(study.Scenarios[k].At, std::get<2>(expected[k]));
    }
    // A sweep of one step takes its first value; a sweep downwards counts down.
    const script::Study down = Read("vary " + sa + " Length 30 10 3\nvary " + sb + " Length 7.5 99 1\n");
    ASSERT_EQ(down.Scenarios.size(), 4u);
    EXPECT_EQ(std::make_tuple(down.Scenarios[1].Name, down.Scenarios[3].Text),
              std::make_tuple(sa + " Length=20", "set " + sb + " Length=7.5\n"));
}

// A study of every kind of scenario, one of which cannot carry out its line.
std::string MixedStudy() {
    const std::string a = std::to_string(Demo().Airways[1].AirwayNo);
    return "each-fan-off\n"
           "scenario \"bad\"\n"
           "set 999999 Length=5\n"
           "vary " +
           a +
           " TxtWidth 2 6 3\n"
           "each-airway-blocked " +
           a + "\n";
}

TEST(Study, ResultsEqualTheOracleWhateverTheWorkers) {
    const script::Study study = Read(MixedStudy());
    const std::vector<script::ScenarioResult> one = script::RunStudy(Demo(), study, Options(1));
    const std::vector<script::ScenarioResult> two = script::RunStudy(Demo(), study, Options(2));
    ASSERT_EQ(one.size(), study.Scenarios.size());
    ASSERT_EQ(two.size(), one.size());
    for (std::size_t k = 0; k < one.size(); ++k) {
        SCOPED_TRACE(one[k].Name);
        ExpectSame(one[k], two[k]);
        EXPECT_EQ(one[k].Index, static_cast<int>(k));
        EXPECT_EQ(one[k].Failed(), one[k].Name == "bad") << one[k].Failure;
    }
    // The bad line fails its own scenario alone, named by its line in the study file.
    const std::size_t bad = FanAirways(Demo()).size();
    ASSERT_EQ(one[bad].Name, "bad");
    EXPECT_FALSE(one[bad].Ran);
    EXPECT_EQ(one[bad].Failure, "line 3: no airway numbered 999999");
    EXPECT_TRUE(one[bad].Fans.empty());

    // The oracle: the same lines through a session on a copy, then the balance.
    for (std::size_t k = 0; k < one.size(); ++k) {
        if (!one[k].Ran) continue;
        SCOPED_TRACE(one[k].Name);
        Model copy = Demo();
        ui::ScriptedUserInterface ui;
        ui.App = KARVANE_EXAMPLES;
        ui.Temp = std::filesystem::temp_directory_path().string();
        {
            script::Session session(copy, ui);
            session.ShowNetwork(files::LoadReport{});
            ASSERT_EQ(session.RunText(study.Scenarios[k].Text), "");
            copy.SimMode = RunMode::Normal;
            copy.ShowProgress = 0;
            simulate::RunAirflow(copy, ui);
        }
        EXPECT_EQ(
            std::make_tuple(one[k].SimValid, one[k].SimFail, one[k].Totals.TotalAirflow, one[k].Totals.InputPowerKW),
            std::make_tuple(copy.SimValid != Validity::NotValid, copy.SimFail != RunResult::Good,
                            simulate::Summarize(copy).TotalAirflow, simulate::Summarize(copy).InputPowerKW));
        for (const auto& [no, q] : one[k].Watched) {
            ASSERT_TRUE(q.has_value());
            for (std::int32_t row = 1; row <= copy.AirwayCount; ++row)
                if (copy.Airways[static_cast<std::size_t>(row)].AirwayNo == no) {
                    EXPECT_EQ(*q, copy.Airways[static_cast<std::size_t>(row)].Quantity) << no;
                }
        }
        for (const script::FanDuty& f : one[k].Fans)
            for (std::int32_t row = 1; row <= copy.AirwayCount; ++row)
                if (copy.Airways[static_cast<std::size_t>(row)].AirwayNo == f.AirwayNo) {
                    EXPECT_EQ(f.Quantity, copy.Airways[static_cast<std::size_t>(row)].Quantity);
                    EXPECT_EQ(f.Pressure, copy.Airways[static_cast<std::size_t>(row)].Pressure);
                }
    }
    // A fan switched off leaves one fan fewer in the report than the base has.
    EXPECT_EQ(one[0].Fans.size() + 1, FanAirways(Demo()).size());
}

TEST(Study, ShardsTogetherAreTheWhole) {
    const script::Study study = Read(MixedStudy());
    const std::vector<script::ScenarioResult> whole = script::RunStudy(Demo(), study, Options(2));
    script::StudyOptions first = Options(2), second = Options(1);
    first.ShardCount = second.ShardCount = 2;
    second.ShardIndex = 1;
    const std::vector<script::ScenarioResult> a = script::RunStudy(Demo(), study, first);
    const std::vector<script::ScenarioResult> b = script::RunStudy(Demo(), study, second);
    ASSERT_EQ(a.size() + b.size(), whole.size());
    for (const script::ScenarioResult& r : a) {
        EXPECT_EQ(r.Index % 2, 0);
        ExpectSame(r, whole[static_cast<std::size_t>(r.Index)]);
    }
    for (const script::ScenarioResult& r : b) {
        EXPECT_EQ(r.Index % 2, 1);
        ExpectSame(r, whole[static_cast<std::size_t>(r.Index)]);
    }
    EXPECT_EQ(script::ShardScenarios(5, 1, 2), (std::vector<int>{1, 3}));
    EXPECT_TRUE(script::ShardScenarios(1, 1, 2).empty());
}

} // namespace
