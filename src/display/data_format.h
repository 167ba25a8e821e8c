// How a value of an airway becomes text: in a view window, a label, the info pop-up or a
// report. Every value is converted to the display unit of its class and formatted by the
// class's format, so that one place decides how a quantity reads.
#pragma once

#include <cstdint>
#include <string>

#include "display/view_state.h"
#include "model/model.h"

namespace karvane::display {

// A stored SI value in the display unit of its class, by the class's format ("0.0########"
// with fullPrecision). withUnit adds a blank and the unit label; a cost puts the label first.
// Class 0 gives the plain number.
std::string FormatValue(const Model& model, double value, int unitClass, bool withUnit, bool fullPrecision,
                        char decimalSep);

// The value of a data type for an airway, and the extra first line some types carry (the name
// of a resistance preset, the stall or negate pressure of a fan).
struct AirwayValueText {
    std::string Text;
    std::string ExtraLine;
};

// Node data types are shown at an airway's ends, not at its middle.
bool IsNodeDataType(int dataType);

// The value of an airway for a data type; empty for the node types. Without withUnit a fan
// airway's text carries its fan number in front.
AirwayValueText FormatAirwayValue(const Model& model, const DisplayState& ds, int dataType, std::int32_t row,
                                  bool withUnit);

enum class AirwayEnd { From, To };

// The node value of a node data type at one end of an airway; empty for other types and for a
// node that the pressure resolution never reached.
std::string FormatNodeValue(const Model& model, const DisplayState& ds, int dataType, std::int32_t row, AirwayEnd end,
                            bool withUnit);

// Cross-section area by shape: width x height, a circle of diameter width, or width itself for
// area entry.
double AirwayArea(const Airway& airway);

} // namespace karvane::display
