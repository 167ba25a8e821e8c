// What the editing commands keep between one use and the next: the last search of the Find
// menu and the paste store of the attribute tool. Part of the Model so that the desktop
// program, the command table and the script of the user's actions all see the same search.
#pragma once

#include <cstdint>
#include <string>

#include "model/network.h"

namespace karvane {

// The kinds of search of the Find menu (FindKind); 0 for none.
namespace find {
inline constexpr std::int16_t None = 0;
inline constexpr std::int16_t Errors = 1;
inline constexpr std::int16_t BadFans = 2;
inline constexpr std::int16_t BranchNumber = 3;
inline constexpr std::int16_t BranchName = 4;
inline constexpr std::int16_t NodeName = 5;
inline constexpr std::int16_t FixedFlows = 6;
inline constexpr std::int16_t FixedPressure = 7;
inline constexpr std::int16_t FixedDirections = 8;
inline constexpr std::int16_t ZeroLengths = 9;
} // namespace find

struct FindState {
    std::int16_t FindKind = find::None;
    std::string FindText;        // the search text in upper case
    std::int32_t FindNumber = 0; // the row sought by "Branch Number"
    std::int32_t FindFrom = 0;   // the row to go on from
    int FinderTick = -1;         // the entry of the Find menu that carries the tick, -1 for none
};

// The paste store of the attribute tool: the airway the attributes were copied from, with its
// BranchCode less the surface bits. PasteBranchCode 0 means that nothing was copied.
struct PasteStore {
    std::int32_t PasteBranchCode = 0;
    std::int16_t PasteShape = 0; // 1 drive, 2 raise, 3 area
    Airway Values;               // sizes, wall, shock, resistance, length and layers of the source
};

} // namespace karvane
