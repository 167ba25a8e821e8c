// The current view on paper at a stated scale: a second renderer beside the window's, over the
// same drawn list and options, that clips lines exactly at a frame, measures text before it
// prints it, sizes symbols and fonts by rules of its own, and adds a legend, the grid, a title
// line and the floating text. It draws only through the page operations of a Surface.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "display/surface.h"
#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::display {

// What the print dialog leaves for the prints that follow (Tool 22 prints with the last ones).
struct PrintSettings {
    std::int16_t PrintInColour = 0;    // 1 colour, 0 black lines; 0 until the dialog has been used
    std::int16_t PrintOrientation = 0; // 0 portrait, 1 landscape
    std::string PrintTitle;
};

// PrintColours(0..6): palette numbers 8, 0, 1, 2, 5, 4, 6, darker than the screen's fixed
// colours, for white paper.
std::array<Colour, 7> PrintColours();

// The view's own scale figure on a page of this printable width, in millimetres.
float PageScaleFigure(const ViewState& view, double pageWidthMm);

// One airway end pair clipped at the frame, in the order the print does it: both ends against
// left and right, then against top and bottom. An end that lay at or beyond a side comes out
// on it with its flag false.
struct ClippedLine {
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    bool In1 = true, In2 = true;
};
ClippedLine ClipToFrame(double x1, double y1, double x2, double y2, double left, double top, double right,
                        double bottom);

// Prints the current window once on `page`, whose paper and orientation are set already, from
// the drawn list as the last redraw left it. The figure asked for is ds.ScaleFigure (0: the
// view's own); ds.ScaleFigure is 0 afterwards, until the next title update. A fault gives
// "Printing Error" and false. The model is not changed, but the value formatter takes an
// airway's presets into its row, as everywhere values are shown.
bool PrintNetwork(const Model& model, DisplayState& ds, Surface& page, const PrintSettings& print,
                  ui::UserInterface& ui);

} // namespace karvane::display
