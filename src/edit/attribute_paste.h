// Copy and paste of airway attributes: the paste store filled from an airway (right button of
// the attribute tool), the defaults for new airways filled from one (the tool bar value that
// copies to the defaults), PasteToRow, and the list of what was carried that every message of
// the tool shows. AttributeMask (a setting) says which attributes are left alone.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/model.h"

namespace karvane::edit {

// The bits of AttributeMask: a bit set means that the attribute is not carried.
namespace attr {
inline constexpr std::int16_t Shape = 1;       // shape bits, Height, Width
inline constexpr std::int16_t Wall = 2;        // WallType, WallFactor
inline constexpr std::int16_t Shock = 4;       // ShockType, ShockFactor
inline constexpr std::int16_t Resistance = 8;  // ResType, Resistance
inline constexpr std::int16_t Length = 16;     // bit 128, and Length when fixed
inline constexpr std::int16_t Air = 32;        // bits 512, 1024
inline constexpr std::int16_t Primary = 64;    // PrimaryLayer
inline constexpr std::int16_t Secondary = 128; // SecondLayer
inline constexpr std::int16_t Display = 256;   // bit 2048
inline constexpr std::int16_t All = 511;
inline constexpr int Count = 9;
} // namespace attr

// Whether the mask leaves nothing to carry.
inline bool NothingCarried(std::int16_t mask) { return (mask & attr::All) == attr::All; }

// The shape of an airway as the paste store keeps it: 1 drive, 2 raise, 3 area.
std::int16_t PasteShapeOf(const Airway& airway);

// The paste store filled from an airway: its BranchCode less the surface bits 4096 and 8192,
// its shape and its values.
void CopyToPasteStore(Model& model, std::int32_t row);

// The attributes of the airway that the mask carries become the defaults of new airways by its
// shape: sizes, the drive or raise wall, the shock, the draw layers.
void CopyToDefaults(Model& model, std::int32_t row);

// PasteToRow: the store's attributes that the mask carries go to the row, which is then
// recalculated. The caller logs the row before and after.
void PasteToRow(Model& model, std::int32_t row);

// How the list of carried attributes is worded: for the defaults and for a paste, or for a
// copy into the store.
enum class Wording { Defaults, Copy, Paste };

// One line for each attribute the mask carries, from a store's values, in display units.
std::vector<std::string> AttributeLines(const Model& model, const PasteStore& store, std::int16_t mask, Wording wording,
                                        char sep);

// The whole message of a copy or a paste for an airway row: its heading and the list.
std::string AttributeMessage(const Model& model, std::int32_t row, Wording wording, char sep);

} // namespace karvane::edit
