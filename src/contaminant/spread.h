// The contaminant spread over a balanced network: where the contaminant of the sources goes,
// at what level, and when it arrives. Steady-state mixing at the junctions by flow, not a
// time-stepping calculation; arrival times follow the earliest way in. Also the placing and
// clearing of sources.
#pragma once

#include <cstdint>
#include <string>

#include "model/model.h"
#include "simulate/run.h"
#include "ui/user_interface.h"

namespace karvane::contaminant {

// Levels are whole numbers held at this ceiling.
inline constexpr float MaxContaminantLevel = 20000.0f;
// The level a newly placed source gets.
inline constexpr float DefaultSourceLevel = 100.0f;
// The reach step gives up after this many rounds.
inline constexpr int MaxReachRounds = 1000;
// Settling passes before the user is asked whether to accept the best guess.
inline constexpr int SettlePassesBeforeQuestion = 100;
// The slider of the spread never reaches past three hours.
inline constexpr std::int32_t MaxSpreadSeconds = 10800;

// What the spread needs of the windows around it. Every member does nothing by default; the
// run hooks (redraw, undo log) also serve the airflow run that a spread starts on its own.
struct SpreadHooks : simulate::RunHooks {
    // Remember what the two data type lists of the main window show, unless they already
    // stand on the contaminant display.
    virtual void RememberDataTypes() {}
    // Switch the data type lists to the contaminant display, without their own handlers.
    virtual void ShowContaminantDataTypes() {}
    // Put the data type lists back to what RememberDataTypes kept, without their handlers.
    virtual void RestoreDataTypes() {}
    // Close the smoke simulation window (its progress boxes are ui::ProgressBox).
    virtual void CloseSmokeWindow() {}
    // Show the legend window of the spread (which closes the sourcing legend).
    virtual void ShowLegend() {}
    // The thresholds, SpreadMax and SpreadLimit in model.Smoke are new: fill the legend's
    // boxes and set up its slider from them.
    virtual void LegendChanged() {}
    // Close the legend window of the spread.
    virtual void CloseLegend() {}
};

// The spread, from the sources (bit 8 and Contaminant) of the present network:
//  - without a valid airflow result, an airflow run first (SimMode Normal, with progress); if the
//    network still does not balance, "Network must be successfully balanced before smoke
//    simulation can work" and nothing more;
//  - node keys and row order brought up to date, every row's level (Gas2) and arrival time
//    (model.Smoke.SpreadTime) reset; sources with a flow above 0 start at their own level and
//    at time 0; with no such source nothing is shown;
//  - reach: rounds over the rows in row order in which every contaminated row that does not
//    leave to the surface marks the rows it feeds, that carry more than AllowErr, with level 1;
//  - settle: passes over the reached rows in the order reached, each row taking the flow
//    weighted mean level of the rows that feed it (plus its own level for a source in
//    cumulative mode), capped at 20000, and the arrival time through its earliest feeder,
//    until no level moves by 1 or more; after 100 passes the user may accept the best guess;
//  - GasActive Spread, the legend thresholds, SpreadMax and SpreadLimit 0. The thresholds of the
//    last legend are kept when the retain choice is on: it follows retainLegend (the "Retain
//    Legend" box) until a source is placed or changed, and stays as last taken after that.
// Progress goes to the boxes TxtItt, TxtRate, TxtSpread and TxtErr through ui.ProgressBox; a
// stop request (StopFlag Stop, see CancelSpread) ends the rounds or passes early and shows what
// has been worked out so far.
void RunContaminantSpread(Model& model, ui::UserInterface& ui, SpreadHooks* hooks = nullptr, bool retainLegend = false);

// The place/remove contaminant tool on the picked row, at `fraction` of the way from its From
// end. The left button toggles a source of level 100; any other button asks for the level
// ("Concentration"), where 0 removes the source and an empty answer changes nothing. Returns
// whether the row changed; the caller redraws.
bool PlaceContaminant(Model& model, ui::UserInterface& ui, std::int32_t row, float fraction, bool leftButton);

// "Clear contaminant sources as well?": Yes removes every source, No keeps the sources and
// clears the level of every other row. A spread on show is closed either way.
void ClearContaminant(Model& model, ui::UserInterface& ui, SpreadHooks* hooks = nullptr);

// The Cancel button of the smoke simulation window: stops a spread in progress, closes both
// windows of the spread and clears the level of every row that is not a source.
void CancelSpread(Model& model, SpreadHooks* hooks = nullptr);

// "Clear Sources" of the spread legend: "Clear contaminant sources ?"; on Yes every row loses
// its source bit and level. Returns whether the sources were cleared; the caller redraws.
bool ClearSources(Model& model, ui::UserInterface& ui);

// The area through which the contaminant travels along an airway, m2, by its shape bits in
// the order rectangular, circular, area entry (a later one wins). An airway without a shape
// bit, or with no positive area, is taken at the least area the resistance formulas work with
// (LeastArea, 0.05 m2), so that a travel time is always finite.
float TravelArea(const Airway& airway);

} // namespace karvane::contaminant
