// What the main window tells about the current view: the scale figure in its caption and the
// cursor's world coordinates in its three labels.
#pragma once

#include <cstdint>
#include <string>

#include "display/view_state.h"
#include "model/model.h"

namespace karvane::display {

// The figure n of the scale 1:n at which a printout of the view would come out.
float ScaleFigureOf(const DisplayState& ds);
// "KARVANE [name  note] [Scale = 1:n]"
std::string MainWindowCaption(const Model& model, const DisplayState& ds);
// Refreshes ScaleFigure and the caption.
void UpdateWindowTitle(const Model& model, DisplayState& ds);

// The cursor's world position for the three coordinate labels, in the display's length unit.
// In a plan view the unrounded pair is kept for the fence and the tools.
struct CursorPosition {
    double PlanX = 0, PlanY = 0;
    std::int32_t X = 0, Y = 0, Z = 0;
};
CursorPosition ShowCursorCoordinates(const Model& model, DisplayState& ds, float curX, float curY);

} // namespace karvane::display
