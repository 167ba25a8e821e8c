// Scenario studies: a study file names scenarios, each a few lines of the script of the user's
// actions applied to a fresh copy of a base network, which is then balanced. Lines before the
// first scenario apply to every scenario; generators write the common sweeps (every fan off in
// turn, a value varied in steps, each of a list of airways blocked). The scenarios run side by
// side on worker threads, each on a model of its own, and the results come back in the order of
// the study whatever the number of workers.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/network_load.h"
#include "model/model.h"
#include "simulate/summary.h"
#include "ui/scripted_ui.h"

namespace karvane::script {

struct StudyScenario {
    std::string Name;
    std::string Text;             // the common lines, then the scenario's own
    std::vector<std::int32_t> At; // the study file's line of each line of Text
};

struct Study {
    std::vector<StudyScenario> Scenarios;
};

// Reads a study file against the base network (the generators look at its airways). A fault of
// the file's layout (a scenario without a name, a generator with wrong arguments, a fan
// generator on a network without fans) gives "line N: " and the reason; a line that the script
// cannot carry out is found when its scenario runs, and fails that scenario alone.
std::string ReadStudy(std::string_view text, const Model& base, Study& study);

struct StudyOptions {
    int Jobs = 0;                    // worker threads; 0: every core
    int ShardIndex = 0;              // run only the scenarios whose index is ShardIndex modulo
    int ShardCount = 1;              // ShardCount
    double MinVelocity = -1;         // m/s; below 0: no lower limit
    double MaxVelocity = -1;         // m/s; below 0: no upper limit
    std::vector<std::int32_t> Watch; // airway numbers whose flow is reported
    std::string OutDir;              // where each balanced network is saved; empty: none is
    bool AnswerYes = false;          // the answer to a question no line of the scenario answered
    std::string TempPath;            // the undo log of each scenario's session
    std::string AppPath;
    ui::DateTime Clock{};
    files::LoadReport Report; // how the base network was loaded (its start-up view)
    // Scenarios done, running and left, after each start and end; called under a lock.
    std::function<void(int done, int running, int left)> Progress;
    const std::atomic<bool>* Cancel = nullptr; // set: no further scenario starts
};

struct FanDuty {
    std::int32_t AirwayNo = 0;
    float Quantity = 0;                 // m3/s
    float Pressure = 0;                 // Pa, as the run left it
    float Efficiency = 0;               // percent, read on the database curve
    std::optional<double> InputPowerKW; // none without an efficiency
    bool Stalled = false;               // the run left the fan at the stall sentinel
};

struct VelocityFault {
    std::int32_t AirwayNo = 0;
    double Velocity = 0; // m/s
};

struct ScenarioResult {
    int Index = 0; // in the study, from 0
    std::string Name;
    bool Ran = false;    // every line was carried out and the balance was run
    std::string Failure; // why it did not run: "line N: ..." of the study file
    bool SimValid = false;
    bool SimFail = false;
    int Passes = 0; // balancing passes shown by the run's attempt counter
    simulate::SummaryFigures Totals;
    std::vector<FanDuty> Fans;
    std::vector<std::pair<std::int32_t, std::optional<float>>> Watched; // none: no such airway
    std::vector<VelocityFault> OutsideVelocity;
    std::vector<std::pair<std::int32_t, std::string>> Errors;
    std::vector<ui::TranscriptEntry> Messages;
    std::string Saved; // the path of the balanced network, when it was written
    bool Failed() const { return !Ran || SimFail; }
};

// The indices of the scenarios that a shard runs.
std::vector<int> ShardScenarios(int count, int shardIndex, int shardCount);

// Runs the shard's scenarios on the worker threads; one result per scenario run, in the order
// of the study.
std::vector<ScenarioResult> RunStudy(const Model& base, const Study& study, const StudyOptions& options);

// One scenario on its own model, as a worker runs it.
ScenarioResult RunScenario(const Model& base, const StudyScenario& scenario, int index, const StudyOptions& options);

} // namespace karvane::script
