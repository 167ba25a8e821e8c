// Text and number forms of the command line's output.
#include "output.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "files/number_text.h"

namespace karvane::cli {

namespace {

bool IsUtf8(const std::string& s) {
    std::size_t i = 0;
    while (i < s.size()) {
        auto c = static_cast<unsigned char>(s[i]);
        int more = c < 0x80                   ? 0
                   : (c >= 0xC2 && c <= 0xDF) ? 1
                   : (c >= 0xE0 && c <= 0xEF) ? 2
                   : (c >= 0xF0 && c <= 0xF4) ? 3
                                              : -1;
        if (more < 0 || s.size() - i <= static_cast<std::size_t>(more)) return false;
        for (int k = 1; k <= more; ++k)
            if ((static_cast<unsigned char>(s[i + static_cast<std::size_t>(k)]) >> 6) != 0x2) return false;
        i += static_cast<std::size_t>(more) + 1;
    }
    return true;
}

// Code points of the bytes 0x80 to 0x9F in Windows-1252; 0 where the code page has none.
constexpr char32_t kHighControls[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                        0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

} // namespace

std::string ToUtf8(const std::string& text) {
    if (IsUtf8(text)) return text;
    std::string out;
    out.reserve(text.size() + text.size() / 2);
    for (char ch : text) {
        auto c = static_cast<unsigned char>(ch);
        char32_t cp = c;
        if (c >= 0x80 && c < 0xA0) cp = kHighControls[c - 0x80] ? kHighControls[c - 0x80] : 0xFFFD;
        AppendUtf8(out, cp);
    }
    return out;
}

std::string SingleText(float value) {
    char buf[32];
    auto r = std::to_chars(buf, buf + sizeof buf, value);
    return std::string(buf, r.ptr);
}

nlohmann::json JsonSingle(float value) {
    if (value != value) return nullptr; // NaN has no JSON form
    return std::strtod(SingleText(value).c_str(), nullptr);
}

nlohmann::json MessagesJson(const ui::ConsoleUserInterface& ui) {
    nlohmann::json list = nlohmann::json::array();
    for (const auto& e : ui.Transcript)
        list.push_back({{"kind", e.Kind}, {"title", ToUtf8(e.Title)}, {"text", ToUtf8(e.Text)}, {"answer", e.Answer}});
    return list;
}

nlohmann::json AirwayJson(const Airway& a) {
    return {{"airwayNo", a.AirwayNo},
            {"quantity", JsonSingle(a.Quantity)},
            {"pressure", JsonSingle(a.Pressure)},
            {"fromNodeP", JsonSingle(a.FromNodeP)},
            {"toNodeP", JsonSingle(a.ToNodeP)},
            {"resistance", JsonSingle(a.Resistance)},
            {"length", JsonSingle(a.Length)},
            {"comment", ToUtf8(TrimText(a.Comment))},
            {"branchCode", a.BranchCode},
            {"entryKey", files::PlainFixed(a.EntryKey, '.')},
            {"exitKey", files::PlainFixed(a.ExitKey, '.')}};
}

nlohmann::json AirwaysJson(const Model& model) {
    nlohmann::json airways = nlohmann::json::array();
    const std::int32_t n = std::clamp<std::int32_t>(model.AirwayCount, 0, MaxAirways);
    for (std::int32_t r = 1; r <= n; ++r) airways.push_back(AirwayJson(model.Airways[r]));
    return airways;
}

nlohmann::json ErrorListJson(const Model& model) {
    nlohmann::json list = nlohmann::json::array();
    for (const NetworkError& e : model.ErrorList) list.push_back({{"airwayNo", e.AirwayNo}, {"text", ToUtf8(e.Text)}});
    return list;
}

nlohmann::json ContaminantResultJson(const std::string& path, bool loaded, const Model& model,
                                     const ui::ConsoleUserInterface& ui) {
    nlohmann::json j;
    j["file"] = ToUtf8(path);
    j["loaded"] = loaded;
    if (loaded) {
        j["simValid"] = model.SimValid != Validity::NotValid;
        j["gasActive"] = static_cast<int>(model.GasActive);
        nlohmann::json thresholds = nlohmann::json::array();
        for (const float t : model.Smoke.ContaminantThreshold) thresholds.push_back(JsonSingle(t));
        j["legend"] = {{"thresholds", thresholds}, {"spreadMax", model.Smoke.SpreadMax}};
        j["errors"] = ErrorListJson(model);
        nlohmann::json airways = AirwaysJson(model);
        for (std::size_t i = 0; i < airways.size(); ++i) {
            const auto r = static_cast<std::int32_t>(i) + 1;
            const Airway& a = model.Airways[r];
            nlohmann::json& row = airways[i];
            row["gas1"] = a.Gas1;
            row["gas2"] = a.Gas2;
            row["spreadTime"] = JsonSingle(model.Smoke.SpreadTime[r]);
        }
        j["airways"] = std::move(airways);
    }
    j["messages"] = MessagesJson(ui);
    return j;
}

} // namespace karvane::cli
