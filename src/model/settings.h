// The settings record with its built-in values, and the three preset tables of friction,
// resistance and shock. Filled with the built-in values, then overwritten by Defaults.dat,
// then replaced by a loaded network's copy.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace karvane {

inline constexpr int PresetRows = 50;   // indices 0..49
inline constexpr int CustomPreset = 50; // index 50: a custom value kept in the airway
inline constexpr int FontCount = 4;     // 1 data values, 2 branch names, 3 node names, 4 floating text
inline constexpr int IconCount = 7;     // IconSize(0..6)
inline constexpr int ColourCount = 8;   // Colours(0..7)
inline constexpr std::int32_t BlockedResValue = 1000000000;

// The balancing method of a run (Settings::Solver): Hardy Cross mesh by mesh, or Newton's
// method on all mesh flows at once. Both give the same flows within the allowed error.
inline constexpr std::int16_t SolverHardyCross = 0;
inline constexpr std::int16_t SolverNewton = 1;

// A colour as 24-bit red, green, blue packed as the platform's colour value: R + 256 G + 65536 B.
inline constexpr std::int32_t Rgb(int r, int g, int b) { return r + 256 * g + 65536 * b; }

struct Settings {
    // Fields kept in the settings line, in the order of their file number.
    std::int16_t NodeDivisions = 5;      // 1
    double GridSpacing = 50;             // 2
    std::int16_t PickDivisions = 25;     // 3
    std::int16_t DriveWallType = 4;      // 4
    float DefaultShock = 2;              // 5
    float DriveHeight = 4;               // 6
    float DriveWidth = 4;                // 7
    float RaiseDiameter = 1.8f;          // 8
    std::string SurfaceName = "SURFACE"; // 9
    std::int16_t MaxIter = 50;           // 10
    float AllowErr = 0.05f;              // 11
    std::int32_t AirwayCapacity = 30000; // 12
    float PowerCost = 0.08f;             // 13
    float AirEfficiency = 0.8f;          // 14
    float Density = 1.2f;                // 15
    std::int32_t DimOptions = 0;         // 16
    float SpinSpeed = 2;                 // 17
    float TiltSpeed = 2;                 // 18
    std::int16_t FullRotation = 0;       // 19
    std::int16_t FreshExhaust = 0;       // 20
    std::int16_t AttributeMask = 0;      // 21
    std::int16_t DisplayOptions = 511;   // 22
    float SurfaceRL = 99999;             // 23
    std::int16_t DxfNodeCircle = 0;      // 24
    std::int16_t DxfArrow = 0;           // 25
    std::int16_t DxfData = 0;            // 26
    std::int16_t DxfAirway = 0;          // 27
    std::int16_t DxfNode = 0;            // 28
    std::int16_t DataFilter = 3;         // 29
    std::int16_t DxfFloat = 0;           // 30
    bool ScreenBuffer = false;           // 31
    std::int16_t ScaleFonts = 1;         // 32
    bool NoPropertyInherit = false;      // 33
    // 34..45: FontName(k), FontBold(k), FontSize(k) for k = 1..4 in turn; [0] unused.
    std::array<std::string, FontCount + 1> FontName{"", "Arial", "Arial", "Arial", "Arial"};
    std::array<std::int16_t, FontCount + 1> FontBold{};
    std::array<std::int16_t, FontCount + 1> FontSize{0, 6, 6, 6, 6};
    // 46..59: IconSize(k), IconScaled(k) in the file order k = 0, 1, 4, 3, 2, 6, 5.
    // k: 0 lines, 1 arrows, 2 smoke, 3 fans, 4 nodes, 5 obstruction, 6 bulkhead; all scaled.
    std::array<std::int16_t, IconCount> IconSize{1, 2, 5, 5, 5, 5, 5};
    std::array<std::int16_t, IconCount> IconScaled{1, 1, 1, 1, 1, 1, 1};
    // 60..67
    std::array<std::int32_t, ColourCount> Colours{Rgb(0, 255, 0),     Rgb(255, 0, 0),     Rgb(0, 255, 255),
                                                  Rgb(0, 0, 0),       Rgb(255, 255, 255), Rgb(255, 255, 0),
                                                  Rgb(128, 128, 128), Rgb(0, 128, 0)};
    float PowerZoom = 4;                // 68
    std::int16_t MaxFans = 250;         // 69
    std::uint8_t PresetResOverride = 0; // 70
    std::int16_t UnlimitedSpeed = 0;    // 71
    std::int16_t UnitSys = 1;           // 72
    float PerspectiveDistance = 1500;   // 73
    bool LayerInherit = false;          // 74
    float DefaultPerimeter = 20;        // 75
    float DefaultArea = 25;             // 76
    std::int16_t UseArea = 0;           // 77
    std::int32_t DefaultCurvePct = 0;   // 78
    std::int16_t RealTimeOn = 0;        // 79
    std::int32_t LastAirwayNo = 0;      // 80
    bool AutoInfo = false;              // 81
    std::int16_t ScrollZoomOff = 0;     // 82
    std::int32_t AutosaveMinutes = 0;   // 83
    std::int16_t SmokeCumulative = 0;   // 84
    std::int16_t EditNoRightClick = 0;  // 85
    float ViewBoxWidth = 500;           // 86
    float ViewBoxX = 1000;              // 87
    float ViewBoxY = 1000;              // 88
    float FlowMin = 0;                  // 89
    float FlowMax = 1000;               // 90
    // 91, written only when it is not Hardy Cross, so that a file that does not use it keeps
    // its 90 values and older readers, which take 90 values, read the new line unchanged.
    std::int16_t Solver = SolverHardyCross;

    // Values of the record that no file keeps.
    std::int16_t RaiseWallType = 2;
    std::int16_t MaxText = 100;
    std::int32_t BlockedRes = BlockedResValue;
    float SurfaceBaro = 101;        // kPa
    bool ExportVisibleOnly = false; // the DXF export writes the airways of the display list alone
};

// The three preset tables, 50 rows each (0..49); row 50 exists for the name "Fix Res".
struct Presets {
    std::array<std::string, PresetRows + 1> WallNames{};
    std::array<float, PresetRows + 1> WallPreset{};
    std::array<std::string, PresetRows + 1> ResNames{};
    std::array<float, PresetRows + 1> ResPreset{};
    std::array<std::string, PresetRows + 1> ShockNames{};
    std::array<float, PresetRows + 1> ShockPreset{};
};

} // namespace karvane
