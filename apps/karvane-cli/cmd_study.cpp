// study BASE.sim STUDY.txt: every scenario of a study file run on its own copy of the base
// network on worker threads, and one report of them all (text, JSON or CSV); --shard K/N runs
// a part of the scenarios, and study-merge joins the parts' JSON reports into the one report a
// single run writes. A cluster's scheduler spreads the parts; nothing here knows of it.
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <memory>
#include <set>
#include <sstream>

#include "commands.h"
#include "output.h"
#include "run_report.h"
#include "script/study.h"
#include "session.h"

namespace karvane::cli {

namespace {

struct StudyArgs {
    std::string Base, File, Shard, OutDir;
    std::string Solver; // empty: the base network's setting
    int Jobs = 0;
    bool Json = false, Csv = false;
    double MinVelocity = -1, MaxVelocity = -1;
    std::vector<std::int32_t> Watch;
};

bool ReadBytes(const std::string& path, std::string& bytes) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    std::stringstream ss;
    ss << in.rdbuf();
    bytes = ss.str();
    return true;
}

// FNV-1a over the base network, the study file and the options that shape the results (the
// answer policy among them): parts of one study carry the same identity, parts of different
// studies do not.
std::string StudyIdentity(const std::string& base, const std::string& study, const StudyArgs& a, bool answerYes) {
    std::uint64_t h = 1469598103934665603ull;
    const auto mix = [&h](const std::string& text) {
        for (unsigned char c : text) h = (h ^ c) * 1099511628211ull;
        h = (h ^ 0xffu) * 1099511628211ull;
    };
    mix(base);
    mix(study);
    std::ostringstream options;
    options << a.MinVelocity << ' ' << a.MaxVelocity << ' ' << a.Solver << ' ' << (answerYes ? "yes" : "no");
    for (std::int32_t w : a.Watch) options << ' ' << w;
    mix(options.str());
    std::ostringstream hex;
    hex << std::hex << std::setw(16) << std::setfill('0') << h;
    return hex.str();
}

nlohmann::json Optional(const std::optional<double>& v) { return v ? nlohmann::json(*v) : nlohmann::json(); }

nlohmann::json ScenarioJson(const script::ScenarioResult& r) {
    nlohmann::json fans = nlohmann::json::array(), watched = nlohmann::json::array(), outside = nlohmann::json::array(),
                   errors = nlohmann::json::array(), messages = nlohmann::json::array();
    for (const script::FanDuty& f : r.Fans)
        fans.push_back({{"airwayNo", f.AirwayNo},
                        {"quantity", JsonSingle(f.Quantity)},
                        {"pressure", JsonSingle(f.Pressure)},
                        {"efficiency", JsonSingle(f.Efficiency)},
                        {"inputPowerKW", Optional(f.InputPowerKW)},
                        {"stalled", f.Stalled}});
    for (const auto& [no, q] : r.Watched)
        watched.push_back({{"airwayNo", no}, {"quantity", q ? JsonSingle(*q) : nlohmann::json()}});
    for (const script::VelocityFault& v : r.OutsideVelocity)
        outside.push_back({{"airwayNo", v.AirwayNo}, {"velocity", v.Velocity}});
    for (const auto& [no, text] : r.Errors) errors.push_back({{"airwayNo", no}, {"text", ToUtf8(text)}});
    for (const ui::TranscriptEntry& e : r.Messages)
        messages.push_back({{"kind", e.Kind}, {"title", ToUtf8(e.Title)}, {"text", ToUtf8(e.Text)}});
    nlohmann::json j = {{"index", r.Index},
                        {"name", ToUtf8(r.Name)},
                        {"ran", r.Ran},
                        {"failure", r.Failure},
                        {"simValid", r.SimValid},
                        {"simFail", r.SimFail},
                        {"passes", r.Passes},
                        {"totals", r.Ran ? TotalsJson(r.Totals) : nlohmann::json()},
                        {"fans", fans},
                        {"watched", watched},
                        {"outsideVelocity", outside},
                        {"errors", errors},
                        {"messages", messages}};
    if (!r.Saved.empty()) j["saved"] = r.Saved;
    return j;
}

bool ScenarioFailed(const nlohmann::json& s) { return !s.at("ran").get<bool>() || s.at("simFail").get<bool>(); }

// The report: the study's identity, how many scenarios failed, and the scenarios in order.
nlohmann::json Report(nlohmann::json study, nlohmann::json scenarios) {
    int failed = 0;
    for (const auto& s : scenarios) failed += ScenarioFailed(s) ? 1 : 0;
    return {{"study", std::move(study)}, {"failed", failed}, {"scenarios", std::move(scenarios)}};
}

std::string CsvCell(std::string text) {
    if (text.find_first_of(",\"\n") == std::string::npos) return text;
    std::string out = "\"";
    for (char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + '"';
}

std::string Figure(const nlohmann::json& v) { return v.is_null() ? std::string() : v.dump(); }

void PrintCsv(std::ostream& out, const nlohmann::json& report) {
    out << "index,name,ran,simValid,simFail,passes,totalAirflow,airPowerKW,inputPowerKW,efficiency,"
           "mineResistance,annualCost,fans,stalledFans,watched,outsideVelocity,errors,failure\n";
    for (const auto& s : report.at("scenarios")) {
        const nlohmann::json& t = s.at("totals");
        const auto total = [&](const char* key) { return t.is_null() ? std::string() : Figure(t.at(key)); };
        std::string fans, watched;
        int stalled = 0;
        for (const auto& f : s.at("fans")) {
            fans += (fans.empty() ? "" : ";") + f.at("airwayNo").dump() + ":" + Figure(f.at("quantity")) + ":" +
                    Figure(f.at("pressure"));
            stalled += f.at("stalled").get<bool>() ? 1 : 0;
        }
        for (const auto& w : s.at("watched"))
            watched += (watched.empty() ? "" : ";") + w.at("airwayNo").dump() + ":" + Figure(w.at("quantity"));
        out << s.at("index").get<int>() + 1 << ',' << CsvCell(s.at("name").get<std::string>()) << ','
            << s.at("ran").dump() << ',' << s.at("simValid").dump() << ',' << s.at("simFail").dump() << ','
            << s.at("passes").dump() << ',' << total("totalAirflow") << ',' << total("airPowerKW") << ','
            << total("inputPowerKW") << ',' << total("efficiency") << ',' << total("mineResistance") << ','
            << total("annualCost") << ',' << CsvCell(fans) << ',' << stalled << ',' << CsvCell(watched) << ','
            << s.at("outsideVelocity").size() << ',' << s.at("errors").size() << ','
            << CsvCell(s.at("failure").get<std::string>()) << '\n';
    }
}

void PrintText(std::ostream& out, const nlohmann::json& report) {
    out << report.at("scenarios").size() << " scenarios, " << report.at("failed").get<int>() << " failed\n";
    for (const auto& s : report.at("scenarios")) {
        out << s.at("index").get<int>() + 1 << ". " << s.at("name").get<std::string>() << ": ";
        if (!s.at("ran").get<bool>()) {
            out << "not run: " << s.at("failure").get<std::string>() << '\n';
            continue;
        }
        const nlohmann::json& t = s.at("totals");
        out << (s.at("simFail").get<bool>()    ? "failed"
                : s.at("simValid").get<bool>() ? "valid"
                                               : "with warnings")
            << ", " << s.at("passes").get<int>() << (s.at("passes").get<int>() == 1 ? " pass" : " passes")
            << ", total airflow " << Figure(t.at("totalAirflow")) << " m3/s, input power "
            << Figure(t.at("inputPowerKW")) << " kW";
        int stalled = 0;
        for (const auto& f : s.at("fans")) stalled += f.at("stalled").get<bool>() ? 1 : 0;
        if (stalled > 0) out << ", " << stalled << " fans stalled";
        for (const auto& w : s.at("watched"))
            out << ", airway " << w.at("airwayNo").dump() << ' ' << Figure(w.at("quantity")) << " m3/s";
        if (!s.at("outsideVelocity").empty())
            out << ", " << s.at("outsideVelocity").size() << " airways outside the velocity limits";
        if (!s.at("errors").empty()) out << ", " << s.at("errors").size() << " errors";
        out << '\n';
    }
}

void Print(const StudyArgs& a, const nlohmann::json& report) {
    if (a.Json) {
        std::cout << report.dump(2) << '\n';
    } else if (a.Csv) {
        PrintCsv(std::cout, report);
    } else {
        PrintText(std::cout, report);
    }
}

int RunStudyCommand(CommandLine& cl, const StudyArgs& a) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    script::StudyOptions o;
    o.Jobs = a.Jobs;
    if (!a.Shard.empty()) {
        int k = -1, n = 0;
        char slash = 0, extra = 0;
        std::istringstream in(a.Shard);
        if (!(in >> k >> slash >> n) || slash != '/' || in >> extra || n < 1 || k < 0 || k >= n) {
            std::cerr << "study: --shard takes K/N with 0 <= K < N, e.g. --shard 3/16\n";
            return ExitUsage;
        }
        o.ShardIndex = k;
        o.ShardCount = n;
    }
    std::string baseBytes, studyText;
    if (!ReadBytes(a.File, studyText)) {
        s.ui().Message("Cannot read the study " + a.File, "Study", ui::Icon::Critical);
        return ExitFailure;
    }
    ReadBytes(a.Base, baseBytes);
    files::LoadReport report;
    {
        s.StartProgram();
        files::LoadOptions options;
        options.Report = &report;
        if (!files::LoadNetwork(s.model(), a.Base, s.ui(), options)) return ExitFailure;
        // Every scenario copies the base network, and with it the solver.
        ApplySolver(a.Solver, s.model());
    }
    script::Study study;
    if (const std::string fault = script::ReadStudy(studyText, s.model(), study); !fault.empty()) {
        std::cerr << a.File << ": " << fault << '\n';
        return ExitUsage;
    }
    if (!a.OutDir.empty()) {
        std::error_code ec;
        std::filesystem::create_directories(a.OutDir, ec);
    }
    o.MinVelocity = a.MinVelocity;
    o.MaxVelocity = a.MaxVelocity;
    o.Watch = a.Watch;
    o.OutDir = a.OutDir;
    o.AnswerYes = s.ui().Policy == ui::AnswerPolicy::Yes;
    o.TempPath = s.ui().TempPath();
    o.AppPath = s.ui().AppPath();
    o.Clock = s.ui().Now();
    o.Report = report;
    if (cl.Global.Progress)
        o.Progress = [](int done, int running, int left) {
            const int total = done + running + left;
            const int width = 30, filled = total > 0 ? width * done / total : width;
            std::cerr << "\r[" << std::string(static_cast<std::size_t>(filled), '#')
                      << std::string(static_cast<std::size_t>(width - filled), '.') << "] " << done << " done, "
                      << running << " running, " << left << " left" << (left + running == 0 ? "\n" : "") << std::flush;
        };
    const std::vector<script::ScenarioResult> results = script::RunStudy(s.model(), study, o);

    nlohmann::json scenarios = nlohmann::json::array();
    for (const script::ScenarioResult& r : results) scenarios.push_back(ScenarioJson(r));
    nlohmann::json header = {{"base", a.Base},
                             {"file", a.File},
                             {"id", StudyIdentity(baseBytes, studyText, a, o.AnswerYes)},
                             {"scenarios", study.Scenarios.size()},
                             {"solver", SolverName(s.model())}};
    nlohmann::json out = Report(std::move(header), std::move(scenarios));
    if (o.ShardCount > 1) out["shard"] = std::to_string(o.ShardIndex) + "/" + std::to_string(o.ShardCount);
    Print(a, out);
    return out.at("failed").get<int>() > 0 ? ExitFailure : ExitOk;
}

// study-merge OUT.json PART.json...: the parts of one study joined in the order of the study.
int MergeStudyCommand(const std::string& outPath, const std::vector<std::string>& parts) {
    nlohmann::json header;
    std::vector<nlohmann::json> scenarios;
    std::set<int> seen;
    for (const std::string& path : parts) {
        std::string text;
        nlohmann::json part;
        if (!ReadBytes(path, text) || (part = nlohmann::json::parse(text, nullptr, false)).is_discarded() ||
            !part.is_object() || !part.contains("study") || !part.contains("scenarios")) {
            std::cerr << "study-merge: " << path << " is no study report (write the parts with --json)\n";
            return ExitFailure;
        }
        if (header.is_null()) {
            header = part.at("study");
        } else if (part.at("study").value("id", "") != header.value("id", "")) {
            std::cerr << "study-merge: " << path << " is a part of another study than " << parts.front() << '\n';
            return ExitFailure;
        }
        for (auto& s : part.at("scenarios")) {
            const int index = s.value("index", -1);
            if (!seen.insert(index).second) {
                std::cerr << "study-merge: scenario " << index + 1 << " stands in more than one part\n";
                return ExitFailure;
            }
            scenarios.push_back(std::move(s));
        }
    }
    const int count = header.value("scenarios", 0);
    for (int i = 0; i < count; ++i)
        if (!seen.count(i)) {
            std::cerr << "study-merge: no part holds scenario " << i + 1 << " of " << count << '\n';
            return ExitFailure;
        }
    std::sort(scenarios.begin(), scenarios.end(),
              [](const nlohmann::json& x, const nlohmann::json& y) { return x.at("index") < y.at("index"); });
    const nlohmann::json report = Report(header, nlohmann::json(scenarios));
    const std::string tmp = outPath + ".part";
    {
        std::ofstream out(tmp, std::ios::binary);
        out << report.dump(2) << '\n';
        if (!out) {
            std::cerr << "study-merge: cannot write " << outPath << '\n';
            return ExitFailure;
        }
    }
    std::error_code ec;
    std::filesystem::rename(tmp, outPath, ec);
    if (ec) {
        std::cerr << "study-merge: cannot write " << outPath << '\n';
        return ExitFailure;
    }
    return report.at("failed").get<int>() > 0 ? ExitFailure : ExitOk;
}

} // namespace

void AddStudyCommand(CommandLine& cl) {
    auto a = std::make_shared<StudyArgs>();
    CLI::App* sub = cl.Add("study", "Run every scenario of a study file on copies of a network, side by side",
                           [&cl, a] { return RunStudyCommand(cl, *a); });
    sub->add_option("BASE", a->Base, "The base network (.sim)")->required();
    sub->add_option("STUDY", a->File, "The study file: scenario blocks of script lines (see README)")->required();
    sub->add_option("--jobs", a->Jobs, "Worker threads (default: every core)")->check(CLI::Range(1, 1024));
    auto* json = sub->add_flag("--json", a->Json, "Print one JSON report");
    sub->add_flag("--csv", a->Csv, "Print one CSV row per scenario")->excludes(json);
    sub->add_option("--out-dir", a->OutDir, "Save each scenario's balanced network in this folder");
    sub->add_option("--min-velocity", a->MinVelocity, "Report airways slower than this, m/s");
    sub->add_option("--max-velocity", a->MaxVelocity, "Report airways faster than this, m/s");
    sub->add_option("--watch", a->Watch, "Airway numbers whose flow is reported");
    sub->add_option("--shard", a->Shard, "Run only the scenarios whose index is K modulo N (K/N)");
    AddSolverOption(sub, a->Solver);

    auto out = std::make_shared<std::string>();
    auto parts = std::make_shared<std::vector<std::string>>();
    CLI::App* merge = cl.Add("study-merge", "Join the JSON reports of a study's shards into one report",
                             [out, parts] { return MergeStudyCommand(*out, *parts); });
    merge->add_option("OUT", *out, "The joined report (.json)")->required();
    merge->add_option("PARTS", *parts, "The parts' reports")->required();
}

} // namespace karvane::cli
