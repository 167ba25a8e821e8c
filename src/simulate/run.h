// The driver of an airflow run: refuses networks too small to run, takes the network through
// checking, meshing, balancing and pressures with progress and stop checks, turns airways to
// match their flow, builds the neighbour lists, and says whether the results are valid. It
// reaches the user only through ui::UserInterface; the application's redraw and undo log are
// reached through RunHooks.
#pragma once

#include <cstdint>
#include <span>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// What a run needs of the application around it. Every member does nothing by default.
struct RunHooks {
    virtual ~RunHooks() = default;
    // Redraw the views.
    virtual void Redraw() {}
    // Log one row in the undo log under the present step: action 2 before a change, 1 after.
    virtual void LogAirway(Model& /*model*/, std::int32_t /*row*/, int /*action*/) {}
    // The undo step counter advances: the reversals of a run are one step.
    virtual void EndUndoStep() {}
};

// The entry of every run. The caller sets SimMode and ShowProgress first and redraws after.
// Afterwards model.Run.ErrorListOpen says whether the error list stays on show, and
// model.Run.ErrorListCaption its caption.
void RunAirflow(Model& model, ui::UserInterface& ui, RunHooks* hooks = nullptr);

// Drops the valid state of the results: any edit, any load.
void InvalidateSimulation(Model& model);

// Turns one airway round: keys, end points and end names exchanged, Quantity and IconLoc
// negated, the surface bits exchanged. Node pressures stay; nothing goes to the undo log.
void ReverseAirway(Model& model, std::int32_t row);

// Turns every airway that still flows backwards; an airway with a fixed direction only after
// the user agreed, asked once per run.
void CheckFixedDirections(Model& model, ui::UserInterface& ui);

// Builds the neighbour lists over the present rows: for each row the other rows that end
// where it starts (upstream) and those that start where it ends (downstream), rows ascending.
void BuildNeighbourLists(Model& model);
std::span<const std::int16_t> Upstream(const Model& model, std::int32_t row);
std::span<const std::int16_t> Downstream(const Model& model, std::int32_t row);

// The simulation indicator of the main window.
struct SimIndicator {
    std::int32_t BackColour;     // of the indicator
    const char* Caption;         // "OK" or "SIM"
    std::int32_t ListBackColour; // of the data type lists
};
inline constexpr const char* SimIndicatorTip = "Simulation Vaild (Green = Yes, Red = No)";
SimIndicator SimStatus(const Model& model);

// Caption of the error list of a failed run, and of one that completed with warnings.
inline constexpr const char* ErrorListTitle = "Sim Fail Error List";
inline constexpr const char* WarningListTitle = "Warning-reversals";

} // namespace karvane::simulate
