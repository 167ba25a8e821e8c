// The network tables: airway rows, levels, layers, floating text, saved views and the fan
// database, with the capacities users meet as messages. Plain records; the one Model that
// owns them is in model/model.h.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace karvane {

// 64-bit fixed point with 4 decimals: the stored value times 10000.
using Fixed4 = std::int64_t;
inline constexpr Fixed4 kFixedScale = 10000;

// Capacities of the tables.
inline constexpr std::int32_t MaxAirways = 30000;
inline constexpr std::int16_t UndoCapacity = 30000;
inline constexpr std::int16_t DefaultMaxFans = 250;
inline constexpr std::int16_t DefaultMaxText = 100;
inline constexpr int LevelRows = 250;       // rows 1..250 in memory
inline constexpr int LevelRowsInFile = 249; // the network file keeps rows 1..249
inline constexpr int PrimaryLayerCount = 16;
inline constexpr int SecondLayerCount = 48;
inline constexpr int SavedViewSlots = 111; // slots 0..110
inline constexpr int ViewParamCount = 28;  // ViewParam(1..28)
inline constexpr int ViewValueCount = 5;   // ViewValue(1..5)
inline constexpr int RecentFileCount = 9;
inline constexpr int FanPoints = 11; // points 1..10 stored, 11 = free delivery (computed)

// The one surface key shared by every end at or above the surface: the atmosphere is a node.
// Its value is 900000000000000, held like every key with 4 decimals (times kFixedScale), which
// puts it above every key that a coordinate can make.
inline constexpr Fixed4 SurfaceKey = 900000000000000LL * kFixedScale;

// Widths of the fixed-width text fields of the airway record.
inline constexpr std::size_t NameWidth = 40;
inline constexpr std::size_t CommentWidth = 12;

// BranchCode bits.
namespace bc {
inline constexpr std::int32_t Rectangular = 1;
inline constexpr std::int32_t Circular = 2;
inline constexpr std::int32_t FixedFlow = 4;
inline constexpr std::int32_t ContaminantSource = 8;
inline constexpr std::int32_t Services = 16;
inline constexpr std::int32_t FansInSeries = 32;
inline constexpr std::int32_t ErrorMark = 64;
inline constexpr std::int32_t FixedLength = 128;
inline constexpr std::int32_t InView = 256;
inline constexpr std::int32_t FreshAir = 512;
inline constexpr std::int32_t ExhaustAir = 1024;
inline constexpr std::int32_t DataHidden = 2048;
inline constexpr std::int32_t EntryAtSurface = 4096;
inline constexpr std::int32_t ExitAtSurface = 8192;
inline constexpr std::int32_t FixedDirection = 16384;
inline constexpr std::int32_t AreaEntry = 65536;
inline constexpr std::int32_t Selected = 131072;
} // namespace bc

// Stored sentinels.
inline constexpr float StalledFanPressure = -9999.0f;
inline constexpr float NegatedFanPressure = 9999.0f;
inline constexpr float NodeNotReached = -9999999.0f;
inline constexpr float NeverReached = 9999999.0f;
inline constexpr float NoFlowQuantity = 9994.0f; // Quantity beyond this is "no flow"

// One airway row, in the order of its columns in the network file.
struct Airway {
    std::string EntryNode;  // 40
    std::string ExitNode;   // 40
    std::string BranchName; // 40
    Fixed4 EntryKey = 0;
    Fixed4 ExitKey = 0;
    std::int32_t X1 = 0, Y1 = 0, Z1 = 0;
    std::int32_t X2 = 0, Y2 = 0, Z2 = 0;
    float Height = 0;
    float Width = 0;
    std::int32_t BranchCode = 0;
    std::int16_t ResType = 0;
    std::int16_t ShockType = 0;
    std::int16_t WallType = 0;
    float WallFactor = 0;
    float ShockFactor = 0;
    std::string Comment; // 12
    float Resistance = 0;
    float Quantity = 0;
    std::int16_t FanNumber = 0;
    std::int16_t NoOfFans = 0;
    float Length = 0;
    float Pressure = 0;
    float Contaminant = 0;
    std::int16_t PrimaryLayer = 0;
    std::int16_t SecondLayer = 0;
    float FromNodeP = 0;
    float ToNodeP = 0;
    std::int32_t UndoNo = 0;
    std::int32_t AirwayNo = 0;
    float IconLoc = 0;
    std::int16_t RemoteStation = 0;
    std::int16_t NoAirways = 0;
    std::int16_t CurveFraction = 0;
    std::int16_t Gas1 = 0;
    std::int16_t Gas2 = 0;

    bool Has(std::int32_t bit) const { return (BranchCode & bit) != 0; }
    // Every field equal: a save compares a row with what it would write.
    bool operator==(const Airway&) const = default;
};

// Cuts a text to a fixed width, as every store into a fixed-width field does.
std::string FitText(std::string_view text, std::size_t width);
// Removes leading and trailing blanks (spaces and tabs), as every reader of a field does.
std::string TrimText(std::string_view text);

struct LevelRecord {
    std::string RLName;
    std::int32_t RLMax = 0;
    std::int32_t RLMin = 0;
};

struct LayerRecord {
    std::string Name;
    std::int16_t LayerOn = -1; // -1 on, 0 off
};

struct FloatingText {
    bool TextOn = false;
    std::string TextValue;
    std::int32_t TextX = 0, TextY = 0, TextZ = 0;
};

struct SavedView {
    std::string ViewName;
    std::array<float, ViewParamCount + 1> ViewParam{};  // 1..28, [0] unused
    std::array<Fixed4, ViewValueCount + 1> ViewValue{}; // 1..5, [0] unused
};

// One row of the fan database. Curve points are numbered 1..11; [0] is unused.
struct FanRecord {
    std::string FanName;
    float FanDiam = 0;
    std::array<float, FanPoints + 1> FanPStatic{};    // FanP(point, 1), Pa
    std::array<float, FanPoints + 1> FanPTotal{};     // FanP(point, 2), Pa
    std::array<float, FanPoints + 1> FanQ{};          // m3/s
    std::array<std::int16_t, FanPoints + 1> FanEff{}; // percent

    // A row is free when the first point of both pressure columns is 0.
    bool IsFree() const { return FanPStatic[1] == 0.0f && FanPTotal[1] == 0.0f; }
};

} // namespace karvane
