// The "Balancing airflows" stage: a Hardy Cross iteration over the meshes. Each pass works out,
// mesh by mesh, the pressure left over round the loop and its derivative, and corrects every
// airway of the mesh at once; fans are read from their curves, fixed pressures add a constant,
// fixed flow and blocked chords are held. Flows and every sum are single precision.
#pragma once

#include <cstdint>
#include <string>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// The flat columns that balancing works on: flow, resistance and applied pressure copied in
// from the airways, and the flows written back.
void CopyColumnsIn(Model& model);
void CopyFlowsOut(Model& model);

// Every flow from the chords' flows alone (ChordFlow keeps them): continuity then holds at
// every node by construction. Works on the flat flow column.
void SeedFlows(Model& model);

// The start of either method: the progress labels cleared, the columns copied in, the flows
// seeded.
void BeginBalance(Model& model, ui::UserInterface& ui);

// The iteration. Seeds every flow from the chords' flows, then runs passes until no mesh is
// open or MaxIter passes are done, and asks whether to go on when the network has not settled.
// Shows the attempt and the largest correction after each open pass; a stop request ends it.
void BalanceFlows(Model& model, ui::UserInterface& ui);

// What follows one pass of either method, with `open` meshes above the allowed error and the
// largest correction `worst`: the pass is counted in `it`; an open pass shows its attempt and
// correction and lets the event loop run, where a stop fails the run; when MaxIter passes are
// done and meshes are still open, the user is asked whether to go on, and Yes starts `it` again.
enum class AfterPass { Next, Stopped, Finished };
AfterPass EndPass(Model& model, ui::UserInterface& ui, std::int32_t& it, std::int32_t open, float worst);

// Leaves in FanLink what each airway's pressure source delivered at the final flows: the
// operating pressure of a fan on its curve, -9999 stalled, 9999 negated, the applied pressure
// of a fixed pressure airway, and the closing pressure of each fixed or blocked chord.
void CloseBalance(Model& model);

// The convergence percentage: the whole part of (meshes - open) / meshes x 100, worked
// exactly; 100 when there are no meshes.
std::int32_t ConvergencePercent(std::int32_t meshes, std::int32_t open);

// The question asked when the passes ran out before the network settled.
std::string ConvergenceQuestion(std::int32_t percent);

// The largest correction as the progress window shows it: cut down (not rounded) to two
// decimals, "0.00 m3/s".
std::string WorstCorrectionText(float worst, char decimalSeparator);

} // namespace karvane::simulate
