// The searches of the Find menu.
#include "edit/find.h"

#include <array>
#include <optional>

#include "edit/show_airway.h"
#include "files/number_text.h"
#include "model/number_format.h"

namespace karvane::edit {

namespace {

constexpr const char* kCaptions[FinderEntries] = {"Follow Airway",    "Errors",      "Bad Fans",    "Branch Number",
                                                  "Branch Name",      "Node Name",   "Fixed Flows", "Fixed Pressure",
                                                  "Fixed Directions", "Zero lengths"};

// Upper case of each byte of Windows-1252: a-z, the accented small letters from 0xE0 (but the
// division sign 0xF7), and the four small letters of 0x9A, 0x9C, 0x9E and 0xFF.
constexpr std::array<unsigned char, 256> MakeUpperTable() {
    std::array<unsigned char, 256> t{};
    for (int c = 0; c < 256; ++c) t[static_cast<std::size_t>(c)] = static_cast<unsigned char>(c);
    for (int c = 'a'; c <= 'z'; ++c) t[static_cast<std::size_t>(c)] = static_cast<unsigned char>(c - 32);
    for (int c = 0xE0; c <= 0xFE; ++c)
        if (c != 0xF7) t[static_cast<std::size_t>(c)] = static_cast<unsigned char>(c - 32);
    t[0x9A] = 0x8A;
    t[0x9C] = 0x8C;
    t[0x9E] = 0x8E;
    t[0xFF] = 0x9F;
    return t;
}
constexpr std::array<unsigned char, 256> kUpper = MakeUpperTable();

unsigned char Up(char c) { return kUpper[static_cast<unsigned char>(c)]; }

// Whether the upper case of `text` holds `upperNeedle` (already in upper case).
bool ContainsUpper(std::string_view text, std::string_view upperNeedle) {
    if (upperNeedle.size() > text.size()) return false;
    const std::size_t last = text.size() - upperNeedle.size();
    const unsigned char first = static_cast<unsigned char>(upperNeedle.front());
    for (std::size_t i = 0; i <= last; ++i) {
        if (Up(text[i]) != first) continue;
        std::size_t k = 1;
        while (k < upperNeedle.size() && Up(text[i + k]) == static_cast<unsigned char>(upperNeedle[k])) ++k;
        if (k == upperNeedle.size()) return true;
    }
    return false;
}

} // namespace

const char* FinderCaption(int index) { return index >= 0 && index < FinderEntries ? kCaptions[index] : ""; }

std::string UpperText(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = static_cast<char>(Up(c));
    return out;
}

bool FindMatches(const Model& model, std::int32_t row) {
    if (row < 1 || row > model.AirwayCount) return false;
    const Airway& a = model.Airways[static_cast<std::size_t>(row)];
    const FindState& f = model.Find;
    switch (f.FindKind) {
    case find::Errors: return a.Has(bc::ErrorMark);
    case find::BadFans: return a.Pressure == NegatedFanPressure || a.Pressure == StalledFanPressure;
    case find::BranchNumber: return row == f.FindNumber;
    case find::BranchName: return !f.FindText.empty() && ContainsUpper(a.BranchName, f.FindText);
    case find::NodeName:
        return !f.FindText.empty() && (ContainsUpper(a.EntryNode, f.FindText) || ContainsUpper(a.ExitNode, f.FindText));
    case find::FixedFlows: return a.Has(bc::FixedFlow);
    case find::FixedPressure: return a.FanNumber == -1;
    case find::FixedDirections: return a.FanNumber == 0 && a.Has(bc::FixedDirection);
    case find::ZeroLengths: return a.Length == 0.0f;
    default: return false;
    }
}

std::int32_t FindNextRow(Model& model, ui::UserInterface& ui) {
    FindState& f = model.Find;
    if (f.FindKind == find::None) return 0;
    const std::int32_t count = model.AirwayCount;
    if (f.FindFrom >= count || f.FindFrom <= 0) f.FindFrom = 1;
    std::int32_t from = f.FindFrom;
    for (;;) {
        for (std::int32_t row = from; row <= count; ++row) {
            if (!FindMatches(model, row)) continue;
            f.FindFrom = row + 1;
            return row;
        }
        if (from == 1) break;
        from = 1;
    }
    ui.Message("No branches to find!", ProgramName, ui::Icon::Information);
    return 0;
}

std::int32_t FindNext(Model& model, display::DisplayState& ds, ui::UserInterface& ui, FinderHost& host) {
    const std::int32_t row = FindNextRow(model, ui);
    if (row == 0) return 0;
    ds.PickFraction = 0;
    host.ShowAirwayRow(row, 0);
    return row;
}

std::int32_t Finder(Model& model, display::DisplayState& ds, ui::UserInterface& ui, FinderHost& host, int index) {
    if (index < 0 || index >= FinderEntries) return 0;
    FindState& f = model.Find;
    if (index == find::BranchNumber) {
        const std::optional<std::string> answer = ui.Input("Enter Branch Number", "Locate Branch", "");
        const std::int32_t number = answer ? files::ToInt32(ParseLeadingNumber(*answer)) : 0;
        if (number == 0) return 0;
        f.FindNumber = RowOfAirwayNo(model, number);
    } else if (index == find::BranchName || index == find::NodeName) {
        const std::optional<std::string> answer =
            index == find::BranchName ? ui.Input("Enter all or part of branch name", "Locate Branch", "")
                                      : ui.Input("Enter all or part of node name", "Locate Node", "");
        if (!answer || answer->empty()) return 0;
        f.FindText = UpperText(*answer);
    }
    f.FinderTick = index;
    if (index == 0) return 0;
    f.FindKind = static_cast<std::int16_t>(index);
    f.FindFrom = 1;
    return FindNext(model, ds, ui, host);
}

} // namespace karvane::edit
