// Node keys: airway ends become nodes by packing their coordinates into one fixed-point key,
// equal keys being the same node and every surface end sharing the one surface key. Also the
// sort of the airway table by keys (the duplicate and zero-length checks that go with it are in
// files/duplicates.h).
#pragma once

#include <cstdint>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane {

// The key that the packing gives to (0, 0, 0) and to every point that wraps onto it is 0,
// which also marks an empty row. A real airway end there carries this key instead: the
// smallest positive key, 0.0001. The packing makes only multiples of 0.01, so no other point
// can share it, and it sorts where 0 would, below every other key.
inline constexpr Fixed4 OriginKey = 1;

// The packing of a point into a key, worked exactly with 4 decimals:
//   level part  (z < 0 ? z + 9999 : z), absolute value, modulo 10000, times 10000000000;
//   Y part      (y < 0 ? y + 99999 : y), absolute value, modulo 1000000, times 10000;
//   X part      (x < 0 ? x + 9999 : x), absolute value, modulo 1000000, divided by 100.
// Points that differ by a whole period of a term fall together. No surface rule and no
// origin rule here: see EndKey.
Fixed4 NodeKey(std::int32_t x, std::int32_t y, std::int32_t z);

// The lower bound of level 1 of the level list: ends at or above it are at the surface.
std::int32_t SurfaceLevel(const Model& model);

// The key an airway end at this point carries once keys are built: the surface key when the
// point is at or above SurfaceLevel or the end is forced to the surface, OriginKey where the
// packing gives 0, else NodeKey. Use it to compare a point with stored EntryKey and ExitKey.
Fixed4 EndKey(const Model& model, std::int32_t x, std::int32_t y, std::int32_t z, bool forcedToSurface);

// Brings EntryKey and ExitKey of rows 1..AirwayCount up to date. Per row, in order:
//  - ends at or above SurfaceLevel, and ends forced by bits 4096 and 8192, take the surface key;
//  - an empty row (BranchCode 0) with a key of 0 is deleted, and so is one whose both ends
//    pack to 0 before the surface rule (a cleared row); a live row whose end packs to 0 takes
//    OriginKey instead, so that no airway is lost for standing at the origin. Deleted rows
//    take no number and are not reported;
//  - a row at BlockedRes or more gets Quantity 0;
//  - a row with AirwayNo 0 takes LastAirwayNo + 1, which becomes the new LastAirwayNo;
//  - a row with both ends on the surface gets the error line "both ends on surface" (under its
//    new number when it has just been given one), Comment "ends on surf" and bit 64, and
//    SimFail becomes Failed; the row stays.
// Deleted rows are removed after the loop (the rest keep their order, AirwayCount falls). If
// any row had both ends on the surface, one plain message box says so after the loop.
// The caller rebuilds the display list.
void BuildNodeKeys(Model& model, ui::UserInterface& ui);

// Sorts rows 1..AirwayCount, whole rows moving together, by descending EntryKey and, among
// equal EntryKey, by descending ExitKey; rows that start at the surface come first. Rows with
// both keys equal keep the order they had (the sort is stable). Nothing is reported.
void SortAirwayRows(Model& model);

// One mark per row, 1..AirwayCount, all clear: the scratch column (Run.ScratchB) that the sort
// and the checks share; none of them keeps its marks past its own pass.
std::int32_t* ClearRowMarks(Model& model, std::int32_t n);

// Removes the marked rows 1..AirwayCount: the others close up in order, the freed rows at the
// end are cleared, and AirwayCount falls.
void RemoveMarkedRows(Model& model, const std::int32_t* marked);

// AirwayCount held within the table, so that a count out of range never reads past it.
std::int32_t CheckedAirwayCount(const Model& model);

// Appends a fault to the network error list and marks the airway: the line (AirwayNo, text),
// the reason in Comment (cut at its 12 characters) and bit 64.
void ReportAirwayFault(Model& model, std::int32_t row, const char* line, const char* comment);

} // namespace karvane
