// The levels editor.
#include "forms/level_list_form.h"

#include <algorithm>
#include <cmath>

#include "display/data_format.h"
#include "display/display_list.h"
#include "display/level_selector.h"
#include "display/view_transform.h"
#include "files/number_text.h"
#include "model/units.h"

namespace karvane::forms {
namespace {

constexpr double HighestRL = 9999999;
constexpr const char* AboveLimit = "Exceeds Maximum RL Limits";
constexpr const char* BelowLimit = "Exceeds Minimum RL Limits";

std::array<std::string, rlcol::Count>& Row(LevelListFields& f, int row) {
    return f.Cells[static_cast<std::size_t>(row)];
}

// A cell in the long length unit, in metres, still unrounded.
double ReadRL(const Model& model, const std::string& text) {
    const double v = FromDisplay(model, text, uc::LongLength);
    return std::isfinite(v) ? v : 0;
}

} // namespace

std::string LevelColumnHeading(const Model& model, int col) {
    switch (col) {
    case rlcol::Name: return "Name";
    case rlcol::High: return "RL High " + UnitLabel(model, uc::LongLength);
    case rlcol::Low: return "RL Low " + UnitLabel(model, uc::LongLength);
    default: return "";
    }
}

LevelListFields FillLevelList(const Model& model, char decimalSep) {
    LevelListFields f;
    for (int row = 1; row <= LevelTableRows; ++row) {
        auto& cells = Row(f, row);
        cells[rlcol::Number] = std::to_string(row);
        if (static_cast<std::size_t>(row) >= model.Levels.size()) continue;
        const LevelRecord& level = model.Levels[static_cast<std::size_t>(row)];
        if (level.RLName.empty()) continue;
        cells[rlcol::Name] = level.RLName;
        cells[rlcol::High] = display::FormatValue(model, level.RLMax, uc::LongLength, false, false, decimalSep);
        cells[rlcol::Low] = display::FormatValue(model, level.RLMin, uc::LongLength, false, false, decimalSep);
    }
    return f;
}

void SetLevelCell(LevelListFields& fields, int row, int col, const std::string& text) {
    if (row < 1 || row > LevelTableRows || col < rlcol::Name || col > rlcol::Low) return;
    Row(fields, row)[static_cast<std::size_t>(col)] = text;
    fields.Modified = true;
}

void DeleteLevelCells(LevelListFields& fields, int top, int left, int bottom, int right) {
    top = std::max(top, 1);
    bottom = std::min(bottom, LevelTableRows);
    if (top > bottom) return;
    for (int r = top; r <= bottom; ++r)
        for (int c = std::max(left, rlcol::Name); c <= std::min(right, rlcol::Low); ++c)
            Row(fields, r)[static_cast<std::size_t>(c)].clear();
    fields.Modified = true;
    if (left > rlcol::Name || right < rlcol::Low) return;
    const int gap = bottom - top + 1;
    for (int r = top; r <= LevelTableRows; ++r) {
        auto& cells = Row(fields, r);
        if (r + gap <= LevelTableRows) {
            const auto& below = Row(fields, r + gap);
            for (int c = rlcol::Name; c <= rlcol::Low; ++c)
                cells[static_cast<std::size_t>(c)] = below[static_cast<std::size_t>(c)];
        } else {
            for (int c = rlcol::Name; c <= rlcol::Low; ++c) cells[static_cast<std::size_t>(c)].clear();
        }
    }
}

void PasteLevelTable(LevelListFields& fields, const std::string& text, GridCell from, int lastRow) {
    const GridLimits limits{1, LevelTableRows, rlcol::Name, rlcol::Low};
    for (const CellWrite& w : PasteWrites(ReadClipboardTable(text), from, lastRow, limits))
        Row(fields, w.Cell.Row)[static_cast<std::size_t>(w.Cell.Col)] = w.Text;
    fields.Modified = true;
}

std::string CopyLevelTable(const LevelListFields& fields, int top, int left, int bottom, int right) {
    CellTable table;
    for (int r = std::max(1, top); r <= std::min(bottom, LevelTableRows); ++r) {
        std::vector<std::string> row;
        for (int c = std::max(0, left); c <= std::min(right, rlcol::Low); ++c)
            row.push_back(fields.Cells[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]);
        table.push_back(std::move(row));
    }
    return ClipboardText(table);
}

void SaveLevels(Model& model, display::DisplayState& ds, const LevelListFields& fields, ui::UserInterface& ui) {
    if (model.Levels.size() < static_cast<std::size_t>(LevelRows) + 1) model.Levels.resize(LevelRows + 1);
    for (int row = 1; row <= LevelTableRows; ++row) {
        const auto& cells = fields.Cells[static_cast<std::size_t>(row)];
        LevelRecord& level = model.Levels[static_cast<std::size_t>(row)];
        level.RLName = TrimText(cells[rlcol::Name]);
        double high = std::nearbyint(ReadRL(model, cells[rlcol::High]));
        if (high >= 10000000) {
            ui.Message(AboveLimit, ProgramName, ui::Icon::Exclamation);
            high = HighestRL;
        } else if (high < -HighestRL) {
            ui.Message(BelowLimit, ProgramName, ui::Icon::Exclamation);
            high = -HighestRL;
        }
        level.RLMax = files::ToInt32(high);
        if (level.RLMax == 0 && level.RLMin == 0) continue;
        double low = std::nearbyint(ReadRL(model, cells[rlcol::Low]));
        if (low > 10000000) {
            ui.Message(AboveLimit, ProgramName, ui::Icon::Exclamation);
            low = HighestRL;
        } else if (low < -10000000) {
            ui.Message(BelowLimit, ProgramName, ui::Icon::Exclamation);
            low = -HighestRL;
        }
        level.RLMin = files::ToInt32(low);
        if (level.RLMin > level.RLMax) std::swap(level.RLMin, level.RLMax);
        if (row != 1 && level.RLMax >= model.Levels[1].RLMin)
            ui.Message("Warning : The level " + level.RLName +
                           " is within the NO.1 (surface) RL range.  Change the RL ranges to LESS THAN these values to "
                           "prevent possible problems.",
                       "RL Range Problem", ui::Icon::Critical);
    }
    // The level in use: the scroll bar's row.
    const int count = display::LevelListCount(model);
    display::ViewState& v = ds.View;
    if (count > 0) {
        const int row = std::clamp<int>(v.CurrentLevel, 1, count);
        v.CurrentLevel = static_cast<std::int16_t>(row);
        const LevelRecord& level = model.Levels[static_cast<std::size_t>(row)];
        v.CurrentRLMin = model.CurrentRLMin = level.RLMin;
        v.CurrentRLMax = model.CurrentRLMax = level.RLMax;
        v.CurRL = files::ToInt32((static_cast<double>(level.RLMin) + level.RLMax) / 2);
    }
    display::BuildDisplayList(model, ds);
    ds.KeepCentre = true;
    display::ApplyRotation(model, ds);
    ds.KeepCentre = false;
}

bool CancelLevels(Model& model, display::DisplayState& ds, LevelListFields& fields, ui::UserInterface& ui) {
    if (!fields.Modified) return false;
    if (ui.Ask("Save spreadsheet changes to network ?", "Save changes", ui::Buttons::YesNo) != ui::Answer::Yes)
        return false;
    SaveLevels(model, ds, fields, ui);
    return true;
}

LevelListForm::LevelListForm(Model& model, display::DisplayState& ds, ui::UserInterface& ui)
    : F(FillLevelList(model, ui.DecimalSeparator())),
      model_(model),
      ds_(ds),
      ui_(ui) {}

bool LevelListForm::SetField(const std::string&, const std::string&) { return false; }

bool LevelListForm::SetCell(int row, int col, const std::string& value) {
    if (row < 1 || row > LevelTableRows || col < rlcol::Name || col > rlcol::Low) return false;
    SetLevelCell(F, row, col, value);
    return true;
}

bool LevelListForm::PressButton(const std::string& name) {
    if (name == "mnuSave") F.Modified = true;
    if (name == "RLOK" || name == "mnuSave") {
        SaveLevels(model_, ds_, F, ui_);
        saved_ = closed_ = true;
    } else if (name == "RLCancel" || name == "mnuExit") {
        saved_ = CancelLevels(model_, ds_, F, ui_);
        closed_ = true;
    } else {
        return false;
    }
    return true;
}

} // namespace karvane::forms
