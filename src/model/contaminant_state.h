// What the contaminant simulations keep beside the airway table: the arrival time of every
// row, the order in which the spread settles its rows, the legend thresholds and the time
// limit of the slider. Sized once at the capacity of the airway table.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "model/network.h"

namespace karvane {

// Number of legend thresholds: ContaminantThreshold(0..5).
inline constexpr int ThresholdCount = 6;

struct ContaminantState {
    // Seconds until the contaminant reaches the From end of each row, rows 1..MaxAirways
    // ([0] unused); NeverReached (9999999) when it never does. A work column: it stays with
    // the row number, not the airway, and is good only until the rows are sorted again.
    std::vector<float> SpreadTime;

    // Rows in the order the spread settles them, SpreadOrder[1..SpreadCount]. A source whose
    // level rounds to 0 can be listed twice, hence room for two entries per row.
    std::vector<std::int16_t> SpreadOrder;
    std::int32_t SpreadCount = 0;

    // The time slider: SpreadLimit is where it stands in seconds (0 shows everything), and
    // SpreadMax its end, at most three hours.
    std::int32_t SpreadLimit = 0;
    std::int32_t SpreadMax = 0;

    // The legend: threshold 0 is the top of the scale, 5 the bottom. They and the fact that a
    // legend has been set last for the whole session, so that "Retain Legend" can keep them.
    std::array<float, ThresholdCount> ContaminantThreshold{};
    bool LegendSet = false;
    // The "Retain Legend" choice as the last spread took it.
    bool RetainLegend = false;
    // A source has been placed or changed since the program started.
    bool SourcesChanged = false;
    // The highest level of the last spread.
    std::int16_t MaxLevel = 0;

    // The pin the report tool places: 1 smoke (left button), 2 clear (any other).
    std::int16_t PinType = 1;

    // Scratch of the reach rounds: rows waiting to spread in this round and in the next.
    // Reserved at capacity; a round only clears and refills them.
    std::vector<std::int32_t> Pending, NextPending;
    // The node keys of every row before the spread sorts the rows (entry and exit of row r at
    // 2r and 2r + 1): when no row's keys change, the neighbour lists still hold.
    std::vector<Fixed4> KeysBefore;

    ContaminantState()
        : SpreadTime(MaxAirways + 1, NeverReached),
          SpreadOrder(2 * (MaxAirways + 1)),
          KeysBefore(2 * (MaxAirways + 1)) {
        Pending.reserve(MaxAirways + 1);
        NextPending.reserve(MaxAirways + 1);
    }
};

} // namespace karvane
