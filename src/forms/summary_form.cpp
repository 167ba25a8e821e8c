// The texts of the network summary.
#include "forms/summary_form.h"

#include "display/data_format.h"
#include "model/units.h"
#include "simulate/summary.h"

namespace karvane::forms {

SummaryTexts FillSummary(const Model& model, char decimalSep) {
    const simulate::SummaryFigures f = simulate::Summarize(model);
    auto value = [&](double v, int unitClass) {
        return display::FormatValue(model, v, unitClass, true, false, decimalSep);
    };
    SummaryTexts t;
    t.LblAF = value(f.TotalAirflow, uc::Flow);
    t.LblAP = value(f.AirPowerKW, uc::Power);
    t.LblIP = value(f.InputPowerKW, uc::Power);
    t.LblEff = f.Efficiency ? simulate::EfficiencyText(*f.Efficiency, decimalSep) : SummaryNoFigure;
    t.LblResist = f.MineResistance ? value(*f.MineResistance, uc::Resistance) : SummaryNoFigure;
    t.LblCost = simulate::AnnualCostText(f.AnnualCost, decimalSep);
    t.LblNA = std::to_string(f.NumberOfAirways);
    t.LblLA = value(f.LengthOfAirways, uc::LongLength);
    t.LblNF = std::to_string(f.NumberOfFans);
    return t;
}

} // namespace karvane::forms
