// The data types a view can show on its airways. The number of a type is its group x 10 plus
// its place in the group (from 2): the settings, the saved views and the command line keep a
// type by that number, so the numbers never change.
#pragma once

#include <cstdint>

namespace karvane {

enum class DataType : std::int16_t {
    // Airflow.
    Quantity = 12,
    Velocity = 13,
    // Pressure: of the airway, then of its end nodes.
    TotalLoss = 22,
    FrictionLoss = 23,
    Boost = 24,
    RegulatorLoad = 25,
    NodeRelative = 26,
    NodeAbsolute = 27,
    NodeBarometric = 28,
    // Airway data.
    Resistance = 32,
    ShockLength = 33,
    FrictionFactor = 34,
    Dimensions = 35,
    AirwayLength = 36,
    Coordinates = 37, // of the end nodes
    // Energy.
    FrictionPower = 42,
    FanFixPower = 43,
    FrictionCost = 44,
    FanFixCost = 45,
    // Other.
    AirwayNumber = 52,
    LayerNumber = 53,
    LayerName = 54,
    Contaminant = 55,
    SpreadTime = 56,
};

// The number a view, the settings or the command line keep for a data type.
constexpr int DataTypeNumber(DataType type) { return static_cast<int>(type); }

} // namespace karvane
