// The Troubleshoot menu: runs of the ordinary simulation in another mode, in which meshing or
// balancing reports what it sees (bulkheads or fans in the spanning forest, duplicate airways,
// airways that will not settle), and the re-seeding of all flows.
#pragma once

#include <cstdint>
#include <string>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

struct RunHooks;

// Run modes (SimMode).
namespace mode {
inline constexpr std::int16_t Normal = 0;
inline constexpr std::int16_t FindBulkheads = 1;    // "Find" unnecessary bulkheads
inline constexpr std::int16_t RemoveBulkheads = 2;  // "Remove" them
inline constexpr std::int16_t RestrictiveFans = 3;  // "Find Restrictive Fans"
inline constexpr std::int16_t DuplicateAirways = 4; // "Find Duplicate Airways"
inline constexpr std::int16_t NonConverging = -1;   // "Non-converging Airways"
} // namespace mode

// A menu entry of the Troubleshoot menu: sets SimMode and ShowProgress, runs the simulation
// and redraws.
void RunTroubleshoot(Model& model, ui::UserInterface& ui, std::int16_t simMode, RunHooks* hooks = nullptr);

// After the forest of a run in modes 1 to 3 that found a restriction: the warning of modes 1
// and 3, or in mode 2 the question and the removal of the bulkheads marked "Bad BBH".
void AfterForestChecks(Model& model, ui::UserInterface& ui);

// After a clean meshing stage in modes 1 to 3: the message that nothing was found.
void SayNothingFound(Model& model, ui::UserInterface& ui);

// Mode -1: marks one airway of a mesh whose correction in the last pass stayed above the
// allowed error ("Converge Error"), unless it is marked already. `correction` is absolute.
void MarkNonConverging(Model& model, std::int32_t row, float correction, char decimalSeparator);

// "Re-seed Airflows": asks for a seed value and gives it, taken down to a whole number, to
// every airway without a fixed flow. An empty or cancelled answer does nothing. The caller
// redraws.
void ReseedAirflows(Model& model, ui::UserInterface& ui);

// The prompt of the re-seed question.
std::string ReseedPrompt();

} // namespace karvane::simulate
