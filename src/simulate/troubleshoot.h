// The Troubleshoot menu: runs of the ordinary simulation in another mode (run_modes.h), in
// which meshing or balancing reports what it sees (bulkheads or fans in the spanning forest,
// duplicate airways, airways that will not settle), and the re-seeding of all flows.
#pragma once

#include <cstdint>
#include <string>

#include "model/model.h"
#include "simulate/run_modes.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

struct RunHooks;

// A menu entry of the Troubleshoot menu: sets SimMode and ShowProgress, runs the simulation
// and redraws.
void RunTroubleshoot(Model& model, ui::UserInterface& ui, RunMode simMode, RunHooks* hooks = nullptr);

// "Re-seed Airflows": asks for a seed value and gives it, taken down to a whole number, to
// every airway without a fixed flow. An empty or cancelled answer does nothing. The caller
// redraws.
void ReseedAirflows(Model& model, ui::UserInterface& ui);

// The prompt of the re-seed question.
std::string ReseedPrompt();

} // namespace karvane::simulate
