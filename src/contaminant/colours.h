// The colours of the contaminant results on the network, for the renderer and the print
// layout: a spread coloured by the legend thresholds and cut at the time slider, a sourcing
// result by its states. Also the rules of the legend boxes and of the slider.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/model.h"

namespace karvane::contaminant {

// Colour indices into the fixed colours of the contaminant display (palette numbers 8, 2, 9,
// 13, 12, 14, 15, 11 for indices 0 to 7). A spread uses 0 (grey: not contaminated, or not
// arrived by SpreadLimit) and 1 (green, from threshold 5) up to 6 (bright white, from
// threshold 0); a sourcing result is shown by its state, which is its colour index.
inline constexpr int NotContaminatedColour = 0;
inline constexpr int TopLevelColour = 6;

// Seconds of the slider's day: the time labels divide by 86404, not 86400.
inline constexpr double SpreadDaySeconds = 86404.0;

// The colour index 0..7 of an airway row under the contaminant result on show:
//  - GasActive Spread: the row has arrived when model.Smoke.SpreadLimit is 0 or its
//    absolute value is at least the row's SpreadTime. An arrived row with a level (Gas2)
//    above 0 takes 6 - k for the lowest k from 0 to 5 whose ContaminantThreshold(k) is at most
//    Gas2 + 1; below every threshold, or not arrived, or clean: 0.
//  - GasActive Sourcing: Gas2 itself (0 unknown, 4 smoke, 5 potential source, 7 clear).
//  - otherwise, and for a row outside the table: 0.
// The renderer's own overrides (filters, error marks) go before this one.
int AirwayContaminantColour(const Model& model, std::int32_t row);

// Whether the spread has reached the row by the time the slider stands on.
bool ArrivedBySpreadLimit(const Model& model, std::int32_t row);

// A legend box's text of a threshold: the whole number, as the boxes show it.
std::string ThresholdText(float threshold, char decimalSep = '.');

// The legend of a spread whose highest level is maxLevel: threshold 0 is maxLevel and
// threshold k is maxLevel - maxLevel / 5 x k, each shown as a whole number and read back.
void SetDefaultThresholds(Model& model, std::int16_t maxLevel);

// The six thresholds read back from the legend's boxes (Percent(0) to Percent(5)): the leading
// number of each text, with either decimal separator; a box with no number reads as 0.
void ReadThresholds(Model& model, const std::array<std::string, ThresholdCount>& boxes);

// The slider comes to rest on `value` seconds: the time limit is that value, or 1 at 0, so
// that the slider's start shows the sources and what arrives within the first second rather
// than the whole result (SpreadLimit 0).
void SetSpreadLimit(Model& model, std::int32_t value);

// A time of the spread in seconds as the time label shows it: "h:mm:ss" of seconds / 86404
// of a day, hours counting on past 24.
std::string SpreadTimeText(double seconds);

} // namespace karvane::contaminant
