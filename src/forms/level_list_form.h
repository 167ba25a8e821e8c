// frmRLBase ("Level List"): the table of named levels, each a band of reduced levels, edited
// in place and saved back into the level list with its limits, its order and the warning of a
// band that reaches into the surface band. Closing rebuilds the level filter of the views.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "display/view_state.h"
#include "forms/grid_edit.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

inline constexpr int LevelTableRows = 249;
// Columns of GridRL: 0 the row number, 1 "Name", 2 "RL High", 3 "RL Low".
namespace rlcol {
inline constexpr int Number = 0, Name = 1, High = 2, Low = 3, Count = 4;
}

struct LevelListFields {
    bool Modified = false;
    // Cells[row][column], rows 1..249; [0] unused.
    std::vector<std::array<std::string, rlcol::Count>> Cells =
        std::vector<std::array<std::string, rlcol::Count>>(LevelTableRows + 1);
};

// The headings of GridRL, from the unit labels.
std::string LevelColumnHeading(const Model& model, int col);
LevelListFields FillLevelList(const Model& model, char decimalSep);
// A cell typed or pasted into (a key in the table sets the modified flag).
void SetLevelCell(LevelListFields& fields, int row, int col, const std::string& text);
// Delete: the block emptied; when it covers the three data columns of whole rows the rows
// below move up by as many rows, so that no gap stays in the list.
void DeleteLevelCells(LevelListFields& fields, int top, int left, int bottom, int right);
// Paste within the three data columns and the 249 rows, repeated while the selection is not
// full; nothing is added.
void PasteLevelTable(LevelListFields& fields, const std::string& text, GridCell from, int lastRow);
std::string CopyLevelTable(const LevelListFields& fields, int top, int left, int bottom, int right);

// SaveLevels: the table into the level list with its limits and warnings, then the level in
// use taken from the scroll bar's row (ds.View.CurrentLevel) and the display list rebuilt.
void SaveLevels(Model& model, display::DisplayState& ds, const LevelListFields& fields, ui::UserInterface& ui);
// RLCancel / mnuExit: asks when modified; Yes saves. True when the levels were saved.
bool CancelLevels(Model& model, display::DisplayState& ds, LevelListFields& fields, ui::UserInterface& ui);

// The dialog by its control names: cells of "GridRL" by row 1..249 and column 1..3; buttons
// "RLOK", "RLCancel", "mnuExit", "mnuSave".
class LevelListForm {
public:
    LevelListForm(Model& model, display::DisplayState& ds, ui::UserInterface& ui);
    LevelListFields F;
    bool SetField(const std::string& name, const std::string& value);
    bool SetCell(int row, int col, const std::string& value);
    bool PressButton(const std::string& name);
    bool Closed() const { return closed_; }
    // Whether the level list was saved on the way out (the main window refills its lists).
    bool Saved() const { return saved_; }

private:
    Model& model_;
    display::DisplayState& ds_;
    ui::UserInterface& ui_;
    bool closed_ = false;
    bool saved_ = false;
};

} // namespace karvane::forms
