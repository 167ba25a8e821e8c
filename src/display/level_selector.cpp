// Level selector operations.
#include "display/level_selector.h"

#include <algorithm>

#include "display/display_list.h"
#include "display/view_transform.h"
#include "files/number_text.h"

namespace karvane::display {

namespace {

std::int32_t Middle(std::int32_t lo, std::int32_t hi) { return files::ToInt32((static_cast<double>(lo) + hi) / 2); }

void SetBoundsOfRow(const Model& model, DisplayState& ds, int row) {
    if (row < 1 || static_cast<std::size_t>(row) >= model.Levels.size()) return;
    const LevelRecord& rec = model.Levels[static_cast<std::size_t>(row)];
    ds.View.CurrentRLMin = rec.RLMin;
    ds.View.CurrentRLMax = rec.RLMax;
    ds.View.CurRL = Middle(rec.RLMin, rec.RLMax);
}

// The end of every level change: the new list, projected about the same centre.
void Rebuild(Model& model, DisplayState& ds) {
    BuildDisplayList(model, ds);
    ds.KeepCentre = true;
    ApplyRotation(model, ds);
    ds.KeepCentre = false;
}

} // namespace

int LevelListCount(const Model& model) {
    int n = 0;
    for (std::size_t row = 1; row < model.Levels.size(); ++row) {
        const LevelRecord& rec = model.Levels[row];
        if (TrimText(rec.RLName).empty() && rec.RLMin == 0) break;
        ++n;
    }
    return n;
}

void ChooseLevelRow(Model& model, DisplayState& ds, int row) {
    const int count = LevelListCount(model);
    if (count == 0) return;
    row = std::clamp(row, 1, count);
    ViewState& v = ds.View;
    if (v.LevelMode != lm::Single) ds.OtherLevelMode = v.LevelMode;
    v.LevelMode = lm::Single;
    v.CurrentLevel = static_cast<std::int16_t>(row);
    SetBoundsOfRow(model, ds, row);
    if (v.RotCentreSet != 0) v.RotCentreSet = 1;
    Rebuild(model, ds);
}

bool StepLevel(Model& model, DisplayState& ds, int step) {
    const int row = ds.View.CurrentLevel + step;
    if (row < 1 || row > LevelListCount(model)) return false;
    ChooseLevelRow(model, ds, row);
    return true;
}

void SelectSingleLevel(Model& model, DisplayState& ds) { ChooseLevelRow(model, ds, ds.View.CurrentLevel); }

bool AddSelectedLevel(std::vector<int>& selected, int row, ui::UserInterface& ui) {
    if (static_cast<int>(selected.size()) >= MaxSelectedLevels) {
        ui.Message("Maximum of only 6 selected levels allowed!", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    selected.push_back(row);
    return true;
}

void SelectMultipleLevels(Model& model, DisplayState& ds, const std::vector<int>& rows) {
    ViewState& v = ds.View;
    v.SelectedLevels.fill(0);
    std::size_t n = 0;
    for (int row : rows) {
        if (n == v.SelectedLevels.size()) break;
        if (row < 1 || static_cast<std::size_t>(row) >= model.Levels.size()) continue;
        v.SelectedLevels[n++] = static_cast<std::int16_t>(row);
    }
    v.LevelMode = lm::Multiple;
    Rebuild(model, ds);
}

void SelectLevelRange(Model& model, DisplayState& ds, int firstRow, int secondRow) {
    const auto valid = [&](int row) { return row >= 1 && static_cast<std::size_t>(row) < model.Levels.size(); };
    if (!valid(firstRow) || !valid(secondRow)) return;
    const std::int32_t a = model.Levels[static_cast<std::size_t>(firstRow)].RLMax;
    const std::int32_t b = model.Levels[static_cast<std::size_t>(secondRow)].RLMin;
    ViewState& v = ds.View;
    v.CurrentRLMax = std::max(a, b);
    v.CurrentRLMin = std::min(a, b);
    ds.RangeMin = v.CurrentRLMin;
    ds.RangeMax = v.CurrentRLMax;
    v.LevelMode = lm::Range;
    Rebuild(model, ds);
}

void SelectAllLevels(Model& model, DisplayState& ds) {
    ds.View.LevelMode = lm::All;
    Rebuild(model, ds);
}

void SwapSingleMulti(Model& model, DisplayState& ds) {
    ViewState& v = ds.View;
    if (v.LevelMode == lm::Single) {
        // No other mode remembered: the button shows all levels.
        const int other = static_cast<int>(ds.OtherLevelMode);
        v.LevelMode = (other <= lm::Single || other > lm::All) ? lm::All : static_cast<std::int16_t>(other);
        ds.OtherLevelMode = lm::Single;
        if (v.LevelMode == lm::Range) {
            v.CurrentRLMin = ds.RangeMin;
            v.CurrentRLMax = ds.RangeMax;
        }
        Rebuild(model, ds);
    } else {
        const std::int16_t left = v.LevelMode;
        ChooseLevelRow(model, ds, v.CurrentLevel);
        ds.OtherLevelMode = left;
    }
}

void AdoptLoadedLevel(const Model& model, DisplayState& ds) {
    const int count = LevelListCount(model);
    const int row = count >= 2 ? 2 : 1;
    ds.View.CurrentLevel = static_cast<std::int16_t>(row);
    if (count >= 1) {
        SetBoundsOfRow(model, ds, row);
    } else {
        ds.View.CurrentRLMin = model.CurrentRLMin;
        ds.View.CurrentRLMax = model.CurrentRLMax;
        ds.View.CurRL = Middle(model.CurrentRLMin, model.CurrentRLMax);
    }
}

} // namespace karvane::display
