// Commands over all airways.
#include "forms/network_commands.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "model/builtin_settings.h"
#include "model/network_rows.h"
#include "model/number_format.h"

namespace karvane::forms {

namespace {

Airway& Row(Model& model, std::int32_t row) { return model.Airways[static_cast<std::size_t>(row)]; }

bool Confirm(ui::UserInterface& ui, const char* text, const char* title, ui::Buttons buttons) {
    const ui::Answer yes = buttons == ui::Buttons::OKCancel ? ui::Answer::OK : ui::Answer::Yes;
    return ui.Ask(text, title, buttons, ui::Icon::Question) == yes;
}

bool IsBlank(const std::string& text) { return TrimText(text).empty(); }

void SwapEnds(Airway& a) {
    std::swap(a.X1, a.Y1);
    std::swap(a.X2, a.Y2);
}

} // namespace

bool FixAllLengths(Model& model, ui::UserInterface& ui) {
    if (!Confirm(ui, "All lengths will be fixed - Are you sure?", "Fix all lengths", ui::Buttons::YesNo)) return false;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) Row(model, r).BranchCode |= bc::FixedLength;
    ui.Message("All lengths are now fixed", ProgramName, ui::Icon::Information);
    return true;
}

bool UnfixAllLengths(Model& model, ui::UserInterface& ui) {
    if (!Confirm(ui, "All lengths will be unfixed and recalculated - Are you sure?", "Unfix all lengths",
                 ui::Buttons::YesNo))
        return false;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) Row(model, r).BranchCode &= ~bc::FixedLength;
    ui.Message("All lengths are now unfixed", ProgramName, ui::Icon::Information);
    return true;
}

bool AutoNameAirways(Model& model, ui::UserInterface& ui) {
    if (!Confirm(ui,
                 "This routine automatically names all airways that do not have an existing name - Are you sure you "
                 "want to procede (this cannot be undone) ?",
                 "Auto name", ui::Buttons::OKCancel))
        return false;
    const std::optional<std::string> prefix =
        ui.Input("Enter a prefix (if any) you would like to appear in front of the auto number (eg 'B')",
                 "Input Airway Prefix", "B");
    if (!prefix) return false;
    std::int64_t counter = 1;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) {
        Airway& a = Row(model, r);
        if (!IsBlank(a.BranchName)) continue;
        a.BranchName = FitText(*prefix + std::to_string(counter++), NameWidth);
    }
    return true;
}

bool AutoNameNodes(Model& model, ui::UserInterface& ui) {
    if (!Confirm(ui,
                 "This routine automatically names all nodes that do not have an existing name - Are you sure you "
                 "want to procede (this cannot be undone) ?",
                 "Auto name", ui::Buttons::OKCancel))
        return false;
    const std::optional<std::string> prefix =
        ui.Input("Enter a prefix (if any) you would like to appear in front of the auto number (eg 'N')",
                 "Input Node Prefix", "N");
    if (!prefix) return false;
    ui.SetBusy(true);
    // Which airways start at each node, and which end there.
    std::unordered_multimap<Fixed4, std::int32_t> starting, ending;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) {
        starting.emplace(Row(model, r).EntryKey, r);
        ending.emplace(Row(model, r).ExitKey, r);
    }
    std::int64_t counter = 1;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) {
        Airway& a = Row(model, r);
        if (IsBlank(a.ExitNode)) a.ExitNode = FitText(*prefix + std::to_string(counter++), NameWidth);
        const std::string name = a.ExitNode;
        const auto [endFirst, endLast] = ending.equal_range(a.ExitKey);
        for (auto it = endFirst; it != endLast; ++it)
            if (IsBlank(Row(model, it->second).ExitNode)) Row(model, it->second).ExitNode = name;
        const auto [first, last] = starting.equal_range(a.ExitKey);
        for (auto it = first; it != last; ++it)
            if (IsBlank(Row(model, it->second).EntryNode)) Row(model, it->second).EntryNode = name;
    }
    ui.SetBusy(false);
    return true;
}

void RenumberAirways(Model& model, ui::UserInterface& ui) {
    NumberAirways(model, 1, true);
    ui.Message("Airways renumbered !", ProgramName, ui::Icon::Information);
}

void SetPermanentViewTilts(Model& model) {
    if (model.SavedViews.size() <= 5) return;
    const float quarter = static_cast<float>(model.SgnY * ViewPi / 2);
    model.SavedViews[3].ViewParam[1] = quarter;
    model.SavedViews[4].ViewParam[1] = quarter;
    model.SavedViews[5].ViewParam[1] = static_cast<float>(model.SgnY);
    for (int slot = 2; slot <= 5; ++slot) model.SavedViews[static_cast<std::size_t>(slot)].ViewParam[14] = 1;
}

bool SwapXYAxis(Model& model, ui::UserInterface& ui) {
    if (!Confirm(ui, "This will swap your X & Y axis.  Are you sure you wish to do this ?", "Swap Axis",
                 ui::Buttons::OKCancel))
        return false;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) SwapEnds(Row(model, r));
    std::swap(model.SgnX, model.SgnY);
    SetPermanentViewTilts(model);
    return true;
}

bool ReverseCoordinateAxis(Model& model, ui::UserInterface& ui) {
    if (!Confirm(ui,
                 "Karvane will swap your X and Y axis coordinates.  This will affect importing and exporting of data "
                 "to other programs.  Do you wish to proceed ?",
                 "Alter coordinate system", ui::Buttons::YesNo))
        return false;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) SwapEnds(Row(model, r));
    model.SgnX = static_cast<std::int16_t>(model.SgnX == -1 ? 1 : -1);
    model.SgnY = static_cast<std::int16_t>(model.SgnY == -1 ? 1 : -1);
    SetPermanentViewTilts(model);
    return true;
}

void GiveAirwaysOneSense(Model& model) {
    auto flip = [](Airway& a) {
        std::swap(a.X1, a.X2);
        std::swap(a.Y1, a.Y2);
        std::swap(a.Z1, a.Z2);
    };
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r)
        if (Row(model, r).X1 > Row(model, r).X2) flip(Row(model, r));
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r)
        if (Row(model, r).Y1 > Row(model, r).Y2) flip(Row(model, r));
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r)
        if (Row(model, r).Z1 > Row(model, r).Z2) flip(Row(model, r));
}

bool PreserveFlowLabels(Model& model, ui::UserInterface& ui, char decimalSep) {
    if (!Confirm(ui,
                 "This routine will automatically copy existing airflows to branch names do not have a pre-exiting "
                 "text name.\nAre you sure you want to procede ?",
                 "Auto name", ui::Buttons::YesNo))
        return false;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) {
        Airway& a = Row(model, r);
        const std::string name = TrimText(a.BranchName);
        if (!name.empty() && name.front() != '(') continue;
        a.BranchName = FitText("(" + FormatNumber(static_cast<double>(a.Quantity), "0.0", decimalSep) + ")", NameWidth);
    }
    return true;
}

void RemoveFlowLabels(Model& model) {
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) {
        Airway& a = Row(model, r);
        const std::string name = TrimText(a.BranchName);
        if (name.size() >= 2 && name.front() == '(' && name.back() == ')') a.BranchName.clear();
    }
}

} // namespace karvane::forms
