// Allocation, clearing, compaction and numbering of the airway rows.
#include "model/network_rows.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace karvane {
namespace {

// Sizes of the tables that follow the settings; a nonsensical negative setting allocates none.
std::size_t FanRows(const Model& model) { return static_cast<std::size_t>(std::max<int>(0, model.Set.MaxFans)) + 1; }
std::size_t TextSlots(const Model& model) { return static_cast<std::size_t>(std::max<int>(0, model.Set.MaxText)) + 1; }

// The rows in use, held inside the table whatever AirwayCount says.
std::int32_t RowsInUse(const Model& model) {
    const auto last = static_cast<std::int32_t>(model.Airways.size()) - 1;
    return std::clamp(model.AirwayCount, 0, std::max(0, last));
}

} // namespace

void AllocateNetwork(Model& model) {
    model.Airways.assign(static_cast<std::size_t>(MaxAirways) + 1, Airway{});
    model.FloatingTexts.assign(TextSlots(model), FloatingText{});
    model.Fans.assign(FanRows(model), FanRecord{});
    model.AirwayCount = 0;
}

void ResizeNetwork(Model& model) {
    model.Airways.resize(static_cast<std::size_t>(MaxAirways) + 1);
    model.FloatingTexts.resize(TextSlots(model));
    model.Fans.resize(FanRows(model));
    if (model.Levels.size() < static_cast<std::size_t>(LevelRows) + 1) model.Levels.resize(LevelRows + 1);
}

void ClearNetwork(Model& model) {
    for (auto* layers : {&model.PrimaryLayers, &model.SecondaryLayers})
        for (auto& layer : *layers) layer = LayerRecord{};

    // The user's named views go; the permanent views 1 to 5 and the window slots stay.
    if (model.SavedViews.size() < static_cast<std::size_t>(SavedViewSlots)) model.SavedViews.resize(SavedViewSlots);
    for (int slot = 6; slot <= 100; ++slot) {
        SavedView& view = model.SavedViews[static_cast<std::size_t>(slot)];
        view.ViewName.clear();
        for (int k = 1; k <= 16; ++k) view.ViewParam[static_cast<std::size_t>(k)] = 0.0f;
        view.ViewValue.fill(0);
    }

    AllocateNetwork(model);
    model.AirwayCount = 0;
    model.FileComment.clear();
    // A search does not go on into another network.
    model.Find.FindKind = find::None;
    model.Find.FindFrom = 0;
}

void ClearAirwayRow(Model& model, std::int32_t row) {
    if (row < 0 || static_cast<std::size_t>(row) >= model.Airways.size()) return;
    model.Airways[static_cast<std::size_t>(row)] = Airway{};
}

void CompactAirways(Model& model) {
    const std::int32_t oldCount = RowsInUse(model);
    std::int32_t write = 0;
    for (std::int32_t read = 1; read <= oldCount; ++read) {
        Airway& row = model.Airways[static_cast<std::size_t>(read)];
        if (row.BranchCode == 0) continue;
        ++write;
        if (write != read) model.Airways[static_cast<std::size_t>(write)] = std::move(row);
    }
    for (std::int32_t r = write + 1; r <= oldCount; ++r) model.Airways[static_cast<std::size_t>(r)] = Airway{};
    model.AirwayCount = write;
}

std::int32_t NewAirwayRow(Model& model) {
    const std::int32_t row = RowsInUse(model) + 1;
    if (static_cast<std::size_t>(row) >= model.Airways.size()) return 0;
    model.AirwayCount = row;
    model.Airways[static_cast<std::size_t>(row)] = Airway{};
    return row;
}

bool AirwayCapacityReached(const Model& model, ui::UserInterface& ui) {
    // The new row would be AirwayCount + 1; like the load, drawing stops below MaxAirways.
    if (model.AirwayCount + 1 < MaxAirways) return false;
    ui.Message("Maximum Number of Airways Exceeded\nIncrease allowable number of branches in Defaults !", ProgramName,
               ui::Icon::Exclamation);
    return true;
}

void NumberAirways(Model& model, std::int32_t firstRow, bool restart) {
    if (restart) model.Set.LastAirwayNo = 1;
    const std::int32_t last = RowsInUse(model);
    for (std::int32_t row = std::max(firstRow, 1); row <= last; ++row) {
        model.Airways[static_cast<std::size_t>(row)].AirwayNo = model.Set.LastAirwayNo;
        if (model.Set.LastAirwayNo < INT32_MAX) ++model.Set.LastAirwayNo;
    }
}

void CheckAirwayNumbers(Model& model, ui::UserInterface& ui) {
    // Two rows share a number exactly when, in the sorted list of numbers, two neighbours agree.
    const std::int32_t count = RowsInUse(model);
    std::vector<std::int32_t> numbers;
    numbers.reserve(static_cast<std::size_t>(count));
    for (std::int32_t row = 1; row <= count; ++row)
        numbers.push_back(model.Airways[static_cast<std::size_t>(row)].AirwayNo);
    std::sort(numbers.begin(), numbers.end());
    const bool duplicate = std::adjacent_find(numbers.begin(), numbers.end()) != numbers.end();

    if (!duplicate) {
        ui.Message("All airways have unqiue numbers", ProgramName, ui::Icon::Information);
        return;
    }
    const ui::Answer answer = ui.Ask("Duplicate unique airway numbers exist - allow Karvane to re-number them ?",
                                     "Duplicate airway numbers", ui::Buttons::YesNo, ui::Icon::Question);
    if (answer != ui::Answer::Yes) return;
    NumberAirways(model, 1, true);
    model.NetworkSaved = No0;
}

void SetNewNetworkLevels(Model& model) {
    model.Levels.assign(static_cast<std::size_t>(LevelRows) + 1, LevelRecord{});
    model.Levels[1] = LevelRecord{"SURFACE", 1000, 1000};
    model.Levels[2] = LevelRecord{"U/Ground", 500, 480};
}

} // namespace karvane
