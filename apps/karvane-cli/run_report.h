// What the simulation commands (simulate, summary) print: the network summary figures, the
// error list, and the one JSON object of a network's results.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "model/model.h"
#include "simulate/summary.h"
#include "ui/console_ui.h"

namespace karvane::cli {

// The summary figures in SI as JSON: totalFlow (m3/s, the intake as summed), totalAirflow
// (m3/s, whole), airPowerKW and inputPowerKW (whole kW), efficiency (a fraction; null with no
// input power), mineResistance (Ns2/m8; null with no flow), annualCost ($, whole),
// numberOfAirways, lengthOfAirways (m) and numberOfFans.
nlohmann::json TotalsJson(const Model& model);
nlohmann::json TotalsJson(const simulate::SummaryFigures& figures);

// The summary figures as the lines "Label: value unit", in SI, labelled as the summary report.
void PrintSummary(std::ostream& out, const Model& model);

// The error list: its size and one line per entry, airway number and text.
void PrintErrorList(std::ostream& out, const Model& model);

// file, loaded and, for a network that was read, simFail, simValid, totals, errors and
// airways; then messages.
nlohmann::json NetworkResultJson(const std::string& path, bool loaded, const Model& model,
                                 const ui::ConsoleUserInterface& ui);

} // namespace karvane::cli
