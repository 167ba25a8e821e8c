// What commands print: texts of the network (8-bit, Windows-1252 unless they already are
// UTF-8) made fit for a terminal and for JSON, single-precision values in their shortest form,
// and the messages a command met.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "model/model.h"
#include "ui/console_ui.h"

namespace karvane::cli {

// A text of a network file as UTF-8: kept as it is when it is valid UTF-8 already, otherwise
// read as Windows-1252.
std::string ToUtf8(const std::string& text);

// A single-precision value as the JSON number of its shortest text (1.2f gives 1.2).
nlohmann::json JsonSingle(float value);

// The shortest text of a single-precision value ("1.2", "99999", "1e+09").
std::string SingleText(float value);

// Every message, question and answer of a command: [{"kind", "title", "text", "answer"}].
nlohmann::json MessagesJson(const ui::ConsoleUserInterface& ui);

// The results of one airway row as the commands that run a simulation print them: airwayNo,
// quantity, pressure, fromNodeP, toNodeP, resistance, length, comment, branchCode, and the
// node keys entryKey and exitKey as the plain decimal text of their fixed-point value.
nlohmann::json AirwayJson(const Airway& airway);

// Every row of the network in row order as AirwayJson: the "airways" list of the commands
// that print results. Callers add their own fields to the rows by index (row r at r - 1).
nlohmann::json AirwaysJson(const Model& model);

// The network error list: [{"airwayNo", "text"}].
nlohmann::json ErrorListJson(const Model& model);

// What the contaminant commands print with --json: file, loaded and, when the network was
// read, simValid, gasActive, legend ({"thresholds": six values, top first; "spreadMax":
// seconds}), errors and airways (every row in row order as AirwayJson, with gas1 the report
// pin, gas2 the level of a spread or the state of a sourcing, and spreadTime in seconds,
// 9999999 when never reached); then messages.
nlohmann::json ContaminantResultJson(const std::string& path, bool loaded, const Model& model,
                                     const ui::ConsoleUserInterface& ui);

} // namespace karvane::cli
