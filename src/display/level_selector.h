// The level selector of the main window as operations a front end calls: a row of the level
// list or a key press picks a single level, or the view shows several levels, a range of
// levels or all of them, and the Single/Multi button swaps between single and the last other
// mode. Each operation rebuilds the display list and reprojects with the centre kept, so that
// the view doesn't jump; the front end redraws and saves the window's state.
#pragma once

#include <cstdint>
#include <vector>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::display {

inline constexpr int MaxSelectedLevels = 6;

// Rows of the level list in use: it ends at the first row with an empty name and RLMin 0.
int LevelListCount(const Model& model);

// A level row chosen from the list or the scroll bar: Single mode at that row, its bounds in
// force and the cursor level at their middle. The mode left behind, if not Single, is
// remembered for the Single/Multi button.
void ChooseLevelRow(Model& model, DisplayState& ds, int row);
// The Up (-1) and Down (+1) keys move the scroll bar by one row within the list. False when
// the move would leave the list.
bool StepLevel(Model& model, DisplayState& ds, int step);
// "Single": Single mode at the scroll bar's row.
void SelectSingleLevel(Model& model, DisplayState& ds);

// The "Selected Levels" list of the Multiple dialog: false, with the message, when it is full.
bool AddSelectedLevel(std::vector<int>& selected, int row, ui::UserInterface& ui);
// The Multiple dialog's OK: the rows are stored, the rest of the selection cleared.
void SelectMultipleLevels(Model& model, DisplayState& ds, const std::vector<int>& rows);
// The Range dialog's OK: the upper bound of the first row and the lower bound of the second,
// whichever way round they were given.
void SelectLevelRange(Model& model, DisplayState& ds, int firstRow, int secondRow);
// "All".
void SelectAllLevels(Model& model, DisplayState& ds);
// The tool bar's "Single / Multi level display".
void SwapSingleMulti(Model& model, DisplayState& ds);

// After a network has been loaded: the current level is the second level, or the first if
// there is only one; Single mode at that row when the view has no stored mode.
void AdoptLoadedLevel(const Model& model, DisplayState& ds);

} // namespace karvane::display
