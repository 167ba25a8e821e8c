// Remotes.dat: the definitions of the 50 real-time monitoring stations, kept beside the defaults.
#pragma once

#include <cstdint>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

inline constexpr const char* StationFileName = "Remotes.dat";
inline constexpr int StationFields = 39; // fields of one station line

// Reads the station list from the program folder. Returns an error code (0, or the code of the
// failed open); the caller gives the message. Reading stops at the end of the file or at an
// empty line; later stations keep what they held.
int LoadStations(Model& model, ui::UserInterface& ui);
// Writes all 50 stations. Returns an error code; the old file stays when the write fails.
int SaveStations(const Model& model, ui::UserInterface& ui);

// The input and output timers tick every `seconds` x 1000 ms, held to what the platform's timer
// takes (at most 65535 ms); 0 stops the timer.
std::int32_t StationTimerIntervalMs(double seconds);

} // namespace karvane::files
