// The figures of the network summary report: how much air the mine takes, the power it absorbs
// and is fed, what that costs a year, and the size of the network. The report only formats
// and converts them to display units.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "model/model.h"
#include "simulate/energy.h"

namespace karvane::simulate {

struct SummaryFigures {
    NetworkFigures Sums;                  // the running sums, SI, power in W
    double TotalAirflow = 0;              // TotalFlow truncated to a whole number, m3/s
    double AirPowerKW = 0;                // AirPower / 1000, truncated
    double InputPowerKW = 0;              // InputPower / 1000, truncated
    std::optional<double> Efficiency;     // AirPower / InputPower as a fraction; none at zero input
    std::optional<double> MineResistance; // AirPower / TotalFlow^3, Ns2/m8; none at zero flow
    double AnnualCost = 0;                // InputPower / 1000 x PowerCost x 24 x 365, truncated, $
    std::int32_t NumberOfAirways = 0;
    double LengthOfAirways = 0; // m
    std::int32_t NumberOfFans = 0;
};

SummaryFigures Summarize(const Model& model);

// "Network Efficiency" as the report shows it ("0 %"), "Annual Power Cost" ("$#,##0").
std::string EfficiencyText(double efficiency, char decimalSeparator);
std::string AnnualCostText(double cost, char decimalSeparator);

} // namespace karvane::simulate
