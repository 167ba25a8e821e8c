// The real-time station table: up to 50 monitoring stations of the mine, each with five
// measured channels, and the values that hold for all stations together (data files, timers).
// Kept in Remotes.dat beside the defaults; readings live in memory only.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace karvane {

inline constexpr int StationCount = 50; // stations 1..50
inline constexpr int ChannelCount = 5;  // channels 1..5 of a station

// One monitoring station. Channel arrays are indexed 1..5; [0] is unused.
struct Station {
    std::array<std::string, ChannelCount + 1> ChannelName{};   // "Quantity", "Velocity", "Pressure" are understood
    std::array<std::string, ChannelCount + 1> ChannelAbbrev{}; // shown in the view
    std::array<std::string, ChannelCount + 1> ChannelUnits{};  // shown in the view
    std::array<float, ChannelCount + 1> ChannelFactor{};       // a raw reading is multiplied by this
    std::array<float, ChannelCount + 1> AlarmLow{};            // 0: no low alarm
    std::array<float, ChannelCount + 1> AlarmHigh{};           // 0: no high alarm
    std::string StationName;
    std::int16_t UpdateFlow = 0; // channel 1 sets the airway's flow

    // Readings, never stored in a file.
    std::array<std::int32_t, ChannelCount + 1> ChannelValue{}; // latest raw reading
    std::array<std::string, 3> StationText{};                  // [1], [2]: the text fields of the data line
};

struct StationTable {
    std::vector<Station> Stations = std::vector<Station>(StationCount + 1); // 1..50; [0] unused

    // Values for all stations together.
    std::string InputFile;       // the data logger's file (.rem)
    std::int16_t Resimulate = 0; // run the airflow simulation after each reading
    double InputSeconds = 10;    // input timer period
    std::int16_t AlarmsOn = 0;
    std::string OutputFile;    // results written for other systems (.txt)
    double OutputSeconds = 60; // output timer period
    bool InputActive = false;
    bool OutputActive = false;
};

} // namespace karvane
