// The level list kept in order: rows by descending upper bound, free rows behind them.
#pragma once

#include <cstdint>

#include "model/model.h"

namespace karvane {

// A free row of the level list: no name and an upper bound of 0. The list ends at the first.
bool IsFreeLevel(const LevelRecord& level);

// Orders rows 1..250 by descending RLMax, equal bounds by name and then by lower bound, so that
// two copies of one level stand side by side; free rows go behind the others, blanked whole.
void SortLevels(Model& model);

// The number of rows before the first free row.
std::int32_t LevelCount(const Model& model);

} // namespace karvane
