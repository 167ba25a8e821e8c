// The network renderer of a view window, in two passes over the drawn list: the airway lines
// (cheap, drawn at every step of a rotation or a pan) and the annotation over them (arrows,
// node symbols, names, values, fan and resistance symbols, floating text, station labels),
// drawn when the view comes to rest. Everything goes through a Surface.
#pragma once

#include <array>
#include <cstdint>

#include "display/surface.h"
#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::display {

// Sizes of symbols and text at a box width w, in window units and font points.
struct AnnotationSizes {
    float Arrow = 0;
    std::array<float, 7> Symbol{}; // by icon index: 2 smoke, 3 fans, 4 nodes, 5 obstruction, 6 bulkhead
    double FontFactor = 0;         // 0: no text at all
    std::array<int, 5> Font{};     // FontSize(k) x factor, k = 1..4; 0: that kind of text isn't drawn
};
AnnotationSizes ComputeAnnotationSizes(const Model& model, double boxWidth);

// Points the surface at the view box and sets its background.
void PrepareSurface(const Model& model, const DisplayState& ds, Surface& surface);

// The grid, in plan views and vertical sections. On paper (`paper`) the lines are 1 dot wide,
// the labels black and not bold, and no line stands outside the view box, which has a margin
// around it there.
void DrawGrid(const Model& model, const DisplayState& ds, Surface& surface, ui::UserInterface& ui, bool paper = false);
// The first pass: airway lines.
void DrawLines(const Model& model, const DisplayState& ds, Surface& surface);
// The second pass: everything over the lines.
void DrawAnnotations(const Model& model, DisplayState& ds, Surface& surface);

// The whole pipeline of the current window: drawn list, clear, grid, lines, annotation.
void RedrawWindow(const Model& model, DisplayState& ds, Surface& surface, ui::UserInterface& ui);
// The lines-only picture of an interactive gesture: drawn list, clear, grid without labels
// while panning, lines, refresh.
void RedrawLinesOnly(const Model& model, DisplayState& ds, Surface& surface, ui::UserInterface& ui);
// After a change of the network: display list, projection and a full redraw.
void RedrawAfterChange(Model& model, DisplayState& ds, Surface& surface, ui::UserInterface& ui);

} // namespace karvane::display
