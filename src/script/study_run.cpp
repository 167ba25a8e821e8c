// Running a study: each scenario on a copy of the base network in a headless session of its
// own, balanced and measured; the scenarios shared out over worker threads. Nothing is shared
// between workers but the next scenario's number and the progress figures.
#include <algorithm>
#include <atomic>
#include <cctype>
#include <filesystem>
#include <memory>
#include <mutex>
#include <thread>

#include "display/data_format.h"
#include "files/network_file.h"
#include "script/session.h"
#include "script/study.h"
#include "simulate/energy.h"
#include "simulate/fan_model.h"
#include "simulate/run.h"

namespace karvane::script {

namespace {

// The scenario's user: questions that no line answered take the study's policy, every message
// is kept, and the attempt counter of the run counts the passes.
class StudyUserInterface : public ui::ScriptedUserInterface {
public:
    int Passes = 0;
    bool AnswerYes = false;
    void ProgressAttempt(const std::string& text) override {
        if (!text.empty()) ++Passes;
    }
    // As the command line answers: yes gives Yes or OK, no gives No or Cancel; a question that
    // keeps coming back is answered yes at most three times in a row, so that a study ends.
    ui::Answer Ask(const std::string& text, const std::string& title, ui::Buttons buttons, ui::Icon icon) override {
        if (!Answers.empty()) return ScriptedUserInterface::Ask(text, title, buttons, icon);
        Transcript.push_back({"Ask", title, text});
        yesRun_ = text == lastText_ ? yesRun_ + 1 : 1;
        lastText_ = text;
        const bool yes = AnswerYes && yesRun_ <= 3;
        const bool okCancel = buttons == ui::Buttons::OK || buttons == ui::Buttons::OKCancel;
        if (buttons == ui::Buttons::OK) return ui::Answer::OK;
        return okCancel ? (yes ? ui::Answer::OK : ui::Answer::Cancel) : (yes ? ui::Answer::Yes : ui::Answer::No);
    }

private:
    std::string lastText_;
    int yesRun_ = 0;
};

// "line K: reason" of the scenario's text as "line N: reason" of the study file.
std::string StudyLineFault(const StudyScenario& s, const std::string& fault) {
    const std::string head = "line ";
    if (fault.rfind(head, 0) != 0) return fault;
    std::size_t end = head.size();
    std::size_t k = 0;
    while (end < fault.size() && std::isdigit(static_cast<unsigned char>(fault[end])))
        k = k * 10 + static_cast<std::size_t>(fault[end++] - '0');
    if (k < 1 || k > s.At.size()) return fault;
    return head + std::to_string(s.At[k - 1]) + fault.substr(end);
}

// A file name of the scenario's own: its number, then its name with anything but letters,
// digits, '-' and '.' as '_'.
std::string ScenarioFileName(int index, const std::string& name) {
    std::string safe;
    for (char c : name) safe.push_back(std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '.' ? c : '_');
    char number[16];
    std::snprintf(number, sizeof number, "%04d", index + 1);
    return std::string(number) + "-" + safe.substr(0, 60) + ".sim";
}

void Measure(const Model& m, const StudyOptions& o, ScenarioResult& r) {
    r.SimValid = m.SimValid != Validity::NotValid;
    r.SimFail = m.SimFail != RunResult::Good;
    r.Totals = simulate::Summarize(m);
    for (std::int32_t row = 1; row <= m.AirwayCount; ++row) {
        const Airway& a = m.Airways[static_cast<std::size_t>(row)];
        if (a.FanNumber > 0) {
            FanDuty d;
            d.AirwayNo = a.AirwayNo;
            d.Quantity = a.Quantity;
            d.Pressure = a.Pressure;
            d.Efficiency = simulate::FanEfficiencyAt(m, row);
            d.InputPowerKW = simulate::InputPower(m, row);
            d.Stalled = a.Pressure == -9999.0f;
            r.Fans.push_back(d);
        }
        if (o.MinVelocity >= 0 || o.MaxVelocity >= 0) {
            const double area = display::AirwayArea(a);
            if (area > 0) {
                const double v = std::abs(static_cast<double>(a.Quantity)) / area;
                if ((o.MinVelocity >= 0 && v < o.MinVelocity) || (o.MaxVelocity >= 0 && v > o.MaxVelocity))
                    r.OutsideVelocity.push_back({a.AirwayNo, v});
            }
        }
    }
    // The run sorts the rows by node key: the lists are given in the order of airway numbers.
    std::sort(r.Fans.begin(), r.Fans.end(), [](const FanDuty& x, const FanDuty& y) { return x.AirwayNo < y.AirwayNo; });
    std::sort(r.OutsideVelocity.begin(), r.OutsideVelocity.end(),
              [](const VelocityFault& x, const VelocityFault& y) { return x.AirwayNo < y.AirwayNo; });
    for (std::int32_t no : o.Watch) {
        std::optional<float> q;
        for (std::int32_t row = 1; row <= m.AirwayCount && !q; ++row)
            if (m.Airways[static_cast<std::size_t>(row)].AirwayNo == no)
                q = m.Airways[static_cast<std::size_t>(row)].Quantity;
        r.Watched.emplace_back(no, q);
    }
    for (const NetworkError& e : m.ErrorList) r.Errors.emplace_back(e.AirwayNo, e.Text);
}

} // namespace

ScenarioResult RunScenario(const Model& base, const StudyScenario& scenario, int index, const StudyOptions& o) {
    ScenarioResult r;
    r.Index = index;
    r.Name = scenario.Name;
    auto m = std::make_unique<Model>(base);
    StudyUserInterface ui;
    ui.AnswerYes = o.AnswerYes;
    ui.Temp = o.TempPath.empty() ? std::filesystem::temp_directory_path().string() : o.TempPath;
    ui.App = o.AppPath;
    ui.Clock = o.Clock;
    {
        Session session(*m, ui);
        session.ShowNetwork(o.Report);
        const std::string fault = session.RunText(scenario.Text);
        if (!fault.empty()) {
            r.Failure = StudyLineFault(scenario, fault);
        } else {
            m->SimMode = RunMode::Normal;
            m->ShowProgress = 0;
            ui.Passes = 0;
            simulate::RunAirflow(*m, ui);
            r.Ran = true;
            r.Passes = ui.Passes;
            Measure(*m, o, r);
            if (!o.OutDir.empty()) {
                const std::string path = (std::filesystem::path(o.OutDir) / ScenarioFileName(index, r.Name)).string();
                session.BeforeSave();
                m->FileName = path;
                m->MasterFile = false;
                m->ViewWindowOpen = true;
                if (files::SaveNetwork(*m, ui, 0)) r.Saved = path;
            }
        }
    }
    r.Messages = std::move(ui.Transcript);
    return r;
}

std::vector<ScenarioResult> RunStudy(const Model& base, const Study& study, const StudyOptions& o) {
    const std::vector<int> indices =
        ShardScenarios(static_cast<int>(study.Scenarios.size()), o.ShardIndex, o.ShardCount);
    std::vector<ScenarioResult> results(indices.size());
    const int cores = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
    const int jobs = std::clamp(o.Jobs > 0 ? o.Jobs : cores, 1, std::max(1, static_cast<int>(indices.size())));

    std::atomic<std::size_t> next{0};
    std::mutex lock;
    int done = 0, running = 0;
    const auto progress = [&](int startedOrEnded) {
        if (!o.Progress) return;
        std::lock_guard<std::mutex> guard(lock);
        if (startedOrEnded > 0) {
            ++running;
        } else {
            --running;
            ++done;
        }
        o.Progress(done, running, static_cast<int>(indices.size()) - done - running);
    };
    const auto work = [&] {
        for (;;) {
            if (o.Cancel && o.Cancel->load()) return;
            const std::size_t k = next.fetch_add(1);
            if (k >= indices.size()) return;
            progress(1);
            results[k] = RunScenario(base, study.Scenarios[static_cast<std::size_t>(indices[k])], indices[k], o);
            progress(-1);
        }
    };
    std::vector<std::thread> workers;
    for (int j = 1; j < jobs; ++j) workers.emplace_back(work);
    work();
    for (std::thread& t : workers) t.join();
    // A cancelled study reports the scenarios it finished.
    std::erase_if(results, [](const ScenarioResult& r) { return r.Name.empty() && !r.Ran && r.Failure.empty(); });
    return results;
}

} // namespace karvane::script
