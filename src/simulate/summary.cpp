// The summary figures from one pass of the network totals.
#include "simulate/summary.h"

#include <cmath>

#include "model/number_format.h"

namespace karvane::simulate {

SummaryFigures Summarize(const Model& model) {
    SummaryFigures s;
    s.Sums = NetworkTotals(model);
    const double flow = s.Sums.TotalFlow;
    const double air = s.Sums.AirPower;
    const double input = s.Sums.InputPower;
    s.TotalAirflow = std::trunc(flow);
    s.AirPowerKW = std::trunc(air / 1000.0);
    s.InputPowerKW = std::trunc(input / 1000.0);
    if (input != 0.0) s.Efficiency = air / input;
    if (flow != 0.0) s.MineResistance = air / (flow * flow * flow);
    s.AnnualCost = std::trunc(input / 1000.0 * model.Set.PowerCost * HoursPerYear);
    s.NumberOfAirways = model.AirwayCount;
    s.LengthOfAirways = s.Sums.TotalLength;
    s.NumberOfFans = s.Sums.FanCount;
    return s;
}

std::string EfficiencyText(double efficiency, char decimalSeparator) {
    return FormatNumber(efficiency, "0 %", decimalSeparator);
}

std::string AnnualCostText(double cost, char decimalSeparator) {
    return FormatNumber(cost, "$#,##0", decimalSeparator, decimalSeparator == ',' ? '.' : ',');
}

} // namespace karvane::simulate
