// The run modes of the Troubleshoot menu and what the run stages report in them: bulkheads or
// fans in the spanning forest (meshing), nothing found (the driver), airways that will not
// settle (balancing). Below the stages; the menu entries that start such runs are in
// troubleshoot.h.
#pragma once

#include <cstdint>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// Run modes (SimMode).
namespace mode {
inline constexpr std::int16_t Normal = 0;
inline constexpr std::int16_t FindBulkheads = 1;    // "Find" unnecessary bulkheads
inline constexpr std::int16_t RemoveBulkheads = 2;  // "Remove" them
inline constexpr std::int16_t RestrictiveFans = 3;  // "Find Restrictive Fans"
inline constexpr std::int16_t DuplicateAirways = 4; // "Find Duplicate Airways"
inline constexpr std::int16_t NonConverging = -1;   // "Non-converging Airways"
} // namespace mode

// After the forest of a run in modes 1 to 3 that found a restriction: the warning of modes 1
// and 3, or in mode 2 the question and the removal of the bulkheads marked "Bad BBH".
void AfterForestChecks(Model& model, ui::UserInterface& ui);

// After a clean meshing stage in modes 1 to 3: the message that nothing was found.
void SayNothingFound(Model& model, ui::UserInterface& ui);

// Mode -1: marks one airway of a mesh whose correction in the last pass stayed above the
// allowed error ("Converge Error"), unless it is marked already. `correction` is absolute.
void MarkNonConverging(Model& model, std::int32_t row, float correction, char decimalSeparator);

} // namespace karvane::simulate
