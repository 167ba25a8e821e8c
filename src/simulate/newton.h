// The "Balancing airflows" stage by Newton's method: every mesh flow of the meshing corrected at
// once from the Jacobian of the loop pressures, C^T diag(2R|Q| - dp/dQ) C over the mesh-airway
// incidence C, with a line search that keeps each step downhill. It starts from the same seeded
// flows as Hardy Cross, holds the same fixed meshes, reads fans from the same curves, counts a
// mesh open by the same rule (its own correction above AllowErr), shows the same progress and
// asks the same question when the passes run out, so that everything after the balance sees
// the same flows within AllowErr.
#pragma once

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// The iteration by Newton's method; called instead of BalanceFlows when Settings::Solver says
// so. Each iteration counts as one pass against MaxIter.
void BalanceFlowsNewton(Model& model, ui::UserInterface& ui);

} // namespace karvane::simulate
