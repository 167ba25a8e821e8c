// Contaminant sourcing: from the places where smoke has been reported and where the air has
// been reported clear, which airways can be the source. Upstream of a smoke report everything
// is a potential source, upstream of a clear report nothing can be, and downstream of a smoke
// report everything is smoke. Also the report pins themselves.
#pragma once

#include <cstdint>

#include "model/model.h"
#include "simulate/run.h"
#include "ui/user_interface.h"

namespace karvane::contaminant {

// Report pins, in Gas1.
inline constexpr std::int16_t NoPin = 0;
inline constexpr std::int16_t SmokePin = 1;
inline constexpr std::int16_t ClearPin = 2;

// Sourcing states, in Gas2; each is also the row's colour index.
inline constexpr std::int16_t UnknownState = 0;
inline constexpr std::int16_t SmokeState = 4;
inline constexpr std::int16_t PotentialSourceState = 5;
inline constexpr std::int16_t ClearState = 7;

// The upstream walks go only through airways that carry more than this, m3/s.
inline constexpr float SourcingFlowThreshold = 0.1f;

// The sourcing, from the pins (Gas1) of the present network:
//  - without a valid airflow result, an airflow run first (SimMode Normal, with progress) and a
//    redraw; if the network still does not balance, "Network must be successfully balanced
//    before smoke sourcing simulation can work" and nothing more;
//  - GasActive Sourcing and every state reset to unknown;
//  - potential walk: smoke pins and everything upstream of them, through unpinned airways
//    above 0.1 m3/s, are potential sources;
//  - clear walk: clear pins and everything upstream of them, likewise, are clear, over the
//    potential sources;
//  - smoke walk: smoke pins and everything downstream of them that carries any flow are
//    smoke, over both, clear pins included.
// No walk goes on through the surface. The walks read the neighbour lists of the last
// airflow run.
void RunSourcing(Model& model, ui::UserInterface& ui, simulate::RunHooks* hooks = nullptr);

// The report tool on the picked row, at `fraction` of the way from its From end, placing the
// pin of model.Smoke.PinType. A smoke pin on a row found clear, or a clear pin on a row found
// smoked, is confirmed first ("Conflicting Report"). The same pin again removes it; the other
// pin replaces it. Returns whether the row changed; the caller redraws.
bool PlaceReport(Model& model, ui::UserInterface& ui, std::int32_t row, float fraction);

// "Clear Smoke Sourcing": every pin and every state removed. GasActive stays as it is.
void ClearSourcing(Model& model);

// "Clear Pins" of the sourcing legend: "Confirm deletion of all report pins"; on Yes every pin
// and state is removed and the sourcing result is no longer shown. Returns whether they were.
bool ClearPins(Model& model, ui::UserInterface& ui);

} // namespace karvane::contaminant
