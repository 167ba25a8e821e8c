// Colour indices of the contaminant results, the legend thresholds and the time limit.
#include "contaminant/colours.h"

#include <cstdlib>

#include "model/number_format.h"

namespace karvane::contaminant {

namespace {

bool InTable(const Model& model, std::int32_t row) {
    return row >= 1 && row <= model.AirwayCount && row <= MaxAirways &&
           static_cast<std::size_t>(row) < model.Airways.size() &&
           static_cast<std::size_t>(row) < model.Smoke.SpreadTime.size();
}

} // namespace

bool ArrivedBySpreadLimit(const Model& model, std::int32_t row) {
    if (!InTable(model, row)) return false;
    const std::int32_t limit = model.Smoke.SpreadLimit;
    return limit == 0 || static_cast<double>(std::llabs(limit)) >= model.Smoke.SpreadTime[row];
}

int AirwayContaminantColour(const Model& model, std::int32_t row) {
    if (!InTable(model, row)) return NotContaminatedColour;
    const std::int16_t level = model.Airways[row].Gas2;
    if (model.GasActive == GasDisplay::Spread) {
        if (level <= 0 || !ArrivedBySpreadLimit(model, row)) return NotContaminatedColour;
        const auto& thresholds = model.Smoke.ContaminantThreshold;
        for (int k = 0; k < ThresholdCount; ++k)
            if (static_cast<float>(level + 1) >= thresholds[k]) return TopLevelColour - k;
        return NotContaminatedColour;
    }
    if (model.GasActive == GasDisplay::Sourcing) return level >= 0 && level <= 7 ? level : NotContaminatedColour;
    return NotContaminatedColour;
}

std::string ThresholdText(float threshold, char decimalSep) { return FormatNumber(threshold, "0", decimalSep); }

void SetDefaultThresholds(Model& model, std::int16_t maxLevel) {
    auto& thresholds = model.Smoke.ContaminantThreshold;
    const double top = maxLevel;
    for (int k = 0; k < ThresholdCount; ++k) {
        const double value = top - top / 5.0 * k;
        thresholds[k] = static_cast<float>(ParseLeadingNumber(FormatNumber(value, "0")));
    }
}

void ReadThresholds(Model& model, const std::array<std::string, ThresholdCount>& boxes) {
    for (int k = 0; k < ThresholdCount; ++k)
        model.Smoke.ContaminantThreshold[k] = static_cast<float>(ParseLeadingNumber(boxes[k]));
}

void SetSpreadLimit(Model& model, std::int32_t value) { model.Smoke.SpreadLimit = value == 0 ? 1 : value; }

std::string SpreadTimeText(double seconds) { return FormatNumber(seconds / SpreadDaySeconds, "h:mm:ss"); }

} // namespace karvane::contaminant
