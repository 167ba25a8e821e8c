// The list finders.
#include "forms/name_lists.h"

#include <algorithm>

namespace karvane::forms {

namespace {

void Add(std::vector<std::string>& names, const std::string& raw) {
    std::string name = TrimText(raw);
    if (!name.empty()) names.push_back(std::move(name));
}

} // namespace

std::vector<std::string> ListedNames(const Model& model, bool nodes) {
    std::vector<std::string> names;
    for (std::int32_t row = 1; row <= model.AirwayCount; ++row) {
        const Airway& a = model.Airways[static_cast<std::size_t>(row)];
        if (nodes) {
            Add(names, a.EntryNode);
            Add(names, a.ExitNode);
        } else {
            Add(names, a.BranchName);
        }
    }
    // Sorted as a sorted list box sorts, without regard to case; equal names then side by side.
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(names.size());
    for (std::string& n : names) keyed.emplace_back(edit::UpperText(n), std::move(n));
    std::sort(keyed.begin(), keyed.end());
    keyed.erase(std::unique(keyed.begin(), keyed.end()), keyed.end());
    names.clear();
    for (auto& [key, name] : keyed) names.push_back(std::move(name));
    return names;
}

std::vector<std::string> FilterNames(const std::vector<std::string>& names, std::string_view filter) {
    if (filter.empty()) return names;
    const std::string wanted = edit::UpperText(filter);
    std::vector<std::string> out;
    for (const std::string& name : names)
        if (edit::UpperText(name).find(wanted) != std::string::npos) out.push_back(name);
    return out;
}

std::int32_t ChooseListedName(Model& model, display::DisplayState& ds, ui::UserInterface& ui, edit::FinderHost& host,
                              bool nodes, const std::string& name) {
    if (TrimText(name).empty()) return 0;
    FindState& f = model.Find;
    f.FindKind = nodes ? find::NodeName : find::BranchName;
    f.FindText = edit::UpperText(name);
    f.FindFrom = 1;
    return edit::FindNext(model, ds, ui, host);
}

} // namespace karvane::forms
