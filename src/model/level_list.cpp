// Ordering of the level list.
#include "model/level_list.h"

#include <algorithm>
#include <tuple>

namespace karvane {

bool IsFreeLevel(const LevelRecord& level) { return level.RLName.empty() && level.RLMax == 0; }

void SortLevels(Model& model) {
    if (model.Levels.size() < static_cast<std::size_t>(LevelRows) + 1) model.Levels.resize(LevelRows + 1);
    auto first = model.Levels.begin() + 1;
    auto last = model.Levels.begin() + LevelRows + 1;
    for (auto it = first; it != last; ++it)
        if (IsFreeLevel(*it)) *it = LevelRecord{};
    std::stable_sort(first, last, [](const LevelRecord& a, const LevelRecord& b) {
        const bool freeA = IsFreeLevel(a), freeB = IsFreeLevel(b);
        if (freeA != freeB) return freeB;
        if (freeA) return false;
        return std::tie(b.RLMax, a.RLName, b.RLMin) < std::tie(a.RLMax, b.RLName, a.RLMin);
    });
}

std::int32_t LevelCount(const Model& model) {
    std::int32_t count = 0;
    for (std::size_t i = 1; i < model.Levels.size() && i <= static_cast<std::size_t>(LevelRows); ++i) {
        if (IsFreeLevel(model.Levels[i])) break;
        ++count;
    }
    return count;
}

} // namespace karvane
