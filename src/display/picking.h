// Turning a click into a node, an airway, a floating text or a rectangle of airways. Every
// pick works on the drawn list of the current window, so that it sees exactly what the user
// sees, with a tolerance that is a share of the window's width.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "display/view_state.h"
#include "display/view_transform.h"
#include "model/model.h"

namespace karvane::display {

// The pick tolerance in window units.
float PickTolerance(const Model& model, const DisplayState& ds);

struct NodePick {
    WorldPoint Point;
    std::string Name;        // trimmed EntryNode or ExitNode
    std::int32_t Airway = 0; // + row for the From end, - row for the To end
};
// The airway end nearest the cursor within a square of the tolerance (the sum of both
// distances decides; end 1 and the earlier row win ties). CurRL takes the node's level.
std::optional<NodePick> FindNode(const Model& model, DisplayState& ds, float curX, float curY);

struct AirwayPick {
    WorldPoint Point;        // on the airway, or under the cursor at CurRL when none was picked
    std::int32_t Airway = 0; // row, 0 for none
};
// The airway nearest the cursor; PickFraction says where along it the pick lay. CurRL takes
// the picked point's level.
AirwayPick FindAirway(const Model& model, DisplayState& ds, float curX, float curY);

struct TextPick {
    WorldPoint Point;
    std::int32_t Slot = 0;
};
std::optional<TextPick> FindFloatingText(const Model& model, const DisplayState& ds, float curX, float curY);

// A fence in window coordinates, corners put in order.
struct FenceRect {
    float Left = 0, Top = 0, Right = 0, Bottom = 0;
};
// The rectangle between two corners given in cursor coordinates.
FenceRect MakeFence(const Model& model, float x1, float y1, float x2, float y2);
// An airway is within a fence when an end or its midpoint lies inside, edges included.
bool InFence(const FenceRect& fence, const DrawnAirway& drawn);
// Whether any drawn airway is within the fence.
bool FenceHit(const DisplayState& ds, const FenceRect& fence);
// The rows of the drawn airways within the fence, each once (a view of several levels may
// draw an airway twice), in drawing order.
std::vector<std::int32_t> RowsInFence(const Model& model, const DisplayState& ds, const FenceRect& fence);

} // namespace karvane::display
