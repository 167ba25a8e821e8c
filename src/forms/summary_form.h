// The network summary (frmSummary, "Network Summary"): the texts of its nine labels, from the
// figures of the network as it stands, in the display's units.
#pragma once

#include <string>

#include "model/model.h"

namespace karvane::forms {

struct SummaryTexts {
    std::string LblAF;     // "Total Airflow"
    std::string LblAP;     // "Total Air Power"
    std::string LblIP;     // "Network Input Power"
    std::string LblEff;    // "Network Efficiency"
    std::string LblResist; // "Mine Resistance"
    std::string LblCost;   // "Annual Power Cost"
    std::string LblNA;     // "Number of Airways"
    std::string LblLA;     // "Length of Airways"
    std::string LblNF;     // "Number of Fans"
};

// A label whose figure cannot be worked out (no input power, no flow) keeps this text.
inline constexpr const char* SummaryNoFigure = "-";

SummaryTexts FillSummary(const Model& model, char decimalSep);

} // namespace karvane::forms
