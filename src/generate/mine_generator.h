// A synthetic underground mine built straight into the model, for benchmarks, tests and the
// demo network: intake and exhaust shafts from the surface down through the levels, each level
// a grid of drives and crosscuts (a larger main crosscut across the middle of a wide grid),
// declines and return raises between levels, regulators, doors, crosscuts held at a fixed flow
// and a main fan on every exhaust shaft. The same seed and size always give the same mine.
#pragma once

#include <cstdint>
#include <vector>

#include "model/model.h"

namespace karvane::minegen {

struct MineRequest {
    std::int32_t Airways = 1000; // rows to build, held between MinAirways and MaxAirways
    std::uint64_t Seed = 1;
    int Levels = 0;        // 0: chosen from the size (4 for 1,000 airways, 7 for 10,000, 27 for 30,000)
    int IntakeShafts = 0;  // 0: chosen from the size
    int ExhaustShafts = 0; // 0: chosen from the size
    int Boosters = 0;      // booster fans in the exhaust accesses of the deepest levels
    int Doors = -1;        // doors in crosscuts; -1: about one crosscut in 200
    int Bulkheads = -1;    // bulkheads in drives; -1: about one drive in 500
    int FixedFlows = -1;   // crosscuts with a fixed flow; -1: none below 1,000 airways, else one
                           // and one more for every 10,000
};

inline constexpr std::int32_t MinAirways = 20;

// What was built, for callers that want to point at parts of the mine.
struct MineLayout {
    std::int32_t SurfaceRL = 0;
    std::vector<std::int32_t> LevelRL; // level k (1-based) at LevelRL[k - 1], deepest last
    int IntakeShafts = 0;
    int ExhaustShafts = 0;
    int GridColumns = 0, GridRows = 0;     // nodes of each level's grid along X and Y
    std::vector<std::int32_t> FanRows;     // rows of the main fan airways
    std::vector<std::int32_t> BoosterRows; // rows of booster fan airways
    std::vector<std::int32_t> RegulatorRows;
    std::vector<std::int32_t> DoorRows;
    std::vector<std::int32_t> FixedFlowRows;
    int MainCrosscutColumn = -1; // grid column of the levels' main crosscuts; -1: none
};

// Fan database rows the generator fills.
inline constexpr std::int16_t MainFanRow = 1;
inline constexpr std::int16_t BoosterFanRow = 2;

// Primary layers the generator names.
namespace layer {
inline constexpr std::int16_t Workings = 1, Intake = 2, Return = 3, RampsRaises = 4, Controls = 5;
}

// Replaces the network in the model by a generated mine of exactly request.Airways rows (held
// to MinAirways..MaxAirways): airway rows numbered 1.. in row order, levels with the surface
// first, layers, floating text, two saved plan views and the fans in use, and ends with
// RecalcAllAirways. Settings and preset tables are left alone: give the model its built-in
// settings (or Defaults.dat) first, since friction and preset resistances come from them.
MineLayout GenerateMine(Model& model, const MineRequest& request);

} // namespace karvane::minegen
