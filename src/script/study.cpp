// The study file: scenario blocks, the common lines before them, and the generators of the
// common sweeps.
#include "script/study.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <set>

namespace karvane::script {

namespace {

std::string_view Trim(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
    return s;
}

std::vector<std::string_view> Words(std::string_view s) {
    std::vector<std::string_view> words;
    std::size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t' || s[i] == ',')) ++i;
        const std::size_t start = i;
        while (i < s.size() && s[i] != ' ' && s[i] != '\t' && s[i] != ',') ++i;
        if (i > start) words.push_back(s.substr(start, i - start));
    }
    return words;
}

bool WholeNumber(std::string_view s, std::int32_t& value) {
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
    return ec == std::errc() && end == s.data() + s.size();
}

bool Number(std::string_view s, double& value) {
    std::string text(s);
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    return !text.empty() && end == text.c_str() + text.size() && std::isfinite(value);
}

// A value of a sweep as the airway editor's box would take it: up to six significant digits.
std::string ValueText(double v) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.6g", v);
    return buffer;
}

bool AirwayExists(const Model& base, std::int32_t airwayNo) {
    for (std::int32_t row = 1; row <= base.AirwayCount; ++row)
        if (base.Airways[static_cast<std::size_t>(row)].AirwayNo == airwayNo) return true;
    return false;
}

struct Reader {
    Reader(const Model& base, Study& out) : Base(base), Out(out) {}
    const Model& Base;
    Study& Out;
    std::vector<std::pair<std::string, std::int32_t>> Common; // lines before the first scenario
    bool InBlock = false;
    bool AfterGenerator = false;
    std::set<std::string> Names;

    std::string Fault(std::int32_t line, const std::string& reason) const {
        return "line " + std::to_string(line) + ": " + reason;
    }

    // A new scenario with the common lines in front of its own.
    StudyScenario& Begin(std::string name) {
        StudyScenario& s = Out.Scenarios.emplace_back();
        s.Name = std::move(name);
        for (const auto& [text, at] : Common) Add(s, text, at);
        return s;
    }
    static void Add(StudyScenario& s, std::string_view text, std::int32_t at) {
        s.Text.append(text).push_back('\n');
        s.At.push_back(at);
    }
    std::string Name(std::string name, std::int32_t line) {
        if (!Names.insert(name).second) return Fault(line, "a scenario named \"" + name + "\" is already in the study");
        return {};
    }

    std::string Scenario(std::string_view rest, std::int32_t line) {
        std::string name(Trim(rest));
        if (name.size() >= 2 && name.front() == '"' && name.back() == '"') name = name.substr(1, name.size() - 2);
        if (name.empty()) return Fault(line, "a scenario needs a name: scenario \"NAME\"");
        if (std::string e = Name(name, line); !e.empty()) return e;
        Begin(name);
        InBlock = true;
        AfterGenerator = false;
        return {};
    }

    std::string Generated(std::string name, const std::string& lineText, std::int32_t line) {
        if (std::string e = Name(name, line); !e.empty()) return e;
        Add(Begin(std::move(name)), lineText, line);
        return {};
    }

    std::string EachFanOff(std::int32_t line) {
        std::vector<std::int32_t> fans;
        for (std::int32_t row = 1; row <= Base.AirwayCount; ++row) {
            const Airway& a = Base.Airways[static_cast<std::size_t>(row)];
            if (a.FanNumber > 0) fans.push_back(a.AirwayNo);
        }
        if (fans.empty()) return Fault(line, "each-fan-off: the network has no airway with a fan");
        std::sort(fans.begin(), fans.end());
        for (std::int32_t no : fans)
            if (std::string e = Generated("fan off in airway " + std::to_string(no),
                                          "set " + std::to_string(no) + " FanCombo2=None", line);
                !e.empty())
                return e;
        return {};
    }

    std::string Vary(const std::vector<std::string_view>& w, std::int32_t line) {
        std::int32_t airwayNo = 0, steps = 0;
        double from = 0, to = 0;
        if (w.size() != 6 || !WholeNumber(w[1], airwayNo) || !Number(w[3], from) || !Number(w[4], to) ||
            !WholeNumber(w[5], steps) || steps < 1 || steps > 10000)
            return Fault(line, "vary AIRWAYNO FIELD FROM TO STEPS: an airway number, a control name, two numbers "
                               "and from 1 to 10000 steps");
        if (!AirwayExists(Base, airwayNo)) return Fault(line, "vary: no airway numbered " + std::to_string(airwayNo));
        const std::string field(w[2]);
        for (std::int32_t i = 0; i < steps; ++i) {
            const double v = steps == 1 ? from : from + (to - from) * i / (steps - 1);
            const std::string value = ValueText(v);
            const std::string set = "set " + std::to_string(airwayNo) + " " + field + "=" + value;
            if (std::string e = Generated(std::to_string(airwayNo) + " " + field + "=" + value, set, line); !e.empty())
                return e;
        }
        return {};
    }

    std::string EachAirwayBlocked(const std::vector<std::string_view>& w, std::int32_t line) {
        if (w.size() < 2)
            return Fault(line, "each-airway-blocked: name the airways, e.g. each-airway-blocked 12 40 41");
        for (std::size_t k = 1; k < w.size(); ++k) {
            std::int32_t no = 0;
            if (!WholeNumber(w[k], no))
                return Fault(line, "each-airway-blocked: \"" + std::string(w[k]) + "\" is no airway number");
            if (!AirwayExists(Base, no))
                return Fault(line, "each-airway-blocked: no airway numbered " + std::to_string(no));
            // Preset 1 of the resistance presets is the bulkhead.
            if (std::string e = Generated("airway " + std::to_string(no) + " blocked",
                                          "set " + std::to_string(no) + " ResCombo=1", line);
                !e.empty())
                return e;
        }
        return {};
    }

    std::string Line(std::string_view raw, std::int32_t line) {
        const std::string_view text = Trim(raw);
        const std::vector<std::string_view> w = Words(text);
        const std::string_view head = w.empty() ? std::string_view() : w[0];
        if (head == "scenario") return Scenario(text.substr(8), line);
        if (head == "each-fan-off" || head == "vary" || head == "each-airway-blocked") {
            InBlock = false;
            AfterGenerator = true;
            if (head == "each-fan-off") {
                if (w.size() != 1) return Fault(line, "each-fan-off takes nothing after it");
                return EachFanOff(line);
            }
            return head == "vary" ? Vary(w, line) : EachAirwayBlocked(w, line);
        }
        if (text.empty() || text.front() == '#') return {};
        if (InBlock) {
            Add(Out.Scenarios.back(), text, line);
            return {};
        }
        if (AfterGenerator)
            return Fault(line, "this line belongs to no scenario: lines for every scenario come before the first, "
                               "and a scenario's own lines after its scenario \"NAME\"");
        Common.emplace_back(std::string(text), line);
        return {};
    }
};

} // namespace

std::string ReadStudy(std::string_view text, const Model& base, Study& study) {
    study = Study{};
    Reader reader(base, study);
    std::int32_t line = 0;
    std::size_t pos = 0;
    while (pos <= text.size()) {
        const std::size_t end = std::min(text.find('\n', pos), text.size());
        ++line;
        if (std::string fault = reader.Line(text.substr(pos, end - pos), line); !fault.empty()) return fault;
        if (end == text.size()) break;
        pos = end + 1;
    }
    if (study.Scenarios.empty()) return "the study names no scenario: begin one with scenario \"NAME\"";
    return {};
}

std::vector<int> ShardScenarios(int count, int shardIndex, int shardCount) {
    std::vector<int> indices;
    for (int i = 0; i < count; ++i)
        if (shardCount <= 1 || i % shardCount == shardIndex) indices.push_back(i);
    return indices;
}

} // namespace karvane::script
