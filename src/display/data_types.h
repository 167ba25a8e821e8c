// The data types a view can show on its airways: the two lists of the tool bar (group and
// value), the Data Type menu's captions, the remembered value of each group, the unit label,
// the view window's caption and the text of the info pop-up.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "display/view_state.h"
#include "model/model.h"

namespace karvane::display {

inline constexpr int DataGroupCount = 5;

// DataType = group x 10 + value; groups count from 1, values from 2.
inline int DataGroupOf(int dataType) { return dataType / 10; }
bool IsDataType(int dataType);

// "Airflow", "Pressure", "Airway data", "Energy", "Other" for groups 1 to 5.
std::string_view DataGroupName(int group);
// The entries of the value list of a group, in order (position 0 is value 2).
std::vector<std::string> DataValueNames(int group);
// The entry of the value list for a data type ("Quantity"); empty for no type.
std::string_view DataValueName(int dataType);
// The caption of the type's entry in the Data Type menu ("Quantity m3/s"); empty where the
// menu has no entry.
std::string_view DataMenuCaption(int dataType);
// The data type of a name as either list or the menu gives it, case not minded; 0 for none.
int DataTypeByName(std::string_view name);

// The unit label of a type's unit class in the current unit system; empty for a type without one.
std::string DataUnitLabel(const Model& model, int dataType);

// Choosing a group: the type becomes the group's remembered value (at least 2).
int ChooseDataGroup(const Model& model, DisplayState& ds, int group);
// Choosing a value: sets DataType, remembers it for its group and shows its unit.
void ChooseDataType(const Model& model, DisplayState& ds, int dataType);

// The text of the level list of the tool bar: the level's name in Single mode, else blank.
std::string LevelListText(const Model& model, const DisplayState& ds);
// "View n : level value", the caption of view window number (0..4) and its Window menu entry.
std::string ViewWindowCaption(const Model& model, const DisplayState& ds, int windowNumber);

// The text of the info pop-up over an airway, every value with its unit.
std::string InfoPopupText(const Model& model, const DisplayState& ds, std::int32_t row);

} // namespace karvane::display
