// The airway information card (frmAirInfo, "Airway Info"): what kind of airway it is, its
// size, flow, resistance and node pressures, where the pressure goes, what its fan or fixed
// flow costs a year, and for a fan the curve PicFan2 with the operating point the run left.
// The card is filled once from the airway; the graph is drawn through a display surface, so
// that it is the same on the screen, on paper and in an SVG picture.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "display/surface.h"
#include "model/model.h"

namespace karvane::forms {

inline constexpr std::size_t AirInfoMaxRows = 16;

struct AirInfoRow {
    std::string Caption; // LblDName(n)
    std::string Value;   // LblData(n)
};

// PicFan2: the curve in a square of 1000 by 1000 units, origin at the top left.
struct FanGraph {
    bool Drawn = false;   // both scales above 0
    double FlowMult = 1;  // NoOfFans for fans in parallel
    double PressMult = 1; // NoOfFans for fans in series
    double FlowScale = 0; // largest scaled flow / 1000, m3/s per unit
    double PressScale = 0;
    // Points 1..11 in graph units; [0] unused.
    std::array<float, 12> X{}, Y{}, EffY{};
    float PointX = 0, PointY = 0; // the operating point
    float EffLineY = 1000;        // 1000 - FanEfficiency x 10
    std::string MaxPressure, MaxFlow;
};

struct AirInfoCard {
    std::int32_t Row = 0;
    std::int32_t AirwayNo = 0;
    std::string LblAirName;
    std::string LblCoord, LblCoord2; // the ends, in the long length unit
    std::vector<AirInfoRow> Rows;    // at most 16
    bool Wide = false;               // a fan: the card opens about twice as wide
    std::string LblFanName, LblDutyQ, LblDutyP;
    FanGraph Graph;
};

// Fills the card for airway `row` from what the airway holds (after a run, its results).
// An empty card (Row 0) for a row outside the network.
AirInfoCard FillAirInfo(const Model& model, std::int32_t row, char decimalSep);

// The coordinate box the graph is drawn in: the square and a margin for its captions.
inline constexpr float GraphLeft = -110, GraphTop = -70, GraphWidth = 1300, GraphHeight = 1140;

// Draws PicFan2 on a surface: the curve, the efficiency line, the operating point with its
// dashed leaders, the captions and the axes. Nothing but the clear when the graph is empty.
void DrawFanGraph(const FanGraph& graph, display::Surface& surface);

// The mouse read-out over the graph at graph point (x, y): the flow x x flow scale (LblQ) and
// the pressure (1000 - y) x pressure scale (LblP), in the display units.
struct GraphReadout {
    std::string LblQ, LblP;
};
GraphReadout ReadFanGraph(const Model& model, const FanGraph& graph, double x, double y, char decimalSep);

} // namespace karvane::forms
