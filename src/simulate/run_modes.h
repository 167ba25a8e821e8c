// The run modes of the Troubleshoot menu and what the run stages report in them: bulkheads or
// fans in the spanning forest (meshing), nothing found (the driver), airways that will not
// settle (balancing). Below the stages; the menu entries that start such runs are in
// troubleshoot.h.
#pragma once

#include <cstdint>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// After the forest of a run in modes FindBulkheads to FindRestrictiveFans that found a
// restriction: the warning of FindBulkheads and FindRestrictiveFans, or in RemoveBulkheads the
// question and the removal of the bulkheads marked "Bad BBH".
void AfterForestChecks(Model& model, ui::UserInterface& ui);

// After a clean meshing stage in modes FindBulkheads to FindRestrictiveFans: the message that nothing was found.
void SayNothingFound(Model& model, ui::UserInterface& ui);

// Mode FindNonConverging: marks one airway of a mesh whose correction in the last pass stayed above the
// allowed error ("Converge Error"), unless it is marked already. `correction` is absolute.
void MarkNonConverging(Model& model, std::int32_t row, float correction, char decimalSeparator);

} // namespace karvane::simulate
